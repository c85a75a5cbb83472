// SPDX-License-Identifier: MIT
// What a verb is to the threads that work on it: rows, cut into blocks.
#pragma once

#include "billiard/batch/curve_word.h"
#include "billiard/batch/row_file.h"
#include "billiard/batch/work_monitor.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <string>

namespace batch {

/// The tables of one thread: the one that was asked for last is kept.
class table_shelf {
public:
    explicit table_shelf(const curve_word& curve) : curve(curve) {}

    /// The table of combination i; its point is any.
    TBilliardMap& table(std::int64_t i) {
        if (!kept || i != number) kept = curve.billiard(i);
        number = i;
        return *kept;
    }

private:
    const curve_word& curve;
    std::unique_ptr<TBilliardMap> kept;
    std::int64_t number = 0;
};

/// A piece of a job, small enough to wait in memory for its turn.
class block {
public:
    virtual ~block() = default;

    /// Works the block, in any thread and beside other blocks.
    virtual void compute(table_shelf& tables, work_monitor& monitor) = 0;

    /// The rows; called once, block by block in their order.
    virtual std::string take_rows() = 0;

    std::int64_t ended_early = 0; ///< orbits of this block that failed, once it is computed
    std::int64_t units = 0;       ///< share of the job's units
};

/// a b, or the largest number where that is larger; neither is negative.
inline std::int64_t times(std::int64_t a, std::int64_t b) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    return b != 0 && a > most / b ? most : a * b;
}

/// How much a job is.
struct job_size {
    std::int64_t rows = -1;   ///< -1: not known before
    std::int64_t bounces = 0; ///< at most
};

/// The K-th of N parts, from 0.
struct shard {
    std::int64_t part = 0, parts = 1;

    /// Where this part begins and ends among `count` equal units.
    std::int64_t begin(std::int64_t count) const { return cut(count, part); }
    std::int64_t end(std::int64_t count) const { return cut(count, part + 1); }

private:
    std::int64_t cut(std::int64_t count, std::int64_t k) const {
        // count / parts * k would lose the rest, count * k may overflow.
        return count / parts * k + count % parts * k / parts;
    }
};

/// The rows of a run.
class row_job {
public:
    virtual ~row_job() = default;

    virtual std::string columns() const = 0;
    virtual job_size size() const = 0;

    /// Leaves out the rows that are written already. Throws usage_error where they cannot be
    /// rows of this job. To be called before the first block is taken.
    virtual void leave_out(const written_rows& rows) = 0;

    /// The next block in order; null when there is none. Called by one thread at a time.
    virtual std::unique_ptr<block> next() = 0;

    /// Of all units the blocks' units are a share.
    virtual std::int64_t units() const = 0;

    /// More threads than these would only wait.
    virtual std::int64_t most_threads() const { return std::numeric_limits<std::int64_t>::max(); }
};

} // namespace batch
