// SPDX-License-Identifier: MIT
// Starts the program: one application, one main window, the event loop.
#include "billiard/fox/FMain.h"
#include "libfoxaux/fox-utils/layout.h"
#include "libfoxaux/fox-utils/plot_application.h"

#include <X11/Xlib.h>

#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr const char* usage =
    "usage: billiard [-display NAME]\n"
    "       billiard --help | --version\n"
    "Explores two-dimensional dynamical billiards. Key F1 opens the manual.\n"
    "The toolkit's other options are understood too.\n";

// The answer to an argument that asks for one, or null. The toolkit would open a display first.
const char* answer_to(std::string_view argument) {
    if (argument == "--help") return usage;
    if (argument == "--version") return "Billiard " BILLIARD_VERSION "\n";
    return nullptr;
}

// Gives the status of the program: a text that does not arrive, as on a full disk, is a failure.
int tell(const char* text) {
    return std::fputs(text, stdout) >= 0 && std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

int pixels(double length) {
    return static_cast<int>(std::rint(length));
}

// The connection to the display has broken; Xlib lets nobody go on from here. The toolkit's own
// handler would abort, as if the fault were the program's.
int display_lost(Display*) {
    std::fputs("billiard: the connection to the display is lost\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

// Forgets the settings that the toolkit takes its first font from, in this run only.
void forget_font_settings(FXApp* app) {
    app->reg().deleteEntry("SETTINGS", "normalfont");
    app->reg().deleteEntry("SETTINGS", "screenres");
    app->reg().setModified(false);
    app->getNormalFont()->setFont("Sans,90");
}

// Opens the fonts and the root window. The settings may name a font that does not exist or
// a size that is impossible.
void create(FXApp* app) {
    constexpr FXuint largest = 1000; // tenths of a point; the display refuses letters far beyond
    if (app->getNormalFont()->getSize() > largest) forget_font_settings(app);
    try {
        app->create();
        return;
    } catch (const FXFontException&) {
        forget_font_settings(app);
    }
    try {
        app->create();
    } catch (const FXFontException&) {
        std::fputs("billiard: there is no font on this system; install one, such as DejaVu\n",
                   stderr);
        std::_Exit(EXIT_FAILURE);
    }
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        if (const char* answer = answer_to(argv[i])) return tell(answer);

    // Neither the application nor the window is ever deleted: an application that dies with this
    // function would take every window with it, while the toolkit is still at work on them.
    auto* app = new plot_application("Billiard", "Iterra");
    app->init(argc, argv, true);
    XSetIOErrorHandler(display_lost);
    // A file that grows too large, or a pipe that nobody reads, is an error of the write, not a
    // signal.
    for (const int signal : {SIGXFSZ, SIGPIPE})
        std::signal(signal, SIG_IGN);
    create(app);

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
