// SPDX-License-Identifier: MIT
// Periodic points of billiards, judged by points that were computed to fifty digits.
#include "tests/periodic_check.h"
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

void expect_put_back(TBilliardMap& map) {
    const auto [S, P] = current_point(map);
    EXPECT_NEAR(S, somewhere_s, 1e-12);
    EXPECT_NEAR(P, somewhere_p, 1e-12);
}

/// Whether the map stands in the circle, which may reach over the seam.
bool stands_in(TBilliardMap& map, double x, double y, double rx, double ry) {
    const auto [S, P] = current_point(map);
    return std::hypot(around(S - x) / rx, (P - y) / ry) <= 1 + 1e-6;
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

/// A spot to draw circles about, and the order that each of them captures.
struct captured_spot {
    const char* curve;
    double S, P;
    int order;
    double beside; ///< how far the point found may be from the spot
};

// All but the third are cases where the tangent map is a shear, or nearly: flat walls, or walls
// whose centres of curvature meet.
const captured_spot SPOTS[] = {
    {"OvalA 5", 0.25, 0, 2, 5e-7},
    {"OvalA 5", 0.75, 0, 2, 5e-7},
    {"OvalA 5", 0.5, 0, 2, 1e-9}, // strongly hyperbolic
    {"OvalA 5.000001", 0.25, 0, 2, 5e-7},
    {"OvalC 17 4", 0.125, std::numbers::sqrt2 / 2, 4, 2e-6},
    {"Formula 5+cos(2*t)-cos(4*t)/4", 0.5, 0, 2, 2e-6},
    {"Formula 89+28*cos(2*t)+3*cos(4*t)", 0.25, 0, 2, 2e-4}, // the gap grows with the fifth power
};

TEST(BilliardPeriodicPoints, CirclesOfAllSizesCaptureTheLowestOrder) {
    for (const captured_spot& spot : SPOTS) {
        TBilliardMap map(new_reference_curve(spot.curve));
        for (const double r : {0.004, 0.006, 0.01, 0.015, 0.02, 0.03, 0.04, 0.05, 0.07, 0.09}) {
            SCOPED_TRACE(std::string(spot.curve) + ", radius " + std::to_string(r));
            double x = spot.S + 0.37 * r, y = spot.P - 0.29 * r; // no sample meets the spot
            ASSERT_EQ(map.getorder(x, y, r, 2 * r, 10000), spot.order);
            map.getPoint(x, y);
            expect_refined(map, x, y, spot.order);
            EXPECT_LE(std::hypot(x - spot.S, y - spot.P), spot.beside);
        }
    }
}

/// Circles about points to which few starts of a search lead.
TEST(BilliardPeriodicPoints, HiddenPointsAreFound) {
    const struct {
        const char* what;
        const char* curve;
        double x, y, rx, ry;
        int order;
    } circles[] = {
        {"between the samples", "OvalA 2.5", 0.719108, 0.446711, 0.009298, 0.0186, 6},
        {"the sixth best sample", "OvalA 5", 0.0580054, -0.2362, 0.00595, 0.0238, 9},
        {"a line that leaves the circle", "Ellipse 1", 0.498909, -0.495737, 0.004528, 0.009056, 18},
        {"where long steps lead", "OvalC 26 5", 0.588484, -0.878898, 0.007963, 0.03185, 6},
        {"where they lead astray", "OvalC 6 2", 0.831349, -0.0208816, 0.001509, 0.003018, 212},
        {"none in the corner", "Triangle 60 60", 0.663748, -0.511572, 0.02441, 0.09763, 6},
    };
    for (const auto& c : circles) {
        SCOPED_TRACE(c.what);
        TBilliardMap map(new_reference_curve(c.curve));
        EXPECT_EQ(map.getorder(c.x, c.y, c.rx, c.ry, 10000), c.order);
    }
}

TEST(BilliardPeriodicPoints, CirclesLeadToTheirPoint) {
    reference_billiards made;
    for (const data_row& row : read_data_table("getorder.csv")) {
        const int order = row.integer("order");
        if (order < 0) continue;
        SCOPED_TRACE(row.text("id"));
        TBilliardMap& map = placed_billiard(made, row);
        double x = row.number("x"), y = row.number("y");
        expect_refined(map, x, y, order);
        EXPECT_TRUE(stands_on(map, row) || row.text("fix_grade") != "must") << x << ' ' << y;
    }
}

TEST(BilliardPeriodicPoints, KnownPointsAreFoundFromNearbyAtAnyDepthOfZoom) {
    reference_billiards made;
    for (const data_row& row : read_data_table("fixpoints.csv")) {
        for (const double radius : {1e-3, 1e-7}) {
            SCOPED_TRACE(row.text("id"));
            TBilliardMap& map = placed_billiard(made, row);
            map.setPhiAlpha(row.number("phi"), row.number("alpha"));
            auto [S, P] = current_point(map); // the table's S of the point
            S += (S < 0.5 ? 0.1 : -0.1) * radius;
            P -= 0.2 * radius;
            const int order = row.integer("order");
            EXPECT_EQ(map.getorder(S, P, radius, 2 * radius, 10000), order);
            expect_refined(map, S, P, order);
            EXPECT_TRUE(stands_on(map, row)) << S << ' ' << P;
        }
    }
}

TEST(BilliardPeriodicPoints, CurvesThatAreNoTablesEndWithoutAnAnswer) {
    for (const char* formula : hostile_formulas) {
        SCOPED_TRACE(formula);
        TBilliardMap map(new_reference_curve(std::string("Formula ") + formula));
        map.setPoint(somewhere_s, somewhere_p);
        const auto before = current_point(map);
        const int order = map.getorder(0.4, 0.2, 0.01, 0.02, 10000);
        double x = 0.4, y = 0.2;
        int iter = 30;
        TRect box;
        const bool found = map.fixfinder(x, y, order < 0 ? 2 : order, iter, box, 1e-14);
        EXPECT_TRUE(found || order < 0) << "an order without a point";
        if (found) continue;
        const auto later = current_point(map);
        EXPECT_NEAR(later.first, before.first, 1e-9);
        EXPECT_NEAR(later.second, before.second, 1e-9);
    }
}

} // namespace
