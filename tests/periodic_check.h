// SPDX-License-Identifier: MIT
// Periodic points, judged as anyone would test them.
#pragma once

#include "mathkit/TIterraMap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

/// The size of a difference, the shorter way around a circle of the length `turn`.
inline double around(double difference, double turn = 1) {
    return std::fabs(std::remainder(difference, turn));
}

inline std::pair<double, double> current_point(TIterraMap& map) {
    std::pair<double, double> p;
    map.getPoint(p.first, p.second);
    return p;
}

/// Refines (x, y), which must succeed: the point found is where the map stands then, and comes back
/// to within the precision told.
inline void expect_refined(TIterraMap& map, double& x, double& y, int order) {
    int iter = 30;
    TRect box;
    ASSERT_TRUE(map.fixfinder(x, y, order, iter, box, 1e-14));
    EXPECT_LE(iter, 30);
    const auto found = current_point(map);
    EXPECT_LE(std::hypot(found.first - x, found.second - y), 1e-12) << "the map stands elsewhere";
    for (int i = 0; i < order; ++i)
        map.iterate();
    const auto [image_x, image_y] = current_point(map);
    EXPECT_LE(around(image_x - x), box.maxdim());
    EXPECT_LE(std::abs(image_y - y), box.maxdim());
    EXPECT_LT(box.maxdim(), 1e-9);
    ASSERT_TRUE(map.setPoint(x, y));
}

/// Tries to refine (x, y), which must fail and leave no answer.
inline void expect_not_refined(TIterraMap& map, const double x, const double y, int order) {
    double found_x = x, found_y = y;
    int iter = 30;
    TRect box;
    EXPECT_FALSE(map.fixfinder(found_x, found_y, order, iter, box, 1e-14)) << "order " << order;
    EXPECT_TRUE(found_x == x && found_y == y && box.maxdim() == HUGE_VAL);
}
