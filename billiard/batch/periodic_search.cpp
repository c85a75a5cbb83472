// SPDX-License-Identifier: MIT
// The periodic orbits of a table, from many starts.
#include "billiard/batch/periodic_search.h"

#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/tangent_map.h"
#include "mathkit/TError.h"
#include "mathkit/closing_step.h"
#include "mathkit/turn.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <numbers>
#include <optional>
#include <utility>

namespace batch {

namespace {

using std::numbers::pi;

// A point counts as periodic when it comes back to within closing_gap and the next Newton step
// would move it by less than closing_blur: far above rounding, far below any chance return.
// Radians.
constexpr double closing_gap = 1e-8, closing_blur = 1e-9;

// Points that are nearer to each other are the same.
constexpr double same_point = 1e-7;

// Where the trace is 2 the gap grows with a higher power of the distance: rounding allows no more.
constexpr double same_flat_point = 1e-5;

// A trace this near to 2 is 2; in a family that turns at very different speeds rounding may do
// more.
constexpr double trace_blur = 1e-7, family_blur = 1e-3;

// A path with a shorter chord, in circumferences, does not leave a corner, or creeps along the
// boundary where all points nearly stay where they are.
constexpr double shortest_chord = 1e-6;

struct gap {
    double phi, alpha;

    double size() const { return std::hypot(phi, alpha); }
};

// One period from a point.
struct passage {
    std::vector<phase_point> points; // before each bounce
    gap way;                         // from the first to the image of the last
    matrix2 tangent;
    mirror from{};
    double length = 0, shortest = HUGE_VAL; // of all chords, of one
    int turns = 0;
    bool fills = false; // one of a curve of periodic points

    bool is_flat(double blur = trace_blur) const { return std::fabs(tangent.trace() - 2) <= blur; }
};

class return_map {
public:
    return_map(TBilliardMap& map, int order, work_monitor& monitor)
        : map(map),
          order(order),
          monitor(monitor) {}

    // Empty where a bounce fails or the point is none of the section.
    std::optional<passage> follow(phase_point from) const {
        if (!(from.alpha > 0 && from.alpha < pi)) return {};
        monitor.bounces.fetch_add(order, std::memory_order_relaxed);
        map.forgetDeparture(); // what is found must not depend on what was tried before
        passage way{};
        try {
            phase_point at = from;
            way.from = mirror_at(*map.F, at.phi, at.alpha);
            mirror wall = way.from;
            for (int i = 0; i < order; ++i)
                wall = bounce(at, wall, way);
            const double back = std::remainder(at.phi - from.phi, kit::two_pi);
            way.turns += static_cast<int>(std::lround((at.phi - from.phi - back) / kit::two_pi));
            way.way = {back, at.alpha - from.alpha};
        } catch (const TError&) {
            return {};
        }
        return way;
    }

    // Goes to a point that comes back; empty where Newton's method leads to none.
    std::optional<passage> closed_near(phase_point start) const {
        constexpr int most_steps = 40;
        std::optional<passage> here = follow(start);
        approach way;
        for (int i = 0; i < most_steps && here; ++i) {
            std::optional<passage> next = improved(*here, way);
            if (!next) break;
            here = std::move(next);
        }
        if (here && !is_closed(*here)) here.reset();
        return here && here->is_flat(family_blur) ? settled(*here) : here;
    }

private:
    // One bounce of the way from a mirror to the next.
    mirror bounce(phase_point& at, const mirror& wall, passage& way) const {
        const phase_point before = at;
        map.findit(at.phi, at.alpha);
        const chord path(wall, mirror_after_findit(map, at.phi, at.alpha));
        way.points.push_back(before);
        way.tangent = tangent_of_angles(path) * way.tangent;
        way.length += path.length;
        way.shortest = std::min(way.shortest, path.length);
        way.turns += at.phi < before.phi ? 1 : 0;
        return path.to;
    }

    // Newton's step, without the directions in which the way back does not change: along a family
    // there is nowhere to go.
    static gap closing_step(const passage& p) {
        matrix2 change = p.tangent;
        change.xx -= 1;
        change.yy -= 1;
        gap step{};
        damped_solution(change, -p.way.phi, -p.way.alpha, 1e-8 * std::sqrt(change.square()),
                        step.phi, step.alpha);
        return step;
    }

    // What the steps before tell of the root.
    struct approach {
        periodic::root_multiplicity multiplicity;
        double taken = 0; // how much of the last step
    };

