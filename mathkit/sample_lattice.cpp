// SPDX-License-Identifier: MIT
// Samples of a map over an ellipse: where a search for periodic points should start.
#include "mathkit/sample_lattice.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace periodic {

namespace {

constexpr double no_number = std::numeric_limits<double>::quiet_NaN();

double length(point way) {
    return std::hypot(way.x, way.y);
}

} // namespace

sample_lattice::sample_lattice(budgeted_map& map, const region& where, int half, int first,
                               int last)
    : where(where),
      half(half),
      side(2 * half + 1),
      first(first),
      last(last) {
    ways.assign(static_cast<std::size_t>(side) * side * (last - first + 1), {no_number, no_number});
    for (int sample = 0; sample < side * side; ++sample)
        record(map, sample);
}

point sample_lattice::node(int sample) const {
    const int column = sample % side - half;
    const int row = sample / side - half;
    const point w = where.way(static_cast<double>(column) / half, static_cast<double>(row) / half);
    return {where.centre.x + w.x, where.centre.y + w.y};
}

point sample_lattice::way(int sample, int order) const {
    return ways[static_cast<std::size_t>(sample) * (last - first + 1) + (order - first)];
}

void sample_lattice::record(budgeted_map& map, int sample) {
    const auto start = map.place(node(sample));
    if (!start) return;
    point* out = &ways[static_cast<std::size_t>(sample) * (last - first + 1)];
    for (int order = 1; order <= last; ++order) {
        if (!map.advance()) return;
        if (order < first) continue;
        const auto image = map.current();
        if (!image) return;
        const point w = map.way(*start, *image);
        *out++ = {w.x / where.rx, w.y / where.ry};
    }
}

std::vector<point> sample_lattice::candidates(int order) const {
    // The corners lie outside the ellipse, and their returns mostly lead to points there. A point
    // on the edge has samples on both sides.
    const double inside = 1.1 * half;
    std::vector<std::pair<double, int>> returns; // the gap in radii, the sample
    for (int sample = 0; sample < side * side; ++sample) {
        if (std::hypot(sample % side - half, sample / side - half) > inside) continue;
        const double gap = length(way(sample, order));
        if (std::isfinite(gap)) returns.emplace_back(gap, sample);
    }
    // Of some 800 circles in all kinds of curves, sixteen starts miss one in forty that more starts
    // capture, or capture at a lower order; six miss one in twenty.
    const std::size_t most_starts = 16;
    std::sort(returns.begin(), returns.end());
    if (returns.size() > most_starts) returns.resize(most_starts);
    std::vector<point> starts;
    starts.reserve(returns.size());
    for (const auto& [gap, sample] : returns)
        starts.push_back(node(sample));
    return starts;
}

return_watch::return_watch(budgeted_map& map, const region& where, int last)
    : lattice(map, where, 1, 1, last),
      closest(lattice.samples(), std::numeric_limits<double>::infinity()) {}

// How far the ways of the samples differ, in radii.
double return_watch::spread(int order) const {
    double widest = 0;
    const point first = lattice.way(0, order);
    for (int sample = 1; sample < lattice.samples(); ++sample) {
        const point w = lattice.way(sample, order);
        widest = std::fmax(widest, length({w.x - first.x, w.y - first.y}));
    }
    return widest;
}

std::vector<point> return_watch::returning(int order) {
    const double inside = 1; // radius: so near its start, the sample is still in the ellipse
    // A gap that hardly changes over the whole ellipse does not close in it, record or not.
    const double closable = std::max(inside, 10 * spread(order));
    std::vector<point> starts;
    for (int sample = 0; sample < lattice.samples(); ++sample) {
        const double gap = length(lattice.way(sample, order));
        const bool record = gap < closest[sample];
        if (record) closest[sample] = gap;
        if (gap < inside || (record && gap < closable)) starts.push_back(lattice.node(sample));
    }
    return starts;
}

} // namespace periodic
