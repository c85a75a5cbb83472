// SPDX-License-Identifier: MIT
// Periodic points of maps whose orbits are known by formula, and of maps that misbehave.
#include "mathkit/TIterraMap.h"

#include "mathkit/TError.h"
#include "tests/periodic_check.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <utility>

namespace {

using std::numbers::pi;
using image_of = std::function<std::pair<double, double>(double, double)>;

const double NONE = std::numeric_limits<double>::quiet_NaN();
const double HUGE_NUMBER = std::numeric_limits<double>::infinity();

double fraction(double x) {
    return x - std::floor(x);
}

/// A map given by its formula, on the section 0 < x < 1, -1 < y < 1; it counts its iterates.
class formula_map : public TIterraMap {
public:
    explicit formula_map(image_of image) : image(std::move(image)) {}

    bool setPoint(double a, double b) override {
        if (!placeable) throw TError("no place");
        if (!(a > 0 && a < 1 && b > -1 && b < 1)) return false;
        x = a, y = b;
        return true;
    }
    void getPoint(double& a, double& b) override {
        if (!readable) throw TError("no point");
        a = x, b = y;
    }
    void iterate() override {
        ++iterates;
        std::tie(x, y) = image(x, y);
    }

    double x = 0.3, y = 0.2;
    long iterates = 0;
    bool placeable = true, readable = true;

private:
    image_of image;
};

/// The kicked rotor: islands about (1/2, 0) of order 1 and (0, 1/2) of order 2, a hyperbolic point
/// on the seam x = 0; all of it moved along x by `shift`.
image_of kicked(double k, double shift = 0) {
    return [k, shift](double x, double y) {
        const double kick = y + k / (2 * pi) * std::sin(2 * pi * (x - shift));
        return std::pair(fraction(x + kick), kick);
    };
}

/// x advances by a turn that depends on y alone: every y of a rational turn is a line of points.
std::pair<double, double> shear(double x, double y) {
    return {fraction(x + std::acos(y) / pi), y};
}

/// Rotation about (0.5, 0.1) by a part of a turn.
image_of rotation(double turn) {
    return [turn](double x, double y) {
        const double c = std::cos(2 * pi * turn), s = std::sin(2 * pi * turn);
        return std::pair(0.5 + c * (x - 0.5) - s * (y - 0.1), 0.1 + s * (x - 0.5) + c * (y - 0.1));
    };
}

struct known_orbit {
    const char* what;
    image_of image;
    double x, y, rx, ry; ///< the ellipse drawn
    int order;           ///< of the point in it; negative for none
    double px, py;       ///< the point; NaN where any of a line will do
};

const known_orbit ORBITS[] = {
    {"island of order 1", kicked(0.9), 0.52, 0.03, 0.05, 0.05, 1, 0.5, 0},
    {"island of order 1, anisotropic zoom", kicked(0.9), 0.5001, 0.1, 0.0005, 0.3, 1, 0.5, 0},
    {"hyperbolic point on the seam", kicked(0.9), 0.004, 0.002, 0.02, 0.02, 1, 0, 0},
    {"the same from the other side", kicked(0.9), 0.997, 0.002, 0.02, 0.02, 1, 0, 0},
    {"island beside the seam", kicked(-0.9, 1e-7), 0.002, 0.001, 0.01, 0.01, 1, 1e-7, 0},
    {"island beyond the seam", kicked(-0.9, -0.002), 0.004, 0.001, 0.01, 0.01, 1, 0.998, 0},
    {"island of order 2", kicked(0.9), 0.49, 0.52, 0.02, 0.04, 2, 0.5, 0.5},
    {"strongly hyperbolic point of order 1", kicked(6), 0.49, 0.02, 0.03, 0.06, 1, 0.5, 0},
    {"rotation, middle in the circle", rotation(1 / 7.0), 0.52, 0.12, 0.05, 0.05, 1, 0.5, 0.1},
    {"rotation, middle outside", rotation(1 / 7.0), 0.6, 0.2, 0.01, 0.01, 7, NONE, NONE},
    {"long rotation, middle outside", rotation(17 / 120.0), 0.6, 0.2, 1e-3, 1e-3, 120, NONE, NONE},
    {"irrational rotation, middle outside", rotation(0.6180339887), 0.6, 0.2, 0.01, 0.01, -1, 0, 0},
    {"line of order 3", shear, 0.2, 0.501, 0.01, 0.02, 3, NONE, 0.5},
    {"line of order 1001", shear, 0.2, std::cos(pi * 305 / 1001), 1e-7, 1e-7, 1001, NONE,
     std::cos(pi * 305 / 1001)},
};

TEST(PeriodicPoints, KnownOrbitsAreFoundWithTheirOrder) {
    for (const known_orbit& o : ORBITS) {
        SCOPED_TRACE(o.what);
        formula_map map(o.image);
        EXPECT_EQ(map.getorder(o.x, o.y, o.rx, o.ry, 10000), o.order);
        if (o.order < 0) {
            EXPECT_EQ(std::pair(map.x, map.y), std::pair(0.3, 0.2)) << "not put back";
            continue;
        }
        EXPECT_LE(std::hypot(around(map.x - o.x) / o.rx, (map.y - o.y) / o.ry), 1 + 1e-6);

        double x = o.x, y = o.y;
        expect_refined(map, x, y, o.order);
        EXPECT_TRUE(std::isnan(o.px) || around(x - o.px) < 1e-12) << x;
        EXPECT_TRUE(std::isnan(o.py) || std::abs(y - o.py) < 1e-12) << y;
    }
}

TEST(PeriodicPoints, PointsOfTheRimThatHardlyMoveHaveNoOrder) {
    formula_map map(shear); // near y = 1 every point is back in the circle after one step
    EXPECT_LT(map.getorder(0.2, 0.9999999, 0.01, 3e-8, 1000), 0);
    EXPECT_LT(map.getorder(0.2, std::nextafter(1, 0), 0.01, 0.0001, 100), 0);
    EXPECT_LT(map.getorder(0.2, std::nextafter(-1, 0), 0.01, 0.0001, 100), 0);
}

TEST(PeriodicPoints, LimitOfTheOrderHolds) {
    formula_map map(rotation(1 / 7.0));
    EXPECT_EQ(map.getorder(0.6, 0.2, 0.01, 0.01, 7), 7);
    EXPECT_LT(map.getorder(0.6, 0.2, 0.01, 0.01, 6), 0);
    EXPECT_LT(map.getorder(0.6, 0.2, 0.01, 0.01, 0), 0);
    EXPECT_LT(map.getorder(0.6, 0.2, 0.01, 0.01, -5), 0);
    formula_map slow(rotation(17 / 120.0));
    EXPECT_LT(slow.getorder(0.6, 0.2, 1e-3, 1e-3, 20), 0);
}

/// Maps that do not behave; none of them has a periodic point near (0.4, 0.1).
const std::pair<const char*, image_of> HOSTILE[] = {
    {"always throws",
     [](double, double) -> std::pair<double, double> { throw TError("no image"); }},
    {"answers no number", [](double, double) { return std::pair(NONE, NONE); }},
    {"answers infinity", [](double, double) { return std::pair(HUGE_NUMBER, -HUGE_NUMBER); }},
    {"jumps to one point far away", [](double, double) { return std::pair(0.9, -0.9); }},
    {"moves by the width of the range", [](double x, double y) { return std::pair(x + 1, y); }},
    {"moves back by the width", [](double x, double y) { return std::pair(x - 1, y); }},
    {"drifts out of the range", [](double x, double y) { return std::pair(x + 0.01, y + 0.03); }},
    {"grows without limit", [](double x, double y) { return std::pair(x * 1e200, y * 1e200); }},
    {"throws on every other strip",
     [](double x, double y) -> std::pair<double, double> {
         if (std::fmod(x * 1000, 2) < 1) throw TError("strip");
         return {fraction(x + 0.011), y};
     }},
    {"is nowhere continuous",
     [](double x, double y) {
         return std::pair(fraction(1e9 * std::sin(1e9 * x + y)), std::sin(1e9 * y + 1e8 * x));
     }},
};

TEST(PeriodicPoints, HostileMapsEndWithoutAnAnswerAndArePutBack) {
    for (const auto& [what, image] : HOSTILE) {
        SCOPED_TRACE(what);
        formula_map map(image);
        EXPECT_LT(map.getorder(0.4, 0.1, 0.01, 0.02, 10000), 0);
        EXPECT_EQ(std::pair(map.x, map.y), std::pair(0.3, 0.2));
        expect_not_refined(map, 0.4, 0.1, 3);
        EXPECT_EQ(std::pair(map.x, map.y), std::pair(0.3, 0.2));
        EXPECT_LE(map.iterates, 2'000'000) << "the budget of two searches";
    }
}

TEST(PeriodicPoints, ArgumentsThatAreNoCircleAreRefused) {
    const double circles[][4] = {
        {0, 0.3, 0.02, 0.06},         {1, 0.3, 0.02, 0.06},        {-0.1, 0.1, 0.02, 0.06},
        {0.5, 1, 0.02, 0.06},         {0.5, -1.25, 0.02, 0.06},    {0.5, 0, 0, 0.06},
        {0.5, 0, 0.02, -0.06},        {0.5, 0, NONE, 0.06},        {NONE, 0, 0.02, 0.06},
        {0.5, NONE, 0.02, 0.06},      {0.5, 0, HUGE_NUMBER, 0.06}, {0.5, 0, 0.02, NONE},
        {HUGE_NUMBER, 0, 0.02, 0.06},
    };
    formula_map map(kicked(0.9)); // (0.5, 0) has order 1
    for (const auto& [x, y, rx, ry] : circles)
        EXPECT_LT(map.getorder(x, y, rx, ry, 10000), 0) << x << ' ' << y;
    EXPECT_EQ(map.getorder(0.5, 0, 0.4, 0.9, 10000), 1) << "a circle as large as the section";
    EXPECT_EQ(map.getorder(0.5, 0, 1e300, 1e300, 10000), 1) << "and larger";

    for (const int order :
         {0, -1, std::numeric_limits<int>::min(), 2'000'000, std::numeric_limits<int>::max()})
        expect_not_refined(map, 0.5, 0.001, order);
    expect_not_refined(map, 0.5, 7, 1); // no point of the section
    double x = 0.5, y = 0.03;
    expect_refined(map, x, y, 2); // one of order 1 will do
}

TEST(PeriodicPoints, ErrorsOfTheMapNeverLeaveASearch) {
    for (const bool placed : {true, false}) {
        formula_map map(kicked(0.9));
        (placed ? map.readable : map.placeable) = false;
        EXPECT_LT(map.getorder(0.5, 0, 0.05, 0.05, 100), 0);
        expect_not_refined(map, 0.5, 0, 1);
    }
}

TEST(PeriodicPoints, PointOnTheEdgeIsPutBackBesideIt) {
    formula_map map(kicked(0.9));
    map.x = 0; // iterates reach the edge, setPoint refuses it
    map.y = 1;
    EXPECT_LT(map.getorder(0.3, 0.2, 0.001, 0.001, 1), 0);
    EXPECT_NEAR(map.x, 0, 1e-12);
    EXPECT_NEAR(map.y, 1, 1e-12);
}

} // namespace
