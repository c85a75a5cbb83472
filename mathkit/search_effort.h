// SPDX-License-Identifier: MIT
// What a search for periodic points may cost, and when it is content.
#pragma once

namespace periodic {

/// How long a refinement goes on, and what its outcome must be worth. Lengths are in units of the
/// section, whose height is 2.
struct effort {
    /// Newton steps at most. Four to eight do from most samples of the lattice, a dozen where the
    /// root is multiple; a start from which thirty do not arrive is a bad one.
    int steps = 30;

    /// A step below this is the last: rounding of a few bounces moves the image as far.
    double tol = 1e-14;

    /// A periodic point comes back to within this: orbits as hyperbolic as differences can follow
    /// enlarge rounding so far. Beside the corner of a wall points come back to within 1e-9 that
    /// are on no orbit.
    static constexpr double closing_gap = 1e-10;

    /// And the next step would move it by less than this: a gap that closes far away does not
    /// count.
    static constexpr double closing_blur = 1e-9;

    /// Two points of one orbit are never as close together as this.
    static constexpr double same_point = 1e-7;

    /// A direction in which the gap changes by less than this part of its greatest change counts as
    /// one without a change. Central differences leave some 1e-9 of a zero.
    static constexpr double flat = 1e-7;

    /// Points found less than this many radii apart are one, met from two sides.
    static constexpr double together = 1e-3;

    /// So many radii beyond the edge of an ellipse are rounding: a point drawn on it is inside.
    static constexpr double edge = 1e-9;
};

} // namespace periodic
