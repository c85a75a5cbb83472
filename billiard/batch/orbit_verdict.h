// SPDX-License-Identifier: MIT
// What a long orbit is: how fast its neighbours leave it, how it goes round, how far it flies.
#pragma once

#include "billiard/batch/work_monitor.h"

#include <cstdint>
#include <span>

class TBilliardMap;

namespace batch {

/// The state of the map, radians.
struct phase_point {
    double phi, alpha;
};

/// Means over the bounces of one orbit. Without a bounce they are NaN.
struct orbit_verdict {
    /// The finite-time Lyapunov exponent per bounce, by the natural logarithm: ln(|v_n| / |v_0|) /
    /// n of a vector v that the tangent map of (S, P) carries along, v_0 = (1, 1).
    double lyapunov;
    double rotation;      ///< of S per bounce, always counted forward: in [0, 1)
    double chord;         ///< the free path, in units of the radius
    std::int64_t bounces; ///< n, or fewer: there the orbit ended
};

/// Judges each start over n bounces; each verdict depends on its own start alone. The map's point
/// is another afterwards. Tells the monitor every few thousand bounces; once it says stop, returns
/// soon, with verdicts that mean nothing.
void judge(TBilliardMap& map, std::span<const phase_point> starts, std::int64_t n,
           std::span<orbit_verdict> verdicts, work_monitor& monitor);

/// The exponent above which an orbit of n >= 1 bounces counts as chaotic: 2 ln(n + 1) / n.
///
/// Neighbours of a regular orbit lie on neighbouring tori, which turn at a speed of their own: they
/// part in proportion to the time, |v_n| <= 1 + C n, and so the exponent is at most ln(1 + C n) /
/// n. C is the shear of the torus, of the order of 1 in most of the section; the threshold allows
/// it to be as large as n, which fails only in thin layers beside the separatrices and at grazing
/// angles. Chaotic orbits are missed whose exponent is smaller than the threshold itself, 0.014 for
/// n = 1000, or that stay beside an island for most of the n bounces.
double chaos_threshold(std::int64_t n);

/// The standard error of the share that `hits` of `trials` are, p = hits / trials:
/// sqrt(p (1 - p) / trials).
double binomial_error(std::int64_t hits, std::int64_t trials);

} // namespace batch
