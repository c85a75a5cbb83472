// SPDX-License-Identifier: MIT
// The search for periodic orbits: known points, known numbers of orbits, families, repetition.
#include "billiard/batch/periodic_search.h"

#include "tests/reference_billiards.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <iterator>
#include <numbers>
#include <string>
#include <vector>

namespace {

using namespace batch;

/// The centres of n x n cells of a rectangle about (S, P), as far as they lie in the section.
std::vector<phase_point> cells(TBilliardMap& map, int n, double S, double P, double width,
                               double height) {
    std::vector<phase_point> starts;
    for (int j = 0; j < n; ++j) {
        for (int i = 0; i < n; ++i) {
            const double s = S + width * ((i + 0.5) / n - 0.5);
            if (!map.setPoint(s - std::floor(s), P + height * ((j + 0.5) / n - 0.5))) continue;
            starts.push_back({map.phi, map.alpha});
        }
    }
    return starts;
}

std::vector<phase_point> cells_of_all(TBilliardMap& map, int n) {
    return cells(map, n, 0.5, 0, 1, 2);
}

std::vector<periodic_orbit> found_from(TBilliardMap& map, const std::vector<phase_point>& starts,
                                       int order) {
    work_monitor monitor;
    return distinct(search_periodic(map, starts, order, monitor));
}

double around(double difference, double turn) {
    return std::fabs(std::remainder(difference, turn));
}

/// The orbits must be whole, close themselves, and have no point in common.
void expect_proper(const std::vector<periodic_orbit>& orbits, int order, double residual = 1e-11) {
    std::vector<periodic_row> rows;
    for (const periodic_orbit& orbit : orbits) {
        EXPECT_EQ(orbit.points.size(), order);
        for (const periodic_row& row : orbit.points) {
            EXPECT_EQ(row.order, order);
            EXPECT_LT(row.residual, residual);
            for (const periodic_row& other : rows)
                EXPECT_GT(around(row.S - other.S, 1) + std::fabs(row.P - other.P), 1e-7);
            rows.push_back(row);
        }
    }
}

TEST(PeriodicSearch, FindsTheReferencePoints) {
    reference_billiards made;
    for (const data_row& row : read_data_table("fixpoints.csv")) {
        SCOPED_TRACE(row.text("id"));
        TBilliardMap& map = made.of(row);
        const int order = row.integer("order");
        const auto orbits =
            found_from(map, cells(map, 12, row.number("S"), row.number("P"), 0.05, 0.1), order);
        expect_proper(orbits, order);
        int hits = 0;
        for (const periodic_orbit& orbit : orbits) {
            for (const periodic_row& point : orbit.points) {
                if (around(point.phi - row.number("phi"), 2 * std::numbers::pi) > 1e-9) continue;
                if (std::fabs(point.alpha - row.number("alpha")) > 1e-9) continue;
                ++hits;
                EXPECT_NEAR(point.trace, row.number("trace"), 1e-10 * (1 + std::fabs(point.trace)));
                EXPECT_EQ(name_of(point.kind), row.text("type"));
                EXPECT_LE(around(point.S - row.number("S"), 1), 1e-11);
                EXPECT_NEAR(point.P, row.number("P"), 1e-11);
            }
        }
        EXPECT_EQ(hits, 1);
    }
}

TEST(PeriodicSearch, CountsOrbitsAndFamiliesOnce) {
    // In the circle a polygon with q corners for each k below q without a common divisor, one of
    // each family; the ellipse keeps them, but for its two axes, and has, if it is long enough,
    // those of order 4 that go between the foci. Paths between the stadium's sides are one orbit.
    const struct {
        const char* curve;
        int order, orbits, families;
        double residual = 1e-11; // more where the speeds of neighbours differ by a thousand
    } cases[] = {
        {"Ellipse 0", 2, 1, 1},         {"Ellipse 0", 3, 2, 2},      {"Ellipse 0", 5, 4, 4},
        {"Ellipse 0", 6, 2, 2},         {"Ellipse 1", 2, 2, 0},      {"Ellipse 1", 3, 2, 2},
        {"Ellipse 1", 4, 2, 2},         {"Ellipse 2", 4, 3, 3},      {"OvalA 5", 1, 0, 0},
        {"Ellipse 1.5", 7, 6, 6, 1e-9}, {"OvalA 5", 2, 2, 0},        {"OvalA 5", 3, 8, 0},
        {"OvalA 5", 4, 20, 0},          {"Stadium 1", 2, 2, 1},      {"Stadium 1", 3, 8, 0},
        {"Triangle 60 60", 2, 0, 0},    {"Triangle 60 60", 3, 2, 0}, {"Triangle 60 60", 4, 1, 1},
        {"Triangle 60 60", 5, 0, 0},    {"OvalC 17 4", 2, 4, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.curve) + " " + std::to_string(c.order));
        TBilliardMap map(new_reference_curve(c.curve));
        const auto orbits = found_from(map, cells_of_all(map, 24), c.order);
        expect_proper(orbits, c.order, c.residual);
        EXPECT_EQ(orbits.size(), c.orbits);
        int families = 0;
        for (const periodic_orbit& orbit : orbits)
            families += orbit.fills ? 1 : 0;
        EXPECT_EQ(families, c.families);
    }
}

TEST(PeriodicSearch, FindsAThreefoldRoot) {
    // The path between the two flat points: what comes back is off by the third power of the way.
    TBilliardMap map(new_reference_curve("OvalA 5"));
    const auto orbits = found_from(map, cells_of_all(map, 24), 2);
    ASSERT_EQ(orbits.size(), 2);
    for (const periodic_row& point : orbits[1].points) {
        EXPECT_EQ(point.kind, stability::parabolic);
        EXPECT_NEAR(std::fabs(point.S - 0.5), 0.25, 1e-9);
        EXPECT_NEAR(point.P, 0, 1e-12);
    }
}

/// All that the rows tell, to the last digit.
std::string text_of(const std::vector<periodic_orbit>& orbits) {
    std::string text;
    char line[200];
    for (const periodic_orbit& orbit : orbits) {
        for (const periodic_row& r : orbit.points) {
            std::snprintf(line, sizeof line, "%d %a %a %a %a %a %s %a\n", r.order, r.S, r.P, r.phi,
                          r.alpha, r.trace, name_of(r.kind), r.residual);
            text += line;
        }
    }
    return text;
}

TEST(PeriodicSearch, DoesNotDependOnHowTheStartsAreSharedOut) {
    for (const char* c : {"OvalA 2", "Ellipse 1", "Stadium 1"}) {
        TBilliardMap map(new_reference_curve(c));
        const auto starts = cells_of_all(map, 12);
        const std::string whole = text_of(found_from(map, starts, 4));
        TBilliardMap other(new_reference_curve(c));
        std::vector<periodic_orbit> found;
        work_monitor monitor;
        for (const phase_point& start : starts) {
            auto more = search_periodic(other, {&start, 1}, 4, monitor);
            std::move(more.begin(), more.end(), std::back_inserter(found));
            if (found.size() > 100) found = distinct(std::move(found));
        }
        EXPECT_EQ(text_of(distinct(std::move(found))), whole) << c;
        EXPECT_FALSE(whole.empty());

        monitor.stop = true;
        EXPECT_TRUE(search_periodic(other, starts, 4, monitor).empty());
    }
}

} // namespace
