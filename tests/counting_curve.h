// SPDX-License-Identifier: MIT
// A curve that passes every question on to another and counts the points where it was asked.
#pragma once

#include "billiard/radius-core/TRadiusFunction.h"

#include <limits>
#include <memory>

class counting_curve : public TRadiusFunction {
public:
    enum method {
        distinct_points, ///< R, R' and R'' at one angle, asked one after another, count as one
        every_call       ///< each call of an operation counts
    };

    std::unique_ptr<TRadiusFunction> curve;
    mutable long points = 0;

    /// Takes ownership.
    explicit counting_curve(TRadiusFunction* curve, method what = distinct_points)
        : curve(curve),
          what(what) {}

    /// Two bounces may begin where the last ended: counts the next question in any case.
    void forget() const { last = std::numeric_limits<double>::quiet_NaN(); }

    double R(double phi) const override { return count(phi), curve->R(phi); }
    double dR(double phi) const override { return count(phi), curve->dR(phi); }
    double ddR(double phi) const override { return count(phi), curve->ddR(phi); }
    bool isConvex() const override { return curve->isConvex(); }
    double curvatureNumerator(double phi) const override {
        return count(phi), curve->curvatureNumerator(phi);
    }
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override {
        count(phi);
        curve->value_and_slope(phi, sin_phi, cos_phi, r, dr);
    }

    void derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                     double& ddr) const override {
        count(phi);
        curve->derivatives(phi, sin_phi, cos_phi, r, dr, ddr);
    }

private:
    void count(double phi) const {
        points += phi == last && what == distinct_points ? 0 : 1;
        last = phi;
    }

    method what;
    mutable double last = std::numeric_limits<double>::quiet_NaN();
};
