// SPDX-License-Identifier: MIT
// The search for periodic points of a map: which orders to try, and where to start.
#pragma once

#include "mathkit/periodic_points.h"

#include <optional>

namespace periodic {

/// Iterates and seconds of one search, since a window waits for it. The first limit is the rule,
/// and gives the same answer on any machine; the second is for maps that take microseconds.
inline constexpr allowance search_budget{1'000'000, 1.5};

/// What an ellipse captures: a periodic point, and after how many iterates it is back first.
struct capture {
    int order;
    point at;
};

/// The point of the least order up to n in `where`; of several the nearest to the centre. Empty
/// when none is certain.
std::optional<capture> point_of_least_order(budgeted_map& map, const region& where, int n);

/// The point of that order nearest to `start`; one that is back sooner only when there is no other
/// about as near. Above order 100 it is the first that Newton's method reaches from `start`, if it
/// reaches any. Empty when there is none.
std::optional<periodic_point> nearest_point(budgeted_map& map, point start, int order,
                                            const effort& limits);

} // namespace periodic
