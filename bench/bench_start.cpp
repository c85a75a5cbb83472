// SPDX-License-Identifier: MIT
// From the start of the program to its first painted canvas, beside an empty window of the toolkit.
// Needs a display without a window manager.
#include "bench/figure_table.h"
#include "bench/interleaved.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

namespace {

using namespace bench;
using wall_clock = std::chrono::steady_clock;

/// Looks at one place of the screen that both windows paint white: in the billiard, the canvas.
class onlooker {
public:
    explicit onlooker(Display* display)
        : display(display),
          root(DefaultRootWindow(display)),
          x(DisplayWidth(display, DefaultScreen(display)) * 2 / 5),
          y(DisplayHeight(display, DefaultScreen(display)) / 2) {
        XSetWindowBackground(display, root, 0);
        XClearWindow(display, root);
    }

    bool white() const {
        XImage* image = XGetImage(display, root, x, y, 1, 1, AllPlanes, ZPixmap);
        if (!image) return false;
        const unsigned long colours = 0xffffff;
        const bool answer = (XGetPixel(image, 0, 0) & colours) == colours;
        XDestroyImage(image);
        return answer;
    }

    /// Waits until the place is white, or is not, as told; false after ten seconds.
    bool wait_for(bool wanted) const {
        const auto start = wall_clock::now();
        while (white() != wanted) {
            if (wall_clock::now() - start > std::chrono::seconds(10)) return false;
            usleep(200);
        }
        return true;
    }

private:
    Display* display;
    Window root;
    int x, y;
};

/// Seconds from the start of a program to white; ends the program.
double start_time(const onlooker& screen, const char* program) {
    if (!screen.wait_for(false)) return -1;
    const auto start = wall_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execl(program, program, static_cast<char*>(nullptr));
        _exit(127);
    }
    const bool painted = child > 0 && screen.wait_for(true);
    const double seconds = std::chrono::duration<double>(wall_clock::now() - start).count();
    if (child > 0) {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    return painted ? seconds : -1;
}

} // namespace

int main(int argc, char** argv) {
    Display* display = XOpenDisplay(nullptr);
    if (!display) {
        std::fprintf(stderr, "bench_start: no display\n");
        return 1;
    }
    const onlooker screen(display);
    start_time(screen, BILLIARD_PROGRAM); // the first start of each reads its files
    start_time(screen, EMPTY_PROGRAM);
    const interleaved_medians seconds(
        15, [&] { return start_time(screen, BILLIARD_PROGRAM); },
        [&] { return start_time(screen, EMPTY_PROGRAM); });
    XCloseDisplay(display);
    if (!(seconds.first > 0 && seconds.second > 0)) {
        std::fprintf(stderr, "bench_start: a window never came\n");
        return 1;
    }
    figure_table table;
    table.note("milliseconds to the first painted canvas", 1e3 * seconds.first);
    table.note("milliseconds to an empty window of the toolkit", 1e3 * seconds.second);
    table.figure("start, in times of an empty window", seconds.first / seconds.second, at_most(2));
    return table.run(argc, argv);
}
