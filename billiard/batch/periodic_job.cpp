// SPDX-License-Identifier: MIT
// The verb "periodic": the periodic points that a search finds.
#include "billiard/batch/periodic_job.h"

#include "billiard/batch/number_text.h"

#include <algorithm>
#include <iterator>

namespace batch {

namespace {

constexpr std::int64_t slice_starts = 256;

// The first order of a part. The work of a search grows with its order; an order belongs to the
// part in which the middle of its work lies.
int first_order(int orders, const shard& part, std::int64_t number) {
    const auto work = [](double q) { return q * (q + 1) / 2; };
    const double before =
        work(orders) * static_cast<double>(number) / static_cast<double>(part.parts);
    int order = 1;
    while (order <= orders && work(order - 0.5) < before)
        ++order;
    return order;
}

void append_row(std::string& text, const periodic_row& row) {
    text += std::to_string(row.order);
    for (const double x : {row.S, row.P, row.phi, row.alpha, row.trace})
        text += ',' + real_text(x);
    text += std::string(",") + name_of(row.kind) + ',' + real_text(row.residual) + '\n';
}

} // namespace

// The search of one order from some of the starts.
class periodic_job::slice : public block {
public:
    slice(periodic_job& job, int order, std::int64_t first, std::int64_t count)
        : job(job),
          order(order),
          first(first),
          count(count) {
        units = order * count;
    }

    void compute(table_shelf& tables, work_monitor& monitor) override {
        TBilliardMap& map = tables.table(0);
        std::vector<phase_point> points;
        for (std::int64_t i = first; i < first + count; ++i) {
            const start from = job.starts.at(i, map);
            points.push_back({from.phi, from.alpha});
        }
        found = search_periodic(map, points, order, monitor);
    }

    std::string take_rows() override {
        std::move(found.begin(), found.end(), std::back_inserter(job.found));
        job.found = distinct(std::move(job.found)); // memory for each orbit once
        return first + count < job.starts.size() ? std::string() : job.rows_of_order();
    }

private:
    periodic_job& job;
    const int order;
    const std::int64_t first, count;
    std::vector<periodic_orbit> found;
};

periodic_job::periodic_job(const start_list& starts, int orders, shard part)
    : starts(starts),
      order(first_order(orders, part, part.part)),
      last_order(first_order(orders, part, part.part + 1) - 1) {}

std::int64_t periodic_job::units() const {
    std::int64_t orders = 0;
    for (int q = order; q <= last_order; ++q)
        orders += q;
    return times(orders, starts.size());
}

job_size periodic_job::size() const {
    constexpr std::int64_t usual_bounces = 40; // of one search, for each of its order
    return {-1, times(units(), usual_bounces)};
}

std::unique_ptr<block> periodic_job::next() {
    if (order > last_order) return nullptr;
    const std::int64_t count = std::min(slice_starts, starts.size() - next_start);
    auto next = std::make_unique<slice>(*this, order, next_start, count);
    next_start += count;
    if (next_start == starts.size()) {
        next_start = 0;
        ++order;
    }
    return next;
}

std::string periodic_job::rows_of_order() {
    std::string text;
    for (const periodic_orbit& orbit : found) {
        for (const periodic_row& row : orbit.points) {
            if (!is_left_out()) append_row(text, row);
        }
    }
    found.clear();
    return text;
}

bool periodic_job::is_left_out() {
    if (rows_to_leave_out == 0) return false;
    --rows_to_leave_out;
    return true;
}

} // namespace batch
