// SPDX-License-Identifier: MIT
// Samples of a map over an ellipse: where a search for periodic points should start.
#pragma once

#include "mathkit/budgeted_map.h"

#include <vector>

namespace periodic {

/// The images of a square lattice of samples about an ellipse, for a range of orders.
///
/// A Newton search finds only what lies near its start, and near a strongly hyperbolic point that
/// is very near; the lattice sees the ellipse as a whole.
class sample_lattice {
public:
    /// Takes (2 `half` + 1)^2 samples and iterates each `last` times.
    sample_lattice(budgeted_map& map, const region& where, int half, int first, int last);

    /// Where to start a refinement to a point of the given order (first <= order <= last): the
    /// samples that come back closest, the closest first.
    std::vector<point> candidates(int order) const;

    int samples() const { return side * side; }
    point node(int sample) const;           ///< where the sample starts
    point way(int sample, int order) const; ///< to its image, in radii; NaN where the map failed

private:
    void record(budgeted_map& map, int sample);

    region where;
    int half, side, first, last;
    std::vector<point> ways; ///< by sample, then by order
};

/// Follows a few samples through many iterates and tells when one comes back as never before.
///
/// Near a torus or in an island the record returns of a sample are those of the periodic points
/// beside it: the rotation number's best fractions. In a chaotic sea records are rare.
class return_watch {
public:
    return_watch(budgeted_map& map, const region& where, int last);

    /// The samples that come back at that order, into the ellipse or closer than ever before. To be
    /// asked for the orders 1, 2, ... in turn.
    std::vector<point> returning(int order);

private:
    double spread(int order) const;

    sample_lattice lattice;
    std::vector<double> closest; ///< of each sample, in radii
};

} // namespace periodic
