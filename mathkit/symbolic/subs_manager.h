// SPDX-License-Identifier: MIT
// The names of the formula language and their meanings.
#pragma once

#include "mathkit/symbolic/lst.h"

namespace symbolic {

/// Two lists for ex::eval: names, and at the same places what they mean. Both start empty.
class subs_manager {
public:
    /// Adds the constants: pi, and e, the base of the natural logarithm.
    void set_math_constants();

    /// Adds all functions of function_table.
    void set_experimental_functions();

    lst first;  ///< the names, as variables
    lst second; ///< second[i] is the meaning of first[i]
};

} // namespace symbolic
