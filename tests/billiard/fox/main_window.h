// SPDX-License-Identifier: MIT
// The one main window of a test process, and short ways to its parts.
#pragma once

#include "billiard/fox/FMain.h"
#include "billiard/fox/coordinate_space.h"
#include "billiard/fox/poincare_billiard.h"
#include "billiard/radius-core/TRadiusFunction.h"
#include "tests/libfoxaux/dialogs.h"
#include "tests/libfoxaux/pixels.h"

#include <cmath>

namespace window_test {

constexpr FXColor path_color = 0xFFFF7267;

/// The main window, shown; a process holds one, so each test starts by reset().
inline FMain& window() {
    static FMain* main = [] {
        auto* built = new FMain(&app(), 60, 40, 704, 500);
        built->create();
        built->show();
        pump();
        return built;
    }();
    return *main;
}

inline poincare_billiard& poincare() {
    return *window().poincare;
}
inline coordinate_space& plane() {
    return *window().coordinate;
}
inline TBilliardMap& map() {
    return window().map;
}

/// Sends a command as the panel's widgets do.
inline long command(FXuint id) {
    return window().handle(nullptr, FXSEL(SEL_COMMAND, id), nullptr);
}

/// Takes a curve as the dialogs do.
inline void take_curve(TRadiusFunction* curve) {
    map().setF(curve);
    window().curve_changed();
    pump();
}

/// The state of the program's start.
inline void reset() {
    poincare().stop_loop();
    poincare().cancel_mode();
    poincare().zoom_full();
    poincare().foreground = black;
    window().update_color_well();
    if (window().show_billiard) command(FMain::ID_SHOW_BILLIARD);
    take_curve(new TOvalAFunction(5.0));
    map().setPoint(0.5, 0.5);
}

/// The window pixel of a point of the section.
inline FXPoint pixel_of(double S, double P) {
    poincare().w2s->to_screen(S, P);
    return {static_cast<FXshort>(std::rint(S)), static_cast<FXshort>(std::rint(P))};
}

/// S and P of the present point.
inline std::pair<double, double> point() {
    double S, P;
    map().getPoint(S, P);
    return {S, P};
}

/// A test of a window that has just started.
class started : public ::testing::Test {
protected:
    void SetUp() override { reset(); }
};

} // namespace window_test
