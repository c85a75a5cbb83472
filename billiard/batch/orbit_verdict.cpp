// SPDX-License-Identifier: MIT
// What a long orbit is: how fast its neighbours leave it, how it goes round, how far it flies.
//
// Notes:
// - The vector is carried not as (dS, dP) but as the path sees it: q, how far the neighbour runs
//   beside it, and w, the angle between the two. A flight of the length l adds l w to q; a mirror
//   of the curvature K turns the sign of both and adds 2 K q / sin(alpha) to w. That is the tangent
//   map of tangent_map.h taken apart, at the price of one division, and only the ends of the orbit
//   are turned into (S, P). Lengths are measured in circumferences.
// - The vector may grow to 1e100 before it is brought back by a power of two: no logarithm is taken
//   on the way.
// - None of this is waited for by the next bounce, and most of it costs little beside it. Several
//   orbits side by side, a bounce of each in turn, are 3 to 8 % slower than one after the other: a
//   bounce has more instructions than a processor looks ahead.
#include "billiard/batch/orbit_verdict.h"

#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/tangent_map.h"
#include "mathkit/TError.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

namespace batch {

namespace {

constexpr double no_number = std::numeric_limits<double>::quiet_NaN();

// A neighbouring path, seen from the path; q in circumferences.
struct neighbour {
    double q, w;
};

class judged_orbit {
public:
    judged_orbit(TBilliardMap& map, phase_point start)
        : map(map),
          whole(map.circumference.length),
          at(start),
          here(mirror_at(*map.F, start.phi, start.alpha)),
          vector(from_section(std::sqrt(0.5), std::sqrt(0.5))),
          first_share(map.arcShare(start.phi)) {}

    void bounce() {
        const double phi = at.phi;
        map.findit(at.phi, at.alpha);
        turns += at.phi < phi ? 1 : 0;
        const chord path(here, mirror_after_findit(map, at.phi, at.alpha));
        here = path.to;
        flown += path.length;
        const double q = vector.q + path.length / whole * vector.w;
        vector = {-q, 2 * here.curvature * whole / here.sin_alpha * q - vector.w};
        const double size = std::fabs(vector.q) + std::fabs(vector.w);
        if (!(size < largest_vector && size > 1 / largest_vector)) bring_back(size);
        ++bounces;
    }

    orbit_verdict verdict() const {
        if (bounces == 0) return {no_number, no_number, no_number, 0};
        const auto n = static_cast<double>(bounces);
        const double growth =
            std::log(section_size(vector)) + static_cast<double>(taken) * std::numbers::ln2;
        const double advance = map.arcShare(at.phi) - first_share + static_cast<double>(turns);
        const double below_1 = 1 - std::numeric_limits<double>::epsilon();
        return {std::isfinite(growth) ? growth / n : no_number,
                std::clamp(advance / n, 0.0, below_1), flown / n, bounces};
    }

private:
    static constexpr double largest_vector = 1e100;

    neighbour from_section(double dS, double dP) const {
        return {-here.sin_alpha * dS, here.curvature * whole * dS - dP / here.sin_alpha};
    }
    double section_size(const neighbour& v) const {
        return std::hypot(v.q / here.sin_alpha,
                          here.sin_alpha * v.w + here.curvature * whole * v.q);
    }
    void bring_back(double size) {
        if (!(size > 0 && std::isfinite(size))) return; // no number any more
        const int e = std::ilogb(size);
        vector = {std::ldexp(vector.q, -e), std::ldexp(vector.w, -e)};
        taken += e;
    }

    TBilliardMap& map;
    const double whole; // circumference
    phase_point at;
    mirror here;
    neighbour vector;
    double first_share;
    double flown = 0;
    std::int64_t taken = 0; // from the vector, as a power of two
    std::int64_t turns = 0; // how often S has passed its seam
    std::int64_t bounces = 0;
};

orbit_verdict verdict_of(TBilliardMap& map, phase_point start, std::int64_t n,
                         work_monitor& monitor) {
    constexpr std::int64_t chunk = 4096;
    map.forgetDeparture(); // the orbit before may have ended on this start
    judged_orbit orbit(map, start);
    try {
        for (std::int64_t left = n; left > 0 && !monitor.stop.load(std::memory_order_relaxed);) {
            const std::int64_t now = std::min(left, chunk);
            for (std::int64_t i = 0; i < now; ++i)
                orbit.bounce();
            left -= now;
            monitor.bounces.fetch_add(now, std::memory_order_relaxed);
        }
    } catch (const TError&) { // here the orbit ends, and the verdict is on what there was
    }
    return orbit.verdict();
}

} // namespace

void judge(TBilliardMap& map, std::span<const phase_point> starts, std::int64_t n,
           std::span<orbit_verdict> verdicts, work_monitor& monitor) {
    for (std::size_t i = 0; i < starts.size(); ++i)
        verdicts[i] = verdict_of(map, starts[i], n, monitor);
}

double chaos_threshold(std::int64_t n) {
    const auto count = static_cast<double>(n);
    return 2 * std::log1p(count) / count;
}

double binomial_error(std::int64_t hits, std::int64_t trials) {
    const auto all = static_cast<double>(trials);
    const double share = static_cast<double>(hits) / all;
    return std::sqrt(share * (1 - share) / all);
}

} // namespace batch
