// SPDX-License-Identifier: MIT
// The walk that substitution, the resolving of names and simplification share.
#include "mathkit/symbolic/mapping.h"

namespace symbolic {

ex mapping::operator()(const ex& e) {
    const auto known = done.find(&*e);
    if (known != done.end()) return known->second;
    ++level;
    ex result = image(e);
    --level;
    done.emplace(&*e, result);
    return result;
}

} // namespace symbolic
