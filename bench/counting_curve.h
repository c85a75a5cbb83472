// SPDX-License-Identifier: MIT
// A curve that counts at how many points it is evaluated.
#pragma once

#include "billiard/radius-core/TRadiusFunction.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace bench {

/// Passes everything on to another curve, which it owns.
class counting_curve : public TRadiusFunction {
public:
    enum method {
        distinct_points, ///< R, R' or both at one angle are one, until `next_step`
        every_call       ///< each call of an operation is one
    };

    explicit counting_curve(TRadiusFunction* curve, method what = distinct_points)
        : curve(curve),
          what(what) {}

    long points() const { return counted; }
    void next_step() { seen.clear(); }

    double R(double phi) const override { return count(phi), curve->R(phi); }
    double dR(double phi) const override { return count(phi), curve->dR(phi); }
    double ddR(double phi) const override { return count(phi), curve->ddR(phi); }
    bool isConvex() const override { return curve->isConvex(); }
    double curvatureNumerator(double phi) const override {
        return count(phi), curve->curvatureNumerator(phi);
    }
    double curvature(double phi) const override { return count(phi), curve->curvature(phi); }
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override {
        count(phi);
        curve->value_and_slope(phi, sin_phi, cos_phi, r, dr);
    }

private:
    void count(double phi) const {
        if (what == every_call) {
            ++counted;
            return;
        }
        if (std::find(seen.begin(), seen.end(), phi) != seen.end()) return;
        seen.push_back(phi);
        ++counted;
    }

    std::unique_ptr<TRadiusFunction> curve;
    method what;
    mutable std::vector<double> seen;
    mutable long counted = 0;
};

} // namespace bench
