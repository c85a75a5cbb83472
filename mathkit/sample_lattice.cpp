// SPDX-License-Identifier: MIT
// Samples of a map over an ellipse: where a search for periodic points should start.
#include "mathkit/sample_lattice.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace periodic {

namespace {

constexpr double no_number = std::numeric_limits<double>::quiet_NaN();

double length(point way) {
    return std::hypot(way.x, way.y);
}

// The guesses with the smallest gaps, in that order; a NaN is no guess.
template<class Guesses>
void keep_best(Guesses& guesses, std::size_t count) {
    std::erase_if(guesses, [](const auto& g) { return !std::isfinite(g.gap); });
    const auto best = guesses.begin() + std::min(count, guesses.size());
    std::partial_sort(guesses.begin(), best, guesses.end(),
                      [](const auto& a, const auto& b) { return a.gap < b.gap; });
    guesses.erase(best, guesses.end());
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

// Adds the zero of the function that is linear on the triangle of the samples a, b, c, if it lies
// in the triangle or not far beside it.
void sample_lattice::add_zero(int a, int b, int c, int order, std::vector<guess>& zeros) const {
    const double beside = 0.25; // in sides of the triangle; the ways are not quite linear
    const point fa = way(a, order), fb = way(b, order), fc = way(c, order);
    const point p{fb.x - fa.x, fb.y - fa.y}, q{fc.x - fa.x, fc.y - fa.y};
    const double d = p.x * q.y - p.y * q.x;
    const double s = (q.x * fa.y - q.y * fa.x) / d, t = (p.y * fa.x - p.x * fa.y) / d;
    if (!(s >= -beside && t >= -beside && s + t <= 1 + beside)) return;
    const point na = node(a), nb = node(b), nc = node(c);
    zeros.push_back({{na.x + s * (nb.x - na.x) + t * (nc.x - na.x),
                      na.y + s * (nb.y - na.y) + t * (nc.y - na.y)},
                     std::max({length(fa), length(fb), length(fc)})});
}

std::vector<sample_lattice::guess> sample_lattice::zeros(int order) const {
    std::vector<guess> all;
    for (int row = 0; row + 1 < side; ++row) {
        for (int column = 0; column + 1 < side; ++column) {
            const int corner = index(column, row), across = index(column + 1, row + 1);
            add_zero(corner, index(column + 1, row), across, order, all);
            add_zero(corner, index(column, row + 1), across, order, all);
        }
    }
    return all;
}

std::vector<sample_lattice::guess> sample_lattice::close_returns(int order) const {
    std::vector<guess> all;
    // The corners lie outside the ellipse, and their returns mostly lead to points there.
    const double beside = 1.1 * half; // a point on the edge has samples on both sides
    for (int sample = 0; sample < side * side; ++sample)
        if (std::hypot(sample % side - half, sample / side - half) <= beside)
            all.push_back({node(sample), length(way(sample, order))});
    return all;
}

std::vector<point> sample_lattice::candidates(int order) const {
    const std::size_t zeros_tried = 10, returns_tried = 6;
    std::vector<guess> crossing = zeros(order), returning = close_returns(order);
    keep_best(crossing, zeros_tried);
    keep_best(returning, returns_tried);
    std::vector<point> starts;
    for (const auto* guesses : {&crossing, &returning})
        for (const guess& g : *guesses)
            starts.push_back(g.start);
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
