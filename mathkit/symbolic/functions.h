// SPDX-License-Identifier: MIT
// The functions of the formula language, and their values.
#pragma once

#include <array>
#include <string_view>

namespace symbolic {

enum class function_id {
    exp,
    log,
    sqr,
    sqrt,
    sin,
    cos,
    tan,
    asin,
    acos,
    atan,
    sinh,
    cosh,
    tanh,
    asinh,
    acosh,
    atanh,
    erf,
    erfc,
    fabs,
    signum,
    heaviside,
    floor,
    ceil,
    round,
    trunc,
    pow ///< the one function of two arguments; it becomes a power node
};

struct function_entry {
    const char* name;
    function_id id;
    int arguments;
};

inline constexpr std::array<function_entry, 26> function_table{{
    {"exp", function_id::exp, 1},       {"log", function_id::log, 1},
    {"pow", function_id::pow, 2},       {"sqr", function_id::sqr, 1},
    {"sqrt", function_id::sqrt, 1},     {"sin", function_id::sin, 1},
    {"cos", function_id::cos, 1},       {"tan", function_id::tan, 1},
    {"asin", function_id::asin, 1},     {"acos", function_id::acos, 1},
    {"atan", function_id::atan, 1},     {"sinh", function_id::sinh, 1},
    {"cosh", function_id::cosh, 1},     {"tanh", function_id::tanh, 1},
    {"asinh", function_id::asinh, 1},   {"acosh", function_id::acosh, 1},
    {"atanh", function_id::atanh, 1},   {"erf", function_id::erf, 1},
    {"erfc", function_id::erfc, 1},     {"fabs", function_id::fabs, 1},
    {"signum", function_id::signum, 1}, {"heaviside", function_id::heaviside, 1},
    {"floor", function_id::floor, 1},   {"ceil", function_id::ceil, 1},
    {"round", function_id::round, 1},   {"trunc", function_id::trunc, 1},
}};

/// The entry of `name`, null if there is no such function.
const function_entry* find_function(std::string_view name);

/// -1, 0 or 1 by the sign of x; NaN stays NaN.
double signum(double x);

/// 0 for x < 0, 1 for x > 0, 1/2 at 0, so that heaviside(x) + heaviside(-x) = 1; NaN stays NaN.
double heaviside(double x);

/// The value of a function of one argument; NaN outside its domain, as the C library's functions.
double apply(function_id id, double x);

/// x to the power y, as the C library's pow; whole y take any x.
double power_value(double x, double y);

} // namespace symbolic
