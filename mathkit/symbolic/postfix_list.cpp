// SPDX-License-Identifier: MIT
// The machine that runs compiled expressions.
#include "mathkit/symbolic/postfix_list.h"

#include "mathkit/trig.h"

#include <cmath>

namespace symbolic {

namespace {

// What the machine asks of both its kinds of number, besides arithmetic.
inline double square_root(double x) {
    return std::sqrt(x);
}
inline double exponential(double x) {
    return std::exp(x);
}
inline double logarithm(double x) {
    return std::log(x);
}
inline double sine(double x) {
    return kit::sin(x);
}
inline double cosine(double x) {
    return kit::cos(x);
}
inline void sine_cosine(double x, double& s, double& c) {
    kit::sincos(x, s, c);
}

inline diffarithm square_root(const diffarithm& x) {
    return apply(function_id::sqrt, x);
}
inline diffarithm exponential(const diffarithm& x) {
    return apply(function_id::exp, x);
}
inline diffarithm logarithm(const diffarithm& x) {
    return apply(function_id::log, x);
}
inline void sine_cosine(const diffarithm& x, diffarithm& s, diffarithm& c) {
    kit::sincos(x.value, s.value, c.value);
    s.derivative = x.derivative * c.value;
    c.derivative = -x.derivative * s.value;
}
inline diffarithm sine(const diffarithm& x) {
    diffarithm s, c;
    sine_cosine(x, s, c);
    return s;
}
inline diffarithm cosine(const diffarithm& x) {
    diffarithm s, c;
    sine_cosine(x, s, c);
    return c;
}

// Runs the steps on the stack `s`. Each case restates its line in the list of opcodes.
template<class Number>
Number run(const step* at, Number* s) {
    Number acc(0.0);
    for (;; ++at) {
        switch (at->operation) {
        case opcode::end:
            return acc + at->k;
        case opcode::number:
            acc = Number(at->k);
            break;
        case opcode::load:
            acc = s[at->a];
            break;
        case opcode::load_mul_k:
            acc = s[at->a] * at->k;
            break;
        case opcode::store:
            s[at->a] = acc;
            break;
        case opcode::store_load:
            s[at->b] = acc;
            acc = s[at->a];
            break;
        case opcode::negate:
            acc = -acc;
            break;
        case opcode::add_k:
            acc = acc + at->k;
            break;
        case opcode::mul_k:
            acc = acc * at->k;
            break;
        case opcode::from_k:
            acc = at->k - acc;
            break;
        case opcode::div_k:
            acc = acc / at->k;
            break;
        case opcode::over_k:
            acc = at->k / acc;
            break;
        case opcode::add:
            acc = acc + s[at->a];
            break;
        case opcode::sub:
            acc = acc - s[at->a];
            break;
        case opcode::from:
            acc = s[at->a] - acc;
            break;
        case opcode::mul:
            acc = acc * s[at->a];
            break;
        case opcode::div:
            acc = acc / s[at->a];
            break;
        case opcode::over:
            acc = s[at->a] / acc;
            break;
        case opcode::mul_k_add:
            acc = acc * at->k + s[at->a];
            break;
        case opcode::mul_k_add_k:
            acc = acc * at[0].k + at[1].k;
            ++at;
            break;
        case opcode::mul_add:
            acc = acc * s[at->b] + s[at->a];
            break;
        case opcode::mul_sub:
            acc = acc * s[at->b] - s[at->a];
            break;
        case opcode::mul_from:
            acc = s[at->a] - acc * s[at->b];
            break;
        case opcode::sqr:
            acc = acc * acc;
            break;
        case opcode::sqrt:
            acc = square_root(acc);
            break;
        case opcode::exp:
            acc = exponential(acc);
            break;
        case opcode::log:
            acc = logarithm(acc);
            break;
        case opcode::sin:
            acc = sine(acc);
            break;
        case opcode::cos:
            acc = cosine(acc);
            break;
        case opcode::sin_cos: {
            const Number x = acc;
            sine_cosine(x, acc, s[at->b]);
            break;
        }
        case opcode::cos_sin: {
            const Number x = acc;
            sine_cosine(x, s[at->b], acc);
            break;
        }
        case opcode::sin_of:
            acc = sine(s[at->a] * at->k);
            break;
        case opcode::cos_of:
            acc = cosine(s[at->a] * at->k);
            break;
        case opcode::sin_cos_of:
            sine_cosine(s[at->a] * at->k, acc, s[at->b]);
            break;
        case opcode::cos_sin_of:
            sine_cosine(s[at->a] * at->k, s[at->b], acc);
            break;
        case opcode::angle:
            sine_cosine(s[at->a], s[at->c], s[at->c + 1]);
            break;
        case opcode::angle_sum: {
            const Number s1 = s[at->a], c1 = s[at->a + 1], s2 = s[at->b], c2 = s[at->b + 1];
            s[at->c] = s1 * c2 + c1 * s2;
            s[at->c + 1] = c1 * c2 - s1 * s2;
            break;
        }
        case opcode::angle_double: {
            const Number s1 = s[at->a], c1 = s[at->a + 1];
            const Number twice = s1 + s1;
            s[at->c] = twice * c1;
            s[at->c + 1] = 1.0 - twice * s1;
            break;
        }
        case opcode::pow:
            acc = power_value(acc, s[at->a]);
            break;
        case opcode::pow_of:
            acc = power_value(s[at->a], acc);
            break;
        case opcode::pow_k:
            acc = power_value(acc, Number(at->k));
            break;
        case opcode::k_pow:
            acc = power_value(Number(at->k), acc);
            break;
        case opcode::call:
            acc = apply(static_cast<function_id>(at->c), acc);
            break;
        }
    }
}

} // namespace

postfix_list::postfix_list() : steps(1) {}

double postfix_list::eval_double(double* stack) const {
    double* slot = stack;
    for (const cell_slot& cell : cells)
        *slot++ = *cell.address;
    return run<double>(steps.data(), stack);
}

diffarithm postfix_list::eval_diffarithm(diffarithm* stack) const {
    diffarithm* slot = stack;
    for (const cell_slot& cell : cells)
        *slot++ = {*cell.address, cell.variable ? 1.0 : 0.0};
    return run<diffarithm>(steps.data(), stack);
}

} // namespace symbolic
