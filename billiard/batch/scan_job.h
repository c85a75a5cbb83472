// SPDX-License-Identifier: MIT
// The verb "scan": the chaotic share of the section over the values of parameters.
#pragma once

#include "billiard/batch/curve_facts.h"
#include "billiard/batch/orbit_verdict.h"
#include "billiard/batch/row_job.h"
#include "billiard/batch/start_list.h"

#include <optional>

namespace batch {

/// What the orbits of one table add up to.
class survey {
public:
    /// Counts an orbit, as chaotic if its exponent is above the threshold: without one, above what
    /// a regular orbit of its length may have. An orbit without an
    /// exponent counts for the chord alone.
    void add(const orbit_verdict& verdict, std::optional<double> threshold);
    void add(const survey& other);

    double chord() const { return way / bounces; }          ///< mean over all bounces
    double lyapunov() const { return exponents / count(); } ///< mean over all orbits
    double chaotic() const { return static_cast<double>(above) / count(); } ///< share of the orbits
    double chaotic_error() const { return binomial_error(above, orbits); }

private:
    double count() const { return static_cast<double>(orbits); }

    std::int64_t orbits = 0, above = 0;
    double bounces = 0, exponents = 0, way = 0; // sums
};

/// A row for each combination of the curve's ranges.
class scan_job : public row_job {
public:
    /// n bounces of each of the starts, on each table; what is referred to must outlive the job.
    scan_job(const curve_word& curve, const start_list& starts, std::int64_t n,
             std::optional<double> threshold, shard part);

    std::string columns() const override;
    job_size size() const override;
    void leave_out(const written_rows& rows) override;
    std::unique_ptr<block> next() override;
    std::int64_t units() const override { return times(end - begin, slices); }

private:
    class slice;

    const curve_word& curve;
    const start_list& starts;
    const std::int64_t n;
    const std::optional<double> threshold;
    const std::int64_t slice_starts;
    const std::int64_t slices; ///< of one row
    std::int64_t begin;        ///< the next slice's row
    const std::int64_t end;
    std::int64_t next_slice = 0;

    // What the slices of the row that is being delivered have given so far.
    survey sum;
    std::optional<curve_facts> facts;
};

} // namespace batch
