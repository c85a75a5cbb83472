// SPDX-License-Identifier: MIT
// Periodic points of a map: from a first guess to a point that really comes back.
#include "mathkit/periodic_points.h"

#include "mathkit/matrix2.h"

#include <algorithm>
#include <cmath>

namespace periodic {

namespace {

// A search that has moved this many radii away from the middle of its region is lost.
constexpr double lost_radii = 3;

// A point counts as periodic when it comes back to within closing_gap, and when the next step
// would move it by less than closing_blur. Both are far above rounding and far below any chance
// return.
constexpr double closing_gap = 1e-8, closing_blur = 1e-9;

double length(point way) {
    return std::max(std::abs(way.x), std::abs(way.y));
}

point moved(point from, point way, double factor = 1) {
    return {from.x + factor * way.x, from.y + factor * way.y};
}

// The change of the way to the image from here to `offset` further on, by the central difference;
// by a one-sided one where a neighbour fails, as beside the end of the section.
std::optional<point> change(section& map, const passage& here, point offset, int order) {
    const auto ahead = map.image(moved(here.from, offset), order);
    const auto behind = map.image(moved(here.from, offset, -1), order);
    if (!ahead && !behind) return {};
    const point high = ahead ? ahead->way : here.way, low = behind ? behind->way : here.way;
    const double share = ahead && behind ? 0.5 : 1;
    return point{share * (high.x - low.x), share * (high.y - low.y)};
}

// Differences over some 1e-6 balance the map's rounding against its curvature; a tiny region asks
// for less.
double difference_step(double radius) {
    return std::clamp(1e-3 * radius, 1e-9, 1e-6);
}

// What separates the linear map from the identity, the monodromy matrix less one, in radii of the
// region: so the two coordinates weigh the same, whatever the zoom.
std::optional<matrix2> linearise(section& map, const passage& here, int order, const region& unit) {
    const double hx = difference_step(unit.rx), hy = difference_step(unit.ry);
    const auto by_x = change(map, here, {hx, 0}, order), by_y = change(map, here, {0, hy}, order);
    if (!by_x || !by_y) return {};
    return matrix2{by_x->x / hx, by_y->x / hy * (unit.ry / unit.rx),
                   by_x->y / hx * (unit.rx / unit.ry), by_y->y / hy};
}

// The step that closes the gap: Newton's, with the directions left out in which the gap does not
// change. There periodic points form a line or fill an area. What counts as no change is a small
// part of the larger one, or mere rounding.
point closing_step(const matrix2& j, point gap, const region& unit) {
    const double rounding = 1e-13 / difference_step(std::min(unit.rx, unit.ry));
    const double w = std::max(1e-7 * std::sqrt(j.square()), rounding);
    double u, v;
    damped_solution(j, -gap.x / unit.rx, -gap.y / unit.ry, w, u, v);
    return unit.way(u, v);
}

// One Newton search, step by step.
class refinement {
public:
    refinement(section& map, int order, const region& near) : map(map), order(order), near(near) {}

    bool begin(point start) {
        const auto first = map.image(start, order);
        if (first) here = *first;
        return first.has_value();
    }

    // Finds the next step, no longer than a few radii; false when there is none.
    bool plan() {
        const auto j = linearise(map, here, order, near);
        if (!j) return false;
        step = closing_step(*j, here.way, near);
        blur = length(step);
        const double radii = near.radii(step);
        if (radii > lost_radii) step = {lost_radii * step.x / radii, lost_radii * step.y / radii};
        return is_finite(step);
    }

    // Takes the step, or as much of it as makes the gap smaller; false when nothing does, which is
    // the end: rounding, or a gap that does not close.
    bool advance() {
        const int halvings = 6;
        double part = 1;
        for (int i = 0; i <= halvings; ++i, part /= 2) {
            const auto next = map.image(moved(here.from, step, part), order);
            if (!next || !(near.radii(next->way) < near.radii(here.way))) continue;
            here = *next;
            return true;
        }
        return false;
    }

    bool lost() const { return !(near.radii(map.way(near.centre, here.from)) <= lost_radii); }
    bool closed() const {
        return length(here.way) <= closing_gap && blur <= closing_blur && !map.on_rim(here.from);
    }

    passage here;
    double blur = 0;

private:
    section& map;
    int order;
    const region& near;
    point step;
};

} // namespace

std::optional<periodic_point> refine(section& map, point start, int order, const region& near,
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

int least_order(section& map, const periodic_point& p, int order) {
    const double same = 1e-7; // two points of one orbit are never as close as this
    for (int divisor = 1; divisor <= order / 2; ++divisor) {
        if (order % divisor != 0) continue;
        const auto early = map.image(p.at, divisor);
        if (early && length(early->way) <= same) return divisor;
    }
    return order;
}

} // namespace periodic
