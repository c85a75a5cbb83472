// SPDX-License-Identifier: MIT
// A command as work: its curve, its starts, its job.
#include "billiard/batch/task.h"

#include "billiard/batch/command_values.h"
#include "billiard/batch/curve_job.h"
#include "billiard/batch/errors.h"
#include "billiard/batch/map_job.h"
#include "billiard/batch/orbit_job.h"
#include "billiard/batch/periodic_job.h"
#include "billiard/batch/scan_job.h"

namespace batch {

namespace {

constexpr std::int64_t most_orders = 1000;

start_list starts_for(const command& c) {
    if (c.verb == "scan") return survey_starts_of(c);
    if (c.verb == "periodic") return search_starts_of(c);
    if (c.verb == "curve") return {};
    return starts_of(c);
}

std::unique_ptr<row_job> job_for(const command& c, const curve_word& curve,
                                 const start_list& starts) {
    const shard part = shard_of(c);
    if (c.verb == "curve") return std::make_unique<curve_job>(part);
    if (c.verb == "periodic") {
        const auto orders = static_cast<int>(count_of(c, "--order", 4, most_orders));
        return std::make_unique<periodic_job>(starts, orders, part);
    }
    const std::int64_t n = bounces_of(c);
    if (c.verb == "orbit") return std::make_unique<orbit_job>(starts, n, part);
    if (c.verb == "map") return std::make_unique<map_job>(starts, n, part, threads_of(c));
    return std::make_unique<scan_job>(curve, starts, n, threshold_of(c), part);
}

} // namespace

task::task(const command& c)
    : curve(c.curve, c.values("--let")),
      starts(starts_for(c)),
      job(job_for(c, curve, starts)) {
    if (c.verb != "scan" && !curve.range_names().empty()) {
        throw usage_error(c.verb + " takes one curve: the range of '" +
                          curve.range_names().front() + "' is for scan");
    }
    curve.billiard(0); // refuses what is no boundary
}

} // namespace batch
