// SPDX-License-Identifier: MIT
// The map between a plot's world units and its pixels.
#include "mathkit/TMapW2S.h"

#include "mathkit/axis.h"
#include "mathkit/tick_model.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

// Ends beyond this count as this, so that no difference or product below overflows.
constexpr double largest_end = 1e300;
// A range narrower than this has no extent: a scale of pixels per unit would overflow.
constexpr double smallest_width = 1e-300;

struct value_range {
    double from, to; // of the first and of the last pixel; from > to mirrors
    double width() const { return to - from; }
};

// What is really shown for the ends of a world rectangle: always two finite ends apart.
// A NaN gives 0 to 1, equal ends a range of their own size (at least 1) about them.
value_range shown_range(double from, double to) {
    if (std::isnan(from) || std::isnan(to)) return {0, 1};
    from = std::clamp(from, -largest_end, largest_end);
    to = std::clamp(to, -largest_end, largest_end);
    if (std::fabs(to - from) >= smallest_width) return {from, to};
    const double half = 0.5 * std::max(1.0, std::fabs(from));
    return {from - half, from + half};
}

// Pixels from the first to the last; a screen without extent counts as one pixel wide.
double extent(int from, int to) {
    return std::max(1.0, static_cast<double>(to) - static_cast<double>(from));
}

bool is_finite(const TRect& r) {
    return std::isfinite(r.x1) && std::isfinite(r.y1) && std::isfinite(r.x2) && std::isfinite(r.y2);
}

// Widens one side about its middle to `width`, in the side's own direction.
void widen(double& from, double& to, double width) {
    const double middle = from * 0.5 + to * 0.5;
    const double half = std::copysign(width * 0.5, to - from);
    from = middle - half;
    to = middle + half;
}

// The pixel of a value, kept on the screen's pixels `first` to `last`.
int pixel_of(double value, const value_range& range, int first, int last, bool downward) {
    double part = (value - range.from) / range.width();
    if (downward) part = 1 - part;
    const double pixels = std::max(0.0, static_cast<double>(last) - static_cast<double>(first));
    const double offset = std::rint(std::clamp(part, 0.0, 1.0) * pixels);
    return static_cast<int>(static_cast<std::int64_t>(first) + static_cast<std::int64_t>(offset));
}

void fill(kit::axis& axis, const value_range& range, int first, int last, bool downward) {
    axis.ticks.clear();
    axis.extra.clear();
    axis.labels.clear();
    const double low = std::min(range.from, range.to);
    const double high = std::max(range.from, range.to);
    for (const kit::tick& tick : kit::nice_ticks(low, high, extent(first, last))) {
        axis.ticks.push_back(pixel_of(tick.value, range, first, last, downward));
        axis.labels.push_back(tick.label);
    }
}

// The linear map of the pixels `first` and `last` to `start` and `end`, by scale and offset. A
// rounding must not carry an end inside the range: a click on the edge of a plot is not in it. So
// the scale grows, by a rounding or two, until neither end is.
void fit_line(int first, int last, double start, double end, double& scale, double& offset) {
    const double low = std::min(start, end), high = std::max(start, end);
    const auto is_inside = [&](int pixel) {
        const double value = pixel * scale + offset;
        return low < value && value < high;
    };
    scale = (end - start) / extent(first, last);
    offset = start - first * scale;
    for (int i = 0; i < 4 && (is_inside(first) || is_inside(last)); ++i) {
        scale = std::nextafter(scale, std::copysign(HUGE_VAL, scale));
        offset = start - first * scale;
    }
}

} // namespace

void TMapW2S::set_screen(int x1, int y1, int x2, int y2, bool iso) {
    screen = {x1, y1, x2, y2};
    screen_set = true;
    if (iso) {
        makeIso();
    } else {
        compute_coefficients();
    }
}

void TMapW2S::compute_coefficients() {
    const value_range x = shown_range(world.x1, world.x2);
    const value_range y = shown_range(world.y1, world.y2);
    const double pixels_x = extent(screen.x1, screen.x2);
    const double pixels_y = extent(screen.y1, screen.y2);
    ax = pixels_x / x.width();
    bx = screen.x1 - x.from * ax;
    fit_line(screen.x1, screen.x2, x.from, x.to, cx, dx);
    ay = -pixels_y / y.width();
    by = screen.y1 - y.to * ay;
    fit_line(screen.y1, screen.y2, y.to, y.from, cy, dy);
}

void TMapW2S::makeIso() {
    if (!screen_set) return;
    const double pixels_x = extent(screen.x1, screen.x2);
    const double pixels_y = extent(screen.y1, screen.y2);
    const double units_x = std::fabs(world.width()) / pixels_x; // of one pixel
    const double units_y = std::fabs(world.height()) / pixels_y;
    TRect wider = world;
    if (units_x < units_y) widen(wider.x1, wider.x2, units_y * pixels_x);
    if (units_y < units_x) widen(wider.y1, wider.y2, units_x * pixels_y);
    if (is_finite(wider)) world = wider;
    compute_coefficients();
}

void TMapW2S::ratio_stow(double& w, double& h) const {
    w *= std::fabs(cx);
    h *= std::fabs(cy);
}

void TMapW2S::snap_to_grid(double& lo, double& hi) {
    kit::snap_range(lo, hi);
}

void TMapW2S::a_model_4(kit::axis& x, kit::axis& y) const {
    fill(x, shown_range(world.x1, world.x2), screen.x1, screen.x2, false);
    fill(y, shown_range(world.y1, world.y2), screen.y1, screen.y2, true);
}
