// SPDX-License-Identifier: MIT
// Starts the program: one application, one main window, the event loop.
#include "billiard/fox/FMain.h"
#include "libfoxaux/fox-utils/layout.h"

#include <cmath>

namespace {

int pixels(double length) {
    return static_cast<int>(std::rint(length));
}

} // namespace

int main(int argc, char** argv) {
    // Neither the application nor the window is ever deleted: an application that dies with this
    // function would take every window with it, while the toolkit is still at work on them.
    auto* app = new FXApp("Billiard", "Iterra");
    app->init(argc, argv, true);
    app->create();

    layout_root area;
    area.zoom(0.9, 0.9);
    area.lower_top(16); // room for the title bar
    auto* window = new FMain(app, pixels(area.x1), pixels(area.y1), pixels(area.width()),
                             pixels(area.height()));
    window->create();
    window->show();
    app->run();
    return 1;
}
