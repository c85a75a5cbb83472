// SPDX-License-Identifier: MIT
// The inlinable sine and cosine against the library's.
#include "mathkit/sincos.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

/// Two units in the last place of 1, the library's own error included.
constexpr double tolerance = 2.3e-16;

void expect_as_library(double x) {
    double s = 0, c = 0;
    kit::sincos(x, s, c);
    ASSERT_NEAR(s, std::sin(x), tolerance) << x;
    ASSERT_NEAR(c, std::cos(x), tolerance) << x;
    ASSERT_NEAR(kit::sin(x), std::sin(x), tolerance) << x;
    ASSERT_NEAR(kit::cos(x), std::cos(x), tolerance) << x;
}

TEST(sincos, agrees_with_the_library) {
    std::mt19937_64 random(7);
    for (const double range : {1e-9, 1.0, 7.0, 100.0, kit::sincos_limit, 1e12}) {
        for (int i = 0; i < 100'000; ++i) {
            expect_as_library(range * (static_cast<double>(random()) * 0x1p-63 - 1));
        }
    }
    // Next to the multiples of pi/4, where the quadrant and the reduction are decided.
    for (int n = -4000; n <= 4000; ++n) {
        const double x = n * 0.78539816339744830962;
        for (const double near : {x, std::nextafter(x, 1e9), std::nextafter(x, -1e9)}) {
            expect_as_library(near);
        }
    }
}

TEST(sincos, stays_in_range_at_its_extrema) {
    EXPECT_EQ(kit::sin(0.0), 0);
    EXPECT_EQ(kit::cos(0.0), 1);
    for (int n = -4000; n <= 4000; ++n) { // else an inverse function gives no number
        ASSERT_LE(std::fabs(kit::sin(n * 1.57079632679489661923)), 1) << n;
        ASSERT_LE(std::fabs(kit::cos(n * 1.57079632679489661923)), 1) << n;
    }
}

TEST(sincos, of_what_is_no_number_is_none) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double x : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
        double s = 0, c = 0;
        kit::sincos(x, s, c);
        EXPECT_TRUE(std::isnan(s) && std::isnan(c) && std::isnan(kit::sin(x)) &&
                    std::isnan(kit::cos(x)));
    }
}

} // namespace
