// SPDX-License-Identifier: MIT
// The bounce: reference impacts and orbits, invariants, and what it keeps of an impact.
#include "billiard/radius-core/bounce.h"

#include "billiard/radius-core/TBilliard.h"
#include "mathkit/TError.h"
#include "tests/billiard/radius-core/many_orbits.h"
#include "tests/data_tables.h"
#include "tests/reference_curves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double pi = 3.14159265358979324;

double turn_between(double a, double b) {
    return std::fabs(std::remainder(a - b, 2 * pi));
}

TEST(Bounce, MeetsTheReferenceImpacts) {
    for (const data_row& row : read_data_table("bounces.csv")) {
        TBilliardMap map(new_reference_curve(row.curve()));
        double phi = row.number("phi"), alpha = row.number("alpha");
        ASSERT_NO_THROW(map.findit(phi, alpha)) << row.text("id");
        EXPECT_LE(turn_between(phi, row.number("phi1")), row.number("tol_phi")) << row.text("id");
        EXPECT_LE(std::fabs(std::remainder(alpha - row.number("alpha1"), pi)),
                  row.number("tol_alpha"))
            << row.text("id");
    }
}

TEST(Bounce, FollowsTheReferenceOrbits) {
    std::string orbit;
    std::unique_ptr<TBilliardMap> map;
    int bounces = 0;
    for (const data_row& row : read_data_table("orbits.csv")) {
        if (row.text("orbit") != orbit) {
            orbit = row.text("orbit");
            map = std::make_unique<TBilliardMap>(new_reference_curve(row.curve()));
            map->setPhiAlpha(row.number("phi0"), row.number("alpha0"));
            bounces = 0;
        }
        for (; bounces < row.integer("n"); ++bounces)
            map->iterate();
        double phi, alpha, S, P;
        map->getPhiAlpha(phi, alpha);
        map->getPoint(S, P);
        const std::string where = orbit + " after " + row.text("n");
        // A few tolerances of the table carry the sign of a derivative.
        EXPECT_LE(turn_between(phi, row.number("phi")), std::fabs(row.number("tol_phi"))) << where;
        EXPECT_LE(std::fabs(alpha - row.number("alpha")), std::fabs(row.number("tol_alpha")))
            << where;
        EXPECT_LE(std::fabs(std::remainder(S - row.number("S"), 1)), row.number("tol_S")) << where;
        EXPECT_LE(std::fabs(P - row.number("P")), std::fabs(row.number("tol_P"))) << where;
    }
}

// The constants of motion that tests/data/README.md names.
double invariant(const std::string& name, const TBilliardMap& map) {
    if (name == "P") return std::cos(map.alpha);
    double r, dr;
    map.F->value_and_slope(map.phi, std::sin(map.phi), std::cos(map.phi), r, dr);
    const double t = std::atan2(r, dr);
    const double l = r * std::sin(t + map.alpha);
    const double th = map.phi + t + map.alpha;
    if (name == "G0") return l * (l + 4.0 / 3 * std::sin(th));
    if (name == "G1") return l * (l + 24.0 / 7 * std::cos(th));
    const double e = dynamic_cast<TEllipseFunction*>(map.F)->e;
    const double f2 = e * e / (1 + e * e);
    const double s = std::sin(map.alpha);
    const double y = r * std::sin(map.phi);
    return s * s * (1 - f2 * y * y);
}

TEST(Bounce, KeepsTheInvariantsOverAMillionBounces) {
    for (const data_row& row : read_data_table("invariants.csv")) {
        TBilliardMap map(new_reference_curve(row.curve()));
        map.setPhiAlpha(row.number("phi"), row.number("alpha"));
        const double start = row.number("value");
        ASSERT_NEAR(invariant(row.text("invariant"), map), start, 1e-14);
        double drift = 0;
        const int bounces = row.integer("bounces");
        for (int i = 1; i <= bounces; ++i) {
            map.iterate();
            if (i % 1000 != 0) continue;
            drift = std::fmax(drift, std::fabs(invariant(row.text("invariant"), map) - start));
        }
        EXPECT_LE(drift, row.curve() == "Ellipse 1" ? 1e-11 : 3e-11) << row.curve();
    }
}

