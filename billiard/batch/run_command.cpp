// SPDX-License-Identifier: MIT
// Carries a command out.
#include "billiard/batch/run_command.h"

#include "billiard/batch/command_values.h"
#include "billiard/batch/curve_word.h"
#include "billiard/batch/errors.h"
#include "billiard/batch/help.h"
#include "billiard/batch/orbit_job.h"
#include "billiard/batch/progress.h"
#include "billiard/batch/run_blocks.h"
#include "billiard/batch/signals.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <unistd.h>

namespace batch {

namespace {

// A job with what it refers to.
struct task {
    curve_word curve;
    start_list starts;
    std::unique_ptr<row_job> job;

    explicit task(const command& c) : curve(c.curve, c.values("--let")) {
        if (c.verb != "scan" && !curve.range_names().empty()) {
            throw usage_error(c.verb + " takes one curve: the range of '" +
                              curve.range_names().front() + "' is for scan");
        }
        if (c.verb != "orbit") throw run_error(c.verb + " is still to come");
        starts = starts_of(c);
        job = std::make_unique<orbit_job>(starts, bounces_of(c), shard_of(c));
        curve.billiard(0); // refuses what is no boundary
    }
};

// The lines above the rows; the parts after the first have none.
std::string head_of(const command& c, const row_job& job) {
    if (shard_of(c).part > 0) return {};
    return std::string("# ") + program_version + "\n# " + c.deciding_words() + "\n" +
           job.columns() + "\n";
}

// The first row of a job.
std::string first_row(task& of) {
    work_monitor monitor;
    table_shelf tables(of.curve);
    while (const std::unique_ptr<block> next = of.job->next()) {
        next->compute(tables, monitor);
        const std::string rows = next->take_rows();
        if (!rows.empty()) return rows.substr(0, rows.find('\n'));
    }
    return {};
}

// A part without a head is known by its first row alone.
void refuse_rows_of_others(const command& c, const std::string& file, const written_rows& found) {
    if (found.rows == 0) return;
    task again(c);
    if (first_row(again) == found.first) return;
    throw usage_error(file + " was made by another command or version; without --resume it is "
                             "written anew");
}

std::unique_ptr<row_file> opened_output(const command& c, row_job& job) {
    const std::string file = c.value("-o").value_or("-");
    const std::string head = head_of(c, job);
    const bool resume = c.has("--resume");
    if (resume && file == "-") throw usage_error("--resume goes on with a file, which -o names");
    std::unique_ptr<row_file> output;
    if (file == "-") {
        output = std::make_unique<row_file>();
        output->write(head);
    } else if (!resume) {
        output = std::make_unique<row_file>(file);
        output->write(head);
    } else {
        written_rows found;
        output = std::make_unique<row_file>(file, head, found);
        if (head.empty()) refuse_rows_of_others(c, file, found);
        job.leave_out(found);
        if (output->is_empty()) output->write(head);
    }
    return output;
}

} // namespace

int run_command(const command& c) {
    const int threads = threads_of(c);
    const bool show_progress = progress_of(c);
    task work(c);
    const std::unique_ptr<row_file> output = opened_output(c, *work.job);

    const auto all = static_cast<double>(std::max<std::int64_t>(1, work.job->units()));
    work_monitor monitor;
    set_monitor(&monitor);
    progress_line progress(show_progress, 0);
    double share = 0;
    const run_outcome outcome = run_blocks(
        *work.job, work.curve, threads, monitor,
        [&](std::string_view rows) { output->write(rows); },
        [&](std::int64_t units) {
            share = static_cast<double>(units) / all;
            progress.show(share, monitor.bounces);
        });
    set_monitor(nullptr);
    output->close();
    progress.finish(signal_status() == 0 ? 1 : share, monitor.bounces);
    if (outcome.ended_early > 0) {
        std::fprintf(stderr, "billiard-batch: %lld orbits ended early, in a corner or the origin\n",
                     static_cast<long long>(outcome.ended_early));
    }
    return signal_status();
}

} // namespace batch
