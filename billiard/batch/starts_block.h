// SPDX-License-Identifier: MIT
// A block whose rows are those of some starts in succession.
#pragma once

#include "billiard/batch/row_job.h"
#include "billiard/batch/start_list.h"

#include <cstdint>
#include <string>
#include <utility>

namespace batch {

/// `count` starts from `first` on, n bounces each; a unit is a start. compute() writes `text`.
class starts_block : public block {
public:
    /// The starts must outlive the block.
    starts_block(const start_list& starts, std::int64_t n, std::int64_t first, std::int64_t count)
        : starts(starts),
          n(n),
          first(first) {
        units = count;
    }

    std::string take_rows() override { return std::move(text); }

protected:
    const start_list& starts;
    const std::int64_t n, first;
    std::string text;
};

} // namespace batch
