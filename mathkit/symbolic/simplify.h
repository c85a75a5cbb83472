// SPDX-License-Identifier: MIT
// Simplification: what can be left out of an expression without a change of its value.
#pragma once

#include "mathkit/symbolic/ex.h"

namespace symbolic {

/// The expression without sums with 0, products with 0 and 1, and powers to 0 and 1. It has the
/// same value wherever its parts are finite: 0 * (1/t) becomes 0 at t = 0 too.
ex simplify_0_1(const ex& e);

/// The expression with every part that consists of numbers replaced by its value, 1/0 by infinity.
ex simplify_constants(const ex& e);

// The operations, with the rules of simplify_0_1 applied to the one node that is made. Derivatives
// are built from these: without them they would consist mostly of products with 0 and 1.
ex sum(const ex& a, const ex& b);
ex difference(const ex& a, const ex& b);
ex product(const ex& a, const ex& b);
ex quotient(const ex& a, const ex& b);
ex power_of(const ex& a, const ex& b);
ex negative(const ex& a);

} // namespace symbolic
