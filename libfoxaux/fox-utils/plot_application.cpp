// SPDX-License-Identifier: MIT
// The toolkit's application without four of its faults.
#include "libfoxaux/fox-utils/plot_application.h"

#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <charconv>
#include <cmath>
#include <cstring>

namespace {

constexpr const char* registry_group = "SETTINGS";
constexpr const char* resolution = "screenres"; // read for each font that is created

// The dots per inch that the desktop tells; 0 if it tells none, or impossible ones.
FXuint desktop_resolution(Display* display) {
    const char* text = XGetDefault(display, "Xft", "dpi");
    if (!text) return 0;
    double value = 0;
    const auto end = std::from_chars(text, text + strlen(text), value);
    if (end.ec != std::errc() || !(40 <= value && value <= 800)) return 0;
    return static_cast<FXuint>(std::lround(value));
}

} // namespace

void plot_application::create() {
    const FXuint told = desktop_resolution(static_cast<Display*>(getDisplay()));
    if (told != 0 && !reg().existingEntry(registry_group, resolution)) {
        const bool modified = reg().isModified();
        reg().writeUnsignedEntry(registry_group, resolution, told);
        reg().setModified(modified);
        follows_desktop = true;
    }
    FXApp::create();
}

// Settings that have changed are written now, and the next start must ask the desktop again.
void plot_application::exit(FXint code) {
    if (follows_desktop) {
        const bool modified = reg().isModified();
        reg().deleteEntry(registry_group, resolution);
        reg().setModified(modified);
    }
    FXApp::exit(code);
}

bool plot_application::dispatchEvent(FXRawEvent& event) {
    if (pastes_color(event) || picks_by_key(event)) return true; // the event is dropped
    FXTopWindow* dialog = dialog_beside(event);
    const bool dispatched = FXApp::dispatchEvent(event);
    if (dialog) {
        dialog->raise();
        dialog->setFocus();
    }
    return dispatched;
}

// The modal dialog that a mouse button, pressed on another window, has missed; null if none.
FXTopWindow* plot_application::dialog_beside(const FXRawEvent& event) const {
    if (event.type != ButtonPress || event.xbutton.button > Button3) return nullptr;
    auto* dialog = dynamic_cast<FXTopWindow*>(getModalWindow());
    const FXWindow* window = findWindowWithId(event.xbutton.window);
    return dialog && window && !dialog->isOwnerOf(window) ? dialog : nullptr;
}

bool plot_application::pastes_color(const FXRawEvent& event) const {
    const bool of_button = event.type == ButtonPress || event.type == ButtonRelease;
    if (!of_button || event.xbutton.button != Button2) return false;
    const FXWindow* window = findWindowWithId(event.xbutton.window);
    return window && window->isMemberOf(FXMETACLASS(FXColorWell));
}

bool plot_application::picks_by_key(FXRawEvent& event) const {
    const bool of_key = event.type == KeyPress || event.type == KeyRelease;
    if (!of_key) return false;
    const KeySym key = XLookupKeysym(&event.xkey, 0);
    if (key != XK_space && key != XK_KP_Space) return false;
    // The toolkit gives keys to the focus, wherever the pointer is.
    const FXWindow* window = getFocusWindow();
    while (window && window->getFocus())
        window = window->getFocus();
    return window && window->isMemberOf(FXMETACLASS(FXPicker));
}
