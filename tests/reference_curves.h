// SPDX-License-Identifier: MIT
// Makes the curves that the reference tables name by kind and parameters.
#pragma once

#include <sstream>
#include <stdexcept>
#include <string>

#include "billiard/radius-core/TRadiusFunction.h"
#include "billiard/radius-core/TSymbolicRadius.h"

struct named_curve {
    const char *kind, *params;
    std::string name() const { return std::string(kind) + " " + params; }
};

/// Formulas that are no curves at all, or curves that nobody can bounce in.
inline constexpr const char* hostile_formulas[] = {"0",
                                                   "1/0",
                                                   "0/0",
                                                   "-1",
                                                   "-3",
                                                   "1e-300",
                                                   "1e300",
                                                   "log(t-1)",
                                                   "sqrt(t-3)",
                                                   "1/t",
                                                   "1+t",
                                                   "t^t",
                                                   "exp(exp(t))",
                                                   "exp(exp(exp(t)))",
                                                   "t^t^t^t",
                                                   "1e300^t",
                                                   "5+tan(t)",
                                                   "tan(1000*t)",
                                                   "5+sin(1000*t)",
                                                   "5+sin(1000000000*t)",
                                                   "1+1e-9*sin(100000*t)/t",
                                                   "5+sin(2.5*t)",
                                                   "0.5+sin(t)",
                                                   "sin(t)",
                                                   "signum(sin(3*t))",
                                                   "2+fabs(sin(t))",
                                                   "1+heaviside(t-3)",
                                                   "2+floor(t)",
                                                   "floor(1e300*t)"};

/// A new curve, as in ("OvalC", "2 3") or ("Formula", "5+sin(t)"); the caller owns it. Throws for
/// an unknown kind.
inline TRadiusFunction* new_reference_curve(const std::string& kind, const std::string& params) {
    double x = 0;
    double y = 0;
    std::istringstream(params) >> x >> y;
    if (kind == "Ellipse") return new TEllipseFunction(x);
    if (kind == "OvalA") return new TOvalAFunction(x);
    if (kind == "OvalB") return new TOvalBFunction(x);
    if (kind == "OvalC") return new TGenOvalFunction(x, static_cast<int>(y));
    if (kind == "Stadium") return new TStadiumFunction(x);
    if (kind == "Fourier") return new TPotatoFunction(params.c_str());
    if (kind == "Triangle") {
        auto* triangle = new TTriangleFunction;
        triangle->setDegrees(x, y);
        return triangle;
    }
    if (kind == "Formula") return new symbolic::TSymbolicRadius(params.c_str());
    throw std::invalid_argument("unknown kind of curve: " + kind);
}

inline TRadiusFunction* new_reference_curve(const named_curve& curve) {
    return new_reference_curve(curve.kind, curve.params);
}
