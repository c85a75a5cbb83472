// SPDX-License-Identifier: MIT
// The two ways in which a run fails, as the program's status tells them.
#pragma once

#include <stdexcept>

namespace batch {

/// The command is wrong: nothing was written. Status 2.
struct usage_error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The run went wrong, as on a full disk: whole rows are kept. Status 1.
struct run_error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace batch
