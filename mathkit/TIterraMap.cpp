// SPDX-License-Identifier: MIT
// The abstract iterated map of a two-dimensional section: its searches for periodic points.
#include "mathkit/TIterraMap.h"

#include "mathkit/capture_search.h"

#include <algorithm>
#include <cmath>
#include <limits>

using periodic::budgeted_map;
using periodic::effort;
using periodic::periodic_point;
using periodic::region;

namespace {

bool is_ellipse(const region& where) {
    return is_finite(where.centre) && std::isfinite(where.rx) && std::isfinite(where.ry) &&
           where.rx > 0 && where.ry > 0;
}

// The smallest rectangle that holds the point, its image and what the last step left open.
TRect precision_box(const periodic_point& p) {
    const auto rounding = [](double x) {
        return std::abs(x) * std::numeric_limits<double>::epsilon();
    };
    const double mx = p.blur + rounding(p.at.x) + rounding(p.gap.x);
    const double my = p.blur + rounding(p.at.y) + rounding(p.gap.y);
    return {p.at.x + std::min(0.0, p.gap.x) - mx, p.at.y + std::min(0.0, p.gap.y) - my,
            p.at.x + std::max(0.0, p.gap.x) + mx, p.at.y + std::max(0.0, p.gap.y) + my};
}

TRect infinite_box() {
    const double all = std::numeric_limits<double>::infinity();
    return {-all, -all, all, all};
}

} // namespace

int TIterraMap::getorder(double x, double y, double rx, double ry, int n) {
    const int none = -1;
    const region where{{x, y}, rx, ry};
    if (!is_ellipse(where) || n < 1) return none;
    budgeted_map map(*this, periodic::search_budget);
    if (!map.accepts(where.centre)) return none;
    const auto found = periodic::point_of_least_order(map, where, n);
    return found && map.leave_at(found->at) ? found->order : none;
}

bool TIterraMap::fixfinder(double& x, double& y, int order, int& iter, TRect& box, double tol) {
    box = infinite_box();
    budgeted_map map(*this, periodic::search_budget);
    if (order < 1 || !map.affords(order) || !map.accepts({x, y})) return false;
    const auto found = periodic::nearest_point(map, {x, y}, order, effort{iter, tol});
    if (!found || !map.leave_at(found->at)) return false;
    x = found->at.x;
    y = found->at.y;
    iter = found->steps;
    box = precision_box(*found);
    return true;
}
