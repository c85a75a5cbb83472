// SPDX-License-Identifier: MIT
// The curves that the benchmarks of the model run on.
#pragma once

#include "bench/inline_curves.h"
#include "billiard/radius-core/TRadiusFunction.h"
#include "billiard/radius-core/TSymbolicRadius.h"

namespace bench {

/// Calls visit(name, make, inlined) for each curve: `make()` is a new curve of the program, which
/// the caller owns, `inlined` the same curve of a type that the compiler sees through.
template<class Visitor>
void for_each_curve(Visitor&& visit) {
    visit(
        "ellipse 0.5", [] { return new TEllipseFunction(0.5); }, inline_ellipse{0.5});
    visit(
        "ellipse 1", [] { return new TEllipseFunction(1); }, inline_ellipse{1});
    visit(
        "oval A 5", [] { return new TOvalAFunction(5); }, inline_wave<2>{5});
    visit(
        "oval A 2", [] { return new TOvalAFunction(2); }, inline_wave<2>{2});
    visit(
        "oval B 0.3", [] { return new TOvalBFunction(0.3); }, inline_oval_b{0.3});
    visit(
        "oval C 2 3", [] { return new TGenOvalFunction(2, 3); }, inline_wave<3>{2});
    visit(
        "stadium 1", [] { return new TStadiumFunction(1); }, inline_stadium{});
    visit(
        "triangle 60/70",
        [] {
            auto* triangle = new TTriangleFunction;
            triangle->setDegrees(60, 70);
            return triangle;
        },
        inline_triangle{});
    visit(
        "formula 5+sin(t)", [] { return new symbolic::TSymbolicRadius("5+sin(t)"); },
        inline_formula{});
}

} // namespace bench
