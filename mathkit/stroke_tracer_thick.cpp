// SPDX-License-Identifier: MIT
// Thick strokes: the nib's way over the pixels, filled row by row.
#include "mathkit/stroke_tracer.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>

namespace {

// Calls visit(x, y) for the pixels from a to b, except a itself.
template<class Visit>
void for_each_step(stroke_tracer::point a, stroke_tracer::point b, Visit visit) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double steps = std::max(std::fabs(dx), std::fabs(dy));
    for (int k = 1; k <= steps; k++) {
        visit(a.x + static_cast<int>(std::lround(dx * k / steps)),
              a.y + static_cast<int>(std::lround(dy * k / steps)));
    }
}

} // namespace

void stroke_tracer::sweep(const std::vector<point>& way) {
    const auto [lowest, highest] = std::minmax_element(
        way.begin(), way.end(), [](const point& a, const point& b) { return a.y < b.y; });
    const int low = lowest->y;
    const int end = highest->y + pen;
    std::vector<span> rows(static_cast<std::size_t>(end - low), span{INT_MAX, INT_MIN});
    const auto finish = [&](const span& row, int y) {
        if (row.left <= row.right) lines.push_back({row.left, y, row.right, y});
    };
    // The nib moves one pixel at a time. So what it covers in a row either joins the row's span, or
    // belongs to another part of the way: then the old span is complete.
    const auto stamp = [&](int x, int y) {
        for (const span& of_nib : nib) {
            span& row = rows[static_cast<std::size_t>(y - low)];
            const span more{x + of_nib.left, x + of_nib.right};
            if (more.left <= row.right && more.right >= row.left) {
                row = {std::min(row.left, more.left), std::max(row.right, more.right)};
            } else {
                finish(row, y);
                row = more;
            }
            y++;
        }
    };
    stamp(way.front().x, way.front().y);
    for (std::size_t i = 1; i < way.size(); i++)
        for_each_step(way[i - 1], way[i], stamp);
    for (int y = low; y < end; y++)
        finish(rows[static_cast<std::size_t>(y - low)], y);
}

// Where two strokes part at a sharp angle, single pixels may be left white between them.
void stroke_tracer::fill_pinholes() {
    if (lines.empty()) return;
    point low{INT_MAX, INT_MAX};
    point high{INT_MIN, INT_MIN};
    for (const line& l : lines) {
        low = {std::min(low.x, l.x1), std::min(low.y, l.y1)};
        high = {std::max(high.x, l.x2), std::max(high.y, l.y2)};
    }
    const std::ptrdiff_t columns = high.x - low.x + 1;
    std::vector<char> inked(static_cast<std::size_t>(columns * (high.y - low.y + 1)));
    const auto at = [&](int x, int y) { return &inked[0] + columns * (y - low.y) + (x - low.x); };
    for (const line& l : lines) {
        for (int y = l.y1; y <= l.y2; y++)
            std::fill(at(l.x1, y), at(l.x2, y) + 1, 1);
    }
    for (int y = low.y + 1; y < high.y; y++) {
        for (int x = low.x + 1; x < high.x; x++) {
            const char* here = at(x, y);
            const bool is_enclosed = here[-1] && here[1] && here[-columns] && here[columns];
            if (!*here && is_enclosed) lines.push_back({x, y, x, y});
        }
    }
}
