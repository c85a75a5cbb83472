// SPDX-License-Identifier: MIT
// The toolkit's application, less one of its faults.
#include "libfoxaux/fox-utils/plot_application.h"

#include <X11/Xlib.h>

bool plot_application::dispatchEvent(FXRawEvent& event) {
    const bool of_button = event.type == ButtonPress || event.type == ButtonRelease;
    if (of_button && event.xbutton.button == Button2) {
        const FXWindow* window = findWindowWithId(event.xbutton.window);
        if (window && window->isMemberOf(FXMETACLASS(FXColorWell))) return true;
    }
    return FXApp::dispatchEvent(event);
}
