// SPDX-License-Identifier: MIT
// Carries a command out.
#pragma once

#include "billiard/batch/command_line.h"

namespace batch {

/// Writes the rows of the command and answers the status of the program. Throws usage_error before
/// anything is written, run_error and closed_pipe where the writing ends early.
int run_command(const command& c);

} // namespace batch
