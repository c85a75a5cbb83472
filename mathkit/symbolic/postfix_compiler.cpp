// SPDX-License-Identifier: MIT
// The values that a postfix list computes: equal ones found, constants folded, signs moved outward.
#include "mathkit/symbolic/postfix_compiler.h"

#include "mathkit/TError.h"
#include "mathkit/symbolic/formula_error.h"
#include "mathkit/symbolic/nodes.h"
#include "mathkit/symbolic/postfix_scheduler.h"

#include <bit>
#include <cmath>
#include <utility>

namespace symbolic {

namespace {

// Whole and half exponents up to this size become products and a root, others the library's pow.
constexpr double largest_product_power = 16;

// Factors in this range change places with other factors of a product. Nothing overflows or
// underflows by that unless the product is within 1e20 of the ends of the range of doubles.
bool moderate(double k) {
    return std::fabs(k) > 1e-20 && std::fabs(k) < 1e20;
}

bool is_power_of_two(double k) {
    int exponent = 0;
    return std::isnormal(k) && std::fabs(std::frexp(k, &exponent)) == 0.5 && std::isnormal(1 / k);
}

} // namespace

void postfix_compiler::result(const ex& e) {
    kept.push_back(e);
    operand(e);
    results.push_back(pop());
}

postfix_list postfix_compiler::finish() {
    return postfix_scheduler(*this).list();
}

void postfix_compiler::operand(const ex& e) {
    const auto found = done.find(&*e);
    if (found != done.end()) {
        push(found->second);
        return;
    }
    e->compile(*this);
    done.emplace(&*e, operands.back());
}

int postfix_compiler::pop() {
    const int v = operands.back();
    operands.pop_back();
    return v;
}

int postfix_compiler::intern(const value& v) {
    const key wanted{v.operation, v.a, v.b, std::bit_cast<std::uint64_t>(v.k), v.function};
    const auto [place, inserted] = known.emplace(wanted, static_cast<int>(values.size()));
    if (inserted) values.push_back(v);
    return place->second;
}

void postfix_compiler::number(double k) {
    push(make_number(k));
}

void postfix_compiler::cell(const double* address, bool variable) {
    int index = 0;
    const int count = static_cast<int>(cells.size());
    while (index < count &&
           !(cells[index].address == address && cells[index].variable == variable)) {
        ++index;
    }
    if (index == count) cells.push_back({address, variable});
    push(intern({kind::cell, index, -1, 0, {}}));
}

void postfix_compiler::negate() {
    push(make_negate(pop()));
}

void postfix_compiler::add() {
    const int b = pop();
    push(make_add(pop(), b));
}

void postfix_compiler::sub() {
    const int b = pop();
    push(make_sub(pop(), b));
}

void postfix_compiler::mul() {
    const int b = pop();
    push(make_mul(pop(), b));
}

void postfix_compiler::div() {
    const int b = pop();
    push(make_div(pop(), b));
}

void postfix_compiler::pow() {
    const int b = pop();
    push(make_pow(pop(), b));
}

void postfix_compiler::call(function_id id) {
    push(make_call(id, pop()));
}

// The rules below change no value by more than a rounding. Signs move outward, where a sum or a
// constant factor absorbs them; numbers stand on the right of sums and products, and on the left
// of differences. The scheduler relies on the places of the numbers.

int postfix_compiler::make_negate(int a) {
    if (is(a, kind::number)) return make_number(-values[a].k);
    if (is(a, kind::negate)) return values[a].a;
    if (is(a, kind::mul) && is(values[a].b, kind::number)) {
        return make_mul(values[a].a, make_number(-values[values[a].b].k));
    }
    return intern({kind::negate, a, -1, 0, {}});
}

int postfix_compiler::make_add(int a, int b) {
    if (is(a, kind::number)) {
        if (is(b, kind::number)) return make_number(values[a].k + values[b].k);
        std::swap(a, b);
    }
    if (is_number(b, 0)) return a;
    if (a == b) return make_mul(a, make_number(2));
    if (is(b, kind::negate)) return make_sub(a, values[b].a);
    if (is(a, kind::negate)) return make_sub(b, values[a].a);
    if (a > b && !is(b, kind::number)) std::swap(a, b); // so that a+b and b+a are one value
    return intern({kind::add, a, b, 0, {}});
}

int postfix_compiler::make_sub(int a, int b) {
    if (is(b, kind::number)) return make_add(a, make_number(-values[b].k));
    if (is(b, kind::negate)) return make_add(a, values[b].a);
    if (is_number(a, 0)) return make_negate(b);
    if (is(a, kind::negate)) return make_negate(make_add(values[a].a, b));
    return intern({kind::sub, a, b, 0, {}});
}

int postfix_compiler::make_mul(int a, int b) {
    if (is(a, kind::number)) std::swap(a, b);
    if (is(b, kind::number)) {
        const double k = values[b].k;
        if (is(a, kind::number)) return make_number(values[a].k * k);
        if (k == 1) return a;
        if (k == -1) return make_negate(a);
        if (is(a, kind::negate)) return make_mul(values[a].a, make_number(-k));
        if (is(a, kind::mul) && is(values[a].b, kind::number)) {
            const double inner = values[values[a].b].k;
            if (moderate(inner) && moderate(k))
                return make_mul(values[a].a, make_number(inner * k));
        }
        return intern({kind::mul, a, b, 0, {}});
    }
    if (is(a, kind::negate)) return make_negate(make_mul(values[a].a, b));
    if (is(b, kind::negate)) return make_negate(make_mul(a, values[b].a));
    // A factor that is a number moves outward, to meet other numbers or the sum that follows.
    if (is(a, kind::mul) && is(values[a].b, kind::number) && moderate(values[values[a].b].k)) {
        return make_mul(make_mul(values[a].a, b), values[a].b);
    }
    if (is(b, kind::mul) && is(values[b].b, kind::number) && moderate(values[values[b].b].k)) {
        return make_mul(make_mul(a, values[b].a), values[b].b);
    }
    if (a == b) return make_call(function_id::sqr, a);
    if (a > b) std::swap(a, b);
    return intern({kind::mul, a, b, 0, {}});
}

int postfix_compiler::make_div(int a, int b) {
    if (is(b, kind::number)) {
        if (is(a, kind::number)) return make_number(values[a].k / values[b].k);
        if (values[b].k == 1) return a;
        if (is_power_of_two(values[b].k)) return make_mul(a, make_number(1 / values[b].k));
    }
    if (is(a, kind::negate)) return make_negate(make_div(values[a].a, b));
    if (is(b, kind::negate)) return make_negate(make_div(a, values[b].a));
    if (is(a, kind::mul) && is(values[a].b, kind::number) && moderate(values[values[a].b].k)) {
        return make_mul(make_div(values[a].a, b), values[a].b);
    }
    return intern({kind::div, a, b, 0, {}});
}

int postfix_compiler::make_pow(int a, int b) {
    if (is(b, kind::number)) {
        const double n = values[b].k;
        if (is(a, kind::number)) return make_number(power_value(values[a].k, n));
        if (2 * n == std::trunc(2 * n) && std::fabs(n) <= largest_product_power) {
            const double size = std::fabs(n);
            int product = make_whole_power(a, static_cast<unsigned>(size));
            if (size != std::trunc(size))
                product = make_mul(product, make_call(function_id::sqrt, a));
            return n < 0 ? make_div(make_number(1), product) : product;
        }
    }
    return intern({kind::pow, a, b, 0, {}});
}

int postfix_compiler::make_whole_power(int a, unsigned n) {
    if (n == 0) return make_number(1);
    if (n == 1) return a;
    const int even_part = make_call(function_id::sqr, make_whole_power(a, n / 2));
    return n % 2 ? make_mul(even_part, a) : even_part;
}

int postfix_compiler::make_call(function_id id, int a) {
    if (is(a, kind::number)) return make_number(apply(id, values[a].k));
    if (is(a, kind::negate)) {
        if (id == function_id::sqr || id == function_id::cos) return make_call(id, values[a].a);
        if (id == function_id::sin) return make_negate(make_call(id, values[a].a));
    }
    if (is(a, kind::mul) && is(values[a].b, kind::number) && values[values[a].b].k < 0) {
        const bool odd = id == function_id::sin;
        if (odd || id == function_id::cos) {
            const int positive = make_mul(values[a].a, make_number(-values[values[a].b].k));
            return odd ? make_negate(make_call(id, positive)) : make_call(id, positive);
        }
    }
    return intern({kind::call, a, -1, 0, id});
}

void number::compile(postfix_compiler& to) const {
    to.number(value);
}

void cell::compile(postfix_compiler& to) const {
    to.cell(address, variable);
}

void var::compile(postfix_compiler&) const {
    throw TError(kit::string::format("the variable '%s' has no value", shown(name).c_str()));
}

void unresolved_name::compile(postfix_compiler&) const {
    throw unknown_name(name, column);
}

void unresolved_call::compile(postfix_compiler&) const {
    throw unknown_name(name, column);
}

void function_symbol::compile(postfix_compiler&) const {
    throw missing_arguments(entry.name);
}

void minus::compile(postfix_compiler& to) const {
    to.operand(a);
    to.negate();
}

void add::compile(postfix_compiler& to) const {
    to.operand(a);
    to.operand(b);
    to.add();
}

void sub::compile(postfix_compiler& to) const {
    to.operand(a);
    to.operand(b);
    to.sub();
}

void mul::compile(postfix_compiler& to) const {
    to.operand(a);
    to.operand(b);
    to.mul();
}

void divide::compile(postfix_compiler& to) const {
    to.operand(a);
    to.operand(b);
    to.div();
}

void power::compile(postfix_compiler& to) const {
    to.operand(a);
    to.operand(b);
    to.pow();
}

void function::compile(postfix_compiler& to) const {
    to.operand(a);
    to.call(id);
}

} // namespace symbolic
