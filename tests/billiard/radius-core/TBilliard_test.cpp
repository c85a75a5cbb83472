// SPDX-License-Identifier: MIT
// The table of arc length, the inflections, and the point of the map.
#include "billiard/radius-core/TBilliard.h"

#include "tests/counting_curve.h"
#include "tests/data_tables.h"
#include "tests/reference_curves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr double pi = 3.14159265358979324;

class area_integral : public TIntegrator {
public:
    TRadiusFunction* F;
    explicit area_integral(TRadiusFunction* F) : F(F) {}
    double f(double x) override { return F->areaDensity(x); }
};

double measured(TBilliardMap& map, const data_row& row, std::size_t inflection) {
    const std::string& quantity = row.text("quantity");
    TRect box;
    map.circumference.getborder(box);
    if (quantity == "length") {
        return TCircumferenceIntegrator(map.F).AdaptiveGauss(0, 2 * pi, 1e-12, 36);
    }
    if (quantity == "area") return area_integral(map.F).AdaptiveGauss(0, 2 * pi, 1e-12, 36);
    if (quantity == "xmin") return box.x1;
    if (quantity == "xmax") return box.x2;
    if (quantity == "ymin") return box.y1;
    if (quantity == "ymax") return box.y2;
    if (quantity == "convex") return map.convex ? 1 : 0;
    if (quantity == "ninflections") {
        return map.inflections.empty() ? 0 : double(map.inflections.size()) - 2;
    }
    if (quantity == "inflection") return map.inflections.at(inflection);
    double S, P;
    map.setPhiAlpha(row.number("arg"), 1);
    map.getPoint(S, P);
    return quantity == "S" ? S : NAN;
}

TEST(TBilliard, MeasuresCurvesAsTheReferenceDoes) {
    std::string curve;
    std::unique_ptr<TBilliardMap> map;
    std::size_t inflection = 0; // of the rows of a curve, which list them in order
    for (const data_row& row : read_data_table("lengths.csv")) {
        if (row.curve() != curve) {
            curve = row.curve();
            inflection = 0;
            map = std::make_unique<TBilliardMap>(new_reference_curve(curve));
        }
        if (row.text("quantity") == "inflection") ++inflection;
        EXPECT_NEAR(measured(*map, row, inflection), row.number("value"), row.number("tol"))
            << curve << " " << row.text("quantity") << " " << row.text("arg");
    }
}

/// Takes a curve: the points that were asked for and the rows of the table lie in these limits, and
/// the table runs from one end to the other.
void expect_table(const std::string& curve, long points, int least_rows, int most_rows) {
    SCOPED_TRACE(curve);
    auto* counter = new counting_curve(new_reference_curve(curve));
    const TBilliardMap map(counter);
    const TBilliard::circumference_class& table = map.circumference;
    EXPECT_LE(counter->points, points);
    ASSERT_GE(table.size(), least_rows);
    EXPECT_LE(table.size(), most_rows);
    ASSERT_EQ(table.s.size(), table.phi.size());
    ASSERT_EQ(table.r.size(), table.phi.size());
    EXPECT_TRUE(table.phi.front() == 0 && table.s.front() == 0);
    EXPECT_NEAR(table.phi.back(), 2 * pi, 1e-15);
    EXPECT_EQ(table.s.back(), 1);
    for (std::size_t i = 1; i < table.phi.size(); ++i) {
        ASSERT_LT(table.phi[i - 1], table.phi[i]);
        ASSERT_LE(table.s[i - 1], table.s[i]);
    }
}

TEST(TBilliard, BuildsATableForAnyCurveAtABoundedCost) {
    // A textbook rule of fifteen points on each row would ask 32,000 points and more, twice each.
    const std::pair<const char*, long> usual[] = {
        {"Ellipse 0.5", 14000},    {"OvalA 5", 14000},         {"OvalA 2", 18500},
        {"OvalB 0.3", 14000},      {"OvalC 2 3", 19000},       {"Stadium 1", 14000},
        {"Triangle 60 70", 14000}, {"Formula 5+sin(t)", 18000}};
    for (const auto& [curve, points] : usual)
        expect_table(curve, points, 1990, 2020);
    const char* const extreme[] = {"OvalC 3 200",       "OvalC 3 100000",  "OvalC 3 2147483647",
                                   "OvalC 1e300 3",     "Stadium 1000000", "Stadium 1e-9",
                                   "Stadium 1e300",     "Ellipse 1000000", "Ellipse 1e300",
                                   "Triangle 0.01 0.01"};
    for (const char* curve : extreme)
        expect_table(curve, 2000000, 2, 50000);
    for (const char* formula : hostile_formulas)
        expect_table(std::string("Formula ") + formula, 2000000, 2, 50000);
    for (const char* constant : {"Formula 0", "Formula 1/0", "Formula 1e-300", "Formula 1e300",
                                 "Formula 1+1e200*heaviside(t-1)"}) // as long as no double tells
        expect_table(constant, 2000000, 2000, 50000);
}

