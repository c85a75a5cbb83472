// SPDX-License-Identifier: MIT
// A map as the search for periodic points sees it: counted, never throwing, put back at the end.
#include "mathkit/budgeted_map.h"

#include "mathkit/TError.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace periodic {

bool is_finite(point p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

double region::radii(point way) const {
    return std::hypot(way.x / rx, way.y / ry);
}

budgeted_map::budgeted_map(TIterraMap& map, const allowance& budget)
    : map(map),
      iterates_left(budget.iterates),
      deadline(std::clock() + static_cast<std::clock_t>(budget.seconds * CLOCKS_PER_SEC)) {
    map.get_area(range);
    kept = current();
}

budgeted_map::~budgeted_map() {
    if (kept) restore();
}

bool budgeted_map::try_place(point p) {
    if (!is_finite(p)) return false;
    try {
        return map.setPoint(p.x, p.y);
    } catch (const TError&) {
        return false;
    }
}

std::optional<point> budgeted_map::place(point p) {
    if (try_place(p)) return p;
    const point other_side = wrapped(p);
    if (other_side.x != p.x && try_place(other_side)) return other_side;
    return {};
}

bool budgeted_map::advance() {
    if (iterates_left <= 0) return false;
    if (--iterates_left % 256 == 0) watch_clock();
    try {
        map.iterate();
        return true;
    } catch (const TError&) {
        return false;
    }
}

void budgeted_map::watch_clock() {
    if (std::clock() > deadline) iterates_left = 0;
}

std::optional<point> budgeted_map::current() {
    point p;
    try {
        map.getPoint(p.x, p.y);
    } catch (const TError&) {
        return {};
    }
    if (!is_finite(p)) return {};
    return p;
}

std::optional<passage> budgeted_map::image(point from, int order) {
    if (!affords(order)) return {};
    const std::optional<point> start = place(from);
    if (!start) return {};
    for (int i = 0; i < order; ++i)
        if (!advance()) return {};
    const std::optional<point> end = current();
    if (!end) return {};
    return passage{*start, *end, way(*start, *end)};
}

point budgeted_map::way(point from, point to) const {
    point d{to.x - from.x, to.y - from.y};
    const double width = range.width();
    // An image beyond the ends shows that the map has no seam there.
    const bool has_seam = range.x1 <= to.x && to.x <= range.x2;
    if (has_seam && std::abs(d.x) > width / 2) d.x -= std::copysign(width, d.x);
    return d;
}

point budgeted_map::wrapped(point p) const {
    // The ends themselves are outside; a periodic point on the seam is met a rounding beside it.
    const double whole = range.width(), margin = whole * std::numeric_limits<double>::epsilon();
    if (p.x < range.x1)
        p.x += whole;
    else if (p.x > range.x2)
        p.x -= whole;
    if (p.x > range.x1 - whole && p.x < range.x2 + whole)
        p.x = std::clamp(p.x, range.x1 + margin, range.x2 - margin);
    return p;
}

bool budgeted_map::on_rim(point p) const {
    const double rim = 1e-9 * range.height();
    const auto near = [&](double end) { return std::abs(p.y - end) < rim; };
    return near(range.y1) || near(range.y2);
}

bool budgeted_map::leave_at(point p) {
    if (!place(p)) return false;
    kept.reset();
    return true;
}

void budgeted_map::restore() {
    if (place(*kept)) return;
    // A point on the very edge can be reached by iterates but not set: the nearest one inside.
    const double margin = range.height() * std::numeric_limits<double>::epsilon();
    place({kept->x, std::clamp(kept->y, range.y1 + margin, range.y2 - margin)});
}

} // namespace periodic
