// SPDX-License-Identifier: MIT
// Rectangles: order, extent, and zooms that find their way back.
#include "mathkit/TRect.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double nan = NAN;
constexpr double inf = HUGE_VAL;

void expect_rect(const TRect& r, double x1, double y1, double x2, double y2) {
    EXPECT_TRUE(r.x1 == x1 && r.y1 == y1 && r.x2 == x2 && r.y2 == y2)
        << r.x1 << ' ' << r.y1 << ' ' << r.x2 << ' ' << r.y2;
}

TEST(TRect, IsPlacedGrownMovedAndScaled) {
    TRect r;
    r.set(2, 3);
    r.expand(-1, 5);
    r.expand(4, 4);
    r.expand(nan, nan);
    expect_rect(r, -1, 3, 4, 5);
    EXPECT_DOUBLE_EQ(r.maxdim(), 5);
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
    r.purify();
    expect_rect(r, 2, 1, 3, 4);
    TRect broken(nan, 5, 1, 2);
    broken.purify();
    EXPECT_TRUE(std::isnan(broken.x1) && std::isnan(broken.maxdim()));
    EXPECT_DOUBLE_EQ(broken.y1, 2);
}

// 300 and more zooms in reach the limit of the doubles; as many zooms out must lead back.
TEST(TRect, ZoomNeverCollapsesAndLeadsBack) {
    const double ranges[][2] = {{0, 1},           {-1, 1},           {0.3, 0.4},     {-0.7, -0.1},
                                {1e15, 1e15 + 1}, {-1e-300, 1e-300}, {-1e308, 1e308}};
    for (const auto& [lo, hi] : ranges) {
        SCOPED_TRACE(testing::Message() << lo << " to " << hi);
        TRect r(lo, lo, hi, hi);
        for (int i = 0; i < 2000; ++i) {
            r.zoom(0.6666666666666666, 1);
            ASSERT_LT(r.x1, r.x2) << "zoom in " << i;
        }
        EXPECT_TRUE(r.y1 == lo && r.y2 == hi) << "a factor of one: not even a rounding";
        for (int i = 0; i < 4000 && r.width() < (hi - lo) * 0.9; ++i) {
            const double before = r.width();
            r.zoom(1.5, 1);
            ASSERT_GT(r.width(), before) << "zoom out " << i;
        }
        EXPECT_GE(r.width(), std::fmin(hi - lo, 1) * 0.9);
    }
}

TEST(TRect, NeverLosesItsExtentOrItsNumbers) {
    TRect close(1, 0, std::nextafter(1, 2), 1); // two neighbours; above 2 their distance is lost
    close.shift(1.5, 0);
    EXPECT_LT(close.x1, close.x2);
    TRect r(-1e308, -inf, 1e308, inf);
    r.zoom(10, 10);
    r.shift(1e308, 1);
    r.zoom(nan, nan);
    EXPECT_EQ(r.x2, 1e308);
    EXPECT_EQ(r.y2, inf);
}

TEST(Irect, HoldsItsBorder) {
    const irect r{10, 20, 30, 40};
    EXPECT_TRUE(r.isinside(10, 20) && r.isinside(30, 40));
    EXPECT_FALSE(r.isinside(9, 30) || r.isinside(31, 30) || r.isinside(20, 19) ||
                 r.isinside(20, 41) || (irect{5, 5, 4, 4}.isinside(5, 5)));
}

} // namespace
