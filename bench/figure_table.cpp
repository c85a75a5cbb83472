// SPDX-License-Identifier: MIT
// The figures of a benchmark beside those that are wanted: ratios of medians, and counts.
#include "bench/figure_table.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>

namespace bench {

namespace {

/// Gathers the times of all repetitions; prints nothing but what went wrong.
class time_collector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred)
                std::fprintf(stderr, "%s: %s\n", run.run_name.function_name.c_str(),
                             run.error_message.c_str());
            else if (run.run_type == Run::RT_Iteration)
                times[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
        }
    }

    double median(const std::string& name) const {
        const auto found = times.find(name);
        if (found == times.end()) return std::numeric_limits<double>::quiet_NaN();
        std::vector<double> sorted = found->second;
        std::sort(sorted.begin(), sorted.end());
        return (sorted[(sorted.size() - 1) / 2] + sorted[sorted.size() / 2]) / 2;
    }

private:
    std::map<std::string, std::vector<double>> times;
};

} // namespace

bool wish::met_by(double figure) const {
    return direction == at_least ? figure >= value : figure <= value;
}

void figure_table::ratio(const std::string& what, const std::string& slower,
                         const std::string& faster, wish wanted, double less) {
    rows.push_back({what, slower, faster, less, 0, true, wanted});
}

void figure_table::ratio(const std::string& what, const std::string& slower,
                         const std::string& faster) {
    rows.push_back({what, slower, faster, 0, 0, false, {wish::at_most, 0}});
}

void figure_table::figure(const std::string& what, double value, wish wanted) {
    rows.push_back({what, "", "", 0, value, true, wanted});
}

void figure_table::note(const std::string& what, double value) {
    rows.push_back({what, "", "", 0, value, false, {wish::at_most, 0}});
}

int figure_table::run(int argc, char** argv) {
    // Defaults come first: what the user gives on the command line follows and wins.
    std::vector<std::string> flags = {argc > 0 ? argv[0] : "bench",
                                      "--benchmark_enable_random_interleaving=true",
                                      "--benchmark_repetitions=9", "--benchmark_min_time=0.01"};
    flags.insert(flags.end(), argv + std::min(argc, 1), argv + argc);
    std::vector<char*> pointers;
    pointers.reserve(flags.size() + 1);
    for (std::string& flag : flags)
        pointers.push_back(flag.data());
    int count = static_cast<int>(pointers.size());
    pointers.push_back(nullptr);
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) return 1;

    time_collector times;
    const bool timed =
        std::any_of(rows.begin(), rows.end(), [](const row& r) { return !r.slower.empty(); });
    if (timed) benchmark::RunSpecifiedBenchmarks(&times);
    benchmark::Shutdown();
    for (row& r : rows)
        if (!r.slower.empty()) r.value = times.median(r.slower) / times.median(r.faster) - r.less;
    print();
    return 0;
}

void figure_table::print() const {
    std::size_t width = 4;
    for (const row& r : rows)
        width = std::max(width, r.what.size());
    const int columns = static_cast<int>(width);
    std::printf("%-*s  %10s  %10s\n", columns, "what", "measured", "wanted");
    for (const row& r : rows) {
        if (std::isnan(r.value)) continue; // left out by a filter on the command line
        std::printf("%-*s  %10.4g", columns, r.what.c_str(), r.value);
        if (r.has_wish)
            std::printf("  %2s %7.4g%s",
                        r.wanted.direction == wish::at_least ? ">=" : "<=", r.wanted.value,
                        r.wanted.met_by(r.value) ? "" : "  MISSED");
        std::printf("\n");
    }
}

} // namespace bench
