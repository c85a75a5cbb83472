// SPDX-License-Identifier: MIT
// The path canvas: other sizes, NaN and infinite values, points far off. A journey sees its pixels.
#include "tests/billiard/fox/main_window.h"

#include <limits>

using namespace window_test;

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan_value = std::numeric_limits<double>::quiet_NaN();

class CoordinateSpace : public started {
protected:
    void SetUp() override {
        reset();
        command(FMain::ID_SHOW_BILLIARD);
        EXPECT_TRUE(pump_until([] { return plane().image->getWidth() == plane().getWidth(); }));
    }
};

// A curve with a given radius between two polar angles and 1 elsewhere.
class odd_curve : public TRadiusFunction {
public:
    odd_curve(double value, double from, double to) : value(value), from(from), to(to) {}
    double R(double phi) const override { return from <= phi && phi <= to ? value : 1.0; }
    double dR(double) const override { return 0; }
    double ddR(double) const override { return 0; }

private:
    double value, from, to;
};

// Gives the window another size and waits until the picture has followed. The window is raised
// first: one that lies wholly behind another is not asked to paint.
void resize_to(int w, int h) {
    window().coordinate_win->raise();
    window().coordinate_win->resize(w, h);
    EXPECT_TRUE(pump_until([=] { return plane().image->getWidth() == w; })) << w;
    EXPECT_EQ(plane().image->getHeight(), h);
}

} // namespace

TEST_F(CoordinateSpace, AResizeKeepsTheShapeAndGoesOnWithThePath) {
    plane().add_bounce();
    map().iterate();
    plane().add_bounce();
    for (const auto& [w, h] : {std::pair{500, 120}, std::pair{120, 400}, std::pair{3, 2}}) {
        resize_to(w, h);
        EXPECT_DOUBLE_EQ(std::fabs(plane().w2s.ax), std::fabs(plane().w2s.ay));
        EXPECT_EQ(pixels(plane().image).count(red), 0);
        EXPECT_EQ(plane().segment_state, 2);
    }
    resize_to(300, 300);
    map().iterate();
    plane().add_bounce();
    EXPECT_GT(pixels(plane().image).count(red), 20);
    EXPECT_GT(pixels(plane().image).count(path_color), 20);
}

// What of such a curve is proper still shows, nothing wraps, and the next proper curve is whole.
TEST_F(CoordinateSpace, CurvesWithValuesThatAreNoRadiiAreDrawnAsFarAsTheyGo) {
    struct {
        double value;
        bool rest_shows; // beside the odd values the proper part has a size that can be seen
    } const cases[] = {{nan_value, true}, {inf, true},  {-inf, true}, {1e200, true},
                       {1e100, false},    {1e6, false}, {0, true},    {-3, true}};
    for (const auto& row : cases) {
        for (const double from : {0.0, 2.0}) {
            SCOPED_TRACE(row.value);
            take_curve(new odd_curve(row.value, from, from + 1));
            plane().add_bounce();
            if (row.rest_shows) {
                EXPECT_GT(pixels(plane().image).count(black), 200);
            }
        }
    }
    for (const double everywhere : {nan_value, inf, 0.0, 1e300}) {
        take_curve(new odd_curve(everywhere, -10, 10));
        plane().add_bounce();
        plane().add_bounce();
    }
    take_curve(new TEllipseFunction(0.0));
    const int circle = pixels(plane().image).count(black);
    EXPECT_GT(circle, 800); // a circle of 147 pixels has at least 4 sqrt(2) times that
    EXPECT_LT(circle, 1200);
}

TEST_F(CoordinateSpace, APathPointFarOffDrawsThePartInsideThePicture) {
    for (const double x : {1e9, -1e18, 1e300, nan_value, inf, -inf}) {
        plane().render();
        plane().segment_state = 2;
        plane().prev_x = plane().prev_y = plane().last_y = 0;
        plane().last_x = x;
        type_keys(&plane(), "l");
        EXPECT_NEAR(pixels(plane().image).count(path_color), std::isfinite(x) ? 148 : 0, 4) << x;
    }
}
