// SPDX-License-Identifier: MIT
// The search for periodic points of a map: which orders to try, and where to start.
//
// Notes:
// - "The first k after which the centre is back in the circle" is no order: in an island it is a
//   multiple, since the rotation about the periodic point must bring the centre back as well, and
//   in a chaotic sea it is chance. So an order counts only when a point in the circle was refined
//   that really comes back, and the least order for which there is one is the answer.
// - Short orders are searched on a lattice of samples, which misses little. Long ones belong to
//   small islands or to tori; there the samples' own returns tell the orders to try.
#include "mathkit/capture_search.h"

#include "mathkit/sample_lattice.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace periodic {

namespace {

bool holds(const budgeted_map& map, const region& where, point p) {
    return where.radii(map.way(where.centre, p)) <= 1 + effort::edge;
}

// Adds a point, unless it is one of those found from another start: then the one stays that comes
// back more closely, since a multiple root can be met some way beside itself.
void add(std::vector<periodic_point>& found, const periodic_point& p, const budgeted_map& map,
         const region& where) {
    for (periodic_point& known : found) {
        if (where.radii(map.way(known.at, p.at)) > effort::together) continue;
        if (where.radii(p.gap) < where.radii(known.gap)) known = p;
        return;
    }
    found.push_back(p);
}

// The points of that order in `where` to which the starts lead.
std::vector<periodic_point> points_from(budgeted_map& map, const std::vector<point>& starts,
                                        int order, const region& where, const effort& limits) {
    std::vector<periodic_point> found;
    for (const point start : starts) {
        const auto p = refine(map, start, order, where, limits);
        if (p && holds(map, where, p->at)) add(found, *p, map, where);
    }
    return found;
}

// Of points that are back at `order`, the one that is back soonest; of several the nearest.
std::optional<capture> soonest(budgeted_map& map, const std::vector<periodic_point>& points,
                               int order, const region& where) {
    std::optional<capture> best;
    double best_way = 0;
    for (const periodic_point& p : points) {
        const int least = least_order(map, p, order);
        const double way = where.radii(map.way(where.centre, p.at));
        if (best && std::pair(best->order, best_way) <= std::pair(least, way)) continue;
        best = {least, p.at};
        best_way = way;
    }
    return best;
}

// The point of the least order from `first` to `last` that a lattice of samples shows.
std::optional<capture> short_order(budgeted_map& map, const region& where, int first, int last) {
    const int half = 16;
    const sample_lattice lattice(map, where, half, first, last);
    for (int order = first; order <= last; ++order) {
        const auto points = points_from(map, lattice.candidates(order), order, where, effort{});
        if (const auto found = soonest(map, points, order, where)) return found;
    }
    return {};
}

// The point of the least order from `first` to `last` to which the returns of a few samples lead.
// The first one must do: long orbits are costly.
std::optional<capture> long_order(budgeted_map& map, const region& where, int first, int last) {
    const region inner{where.centre, where.rx / 2, where.ry / 2};
    return_watch watch(map, inner, last);
    for (int order = 1; order <= last; ++order) {
        const std::vector<point> starts = watch.returning(order);
        if (order < first) continue;
        for (const point start : starts) {
            const auto points = points_from(map, {start}, order, where, effort{});
            if (const auto found = soonest(map, points, order, where)) return found;
        }
    }
    return {};
}

// How many samples to each side a search for that order can afford.
int affordable_half(int order) {
    // Eleven ellipses, and the refinements.
    const long samples = search_budget.iterates / 40 / order;
    return std::clamp(static_cast<int>((std::sqrt(static_cast<double>(samples)) - 1) / 2), 1, 16);
}

// The points of that order in `where` to which a lattice over it leads.
std::vector<periodic_point> points_in(budgeted_map& map, const region& where, int order,
                                      const effort& limits) {
    const sample_lattice lattice(map, where, affordable_half(order), order, order);
    std::vector<point> starts = lattice.candidates(order);
    starts.insert(starts.begin(), where.centre);
    return points_from(map, starts, order, where, limits);
}

// Orders the points by what they are wanted for: those first that are not back any sooner, and
// of these the nearest.
std::optional<periodic_point> choose(budgeted_map& map, const std::vector<periodic_point>& points,
                                     int order, const region& where) {
    std::optional<periodic_point> best;
    double best_rank = std::numeric_limits<double>::infinity();
    for (const periodic_point& p : points) {
        const double sooner = least_order(map, p, order) < order ? 2 : 0; // diameters
        const double rank = sooner + where.radii(map.way(where.centre, p.at));
        if (!(rank < best_rank)) continue;
        best_rank = rank;
        best = p;
    }
    return best;
}

} // namespace

std::optional<capture> point_of_least_order(budgeted_map& map, const region& where, int n) {
    const int usual = 8;        // most circles are drawn around short orbits; the rest may wait
    const int lattice = 32;     // some 35,000 iterates of the lattice, far below the budget
    const int longest = 20'000; // nine samples, each iterated so often: a fifth of the budget
    if (const auto found = short_order(map, where, 1, std::min(n, usual))) return found;
    if (n <= usual) return {};
    if (const auto found = short_order(map, where, usual + 1, std::min(n, lattice))) return found;
    if (n <= lattice) return {};
    return long_order(map, where, lattice + 1, std::min(n, longest));
}

std::optional<periodic_point> nearest_point(budgeted_map& map, point start, int order,
                                            const effort& limits) {
    const auto ellipse = [&](double part) {
        return region{start, part * map.area().width(), part * map.area().height()};
    };
    const int costly = 100; // for longer orders a few lattices would use up the budget
    if (order > costly)
        if (const auto direct = refine(map, start, order, ellipse(0.01), limits)) return direct;
    // Capture works at any depth of zoom: small ellipses come first, in strides.
    for (double part = 0x1p-20; part <= 0.25; part *= part < 0x1p-8 ? 8 : 2) {
        const region where = ellipse(part);
        const auto best = choose(map, points_in(map, where, order, limits), order, where);
        if (best) return best;
    }
    return {};
}

} // namespace periodic
