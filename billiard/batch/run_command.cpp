// SPDX-License-Identifier: MIT
// Carries a command out.
#include "billiard/batch/run_command.h"

#include "billiard/batch/command_values.h"
#include "billiard/batch/dry_run.h"
#include "billiard/batch/errors.h"
#include "billiard/batch/help.h"
#include "billiard/batch/number_text.h"
#include "billiard/batch/progress.h"
#include "billiard/batch/run_blocks.h"
#include "billiard/batch/signals.h"
#include "billiard/batch/task.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace batch {

namespace {

constexpr const char* standard_output = "-";

// Two lines that name the work, the same for all parts of it, and the names of the columns.
std::string title_of(const command& c) {
    return std::string(program_version) + "\n# " + c.deciding_words();
}
std::string head_of(const command& c, const row_job& job) {
    if (shard_of(c).part > 0) return {}; // it stands in the first part
    return "# " + title_of(c) + "\n" + job.columns() + "\n";
}

std::string first_row(const command& c) {
    task again(c);
    work_monitor monitor;
    table_shelf tables(again.curve);
    while (const std::unique_ptr<block> next = again.job->next()) {
        next->compute(tables, monitor);
        const std::string rows = next->take_rows();
        if (!rows.empty()) return rows.substr(0, rows.find('\n'));
    }
    return {};
}

std::unique_ptr<row_file> opened_output(const command& c, const std::string& name, row_job& job) {
    const std::string head = head_of(c, job);
    std::unique_ptr<row_file> output;
    if (c.has("--resume")) {
        written_rows found;
        output = std::make_unique<row_file>(name, head, found);
        // A part without a head is known by its first row alone.
        if (head.empty() && found.count > 0 && found.first != first_row(c)) {
            throw usage_error(name + row_file::not_ours);
        }
        job.leave_out(found);
        if (!output->is_empty()) return output;
    } else if (name == standard_output) {
        output = std::make_unique<row_file>();
    } else {
        output = std::make_unique<row_file>(name);
    }
    output->write(head);
    return output;
}

int threads_for(const command& c, const row_job& job) {
    return static_cast<int>(std::min<std::int64_t>(threads_of(c), job.most_threads()));
}

void write_rows(const command& c, task& work, row_file& output) {
    const int threads = threads_for(c, *work.job);
    const auto all = static_cast<double>(std::max<std::int64_t>(1, work.job->units()));
    const auto bounces = static_cast<double>(std::max<std::int64_t>(1, work.job->size().bounces));
    work_monitor monitor;
    progress_line progress(progress_of(c));
    double share = 0;
    int calls_since_signal = 0;
    set_monitor(&monitor);
    const run_outcome outcome = run_blocks(
        *work.job, work.curve, threads, monitor, [&](std::string_view rows) { output.write(rows); },
        [&](std::int64_t units) {
            // Rows tell it where orbits end early, bounces where one row takes hours.
            const double of_bounces = std::min(1.0, static_cast<double>(monitor.bounces) / bounces);
            share = std::max(static_cast<double>(units) / all, of_bounces);
            progress.show(share, monitor.bounces);
            // A reader that has stopped reading holds a thread in its write for ever.
            constexpr int patience = 20;
            if (signal_status() != 0 && ++calls_since_signal > patience) {
                std::_Exit(signal_status());
            }
        });
    set_monitor(nullptr);
    output.close();
    progress.finish(signal_status() == 0 ? 1 : share, monitor.bounces);
    if (outcome.ended_early > 0) {
        std::fprintf(stderr, "billiard-batch: %lld of the orbits ended early, as in a corner\n",
                     static_cast<long long>(outcome.ended_early));
    }
}

int run_to_rows(const command& c, task& work) {
    const std::string name = c.value("-o").value_or(standard_output);
    if (c.has("--resume") && name == standard_output) {
        throw usage_error("--resume goes on with a file, which -o names");
    }
    write_rows(c, work, *opened_output(c, name, *work.job));
    return signal_status();
}

// A picture's rows stand beside it until it is whole: so it can be resumed as rows can, and takes
// no memory.
int run_to_picture(const command& c, task& work, picture_plan plan) {
    const std::string name = *c.value("-o");
    if (std::filesystem::is_directory(name)) throw usage_error(name + ": Is a directory");
    const std::string rows_name = name + ".rows";
    plan.title = title_of(c);
    write_rows(c, work, *opened_output(c, rows_name, *work.job));
    if (signal_status() != 0) return signal_status();
    const auto [low, high] = draw_picture(plan, rows_name, name);
    std::filesystem::remove(rows_name);
    std::fprintf(stderr, "billiard-batch: %s from %s to %s\n",
                 c.value("--show").value_or("lyapunov").c_str(), real_text(low).c_str(),
                 real_text(high).c_str());
    return 0;
}

} // namespace

int run_command(const command& c) {
    threads_of(c);
    progress_of(c);
    const std::optional<picture_plan> picture = picture_of(c);
    task work(c);
    if (c.has("--dry-run")) {
        row_file output;
        output.write(dry_run(work, threads_for(c, *work.job)));
        output.close();
        return 0;
    }
    return picture ? run_to_picture(c, work, *picture) : run_to_rows(c, work);
}

} // namespace batch
