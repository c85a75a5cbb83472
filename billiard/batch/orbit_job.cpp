// SPDX-License-Identifier: MIT
// The verb "orbit": every bounce of each start.
//
// Notes: a bounce needs the one before, but most of the time goes into the text of its row. A long
// orbit is cut into links: a thread takes the impact at which the link before has ended, follows
// the particle, leaves the last impact, and writes its rows while another thread follows the
// particle on. A link starts from phi and alpha alone, as they stand in the row before it: so the
// threads, and a run that goes on from a file, all come by the same digits.
#include "billiard/batch/orbit_job.h"

#include "billiard/batch/errors.h"
#include "billiard/batch/starts_block.h"
#include "mathkit/TError.h"

#include <algorithm>
#include <atomic>
#include <vector>

namespace batch {

namespace {

// Rows of a block: few enough for many blocks to wait, enough for threads not to meet too often.
// Links begin behind its multiples, and a continued file must hold the row before a link.
constexpr std::int64_t block_rows = 768;
static_assert(block_rows <= std::int64_t{written_rows::most_kept});
constexpr std::size_t usual_row = 160;

} // namespace

/// What the links of one orbit hand on.
struct orbit_chain {
    std::int64_t orbit = 0;
    std::int64_t bounce = 0;  ///< the last one of the links taken so far
    std::int64_t links = 0;   ///< their number
    std::int64_t written = 0; ///< the last bounce whose row stands already

    std::atomic<std::int64_t> next{0}; ///< the link that may begin; what follows is its own
    phase_point at{};                  ///< the impact before the link's first
    bool started = false;              ///< the row of the start is written

    std::atomic<bool> ended{false}; ///< the orbit has failed: there are no further bounces
};

namespace {

// The impact at a point of which the map shall know no more than phi and alpha.
impact stand_at(TBilliardMap& map, const phase_point& at) {
    map.setPhiAlpha(at.phi, at.alpha);
    map.forgetDeparture();
    return impact_of(map);
}

// The impacts that follow that at which the map stands: `count`, or fewer where the orbit fails.
std::vector<impact> follow(TBilliardMap& map, std::int64_t count) {
    std::vector<impact> impacts;
    impacts.reserve(static_cast<std::size_t>(count));
    try {
        while (static_cast<std::int64_t>(impacts.size()) < count) {
            map.iterate();
            impacts.push_back(impact_of(map));
        }
    } catch (const TError&) { // the rows before are the answer
    }
    return impacts;
}

// Whole orbits that together are no longer than a block.
class short_orbits : public starts_block {
public:
    using starts_block::starts_block;

    void compute(table_shelf& tables, work_monitor& monitor) override {
        TBilliardMap& map = tables.table(0);
        text.reserve(static_cast<std::size_t>((n + 1) * units) * usual_row);
        for (std::int64_t i = first; i < first + units; ++i) {
            const start from = starts.at(i, map);
            orbit_rows rows(map, i, text);
            rows.add_start(from, stand_at(map, {from.phi, from.alpha}));
            std::int64_t bounce = 0;
            for (const impact& next : follow(map, n))
                rows.add(++bounce, next);
            monitor.bounces += bounce;
            if (bounce < n) ++ended_early;
        }
    }
};

// A part of a long orbit.
class orbit_link : public block {
public:
    orbit_link(const start_list& starts, std::shared_ptr<orbit_chain> of, std::int64_t bounces,
               bool last)
        : starts(starts),
          chain(std::move(of)),
          number(chain->links++),
          before(chain->bounce),
          bounces(bounces) {
        chain->bounce += bounces;
        units = last ? 1 : 0;
    }

    void compute(table_shelf& tables, work_monitor& monitor) override {
        TBilliardMap& map = tables.table(0);
        text.reserve(static_cast<std::size_t>(bounces + 1) * usual_row);
        orbit_rows rows(map, chain->orbit, text);
        std::int64_t bounce = before;
        for (const impact& next : impacts_in_order(map, rows, monitor)) {
            if (++bounce > chain->written) {
                rows.add(bounce, next);
            } else {
                rows.go_on_from(next);
            }
        }
        monitor.bounces += bounce - before;
    }

