// SPDX-License-Identifier: MIT
// Integration of a smooth function with a bound on its evaluations.
#include "mathkit/TIntegrator.h"

#include <algorithm>
#include <array>
#include <cmath>

// Notes:
// - Most parts that are asked for are short and smooth: five points settle them. So the rules
//   grow from five points to seven to fifteen before a part is halved.
// - An absolute tolerance can lie below the rounding of a long boundary; halving would then never
//   end. Two rules stop it: an error near the rounding of the part itself, and a small error that
//   halving no longer reduces, which is the noise of f.

namespace {

struct estimate {
    double value;
    double error; // not a number when the value is none
};

// A node of a Kronrod rule on [-1, 1] and its mirror image; the weight of the Gauss rule inside
// it is 0 at the nodes that Kronrod added.
struct node {
    double x, kronrod, gauss;
};

constexpr std::array<node, 3> rule5 = {{{0.0, 0.622222222222222222, 0},
                                        {0.577350269189625765, 0.490909090909090909, 1.0},
                                        {0.925820099772551462, 0.19797979797979798, 0}}};

constexpr std::array<node, 4> rule7 = {
    {{0.0, 0.450916538658474142, 0.888888888888888889},
     {0.434243749346802558, 0.401397414775962223, 0},
     {0.774596669241483377, 0.268488089868333441, 0.555555555555555556},
     {0.960491268708020283, 0.104656226026467265, 0}}};

constexpr std::array<node, 8> rule15 = {
    {{0.0, 0.209482141084727828, 0.417959183673469388},
     {0.207784955007898468, 0.204432940075298892, 0},
     {0.405845151377397167, 0.19035057806478541, 0.381830050505118945},
     {0.58608723546769113, 0.169004726639267903, 0},
     {0.74153118559939444, 0.140653259715525919, 0.279705391489276668},
     {0.864864423359769073, 0.104790010322250184, 0},
     {0.949107912342758525, 0.0630920926299785533, 0.129484966168869693},
     {0.991455371120812639, 0.022935322010529225, 0}}};

template<std::size_t n>
estimate integrate(TIntegrator& integrand, double a, double b, const std::array<node, n>& rule) {
    const double centre = a + 0.5 * (b - a);
    const double half = 0.5 * (b - a);
    const double middle = integrand.f(centre);
    double kronrod = rule[0].kronrod * middle;
    double gauss = rule[0].gauss * middle;
    for (std::size_t i = 1; i < n; ++i) {
        const double pair =
            integrand.f(centre - half * rule[i].x) + integrand.f(centre + half * rule[i].x);
        kronrod += rule[i].kronrod * pair;
        gauss += rule[i].gauss * pair;
    }
    return {kronrod * half, std::fabs((kronrod - gauss) * half)};
}

// A value that is infinite or no number has an error that is no number, and halving cannot help.
bool settled(const estimate& e, double tol) {
    const double rounding = 2e-15 * std::fabs(e.value);
    return !(e.error > std::max(tol, rounding));
}

constexpr int depth_limit = 40;

} // namespace

double TIntegrator::part(double a, double b, double tol, double error_before, int depth) {
    estimate e = integrate(*this, a, b, rule5);
    if (settled(e, tol) || evaluations_left <= 0) return e.value;

    e = integrate(*this, a, b, rule7);
    evaluations_left -= 5 + 7;
    if (settled(e, tol)) return e.value;

    e = integrate(*this, a, b, rule15);
    evaluations_left -= 15;
    if (settled(e, tol) || depth >= depth_limit) return e.value;

    const bool noise = e.error < 1e-10 * std::fabs(e.value) && e.error > 0.6 * error_before;
    if (noise) return e.value;
    const double middle = a + 0.5 * (b - a);
    return part(a, middle, 0.5 * tol, e.error, depth + 1) +
           part(middle, b, 0.5 * tol, e.error, depth + 1);
}

double TIntegrator::AdaptiveGauss(double a, double b, double tol, int n) {
    const int parts = std::clamp(n, 1, 10000);
    double sum = 0;
    for (int i = 0; i < parts; ++i) {
        const double left = a + (b - a) * i / parts;
        const double right = i + 1 < parts ? a + (b - a) * (i + 1) / parts : b;
        sum += part(left, right, tol / parts, INFINITY, 0);
    }
    return sum;
}
