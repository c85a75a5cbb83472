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
#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/TError.h"
#include "mathkit/trig.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

namespace batch {

namespace {

constexpr double no_number = std::numeric_limits<double>::quiet_NaN();

// A neighbouring path, seen from the path.
struct neighbour {
    double q, w;
};

// Where the path leaves the boundary; lengths in circumferences.
struct mirror {
    double x, y;
    double curvature;
    double sin_alpha;

    neighbour from_section(double dS, double dP) const {
        return {-sin_alpha * dS, curvature * dS - dP / sin_alpha};
    }
    double section_size(const neighbour& v) const {
        return std::hypot(v.q / sin_alpha, sin_alpha * v.w + curvature * v.q);
    }
};

// The mirror where the path leaves with the sine of alpha; sine and cosine are those of phi.
mirror mirror_of(const TBilliardMap& map, double phi, double sine, double cosine, double r,
                 double dr, double sin_alpha) {
    const double whole = map.circumference.length;
    const double curvature = map.F->curvature_at(phi, sine, cosine, r, dr);
    const double scaled = r / whole;
    return {scaled * cosine, scaled * sine, curvature * whole, sin_alpha};
}

mirror mirror_at(const TBilliardMap& map, phase_point p) {
    double sine, cosine, r, dr;
    kit::sincos(p.phi, sine, cosine);
    map.F->value_and_slope(p.phi, sine, cosine, r, dr);
    return mirror_of(map, p.phi, sine, cosine, r, dr, kit::sin(p.alpha));
}

// The same from what the bounce has told of it.
mirror mirror_after_bounce(const TBilliardMap& map, phase_point p) {
    const ray::departure& d = map.lastDeparture();
    if (!d.leads_to(p.phi, p.alpha)) return mirror_at(map, p);
    const double across = std::fabs(d.dr * d.s - d.r * d.o);
    return mirror_of(map, p.phi, d.sine, d.cosine, d.r, d.dr,
                     across / std::sqrt(d.r * d.r + d.dr * d.dr));
}

class judged_orbit {
public:
    judged_orbit(TBilliardMap& map, phase_point start)
        : map(map),
          at(start),
          here(mirror_at(map, start)),
          vector(here.from_section(std::sqrt(0.5), std::sqrt(0.5))),
          first_share(map.arcShare(start.phi)) {}

    void bounce() {
        const double phi = at.phi;
        map.findit(at.phi, at.alpha);
        turns += at.phi < phi ? 1 : 0;
        const mirror next = mirror_after_bounce(map, at);
        const double dx = next.x - here.x;
        const double dy = next.y - here.y;
        const double flight = std::sqrt(dx * dx + dy * dy);
        here = next;
        flown += flight;
        const double q = vector.q + flight * vector.w;
        vector = {-q, 2 * here.curvature * q / here.sin_alpha - vector.w};
        const double size = std::fabs(vector.q) + std::fabs(vector.w);
        if (!(size < largest_vector && size > 1 / largest_vector)) bring_back(size);
        ++bounces;
    }

    orbit_verdict verdict() const {
        if (bounces == 0) return {no_number, no_number, no_number, 0};
        const auto n = static_cast<double>(bounces);
        const double growth =
            std::log(here.section_size(vector)) + static_cast<double>(taken) * std::numbers::ln2;
        const double advance = map.arcShare(at.phi) - first_share + static_cast<double>(turns);
        const double below_1 = 1 - std::numeric_limits<double>::epsilon();
        return {std::isfinite(growth) ? growth / n : no_number,
                std::clamp(advance / n, 0.0, below_1), flown * map.circumference.length / n,
                bounces};
    }

private:
    static constexpr double largest_vector = 1e100;

    void bring_back(double size) {
        if (!(size > 0 && std::isfinite(size))) return; // no number any more
        const int e = std::ilogb(size);
        vector = {std::ldexp(vector.q, -e), std::ldexp(vector.w, -e)};
        taken += e;
    }

    TBilliardMap& map;
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
