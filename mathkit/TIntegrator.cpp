// SPDX-License-Identifier: MIT
// Integration of a smooth function with a bound on its evaluations.
#include "mathkit/TIntegrator.h"

#include <algorithm>
#include <cmath>

// Notes:
// - Most parts that are asked for are short and smooth: five points settle them. The rules then
//   grow to seven and thirteen points before a part is halved.
// - All rules hold the ends of the part (Lobatto's rules and their extensions after Gander and
//   Gautschi). A rule whose last point lies inside is blind to a kink beyond that point and takes
//   the part for smooth.
// - The worst part is halved first, so that a limit on the evaluations costs accuracy evenly and
//   one hopeless part does not starve the others.
// - An absolute tolerance can lie below the rounding of a long boundary; halving would then never
//   end. Two rules stop it: a floor in proportion to the integral, and an end for parts that
//   halving no longer improves, where only the noise of f is left.

struct TIntegrator::part {
    double a, fa, b, fb; // the ends and the values there
    double value;
    double error;  // NaN when the value is NaN
    int stuck = 0; // halvings in a row that did not reduce the error
};

struct TIntegrator::total {
    double sum = 0, error = 0;
};

namespace {

constexpr long spent_on_a_part = 3000;
constexpr long share_of_an_integral = 32; // of what is left: one hard integral among easy ones
constexpr int most_stuck = 3;

// Where the value is infinite or NaN the comparison fails: halving cannot help.
bool settled(double value, double error, double tol) {
    const double rounding = 1e-15 * std::fabs(value);
    return !(error > std::max(tol, rounding));
}

} // namespace

TIntegrator::part TIntegrator::measured(double a, double fa, double b, double fb, double tol) {
    const double half = 0.5 * (b - a);
    const double centre = a + half;
    const auto pair = [&](double x) { return f(centre - half * x) + f(centre + half * x); };
    const double ends = fa + fb;
    const double middle = f(centre);

    const double p0 = pair(0.654653670707977144);
    const double lobatto5 = 0.1 * ends + 0.544444444444444444 * p0 + 0.711111111111111111 * middle;
    const double simpson = (ends + 4 * middle) / 3;
    part p = {a, fa, b, fb, half * lobatto5, std::fabs(half * (lobatto5 - simpson))};
    if (settled(p.value, p.error, tol) || evaluations_left <= 0) return p;

    const double p1 = pair(0.447213595499957939);
    const double p2 = pair(0.816496580927726033);
    const double lobatto4 = (ends + 5 * p1) / 6;
    const double kronrod7 = (77 * ends + 432 * p2 + 625 * p1 + 672 * middle) / 1470;
    p.value = half * kronrod7;
    p.error = std::fabs(half * (kronrod7 - lobatto4));
    evaluations_left -= 7;
    if (settled(p.value, p.error, tol)) return p;

    const double kronrod13 =
        0.0158271919734801831 * ends + 0.0942738402188500455 * pair(0.942882415695479719) +
        0.155071987336585396 * p2 + 0.188821573960182454 * pair(0.641853342345781306) +
        0.199773405226858527 * p1 + 0.224926465333339527 * pair(0.23638319966214988) +
        0.242611071901407734 * middle;
    p.value = half * kronrod13;
    p.error = std::fabs(half * (kronrod13 - kronrod7));
    evaluations_left -= 6;
    return p;
}

double TIntegrator::AdaptiveGauss(double a, double b, double tol, int n) {
    const int parts = std::clamp(n, 1, 1000);
    std::vector<part> open;
    total rest;
    double left = a;
    double value_left = f(a);
    for (int i = 1; i <= parts; ++i) {
        const double right = i < parts ? a + (b - a) * i / parts : b;
        const double value_right = f(right);
        const part p = measured(left, value_left, right, value_right, tol / parts);
        if (settled(p.value, p.error, tol / parts)) {
            rest.sum += p.value;
            rest.error += p.error;
        } else {
            open.push_back(p);
        }
        left = right;
        value_left = value_right;
    }
    return halve_worst(open, rest, tol, parts);
}

double TIntegrator::AdaptiveGauss(double a, double fa, double b, double fb, double tol) {
    const part p = measured(a, fa, b, fb, tol);
    if (settled(p.value, p.error, tol)) return p.value;
    std::vector<part> open = {p};
    return halve_worst(open, {}, tol, 1);
}

// All parts are added up anew each time: where one large part was halved away, a sum that was kept
// up to date would hold nothing but its rounding.
TIntegrator::total TIntegrator::total_of(const std::vector<part>& open, total rest) {
    for (const part& p : open) {
        rest.sum += p.value;
        rest.error += p.error;
    }
    return rest;
}

double TIntegrator::halve_worst(std::vector<part>& open, total rest, double tol, int parts) {
    const auto better = [](const part& p, const part& q) { return p.error < q.error; };
    std::make_heap(open.begin(), open.end(), better);
    const long allowed = std::max(spent_on_a_part * parts, evaluations_left / share_of_an_integral);
    const long least_left = std::max(evaluations_left - allowed, 1L);
    while (!open.empty() && evaluations_left >= least_left) {
        const total whole = total_of(open, rest);
        if (settled(whole.sum, whole.error, tol)) break;
        std::pop_heap(open.begin(), open.end(), better);
        const part worst = open.back();
        const double middle = worst.a + 0.5 * (worst.b - worst.a);
        if (middle == worst.a || middle == worst.b) break; // neighbouring doubles
        open.pop_back();
        const double value = f(middle);
        part halves[2] = {measured(worst.a, worst.fa, middle, value, 0),
                          measured(middle, value, worst.b, worst.fb, 0)};
        const double error_of_halves = halves[0].error + halves[1].error;
        const bool noise =
            error_of_halves > 0.9 * worst.error && worst.error < 1e-5 * std::fabs(worst.value);
        const int stuck = noise ? worst.stuck + 1 : 0;
        for (part& p : halves) {
            p.stuck = stuck;
            if (stuck < most_stuck) {
                open.push_back(p);
                std::push_heap(open.begin(), open.end(), better);
            } else {
                rest.sum += p.value; // its error is noise, which no halving will reduce
            }
        }
    }
    return total_of(open, rest).sum;
}