TEST(Bounce, GoesOnFromWhatTheLastImpactKnows) {
    for (const char* c : {"Ellipse 1", "OvalC 2 3", "Triangle 60 70", "Formula 5+sin(t)"}) {
        TBilliardMap unread(new_reference_curve(c)), read(new_reference_curve(c)),
            fresh(new_reference_curve(c));
        unread.setPhiAlpha(1, 1.1);
        read.setPhiAlpha(1, 1.1);
        for (int i = 0; i < 200; ++i) {
            const double phi = read.phi, alpha = read.alpha;
            unread.iterate();
            read.iterate();
            double x, y;
            read.getPoint(x, y);
            read.getXY(x, y);
            read.getPhiAlpha(x, y);
            read.setPhiAlpha(x, y);
            ASSERT_TRUE(read.phi == unread.phi && read.alpha == unread.alpha) << c << i;
            // Started from the two numbers alone, a bounce differs by their rounding.
            fresh.setF(new_reference_curve(c));
            fresh.setPhiAlpha(phi, alpha);
            fresh.iterate();
            const double grazing = std::sin(alpha) * std::sin(read.alpha);
            ASSERT_LE(turn_between(read.phi, fresh.phi) * grazing, 1e-13) << c << i;
            ASSERT_LE(std::fabs(read.alpha - fresh.alpha) * grazing, 1e-13) << c << i;
        }
    }
}

TEST(Bounce, NeverAnswersAnotherPointFromWhatItKnows) {
    const char* const c = "OvalA 2";
    const auto next = [](TBilliardMap& map, double phi, double alpha) {
        map.setPhiAlpha(phi, alpha);
        map.iterate();
        return std::pair(map.phi, map.alpha);
    };
    TBilliardMap map(new_reference_curve(c)), circle(new_reference_curve("Ellipse 0"));
    for (int i = 0; i < 100; ++i) {
        const auto [phi, alpha] = next(map, 0.06 * i, 1.1);
        const double other[][2] = {
            {std::nextafter(phi, 9), alpha}, {phi, std::nextafter(alpha, 9)}, {phi + 1, alpha}};
        for (const auto& [phi1, alpha1] : other) {
            TBilliardMap fresh(new_reference_curve(c));
            EXPECT_EQ(next(map, phi1, alpha1), next(fresh, phi1, alpha1)) << i;
            next(map, 0.06 * i, 1.1);
        }
        map.setF(new_reference_curve("Ellipse 0"));
        EXPECT_EQ(next(map, phi, alpha), next(circle, phi, alpha)) << "another curve";
        map.setF(new_reference_curve(c));
    }
}

// Ordinary starts, and ones that graze, run near the origin or along the normal. Closer to the
// tangent than these, rounding alone decides whether the line enters the table.
double start_angle(std::mt19937_64& random) {
    std::uniform_real_distribution<double> uniform(0, 1);
    const double u = uniform(random);
    const double small = std::pow(10, -5 * uniform(random));
    if (u < 0.5) return pi * uniform(random);
    if (u < 0.7) return small;
    if (u < 0.9) return pi - small;
    return pi / 2 + small * (uniform(random) - 0.5);
}

/// One bounce must lead along its line to the first point of the curve there, and be reflected.
void expect_first_impact(TBilliard& billiard, double phi, double alpha) {
    SCOPED_TRACE(testing::Message() << "from " << phi << ", " << alpha);
    const TRadiusFunction& curve = *billiard.F;
    double x, y, tx, ty, x1, y1, tx1, ty1;
    curve.pointAt(phi, x, y);
    curve.unitTangent(phi, tx, ty);
    const double vx = tx * std::cos(alpha) - ty * std::sin(alpha);
    const double vy = ty * std::cos(alpha) + tx * std::sin(alpha);
    ASSERT_NO_THROW(billiard.findit(phi, alpha));
    ASSERT_TRUE(phi >= 0 && phi < 2 * pi && alpha >= 0 && alpha < pi);
    curve.pointAt(phi, x1, y1);
    curve.unitTangent(phi, tx1, ty1);
    const double size = std::hypot(x, y) + std::hypot(x1, y1);
    EXPECT_NEAR(((x1 - x) * vy - (y1 - y) * vx) / size, 0, 1e-12) << "on the line";
    EXPECT_NEAR(std::cos(alpha), vx * tx1 + vy * ty1, 1e-12) << "reflected";
    int outside = 0;
    for (int i = 1; i < 200; ++i)
        outside += curve.isInside(x + i * (x1 - x) / 200, y + i * (y1 - y) / 200) ? 0 : 1;
    EXPECT_EQ(outside, 0) << "the way there lies inside";
}

