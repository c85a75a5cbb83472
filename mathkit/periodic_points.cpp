// SPDX-License-Identifier: MIT
// Periodic points of a map: from a first guess to a point that really comes back.
#include "mathkit/periodic_points.h"

#include "mathkit/closing_step.h"

#include <algorithm>
#include <cmath>

namespace periodic {

namespace {

// A search that has moved this many radii away from the middle of its region is lost.
constexpr double lost_radii = 3;

double length(point way) {
    return std::max(std::abs(way.x), std::abs(way.y));
}

// One Newton search, step by step.
class refinement {
public:
    refinement(budgeted_map& map, int order, const region& near)
        : map(map),
          order(order),
          near(near) {}

    bool begin(point start) {
        const auto first = map.image(start, order);
        if (first) here = *first;
        return first.has_value();
    }

    // Finds the next step, no longer than a few radii; false when there is none.
    bool plan() {
        const auto next = closing_step(map, here, order, near);
        if (!next || !is_finite(*next)) return false;
        step = *next;
        multiplicity.watch(step, taken);
        blur = length(near.way(step.x, step.y));
        const double radii = std::hypot(step.x, step.y);
        if (radii > lost_radii) step = {lost_radii * step.x / radii, lost_radii * step.y / radii};
        return true;
    }

    // Takes the step as often as the root counts, or as much of it as makes the gap smaller; false
    // when nothing does, which is the end: rounding, or a gap that does not close.
    bool advance() {
        const double newton_leaves = 0.25; // of the gap to a double root; more to a higher one
        const double m = multiplicity.shown();
        if (m > 1 && take(m, newton_leaves)) return true;
        const double least = 1.0 / 64;
        for (double part = 1; part >= least; part /= 2)
            if (take(part, 1)) return true;
        return false;
    }

    bool lost() const { return !(near.radii(map.way(near.centre, here.from)) <= lost_radii); }
    bool closed() const {
        return length(here.way) <= effort::closing_gap && blur <= effort::closing_blur &&
               !map.on_rim(here.from);
    }

    passage here;
    double blur = 0;

private:
    // Goes on by that part of the step if it leaves less than `share` of the gap.
    bool take(double part, double share) {
        const point way = near.way(part * step.x, part * step.y);
        const auto next = map.image({here.from.x + way.x, here.from.y + way.y}, order);
        if (!next || !(near.radii(next->way) < share * near.radii(here.way))) return false;
        here = *next;
        taken = part;
        return true;
    }

    budgeted_map& map;
    int order;
    const region& near;
    point step;       // in radii
    double taken = 0; // how much of the last one
    root_multiplicity multiplicity;
};

} // namespace

std::optional<periodic_point> refine(budgeted_map& map, point start, int order, const region& near,
                                     const effort& limits) {
    refinement search(map, order, near);
    if (!search.begin(start)) return {};
    int steps = 0;
    while (steps < limits.steps && search.plan() && search.blur >= limits.tol && search.advance()) {
        if (search.lost()) return {};
        ++steps;
    }
    if (!search.closed()) return {};
    return periodic_point{search.here.from, search.here.way, search.blur, steps};
}

int least_order(budgeted_map& map, const periodic_point& p, int order) {
    for (int divisor = 1; divisor <= order / 2; ++divisor) {
        if (order % divisor != 0) continue;
        const auto early = map.image(p.at, divisor);
        if (early && length(early->way) <= effort::same_point) return divisor;
    }
    return order;
}

} // namespace periodic
