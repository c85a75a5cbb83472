// SPDX-License-Identifier: MIT
// The facts about a curve, judged by what was computed to fifty digits.
#include "billiard/batch/curve_facts.h"

#include "tests/reference_billiards.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

TEST(CurveFacts, AreThoseOfTheReference) {
    reference_billiards made;
    batch::curve_facts facts{};
    for (const data_row& row : read_data_table("lengths.csv")) {
        const std::string& quantity = row.text("quantity");
        SCOPED_TRACE(row.curve() + " " + quantity);
        if (quantity == "length") facts = batch::facts_of(made.of(row));
        const std::map<std::string, double> measured = {{"length", facts.circumference},
                                                        {"area", facts.area},
                                                        {"xmin", facts.x1},
                                                        {"ymin", facts.y1},
                                                        {"xmax", facts.x2},
                                                        {"ymax", facts.y2},
                                                        {"convex", facts.convex},
                                                        {"ninflections", 2 * facts.inflections}};
        const auto found = measured.find(quantity);
        if (found == measured.end()) continue;
        const double wanted = row.number("value");
        const double size = quantity == "area" ? facts.area : facts.circumference;
        EXPECT_NEAR(found->second, wanted, 1e-13 * size);
    }
}

TEST(CurveFacts, TellTheTruthWhateverTheCurveClaims) {
    const struct {
        const char* curve;
        int inflections;
    } rows[] = {{"OvalB -0.75", 2},
                {"Fourier 4 1 0 0 0 0 0 0.5 0", 6},
                {"Triangle 60 70", 0},
                {"Stadium 1", 0},
                {"OvalB 0.3", 0}};
    for (const auto& row : rows) {
        TBilliard table(new_reference_curve(row.curve));
        const batch::curve_facts facts = batch::facts_of(table);
        EXPECT_EQ(facts.inflections, row.inflections) << row.curve;
        EXPECT_EQ(facts.convex, row.inflections == 0) << row.curve;
    }
}

} // namespace
