// SPDX-License-Identifier: MIT
// The curve of a typed formula.
#include "billiard/radius-core/TSymbolicRadius.h"
#include "mathkit/TError.h"
#include "tests/mathkit/symbolic_formulas.h"
#include "tests/reference_curves.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

namespace {

using formulas::repeated;
using symbolic::TSymbolicRadius;
constexpr double pi = std::numbers::pi;

TEST(TSymbolicRadius, HasTheValuesOfItsFormula) {
    const TSymbolicRadius curve("5+sin(t)");
    EXPECT_EQ(curve.R(0), 5);
    EXPECT_EQ(curve.dR(0), 1);
    EXPECT_NEAR(curve.ddR(pi / 2), -1, 2e-15); // rounding of the few operations
    EXPECT_NEAR(curve.curvatureNumerator(0), 27, 1e-14);
    EXPECT_FALSE(curve.isConvex());
    EXPECT_TRUE(curve.familyText() == "" && curve.instanceText() == "R(t)=5+sin(t)");
    const TSymbolicRadius constant("3");
    EXPECT_TRUE(constant.R(1) == 3 && constant.dR(1) == 0 && constant.ddR(1) == 0);
    EXPECT_EQ(constant.curvatureNumerator(1), 9);
}

TEST(TSymbolicRadius, UsesOneTurnOfTheFormula) {
    const TSymbolicRadius line("1+t");
    for (const double t : {0.3, pi, 6.2})
        for (const int turns : {-3, -1, 0, 1, 15})
            EXPECT_NEAR(line.R(t + 2 * pi * turns), 1 + t, 1e-13) << turns;
    EXPECT_NEAR(line.R(std::nextafter(2 * pi, 0)), 1 + 2 * pi, 1e-13);
    for (const double phi : {0.0, 2 * pi, -2 * pi, -1e-30}) // none below 0 is left below 2 pi
        EXPECT_EQ(line.R(phi), 1) << phi;
    for (const double phi : {1e300, -1e300, 1e17, std::nextafter(2 * pi, 7)}) {
        line.R(phi);
        EXPECT_TRUE(line.t >= 0 && line.t < 2 * pi) << phi;
    }
    EXPECT_TRUE(std::isnan(line.R(HUGE_VAL)) && std::isnan(line.R(NAN)));
}

/// `slack`: how many times the usual rounding the formula has.
void expect_same_on_every_way(const char* text, double slack) {
    SCOPED_TRACE(text);
    const TSymbolicRadius curve(text);
    for (double phi = -7; phi < 13; phi += 0.37) {
        const double R = curve.R(phi), dR = curve.dR(phi), ddR = curve.ddR(phi);
        const double s = std::sin(phi), c = std::cos(phi);
        double r, dr, r3, dr3, ddr3, forward_r, forward_dr;
        curve.value_and_slope(phi, s, c, r, dr);
        curve.derivatives(phi, s, c, r3, dr3, ddr3);
        curve.getRdR(phi, forward_r, forward_dr);
        EXPECT_TRUE(r3 == r && dr3 == dr) << phi;
        for (const double same : {r, forward_r})
            EXPECT_NEAR(same, R, slack * 1e-14) << phi;
        for (const double same : {dr, forward_dr})
            EXPECT_NEAR(same, dR, slack * 3e-14) << phi;
        EXPECT_NEAR(ddr3, ddR, slack * 1e-12) << phi;
        const double N = R * R + 2 * dR * dR - R * ddR;
        EXPECT_NEAR(curve.curvatureNumerator(phi), N, slack * 1e-12) << phi;
    }
}

TEST(TSymbolicRadius, IsTheSameOnEveryWay) {
    for (const char* text :
         {"t", "7", "cos(t)*sin(t)", "exp(sin(t))/(2+cos(t))+(2+cos(t))*sin(t)",
          "2+cos(log(2+cos(t)))", "4+fabs(sin(2*t))+floor(t)/10",
          "3+0.1*sin(3*t)+0.2*cos(2*t)*exp(-sqr(sin(t)))/(1+sqr(cos(t)))+0.05*sin(7*t)"})
        expect_same_on_every_way(text, 1);
    for (const char* text :
         {"sin(t)+sin(2*t)+sin(3*t)+cos(4*t)+sin(7*t)+cos(16*t)",
          "sin(-3*t)+cos(-5*t)+sin(17*t)+sin(0*t)", "cos(2.5*t)+sin(2.5*t)*t+sin(t+1)"})
        expect_same_on_every_way(text, 9);
}

/// What no curve can be made of ends in a TError, or in a curve of whatever values come out.
TEST(TSymbolicRadius, SurvivesEveryText) {
    std::vector<std::string> texts(std::begin(hostile_formulas), std::end(hostile_formulas));
    texts.push_back(repeated("t^", 150) + "t");
    texts.push_back(repeated("sin(", 150) + "t" + repeated(")", 150));
    texts.push_back(repeated("(2+sin(t))*", 150) + "1");
    texts.push_back(repeated("cos(t)+", 250) + "5");
    for (const std::string& text : texts) {
        const TSymbolicRadius curve(text.c_str());
        double r = 0, dr = 0;
        for (int i = 0; i < 14; ++i) {
            const double phi = 0.5 * i;
            curve.value_and_slope(phi, std::sin(phi), std::cos(phi), r, dr);
            EXPECT_EQ(std::isnan(r), std::isnan(curve.R(phi))) << text << " at " << phi;
            curve.getRdR(phi, r, dr);
            curve.curvatureNumerator(phi);
        }
    }
    // Not a formula, and formulas whose derivatives are beyond the limits.
    for (const std::string& text : {std::string("5+sn(t)"), repeated("t^", 400) + "t",
                                    repeated("sin(", 390) + "t" + repeated(")", 390)})
        EXPECT_THROW(TSymbolicRadius curve(text.c_str()), TError) << text.substr(0, 40);
    EXPECT_THROW(TSymbolicRadius curve(nullptr), TError);
}

} // namespace
