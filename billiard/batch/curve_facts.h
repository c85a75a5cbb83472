// SPDX-License-Identifier: MIT
// The table itself: how long, how large, how it bends.
#pragma once

class TBilliard;

namespace batch {

struct curve_facts {
    double circumference, area;
    double x1, y1, x2, y2; ///< the bounding box
    bool convex;           ///< no inflections
    int inflections;       ///< sign changes of the curvature in one turn
    double mean_chord;     ///< of all paths: pi times area over circumference
};

/// Measures the curve of the table, whatever the curve claims to be. Inflections that lie closer
/// together than the table's rows, some 2000 on the boundary, may go unseen; a corner that points
/// inward counts as two.
curve_facts facts_of(const TBilliard& table);

} // namespace batch
