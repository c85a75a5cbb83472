// SPDX-License-Identifier: MIT
// The bounce on curves that are none, and starts that lead nowhere.
#include "billiard/radius-core/TBilliard.h"
#include "mathkit/TError.h"
#include "tests/billiard/radius-core/many_orbits.h"
#include "tests/reference_curves.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <utility>

namespace {

constexpr double pi = 3.14159265358979324;

/// A curve made of two functions, for trouble of every kind.
class odd_curve : public TRadiusFunction {
public:
    using function = std::function<double(double)>;
    function radius, slope;
    explicit odd_curve(function radius, function slope = nought)
        : radius(std::move(radius)),
          slope(std::move(slope)) {}
    double R(double phi) const override { return radius(phi); }
    double dR(double phi) const override { return slope(phi); }
    double ddR(double) const override { return 0; }
    static double nought(double) { return 0; }
};

void expect_refusal(TBilliard& billiard, double phi, double alpha, const char* what) {
    const double phi0 = phi, alpha0 = alpha;
    try {
        billiard.findit(phi, alpha);
        ADD_FAILURE() << what << ": no refusal but " << phi << ", " << alpha;
    } catch (TError& error) {
        EXPECT_STREQ(error.text(), "The root solver is confused.\n"
                                   "Could not find intersection between ray and billiard.\n"
                                   "Something must be wrong with the billiard shape!\n");
        EXPECT_STREQ(error.function, "void TBilliard::findit(double&, double&)");
        EXPECT_STREQ(error.file, "billiard/radius-core/TBilliard");
        EXPECT_GT(error.line, 0);
    }
    const auto same = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    EXPECT_TRUE(same(phi, phi0) && same(alpha, alpha0)) << what;
}

TEST(Bounce, RefusesWhatHasNoImpact) {
    TBilliard circle(new TEllipseFunction(0));
    expect_refusal(circle, 1, 7, "an angle beyond the tangent");
    expect_refusal(circle, 1, NAN, "an angle that is no number");
    expect_refusal(circle, NAN, 1, "a place that is no number");
    expect_refusal(circle, INFINITY, 1, "a place at infinity");
    TBilliard narrow(new TEllipseFunction(1e4)); // bends away within the smallest distance
    expect_refusal(narrow, pi / 2, 1e-13, "grazing forward");
    expect_refusal(narrow, pi / 2, pi - 1e-13, "grazing backward");
    // Past the origin at some millionths, and on to a radius that is several times as large.
    TBilliard star(new TGenOvalFunction(1.2, 5));
    expect_refusal(star, 3.2382525795452008, 3.0070419600248304, "a far end inside");
    for (const double turn : {-1.0, 1.0, 5.0, 1000.0}) { // but angles of any turn are taken
        double phi = 1 + turn * 2 * pi, alpha = pi / 4;
        circle.findit(phi, alpha);
        EXPECT_NEAR(phi, 1 + pi / 2, 1e-9);
    }
    const double beyond[][3] = {{pi + 0.7, 2.4, 0.7}, {-0.7, 2 * pi - 0.4, pi - 0.7}};
    for (const auto& [from, to, after] : beyond) { // and so is the velocity's opposite
        double phi = 1, alpha = from;
        circle.findit(phi, alpha);
        EXPECT_NEAR(phi, to, 1e-12);
        EXPECT_NEAR(alpha, after, 1e-12);
    }

    TBilliard broken(new odd_curve([](double) { return 1.0; }, [](double) { return double(NAN); }));
    expect_refusal(broken, 1, 1, "a slope that is no number");
    int looks = 0;
    const struct {
        const char* what;
        odd_curve::function radius;
        double alpha;
    } curves[] = {
        {"no radius", odd_curve::nought, 1},
        {"a radius that ends on the way", [](double x) { return x < 2 ? 1.0 : NAN; }, 0.7},
        {"a hole in the radius", [](double x) { return std::fabs(x - 2) < 0.5 ? NAN : 1.0; }, 0.7},
        {"open at the far end", [](double x) { return x < 1.5 ? 1.0 : 1e9; }, 1},
        {"no other side", [](double x) { return x < 3 ? 1.0 : 0.0; }, pi / 2},
        {"a radius that changes", [&](double) { return ++looks % 2 ? 1e80 : 1e-80; }, 1},
    };
    for (const auto& c : curves) {
        TBilliard billiard(new odd_curve(c.radius));
        expect_refusal(billiard, 1, c.alpha, c.what);
    }

    TBilliard list(new TGenOvalFunction(2, 3));
    list.inflections = {3.0, 4.0};
    expect_refusal(list, 1, 1.1, "a list of inflections that does not hold the start");
    list.inflections = {0.1, 0.5};
    expect_refusal(list, 1, 1.1, "a list that ends before the start");
    list.inflections.clear();
    expect_refusal(list, 1, 1.1, "no list at all");
}

TEST(Bounce, TakesAPointOnTheLineItselfForAnImpact) {
    // Straight along x = 1 up to a polar angle, then as far out as `beyond`, then near the origin.
    // Along the side the distance from the line is often exactly 0.
    for (const double beyond : {1.0, 10.0, 1e9}) {
        const auto side = [=](double x) {
            return x < 1.1 ? 1 / std::cos(x) : x < 1.3 || beyond > 1e6 ? beyond : 1e-3;
        };
        const auto slope = [](double x) {
            return x < 1.1 ? std::sin(x) / (std::cos(x) * std::cos(x)) : 0;
        };
        for (const double knot : {0.9, 1.2}) {
            for (const bool convex : {true, false}) {
                TBilliard billiard(new odd_curve(side, slope));
                billiard.convex = convex;
                billiard.inflections = {-pi, knot, 3 * pi};
                int found = 0;
                for (int i = 0; i < 100; ++i) {
                    double phi = 0.3 + 0.005 * i;
                    try {
                        double alpha = 0;
                        billiard.findit(phi, alpha);
                        found += phi >= 0.3 && phi < 1.4;
                    } catch (const TError&) {
                    }
                }
                EXPECT_GT(found, 5) << beyond << " " << knot << " " << convex;
            }
        }
    }
}

TEST(Bounce, LooksAtThePointWhereTheDistanceTurns) {
    // A circle with a dent in the middle of the chord that starts at 1 in the direction 0.7.
    double dent = 1, size = 1;
    TBilliard billiard;
    billiard.F =
        new odd_curve([&](double x) { return size * (std::fabs(x - 1.7) < 0.01 ? dent : 1); });
    billiard.inflections = {-pi, 2.0, 3 * pi}; // beyond the dent the path is inside again
    const auto impact = [&](double radius) {
        dent = radius;
        double phi = 1, alpha = 0.7;
        billiard.findit(phi, alpha);
        return phi;
    };
    EXPECT_NEAR(impact(0.99), 2.4, 1e-9) << "inside";
    EXPECT_NEAR(impact(0.5), 1.7, 0.0101) << "outside";
    EXPECT_NEAR(impact(std::cos(0.7)), 1.7, 0.0101) << "on the line";
    size = 1e-200;
    EXPECT_NEAR(impact(0.5), 1.7, 0.0101) << "outside, in other units";
    size = 1;
    dent = NAN;
    expect_refusal(billiard, 1, 0.7, "no radius where the distance turns");
    billiard.inflections = {-pi, 1.7, 3 * pi};
    expect_refusal(billiard, 1, 0.7, "no radius at an inflection");
    billiard.inflections = {0.5, 2.0};
    EXPECT_NEAR(impact(1), 2.4, 1e-9) << "a list that ends on the way";
}

TEST(Bounce, IsNotTakenInByARadiusOfNought) {
    // Where the radius vanishes a step of the search does, too, far from any impact.
    TBilliardMap map(new_reference_curve("Formula sin(t)"));
    map.setPhiAlpha(1.9634954084936205, 0.39269908169872414);
    map.iterate();
    EXPECT_NEAR(map.phi, 2.35619449019, 1e-9);
}

TEST(Bounce, StopsBeforeAJumpOfTheRadius) {
    TBilliard spiral(new_reference_curve("Formula 1+t"));
    double phi = 3.786538307444374, alpha = 1.472051280730911;
    spiral.findit(phi, alpha);
    EXPECT_NEAR(phi, 2 * pi, 1e-12) << "and not 0, which the path does not reach";
}

TEST(Bounce, SurvivesCurvesThatAreNone) {
    for (const char* formula : hostile_formulas) {
        TBilliardMap map(new_reference_curve(std::string("Formula ") + formula));
        on_many_orbits(map, 20, [&] {
            map.iterate();
            ASSERT_TRUE(map.phi >= 0 && map.phi < 2 * pi) << formula;
            ASSERT_TRUE(map.alpha >= 0 && map.alpha < pi) << formula;
        });
    }
}

} // namespace
