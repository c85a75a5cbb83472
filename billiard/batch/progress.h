// SPDX-License-Identifier: MIT
// The line on standard error that tells how far a run is.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace batch {

/// Tells share done, bounces per second and time left: on a terminal in one line that changes,
/// elsewhere in a line now and then.
class progress_line {
public:
    explicit progress_line(bool wanted);

    /// How far the run is: the share of its work, and its bounces.
    void show(double share, std::int64_t bounces);

    /// Tells the end, whole or not, and leaves the line.
    void finish(double share, std::int64_t bounces);

private:
    using clock = std::chrono::steady_clock;
    void print(double share, std::int64_t bounces);

    bool wanted, terminal;
    clock::time_point begun, told;
};

/// "1:05:09", "4:20" or "0:07".
std::string duration_text(double seconds);

} // namespace batch
