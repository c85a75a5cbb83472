// SPDX-License-Identifier: MIT
// The bounce written down plainly: every decision on the distance g itself, roots by halving.
#pragma once

#include <cmath>
#include <vector>

#include "billiard/radius-core/TRadiusFunction.h"

/// What the quick search is held against: slow, and easy to check by reading.
class plain_bounce {
public:
    plain_bounce(const TRadiusFunction& curve, bool convex, const std::vector<double>& inflections)
        : curve(curve),
          convex(convex),
          inflections(inflections) {}

    /// False where no impact is found; phi and alpha are then as before.
    bool next(double& phi, double& alpha) {
        constexpr double pi = 3.14159265358979324;
        const double t0 = std::atan(curve.dR(phi) / curve.R(phi)) + pi / 2;
        double w = (alpha + pi) - t0;
        if (w >= pi) w -= pi;
        psi = phi + w;
        if (!(psi >= phi && phi >= psi - pi)) return false;
        double theta = 0;
        const double s = std::sin(psi - phi);
        if (std::fabs(s) < 1e-6) {
            const double phi2 = phi + pi;
            const double e = psi - phi > 0.1 ? psi - phi - pi : psi - phi;
            theta = phi2 + e * (curve.R(phi) + curve.R(phi2)) / curve.R(phi2);
        } else {
            c = curve.R(phi) * s;
            const int dir = slope(phi) > 0 ? 1 : -1;
            double d = 2.5e-7;
            while (!(g(phi + dir * d) >= 0)) {
                d *= 0.01;
                if (d < 1e-11) return false;
            }
            const double a = phi + dir * d;
            const double b = dir > 0 ? psi - 2.5e-7 : (psi - pi) + 2.5e-7;
            if (g(a) * g(b) > 0) return false;
            theta = convex ? halve(a, b) : first_in_pieces(a, b, dir);
        }
        const double t1 = std::atan(curve.dR(theta) / curve.R(theta)) + pi / 2;
        const double turned = (theta - phi + t0) - t1 - alpha;
        alpha = turned - pi * std::floor(turned / pi);
        phi = theta - 2 * pi * std::floor(theta / (2 * pi));
        return true;
    }

private:
    double g(double theta) const { return curve.R(theta) - c / std::sin(psi - theta); }
    double slope(double theta) const {
        const double cosine = std::cos(psi - theta);
        return curve.dR(theta) - c * cosine / (1 - cosine * cosine);
    }

    template<class Function>
    static double halve(Function f, double a, double b) {
        const bool positive = f(a) >= 0;
        for (int i = 0; i < 100; ++i) {
            const double x = a + 0.5 * (b - a);
            ((f(x) >= 0) == positive ? a : b) = x;
        }
        return a;
    }
    double halve(double a, double b) const {
        return halve([this](double x) { return g(x); }, a, b);
    }

    // The first change of sign from a to b: the pieces between inflections have at most one
    // stationary point each.
    double first_in_pieces(double a, double b, int dir) const {
        std::vector<double> ends;
        for (const double k : inflections) {
            if (dir * (k - a) > 0 && dir * (b - k) > 0) ends.push_back(k);
        }
        if (dir < 0) ends = {ends.rbegin(), ends.rend()};
        ends.push_back(b);
        double u = a;
        for (const double e : ends) {
            if (!(g(e) > 0)) return halve(u, e);
            if (slope(u) * slope(e) <= 0) {
                const double x = halve([this](double y) { return slope(y); }, u, e);
                if (!(g(x) > 0)) return halve(u, x);
            }
            u = e;
        }
        return NAN;
    }

    const TRadiusFunction& curve;
    const bool convex;
    const std::vector<double>& inflections;
    double c = 0;
    double psi = 0;
};
