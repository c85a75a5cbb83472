// SPDX-License-Identifier: MIT
// The program's own search with the curve inlined into it: what the virtual call costs.
#pragma once

#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/bounce.h"
#include "mathkit/TError.h"

namespace bench {

/// A curve of the program whose operations a compiler can inline, since it is known by its type.
template<class Inlined>
class final_curve final : public TRadiusFunction {
public:
    explicit final_curve(const Inlined& curve) : curve(curve) {}
    double R(double phi) const override { return curve.R(phi); }
    double dR(double phi) const override { return curve.dR(phi); }
    double ddR(double phi) const override { return curve.ddR(phi); }
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override {
        curve.value_and_slope(phi, sin_phi, cos_phi, r, dr);
    }

private:
    Inlined curve;
};

/// A billiard for one type of curve, which bounces without a virtual call.
template<class Inlined>
class inlined_billiard final : public TBilliardMap {
public:
    /// `F` is the program's curve, which the billiard takes, `inlined` the same one.
    inlined_billiard(TRadiusFunction* F, const Inlined& inlined)
        : TBilliardMap(F),
          curve(inlined) {}

    [[gnu::flatten]] void iterate() override {
        ray::bounce<final_curve<Inlined>> path(curve, convex, inflections, knots, last);
        if (path.next(phi, alpha) != ray::refusal::none) throw TError("no impact");
    }

private:
    final_curve<Inlined> curve;
};

} // namespace bench
