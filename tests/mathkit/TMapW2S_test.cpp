// SPDX-License-Identifier: MIT
// The world map: exact corners, one scale, ticks that tell the truth at every depth.
#include "mathkit/TMapW2S.h"

#include "mathkit/axis.h"
#include "mathkit/tick_model.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>
#include <vector>

namespace {

constexpr double nan = NAN;
constexpr double inf = HUGE_VAL;

std::string narrow(const kit::wstring& text) {
    std::string bytes;
    for (const wchar_t* c = text.c_str(); *c; ++c)
        bytes += static_cast<char>(*c);
    return bytes;
}

double value(const kit::wstring& label) {
    return std::stod(narrow(label));
}

bool coefficients_finite(const TMapW2S& m) {
    for (double c : {m.ax, m.ay, m.bx, m.by, m.cx, m.cy, m.dx, m.dy})
        if (!std::isfinite(c)) return false;
    return true;
}

TEST(TMapW2S, MapsCornersToCornersAndBack) {
    TMapW2S map;
    map.set_world(-2, 1, 6, 5);
    map.set_screen(30, 20, 829, 589, false);
    EXPECT_NEAR(-2 * map.ax + map.bx, 30, 1e-9);
    EXPECT_NEAR(6 * map.ax + map.bx, 829, 1e-9);
    EXPECT_NEAR(1 * map.ay + map.by, 589, 1e-9); // low world y is the lower edge
    EXPECT_NEAR(5 * map.ay + map.by, 20, 1e-9);
    for (double sx : {30.0, 31.0, 400.0, 829.0})
        EXPECT_NEAR((sx * map.cx + map.dx) * map.ax + map.bx, sx, 1e-9);
    for (double sy : {20.0, 21.0, 300.0, 589.0})
        EXPECT_NEAR((sy * map.cy + map.dy) * map.ay + map.by, sy, 1e-9);
    double w = 10, h = 10;
    map.ratio_stow(w, h);
    EXPECT_NEAR(w, 10 * 8 / 799.0, 1e-12);
    EXPECT_NEAR(h, 10 * 4 / 569.0, 1e-12);
}

// A click on the edge of a plot must not land a rounding inside its range.
TEST(TMapW2S, EdgesOfTheScreenAreNotInsideTheWorld) {
    for (int size = 60; size <= 4000; ++size) {
        TMapW2S map;
        map.set_world(0, -1, 1, 1);
        map.set_screen(30, 0, size - 1, size - 30, false);
        EXPECT_LE(30 * map.cx + map.dx, 0) << size;
        EXPECT_GE((size - 1) * map.cx + map.dx, 1) << size;
        EXPECT_GE(0 * map.cy + map.dy, 1) << size;
        EXPECT_LE((size - 30) * map.cy + map.dy, -1) << size;
        EXPECT_DOUBLE_EQ((size - 1) * map.cx + map.dx, 1) << size;
    }
}

TEST(TMapW2S, IsoWidensOneSideAboutItsCentre) {
    struct Case {
        TRect world;
        int width, height;
        TRect expected;
    };
    for (const Case& c : {Case{{0, 0, 1, 1}, 200, 100, {-0.5, 0, 1.5, 1}},
                          Case{{-1, -2, 1, 2}, 100, 100, {-2, -2, 2, 2}},
                          Case{{0, 0, 4, 2}, 100, 100, {0, -1, 4, 3}},
                          Case{{3, 0, 3, 1}, 100, 100, {2.5, 0, 3.5, 1}}}) {
        TMapW2S map;
        map.world = c.world;
        map.makeIso(); // no screen yet: nothing to fit to
        EXPECT_EQ(map.world.x1, c.world.x1);
        map.set_screen(0, 0, c.width, c.height, true);
        EXPECT_NEAR(map.world.x1, c.expected.x1, 1e-12);
        EXPECT_NEAR(map.world.y1, c.expected.y1, 1e-12);
        EXPECT_NEAR(map.world.x2, c.expected.x2, 1e-12);
        EXPECT_NEAR(map.world.y2, c.expected.y2, 1e-12);
        EXPECT_NEAR(map.ax, -map.ay, 1e-9);
    }
}

/// Ranges and screens as a user can reach them by zooming, typing and resizing.
const TRect hostile_worlds[] = {
    {0, -1, 1, 1},
    {0.3, -1e-15, 0.3 + 1e-15, 1e-15},
    {0.3, 0.7, std::nextafter(0.3, 1), std::nextafter(0.7, 1)},
    {0.5, 0.5, 0.5, 0.5},
    {0, 0, 0, 0},
    {1, 1, -1, -1},
    {-inf, -inf, inf, inf},
    {inf, -inf, inf, -inf},
    {nan, nan, nan, nan},
    {0, nan, nan, 1},
    {-1e308, -1.7e308, 1e308, 1.7e308},
    {1e308, 5e307, 1e308, 6e307},
    {-5e-324, 0, 5e-324, 1e-310},
    {123456789012345678.0, -1e17, 123456789012345999.0, -9e16},
};
const irect hostile_screens[] = {
    {30, 0, 829, 569}, {0, 0, 20000, 20000}, {30, 0, 31, 1},          {5, 5, 5, 5},
    {30, 0, 10, -20},  {-100, -100, -50, 0}, {INT_MIN, 0, INT_MAX, 1}};

TEST(TMapW2S, HostileRangesGiveFiniteCoefficientsAndSaneTicks) {
    for (const TRect& world : hostile_worlds) {
        for (const irect& screen : hostile_screens) {
            for (bool iso : {false, true}) {
                SCOPED_TRACE(testing::Message()
                             << "world " << world.x1 << " " << world.y1 << " " << world.x2 << " "
                             << world.y2 << ", screen " << screen.x1 << " " << screen.x2);
                TMapW2S map;
                map.world = world;
                map.set_screen(screen.x1, screen.y1, screen.x2, screen.y2, iso);
                EXPECT_TRUE(coefficients_finite(map));
                EXPECT_TRUE(map.ax != 0 && map.ay != 0 && map.cx != 0 && map.cy != 0);
                kit::axis x, y;
                map.a_model_4(x, y);
                ASSERT_GE(x.ticks.size(), 2u);
                ASSERT_GE(y.ticks.size(), 2u);
                EXPECT_LE(x.ticks.size() + y.ticks.size(), 60u);
                ASSERT_EQ(x.ticks.size(), x.labels.size());
                ASSERT_EQ(y.ticks.size(), y.labels.size());
                EXPECT_LT(value(x.labels.front()), value(x.labels.back()));
                EXPECT_LT(value(y.labels.front()), value(y.labels.back()));
                if (screen.x2 < screen.x1) continue; // nothing lies inside an empty screen
                for (int t : x.ticks)
                    EXPECT_TRUE(screen.isinside(t, screen.y1)) << t;
                for (int t : y.ticks)
                    EXPECT_TRUE(screen.isinside(screen.x1, t)) << t;
            }
        }
    }
}

TEST(TMapW2S, FullViewIsLabelledFromEndToEnd) {
    for (int size : {60, 150, 266, 500, 1017, 4000}) {
        TMapW2S map;
        map.set_world(0, -1, 1, 1);
        map.set_screen(30, 0, 30 + size, size, false);
        kit::axis x, y;
        map.a_model_4(x, y);
        EXPECT_EQ(x.ticks.front(), 30);
        EXPECT_EQ(x.ticks.back(), 30 + size);
        EXPECT_EQ(y.ticks.front(), size); // index 0 is the low end, which lies below
        EXPECT_EQ(y.ticks.back(), 0);
        EXPECT_EQ(narrow(x.labels.front()), "0");
        EXPECT_EQ(narrow(x.labels.back()), "1");
        EXPECT_EQ(narrow(y.labels.front()), "-1");
        EXPECT_EQ(narrow(y.labels.back()), "1");
    }
}

// Zooms about many points: the value at each tick is its label, within half a pixel or one double.
TEST(TMapW2S, LabelsStayTruthfulAtEveryDepth) {
    for (double centre : {0.3, 0.5, 1 / 3.0, 0.999999, -0.25, 0.0, 12345.678}) {
        TRect world;
        world.set_mid(centre, centre, 1, 1);
        for (int depth = 0; depth < 320; ++depth, world.zoom(0.6666666666666666, 1)) {
            TMapW2S map;
            map.world = world;
            map.set_screen(30, 0, 830, 500, false);
            kit::axis x, y;
            map.a_model_4(x, y);
            const double pixel = world.width() / 800;
            const double ulp = std::nextafter(std::fabs(centre), inf) - std::fabs(centre);
            for (std::size_t i = 0; i < x.ticks.size(); ++i) {
                const double at_tick = world.x1 + (x.ticks[i] - 30) * pixel;
                ASSERT_NEAR(value(x.labels[i]), at_tick, 0.51 * pixel + 2 * ulp)
                    << "depth " << depth << " about " << centre;
                if (i > 0) {
                    ASSERT_GE(x.ticks[i], x.ticks[i - 1]);
                    ASSERT_GT(value(x.labels[i]), value(x.labels[i - 1]));
                }
            }
        }
    }
}

TEST(TMapW2S, LabelsAreShortAtOrdinaryZooms) {
    struct Case {
        double lo, hi;
        int pixels;
        const char *first, *last;
    };
    for (const Case& c :
         {Case{0.25, 0.75, 500, "0.25", "0.75"}, Case{1 / 6.0, 5 / 6.0, 500, "0.2", "0.8"},
          Case{0.29999999999999999, 0.5, 500, "0.3", "0.5"}, Case{0, 1e-5, 500, "0", "1e-05"},
          Case{-3e6, 5e6, 500, "-3e+06", "5e+06"},
          Case{0.12341, 0.12349, 500, "0.12341", "0.12349"}, Case{1, 0, 500, "0", "1"},
          Case{0.5512, 0.9612, 60, "0.6", "0.8"}, // one tick would be too few
          // what zooming in and out again leaves of 0 to 1
          Case{1e-17, std::nextafter(1, 0), 500, "0", "1"}}) {
        TMapW2S map;
        map.set_world(c.lo, c.lo, c.hi, c.hi);
        map.set_screen(0, 0, c.pixels, c.pixels, false);
        kit::axis x, y;
        map.a_model_4(x, y);
        EXPECT_EQ(narrow(x.labels.front()), c.first);
        EXPECT_EQ(narrow(x.labels.back()), c.last);
    }
}

TEST(TMapW2S, AReversedRangeIsMirrored) {
    TMapW2S map;
    map.set_world(1, 1, 0, 0);
    map.set_screen(0, 0, 500, 300, false);
    EXPECT_NEAR(0 * map.ax + map.bx, 500, 1e-9);
    kit::axis x, y;
    map.a_model_4(x, y);
    EXPECT_EQ(x.ticks.front(), 500);
    EXPECT_EQ(y.ticks.front(), 0);
}

TEST(TickModel, WithoutDecimalsTheEndsAreTheTicks) {
    for (double end : {1e308, 1e-320, inf}) {
        const std::vector<kit::tick> ticks = kit::nice_ticks(-end, end, 500);
        ASSERT_EQ(ticks.size(), 2u);
        EXPECT_EQ(ticks[0].value, -end);
        EXPECT_EQ(ticks[1].value, end);
    }
}

TEST(TMapW2S, SnapsToShortDecimals) {
    const double third = 1 / 3.0;
    struct Case {
        double lo, hi, new_lo, new_hi;
    };
    for (const Case& c :
         {Case{0, 1, 0, 1}, Case{third / 2, 5 * third / 2, 0.17, 0.83},
          Case{-0.98765, 1.0123, -1, 1},
          Case{0.1234, 0.2229, 0.12, 0.22}, // settles in the next decade
          Case{1234.5678, 9876.54321, 1200, 9900}, Case{-1e308, 1e308, -1e308, 1e308},
          Case{0.3, 0.3, 0.3, 0.3}, Case{2, 1, 2, 1},
          Case{1e308, 1.797e308, 1e308, 1.797e308}, // 1.8e308 is no double
          Case{0, inf, 0, inf}, Case{-inf, inf, -inf, inf}}) {
        double lo = c.lo, hi = c.hi;
        TMapW2S::snap_to_grid(lo, hi);
        EXPECT_EQ(lo, c.new_lo) << c.lo << " to " << c.hi;
        EXPECT_EQ(hi, c.new_hi) << c.lo << " to " << c.hi;
    }
    double lo = nan, hi = 1;
    TMapW2S::snap_to_grid(lo, hi);
    EXPECT_TRUE(std::isnan(lo));
}

TEST(TMapW2S, SnapKeepsTheEndsApartAtEveryDepth) {
    for (double centre : {0.3, -0.25, 0.0, 12345.678}) {
        TRect r;
        r.set_mid(centre, 0, 0.77, 1);
        for (int depth = 0; depth < 2000; ++depth, r.zoom(0.6666666666666666, 1)) {
            double lo = r.x1, hi = r.x2;
            TMapW2S::snap_to_grid(lo, hi);
            ASSERT_LT(lo, hi);
            ASSERT_LE(std::fabs(lo - r.x1) + std::fabs(hi - r.x2), 0.25 * r.width());
            double again_lo = lo, again_hi = hi;
            TMapW2S::snap_to_grid(again_lo, again_hi);
            ASSERT_TRUE(again_lo == lo && again_hi == hi) << lo << " to " << hi;
        }
    }
}

} // namespace
