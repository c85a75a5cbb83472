// SPDX-License-Identifier: MIT
// Where orbits start: points that were typed, of a file, at random, and the cells of a grid.
#pragma once

#include "billiard/radius-core/TBilliard.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace batch {

/// A start as rows tell it: S and P as they were given, and the same point as the map has it.
struct start {
    double S, P, phi, alpha;
};

/// A rectangle of the section.
struct section_window {
    double S1 = 0, P1 = -1, S2 = 1, P2 = 1;
};

/// The starts of one option, any of them by its number.
class start_source {
public:
    virtual ~start_source() = default;
    virtual std::int64_t size() const = 0;

    /// Start i on the table of `map`, whose point may change. For any number of threads, each with
    /// a map of its own.
    virtual start at(std::int64_t i, TBilliardMap& map) const = 0;
};

/// S and P; throws usage_error unless 0 < S < 1 and -1 < P < 1.
std::unique_ptr<start_source> typed_point(double S, double P);

/// phi, any, and alpha, in radians; throws usage_error unless 0 < alpha < pi.
std::unique_ptr<start_source> typed_angles(double phi, double alpha);

/// `count` points, uniform in the section: S and P of point i are the numbers 2 i and 2 i + 1.
std::unique_ptr<start_source> random_points(std::int64_t count, std::uint64_t seed);

/// The centres of width x height cells, from left to right and from the upper row down.
std::unique_ptr<start_source> cell_centres(std::int64_t width, std::int64_t height,
                                           const section_window& window);

/// The columns S and P of a CSV file, "-" for standard input, whose lines that begin with # are
/// skipped. All of it is read and judged at once, and kept in a temporary file. Throws usage_error.
std::unique_ptr<start_source> points_of_file(const std::string& name);

/// The starts of several options, one after another.
class start_list {
public:
    void add(std::unique_ptr<start_source> source);
    std::int64_t size() const { return total; }
    start at(std::int64_t i, TBilliardMap& map) const;

private:
    std::vector<std::unique_ptr<start_source>> sources;
    std::int64_t total = 0;
};

} // namespace batch
