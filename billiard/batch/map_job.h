// SPDX-License-Identifier: MIT
// The verb "map": one verdict for each start.
#pragma once

#include "billiard/batch/row_job.h"
#include "billiard/batch/start_list.h"

namespace batch {

/// A row for each start.
class map_job : public row_job {
public:
    static constexpr const char* all_columns = "S,P,lyapunov,rotation,chord,bounces";

    /// n bounces of each of the starts, which must outlive the job.
    map_job(const start_list& starts, std::int64_t n, shard part, int threads);

    std::string columns() const override { return all_columns; }
    job_size size() const override { return {end - begin, times(end - begin, n)}; }
    void leave_out(const written_rows& rows) override;
    std::unique_ptr<block> next() override;
    std::int64_t units() const override { return end - begin; }

private:
    const start_list& starts;
    const std::int64_t n;
    std::int64_t begin; ///< the next start
    const std::int64_t end;
    const std::int64_t block_starts;
};

/// How many starts of n bounces one block has: enough to be worth a block, few enough that `total`
/// starts occupy all threads.
std::int64_t starts_in_block(std::int64_t n, std::int64_t total, int threads);

} // namespace batch
