// SPDX-License-Identifier: MIT
// Lists of expressions, for substitution.
#pragma once

#include "mathkit/symbolic/ex.h"

#include <cstddef>
#include <vector>

namespace symbolic {

/// An ordered list of expressions: empty, or of one expression or variable, and grown by append.
class lst {
public:
    lst() = default;
    explicit lst(const ex& entry) : entries{entry} {}

    void append(const ex& entry) { entries.push_back(entry); }
    std::size_t size() const { return entries.size(); }
    const ex& operator[](std::size_t i) const { return entries[i]; }

private:
    std::vector<ex> entries;
};

} // namespace symbolic
