// SPDX-License-Identifier: MIT
// Newton's step from a point towards one that comes back, also where the Jacobian is singular.
#include "mathkit/closing_step.h"

#include "mathkit/matrix2.h"
#include "mathkit/search_effort.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace periodic {

namespace {

// The change of the way to the image from here to `offset` further on, by the central difference;
// by a one-sided one where a neighbour fails, as beside the end of the section.
std::optional<point> change(budgeted_map& map, const passage& here, point offset, int order) {
    const auto ahead = map.image({here.from.x + offset.x, here.from.y + offset.y}, order);
    const auto behind = map.image({here.from.x - offset.x, here.from.y - offset.y}, order);
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
std::optional<matrix2> linearise(budgeted_map& map, const passage& here, int order,
                                 const region& unit) {
    const double hx = difference_step(unit.rx), hy = difference_step(unit.ry);
    const auto by_x = change(map, here, {hx, 0}, order), by_y = change(map, here, {0, hy}, order);
    if (!by_x || !by_y) return {};
    return matrix2{by_x->x / hx, by_y->x / hy * (unit.ry / unit.rx),
                   by_x->y / hx * (unit.rx / unit.ry), by_y->y / hy};
}

// Newton's step, with the directions left out in which the gap does not change. There periodic
// points form a line or fill an area. What counts as no change is a small part of the larger one,
// or mere rounding.
point newton_step(const matrix2& j, point gap, const region& unit) {
    const double rounding = 1e-13 / difference_step(std::min(unit.rx, unit.ry));
    const double w = std::max(effort::flat * std::sqrt(j.square()), rounding);
    point step;
    damped_solution(j, -gap.x / unit.rx, -gap.y / unit.ry, w, step.x, step.y);
    return step;
}

double scalar_product(point a, point b) {
    return a.x * b.x + a.y * b.y;
}

// What two steps in line tell; 1 for steps that are not, or do not shrink as to a multiple root.
double multiplicity_of(point last, point step) {
    const double in_line = 0.98; // cosine
    const double along = scalar_product(last, step), before = scalar_product(last, last);
    if (!(along > in_line * std::sqrt(before * scalar_product(step, step)))) return 1;
    const double most = 9; // a higher one looks like steps that do not converge at all
    const double m = std::round(1 / (1 - along / before));
    return m >= 1 && m <= most ? m : 1;
}

} // namespace

std::optional<point> closing_step(budgeted_map& map, const passage& here, int order,
                                  const region& unit) {
    const auto j = linearise(map, here, order, unit);
    if (!j) return {};
    return newton_step(*j, here.way, unit);
}

void root_multiplicity::watch(point step, double taken) {
    const point before = std::exchange(last, step);
    if (taken > 1) return; // such a step is the test of what was shown, and shows nothing
    const double m = taken == 1 ? multiplicity_of(before, step) : 1;
    agreed = std::exchange(guess, m) == m ? m : 1; // one pair of steps is chance
}

} // namespace periodic