    // A Newton step as often as the root counts, or as much of it as brings the image nearer; empty
    // when nothing does.
    std::optional<passage> improved(const passage& p, approach& way) const {
        constexpr double longest_step = 0.3;
        constexpr double newton_leaves = 0.25; // of the gap to a double root; more to a higher one
        constexpr int halvings = 6;
        const gap step = closing_step(p);
        if (!(step.size() > 1e-15)) return {}; // rounding, or no number
        way.multiplicity.watch({step.phi, step.alpha}, way.taken);
        const auto stepped = [&](double part, double share) {
            std::optional<passage> next = moved(p, part, step);
            if (next && !(next->way.size() < share * p.way.size())) next.reset();
            way.taken = part;
            return next;
        };
        const double m = way.multiplicity.shown();
        if (m > 1) {
            if (auto next = stepped(m, newton_leaves)) return next;
        }
        double part = std::min(1.0, longest_step / step.size());
        for (int i = 0; i <= halvings; ++i, part /= 2) {
            if (auto next = stepped(part, 1)) return next;
        }
        return {};
    }

    // Where the trace is 2, Newton's steps end some 1e-6 beside the point, as rounding fills the
    // gap between: from further off on both sides they point at it better. Or they do not point
    // along their line at all, which then is one of periodic points.
    passage settled(passage p) const {
        constexpr double off = 2e-4, least_share = 0.05; // of the way that a step goes
        const gap line = unmoved_direction(p.tangent);
        const auto ahead = moved(p, off, line), behind = moved(p, -off, line);
        if (!ahead || !behind) return p;
        const double back = along(closing_step(*ahead), line) / off;
        const double forth = along(closing_step(*behind), line) / off;
        p.fills = !(back < -least_share && forth > least_share);
        if (p.fills || !p.is_flat()) return p;
        const auto centre = moved(p, off * (forth + back) / (forth - back), line);
        return centre && centre->way.size() <= closing_gap ? *centre : p;
    }

    // Of the tangent map; a unit vector.
    static gap unmoved_direction(const matrix2& tangent) {
        const gap first{-tangent.xy, tangent.xx - 1}, second{1 - tangent.yy, tangent.yx};
        const gap& longer = first.size() > second.size() ? first : second;
        const double size = longer.size();
        return size > 0 ? gap{longer.phi / size, longer.alpha / size} : gap{1, 0};
    }
    static double along(const gap& step, const gap& line) {
        return step.phi * line.phi + step.alpha * line.alpha;
    }
    std::optional<passage> moved(const passage& p, double part, const gap& step) const {
        const phase_point at = p.points.front();
        return follow({kit::wrapped(at.phi + part * step.phi), at.alpha + part * step.alpha});
    }

    bool is_closed(const passage& p) const {
        return p.way.size() <= closing_gap && closing_step(p).size() <= closing_blur &&
               p.shortest > shortest_chord * map.circumference.length;
    }

