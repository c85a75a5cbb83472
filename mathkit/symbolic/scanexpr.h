// SPDX-License-Identifier: MIT
// The formula language: from a text to an expression.
#pragma once

#include "mathkit/symbolic/ex.h"

namespace symbolic {

/// Parses a formula in the one variable t.
///
///     formula  = sum
///     sum      = product { ( "+" | "-" ) product }
///     product  = signed { ( "*" | "/" ) signed }
///     signed   = ( "+" | "-" ) signed | power
///     power    = operand [ "^" signed ]
///     operand  = number | "t" | constant | function arguments | "(" sum ")"
///     arguments = "(" sum { "," sum } ")"
///     number   = digits with an optional point and an optional exponent: 2, .5, 1e-3
///     constant, function = letter { letter | digit | "_" }
///
/// Sums and products group from the left, powers from the right: 2^3^2 = 2^9. A sign binds weaker
/// than a power and stronger than a product: -t^2 = -(t^2), 2^-1 = 1/2, 2*-t = -2*t. White space
/// may stand anywhere but inside a number or a name. Upper and lower case differ.
///
/// The names of constants and functions stay open in the result: ex::eval with the lists of a
/// subs_manager gives them their meanings, and refuses the ones that have none.
///
/// Throws TError on anything else, also on a null or empty text and on one beyond the limits of
/// limits.h. Its text tells what was expected, what was found, and the column, 1 for the first
/// character: "missing ')' at column 6 for the '(' at column 4".
ex scanexpr(const char* text);

} // namespace symbolic
