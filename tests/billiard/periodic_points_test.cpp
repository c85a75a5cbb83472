// SPDX-License-Identifier: MIT
// Periodic points of billiards, judged by points that were computed to fifty digits.
#include "tests/reference_billiards.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <memory>
#include <numbers>
#include <string>

namespace {

const double somewhere_s = 0.123, somewhere_p = 0.456; ///< where the map stands before a capture

/// The billiard of a row, at the place where captures start.
TBilliardMap& placed_billiard(reference_billiards& made, const data_row& row) {
    TBilliardMap& map = made.of(row);
    map.setPoint(somewhere_s, somewhere_p);
    return map;
}

double around(double difference, double turn) {
    return std::abs(difference - turn * std::round(difference / turn));
}

void expect_put_back(TBilliardMap& map) {
    double S, P;
    map.getPoint(S, P);
    EXPECT_NEAR(S, somewhere_s, 1e-12);
    EXPECT_NEAR(P, somewhere_p, 1e-12);
}

/// Whether the map stands in the circle, which may reach over the seam.
bool stands_in(TBilliardMap& map, double x, double y, double rx, double ry) {
    double S, P;
    map.getPoint(S, P);
    return std::hypot(around(S - x, 1) / rx, (P - y) / ry) <= 1 + 1e-6;
}

/// The point found must map to itself within the precision told, as anyone would test it.
void expect_honest(TBilliardMap& map, double x, double y, int order, const TRect& box) {
    double S, P;
    ASSERT_TRUE(map.setPoint(x, y));
    for (int i = 0; i < order; ++i)
        map.iterate();
    map.getPoint(S, P);
    EXPECT_LE(around(S - x, 1), box.maxdim());
    EXPECT_LE(std::abs(P - y), box.maxdim());
    EXPECT_LT(box.maxdim(), 1e-9);
}

/// Whether the map stands on the row's point.
bool stands_on(const TBilliardMap& map, const data_row& row) {
    const double tolerance = row.number("tol_phi");
    return around(map.phi - row.number("phi"), 2 * std::numbers::pi) <= tolerance &&
           std::abs(map.alpha - row.number("alpha")) <= tolerance;
}

TEST(BilliardPeriodicPoints, CirclesHaveTheirOrder) {
    reference_billiards made;
    std::map<std::string, int> asked, missed;
    for (const data_row& row : read_data_table("getorder.csv")) {
        SCOPED_TRACE(row.text("id"));
        TBilliardMap& map = placed_billiard(made, row);
        const int wanted = row.integer("order");
        const double x = row.number("x"), y = row.number("y");
        const double rx = row.number("rx"), ry = row.number("ry");
        const int found = map.getorder(x, y, rx, ry, 10000);
        if (found > 0)
            EXPECT_TRUE(stands_in(map, x, y, rx, ry));
        else
            expect_put_back(map);
        const bool right = wanted < 0 ? found < 0 : found == wanted;
        ++asked[row.text("grade")];
        missed[row.text("grade")] += right ? 0 : 1;
        EXPECT_TRUE(right || row.text("grade") != "must") << found << ", not " << wanted;
    }
    EXPECT_EQ(asked["must"], 85);
    EXPECT_EQ(asked["should"], 38);
    EXPECT_EQ(missed["should"], 0);
}

TEST(BilliardPeriodicPoints, CirclesLeadToTheirPoint) {
    reference_billiards made;
    for (const data_row& row : read_data_table("getorder.csv")) {
        const int order = row.integer("order");
        if (order < 0) continue;
        SCOPED_TRACE(row.text("id"));
        TBilliardMap& map = placed_billiard(made, row);
        double x = row.number("x"), y = row.number("y");
        int iter = 30;
        TRect box;
        ASSERT_TRUE(map.fixfinder(x, y, order, iter, box, 1e-14));
        EXPECT_TRUE(stands_on(map, row) || row.text("fix_grade") != "must") << x << ' ' << y;
        expect_honest(map, x, y, order, box);
    }
}

TEST(BilliardPeriodicPoints, KnownPointsAreFoundFromNearbyAtAnyDepthOfZoom) {
    reference_billiards made;
    for (const data_row& row : read_data_table("fixpoints.csv")) {
        for (const double radius : {1e-3, 1e-7}) {
            SCOPED_TRACE(row.text("id"));
            TBilliardMap& map = placed_billiard(made, row);
            double S, P;
            map.setPhiAlpha(row.number("phi"), row.number("alpha"));
            map.getPoint(S, P); // the table's S of the point
            S += (S < 0.5 ? 0.1 : -0.1) * radius;
            P -= 0.2 * radius;
            const int order = row.integer("order");
            EXPECT_EQ(map.getorder(S, P, radius, 2 * radius, 10000), order);

            int iter = 30;
            TRect box;
            ASSERT_TRUE(map.fixfinder(S, P, order, iter, box, 1e-14));
            EXPECT_TRUE(stands_on(map, row)) << S << ' ' << P;
            expect_honest(map, S, P, order, box);
        }
    }
}

TEST(BilliardPeriodicPoints, CurvesThatAreNoTablesEndWithoutAnAnswer) {
    for (const char* formula : hostile_formulas) {
        SCOPED_TRACE(formula);
        TBilliardMap map(new_reference_curve(std::string("Formula ") + formula));
        map.setPoint(somewhere_s, somewhere_p);
        double S, P;
        map.getPoint(S, P);
        const int order = map.getorder(0.4, 0.2, 0.01, 0.02, 10000);
        double x = 0.4, y = 0.2;
        int iter = 30;
        TRect box;
        const bool found = map.fixfinder(x, y, order < 0 ? 2 : order, iter, box, 1e-14);
        EXPECT_TRUE(found || order < 0) << "an order without a point";
        if (found) continue;
        double later_S, later_P;
        map.getPoint(later_S, later_P);
        EXPECT_NEAR(later_S, S, 1e-9);
        EXPECT_NEAR(later_P, P, 1e-9);
    }
}

} // namespace
