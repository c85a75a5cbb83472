// SPDX-License-Identifier: MIT
// The functions of the formula language: names, values, forward derivatives.
#include "mathkit/symbolic/functions.h"

#include "mathkit/symbolic/diffarithm.h"
#include "mathkit/trig.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

namespace symbolic {

const function_entry* find_function(std::string_view name) {
    for (const function_entry& entry : function_table) {
        if (name == entry.name) return &entry;
    }
    return nullptr;
}

double signum(double x) {
    if (x > 0) return 1;
    if (x < 0) return -1;
    return x; // 0 or NaN
}

double heaviside(double x) {
    return 0.5 * (signum(x) + 1);
}

double power_value(double x, double y) {
    return std::pow(x, y);
}

double apply(function_id id, double x) {
    switch (id) {
    case function_id::exp:
        return std::exp(x);
    case function_id::log:
        return std::log(x);
    case function_id::sqr:
        return x * x;
    case function_id::sqrt:
        return std::sqrt(x);
    case function_id::sin:
        return kit::sin(x);
    case function_id::cos:
        return kit::cos(x);
    case function_id::tan:
        return std::tan(x);
    case function_id::asin:
        return std::asin(x);
    case function_id::acos:
        return std::acos(x);
    case function_id::atan:
        return std::atan(x);
    case function_id::sinh:
        return std::sinh(x);
    case function_id::cosh:
        return std::cosh(x);
    case function_id::tanh:
        return std::tanh(x);
    case function_id::asinh:
        return std::asinh(x);
    case function_id::acosh:
        return std::acosh(x);
    case function_id::atanh:
        return std::atanh(x);
    case function_id::erf:
        return std::erf(x);
    case function_id::erfc:
        return std::erfc(x);
    case function_id::fabs:
        return std::fabs(x);
    case function_id::signum:
        return signum(x);
    case function_id::heaviside:
        return heaviside(x);
    case function_id::floor:
        return std::floor(x);
    case function_id::ceil:
        return std::ceil(x);
    case function_id::round:
        return std::round(x);
    case function_id::trunc:
        return std::trunc(x);
    case function_id::pow:
        break; // takes two arguments
    }
    return std::numeric_limits<double>::quiet_NaN();
}

namespace {

// The derivative of a function at x, where `value` is its value there. Empty for a function that is
// constant between its jumps: no slope of its argument matters, not even an infinite one.
std::optional<double> slope(function_id id, double x, double value) {
    switch (id) {
    case function_id::exp:
        return value;
    case function_id::log:
        return 1 / x;
    case function_id::sqr:
        return 2 * x;
    case function_id::sqrt:
        return 0.5 / value;
    case function_id::sin:
        return kit::cos(x);
    case function_id::cos:
        return -kit::sin(x);
    case function_id::tan:
        return 1 + value * value;
    case function_id::asin:
        return 1 / std::sqrt(1 - x * x);
    case function_id::acos:
        return -1 / std::sqrt(1 - x * x);
    case function_id::atan:
        return 1 / (1 + x * x);
    case function_id::sinh:
        return std::cosh(x);
    case function_id::cosh:
        return std::sinh(x);
    case function_id::tanh:
        return 1 - value * value;
    case function_id::asinh:
        return 1 / std::sqrt(x * x + 1);
    case function_id::acosh:
        return 1 / std::sqrt(x * x - 1);
    case function_id::atanh:
        return 1 / (1 - x * x);
    case function_id::erf:
        return 2 * std::numbers::inv_sqrtpi * std::exp(-x * x);
    case function_id::erfc:
        return -2 * std::numbers::inv_sqrtpi * std::exp(-x * x);
    case function_id::fabs:
        return signum(x);
    case function_id::signum:
    case function_id::heaviside:
    case function_id::floor:
    case function_id::ceil:
    case function_id::round:
    case function_id::trunc:
        return std::nullopt;
    case function_id::pow:
        break;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

} // namespace

diffarithm apply(function_id id, const diffarithm& x) {
    const double value = apply(id, x.value);
    if (x.derivative == 0) return {value, 0}; // a constant stays one, also where f' is infinite
    const std::optional<double> outer = slope(id, x.value, value);
    return {value, outer ? *outer * x.derivative : 0};
}

diffarithm power_value(const diffarithm& x, const diffarithm& y) {
    const double value = std::pow(x.value, y.value);
    double derivative = 0;
    if (x.derivative != 0 && y.value != 0) {
        derivative += y.value * std::pow(x.value, y.value - 1) * x.derivative;
    }
    const bool constant_zero = x.value == 0 && x.derivative == 0; // 0^y is 0 wherever y > 0
    if (y.derivative != 0 && !constant_zero) {
        derivative += value * std::log(x.value) * y.derivative;
    }
    return {value, derivative};
}

} // namespace symbolic
