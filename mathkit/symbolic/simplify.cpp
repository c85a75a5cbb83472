// SPDX-License-Identifier: MIT
// The rules of simplification.
#include "mathkit/symbolic/simplify.h"

#include "mathkit/symbolic/mapping.h"
#include "mathkit/symbolic/nodes.h"

namespace symbolic {

namespace {

bool is(const ex& e, double value) {
    const double* number = e->number_value();
    return number && *number == value;
}

class dropping_0_1 final : public mapping {
    ex image(const ex& e) override {
        const ex rebuilt = e->rebuild(*this, e);
        return rebuilt->simplified_0_1(rebuilt);
    }
};

class folding_constants final : public mapping {
    ex image(const ex& e) override {
        ex rebuilt = e->rebuild(*this, e);
        double value = 0;
        if (rebuilt->number_value() || !rebuilt->constant(value)) return rebuilt;
        return ex(value);
    }
};

template<class Operation>
ex simplified(const ex& a, const ex& b) {
    const ex made = Operation(a, b);
    return made->simplified_0_1(made);
}

} // namespace

ex simplify_0_1(const ex& e) {
    dropping_0_1 map;
    return map(e);
}

ex simplify_constants(const ex& e) {
    folding_constants map;
    return map(e);
}

ex sum(const ex& a, const ex& b) {
    return simplified<add>(a, b);
}
ex difference(const ex& a, const ex& b) {
    return simplified<sub>(a, b);
}
ex product(const ex& a, const ex& b) {
    return simplified<mul>(a, b);
}
ex quotient(const ex& a, const ex& b) {
    return simplified<divide>(a, b);
}
ex power_of(const ex& a, const ex& b) {
    return simplified<power>(a, b);
}

ex negative(const ex& a) {
    const ex made = minus(a);
    return made->simplified_0_1(made);
}

ex minus::simplified_0_1(const ex& self) const {
    if (is(a, 0)) return ex::num0p();
    if (const auto* inner = dynamic_cast<const minus*>(&*a)) return inner->a;
    return self;
}

ex add::simplified_0_1(const ex& self) const {
    if (is(a, 0)) return b;
    if (is(b, 0)) return a;
    return self;
}

ex sub::simplified_0_1(const ex& self) const {
    if (is(b, 0)) return a;
    if (is(a, 0)) return negative(b);
    return self;
}

ex mul::simplified_0_1(const ex& self) const {
    if (is(a, 0) || is(b, 0)) return ex::num0p();
    if (is(a, 1)) return b;
    if (is(b, 1)) return a;
    return self;
}

// 0/0 stays: a formula whose value is NaN must not become a number.
ex divide::simplified_0_1(const ex& self) const {
    if (is(b, 1)) return a;
    if (is(a, 0) && !is(b, 0)) return ex::num0p();
    return self;
}

ex power::simplified_0_1(const ex& self) const {
    if (is(b, 1)) return a;
    if (is(b, 0) || is(a, 1)) return ex(1);
    return self;
}

} // namespace symbolic
