// SPDX-License-Identifier: MIT
// The curves: values, derivatives, limits of the parameters, texts.
#include "billiard/radius-core/TRadiusFunction.h"

#include "tests/reference_curves.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <memory>
#include <string>

namespace {

constexpr double pi = 3.14159265358979324;

const char* const all_curves[] = {
    // smooth
    "Ellipse 0", "Ellipse 0.5", "Ellipse 10", "OvalA 5", "OvalA 1.0625", "OvalB 0.3", "OvalB -0.9",
    "OvalC 5 0", "OvalC 2 3", "OvalC 1.5 32", "OvalC 1.5 33", "Fourier 3 5 0 0 0 1 0.5",
    "Fourier 1 2.5 7", "Fourier 5 4 0 0.25 1 0.25 -0.5 0.125 2 0.0625 0.75",
    // with corners or joints
    "Stadium 0", "Stadium 1", "Stadium 10", "Triangle 60 60", "Triangle 12 120", "Triangle 90 45"};

// Angles on three turns that hit no corner of the curves above.
template<class Check>
void at_many_angles(Check check) {
    for (int i = -150; i < 300; ++i)
        check(0.0437 + i * 0.0419);
}

class each_curve : public testing::TestWithParam<const char*> {
protected:
    std::unique_ptr<TRadiusFunction> curve{new_reference_curve(GetParam())};
};

TEST_P(each_curve, derivatives_are_those_of_the_radius) {
    // Halving the step of the central difference shows the slope up to its fourth order.
    at_many_angles([&](double phi) {
        const double h = 1e-3;
        const auto slope = [&](auto f) {
            const double d1 = (f(phi + h) - f(phi - h)) / (2 * h);
            const double d2 = (f(phi + h / 2) - f(phi - h / 2)) / h;
            return d2 + (d2 - d1) / 3;
        };
        const double r = curve->R(phi);
        const double scale = r + std::fabs(curve->dR(phi)) + std::fabs(curve->ddR(phi));
        const double bend = std::fabs(curve->ddR(phi + h) - curve->ddR(phi - h));
        const double rise = std::fabs(curve->dR(phi + h) - curve->dR(phi - h));
        if (bend > 0.05 * scale || rise > 0.02 * scale) return; // a corner lies in between
        EXPECT_NEAR(slope([&](double x) { return curve->R(x); }), curve->dR(phi), 1e-5 * scale)
            << phi;
        EXPECT_NEAR(slope([&](double x) { return curve->dR(x); }), curve->ddR(phi), 1e-5 * scale)
            << phi;
    });
}

TEST_P(each_curve, derivatives_together_agree_with_each_alone) {
    at_many_angles([&](double phi) {
        double r, dr;
        curve->value_and_slope(phi, std::sin(phi), std::cos(phi), r, dr);
        const double scale = curve->R(phi) + std::fabs(curve->dR(phi));
        EXPECT_NEAR(r, curve->R(phi), 4e-14 * scale) << phi;
        EXPECT_NEAR(dr, curve->dR(phi), 2e-12 * scale) << phi;
        EXPECT_NEAR(curve->R(phi + 2 * pi), curve->R(phi), 1e-13 * scale) << phi;
        double r3, dr3, ddr3;
        curve->derivatives(phi, std::sin(phi), std::cos(phi), r3, dr3, ddr3);
        EXPECT_TRUE(r3 == r && dr3 == dr) << phi;
        EXPECT_NEAR(ddr3, curve->ddR(phi), 1e-12 * (scale + std::fabs(ddr3))) << phi;
    });
}

TEST_P(each_curve, curvature_has_one_meaning) {
    at_many_angles([&](double phi) {
        const double r = curve->R(phi);
        const double dr = curve->dR(phi);
        const double n = r * r + 2 * dr * dr - r * curve->ddR(phi);
        const double scale = r * r + 2 * dr * dr + std::fabs(r * curve->ddR(phi));
        EXPECT_NEAR(curve->curvatureNumerator(phi), n, 1e-13 * scale) << phi;
        const double q = r * r + dr * dr;
        EXPECT_NEAR(curve->curvature(phi) * q * std::sqrt(q), n, 1e-13 * scale) << phi;
        const double there = curve->curvature_at(phi, std::sin(phi), std::cos(phi), r, dr);
        EXPECT_NEAR(there * q * std::sqrt(q), n, 2e-12 * scale) << phi;
        EXPECT_NEAR(curve->arcDensity(phi), std::sqrt(q), 1e-12 * std::sqrt(q)) << phi;
    });
}

TEST_P(each_curve, geometry_belongs_to_the_point) {
    at_many_angles([&](double phi) {
        double x, y, tx, ty, ux, uy, nx, ny;
        curve->pointAt(phi, x, y);
        curve->tangentAt(phi, tx, ty);
        curve->unitTangent(phi, ux, uy);
        curve->unitNormal(phi, nx, ny);
        const double r = curve->R(phi);
        EXPECT_NEAR(std::hypot(x, y), r, 1e-13 * r);
        EXPECT_NEAR(std::hypot(tx, ty), curve->arcDensity(phi), 1e-12 * std::hypot(tx, ty));
        EXPECT_NEAR(ux * ty - uy * tx, 0, 1e-12 * std::hypot(tx, ty));
        EXPECT_NEAR(ux * nx + uy * ny, 0, 1e-14);
        EXPECT_GT(x * nx + y * ny, 0) << "outward";
        EXPECT_GT(x * uy - y * ux, 0) << "counter-clockwise";
        EXPECT_TRUE(curve->isInside(0.999 * x, 0.999 * y)) << phi;
        EXPECT_FALSE(curve->isInside(1.001 * x, 1.001 * y)) << phi;
        EXPECT_DOUBLE_EQ(curve->areaDensity(phi), 0.5 * r * r);
    });
}

INSTANTIATE_TEST_SUITE_P(all, each_curve, testing::ValuesIn(all_curves));

TEST(TRadiusFunction, a_point_on_the_curve_is_not_inside) {
    const TEllipseFunction circle(0);
    EXPECT_TRUE(circle.isInside(0, 0) && !circle.isInside(1, 0) && !circle.isInside(0, -1));
}

TEST(TRadiusFunction, setters_refuse_what_is_no_curve) {
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
    EXPECT_TRUE(b.set(-0.7));
    EXPECT_TRUE(b.isConvex()) << "decided by the signed value";
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
    TEllipseFunction e;
    EXPECT_TRUE(e.set(-1e300) && e.e == -1e300);
}

TEST(TStadiumFunction, has_its_joints_where_sides_meet_arcs) {
    const TStadiumFunction one(1.0);
    EXPECT_DOUBLE_EQ(one.R(0), 2);
    EXPECT_DOUBLE_EQ(one.R(pi / 2), 1);
    const double corners[] = {one.corner1, one.corner2, one.corner3, one.corner4};
    for (int i = 0; i < 4; ++i)
        EXPECT_DOUBLE_EQ(corners[i], (2 * i + 1) * pi / 4);
    EXPECT_STREQ(TStadiumFunction(-2).instanceText(), "Stadium with ratio 2");
    const TStadiumFunction circle(0.0);
    at_many_angles([&](double phi) { EXPECT_DOUBLE_EQ(circle.R(phi), 1); });
    TStadiumFunction free_size;
    EXPECT_TRUE(free_size.set(6.0, 2.0));
    EXPECT_DOUBLE_EQ(free_size.R(0), 8);
}

TEST(TStadiumFunction, stays_a_number_at_the_joints_of_any_length) {
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

TEST(TTriangleFunction, stands_as_described) {
    TTriangleFunction t;
    EXPECT_NEAR(t.rin, 0.438691337650831, 1e-14);
    EXPECT_NEAR(t.R(0), 0.877382675301662, 1e-14);
    EXPECT_NEAR(t.corner1, 2 * pi / 3, 1e-14);
    EXPECT_NEAR(t.corner2, 4 * pi / 3, 1e-14);
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

TEST(TTriangleFunction, needs_a_third_angle_in_degrees) {
    TTriangleFunction t;
    for (int alpha = -1; alpha <= 181; ++alpha) {
        EXPECT_FALSE(t.setDegrees(alpha, 180 - alpha)) << alpha;
        const bool has_both = alpha > 0 && alpha < 179;
        EXPECT_EQ(t.setDegrees(alpha, 179 - alpha), has_both) << alpha;
    }
    EXPECT_TRUE(t.setDegrees(120, 59.9) && !t.setDegrees(120, NAN));
}

TEST(TTriangleFunction, gives_the_seam_to_the_side_that_is_told) {
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

TEST(TRadiusFunction, texts_name_family_and_curve) {
    const struct {
        const char *curve, *family, *instance;
    } cases[] = {
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
    for (const auto& c : cases) {
        const std::unique_ptr<TRadiusFunction> curve(new_reference_curve(c.curve));
        EXPECT_STREQ(curve->familyText(), c.family);
        EXPECT_STREQ(curve->instanceText(), c.instance);
    }
}

TEST(TPotatoFunction, takes_arrays_and_texts) {
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

TEST(TPotatoFunctionDeathTest, stops_at_a_malformed_text) {
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
