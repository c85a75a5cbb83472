// SPDX-License-Identifier: MIT
// A map as the search for periodic points sees it: counted, never throwing, put back at the end.
#pragma once

#include "mathkit/TIterraMap.h"

#include <ctime>
#include <optional>

namespace periodic {

/// A point of the section, or the way from one point to another.
struct point {
    double x = 0, y = 0;
};

bool is_finite(point p);

/// The ellipse that a search is about.
struct region {
    point centre;
    double rx = 0, ry = 0;

    /// The length of a way, in radii of the ellipse.
    double radii(point way) const;

    /// The way that is `u`, `v` radii long.
    point way(double u, double v) const { return {u * rx, v * ry}; }
};

/// The outcome of `budgeted_map::image`: where the iterates began and where they ended.
struct passage {
    point from, to;
    point way; ///< from `from` to `to`, the shorter way around
};

/// What a search may cost.
struct allowance {
    long iterates;
    double seconds; ///< of the processor
};

/// Drives a map through its virtual operations for the length of one search.
///
/// Iterates and time count against a budget: once it is spent, every further one fails. Whatever
/// the map refuses, throws or answers that is not finite ends the one operation that met it. The
/// destructor puts the current point of the map back, unless `leave_at` has placed another.
class budgeted_map {
public:
    budgeted_map(TIterraMap& map, const allowance& budget);
    budgeted_map(const budgeted_map&) = delete;
    budgeted_map& operator=(const budgeted_map&) = delete;
    ~budgeted_map();

    /// Whether the map takes `p` as it stands. The current point may be `p` afterwards.
    bool accepts(point p) { return try_place(p); }

    /// Makes `p` the current point and answers it as the map took it. A point beyond the seam of x
    /// comes in at the other side; empty when the map refuses it all the same.
    std::optional<point> place(point p);

    /// Replaces the current point by its image.
    bool advance();

    /// Reads the current point; empty when it is no pair of numbers.
    std::optional<point> current();

    /// Starts at `from` and iterates `order` times; empty on any failure.
    std::optional<passage> image(point from, int order);

    /// The way from a point of the section to another, or to an image: in x the shorter way around.
    point way(point from, point to) const;

    /// `p`, whose x is brought back into the section from at most one width beyond the seam.
    point wrapped(point p) const;

    /// Whether y is so near an end of the section that the map hardly moves such a point: all
    /// points of the rim come back at once, and none is a periodic orbit.
    bool on_rim(point p) const;

    bool affords(long iterates) const { return iterates <= iterates_left; }
    const TRect& area() const { return range; }

    /// Makes `p` the point at which the search leaves the map.
    bool leave_at(point p);

private:
    bool try_place(point p);
    void restore();
    void watch_clock();

    TIterraMap& map;
    TRect range;
    long iterates_left;
    std::clock_t deadline;
    std::optional<point> kept; ///< where the map stood before; empty once `leave_at` has placed it
};

} // namespace periodic
