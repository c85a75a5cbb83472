// SPDX-License-Identifier: MIT
// The curves: values, derivatives, limits of the parameters, texts.
#include "billiard/radius-core/TRadiusFunction.h"

#include "tests/reference_curves.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <memory>
#include <string>
#include <utility>

namespace {

constexpr double pi = 3.14159265358979324;

// Both sides of whatever a family's code distinguishes.
const char* const curves[] = {
    // smooth
    "Ellipse 0.5", "OvalA 1.0625", "OvalB -0.9", "OvalC 2 3", "OvalC 1.5 32", "OvalC 1.5 33",
    "Fourier 5 4 0 0.25 1 0.25 -0.5 0.125 2 0.0625 0.75", "Formula 5+sin(3*t)",
    // with corners or joints
    "Stadium 1", "Triangle 12 120"};

// Angles on three turns that hit no corner of the curves above.
template<class Check>
void at_many_angles(Check check) {
    for (int i = -150; i < 300; ++i)
        check(0.0437 + i * 0.0419);
}

template<class Check>
void on_each_curve(Check check) {
    for (const char* name : curves) {
        SCOPED_TRACE(name);
        const std::unique_ptr<TRadiusFunction> curve(new_reference_curve(name));
        at_many_angles([&](double phi) { check(*curve, phi); });
    }
}

TEST(TRadiusFunction, DerivativesAreThoseOfTheRadius) {
    on_each_curve([](const TRadiusFunction& curve, double phi) {
        const double h = 5e-4;
        const auto change = [&](auto f, double by) { return f(phi + by) - f(phi - by); };
        const auto slope = [&](auto f) { // up to its fourth order
            return (8 * change(f, h) - change(f, 2 * h)) / (12 * h);
        };
        const auto R = [&](double x) { return curve.R(x); };
        const auto dR = [&](double x) { return curve.dR(x); };
        const auto ddR = [&](double x) { return curve.ddR(x); };
        const double scale = R(phi) + std::fabs(dR(phi)) + std::fabs(ddR(phi));
        const double bend = std::fabs(change(ddR, 2 * h)), rise = std::fabs(change(dR, 2 * h));
        if (bend > 0.05 * scale || rise > 0.02 * scale) return; // a corner lies in between
        EXPECT_NEAR(slope(R), dR(phi), 1e-5 * scale) << phi;
        EXPECT_NEAR(slope(dR), ddR(phi), 1e-5 * scale) << phi;
    });
}

TEST(TRadiusFunction, DerivativesAndCurvatureAreTheSameOnEveryWay) {
    on_each_curve([](const TRadiusFunction& curve, double phi) {
        const double R = curve.R(phi), dR = curve.dR(phi), ddR = curve.ddR(phi);
        const double s = std::sin(phi), c = std::cos(phi), scale = R + std::fabs(dR);
        double r, dr, r3, dr3, ddr3;
        curve.value_and_slope(phi, s, c, r, dr);
        EXPECT_NEAR(r, R, 4e-14 * scale) << phi;
        EXPECT_NEAR(dr, dR, 2e-12 * scale) << phi;
        EXPECT_NEAR(curve.R(phi + 2 * pi), R, 1e-13 * scale) << phi;
        curve.derivatives(phi, s, c, r3, dr3, ddr3);
        EXPECT_TRUE(r3 == r && dr3 == dr) << phi;
        EXPECT_NEAR(ddr3, ddR, 1e-12 * (scale + std::fabs(ddr3))) << phi;

        const double n = R * R + 2 * dR * dR - R * ddR, q = R * R + dR * dR;
        const double terms = R * R + 2 * dR * dR + std::fabs(R * ddR), volume = q * std::sqrt(q);
        EXPECT_NEAR(curve.curvatureNumerator(phi), n, 1e-13 * terms) << phi;
        EXPECT_NEAR(curve.curvature(phi) * volume, n, 1e-13 * terms) << phi;
        EXPECT_NEAR(curve.curvature_at(phi, s, c, r, dr) * volume, n, 2e-12 * terms) << phi;
    });
}

TEST(TRadiusFunction, GeometryBelongsToThePoint) {
    on_each_curve([](const TRadiusFunction& curve, double phi) {
        double x, y, tx, ty, ux, uy, nx, ny;
        curve.pointAt(phi, x, y);
        curve.tangentAt(phi, tx, ty);
        curve.unitTangent(phi, ux, uy);
        curve.unitNormal(phi, nx, ny);
        const double r = curve.R(phi), density = std::hypot(r, curve.dR(phi));
        EXPECT_NEAR(std::hypot(x, y), r, 1e-13 * r);
        EXPECT_NEAR(std::hypot(tx, ty), density, 1e-12 * density);
        EXPECT_NEAR(curve.arcDensity(phi), density, 1e-12 * density);
        EXPECT_NEAR(std::hypot(ux * density - tx, uy * density - ty), 0, 1e-12 * density);
        EXPECT_TRUE(nx == uy && ny == -ux) << "outward";
        EXPECT_GT(x * uy - y * ux, 0) << "counter-clockwise";
        EXPECT_TRUE(curve.isInside(0.999 * x, 0.999 * y)) << phi;
        EXPECT_FALSE(curve.isInside(1.001 * x, 1.001 * y)) << phi;
        EXPECT_DOUBLE_EQ(curve.areaDensity(phi), 0.5 * r * r);
    });
    const TEllipseFunction circle(0); // the curve itself is not inside
    EXPECT_TRUE(circle.isInside(0, 0) && !circle.isInside(1, 0) && !circle.isInside(0, -1));
}

TEST(TRadiusFunction, SettersRefuseWhatIsNoCurve) {
    TOvalAFunction a;
    EXPECT_EQ(a.c, 10);
    EXPECT_TRUE(!a.set(1.0) && a.c == 2);
    EXPECT_TRUE(a.set(std::nextafter(1.0, 2.0)));
    EXPECT_TRUE(!a.set(NAN) && a.c == 2);
    EXPECT_EQ(TOvalAFunction(0.5).c, 2);
    EXPECT_TRUE(TOvalAFunction(5).isConvex() && !TOvalAFunction(4.999).isConvex());

    TOvalBFunction b;
    EXPECT_EQ(b.e, 0.1);
    for (const double e : {1.0, -1.0, 7.0, double(NAN)})
        EXPECT_TRUE(!b.set(e) && b.e == 0.3) << e;
    EXPECT_TRUE(b.set(-0.7) && b.isConvex()) << "decided by the signed value";
    EXPECT_TRUE(TOvalBFunction(0.5).isConvex() && !TOvalBFunction(0.51).isConvex());

    TGenOvalFunction c;
    EXPECT_TRUE(c.set(5, -3) && c.n == 3);
    EXPECT_TRUE(!c.set(1, 4) && c.c == 2 && c.n == 4);
    EXPECT_TRUE(c.set(3, INT_MIN) && c.n == INT_MAX);
    EXPECT_TRUE(std::isfinite(c.ddR(1) + c.curvatureNumerator(1)));
    c.n = -3; // stored past the setter
    double r, dr;
    c.value_and_slope(1, std::sin(1.0), std::cos(1.0), r, dr);
    EXPECT_NEAR(r, c.R(1), 1e-15);
    EXPECT_NEAR(dr, c.dR(1), 1e-15);
    EXPECT_FALSE(TGenOvalFunction(60, 1).isConvex());
    EXPECT_EQ(TGenOvalFunction(4, 0).R(1.3), 5);
    EXPECT_TRUE(TEllipseFunction().set(-1e300));
}

TEST(TStadiumFunction, HasItsJointsWhereSidesMeetArcs) {
    const TStadiumFunction one(1.0);
    EXPECT_TRUE(one.R(0) == 2 && one.R(pi / 2) == 1);
    double corner = pi / 4;
    for (const double told : {one.corner1, one.corner2, one.corner3, one.corner4})
        EXPECT_DOUBLE_EQ(told, std::exchange(corner, corner + pi / 2));
    EXPECT_STREQ(TStadiumFunction(-2).instanceText(), "Stadium with ratio 2");
    const TStadiumFunction circle(0.0);
    at_many_angles([&](double phi) { EXPECT_DOUBLE_EQ(circle.R(phi), 1); });
    TStadiumFunction free_size;
    EXPECT_TRUE(free_size.set(6.0, 2.0) && free_size.R(0) == 8);
}

TEST(TStadiumFunction, StaysANumberAtTheJointsOfAnyLength) {
    for (const double z : {1e-9, 1.0, 1e3, 1e6, 1e8}) {
        const TStadiumFunction stadium(z);
        for (const double corner :
             {stadium.corner1, stadium.corner2, stadium.corner3, stadium.corner4}) {
            double phi = corner * (1 - 1e-14), r, dr;
            for (int i = 0; i < 200; ++i, phi = std::nextafter(phi, 10)) {
                stadium.value_and_slope(phi, std::sin(phi), std::cos(phi), r, dr);
                ASSERT_TRUE(r > 0 && stadium.R(phi) > 0) << z << " at " << phi;
                ASSERT_TRUE(std::isfinite(dr + stadium.dR(phi))) << z << " at " << phi;
            }
        }
    }
}

TEST(TTriangleFunction, StandsAsDescribed) {
    TTriangleFunction t;
    EXPECT_NEAR(t.rin, 0.438691337650831, 1e-14);
    EXPECT_NEAR(t.R(0), 0.877382675301662, 1e-14);
    EXPECT_NEAR(t.corner1, 2 * pi / 3, 1e-14);
    EXPECT_TRUE(t.setDegrees(90, 45) && !TTriangleFunction().setDegrees(100, 90));
    EXPECT_NEAR(t.gamma, pi / 4, 1e-14);
    EXPECT_NEAR(t.rin, std::sqrt(2.0) - 1, 1e-14);
    EXPECT_NEAR(t.R(t.corner2), std::sqrt(2.0) * t.rin, 1e-14);
    for (const auto& [alpha, beta] :
         {std::pair{0.0, 1.0}, {1.0, -0.1}, {2.0, 2.0}, {double(NAN), 1.0}}) {
        EXPECT_FALSE(t.set(alpha, beta));
        EXPECT_TRUE(t.alpha == 1.0 && t.beta == 1.08 && t.gamma == 1.061592653589793);
    }
    EXPECT_STREQ(t.instanceText(), "Triangle with angles alpha=57.2958\xb0 and beta=61.8794\xb0");
}

TEST(TTriangleFunction, NeedsAThirdAngleInDegrees) {
    TTriangleFunction t;
    for (int alpha = -1; alpha <= 181; ++alpha) {
        EXPECT_FALSE(t.setDegrees(alpha, 180 - alpha)) << alpha;
        EXPECT_EQ(t.setDegrees(alpha, 179 - alpha), alpha > 0 && alpha < 179) << alpha;
    }
    EXPECT_TRUE(t.setDegrees(120, 59.9) && !t.setDegrees(120, NAN));
}

TEST(TTriangleFunction, GivesTheSeamToTheSideThatIsTold) {
    // The slope jumps at the vertex of the polar angle 0. That angle and its turns belong to the
    // first side; just below, rounding makes it a whole turn, which belongs to the last side.
    const TTriangleFunction t;
    const double first = t.dR(0);
    ASSERT_LT(first, -1);
    const auto expect_slope = [&](double phi, double slope) {
        double r, dr;
        t.value_and_slope(phi, std::sin(phi), std::cos(phi), r, dr);
        EXPECT_NEAR(t.dR(phi), slope, 1e-9) << phi;
        EXPECT_NEAR(dr, slope, 1e-9) << phi;
    };
    for (const double phi : {1e-17, 2 * pi, 4 * pi, 20 * pi, -2 * pi, -4 * pi})
        expect_slope(phi, first);
    for (const double phi :
         {-1e-300, -1e-17, -4e-16, -1e-12, std::nextafter(2 * pi, 0), std::nextafter(4 * pi, 0)})
        expect_slope(phi, -first);
}

TEST(TRadiusFunction, TextsNameFamilyAndCurve) {
    const char* const cases[][3] = {
        {"Ellipse 0.5", "R(phi)=1/sqrt(1+(e*cos(phi))^2)", "R(phi)=1/sqrt(1+(0.5*cos(phi))^2)"},
        {"OvalA 5", "R(phi)=c+cos(2*phi)", "R(phi)=5+cos(2*phi)"},
        {"OvalB 0.12345", "R(phi)=1+e*cos(phi)", "R(phi)=1+0.1235*cos(phi)"},
        {"OvalC 2 3", "R(phi)=c+cos(n*phi)", "R(phi)=2+cos(3*phi)"},
        {"Stadium 0.5", "Stadium with ratio z", "Stadium with ratio 0.5"},
        {"Triangle 60 45", "Triangle with angles alpha and beta (in degree)",
         "Triangle with angles alpha=60\xb0 and beta=45\xb0"},
        {"Fourier 3 5 0 0 0 1 0.5", "A[0]+A[1]*cos(1*t+PH[1]) +A[2]*cos(2*t+PH[2]) ",
         "5+ (0)*cos(1*t+0) + (1)*cos(2*t+0.5) "},
        {"Fourier 1 2.5 7", "A[0]", "2.5+"},
    };
    for (const auto& [name, family, instance] : cases) {
        const std::unique_ptr<TRadiusFunction> curve(new_reference_curve(name));
        EXPECT_STREQ(curve->familyText(), family);
        EXPECT_STREQ(curve->instanceText(), instance);
    }
}

TEST(TPotatoFunction, TakesArraysAndTexts) {
    const double A[] = {5, 0, 1};
    const double PH[] = {7, 0, 0.5};
    const TPotatoFunction from_arrays(3, A, PH);
    const TPotatoFunction from_text("3 5 0 0 0 1 0.5 and what follows is ignored");
    at_many_angles([&](double t) {
        EXPECT_EQ(from_arrays.R(t), from_text.R(t));
        EXPECT_NEAR(from_text.R(t), 5 + std::cos(2 * t + 0.5), 1e-14);
    });
    EXPECT_EQ(TPotatoFunction("0 ").R(1), 0) << "no terms: a radius of 0, and no memory beyond";
    EXPECT_EQ(TPotatoFunction(0, nullptr, nullptr).R(1), 0);
    EXPECT_EQ(TPotatoFunction(-3, nullptr, nullptr).n, 1);
}

TEST(TPotatoFunctionDeathTest, StopsAtAMalformedText) {
    const std::string place = "billiard/radius-core/TRadiusFunction";
    for (const char* text :
         {"3,5 0 0 0 1 0.5", "-1 2 3", "3 5,0 0 0 1 0.5", "3 5\t0 0 0 1 0.5", "3 5 0,0 0 1 0.5",
          "3 5 0 0 0 1", "999999999999 1 2 3", "", "x",
          // numbers that are missing are not noughts, not even the last
          "1000000000 ", "3 ", "3 5 0 x", " ", "1 x 0", "1 2.5 x", "3 5 0 0 0 1 "}) {
        EXPECT_DEATH(TPotatoFunction{text}, place) << text;
    }
}

} // namespace
