// SPDX-License-Identifier: MIT
// Walks over an expression that rebuild it with something changed.
#pragma once

#include "mathkit/symbolic/ex.h"
#include "mathkit/symbolic/lst.h"

#include <unordered_map>

namespace symbolic {

/// Maps an expression node by node. A node that is shared is mapped once, and the results are
/// shared as the originals were: derivatives are small only as long as this holds.
class mapping {
public:
    /// `level` is the number of levels above the first expression mapped.
    explicit mapping(int level = 0) : level(level) {}
    mapping(const mapping&) = delete;
    mapping& operator=(const mapping&) = delete;
    virtual ~mapping() = default;

    ex operator()(const ex& e);

protected:
    /// What becomes of one expression; e->rebuild(*this, e) maps its operands.
    virtual ex image(const ex& e) = 0;

    int level; ///< levels above the expression that is being mapped

private:
    std::unordered_map<const basic*, ex> done;
};

} // namespace symbolic
