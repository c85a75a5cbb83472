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
#include <utility>

namespace {

using formulas::repeated;
using symbolic::TSymbolicRadius;
constexpr double pi = std::numbers::pi;

TEST(TSymbolicRadius, has_the_values_of_its_formula) {
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

TEST(TSymbolicRadius, uses_one_turn_of_the_formula) {
    const TSymbolicRadius line("1+t"), wave("5+sin(t)");
    const double below = std::nextafter(2 * pi, 0), beyond = std::nextafter(2 * pi, 7);
    const std::pair<double, double> phi_and_t[] = {
        {0, 0},
        {2, 2},
        {2 * pi, 0},
        {below, below},
        {beyond, beyond - 2 * pi},
        {-0.5, 2 * pi - 0.5},
        {-1e-30, 0}, // 2 pi - 1e-30 is not below 2 pi in doubles
        {3 * pi, pi},
        {-2 * pi, 0},
        {-5 * pi, pi},
        {100, 100 - 2 * pi * 15}};
    for (const auto& [phi, t] : phi_and_t) {
        EXPECT_NEAR(line.R(phi), 1 + t, 1e-13) << phi;
        EXPECT_TRUE(line.t >= 0 && line.t < 2 * pi) << phi;
    }
    for (const double phi : {0.0, 0.75, 1.5, 3.0})
        EXPECT_EQ(wave.R(phi + 2 * pi), wave.R(phi + 2 * pi - 2 * pi));
    for (const double phi : {1e300, -1e300, 1e17}) {
        line.R(phi);
        EXPECT_TRUE(line.t >= 0 && line.t < 2 * pi) << phi;
    }
    EXPECT_TRUE(std::isnan(line.R(HUGE_VAL)) && std::isnan(line.R(NAN)));
}

TEST(TSymbolicRadius, gives_value_and_slope_the_same_on_every_way) {
    const char* const texts[] = {
        "5+sin(t)", "2+cos(log(2+cos(t)))",
        "3+0.1*sin(3*t)+0.2*cos(2*t)*exp(-sqr(sin(t)))/(1+sqr(cos(t)))+0.05*sin(7*t)",
        "1/sqrt(1+(0.5*cos(t))^2)", "4+fabs(sin(2*t))+floor(t)/10"};
    for (const char* const text : texts) {
        SCOPED_TRACE(text);
        const TSymbolicRadius curve(text);
        for (int i = 0; i < 55; ++i) {
            const double phi = -7 + 0.37 * i;
            double r = 0, dr = 0;
            curve.value_and_slope(phi, std::sin(phi), std::cos(phi), r, dr);
            EXPECT_NEAR(r, curve.R(phi), 1e-14);
            EXPECT_NEAR(dr, curve.dR(phi), 3e-14);
            curve.getRdR(phi, r, dr);
            EXPECT_NEAR(r, curve.R(phi), 1e-14);
            EXPECT_NEAR(dr, curve.dR(phi), 3e-14);
            const double ddr = curve.ddR(phi);
            EXPECT_NEAR(curve.curvatureNumerator(phi), r * r + 2 * dr * dr - r * ddr, 1e-12);
        }
    }
}

/// What no curve can be made of ends in a TError, or in a curve of whatever values come out.
TEST(TSymbolicRadius, survives_every_text) {
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