TEST(TBilliard, LeavesOutNoTipHoweverSharp) {
    // Extents and length are known; the rows' points fall short of a tip by a few rows.
    const struct {
        const char* curve;
        double x, y, length;
    } cases[] = {{"Ellipse 790", 1 / 790.0, 1, 4},     {"Ellipse 1000", 1e-3, 1, 4},
                 {"Ellipse 1000000", 1e-6, 1, 4},      {"Stadium 800", 801, 1, 3206.2832},
                 {"Stadium 1000", 1001, 1, 4006.2832}, {"Stadium 1000000", 1000001, 1, 4000006.28},
                 {"Ellipse 1e8", 1e-8, 1, 4}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.curve);
        expect_table(c.curve, 2000000, 1990, 2100);
        TBilliardMap map(new_reference_curve(c.curve));
        TRect box;
        map.circumference.getborder(box);
        for (const double x : {-box.x1, box.x2})
            EXPECT_NEAR(x, c.x, 1e-3 * c.x);
        for (const double y : {-box.y1, box.y2})
            EXPECT_NEAR(y, c.y, 1e-3 * c.y);
        EXPECT_NEAR(map.circumference.length, c.length, 1e-5 * c.length);
        const std::vector<double>& s = map.circumference.s;
        for (std::size_t i = 1; i < s.size(); ++i)
            ASSERT_LE(s[i] - s[i - 1], 16.5 / 2000) << "at row " << i;
        for (const int quarter : {1, 2, 3}) { // both axes are axes of symmetry
            double S, P;
            map.setPhiAlpha(quarter * pi / 2, 1);
            map.getPoint(S, P);
            EXPECT_NEAR(S, quarter / 4.0, 1e-4);
        }
    }
}

TEST(TBilliard, ListsTheInflectionsThatTheCurvatureTells) {
    // To the last digit, also where the curvature vanishes without changing its sign.
    for (const char* c :
         {"OvalA 2", "OvalA 4.999999999999999", "OvalB 0.9375", "OvalB 0.50000000000000011",
          "OvalC 2 3", "OvalC 5 2", "OvalC 1.5 7", "OvalC 3 100", "Formula 5+sin(t)",
          "Formula 3+erf(cos(2*t))", "Formula 1/(fabs(cos(t))+fabs(sin(t)))"}) {
        TBilliard billiard(new_reference_curve(c));
        curvature_root root(billiard.F);
        std::vector<double> list = {-pi};
        const double step = 0.0031415926535897933;
        double before = billiard.F->curvature(-pi);
        for (double x = -pi + step; x <= 3 * pi; x += step) {
            const double here = billiard.F->curvature(x);
            double a = x - step;
            double b = x;
            if (before * here < 0) list.push_back(root.brent1(a, b, 1e-14));
            if (list.back() != list.back()) list.back() = x;
            before = here;
        }
        list.push_back(3 * pi);
        EXPECT_EQ(billiard.inflections, list) << c;
    }
}

TEST(TBilliard, ListsEachSideOfACorner) {
    // Of the corners that point inward, and with them the curve's only changes of curvature.
    const TBilliard billiard(new_reference_curve("Formula 1+0.5*fabs(sin(3*t))"));
    EXPECT_EQ(billiard.inflections.size(), 2 + 2 * 11u);
    for (const double angle : billiard.inflections)
        EXPECT_NEAR(std::remainder(angle, pi / 3), 0, 1e-13) << angle;
}

