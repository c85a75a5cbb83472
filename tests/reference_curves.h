// SPDX-License-Identifier: MIT
// Makes the curves that the reference tables name by kind and parameters.
#pragma once

#include "billiard/radius-core/TRadiusFunction.h"
#include "billiard/radius-core/TSymbolicRadius.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string>

/// Formulas that are no curves at all, or curves that nobody can bounce in.
inline constexpr const char* hostile_formulas[] = {
    // no numbers, or radii that are none or out of range
    "0", "1/0", "0/0", "-1", "-3", "1e-300", "1e300", "log(t-1)", "sqrt(t-3)", "1/t",
    // that grow
    "1+t", "t^t", "exp(exp(t))", "exp(exp(exp(t)))", "t^t^t^t", "1e300^t",
    // that swing too far or too fast, or do not close
    "5+tan(t)", "tan(1000*t)", "5+sin(1000*t)", "5+sin(1000000000*t)", "1+1e-9*sin(100000*t)/t",
    "5+sin(2.5*t)", "0.5+sin(t)", "sin(t)",
    // that jump or bend sharply
    "signum(sin(3*t))", "2+fabs(sin(t))", "1+heaviside(t-3)", "2+floor(t)", "floor(1e300*t)"};

/// A new curve by its kind and parameters, as in "OvalC 2 3" or "Formula 5+sin(t)"; the caller owns
/// it. Throws for an unknown kind.
inline TRadiusFunction* new_reference_curve(const std::string& curve) {
    const std::string kind = curve.substr(0, curve.find(' '));
    const std::string params = curve.substr(std::min(curve.size(), kind.size() + 1));
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
