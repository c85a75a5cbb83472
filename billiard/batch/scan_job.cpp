// SPDX-License-Identifier: MIT
// The verb "scan": the chaotic share of the section over the values of parameters.
//
// Notes: the starts of a row are cut into slices, so that a few rows of many starts occupy all
// threads. How they are cut, and so in which order sums are added up, depends on -n alone: the
// bytes do not depend on the threads.
#include "billiard/batch/scan_job.h"

#include "billiard/batch/errors.h"
#include "billiard/batch/number_text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace batch {

namespace {

constexpr std::int64_t slice_bounces = 1 << 18;
constexpr std::int64_t least_slice = 16; // orbits that the judge works side by side

} // namespace

void survey::add(const orbit_verdict& verdict, std::optional<double> threshold) {
    if (verdict.bounces == 0) return;
    const auto length = static_cast<double>(verdict.bounces);
    bounces += length;
    way += verdict.chord * length;
    if (std::isnan(verdict.lyapunov)) return;
    ++orbits;
    exponents += verdict.lyapunov;
    if (verdict.lyapunov > threshold.value_or(chaos_threshold(verdict.bounces))) ++above;
}

void survey::add(const survey& other) {
    orbits += other.orbits;
    above += other.above;
    bounces += other.bounces;
    exponents += other.exponents;
    way += other.way;
}

// Some of the starts on one table.
class scan_job::slice : public block {
public:
    slice(scan_job& job, std::int64_t row, std::int64_t number)
        : job(job),
          row(row),
          first(number * job.slice_starts),
          count(std::min(job.slice_starts, job.starts.size() - first)) {
        units = 1;
    }

    void compute(table_shelf& tables, work_monitor& monitor) override {
        TBilliardMap* map = nullptr;
        try {
            map = &tables.table(row);
        } catch (const usage_error&) { // no boundary in the midst of good ones: a row without
            return;                    // numbers
        }
        if (first == 0) facts = facts_of(*map);
        std::vector<phase_point> points;
        for (std::int64_t i = first; i < first + count; ++i) {
            const start from = job.starts.at(i, *map);
            points.push_back({from.phi, from.alpha});
        }
        std::vector<orbit_verdict> verdicts(points.size());
        judge(*map, points, job.n, verdicts, monitor);
        for (const orbit_verdict& verdict : verdicts) {
            sum.add(verdict, job.threshold);
            if (verdict.bounces < job.n) ++ended_early;
        }
    }

    std::string take_rows() override {
        job.sum.add(sum);
        if (facts) job.facts = facts;
        if (first + count < job.starts.size()) return {};
        std::string text = row_text();
        job.sum = {};
        job.facts = {};
        return text;
    }

private:
    std::string row_text() const {
        constexpr double none = std::numeric_limits<double>::quiet_NaN();
        std::vector<double> numbers = job.curve.range_values(row);
        numbers.push_back(job.facts ? job.facts->circumference : none);
        numbers.push_back(job.facts ? job.facts->area : none);
        for (const double x :
             {job.sum.chord(), job.sum.lyapunov(), job.sum.chaotic(), job.sum.chaotic_error()})
            numbers.push_back(x);
        std::string text;
        for (const double x : numbers)
            text += real_text(x) + ',';
        text.back() = '\n';
        return text;
    }

    scan_job& job;
    const std::int64_t row, first, count;
    survey sum;
    std::optional<curve_facts> facts;
};

scan_job::scan_job(const curve_word& curve, const start_list& starts, std::int64_t n,
                   std::optional<double> threshold, shard part)
    : curve(curve),
      starts(starts),
      n(n),
      threshold(threshold),
      slice_starts(std::max(slice_bounces / n, least_slice)),
      slices((starts.size() - 1) / slice_starts + 1),
      begin(part.begin(curve.combinations())),
      end(part.end(curve.combinations())) {}

std::string scan_job::columns() const {
    std::string names;
    for (const std::string& name : curve.range_names())
        names += name + ',';
    return names + "circumference,area,chord,lyapunov,chaotic,chaotic_error";
}

job_size scan_job::size() const {
    return {end - begin, times(end - begin, times(starts.size(), n))};
}

void scan_job::leave_out(const written_rows& rows) {
    if (rows.count > end - begin) throw usage_error("the file has more rows than this command");
    begin += rows.count;
}

std::unique_ptr<block> scan_job::next() {
    if (begin == end) return nullptr;
    auto next = std::make_unique<slice>(*this, begin, next_slice);
    if (++next_slice == slices) {
        next_slice = 0;
        ++begin;
    }
    return next;
}

} // namespace batch