TEST(TBilliard, ReplacesTheCurveAndAllThatBelongsToIt) {
    static int alive;
    struct tracked : TEllipseFunction {
        tracked() { ++alive; }
        ~tracked() override { --alive; }
    };
    {
        TBilliardMap map;
        EXPECT_TRUE(!map.F && map.circumference.size() == 0);
        EXPECT_TRUE(map.phi == 0 && map.alpha == pi / 2);
        map.setF(new TGenOvalFunction(2, 3));
        EXPECT_FALSE(map.convex);
        EXPECT_EQ(map.inflections.size(), 14u);
        map.setPhiAlpha(1, 2);
        map.setF(new tracked);
        EXPECT_TRUE(map.convex);
        EXPECT_TRUE(map.phi == 1 && map.alpha == 2) << "the point stays";
        map.setF(new tracked);
        EXPECT_EQ(alive, 1);
        map.setF(new TGenOvalFunction(6, 2));
        EXPECT_TRUE(map.convex) << "no sign change of the curvature";
        EXPECT_EQ(map.inflections.size(), 2u);
        map.setF(new tracked);
    }
    EXPECT_EQ(alive, 0);
}

TEST(TBilliardMap, ConvertsBetweenSectionAndBoundary) {
    TBilliardMap map(new TOvalAFunction(5));
    const double outside[][2] = {{0, 0.5},   {1, 0.5},   {0.5, 1},   {0.5, -1},
                                 {NAN, 0.5}, {0.5, NAN}, {-1e300, 0}};
    for (const auto& [S, P] : outside) {
        EXPECT_FALSE(map.setPoint(S, P)) << S << " " << P;
        EXPECT_EQ(map.phi, 0);
    }
    double S, P, x, y;
    ASSERT_TRUE(map.setPoint(0.5, 0.0));
    EXPECT_DOUBLE_EQ(map.alpha, pi / 2);
    for (int i = 1; i < 1000; ++i) {
        ASSERT_TRUE(map.setPoint(i / 1000.0, 0.002 * i - 1));
        map.getPoint(S, P);
        EXPECT_NEAR(S, i / 1000.0, 1e-14);
        EXPECT_NEAR(P, 0.002 * i - 1, 1e-15);
        map.getXY(x, y);
        EXPECT_NEAR(std::hypot(x, y), map.F->R(map.phi), 1e-5);
        EXPECT_NEAR(std::remainder(std::atan2(y, x) - map.phi, 2 * pi), 0, 1e-14);
    }
    // Outside a turn the answer is open, but there is one.
    for (const double phi : {-1.0, 7.0, 1e300}) {
        map.setPhiAlpha(phi, 1);
        map.getPoint(S, P);
        map.getXY(x, y);
        EXPECT_TRUE(std::isfinite(S + P + x + y));
    }
}

TEST(TBilliardDeathTest, AssertsItsPreconditions) {
    TBilliard::circumference_class empty;
    TBilliardMap map;
    TRect box;
    double x, y;
    EXPECT_DEATH(empty.get(0, x, y), "i>=0 && i<size\\(\\)");
    EXPECT_DEATH(empty.getR(1, x, y), "size\\(\\)>1");
    EXPECT_DEATH(empty.getborder(box), "size\\(\\)>0");
    EXPECT_DEATH(map.setPoint(0.5, 0.5), "circumference.size\\(\\)>1");
    EXPECT_DEATH(map.getPoint(x, y), "circumference.size\\(\\)>1");
    EXPECT_DEATH(map.iterate(), "F!=0");
    map.setF(new TEllipseFunction(0));
    EXPECT_DEATH(map.circumference.get(-1, x, y), "i>=0 && i<size\\(\\)");
    EXPECT_DEATH(map.circumference.get(map.circumference.size(), x, y), "i>=0");
}

TEST(TFindExt, FindsWhereTheDistanceTurns) {
    // Values and derivatives of both functions against each other, over a line's whole range.
    TGenOvalFunction curve(2, 3);
    TFindRoot g(&curve, 0.8, 2.0);
    TFindExt dg(&curve, 0.8, 2.0);
    for (double x = -1; x < 1.9; x += 0.01) {
        const double h = 1e-5;
        double value, slope;
        g.fdf(x, value, slope);
        EXPECT_EQ(value, g.f(x));
        EXPECT_EQ(slope, g.df(x));
        EXPECT_NEAR(slope, dg.f(x), 1e-12 * std::fabs(slope));
        const double scale = 1 / std::pow(2.0 - x, 4) + 10;
        EXPECT_NEAR((g.f(x + h) - g.f(x - h)) / (2 * h), slope, 1e-7 * scale);
        dg.fdf(x, value, slope);
        EXPECT_NEAR((dg.f(x + h) - dg.f(x - h)) / (2 * h), slope, 1e-6 * scale);
    }
}

} // namespace
