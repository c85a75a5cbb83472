// SPDX-License-Identifier: MIT
// Works the blocks of a job by threads and hands their rows on in order.
#include "billiard/batch/run_blocks.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace batch {

namespace {

// A block between its taking and its writing.
struct ticket {
    std::unique_ptr<block> work;
    bool computed = false;
};

class crew {
public:
    crew(row_job& job, const curve_word& curve, int threads, work_monitor& monitor,
         const std::function<void(std::string_view)>& write)
        : job(job),
          curve(curve),
          monitor(monitor),
          write(write),
          window(static_cast<std::size_t>(threads) * 2 + 2) {
        at_work = threads;
        hire(threads);
    }
    crew(const crew&) = delete;
    crew& operator=(const crew&) = delete;

    ~crew() {
        for (std::thread& worker : workers)
            worker.join();
    }

    // True when all threads have left, for which it waits a tenth of a second.
    bool finished() {
        std::unique_lock<std::mutex> lock(mutex);
        return changed.wait_for(lock, std::chrono::milliseconds(100), [&] { return at_work == 0; });
    }

    std::int64_t units_written() {
        const std::lock_guard<std::mutex> lock(mutex);
        return units;
    }

    // To be called when all threads have left.
    run_outcome outcome() const {
        if (failure) std::rethrow_exception(failure);
        return result;
    }

private:
    // Fewer threads do as well, where the system gives no more.
    void hire(int threads) {
        for (int i = 0; i < threads; ++i) {
            try {
                workers.emplace_back([this] { work(); });
            } catch (const std::system_error&) {
                if (i == 0) throw;
                const std::lock_guard<std::mutex> lock(mutex);
                at_work -= threads - i;
                return;
            }
        }
    }

    void work() {
        std::unique_lock<std::mutex> lock(mutex);
        try {
            table_shelf tables(curve);
            while (ticket* mine = take(lock)) {
                lock.unlock();
                mine->work->compute(tables, monitor);
                lock.lock();
                mine->computed = true;
                deliver(lock);
            }
        } catch (...) {
            if (!lock.owns_lock()) lock.lock();
            if (!failure) failure = std::current_exception();
            monitor.stop = true;
        }
        --at_work;
        changed.notify_all();
    }

    // The next block, once there is room for it; null at the end.
    ticket* take(std::unique_lock<std::mutex>& lock) {
        changed.wait(lock, [&] { return monitor.stop || tickets.size() < window; });
        if (monitor.stop || all_taken) return nullptr;
        std::unique_ptr<block> next = job.next();
        all_taken = next == nullptr;
        if (all_taken) return nullptr;
        tickets.push_back({std::move(next)});
        return &tickets.back(); // stays where it is: only the front is ever removed
    }

    // Writes what is ready at the front, unless another thread is writing: that one goes on.
    void deliver(std::unique_lock<std::mutex>& lock) {
        if (writing) return;
        writing = true;
        while (!tickets.empty() && tickets.front().computed && !monitor.stop) {
            const std::unique_ptr<block> done = std::move(tickets.front().work);
            tickets.pop_front();
            lock.unlock();
            write(done->take_rows());
            lock.lock();
            units += done->units;
            result.ended_early += done->ended_early;
            changed.notify_all();
        }
        writing = false;
    }

    row_job& job;
    const curve_word& curve;
    work_monitor& monitor;
    const std::function<void(std::string_view)>& write;
    const std::size_t window;

    std::mutex mutex; // of all that follows
    std::condition_variable changed;
    std::deque<ticket> tickets;
    bool all_taken = false;
    bool writing = false;
    int at_work = 0;
    std::int64_t units = 0;
    run_outcome result;
    std::exception_ptr failure;
    std::vector<std::thread> workers; // the last: they use what is above
};

} // namespace

run_outcome run_blocks(row_job& job, const curve_word& curve, int threads, work_monitor& monitor,
                       const std::function<void(std::string_view)>& write,
                       const std::function<void(std::int64_t)>& watch) {
    crew threads_at_work(job, curve, threads, monitor, write);
    while (!threads_at_work.finished())
        watch(threads_at_work.units_written());
    return threads_at_work.outcome();
}

} // namespace batch
