// SPDX-License-Identifier: MIT
// The verb "curve": the table itself, in one row.
#pragma once

#include "billiard/batch/row_job.h"

namespace batch {

/// One row, which stands in the last of several parts.
class curve_job : public row_job {
public:
    explicit curve_job(shard part) : rows(part.end(1) - part.begin(1)) {}

    std::string columns() const override {
        return "circumference,area,x1,y1,x2,y2,convex,inflections,mean_chord";
    }
    job_size size() const override { return {rows, 0}; }
    void leave_out(const written_rows& written) override;
    std::unique_ptr<block> next() override;
    std::int64_t units() const override { return rows; }

private:
    std::int64_t rows; ///< left to write
};

} // namespace batch
