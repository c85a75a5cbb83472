// SPDX-License-Identifier: MIT
// What a command would cost.
#pragma once

#include "billiard/batch/task.h"

#include <string>

namespace batch {

/// Rows, bounces and an estimate of the time with so many threads, each on a line. Works on the
/// job's first blocks for a fraction of a second; the task is of no use afterwards.
std::string dry_run(task& work, int threads);

} // namespace batch
