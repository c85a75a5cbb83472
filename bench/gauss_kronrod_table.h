// SPDX-License-Identifier: MIT
// The arc-length table as a textbook would build it: what `setF` is measured against.
#pragma once

#include "billiard/radius-core/TRadiusFunction.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace bench {

/// Gauss-Kronrod 7/15 over halved intervals, on sqrt(R^2 + R'^2) with R and R' asked separately.
class plain_integrator {
public:
    explicit plain_integrator(const TRadiusFunction& curve) : curve(curve) {}

    double integral(double a, double b, double tol, int depth = 20) const {
        double kronrod = 0, gauss = 0;
        rule(a, b, kronrod, gauss);
        if (std::fabs(kronrod - gauss) <= tol || depth == 0) return kronrod;
        const double middle = 0.5 * (a + b);
        return integral(a, middle, tol / 2, depth - 1) + integral(middle, b, tol / 2, depth - 1);
    }

private:
    double f(double phi) const {
        const double r = curve.R(phi), dr = curve.dR(phi);
        return std::sqrt(r * r + dr * dr);
    }

    void rule(double a, double b, double& kronrod, double& gauss) const {
        static const double node[8] = {0.991455371120812639206854697526, //
                                       0.949107912342758524526189684048,
                                       0.864864423359769072789712788641,
                                       0.741531185599394439863864773281,
                                       0.586087235467691130294144691694,
                                       0.405845151377397166906606412077,
                                       0.207784955007898467600689403773,
                                       0.0};
        static const double wide[8] = {
            0.022935322010529224963732008059, //
            0.063092092629978553290700663189, 0.104790010322250183839876322542,
            0.140653259715525918745189590510, 0.169004726639267902826583426599,
            0.190350578064785409913256402421, 0.204432940075298892414161999235,
            0.209482141084727828012999174892};
        static const double narrow[4] = {0.129484966168869693270611432679, // of every other node
                                         0.279705391489276667901467771424,
                                         0.381830050505118944950369775489,
                                         0.417959183673469387755102040816};
        const double centre = 0.5 * (a + b), half = 0.5 * (b - a);
        for (int i = 0; i < 8; ++i) {
            const double d = half * node[i];
            const double sum = i == 7 ? f(centre) : f(centre - d) + f(centre + d);
            kronrod += wide[i] * sum;
            if (i % 2 == 1) gauss += narrow[i / 2] * sum;
        }
        kronrod *= half;
        gauss *= half;
    }

    const TRadiusFunction& curve;
};

/// Rows of polar angle, arc length and radius; the steps are those of the program's table.
struct plain_table {
    std::vector<double> phi, s, r;

    void build(const TRadiusFunction& curve) {
        const double turn = 2 * std::numbers::pi;
        const plain_integrator arc(curve);
        double length = 0;
        for (int i = 0; i < 36; ++i)
            length += arc.integral(turn * i / 36, turn * (i + 1) / 36, 1e-12 / 36);
        const double ds = length / 2000;
        double angle = 0, sum = 0;
        for (;;) {
            const double radius = curve.R(angle), slope = curve.dR(angle);
            phi.push_back(angle);
            s.push_back(sum);
            r.push_back(radius);
            if (angle >= turn) break;
            double next = angle + ds / (std::sqrt(radius * radius + slope * slope) + 1e-10);
            if (next >= turn) next = turn;
            sum += arc.integral(angle, next, 1e-12);
            angle = next;
        }
        for (double& value : s)
            value /= sum;
    }
};

} // namespace bench
