// SPDX-License-Identifier: MIT
// One bounce as a textbook on numerical methods would write it: what the fast search is measured
// against.
#pragma once

#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/TError.h"
#include "mathkit/TRootSolver.h"
#include "mathkit/bsearch.h"

#include <cmath>
#include <numbers>

namespace bench {

/// The root of `function` between a and b: Newton's method inside a bracket, and a bisection where
/// a step leaves the bracket or shrinks too slowly.
template<class Function>
double textbook_newton(Function& function, double a, double b, double tol) {
    const double fa = function.f(a), fb = function.f(b);
    if (fa == 0) return a;
    if (fb == 0) return b;
    double low = fa < 0 ? a : b, high = fa < 0 ? b : a; // by the sign of the function
    double x = 0.5 * (a + b), step_before = std::fabs(b - a), step = step_before, f, df;
    function.fdf(x, f, df);
    for (int i = 0; i < 200; ++i) {
        const bool leaves = ((x - high) * df - f) * ((x - low) * df - f) > 0;
        const bool slow = std::fabs(2 * f) > std::fabs(step_before * df);
        step_before = step;
        step = leaves || slow ? 0.5 * (high - low) : f / df;
        x = leaves || slow ? low + step : x - step;
        if (std::fabs(step) < tol) return x;
        function.fdf(x, f, df);
        (f < 0 ? low : high) = x;
    }
    return x;
}

/// The distance between the curve and a line, and its derivatives, each from the curve's separate
/// operations.
template<class Curve>
struct line_distance {
    const Curve& curve;
    double c, psi;

    double g(double theta) const { return curve.R(theta) - c / std::sin(psi - theta); }
    double dg(double theta) const {
        const double cosine = std::cos(psi - theta);
        return curve.dR(theta) - c * cosine / (1 - cosine * cosine);
    }
    double ddg(double theta) const {
        const double cot = 1 / std::tan(psi - theta);
        return curve.ddR(theta) - c * (1 + 2 * cot * cot) / std::sin(psi - theta);
    }
};

/// That distance as an object of the solver's classes: every value is a virtual call.
template<class Curve>
struct virtual_distance : TNewtonRootSolver, line_distance<Curve> {
    explicit virtual_distance(const line_distance<Curve>& d) : line_distance<Curve>(d) {}
    double f(double theta) override { return this->g(theta); }
    double df(double theta) override { return this->dg(theta); }
    void fdf(double theta, double& value, double& slope) override {
        value = this->g(theta);
        slope = this->dg(theta);
    }
};

/// The same of its derivative.
template<class Curve>
struct virtual_slope : TNewtonRootSolver, line_distance<Curve> {
    explicit virtual_slope(const line_distance<Curve>& d) : line_distance<Curve>(d) {}
    double f(double theta) override { return this->dg(theta); }
    double df(double theta) override { return this->ddg(theta); }
    void fdf(double theta, double& value, double& slope) override {
        value = this->dg(theta);
        slope = this->ddg(theta);
    }
};

/// The search of the textbook, behind virtual functions.
struct textbook_search {
    template<class Curve>
    double operator()(const line_distance<Curve>& distance, double a, double b) const {
        virtual_distance<Curve> function(distance);
        return textbook_newton<TNewtonRootSolver>(function, a, b, 1e-12);
    }
};

/// A billiard that bounces by the textbook; `Search` finds the root in a bracket, `Curve` is what
/// it knows of the curve.
template<class Curve, class Search>
class textbook_billiard : public TBilliardMap {
public:
    textbook_billiard(TRadiusFunction* F, const Curve& curve, Search search = {})
        : TBilliardMap(F),
          search(search),
          curve(curve) {}

    void iterate() override {
        const double t0 = std::atan(curve.dR(phi) / curve.R(phi)) + pi / 2;
        double w = alpha + pi - t0;
        if (w >= pi) w -= pi;
        const double theta = next_impact(phi + w);
        const double t1 = std::atan(curve.dR(theta) / curve.R(theta)) + pi / 2;
        const double reflected = theta - phi + t0 - t1 - alpha;
        phi = theta - 2 * pi * std::floor(theta / (2 * pi));
        alpha = reflected - pi * std::floor(reflected / pi);
    }

    Search search;

private:
    static constexpr double pi = std::numbers::pi;

    double next_impact(double psi) {
        const double s = std::sin(psi - phi);
        if (std::fabs(s) < 1e-6) return through_origin(psi);
        const line_distance<Curve> distance{curve, curve.R(phi) * s, psi};
        const double dir = distance.dg(phi) > 0 ? 1 : -1;
        const double a = near_end(distance, dir);
        const double b = dir > 0 ? psi - 2.5e-7 : psi - pi + 2.5e-7;
        if (distance.g(a) * distance.g(b) > 0) throw TError("no bracket");
        return convex ? search(distance, a, b) : first_root(distance, a, b, dir);
    }

    double through_origin(double psi) const {
        const double opposite = phi + pi;
        const double e = psi - phi > 0.1 ? psi - phi - pi : psi - phi;
        return opposite + e * (curve.R(phi) + curve.R(opposite)) / curve.R(opposite);
    }

    double near_end(const line_distance<Curve>& distance, double dir) const {
        for (const double d : {2.5e-7, 2.5e-9, 2.5e-11})
            if (distance.g(phi + dir * d) >= 0) return phi + dir * d;
        throw TError("no start");
    }

    /// Walks over the pieces between the inflections, to the first that holds a root.
    double first_root(const line_distance<Curve>& distance, double a, double b, double dir) {
        const int size = static_cast<int>(inflections.size());
        int next = bsearch_interval(size, a, inflections.data()) + (dir > 0 ? 1 : 0);
        for (double u = a; next >= 0 && next<size; next += dir> 0 ? 1 : -1) {
            const bool last = (b - inflections[next]) * dir <= 0;
            const double e = last ? b : inflections[next];
            if (distance.g(u) * distance.g(e) <= 0) return search(distance, u, e);
            if (distance.dg(u) * distance.dg(e) <= 0) {
                virtual_slope<Curve> slope(distance);
                const double x = textbook_newton<TNewtonRootSolver>(slope, u, e, 1e-14);
                if (distance.g(u) * distance.g(x) <= 0) return search(distance, u, x);
            }
            if (last) break;
            u = e;
        }
        return search(distance, phi + dir * 2.5e-7, b);
    }

    const Curve& curve;
};

/// The textbook behind the classes that the program has: the curve is known by its virtual
/// operations alone.
class textbook_map : public textbook_billiard<TRadiusFunction, textbook_search> {
public:
    explicit textbook_map(TRadiusFunction* F) : textbook_billiard(F, *F) {}
};

} // namespace bench
