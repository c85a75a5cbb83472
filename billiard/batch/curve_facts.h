// SPDX-License-Identifier: MIT
// The table itself: how long, how large, how it bends.
#pragma once

class TBilliard;

namespace batch {

struct curve_facts {
    double circumference, area;
    double x1, y1, x2, y2; ///< the bounding box
    bool convex;           ///< no inflections
    int inflections;       ///< sign changes of the curvature in one turn, as far as they are seen
    double mean_chord;     ///< of all paths: pi times area over circumference
};

/// Measures the curve of the table. The inflections are searched for whatever the curve claims, and
/// the table's list of them is made anew: TBilliard::buildInflections tells what may go unseen.
curve_facts facts_of(TBilliard& table);

} // namespace batch