TEST(Bounce, LeadsToTheFirstPointOnItsLine) {
    std::mt19937_64 random(20);
    std::uniform_real_distribution<double> angle(0, 2 * pi);
    for (const char* c : {"Ellipse 1", "Ellipse 10", "OvalA 2", "OvalA 1.0625", "OvalB 0.9375",
                          "OvalC 2 3", "OvalC 1.5 7", "OvalC 5 5", "Stadium 0.125",
                          "Triangle 100 30", "Formula 2+sin(t)*cos(2*t)"}) {
        SCOPED_TRACE(c);
        TBilliardMap map(new_reference_curve(c));
        for (int i = 0; i < 2000; ++i)
            expect_first_impact(map, angle(random), start_angle(random));
    }
}

TEST(Bounce, StopsAtCornersThatPointAgainstTheCurvature) {
    // Nothing but the corners is in the way: most of these curves have no other inflections.
    std::mt19937_64 random(22);
    std::uniform_real_distribution<double> angle(0, 2 * pi);
    for (const char* c : {"1+0.8*fabs(sin(t))+0.15*cos(4*t)", "1+0.5*fabs(sin(3*t))",
                          "(fabs(cos(t))^(2/3)+fabs(sin(t))^(2/3))^(-1.5)",
                          "2+0.4*fabs(fabs(sin(2*t))-0.5)*cos(t)", "1e60*(1+fabs(cos(t-1)))"}) {
        SCOPED_TRACE(c);
        TBilliardMap map(new_reference_curve(std::string("Formula ") + c));
        EXPECT_FALSE(map.convex);
        for (int i = 0; i < 1000; ++i)
            expect_first_impact(map, angle(random), start_angle(random));
    }
    // One that points outward is in nobody's way, but each side of it has a slope of its own.
    TBilliardMap outward(new_reference_curve("Formula 2-0.2*fabs(sin(t))"));
    EXPECT_TRUE(outward.convex);
    for (double phi = 0.4; phi < 6; phi += 0.02) {
        for (double past = 1e-8; past > 1e-13; past *= 0.5) {
            double x, y, x1, y1, tx, ty;
            outward.F->pointAt(phi, x, y);
            outward.F->unitTangent(phi, tx, ty);
            outward.F->pointAt(pi + (phi < pi ? past : -past), x1, y1);
            const double dx = x1 - x;
            const double dy = y1 - y;
            expect_first_impact(outward, phi, std::atan2(tx * dy - ty * dx, tx * dx + ty * dy));
        }
    }
}

TEST(Bounce, NeedsNoTable) {
    // Without one nothing is known of the pieces between the inflections, and each is searched.
    TBilliard billiard;
    billiard.F = new TGenOvalFunction(2, 3);
    billiard.buildInflections();
    expect_first_impact(billiard, 1.0, 1.1);
    // Nor is anything believed that was known of another list.
    TBilliard moved(new TGenOvalFunction(2, 3));
    for (double& angle : moved.inflections)
        angle += 1e-3;
    for (double alpha = 0.1; alpha < 3.1; alpha += 0.1)
        expect_first_impact(moved, 1.0, alpha);
}

TEST(Bounce, RunsBackwardsAsItCame) {
    for (const char* c : convex_curves) {
        TBilliardMap map(new_reference_curve(c));
        const int bounces = on_many_orbits(map, 5, [&] {
            const double phi0 = map.phi, alpha0 = map.alpha;
            map.iterate();
            const double phi1 = map.phi, alpha1 = map.alpha;
            if (std::sin(alpha1) < 1e-3 || std::sin(alpha0) < 1e-3) return;
            map.setPhiAlpha(phi1, pi - alpha1);
            map.iterate();
            EXPECT_LE(turn_between(map.phi, phi0), 1e-9) << c;
            EXPECT_NEAR(map.alpha, pi - alpha0, 1e-9) << c;
            map.setPhiAlpha(phi1, alpha1);
        });
        EXPECT_GE(bounces, 195) << c;
    }
}

