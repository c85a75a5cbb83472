// SPDX-License-Identifier: MIT
// Places top-level windows on the screen.
#include "libfoxaux/fox-utils/layout.h"

#include "mathkit/stderr_failed.h"

#include <fx.h>

layout_root::layout_root() {
    const FXApp* app = FXApp::instance();
    stderr_assert(app != nullptr, "FXApp::instance()!=0", "libfoxaux/fox-utils/layout",
                  "layout_root::layout_root()");

    const FXWindow* root = app->getRootWindow();
    set(root->getX(), root->getY(), root->getX() + root->getWidth(),
        root->getY() + root->getHeight());
}

void layout_root::lower_top(double pixels) {
    if (!(y1 + pixels > y2)) y1 += pixels;
}
