// SPDX-License-Identifier: MIT
// A second top-level window that belongs to the main one.
#include "libfoxaux/fox-utils/companion_window.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <memory>

namespace {

Display* display_of(const FXWindow* window) {
    return static_cast<Display*>(window->getApp()->getDisplay());
}

Atom atom(Display* display, const char* name) {
    return XInternAtom(display, name, False);
}

// The hints that the window manager has about the window; without any, empty ones.
auto hints_of(Display* display, Window window) {
    XWMHints* known = XGetWMHints(display, window);
    return std::unique_ptr<XWMHints, int (*)(void*)>(known ? known : XAllocWMHints(), XFree);
}

} // namespace

// clang-format off
FXDEFMAP(companion_window) companion_window_map[] = {
    FXMAPFUNC(SEL_MAP, 0, companion_window::onMap),
};
// clang-format on
FXIMPLEMENT(companion_window, FXMainWindow, companion_window_map, ARRAYNUMBER(companion_window_map))

companion_window::companion_window(FXApp* app, const FXString& title, FXint x, FXint y, FXint w,
                                   FXint h)
    : FXMainWindow(app, title, nullptr, nullptr, DECOR_ALL, x, y, w, h) {}

void companion_window::accompany(const FXTopWindow* main) {
    Display* display = display_of(this);
    XSetTransientForHint(display, id(), main->id());
    // Without a type of its own such a window counts as a dialog, which has fewer decorations.
    const Atom normal = atom(display, "_NET_WM_WINDOW_TYPE_NORMAL");
    XChangeProperty(display, id(), atom(display, "_NET_WM_WINDOW_TYPE"), XA_ATOM, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(&normal), 1);
}

// A window manager gives the keys to a new window that accepts them; it looks when it shows it.
void companion_window::show() {
    if (!shown()) accept_keys(false);
    FXMainWindow::show();
}

long companion_window::onMap(FXObject* sender, FXSelector sel, void* ptr) {
    accept_keys(true);
    return FXMainWindow::onMap(sender, sel, ptr);
}

// Two ways lead to the keys: the manager gives them, or it asks the window to take them.
void companion_window::accept_keys(bool accepted) {
    Display* display = display_of(this);
    const auto hints = hints_of(display, id());
    hints->flags |= InputHint;
    hints->input = accepted;
    XSetWMHints(display, id(), hints.get());

    Atom protocols[] = {atom(display, "WM_DELETE_WINDOW"), atom(display, "_NET_WM_PING"),
                        atom(display, "WM_TAKE_FOCUS")};
    XSetWMProtocols(display, id(), protocols, accepted ? 3 : 2);
}
