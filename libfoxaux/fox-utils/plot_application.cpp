// SPDX-License-Identifier: MIT
// The toolkit's application, less two of its faults.
#include "libfoxaux/fox-utils/plot_application.h"

#include <X11/Xutil.h>
#include <X11/keysym.h>

bool plot_application::dispatchEvent(FXRawEvent& event) {
    if (pastes_color(event) || picks_by_key(event)) return true; // it goes nowhere
    return FXApp::dispatchEvent(event);
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
