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
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
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

double seconds_of(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The same verdicts by one thread and by two, each with tables of its own.
void add_threads(figure_table& table) {
    contest first(new TOvalAFunction(2)), second(new TOvalAFunction(2));
    const auto many = [](contest& c) {
        for (int i = 0; i < 50; ++i)
            c.judge();
    };
    const interleaved_medians seconds(
        9,
        [&] {
            return seconds_of([&] {
                many(first);
                many(second);
            });
        },
        [&] {
            return seconds_of([&] {
                std::thread other([&] { many(second); });
                many(first);
                other.join();
            });
        });
    table.figure("map: two threads, in times of the rate of one", seconds.first / seconds.second,
                 at_least(1.85));
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
    const auto written = [&](const char* threads) {
        const std::string command = std::string(BATCH_PROGRAM) + " orbit " + word + " -n " +
                                    std::to_string(bounces) + " -j " + threads + " -o " +
                                    file.string();
        return seconds_of([&] {
            if (std::system(command.c_str()) != 0) std::abort();
            std::filesystem::remove(file);
        });
    };
    const std::string cores = std::to_string(std::thread::hardware_concurrency());
    for (const std::string& threads : {cores, std::string("1")}) {
        const interleaved_medians seconds(
            5, [&] { return seconds_of(unwritten); }, [&] { return written(threads.c_str()); });
        const double share = seconds.first / seconds.second;
        const std::string what =
            name + ": orbit to a file by " + threads + ", share of the rate of iterate + getPoint";
        threads == cores ? table.figure(what, share, at_least(0.6)) : table.note(what, share);
    }
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
