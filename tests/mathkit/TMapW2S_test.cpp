// SPDX-License-Identifier: MIT
// The world map: exact corners, one scale, ticks that tell the truth at every depth.
#include "mathkit/TMapW2S.h"

#include "mathkit/axis.h"
#include "mathkit/tick_model.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cwchar>
#include <iterator>
#include <utility>
#include <vector>

namespace {

constexpr double nan = NAN;
constexpr double inf = HUGE_VAL;
constexpr double closer = 0.6666666666666666; ///< the factor of a zoom

double value(const kit::wstring& label) {
    return std::wcstod(label, nullptr);
}

/// A map and its axes.
struct view {
    TMapW2S map;
    kit::axis x, y;

    view(const TRect& world, const irect& screen, bool iso = false) {
        map.world = world;
        map.set_screen(screen.x1, screen.y1, screen.x2, screen.y2, iso);
        map.a_model_4(x, y);
    }
};

void expect_rect(const TRect& seen, const TRect& wanted) {
    EXPECT_NEAR(std::hypot(seen.x1 - wanted.x1, seen.y1 - wanted.y1), 0, 1e-12);
    EXPECT_NEAR(std::hypot(seen.x2 - wanted.x2, seen.y2 - wanted.y2), 0, 1e-12);
}

TEST(TMapW2S, MapsCornersToCornersAndBack) {
    const TMapW2S map = view({-2, 1, 6, 5}, {30, 20, 829, 589}).map;
    double x = -2, y = 1, far_x = 6, far_y = 5;
    map.to_screen(x, y);
    map.to_screen(far_x, far_y);
    expect_rect({x, y, far_x, far_y}, {30, 589, 829, 20}); // low world y is the lower edge
    x = 400 * map.cx + map.dx, y = 300 * map.cy + map.dy;
    map.to_screen(x, y);
    expect_rect({x, y, 0, 0}, {400, 300, 0, 0});
    double w = 10, h = 10;
    map.ratio_stow(w, h);
    expect_rect({w, h, 0, 0}, {10 * 8 / 799.0, 10 * 4 / 569.0, 0, 0});
    const view reversed({1, 1, 0, 0}, {0, 0, 500, 300});
    EXPECT_NEAR(reversed.map.bx, 500, 1e-9);
    EXPECT_TRUE(reversed.x.ticks.front() == 500 && reversed.y.ticks.front() == 0);
}

// A click on the edge of a plot must not land a rounding inside its range.
TEST(TMapW2S, EdgesOfTheScreenAreNotInsideTheWorld) {
    for (int size = 60; size <= 4000; ++size) {
        const TMapW2S map = view({0, -1, 1, 1}, {30, 0, size - 1, size - 30}).map;
        EXPECT_LE(30 * map.cx + map.dx, 0) << size;
        EXPECT_GE((size - 1) * map.cx + map.dx, 1) << size;
        EXPECT_GE(0 * map.cy + map.dy, 1) << size;
        EXPECT_LE((size - 30) * map.cy + map.dy, -1) << size;
        EXPECT_DOUBLE_EQ((size - 1) * map.cx + map.dx, 1) << size;
    }
}

TEST(TMapW2S, IsoWidensOneSideAboutItsCentre) {
    const std::pair<TRect, TRect> cases[] = {{{0, 0, 1, 1}, {-0.5, 0, 1.5, 1}},
                                             {{-1, -2, 1, 2}, {-4, -2, 4, 2}},
                                             {{0, 0, 4, 1}, {0, -0.5, 4, 1.5}},
                                             {{3, 0, 3, 1}, {2, 0, 4, 1}}};
    for (const auto& [world, widened] : cases) {
        TMapW2S map;
        map.world = world;
        map.makeIso(); // no screen yet: nothing to fit to
        expect_rect(map.world, world);
        map.set_screen(0, 0, 200, 100, true);
        expect_rect(map.world, widened);
        EXPECT_NEAR(map.ax, -map.ay, 1e-9);
    }
}

void expect_sane(const kit::axis& axis) {
    ASSERT_GE(axis.ticks.size(), 2u);
    EXPECT_LE(axis.ticks.size(), 30u);
    ASSERT_EQ(axis.ticks.size(), axis.labels.size());
    EXPECT_LT(value(axis.labels.front()), value(axis.labels.back()));
}

TEST(TMapW2S, HostileRangesGiveFiniteCoefficientsAndSaneTicks) {
    // Ranges and screens as a user can reach them by zooming, typing and resizing.
    const double ends[] = {
        0,      1,      -1,    0.3,      0.3 + 1e-15,          std::nextafter(0.3, 1),
        5e-324, 1e-310, 1e308, -1.7e308, 123456789012345678.0, 123456789012345999.0,
        inf,    -inf,   nan};
    const std::size_t n = std::size(ends);
    const irect screens[] = {
        {30, 0, 829, 569}, {0, 0, 20000, 20000}, {30, 0, 31, 1},          {5, 5, 5, 5},
        {30, 0, 10, -20},  {-100, -100, -50, 0}, {INT_MIN, 0, INT_MAX, 1}};
    for (std::size_t i = 0; i < n * n; ++i) {
        const TRect world(ends[i / n], ends[(i + 1) % n], ends[i % n], ends[(i / n + 1) % n]);
        for (const irect& screen : screens) {
            for (const bool iso : {false, true}) {
                SCOPED_TRACE(testing::Message()
                             << world.x1 << " to " << world.x2 << ", " << world.y1 << " to "
                             << world.y2 << ", screen to " << screen.x2);
                const view v(world, screen, iso);
                const TMapW2S& m = v.map;
                EXPECT_TRUE(std::isfinite(m.bx + m.by) && std::isfinite(m.dx + m.dy));
                for (const double scale : {m.ax, m.ay, m.cx, m.cy})
                    EXPECT_TRUE(std::isfinite(scale) && scale != 0);
                expect_sane(v.x);
                expect_sane(v.y);
                if (screen.x2 < screen.x1) continue; // nothing lies inside an empty screen
                for (const int t : v.x.ticks)
                    EXPECT_TRUE(screen.isinside(t, screen.y1)) << t;
                for (const int t : v.y.ticks)
                    EXPECT_TRUE(screen.isinside(screen.x1, t)) << t;
            }
        }
    }
}

TEST(TMapW2S, FullViewIsLabelledFromEndToEnd) {
    view v({7, 7, 9, 9}, {0, 0, 9, 9}); // axes in use: they keep nothing of another range
    for (const int size : {60, 150, 266, 500, 1017, 4000}) {
        v.map = view({0, -1, 1, 1}, {30, 0, 30 + size, size}).map;
        v.map.a_model_4(v.x, v.y);
        expect_sane(v.x);
        expect_sane(v.y);
        EXPECT_TRUE(v.x.ticks.front() == 30 && v.x.ticks.back() == 30 + size) << size;
        EXPECT_TRUE(v.y.ticks.front() == size && v.y.ticks.back() == 0) << "low is below";
        EXPECT_STREQ(v.y.labels.front(), L"-1");
        EXPECT_STREQ(v.y.labels.back(), L"1");
    }
}

// Zooms about many points: the value at each tick is its label, within half a pixel or one double.
TEST(TMapW2S, LabelsStayTruthfulAtEveryDepth) {
    for (const double centre : {0.3, 0.5, 1 / 3.0, 0.999999, -0.25, 0.0, 12345.678}) {
        TRect world;
        world.set_mid(centre, centre, 1, 1);
        const double ulp = std::nextafter(std::fabs(centre), inf) - std::fabs(centre);
        for (int depth = 0; depth < 320; ++depth, world.zoom(closer, 1)) {
            const kit::axis x = view(world, {30, 0, 830, 500}).x;
            const double pixel = world.width() / 800;
            for (std::size_t i = 0; i < x.ticks.size(); ++i) {
                const double at_tick = world.x1 + (x.ticks[i] - 30) * pixel;
                ASSERT_NEAR(value(x.labels[i]), at_tick, 0.51 * pixel + 2 * ulp)
                    << "depth " << depth << " about " << centre;
                if (i == 0) continue;
                ASSERT_GE(x.ticks[i], x.ticks[i - 1]);
                ASSERT_GT(value(x.labels[i]), value(x.labels[i - 1]));
            }
        }
    }
}

TEST(TMapW2S, LabelsAreShortAtOrdinaryZooms) {
    const struct {
        double lo, hi;
        int pixels;
        const wchar_t *first, *last;
    } cases[] = {{0.25, 0.75, 500, L"0.25", L"0.75"},
                 {1 / 6.0, 5 / 6.0, 500, L"0.2", L"0.8"},
                 {0.29999999999999999, 0.5, 500, L"0.3", L"0.5"},
                 {0, 1e-5, 500, L"0", L"1e-05"},
                 {-3e6, 5e6, 500, L"-3e+06", L"5e+06"},
                 {0.12341, 0.12349, 500, L"0.12341", L"0.12349"},
                 {1, 0, 500, L"0", L"1"},
                 {0.5512, 0.9612, 60, L"0.6", L"0.8"}, // one tick would be too few
                 {1, 9, 60, L"2", L"8"},
                 {0.1, 3.9, 60, L"1", L"3"},
                 {0.05, 1.95, 60, L"0.5", L"1.5"},
                 // what zooming in and out again leaves of 0 to 1
                 {1e-17, std::nextafter(1, 0), 500, L"0", L"1"}};
    for (const auto& c : cases) {
        const view v({c.lo, c.lo, c.hi, c.hi}, {0, 0, c.pixels, c.pixels});
        EXPECT_STREQ(v.x.labels.front(), c.first);
        EXPECT_STREQ(v.x.labels.back(), c.last);
    }
}

TEST(TickModel, WithoutDecimalsTheEndsAreTheTicks) {
    for (const double end : {1e308, 1e-320, inf}) {
        const std::vector<kit::tick> ticks = kit::nice_ticks(-end, end, 500);
        EXPECT_TRUE(ticks.size() == 2 && ticks[0].value == -end && ticks[1].value == end) << end;
    }
}

std::pair<double, double> snapped(double lo, double hi) {
    TMapW2S::snap_to_grid(lo, hi);
    return {lo, hi};
}

TEST(TMapW2S, SnapsToShortDecimals) {
    const double cases[][4] = {{1 / 6.0, 5 / 6.0, 0.17, 0.83},
                               {-0.98765, 1.0123, -1, 1},
                               {0.1234, 0.2229, 0.12, 0.22}, // settles in the next decade
                               {1234.5678, 9876.54321, 1200, 9900}};
    for (const auto& [lo, hi, new_lo, new_hi] : cases)
        EXPECT_EQ(snapped(lo, hi), std::pair(new_lo, new_hi)) << lo << " to " << hi;
    for (const auto& [lo, hi] : {std::pair(0.0, 1.0),
                                 {-1e308, 1e308},
                                 {1e308, 1.797e308},
                                 {0.3, 0.3},
                                 {2.0, 1.0},
                                 {0.0, inf},
                                 {-inf, inf}})
        EXPECT_EQ(snapped(lo, hi), std::pair(lo, hi)); // 1.8e308 is no double
    EXPECT_TRUE(std::isnan(snapped(nan, 1).first));
}

TEST(TMapW2S, SnapKeepsTheEndsApartAtEveryDepth) {
    for (const double centre : {0.3, -0.25, 0.0, 12345.678}) {
        TRect r;
        r.set_mid(centre, 0, 0.77, 1);
        for (int depth = 0; depth < 2000; ++depth, r.zoom(closer, 1)) {
            const auto [lo, hi] = snapped(r.x1, r.x2);
            ASSERT_LT(lo, hi);
            ASSERT_LE(std::fabs(lo - r.x1) + std::fabs(hi - r.x2), 0.25 * r.width());
            ASSERT_EQ(snapped(lo, hi), std::pair(lo, hi));
        }
    }
}

} // namespace
