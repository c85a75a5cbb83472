// SPDX-License-Identifier: MIT
// How large a formula may grow before it is refused.
#pragma once

namespace symbolic {

// Everything that walks an expression recurses to its depth, and a derivative grows with what it
// is taken of. These limits keep the stack and the memory bounded for whatever text is typed; a
// formula that a person writes stays far below each of them.

/// Characters of a formula's text. It bounds the cost of one evaluation too: the table of a hostile
/// curve takes a million of them while the user waits.
inline constexpr int max_text_length = 2'000;

/// Levels of an expression, and open brackets of a text. A chain such as 1+1+1+... adds a level for
/// each of its terms.
inline constexpr int max_depth = 500;

/// Nodes of all expressions that are alive at one time: a formula together with its derivatives.
inline constexpr int max_nodes = 100'000;

/// Intermediate results that one compiled list keeps at a time.
inline constexpr int max_stack = 60'000;

} // namespace symbolic
