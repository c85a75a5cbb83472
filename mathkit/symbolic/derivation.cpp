// SPDX-License-Identifier: MIT
// The rules of differentiation, one for every kind of node and every function.
#include "mathkit/symbolic/derivation.h"

#include "mathkit/stderr_failed.h"
#include "mathkit/symbolic/formula_error.h"
#include "mathkit/symbolic/simplify.h"

#include <cmath>
#include <numbers>

namespace symbolic {

namespace {

bool is_zero(const ex& e) {
    const double* value = e->number_value();
    return value && *value == 0;
}

ex square(const ex& a) {
    return function(function_id::sqr, a);
}
ex root(const ex& a) {
    return function(function_id::sqrt, a);
}
ex reciprocal(const ex& a) {
    return quotient(ex(1), a);
}

// 2 / sqrt(pi) exp(-a^2), the slope of erf.
ex bell(const ex& a) {
    return product(ex(2 * std::numbers::inv_sqrtpi),
                   function(function_id::exp, negative(square(a))));
}

// f'(a), where self = f(a): what is written in terms of self shares its value in a compiled list.
ex outer_derivative(function_id id, const ex& a, const ex& self) {
    switch (id) {
    case function_id::exp:
        return self;
    case function_id::log:
        return reciprocal(a);
    case function_id::sqr:
        return product(ex(2), a);
    case function_id::sqrt:
        return quotient(ex(0.5), self);
    case function_id::sin:
        return function(function_id::cos, a);
    case function_id::cos:
        return negative(function(function_id::sin, a));
    case function_id::tan:
        return sum(ex(1), square(self));
    case function_id::asin:
        return reciprocal(root(difference(ex(1), square(a))));
    case function_id::acos:
        return negative(reciprocal(root(difference(ex(1), square(a)))));
    case function_id::atan:
        return reciprocal(sum(square(a), ex(1)));
    case function_id::sinh:
        return function(function_id::cosh, a);
    case function_id::cosh:
        return function(function_id::sinh, a);
    case function_id::tanh:
        return difference(ex(1), square(self));
    case function_id::asinh:
        return reciprocal(root(sum(square(a), ex(1))));
    case function_id::acosh:
        return reciprocal(root(difference(square(a), ex(1))));
    case function_id::atanh:
        return reciprocal(difference(ex(1), square(a)));
    case function_id::erf:
        return bell(a);
    case function_id::erfc:
        return negative(bell(a));
    case function_id::fabs:
        return function(function_id::signum, a);
    case function_id::signum:
    case function_id::heaviside:
    case function_id::floor:
    case function_id::ceil:
    case function_id::round:
    case function_id::trunc:
        return ex::num0p(); // constant between the jumps
    case function_id::pow:
        break;
    }
    stderr_assert_failed(
        "id!=function_id::pow", "mathkit/symbolic/derivation", __LINE__,
        "symbolic::ex symbolic::outer_derivative(function_id, const ex&, const ex&)");
}

} // namespace

ex derivation::operator()(const ex& e) {
    const auto known = done.find(&*e);
    if (known != done.end()) return known->second;
    ex result = e->diff(*this, e);
    done.emplace(&*e, result);
    return result;
}

ex number::diff(derivation&, const ex&) const {
    return ex::num0p();
}

ex cell::diff(derivation&, const ex&) const {
    return ex::num0p();
}

ex var::diff(derivation& by, const ex&) const {
    return name == by.x.name ? ex(1) : ex::num0p();
}

ex unresolved_name::diff(derivation&, const ex&) const {
    throw unknown_name(name, column);
}

ex unresolved_call::diff(derivation&, const ex&) const {
    throw unknown_name(name, column);
}

ex function_symbol::diff(derivation&, const ex&) const {
    throw missing_arguments(entry.name);
}

ex minus::diff(derivation& by, const ex&) const {
    return negative(by(a));
}

ex add::diff(derivation& by, const ex&) const {
    return sum(by(a), by(b));
}

ex sub::diff(derivation& by, const ex&) const {
    return difference(by(a), by(b));
}

ex mul::diff(derivation& by, const ex&) const {
    return sum(product(by(a), b), product(a, by(b)));
}

// In this form the quotient itself is used again, which saves an operation in a compiled list.
ex divide::diff(derivation& by, const ex& self) const {
    const ex numerator = difference(by(a), product(self, by(b)));
    return is_zero(numerator) ? numerator : quotient(numerator, b); // 1/0 is constant as well
}

// A constant exponent must not pass through log(a): x^n is smooth at x <= 0 for whole n.
ex power::diff(derivation& by, const ex& self) const {
    const ex da = by(a);
    const ex db = by(b);
    ex result = ex::num0p();
    if (!is_zero(da)) {
        double exponent = 0;
        const bool known = is_zero(db) && simplify_constants(b)->constant(exponent);
        const ex lowered = known ? ex(exponent - 1) : difference(b, ex(1));
        const ex factor = known ? ex(exponent) : b;
        result = product(product(factor, power_of(a, lowered)), da);
    }
    if (is_zero(db)) return result;
    double base = 1;
    if (is_zero(da) && simplify_constants(a)->constant(base) && base == 0) {
        return result; // 0^b is 0 wherever b > 0
    }
    return sum(result, product(product(self, function(function_id::log, a)), db));
}

ex function::diff(derivation& by, const ex& self) const {
    const ex inner = by(a);
    if (is_zero(inner)) return ex::num0p();
    return product(outer_derivative(id, a, self), inner);
}

} // namespace symbolic
