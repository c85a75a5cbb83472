// SPDX-License-Identifier: MIT
// The figures of a benchmark beside those that are wanted: ratios of medians, and counts.
#pragma once

#include <string>
#include <vector>

namespace bench {

/// What a figure should be.
struct wish {
    enum { at_least, at_most } direction;
    double value;

    bool met_by(double figure) const;
};

inline wish at_least(double value) {
    return {wish::at_least, value};
}
inline wish at_most(double value) {
    return {wish::at_most, value};
}

/// The table that one benchmark program prints.
///
/// Times are no figures: a machine is as fast as it is, and as busy. Each row of times is a ratio
/// of two benchmarks' medians, whose repetitions were interleaved at random, so that what slows the
/// machine for a while slows both.
class figure_table {
public:
    /// The median time of the benchmark `slower` over that of `faster`, less `less`.
    void ratio(const std::string& what, const std::string& slower, const std::string& faster,
               wish wanted, double less = 0);

    /// The same, told for information.
    void ratio(const std::string& what, const std::string& slower, const std::string& faster);

    /// A figure that was counted, or measured by other means.
    void figure(const std::string& what, double value, wish wanted);

    /// A figure told for information.
    void note(const std::string& what, double value);

    /// Runs the registered benchmarks and prints the table. Takes the flags of Google Benchmark,
    /// as --benchmark_repetitions=25 for steadier medians or --benchmark_out=FILE for all times.
    /// The result is for `main`: 0, whatever the figures; 1 for a wrong flag.
    int run(int argc, char** argv);

private:
    struct row {
        std::string what;
        std::string slower, faster; ///< empty where the figure stands already
        double less = 0;
        double value = 0;
        bool has_wish = false;
        wish wanted{wish::at_most, 0};
    };

    void print() const;

    std::vector<row> rows;
};

} // namespace bench
