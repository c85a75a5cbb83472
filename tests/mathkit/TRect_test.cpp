// SPDX-License-Identifier: MIT
// Rectangles: order, extent, and zooms that find their way back.
#include "mathkit/TRect.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double nan = NAN;
constexpr double inf = HUGE_VAL;

void expect_rect(const TRect& r, double x1, double y1, double x2, double y2) {
    EXPECT_DOUBLE_EQ(r.x1, x1);
    EXPECT_DOUBLE_EQ(r.y1, y1);
    EXPECT_DOUBLE_EQ(r.x2, x2);
    EXPECT_DOUBLE_EQ(r.y2, y2);
}

TEST(TRect, GrowsToHoldPoints) {
    TRect r;
    r.set(2, 3);
    expect_rect(r, 2, 3, 2, 3);
    r.expand(-1, 5);
    r.expand(4, 4);
    r.expand(nan, nan);
    expect_rect(r, -1, 3, 4, 5);
    EXPECT_DOUBLE_EQ(r.maxdim(), 5);
}

TEST(TRect, IsPlacedMovedAndScaled) {
    TRect r;
    r.set_mid(1, 2, 4, 2);
    expect_rect(r, -1, 1, 3, 3);
    r.shift(1, -1);
    expect_rect(r, 0, 0, 4, 2);
    r.zoom(0.5, 3);
    expect_rect(r, 1, -2, 3, 4);
    EXPECT_DOUBLE_EQ(r.maxdim(), 6);
}

TEST(TRect, PurifyOrdersEachSideAlone) {
    TRect r(3, 1, 2, 4);
    EXPECT_DOUBLE_EQ(r.maxdim(), 3);
    r.purify();
    expect_rect(r, 2, 1, 3, 4);
    TRect broken(nan, 5, 1, 2);
    broken.purify();
    EXPECT_TRUE(std::isnan(broken.x1) && std::isnan(broken.maxdim()));
    EXPECT_DOUBLE_EQ(broken.y1, 2);
}

// 300 and more zooms in reach the limit of the doubles; as many zooms out must lead back.
TEST(TRect, ZoomNeverCollapsesAndLeadsBack) {
    struct Case {
        double lo, hi;
    };
    for (const Case& c : {Case{0, 1}, Case{-1, 1}, Case{0.3, 0.4}, Case{-0.7, -0.1},
                          Case{1e15, 1e15 + 1}, Case{-1e-300, 1e-300}, Case{-1e308, 1e308}}) {
        TRect r(c.lo, c.lo, c.hi, c.hi);
        for (int i = 0; i < 2000; ++i) {
            r.zoom(0.6666666666666666, 1);
            ASSERT_LT(r.x1, r.x2) << "zoom in " << i << " of " << c.lo << " to " << c.hi;
        }
        EXPECT_EQ(r.y1, c.lo); // a factor of one: not even a rounding
        EXPECT_EQ(r.y2, c.hi);
        for (int i = 0; i < 4000 && r.width() < (c.hi - c.lo) * 0.9; ++i) {
            const double before = r.width();
            r.zoom(1.5, 1);
            ASSERT_GT(r.width(), before) << "zoom out " << i << " of " << c.lo << " to " << c.hi;
        }
        EXPECT_GE(r.width(), std::fmin(c.hi - c.lo, 1) * 0.9);
    }
}

TEST(TRect, ShiftKeepsTheSidesApart) {
    TRect r(1, 0, std::nextafter(1, 2), 1); // two neighbours; above 2 their distance is lost
    r.shift(1.5, 0);
    EXPECT_LT(r.x1, r.x2);
}

TEST(TRect, WhatIsNotFiniteStays) {
    TRect r(-1e308, -inf, 1e308, inf);
    r.zoom(10, 10);
    EXPECT_EQ(r.x2, 1e308);
    EXPECT_EQ(r.y2, inf);
    r.shift(1e308, 1);
    EXPECT_EQ(r.x2, 1e308);
    r.zoom(nan, nan);
    EXPECT_EQ(r.x2, 1e308);
}

TEST(irect, HoldsItsBorder) {
    const irect r{10, 20, 30, 40};
    EXPECT_TRUE(r.isinside(10, 20) && r.isinside(30, 40));
    EXPECT_FALSE(r.isinside(9, 30) || r.isinside(31, 30) || r.isinside(20, 19) ||
                 r.isinside(20, 41));
    EXPECT_FALSE((irect{5, 5, 4, 4}.isinside(5, 5)));
}

} // namespace
