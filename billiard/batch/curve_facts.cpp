// SPDX-License-Identifier: MIT
// The table itself: how long, how large, how it bends.
#include "billiard/batch/curve_facts.h"

#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/TIntegrator.h"
#include "mathkit/turn.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace batch {

namespace {

class area_integrator : public TIntegrator {
public:
    explicit area_integrator(const TRadiusFunction& F) : F(F) {}
    double f(double x) override { return F.areaDensity(x); }

private:
    const TRadiusFunction& F;
};

// How far the curve reaches into the direction (x, y), which the row of the table next to it tells
// up to the boundary's bend between two rows.
double reach(const TBilliard& table, double x, double y) {
    const auto reach_at = [&](double phi) {
        double px, py;
        table.F->pointAt(phi, px, py);
        return px * x + py * y;
    };
    const std::vector<double>& phi = table.circumference.phi;
    const auto highest = std::max_element(
        phi.begin(), phi.end(), [&](double a, double b) { return reach_at(a) < reach_at(b); });
    const auto row = static_cast<std::size_t>(highest - phi.begin());
    const std::size_t last = phi.size() - 1; // the same point as row 0
    double a = row > 0 ? phi[row - 1] : phi[last - 1] - kit::two_pi;
    double b = row < last ? phi[row + 1] : phi[1] + kit::two_pi;

    // The golden section finds the peak also where it is a corner.
    const double part = std::numbers::phi - 1;
    double best = reach_at(phi[row]);
    for (int i = 0; i < 70; ++i) { // from a row's width to rounding
        const double left = b - part * (b - a), right = a + part * (b - a);
        const double at_left = reach_at(left), at_right = reach_at(right);
        best = std::max({best, at_left, at_right});
        (at_left > at_right ? b : a) = at_left > at_right ? right : left;
    }
    return best;
}

// How often the polyline of the table's rows changes from bending left to bending right or back.
// On straight sides it bends by rounding, which does not count.
int inflections_of(const TBilliard::circumference_class& table) {
    const int rows = table.size() - 1; // the last is the first again
    double x0, y0, x1, y1, x2, y2;
    table.get(rows - 1, x0, y0);
    table.get(0, x1, y1);
    int first = 0, before = 0, changes = 0;
    for (int i = 1; i <= rows; ++i) {
        table.get(i, x2, y2);
        const double left = (x1 - x0) * (y2 - y1), right = (y1 - y0) * (x2 - x1);
        const double rounding =
            1e-14 * (std::fabs(x1) + std::fabs(y1)) *
            (std::fabs(x2 - x1) + std::fabs(y2 - y1) + std::fabs(x1 - x0) + std::fabs(y1 - y0));
        const int bend = left > right + rounding ? 1 : left < right - rounding ? -1 : 0;
        changes += bend * before < 0 ? 1 : 0;
        before = bend != 0 ? bend : before;
        first = first != 0 ? first : bend;
        x0 = x1, y0 = y1;
        x1 = x2, y1 = y2;
    }
    return changes + (first * before < 0 ? 1 : 0);
}

} // namespace

curve_facts facts_of(const TBilliard& table) {
    curve_facts facts{};
    // As near as rounding allows; the table adds up two thousand roundings.
    facts.circumference =
        TCircumferenceIntegrator(table.F).AdaptiveGauss(0, kit::two_pi, 1e-14, 36);
    facts.area = area_integrator(*table.F).AdaptiveGauss(0, kit::two_pi, 1e-14, 36);
    facts.x1 = -reach(table, -1, 0);
    facts.y1 = -reach(table, 0, -1);
    facts.x2 = reach(table, 1, 0);
    facts.y2 = reach(table, 0, 1);
    facts.inflections = inflections_of(table.circumference);
    facts.convex = facts.inflections == 0;
    facts.mean_chord = std::numbers::pi * facts.area / facts.circumference;
    return facts;
}

} // namespace batch
