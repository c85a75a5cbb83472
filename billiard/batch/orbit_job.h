// SPDX-License-Identifier: MIT
// The verb "orbit": every bounce of each start.
#pragma once

#include "billiard/batch/orbit_rows.h"
#include "billiard/batch/row_job.h"
#include "billiard/batch/start_list.h"

#include <memory>
#include <vector>

namespace batch {

struct orbit_chain;

/// A row for each bounce, bounce 0 the start.
class orbit_job : public row_job {
public:
    /// n bounces of each of the starts, which must outlive the job.
    orbit_job(const start_list& starts, std::int64_t n, shard part);

    std::string columns() const override { return orbit_rows::columns; }
    job_size size() const override;
    void leave_out(const written_rows& rows) override;
    std::unique_ptr<block> next() override;
    std::int64_t units() const override { return end - orbit + (chain ? 1 : 0); }
    std::int64_t most_threads() const override;

private:
    void begin_chain();

    const start_list& starts;
    const std::int64_t n;
    const std::int64_t begin, end;      ///< the orbits of the part
    std::int64_t orbit;                 ///< the next to be begun
    std::shared_ptr<orbit_chain> chain; ///< a long orbit that is on its way
};

} // namespace batch
