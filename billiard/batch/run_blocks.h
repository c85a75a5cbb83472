// SPDX-License-Identifier: MIT
// Works the blocks of a job by threads and hands their rows on in order.
#pragma once

#include "billiard/batch/row_job.h"

#include <functional>
#include <string_view>

namespace batch {

/// What a finished run tells.
struct run_outcome {
    std::int64_t ended_early = 0; ///< orbits that failed on their way
};

/// Takes all blocks of the job, works them by `threads` threads, and calls `write` with their rows
/// in the order of the blocks. At most a few blocks for each thread are held at a time.
///
/// `watch` is called in the calling thread some ten times a second, with the units whose rows are
/// written. Once monitor.stop is set the rest is left. What a thread throws ends the run and is
/// thrown on.
run_outcome run_blocks(row_job& job, const curve_word& curve, int threads, work_monitor& monitor,
                       const std::function<void(std::string_view)>& write,
                       const std::function<void(std::int64_t)>& watch);

} // namespace batch
