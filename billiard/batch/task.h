// SPDX-License-Identifier: MIT
// A command as work: its curve, its starts, its job.
#pragma once

#include "billiard/batch/command_line.h"
#include "billiard/batch/curve_word.h"
#include "billiard/batch/row_job.h"
#include "billiard/batch/start_list.h"

#include <memory>

namespace batch {

/// What a command asks for, judged but not begun.
class task {
public:
    /// Throws usage_error for all that can be wrong with a command but its files.
    explicit task(const command& c);
    task(const task&) = delete;
    task& operator=(const task&) = delete;

    const curve_word curve;
    const start_list starts;
    const std::unique_ptr<row_job> job; ///< refers to the other two
};

} // namespace batch
