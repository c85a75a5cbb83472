// SPDX-License-Identifier: MIT
// Forward differentiation: numbers that carry their derivative along.
//
// Notes: the curves take their slopes from expressions that ex::diff has made, which are faster.
// This is the way to the slope of a list whose expression is gone, as of one that other code has
// compiled; and the second opinion by which both ways are tested.
#pragma once

#include "mathkit/symbolic/functions.h"

namespace symbolic {

/// A value and its derivative by the one variable.
struct diffarithm {
    double value = 0;
    double derivative = 0;

    diffarithm() = default;
    diffarithm(double value) : value(value) {} // NOLINT: a constant, converting on purpose
    diffarithm(double value, double derivative) : value(value), derivative(derivative) {}
};

inline diffarithm operator-(const diffarithm& a) {
    return {-a.value, -a.derivative};
}
inline diffarithm operator+(const diffarithm& a, const diffarithm& b) {
    return {a.value + b.value, a.derivative + b.derivative};
}
inline diffarithm operator-(const diffarithm& a, const diffarithm& b) {
    return {a.value - b.value, a.derivative - b.derivative};
}
inline diffarithm operator*(const diffarithm& a, const diffarithm& b) {
    return {a.value * b.value, a.derivative * b.value + a.value * b.derivative};
}
inline diffarithm operator/(const diffarithm& a, const diffarithm& b) {
    const double quotient = a.value / b.value;
    return {quotient, (a.derivative - quotient * b.derivative) / b.value};
}

/// Value and derivative of a function of one argument; beside jumps and corners as ex::diff.
diffarithm apply(function_id id, const diffarithm& x);

/// x to the power y. A constant y needs no logarithm, so that whole powers take any x.
diffarithm power_value(const diffarithm& x, const diffarithm& y);

} // namespace symbolic
