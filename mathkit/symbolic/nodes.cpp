// SPDX-License-Identifier: MIT
// Nodes: making them, rebuilding them, their values where those are known.
#include "mathkit/symbolic/nodes.h"

#include "mathkit/symbolic/mapping.h"

#include <algorithm>

namespace symbolic {

namespace {

int greatest_depth(const std::vector<ex>& operands) {
    int depth = 0;
    for (const ex& operand : operands)
        depth = std::max(depth, operand->depth());
    return depth;
}

bool same(const ex& a, const ex& b) {
    return &*a == &*b;
}

} // namespace

bool number::constant(double& result) const {
    result = value;
    return true;
}

unresolved_call::unresolved_call(std::string name, int column, std::vector<ex> arguments)
    : basic(greatest_depth(arguments) + 1),
      name(std::move(name)),
      column(column),
      arguments(std::move(arguments)) {}

ex unresolved_call::rebuild(mapping& map, const ex& self) const {
    std::vector<ex> mapped;
    mapped.reserve(arguments.size());
    for (const ex& argument : arguments)
        mapped.push_back(map(argument));
    if (std::equal(mapped.begin(), mapped.end(), arguments.begin(), same)) return self;
    return unresolved_call(name, column, std::move(mapped));
}

ex minus::rebuild(mapping& map, const ex& self) const {
    const ex mapped = map(a);
    return same(mapped, a) ? self : ex(minus(mapped));
}

bool minus::constant(double& result) const {
    const double* operand = a->number_value();
    if (!operand) return false;
    result = -*operand;
    return true;
}

binary::binary(const ex& a, const ex& b)
    : basic(std::max(a->depth(), b->depth()) + 1),
      a(a),
      b(b) {}

bool binary::constant(double& result) const {
    const double* x = a->number_value();
    const double* y = b->number_value();
    if (!x || !y) return false;
    result = value(*x, *y);
    return true;
}

template<class Operation>
ex binary::of_mapped(mapping& map, const ex& self) const {
    const ex left = map(a);
    const ex right = map(b);
    return same(left, a) && same(right, b) ? self : ex(Operation(left, right));
}

ex add::rebuild(mapping& map, const ex& self) const {
    return of_mapped<add>(map, self);
}
ex sub::rebuild(mapping& map, const ex& self) const {
    return of_mapped<sub>(map, self);
}
ex mul::rebuild(mapping& map, const ex& self) const {
    return of_mapped<mul>(map, self);
}
ex divide::rebuild(mapping& map, const ex& self) const {
    return of_mapped<divide>(map, self);
}
ex power::rebuild(mapping& map, const ex& self) const {
    return of_mapped<power>(map, self);
}

ex function::rebuild(mapping& map, const ex& self) const {
    const ex mapped = map(a);
    return same(mapped, a) ? self : ex(function(id, mapped));
}

bool function::constant(double& result) const {
    const double* operand = a->number_value();
    if (!operand) return false;
    result = apply(id, *operand);
    return true;
}

} // namespace symbolic
