// SPDX-License-Identifier: MIT
// Periodic points of a map: from a first guess to a point that really comes back.
#pragma once

#include "mathkit/budgeted_map.h"
#include "mathkit/search_effort.h"

#include <optional>

namespace periodic {

/// A point that comes back to itself after some iterates.
struct periodic_point {
    point at;
    point gap;       ///< the way from `at` to its image, which rounding leaves
    double blur = 0; ///< how far the next Newton step would still go
    int steps = 0;   ///< Newton steps taken
};

/// Searches from `start` for a point that comes back after `order` iterates, by Newton's method on
/// the way from a point to its image. Empty when the search leaves the neighbourhood of `near`, the
/// map fails, or the point does not come back to within rounding.
std::optional<periodic_point> refine(budgeted_map& map, point start, int order, const region& near,
                                     const effort& limits);

/// The least divisor of `order` after which the periodic point `p` is back already; `order` itself
/// when there is no smaller one.
int least_order(budgeted_map& map, const periodic_point& p, int order);

} // namespace periodic
