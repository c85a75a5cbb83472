// SPDX-License-Identifier: MIT
// The periodic orbits of a table, from many starts.
#pragma once

#include "billiard/batch/orbit_verdict.h"

#include <span>
#include <vector>

namespace batch {

/// What neighbours of a periodic orbit do, by the trace of the tangent map of one period.
enum class stability {
    elliptic,          ///< they turn about it: the trace is between -2 and 2
    parabolic,         ///< they part slowly, or some do not part at all: 2 or -2, to 1e-7
    hyperbolic,        ///< they part exponentially: above 2
    inverse_hyperbolic ///< the same, and change sides each time: below -2
};

/// As in "inverse-hyperbolic".
const char* name_of(stability kind);

/// A point that is back after `order` bounces and not sooner.
struct periodic_row {
    int order;
    double S, P, phi, alpha;
    double trace;
    stability kind;
    double residual; ///< how far in (S, P) its image after `order` bounces lies from it
};

struct periodic_orbit {
    std::vector<periodic_row> points; ///< in the order of the bounces, from that of the least S on
    double length;                    ///< of the closed path
    int turns;                        ///< how often S goes round, counted forward
    bool fills;                       ///< one of a family, see `distinct`
};

/// From each start a search for an orbit of exactly this order, by Newton's method with the tangent
/// map; those that were found, in the order of their starts. What a start leads to depends on that
/// start alone. The map's point is another afterwards. Where the monitor says stop, what is found
/// means nothing.
///
/// An orbit is missed that no start lies near enough to: the larger its trace, the nearer. Orbits
/// with a chord below a millionth of the circumference, as in a corner, are not told. Repetitions
/// within one call are left out.
std::vector<periodic_orbit> search_periodic(TBilliardMap& map, std::span<const phase_point> starts,
                                            int order, work_monitor& monitor);

/// Each orbit once, the first of those that are the same, ordered by S, then P, of its first point.
///
/// Where periodic points fill a curve - the tori of circle and ellipse, the paths between parallel
/// walls - each start finds another orbit of the same family. All of them have one length and go
/// round equally often, and the first one stands for all of them, and for families that are mirror
/// images of theirs: it is parabolic, with the trace 2.
///
/// May be called again with more orbits behind the result of an earlier call.
std::vector<periodic_orbit> distinct(std::vector<periodic_orbit> found);

} // namespace batch
