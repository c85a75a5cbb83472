// SPDX-License-Identifier: MIT
// What a command would cost.
#include "billiard/batch/dry_run.h"

#include "billiard/batch/progress.h"

#include <chrono>
#include <thread>

namespace batch {

namespace {

// A trial of the first blocks by one thread.
struct trial {
    double seconds = 0;
    double bounces = 0;
    bool whole = true; ///< it was all there is to do
};

trial try_out(task& work) {
    using clock = std::chrono::steady_clock;
    constexpr auto long_enough = std::chrono::milliseconds(200);
    work_monitor monitor;
    // A block may take hours: the monitor ends it.
    std::thread bell([&] {
        std::this_thread::sleep_for(long_enough);
        monitor.stop = true;
    });
    table_shelf tables(work.curve);
    trial done;
    const auto begun = clock::now();
    while (const std::unique_ptr<block> next = work.job->next()) {
        done.whole = !monitor.stop;
        if (!done.whole) break;
        next->compute(tables, monitor);
        done.whole = !monitor.stop;
    }
    done.seconds = std::chrono::duration<double>(clock::now() - begun).count();
    done.bounces = static_cast<double>(monitor.bounces);
    bell.join();
    return done;
}

std::string count_text(std::int64_t n) {
    return n < 0 ? "known after the search" : std::to_string(n);
}

} // namespace

std::string dry_run(task& work, int threads) {
    const job_size size = work.job->size();
    const trial done = try_out(work);
    const double all = static_cast<double>(size.bounces) * done.seconds / done.bounces / threads;
    return "rows: " + count_text(size.rows) + "\nbounces: " + std::to_string(size.bounces) +
           "\ntime: about " + duration_text(done.whole ? done.seconds : all) + " with " +
           std::to_string(threads) + (threads == 1 ? " thread\n" : " threads\n");
}

} // namespace batch
