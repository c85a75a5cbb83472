// SPDX-License-Identifier: MIT
// The bounce: reference impacts and orbits, invariants, refusals, and what it may cost.
#include "billiard/radius-core/bounce.h"

#include "billiard/radius-core/TBilliard.h"
#include "mathkit/TError.h"
#include "tests/counting_curve.h"
#include "tests/data_tables.h"
#include "tests/reference_curves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

long allocations = 0;

} // namespace

void* operator new(std::size_t bytes) {
    ++allocations;
    if (void* p = std::malloc(bytes == 0 ? 1 : bytes)) return p;
    throw std::bad_alloc();
}
// The compiler does not see that these belong together.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}

namespace {

constexpr double pi = 3.14159265358979324;

double turn_between(double a, double b) {
    return std::fabs(std::remainder(a - b, 2 * pi));
}

TEST(bounce, meets_the_reference_impacts) {
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

TEST(bounce, follows_the_reference_orbits) {
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

TEST(bounce, keeps_the_invariants_over_a_million_bounces) {
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
        RecordProperty(row.curve(), std::to_string(drift));
    }
}

TEST(bounce, goes_on_from_what_the_last_impact_knows) {
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

TEST(bounce, never_answers_another_point_from_what_it_knows) {
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

const char* const convex_curves[] = {"Ellipse 0.5", "Ellipse 1",       "OvalA 5",
                                     "OvalB 0.3",   "Stadium 1",       "Triangle 60 70",
                                     "OvalC 60 7",  "Formula 5+sin(t)"};
const char* const other_curves[] = {
    "OvalA 2", "OvalC 2 3", "OvalC 5 5", "OvalB 0.9375", "Formula 3+erf(cos(2*t))",
};

// Forty orbits over the section, or fewer where one breaks off.
template<class Visit>
void on_many_orbits(TBilliardMap& map, int bounces, Visit visit) {
    for (int orbit = 0; orbit < 40; ++orbit) {
        map.setPoint(0.011 + 0.0247 * orbit, -0.97 + 0.0497 * orbit);
        try {
            for (int i = 0; i < bounces; ++i)
                visit();
        } catch (const TError&) {
        }
    }
}

TEST(bounce, asks_the_curve_at_few_points) {
    const auto mean = [](const std::string& c) {
        auto* counter = new counting_curve(new_reference_curve(c));
        TBilliardMap map(counter);
        counter->points = 0;
        long bounces = 0;
        on_many_orbits(map, 250, [&] {
            counter->forget();
            map.iterate();
            ++bounces;
        });
        EXPECT_GT(bounces, 9000) << c;
        return double(counter->points) / double(bounces);
    };
    for (const char* c : convex_curves)
        EXPECT_LE(mean(c), 7.2) << c;
    for (const char* c : other_curves)
        EXPECT_LE(mean(c), 8.5) << c;
}

TEST(bounce, allocates_nothing) {
    for (const char* c :
         {"OvalA 5", "OvalC 2 3", "Triangle 60 70", "Stadium 1", "Fourier 3 5 0 0 0 1 0.5",
          "Formula 3+erf(cos(2*t))", "Formula 3+cos(2*t)/(9+sqr(cos(t)))+(2+cos(t))^sin(t)/99"}) {
        TBilliardMap map(new_reference_curve(c));
        map.setPoint(0.3, 0.4);
        double S, P, x, y;
        const long before = allocations;
        for (int i = 0; i < 2000; ++i) {
            map.iterate();
            map.getPoint(S, P);
            map.getXY(x, y);
            map.setPoint(S, P);
            x += map.F->R(x) + map.F->dR(x) + map.F->ddR(x) + map.F->curvatureNumerator(x);
        }
        EXPECT_EQ(allocations, before) << c;
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

TEST(bounce, leads_to_the_first_point_on_its_line) {
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

TEST(bounce, stops_at_corners_that_point_against_the_curvature) {
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
    // One that points outward is in nobody's way.
    EXPECT_TRUE(TBilliardMap(new_reference_curve("Formula 2-0.2*fabs(sin(t))")).convex);
}

TEST(bounce, needs_no_table) {
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

TEST(bounce, runs_backwards_as_it_came) {
    for (const char* c : convex_curves) {
        TBilliardMap map(new_reference_curve(c));
        on_many_orbits(map, 5, [&] {
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
    }
}

TEST(bounce, passes_by_the_origin_without_a_step) {
    TBilliardMap circle(new_reference_curve("Ellipse 0"));
    // The two ways through the origin's neighbourhood join without a step.
    double low = pi / 2 - 0.999e-6, high = pi / 2 - 1.001e-6, phi_low = 1, phi_high = 1;
    circle.findit(phi_low, low);
    circle.findit(phi_high, high);
    EXPECT_NEAR(phi_high - phi_low, -2 * 0.002e-6, 1e-12);
}

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

TEST(bounce, refuses_what_has_no_impact) {
    TBilliard circle(new TEllipseFunction(0));
    expect_refusal(circle, 1, 7, "an angle beyond the tangent");
    expect_refusal(circle, 1, NAN, "an angle that is no number");
    expect_refusal(circle, NAN, 1, "a place that is no number");
    expect_refusal(circle, INFINITY, 1, "a place at infinity");
    TBilliard narrow(new TEllipseFunction(1e4)); // bends away within the smallest distance
    expect_refusal(narrow, pi / 2, 1e-13, "grazing forward");
    expect_refusal(narrow, pi / 2, pi - 1e-13, "grazing backward");
    for (const double turn : {-1.0, 1.0, 5.0, 1000.0}) { // but angles of any turn are taken
        double phi = 1 + turn * 2 * pi, alpha = pi / 4;
        circle.findit(phi, alpha);
        EXPECT_NEAR(phi, 1 + pi / 2, 1e-9);
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

TEST(bounce, takes_a_point_on_the_line_itself_for_an_impact) {
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

TEST(bounce, looks_at_the_point_where_the_distance_turns) {
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

TEST(bounce, is_the_same_at_every_size) {
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

TEST(bounce, starts_beside_an_inflection) {
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

TEST(bounce, is_not_taken_in_by_a_radius_of_nought) {
    // Where the radius vanishes a step of the search does, too, far from any impact.
    TBilliardMap map(new_reference_curve("Formula sin(t)"));
    map.setPhiAlpha(1.9634954084936205, 0.39269908169872414);
    map.iterate();
    EXPECT_NEAR(map.phi, 2.35619449019, 1e-9);
}

TEST(bounce, stays_on_the_side_that_it_runs_along) {
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

TEST(bounce, survives_curves_that_are_none) {
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
