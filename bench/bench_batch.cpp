// SPDX-License-Identifier: MIT
// What the batch program adds to the bounce: verdicts, rows of text, threads.
#include "bench/curves.h"
#include "bench/figure_table.h"
#include "bench/interleaved.h"
#include "billiard/batch/orbit_verdict.h"
#include "billiard/radius-core/TBilliard.h"
#include "mathkit/TError.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace bench;

constexpr int orbit_count = 8, bounces_each = 500;

/// Starts spread over the section.
std::vector<batch::phase_point> starts_in(TBilliardMap& map) {
    std::vector<batch::phase_point> starts;
    for (int i = 0; i < orbit_count; ++i) {
        map.setPoint((i + 0.5) / orbit_count, 0.9 - 1.7 * ((3 * i) % orbit_count) / orbit_count);
        starts.push_back({map.phi, map.alpha});
    }
    return starts;
}

/// A table of its own for each benchmark: none goes on from what another has left.
struct contest {
    explicit contest(TRadiusFunction* F) : map(F), starts(starts_in(map)) {}

    void iterate() {
        TIterraMap& iterated = map;
        for (const batch::phase_point& start : starts) {
            map.setPhiAlpha(start.phi, start.alpha);
            try {
                for (int i = 0; i < bounces_each; ++i)
                    iterated.iterate();
            } catch (const TError&) { // all contenders end there
            }
        }
    }

    void judge() {
        std::vector<batch::orbit_verdict> verdicts(starts.size());
        batch::judge(map, starts, bounces_each, verdicts, monitor);
        benchmark::DoNotOptimize(verdicts.data());
    }

    TBilliardMap map;
    std::vector<batch::phase_point> starts;
    batch::work_monitor monitor;
};

template<class Work>
void add_benchmark(const std::string& name, TRadiusFunction* F, Work work) {
    const auto made = std::make_shared<contest>(F);
    benchmark::RegisterBenchmark(name.c_str(), [made, work](benchmark::State& state) {
        for (auto _ : state)
            work(*made);
    });
}

template<class Make>
void add_curve(figure_table& table, const std::string& name, Make make) {
    add_benchmark(name + "/iterate", make(), [](contest& c) { c.iterate(); });
    add_benchmark(name + "/judge", make(), [](contest& c) { c.judge(); });
    table.ratio(name + ": map, share of the rate of bare iterate", name + "/iterate",
                name + "/judge", at_least(0.75));
}

/// Seconds on the wall, and of all processors together, those of ended child programs included.
struct times {
    double wall = 0, processor = 0;
};

times now() {
    timespec own;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &own);
    rusage children;
    getrusage(RUSAGE_CHILDREN, &children);
    const auto seconds = [](const timeval& t) { return t.tv_sec + 1e-6 * t.tv_usec; };
    const auto wall = std::chrono::steady_clock::now().time_since_epoch();
    return {std::chrono::duration<double>(wall).count(), own.tv_sec + 1e-9 * own.tv_nsec +
                                                             seconds(children.ru_utime) +
                                                             seconds(children.ru_stime)};
}

/// The median times of one work over those of the other. On a busy machine only the processor's
/// mean something.
times ratio_of(int repetitions, const std::function<void()>& one,
               const std::function<void()>& other) {
    const auto measure = [&](const std::function<void()>& work, double times::*clock) {
        const times start = now();
        work();
        return now().*clock - start.*clock;
    };
    const auto ratio = [&](double times::*clock) {
        const interleaved_medians medians(
            repetitions, [&] { return measure(one, clock); },
            [&] { return measure(other, clock); });
        return medians.first / medians.second;
    };
    return {ratio(&times::wall), ratio(&times::processor)};
}

/// The same verdicts by one thread and by two, each with tables of its own.
void add_threads(figure_table& table) {
    contest first(new TOvalAFunction(2)), second(new TOvalAFunction(2));
    const auto many = [](contest& c) {
        for (int i = 0; i < 50; ++i)
            c.judge();
    };
    const auto by_one = [&] {
        many(first);
        many(second);
    };
    const auto by_two = [&] {
        std::thread other([&] { many(second); });
        many(first);
        other.join();
    };
    const times ratio = ratio_of(9, by_one, by_two);
    table.figure("map: two threads on a quiet machine, in times of the rate of one", ratio.wall,
                 at_least(1.85));
    table.figure("map: processor time of two threads, in times of one's", 1 / ratio.processor,
                 at_most(1.08));
}

/// The program's orbit to a file beside the same bounces that nobody writes down.
void add_orbit(figure_table& table, const std::string& name, const std::string& word,
               TRadiusFunction* F) {
    TBilliardMap map(F);
    const int bounces = 1'000'000;
    const auto unwritten = [&] {
        TIterraMap& iterated = map;
        double S, P;
        iterated.setPoint(0.5, 0.5);
        for (int i = 0; i < bounces; ++i) {
            iterated.iterate();
            iterated.getPoint(S, P);
            benchmark::DoNotOptimize(S);
            benchmark::DoNotOptimize(P);
        }
    };
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("bench_batch." + std::to_string(getpid()));
    const std::string command = std::string(BATCH_PROGRAM) + " orbit " + word + " -n " +
                                std::to_string(bounces) + " -o " + file.string();
    const auto written = [&] {
        if (std::system(command.c_str()) != 0) std::abort();
        std::filesystem::remove(file);
    };
    const times ratio = ratio_of(5, unwritten, written);
    table.figure(name + ": orbit to a file on a quiet machine, share of iterate + getPoint",
                 ratio.wall, at_least(0.6));
    table.note(name + ": processor time of orbit, in times of iterate + getPoint",
               1 / ratio.processor);
}

} // namespace

int main(int argc, char** argv) {
    figure_table table;
    for_each_curve([&](const char* name, auto make, const auto& /*inlined*/) {
        add_curve(table, name, make);
    });
    add_threads(table);
    add_orbit(table, "oval A 5", "oval-a:c=5", new TOvalAFunction(5));
    add_orbit(table, "ellipse 0.5", "ellipse:e=0.5", new TEllipseFunction(0.5));
    add_orbit(table, "stadium 1", "stadium:z=1", new TStadiumFunction(1));
    return table.run(argc, argv);
}
