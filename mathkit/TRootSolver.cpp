// SPDX-License-Identifier: MIT
// Roots of a function of one variable in a bracket, without and with its derivative.
#include "mathkit/TRootSolver.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

// Notes:
// - A bracket is kept by the signs of f and by nothing else: steps of Newton's method may point
//   anywhere near a pole or a corner.
// - Tests are written so that NaN fails them. Every loop has a limit that halving the bracket alone
//   would meet for any two doubles.

namespace {

constexpr double no_root = std::numeric_limits<double>::quiet_NaN();
constexpr int step_limit = 2200; // halvings between the largest and the smallest double

// The spacing of doubles near x: no tolerance can be met below it.
double rounding_of(double x) {
    return 2.0 * std::numeric_limits<double>::epsilon() * std::fabs(x);
}

bool opposite(double fa, double fb) {
    return (fa < 0 && fb > 0) || (fa > 0 && fb < 0);
}

double middle_of(double a, double b) {
    return a + 0.5 * (b - a);
}

struct sample {
    double x, f;
};

// The step from b to the root of the secant through a and b, or where a is not c to that of the
// inverse parabola through all three. None if it goes beyond three quarters of the way to c, or is
// not shorter than half of the step before the last: then halving is faster.
std::optional<double> interpolated(sample a, sample b, sample c, double limit, double step_before) {
    const double way = c.x - b.x;
    const double s = b.f / a.f;
    double p = way * s;
    double q = 1 - s;
    if (a.x != c.x) {
        const double t = a.f / c.f;
        const double r = b.f / c.f;
        p = s * (way * t * (t - r) - (b.x - a.x) * (r - 1));
        q = (t - 1) * (r - 1) * (s - 1);
    }
    if (p > 0) q = -q;
    p = std::fabs(p);
    const double bound =
        std::fmin(1.5 * way * q - std::fabs(limit * q), std::fabs(step_before * q));
    if (2 * p < bound) return p / q;
    return std::nullopt;
}

} // namespace

double TRootSolver::brent1(double& a, double& b, double tol) {
    double fa = f(a);
    if (fa == 0) return a;
    double fb = f(b);
    if (fb == 0) return b;
    if (!opposite(fa, fb)) return no_root;

    // b is the best estimate, c the other end of the bracket, a the estimate before b.
    double c = a;
    double fc = fa;
    double step = b - a;
    double step_before = step;
    for (int i = 0; i < step_limit; ++i) {
        if (std::fabs(fc) < std::fabs(fb)) {
            a = b, fa = fb;
            b = c, fb = fc;
            c = a, fc = fa;
        }
        const double limit = rounding_of(b) + 0.5 * tol;
        const double half = 0.5 * (c - b);
        if (std::fabs(half) <= limit || fb == 0) {
            a = c;
            return b;
        }
        const bool slow = std::fabs(step_before) < limit || std::fabs(fa) <= std::fabs(fb);
        const std::optional<double> next =
            slow ? std::nullopt : interpolated({a, fa}, {b, fb}, {c, fc}, limit, step_before);
        step_before = next ? step : half;
        step = next.value_or(half);
        a = b, fa = fb;
        b += std::fabs(step) > limit ? step : std::copysign(limit, half);
        fb = f(b);
        if (fb != fb) return no_root;
        if (!opposite(fb, fc)) {
            c = a, fc = fa;
            step = step_before = b - a;
        }
    }
    return b;
}

double TNewtonRootSolver::safe_newton(double& a, double& b, double tol) {
    const double fa = f(a);
    if (fa == 0) return a;
    const double fb = f(b);
    if (fb == 0) return b;
    if (!opposite(fa, fb)) return no_root;

    const bool rising = fa < 0;
    double x = middle_of(a, b);
    double step_before = std::fabs(b - a);
    int slow_steps = 0;
    for (int i = 0; i < step_limit; ++i) {
        double value = 0;
        double slope = 0;
        fdf(x, value, slope);
        if (value == 0) return x;
        if (value != value) return no_root;
        ((value < 0) == rising ? a : b) = x;

        const double limit = std::fmax(tol, rounding_of(x));
        const double newton = -value / slope;
        // A last step below the tolerance may leave the bracket by one rounding: it counts before
        // the bracket does, or halving would go on from the far end. The step of 0 that an
        // infinite slope makes is no last step.
        if (std::fabs(newton) <= limit && std::isfinite(slope)) {
            return std::clamp(x + newton, std::fmin(a, b), std::fmax(a, b));
        }
        if (std::fabs(b - a) <= limit) return middle_of(a, b);

        const double next = x + newton;
        const bool inside = (next > a && next < b) || (next < a && next > b);
        // Near a pole Newton's steps only double the distance to it, and beside a jump of the
        // derivative two points can take turns for ever: such steps are not worth a third try.
        const bool slow = !(2 * std::fabs(newton) < step_before);
        slow_steps = slow ? slow_steps + 1 : 0;
        const bool halve = !inside || newton == 0 || slow_steps > 2;
        if (halve) slow_steps = 0;
        const double to = halve ? middle_of(a, b) : next;
        if (to == a || to == b) return to; // neighbouring doubles
        step_before = std::fabs(to - x);
        x = to;
    }
    return x;
}
