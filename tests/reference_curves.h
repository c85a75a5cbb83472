// SPDX-License-Identifier: MIT
// Makes the curves that the reference tables name by kind and parameters.
#pragma once

#include <sstream>
#include <stdexcept>
#include <string>

#include "billiard/radius-core/TRadiusFunction.h"
#if __has_include("billiard/radius-core/TSymbolicRadius.h")
#include "billiard/radius-core/TSymbolicRadius.h"
#define HAVE_FORMULA_CURVES 1
#endif

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
#ifdef HAVE_FORMULA_CURVES
    if (kind == "Formula") return new symbolic::TSymbolicRadius(params.c_str());
#endif
    throw std::invalid_argument("unknown kind of curve: " + kind);
}
