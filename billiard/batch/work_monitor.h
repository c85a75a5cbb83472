// SPDX-License-Identifier: MIT
// What threads at work and the thread that watches them tell each other.
#pragma once

#include <atomic>
#include <cstdint>

namespace batch {

/// Shared by all threads of a run.
struct work_monitor {
    std::atomic<bool> stop{false};        ///< set once: leave off, what is unfinished is not wanted
    std::atomic<std::int64_t> bounces{0}; ///< done so far, for the progress line
};

} // namespace batch
