// SPDX-License-Identifier: MIT
// The least program of the toolkit: one empty white window, where the billiard has its own.
#include <fx.h>

int main(int argc, char** argv) {
    auto* app = new FXApp("Empty", "Iterra"); // never deleted, as in the program
    app->init(argc, argv, true);
    app->create();
    const int w = app->getRootWindow()->getWidth(), h = app->getRootWindow()->getHeight();
    auto* window = new FXMainWindow(app, "Empty", nullptr, nullptr, DECOR_ALL, w / 20, h / 20,
                                    w * 9 / 10, h * 9 / 10);
    window->setBackColor(FXRGB(255, 255, 255));
    window->create();
    window->show();
    return app->run();
}
