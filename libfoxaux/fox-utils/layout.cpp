// SPDX-License-Identifier: MIT
// Places top-level windows on the screen, and sizes what stands in them.
#include "libfoxaux/fox-utils/layout.h"

#include "mathkit/stderr_failed.h"

#include <algorithm>

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

FXint grown(FXint pixels) {
    constexpr double usual = 90.0 * 100; // tenths of a point times dots per inch
    constexpr double largest = 10;       // settings may name any number
    FXApp* app = FXApp::instance();
    const double points = app->getNormalFont()->getSize();
    const double letters = points * app->reg().readUnsignedEntry("SETTINGS", "screenres", 100);
    return static_cast<FXint>(pixels * std::clamp(letters / usual, 1.0, largest));
}

void fit_to_screen(FXTopWindow& window) {
    layout_root screen;
    screen.zoom(0.95, 0.95);
    const auto cut = [](FXint side, double room) {
        return std::min(side, static_cast<FXint>(room));
    };
    window.resize(cut(window.getWidth(), screen.width()), cut(window.getHeight(), screen.height()));
}