TEST(Bounce, LeavesASharpTip) {
    // It bends away within the distance at which the search begins: only nearer points lie inside.
    TBilliard narrow(new TEllipseFunction(1e3));
    const double curvature = 1 + 1e6;
    for (const double size : {0.1, 0.01, 1e-3, 1e-4}) {
        for (const double dir : {1.0, -1.0}) {
            double phi = pi / 2, alpha = dir > 0 ? size : pi - size;
            narrow.findit(phi, alpha);
            EXPECT_NEAR((phi - pi / 2) * dir / (2 * size), 1 / curvature, 0.01 / curvature) << size;
            EXPECT_NEAR(dir > 0 ? alpha : pi - alpha, size, 0.05 * size);
        }
    }
}

TEST(Bounce, PassesByTheOriginWithoutAStep) {
    TBilliardMap circle(new_reference_curve("Ellipse 0"));
    // The two ways through the origin's neighbourhood join without a step.
    double low = pi / 2 - 0.999e-6, high = pi / 2 - 1.001e-6, phi_low = 1, phi_high = 1;
    circle.findit(phi_low, low);
    circle.findit(phi_high, high);
    EXPECT_NEAR(phi_high - phi_low, -2 * 0.002e-6, 1e-12);
}

TEST(Bounce, IsTheSameAtEverySize) {
    // Radii near the ends of the range of doubles: the shape decides, not the size. Squares and
    // products of radii leave the range long before the radii do.
    for (const double c : {5.0, 1.5}) { // without inflections and with them
        TBilliard usual(new TOvalAFunction(c));
        for (const double size :
             {1e-300, 1e-158, 1e-155, 1e-110, 1e-80, 1e-3, 1e77, 1e150, 2.5e153, 1e200, 1e307}) {
            TBilliard billiard(new ray::curve_in_units(*usual.F, 1 / size));
            billiard.inflections = usual.inflections;
            billiard.convex = usual.convex;
            int wrong = 0;
            for (int i = 0; i < 300; ++i) {
                double phi_usual = 0.021 * i, alpha_usual = 0.05 + 0.01 * i;
                double phi = phi_usual, alpha = alpha_usual;
                usual.findit(phi_usual, alpha_usual);
                ASSERT_NO_THROW(billiard.findit(phi, alpha)) << size << " " << i;
                wrong += turn_between(phi, phi_usual) < 1e-11 ? 0 : 1;
                wrong += std::fabs(alpha - alpha_usual) < 1e-11 ? 0 : 1;
            }
            EXPECT_EQ(wrong, 0) << size;
        }
    }
}

TEST(Bounce, StartsBesideAnInflection) {
    // The near end of the path, 2.5e-7 from the start, rounds onto the inflection itself, and the
    // same inflection may stand in the list twice: no piece may be skipped.
    for (const char* c : {"OvalC 1.05 5", "OvalC 3 7", "OvalC 5 20", "OvalC 2 40"}) {
        for (const bool twice : {false, true}) {
            TBilliard billiard(new_reference_curve(c));
            std::vector<double>& list = billiard.inflections;
            const std::vector<double> once = list;
            if (twice) list.insert(list.end(), once.begin() + 1, once.end() - 1);
            std::sort(list.begin(), list.end());
            for (std::size_t i = 1; i + 1 < once.size(); ++i) {
                for (const double phi : {once[i] - 2.5e-7, once[i] + 2.5e-7}) {
                    for (double alpha = 0.1; alpha < 3.1 && phi >= 0 && phi < 2 * pi; alpha += 0.1)
                        expect_first_impact(billiard, phi, alpha);
                }
            }
        }
    }
}

TEST(Bounce, StaysOnTheSideThatItRunsAlong) {
    // Just beyond the right angle, square to that leg: the path runs along the other leg, of which
    // every point is an impact but for rounding.
    auto* shape = new TTriangleFunction;
    shape->setDegrees(90, 45);
    TBilliardMap map(shape);
    map.setPhiAlpha(std::nextafter(shape->corner2, 2 * pi), pi / 2);
    map.iterate();
    EXPECT_GT(map.phi, shape->corner1 - 1e-9);
    EXPECT_LT(map.phi, shape->corner2);
}

} // namespace
