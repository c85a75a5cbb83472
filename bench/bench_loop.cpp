// SPDX-License-Identifier: MIT
// The free-running loop of the phase canvas beside the bare map. Needs a display.
#include "bench/figure_table.h"
#include "bench/interleaved.h"
#include "billiard/fox/FMain.h"
#include "billiard/fox/poincare_billiard.h"
#include "billiard/radius-core/TRadiusFunction.h"
#include "libfoxaux/fox-utils/plot_application.h"

#include <chrono>
#include <cstdio>

namespace {

using namespace bench;
using wall_clock = std::chrono::steady_clock;

/// The map of the loop; it counts the points.
class counting_map : public TBilliardMap {
public:
    using TBilliardMap::TBilliardMap;
    void iterate() override {
        ++points;
        TBilliardMap::iterate();
    }
    long points = 0;
};

double seconds_since(wall_clock::time_point start) {
    return std::chrono::duration<double>(wall_clock::now() - start).count();
}

/// Points per second of iterate and getPoint alone.
double bare_rate(counting_map& map) {
    map.setPoint(0.3, 0.4);
    const long before = map.points;
    const auto start = wall_clock::now();
    double s = 0, p = 0;
    while (seconds_since(start) < 0.3) {
        for (int i = 0; i < 1000; ++i) {
            map.iterate();
            map.getPoint(s, p);
        }
    }
    return static_cast<double>(map.points - before) / seconds_since(start);
}

/// Ends the loop after some time, as a key does.
class stopper : public FXObject {
public:
    explicit stopper(poincare_billiard& canvas, FXuint milliseconds) : canvas(canvas) {
        canvas.getApp()->addTimeout(this, 1, milliseconds);
    }
    long handle(FXObject*, FXSelector, void*) override {
        canvas.stop_loop();
        stopped = true;
        return 1;
    }
    bool stopped = false;

private:
    poincare_billiard& canvas;
};

/// Points per second of the loop, drawn and shown once a second; until the server has them all.
double loop_rate(counting_map& map, poincare_billiard& canvas) {
    FXApp* app = canvas.getApp();
    map.setPoint(0.3, 0.4);
    const long before = map.points;
    const auto start = wall_clock::now();
    canvas.start_loop();
    stopper end(canvas, 1300); // the screen is refreshed once in this time
    while (!end.stopped)
        app->runOneEvent();
    app->flush(true);
    return static_cast<double>(map.points - before) / seconds_since(start);
}

FMain& main_window() {
    static char name[] = "bench_loop";
    static char* arguments[] = {name, nullptr};
    int count = 1;
    auto* app = new plot_application("Billiard", "Iterra"); // never deleted, as in the program
    app->init(count, arguments);
    app->create();
    auto* window = new FMain(app, 40, 40, 1100, 900);
    window->create();
    window->show();
    app->flush(true);
    app->runWhileEvents();
    return *window;
}

void add_curve(figure_table& table, FMain& window, const char* name, TRadiusFunction* curve) {
    counting_map map(curve);
    window.poincare->map = &map;
    const interleaved_medians rates(
        3, [&] { return loop_rate(map, *window.poincare); }, [&] { return bare_rate(map); });
    window.poincare->map = &window.map;
    table.note(std::string(name) + ": points per second of the loop", rates.first);
    table.note(std::string(name) + ": points per second of iterate + getPoint", rates.second);
    table.figure(std::string(name) + ": loop, in parts of the bare rate",
                 rates.first / rates.second, at_least(0.88));
}

} // namespace

int main(int argc, char** argv) {
    figure_table table;
    FMain& window = main_window();
    add_curve(table, window, "oval A 5", new TOvalAFunction(5));
    add_curve(table, window, "ellipse 1", new TEllipseFunction(1));
    add_curve(table, window, "oval C 2 3", new TGenOvalFunction(2, 3));
    return table.run(argc, argv);
}