    std::string take_rows() override { return std::move(text); }

private:
    // Held by one link at a time, and passed on to the next whatever happens in this one.
    class baton {
    public:
        explicit baton(const orbit_link& link) : chain(*link.chain) {
            std::int64_t now;
            while ((now = chain.next) != link.number)
                chain.next.wait(now);
        }
        baton(const baton&) = delete;
        baton& operator=(const baton&) = delete;
        ~baton() {
            ++chain.next;
            chain.next.notify_all();
        }

    private:
        orbit_chain& chain;
    };

    std::vector<impact> impacts_in_order(TBilliardMap& map, orbit_rows& rows,
                                         const work_monitor& monitor) {
        const baton held(*this);
        if (chain->ended || monitor.stop) {
            units = 0;
            return {};
        }
        if (chain->started) {
            rows.go_on_from(stand_at(map, chain->at));
        } else {
            const start from = starts.at(chain->orbit, map);
            rows.add_start(from, stand_at(map, {from.phi, from.alpha}));
            chain->started = true;
        }
        std::vector<impact> impacts = follow(map, bounces);
        if (!impacts.empty()) chain->at = impacts.back().at;
        if (static_cast<std::int64_t>(impacts.size()) < bounces) {
            ended_early = units = 1;
            chain->ended = true;
        }
        return impacts;
    }

    const start_list& starts;
    const std::shared_ptr<orbit_chain> chain;
    const std::int64_t number, before, bounces;
    std::string text;
};

// What a row of a file tells of its place in the work.
struct place {
    std::int64_t orbit = -1, bounce = -1; // -1: no such row
    phase_point at{};
};

place place_of(std::string_view row) {
    const auto columns = split(row, ',');
    if (columns.size() != 9) return {};
    const auto phi = parse_real(columns[4]), alpha = parse_real(columns[5]);
    if (!phi || !alpha) return {};
    return {
        parse_count(columns[0]).value_or(-1), parse_count(columns[1]).value_or(-1), {*phi, *alpha}};
}

} // namespace

orbit_job::orbit_job(const start_list& starts, std::int64_t n, shard part)
    : starts(starts),
      n(n),
      begin(part.begin(starts.size())),
      end(part.end(starts.size())),
      orbit(begin) {}

job_size orbit_job::size() const {
    const std::int64_t orbits = end - begin;
    return {times(orbits, n + 1), times(orbits, n)};
}

std::int64_t orbit_job::most_threads() const {
    constexpr std::int64_t of_chain = 3; // one goes ahead, two write rows: each takes about as long
    return n < block_rows ? row_job::most_threads()
                          : std::max<std::int64_t>(1, times(units(), of_chain));
}

void orbit_job::leave_out(const written_rows& rows) {
    if (rows.count == 0) return;
    const place last = place_of(rows.last.back());
    bool ours = last.orbit >= begin && last.orbit < end && last.bounce >= 0 && last.bounce <= n;
    const std::int64_t of_link = ours ? last.bounce % block_rows : 0;
    ours = ours && of_link < std::ssize(rows.last);
    const place before = ours ? place_of(rows.last[rows.last.size() - 1 - of_link]) : place{};
    ours = ours && before.orbit == last.orbit && before.bounce == last.bounce - of_link;
    if (!ours) throw usage_error("the last rows of the file are none of this command");

    orbit = last.orbit;
    begin_chain();
    chain->bounce = before.bounce;
    chain->written = last.bounce;
    chain->at = before.at;
    chain->started = true;
    if (last.bounce == n) chain = nullptr;
}

void orbit_job::begin_chain() {
    chain = std::make_shared<orbit_chain>();
    chain->orbit = orbit++;
}

std::unique_ptr<block> orbit_job::next() {
    if (chain && chain->ended) chain = nullptr;
    if (!chain) {
        if (orbit == end) return nullptr;
        if (n < block_rows) {
            const std::int64_t count = std::min(end - orbit, block_rows / (n + 1));
            orbit += count;
            return std::make_unique<short_orbits>(starts, n, orbit - count, count);
        }
        begin_chain();
    }
    const std::int64_t bounces = std::min(block_rows, n - chain->bounce);
    const bool last = chain->bounce + bounces == n;
    auto link = std::make_unique<orbit_link>(starts, chain, bounces, last);
    if (last) chain = nullptr;
    return link;
}

} // namespace batch
