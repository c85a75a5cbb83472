// SPDX-License-Identifier: MIT
// The verb "curve": the table itself, in one row.
#pragma once

#include "billiard/batch/row_job.h"

namespace batch {

class curve_job : public row_job {
public:
    std::string columns() const override {
        return "circumference,area,x1,y1,x2,y2,convex,inflections,mean_chord";
    }
    job_size size() const override { return {1, 0}; }
    void leave_out(const written_rows&) override {}
    std::unique_ptr<block> next() override;
    std::int64_t units() const override { return 1; }

private:
    bool taken = false;
};

} // namespace batch
