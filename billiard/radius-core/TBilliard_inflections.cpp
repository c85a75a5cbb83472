// SPDX-License-Identifier: MIT
// Where a curve bends the other way: its inflections and corners, and the pieces between them.
#include "billiard/radius-core/TBilliard.h"

#include "billiard/radius-core/TRadiusFunction.h"
#include "billiard/radius-core/bounce.h"
#include "mathkit/bsearch.h"
#include "mathkit/trig.h"
#include "mathkit/turn.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

double curvature_root::f(double x) {
    return F->curvatureNumerator(x);
}

namespace {

using kit::two_pi;
using std::numbers::pi;

// For each row but the last the side to which the polyline bends there, from the row before to the
// row after: 1 left, -1 right, 0 straight to rounding. Row 0 follows the row before the last.
std::vector<signed char> bends_of(const TBilliard::circumference_class& table) {
    const int rows = table.size() - 1; // the last row is the first again
    std::vector<signed char> bends(static_cast<std::size_t>(rows));
    double x0, y0, x1, y1, x2, y2;
    table.get(rows - 1, x0, y0);
    table.get(0, x1, y1);
    for (int i = 0; i < rows; ++i) {
        table.get(i + 1, x2, y2);
        const double cross = (x1 - x0) * (y2 - y1) - (y1 - y0) * (x2 - x1);
        const double size = std::fabs(x1) + std::fabs(y1);
        const double sides =
            std::fabs(x2 - x1) + std::fabs(y2 - y1) + std::fabs(x1 - x0) + std::fabs(y1 - y0);
        if (std::fabs(cross) > 1e-14 * size * sides) {
            bends[static_cast<std::size_t>(i)] = cross > 0 ? 1 : -1;
        }
        x0 = x1, y0 = y1;
        x1 = x2, y1 = y2;
    }
    return bends;
}

// 1 or -1 where all rows well between the angles a and b, -pi <= a < b <= 3 pi, bend left or
// right; 0 where they disagree, where there are none to tell, or where a radius is not positive.
int bend_between(const TBilliard::circumference_class& table, const std::vector<signed char>& bends,
                 double a, double b) {
    const int rows = table.size() - 1;
    const double* phi = table.phi.data();
    bool left = false;
    bool right = false;
    for (const double shift : {-two_pi, 0.0, two_pi}) {
        // Rows i - 1, i and i + 1 must all lie in the piece.
        int i = std::max(bsearch_interval(static_cast<unsigned>(rows), a - shift, phi), -1) + 1;
        for (; i < rows && phi[i + 1] + shift < b; ++i) {
            const double before = i > 0 ? phi[i - 1] : phi[rows - 1] - two_pi;
            if (before + shift < a) continue;
            const auto row = static_cast<std::size_t>(i);
            if (!(table.r[row] > 0)) return 0;
            left = left || bends[row] > 0;
            right = right || bends[row] < 0;
        }
    }
    return left == right ? 0 : left ? 1 : -1;
}

// The curve at an angle, as the scan for inflections sees it.
struct scanned {
    double phi, r, dr;
    double bend; // has the sign of the curvature
};

// Where rounding might decide on the sign, or squares might leave the range of doubles, the bend is
// the curvature itself.
scanned scan(const TRadiusFunction& F, double phi) {
    double sine, cosine, r, dr, ddr;
    kit::sincos(phi, sine, cosine);
    F.derivatives(phi, sine, cosine, r, dr, ddr);
    const double arc = r * r + 2 * dr * dr;
    const double bend = r * ddr;
    const double size = arc + std::fabs(bend);
    const bool plain = size > 1e-100 && size < 1e100 && std::fabs(arc - bend) > 1e-9 * size;
    return {phi, r, dr, plain ? std::copysign(1.0, arc - bend) : F.curvature(phi)};
}

// The cross product of the tangents at a and b, per radian; positive where b's lies to the left.
// The angle from a to b is given by its sine and cosine.
double cross_of_tangents(const scanned& a, const scanned& b, double sine, double cosine) {
    return a.dr * (b.dr * sine + b.r * cosine) - a.r * (b.dr * cosine - b.r * sine);
}

// Whether the tangent rotates against the curvature that both ends have, by more than rounding.
bool rotates_against_bend(const scanned& a, const scanned& b, double sine, double cosine) {
    if (!(a.bend * b.bend > 0)) return false;
    const double along_bend = cross_of_tangents(a, b, sine, cosine) * (a.bend > 0 ? 1 : -1);
    const double sizes = a.r * a.r + a.dr * a.dr + b.r * b.r + b.dr * b.dr;
    return along_bend < -1e-9 * sizes;
}

// Narrows the interval, in which the tangent rotates against the curvature, down to the corner.
void narrow_to_corner(const TRadiusFunction& F, scanned& a, scanned& b) {
    while (b.phi - a.phi > 1e-14) {
        const scanned middle = scan(F, 0.5 * (a.phi + b.phi));
        double sine, cosine;
        kit::sincos(0.5 * (b.phi - a.phi), sine, cosine);
        const double left = cross_of_tangents(a, middle, sine, cosine);
        const double right = cross_of_tangents(middle, b, sine, cosine);
        const bool is_left = a.bend > 0 ? left < right : left > right;
        (is_left ? b : a) = middle;
    }
}

} // namespace

void TBilliard::buildInflections() {
    constexpr double step = 0.0031415926535897933; // pi/1000
    const double sine = std::sin(step);
    const double cosine = std::cos(step);
    curvature_root root(F);
    inflections.clear();
    inflections.reserve(2000);
    inflections.push_back(-pi);
    scanned before = scan(*F, -pi);
    for (double x = -pi + step; x <= 3 * pi; x += step) {
        const scanned here = scan(*F, x);
        if (before.bend * here.bend < 0) {
            double a = x - step;
            double b = x;
            // Where the curvature changes sign by rounding alone, its numerator may not.
            const double theta = root.brent1(a, b, 1e-14);
            inflections.push_back(theta == theta ? theta : x);
        } else if (rotates_against_bend(before, here, sine, cosine)) {
            // On a corner the slope is one for each side, and so each side is an entry.
            scanned a = before;
            scanned b = here;
            narrow_to_corner(*F, a, b);
            inflections.push_back(a.phi);
            inflections.push_back(b.phi);
        }
        before = here;
    }
    inflections.push_back(3 * pi);
    if (inflections.size() == 2) convex = true;
    if (!convex) buildKnots();
}

// Evaluates the curve at the inflections. A piece between two of them bends to one side, and its
// `bends` tells which, where all rows of the table agree on that: they do not where the piece holds
// two inflections or a corner that the scan has missed.
void TBilliard::buildKnots() {
    knots.clear();
    if (circumference.size() < 2) return; // no table to prove anything by
    const std::vector<signed char> bends = bends_of(circumference);
    knots.reserve(inflections.size());
    for (std::size_t i = 0; i < inflections.size(); ++i) {
        ray::inflection_knot k{};
        k.theta = inflections[i];
        k.at = {std::cos(k.theta), std::sin(k.theta)};
        F->value_and_slope(k.theta, k.at.y, k.at.x, k.r, k.dr);
        if (i + 1 < inflections.size()) {
            k.bends = bend_between(circumference, bends, k.theta, inflections[i + 1]);
        }
        knots.push_back(k);
    }
}
