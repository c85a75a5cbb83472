// SPDX-License-Identifier: MIT
// Orbits of the billiard in the phase-space canvas: starts, bounces, failures, periodic points.
#include "tests/billiard/fox/main_window.h"

#include <limits>

using namespace window_test;

namespace {

using PoincareBilliard = started;

// A disk whose radius turns into NaN after that many evaluations.
class failing_curve : public TRadiusFunction {
public:
    mutable int left = 1'000'000'000;
    double R(double) const override {
        if (left > 0) --left;
        return left > 0 ? 1 : std::numeric_limits<double>::quiet_NaN();
    }
    double dR(double) const override { return 0; }
    double ddR(double) const override { return 0; }
};

int& evaluations_left() {
    return static_cast<failing_curve*>(map().F)->left;
}

// Shows the path window and waits until it stands beside the other windows.
void show_path_beside() {
    const int left = 900;
    command(FMain::ID_SHOW_BILLIARD);
    EXPECT_TRUE(pump_until([] {
        window().coordinate_win->move(left, 40);
        int x, y;
        plane().translateCoordinatesTo(x, y, app().getRootWindow(), 0, 0);
        return x >= left && screen_of(&plane()) == pixels(plane().image);
    }));
}

} // namespace

TEST_F(PoincareBilliard, AFailedBounceEndsTheLoopWithOneBox) {
    for (const bool path_shown : {false, true}) {
        reset();
        poincare().foreground = red;
        take_curve(new failing_curve);
        if (path_shown) show_path_beside();
        map().setPoint(0.31, 0.437); // an orbit that doesn't close
        evaluations_left() = 300;

        const auto until_stopped = [] {
            poincare().start_loop();
            EXPECT_TRUE(pump_until([] { return !poincare().loop_idle.is_active(); }));
            pump();
        };
        const auto box = [&](FXTopWindow* dialog) {
            const auto level = [] { return screen_of(&plane()) == pixels(plane().image); };
            EXPECT_TRUE(!path_shown || pump_until(level)) << "the path window behind the box";
            message_box("Error", "The root solver is confused.")(dialog);
        };
        with_dialogs(until_stopped, {box});

        EXPECT_FALSE(window().loop_check->getCheck());
        EXPECT_NEAR(point().first, 0.5, 1e-12);
        EXPECT_NEAR(point().second, 0.5, 1e-12);
        EXPECT_GT(pixels(poincare().image).count(red), 5) << "the points before it are gone";
        EXPECT_EQ(plane().segment_state, 1) << "a chord would lead from the old point to the new";
    }
}

TEST_F(PoincareBilliard, ACircleAboutAPeriodicPointFindsItAndStartsThere) {
    take_curve(new TEllipseFunction(1.0));
    poincare().foreground = red;
    // The ball that runs to and fro along the long axis, from (0, 1), which is S = 1/4, to (0, -1).
    with_dialogs([] { poincare().find_fixed_point(0.252, 0.004, 0.02, 0.02); },
                 {message_box("Information", "Found fixpoint of order 2 at (0.25,")});
    EXPECT_NEAR(point().first, 0.25, 1e-6);
    EXPECT_NEAR(point().second, 0, 1e-6);
    EXPECT_EQ(pixels(poincare().image).count(red), 1);
    poincare().undo();
    EXPECT_EQ(pixels(poincare().image).count(red), 0);

    // In a chaotic sea: the order comes from a point in the circle, others lie all around.
    take_curve(new TGenOvalFunction(2, 3));
    with_dialogs([] { poincare().find_fixed_point(0.8204, 0.4819, 0.005, 0.01); },
                 {message_box("Information", "Found fixpoint of order ")});
    EXPECT_LE(std::hypot((point().first - 0.8204) / 0.005, (point().second - 0.4819) / 0.01), 1);
}

TEST_F(PoincareBilliard, ASearchWithoutAFindChangesNothing) {
    poincare().iterate();
    map().setPhiAlpha(7, 2); // as typed angles may be, beyond one turn
    const pixels image(poincare().image), backup(poincare().backup);
    const auto search_in_vain = [](double x, double y,
                                   const char* words = "could not get order of fixpoint") {
        const double phi = map().phi, alpha = map().alpha;
        with_dialogs([=] { poincare().find_fixed_point(x, y, 0.05, 0.05); },
                     {message_box("Error", words)});
        EXPECT_TRUE(map().phi == phi && map().alpha == alpha) << map().phi << ", " << map().alpha;
    };
    for (const double x : {-0.2, 1.5, double(NAN)})
        search_in_vain(x, 0.1);
    EXPECT_TRUE(pixels(poincare().image) == image && pixels(poincare().backup) == backup);

    take_curve(new failing_curve);
    const int before = evaluations_left();
    EXPECT_EQ(map().getorder(0.5, 0, 0.05, 0.05, 10), 2);
    const int for_the_order = before - evaluations_left();
    map().setPoint(0.31, 0.437);
    evaluations_left() = for_the_order + 5; // it fails once the order is known
    search_in_vain(0.5, 0, "could not refine fixpoint of order 2");
    evaluations_left() = 0;
    search_in_vain(0.5, 0);
}
