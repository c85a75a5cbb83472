// SPDX-License-Identifier: MIT
// The verb "map": one verdict for each start.
#include "billiard/batch/map_job.h"

#include "billiard/batch/errors.h"
#include "billiard/batch/number_text.h"
#include "billiard/batch/orbit_verdict.h"
#include "billiard/batch/starts_block.h"

#include <algorithm>
#include <vector>

namespace batch {

namespace {

void append_row(std::string& text, const start& from, const orbit_verdict& verdict) {
    char row[6 * (longest_number + 1)];
    char* end = put_real(row, from.S);
    for (const double x : {from.P, verdict.lyapunov, verdict.rotation, verdict.chord}) {
        *end++ = ',';
        end = put_real(end, x);
    }
    *end++ = ',';
    end = put_count(end, verdict.bounces);
    *end++ = '\n';
    text.append(row, end);
}

class verdict_block : public starts_block {
public:
    using starts_block::starts_block;

    void compute(table_shelf& tables, work_monitor& monitor) override {
        TBilliardMap& map = tables.table(0);
        std::vector<start> from;
        std::vector<phase_point> points;
        for (std::int64_t i = first; i < first + units; ++i) {
            from.push_back(starts.at(i, map));
            points.push_back({from.back().phi, from.back().alpha});
        }
        std::vector<orbit_verdict> verdicts(points.size());
        judge(map, points, n, verdicts, monitor);
        for (std::size_t i = 0; i < verdicts.size(); ++i) {
            append_row(text, from[i], verdicts[i]);
            if (verdicts[i].bounces < n) ++ended_early;
        }
    }
};

} // namespace

std::int64_t starts_in_block(std::int64_t n, std::int64_t total, int threads) {
    constexpr std::int64_t wanted_bounces = 1 << 18; // some 60 ms
    constexpr std::int64_t side_by_side = 16;        // orbits that the judge works together
    constexpr std::int64_t most = 1024;
    const std::int64_t share = std::max<std::int64_t>(1, total / threads);
    return std::min({std::max(wanted_bounces / n, side_by_side), share, most});
}

map_job::map_job(const start_list& starts, std::int64_t n, shard part, int threads)
    : starts(starts),
      n(n),
      begin(part.begin(starts.size())),
      end(part.end(starts.size())),
      block_starts(starts_in_block(n, end - begin, threads)) {}

void map_job::leave_out(const written_rows& rows) {
    if (rows.count > end - begin) throw usage_error("the file has more rows than this command");
    begin += rows.count;
}

std::unique_ptr<block> map_job::next() {
    if (begin == end) return nullptr;
    const std::int64_t count = std::min(block_starts, end - begin);
    begin += count;
    return std::make_unique<verdict_block>(starts, n, begin - count, count);
}

} // namespace batch