    TBilliardMap& map;
    const int order;
    work_monitor& monitor;
};

bool are_near(phase_point a, phase_point b, double limit) {
    return std::fabs(std::remainder(a.phi - b.phi, kit::two_pi)) < limit &&
           std::fabs(a.alpha - b.alpha) < limit;
}

// Whether the orbit is back at its first point before its last bounce. Where an orbit doubles its
// period the points nearby come back to a third power of their distance: Newton stops beside it.
bool is_shorter(const std::vector<phase_point>& points) {
    constexpr double beside = 1e-4;
    return std::any_of(points.begin() + 1, points.end(),
                       [&](const phase_point& p) { return are_near(p, points.front(), beside); });
}

stability stability_of(double trace) {
    if (std::fabs(std::fabs(trace) - 2) <= trace_blur) return stability::parabolic;
    if (std::fabs(trace) < 2) return stability::elliptic;
    return trace > 0 ? stability::hyperbolic : stability::inverse_hyperbolic;
}

periodic_row row_of(const TBilliardMap& map, const passage& p) {
    const phase_point at = p.points.front();
    const double trace = p.tangent.trace();
    const double residual = std::hypot(p.from.density * p.way.phi / map.circumference.length,
                                       p.from.sin_alpha * p.way.alpha);
    return {static_cast<int>(p.points.size()),
            map.arcShare(at.phi),
            std::cos(at.alpha),
            at.phi,
            at.alpha,
            trace,
            p.fills ? stability::parabolic : stability_of(trace),
            residual};
}

// Sorts what differs by rounding alone by the number behind it.
std::pair<double, double> rank(const periodic_row& row) {
    return {std::round(1e9 * row.S), row.P};
}

// The orbit from its point of the least S on. Each of its points is brought as near as can be: the
// images of one would carry its rounding, many times as large, around the orbit. Empty where that
// fails, as in a corner.
std::optional<periodic_orbit> orbit_of(const TBilliardMap& map, const return_map& returns,
                                       const passage& from) {
    periodic_orbit orbit{{}, from.length, from.turns, false};
    const double limit = from.is_flat() ? same_flat_point : same_point;
    for (const phase_point& p : from.points) {
        const std::optional<passage> refined = returns.closed_near(p);
        if (!refined || !are_near(refined->points.front(), p, limit)) return {};
        orbit.points.push_back(row_of(map, *refined));
    }
    const auto least = std::min_element(
        orbit.points.begin(), orbit.points.end(),
        [](const periodic_row& a, const periodic_row& b) { return rank(a) < rank(b); });
    std::rotate(orbit.points.begin(), least, orbit.points.end());
    const periodic_row& first = orbit.points.front(); // on a joint it may look hyperbolic
    orbit.fills = from.fills && first.kind == stability::parabolic && first.trace > 0;
    for (periodic_row& row : orbit.points) { // the trace is the orbit's, but for rounding
        row.trace = first.trace;
        row.kind = first.kind;
    }
    return orbit;
}

// The points of many orbits, to be asked for neighbours.
class point_set {
public:
    void add(const periodic_orbit& orbit) {
        for (const periodic_row& p : orbit.points) {
            for (const double round : {-1.0, 0.0, 1.0}) // the seam has two sides
                points.emplace(p.S + round, p.P);
        }
    }
    bool holds(const periodic_row& p) const {
        const double limit = p.kind == stability::parabolic ? same_flat_point : same_point;
        return std::any_of(
            points.lower_bound(p.S - limit), points.upper_bound(p.S + limit),
            [&](const auto& other) { return std::fabs(other.second - p.P) < limit; });
    }

private:
    std::multimap<double, double> points;
};

bool are_of_one_family(const periodic_orbit& a, const periodic_orbit& b) {
    return a.points.size() == b.points.size() && a.turns == b.turns &&
           std::fabs(a.length - b.length) < 1e-9 * a.length;
}

// The first orbit of each family.
std::vector<periodic_orbit> families_of(const std::vector<periodic_orbit>& orbits) {
    std::vector<periodic_orbit> families;
    for (const periodic_orbit& orbit : orbits) {
        const auto same = [&](const periodic_orbit& o) { return are_of_one_family(o, orbit); };
        if (orbit.fills && std::none_of(families.begin(), families.end(), same))
            families.push_back(orbit);
    }
    return families;
}

} // namespace

const char* name_of(stability kind) {
    switch (kind) {
    case stability::elliptic:
        return "elliptic";
    case stability::parabolic:
        return "parabolic";
    case stability::hyperbolic:
        return "hyperbolic";
    case stability::inverse_hyperbolic:
        return "inverse-hyperbolic";
    }
    return "";
}

std::vector<periodic_orbit> search_periodic(TBilliardMap& map, std::span<const phase_point> starts,
                                            int order, work_monitor& monitor) {
    std::vector<periodic_orbit> found;
    if (order < 2) return found; // no bounce leads back to its own point
    const return_map returns(map, order, monitor);
    point_set known;
    for (const phase_point& start : starts) {
        if (monitor.stop.load(std::memory_order_relaxed)) break;
        const std::optional<passage> closed = returns.closed_near(start);
        if (!closed || is_shorter(closed->points) || known.holds(row_of(map, *closed))) continue;
        std::optional<periodic_orbit> orbit = orbit_of(map, returns, *closed);
        if (!orbit) continue;
        known.add(*orbit);
        found.push_back(std::move(*orbit));
    }
    return found;
}

std::vector<periodic_orbit> distinct(std::vector<periodic_orbit> found) {
    // A member on a joint, where the family ends, may look hyperbolic: the length tells it.
    std::vector<periodic_orbit> orbits = families_of(found);
    const std::size_t families = orbits.size();
    std::map<std::size_t, point_set> known; // by order
    for (periodic_orbit& orbit : found) {
        point_set& points = known[orbit.points.size()];
        const auto same = [&](const periodic_orbit& o) { return are_of_one_family(o, orbit); };
        const auto end = orbits.begin() + static_cast<std::ptrdiff_t>(families);
        if (std::any_of(orbits.begin(), end, same)) continue;
        if (points.holds(orbit.points.front())) continue;
        points.add(orbit);
        orbits.push_back(std::move(orbit));
    }
    std::sort(orbits.begin(), orbits.end(), [](const periodic_orbit& a, const periodic_orbit& b) {
        const periodic_row &p = a.points.front(), &q = b.points.front();
        return std::pair(p.order, rank(p)) < std::pair(q.order, rank(q));
    });
    return orbits;
}

} // namespace batch
