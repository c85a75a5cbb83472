// SPDX-License-Identifier: MIT
// Symbolic differentiation.
#pragma once

#include "mathkit/symbolic/ex.h"
#include "mathkit/symbolic/nodes.h"

#include <unordered_map>

namespace symbolic {

/// One run of differentiation: differentiates every shared node once, so that the derivative of a
/// shared expression is shared again.
class derivation {
public:
    explicit derivation(const var& x) : x(x) {}

    /// The derivative of e by x.
    ex operator()(const ex& e);

    const var& x;

private:
    std::unordered_map<const basic*, ex> done;
};

} // namespace symbolic
