// SPDX-License-Identifier: MIT
// Grid fitting: first the ends of strokes are rounded to pixels, then curves are drawn between
// them.
#include "mathkit/stroke_tracer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <utility>

namespace {

constexpr double capital_units = 100;
constexpr double weight = 0.094;   // thickness of a stroke against the height of a capital
constexpr double squareness = 2.2; // exponent of the curves: 2 is an ellipse, more is squarer

constexpr double degree = std::numbers::pi / 180;

// A pixel of a curve: its offset from the middle of the box, and in which direction it lies.
struct curve_point {
    double dx, dy;
    double angle;
};

// Rounds an offset from the middle to the next pixel outward: to a whole number if the middle lies
// on a pixel, else to a half. Rounding the offset and not the position keeps both halves alike.
double snap_offset(double offset, bool between_pixels) {
    const double size = std::fabs(offset);
    const double snapped = between_pixels ? std::floor(size) + 0.5 : std::floor(size + 0.5);
    return std::copysign(snapped, offset);
}

// The height of the curve (|x/a|^n + |y/b|^n = 1, a = 1) above the middle at x, both as fractions.
double other_fraction(double fraction) {
    const double rest = 1 - std::pow(std::min(std::fabs(fraction), 1.0), squareness);
    return std::pow(std::max(rest, 0.0), 1 / squareness);
}

// The curve in a box of radii rx and ry, one pixel to each column where it is flat and one to each
// row where it is steep: a thin line without gaps and without clots.
std::vector<curve_point> curve_pixels(double rx, double ry) {
    const bool x_between = std::floor(rx) != rx;
    const bool y_between = std::floor(ry) != ry;
    const double x_first = x_between ? 0.5 : 0;
    const double y_first = y_between ? 0.5 : 0;
    std::vector<curve_point> pixels;
    const auto add = [&](double dx, double dy) {
        pixels.push_back({snap_offset(dx, x_between), snap_offset(dy, y_between),
                          std::atan2(dy / ry, dx / rx) / degree});
    };
    const auto is_flat = [&](double fx, double fy) {
        return std::pow(fy, squareness - 1) * rx >= std::pow(fx, squareness - 1) * ry;
    };
    for (int i = 0; i <= rx - x_first; i++) {
        const double dx = x_first + i;
        const double fx = dx / rx;
        const double fy = other_fraction(fx);
        if (!is_flat(fx, fy)) break;
        for (const double sign : {1.0, -1.0}) {
            add(dx, sign * fy * ry);
            add(-dx, sign * fy * ry);
        }
    }
    for (int i = 0; i <= ry - y_first; i++) {
        const double dy = y_first + i;
        const double fy = dy / ry;
        const double fx = other_fraction(fy);
        if (is_flat(fx, fy)) break;
        for (const double sign : {1.0, -1.0}) {
            add(sign * fx * rx, dy);
            add(sign * fx * rx, -dy);
        }
    }
    return pixels;
}

// Where flat meets steep a pixel may be missing: it is added on the outside, in each quarter alike.
void close_gaps(std::vector<curve_point>& way, double rx, double ry) {
    std::vector<curve_point> closed;
    for (const curve_point& p : way) {
        if (!closed.empty()) {
            const curve_point& q = closed.back();
            const double step = std::max(std::fabs(p.dx - q.dx), std::fabs(p.dy - q.dy));
            if (step > 1 && step < 3) {
                closed.push_back({snap_offset((p.dx + q.dx) / 2, std::floor(rx) != rx),
                                  snap_offset((p.dy + q.dy) / 2, std::floor(ry) != ry),
                                  (p.angle + q.angle) / 2});
            }
        }
        closed.push_back(p);
    }
    way = std::move(closed);
}

// In a box without area the curve is a line: its points at both ends and at the quarter turns.
std::vector<curve_point> flat_curve_pixels(double rx, double ry, int from, int to) {
    std::vector<curve_point> pixels;
    for (const int angle : {from, 0, 90, 180, 270, to}) {
        pixels.push_back({snap_offset(rx * std::cos(angle * degree), std::floor(rx) != rx),
                          snap_offset(ry * std::sin(angle * degree), std::floor(ry) != ry),
                          static_cast<double>(angle)});
    }
    return pixels;
}

// The part of the curve between two angles, ordered from one to the other. The angles of its pixels
// are replaced by how far along the arc they lie, in degrees.
std::vector<curve_point> way_along(const std::vector<curve_point>& curve, int from, int to) {
    const int sense = to < from ? -1 : 1;
    const double length = std::abs(to - from);
    constexpr double slack = 1e-6;
    std::vector<curve_point> way;
    for (curve_point p : curve) {
        p.angle = std::fmod(sense * (p.angle - from) + 720 + slack, 360) - slack;
        if (p.angle <= length + slack) way.push_back(p);
        if (length >= 360 && p.angle < slack) way.push_back({p.dx, p.dy, 360});
    }
    std::sort(way.begin(), way.end(),
              [](const curve_point& a, const curve_point& b) { return a.angle < b.angle; });

    const bool closes = length >= 360 && !way.empty() && way.front().angle > slack;
    if (closes) way.push_back(way.front());
    return way;
}

// The pixels on that way, none twice in a row, where the middle may lie between two pixels.
std::vector<stroke_tracer::point> pixels_of(const std::vector<curve_point>& way, double middle_x,
                                            double middle_y) {
    std::vector<stroke_tracer::point> pixels;
    for (const curve_point& p : way) {
        const stroke_tracer::point at{static_cast<int>(std::floor(middle_x + p.dx)),
                                      static_cast<int>(std::floor(middle_y + p.dy))};
        if (pixels.empty() || pixels.back().x != at.x || pixels.back().y != at.y) {
            pixels.push_back(at);
        }
    }
    return pixels;
}

} // namespace

stroke_tracer::stroke_tracer(int height)
    : height(height),
      pen(std::max(1, static_cast<int>(std::lround(weight * height)))),
      scale((height - pen) / capital_units) {
    // A round nib: on a slant a square one would be half as thick again.
    const double middle = (pen - 1) / 2.0;
    const double limit = std::max(pen * pen / 4.0 - 0.5, 0.0);
    for (int y = 0; y < pen; y++) {
        int x = 0;
        while ((x - middle) * (x - middle) + (y - middle) * (y - middle) > limit)
            x++;
        nib.push_back({x, pen - 1 - x});
    }
}

int stroke_tracer::scaled(int units) const {
    return static_cast<int>(std::floor(units * scale + 0.5));
}

int stroke_tracer::columns_of(const stroke_glyph& glyph) const {
    const bool has_middle = glyph.path[0] == '|';
    return has_middle ? 2 * static_cast<int>(std::lround(glyph.width * scale / 2))
                      : scaled(glyph.width);
}

int stroke_tracer::advance(const stroke_glyph& glyph) const {
    if (!glyph.path[0]) {
        const int units = glyph.left + glyph.width + glyph.right;
        return std::max(1, static_cast<int>(std::lround(units * height / capital_units)));
    }
    // Neighbours never touch, however small the size, unless they are meant to join.
    const int least = glyph.right > 0 ? 1 : 0;
    return scaled(glyph.left) + columns_of(glyph) + pen + std::max(least, scaled(glyph.right));
}

void stroke_tracer::trace(const stroke_glyph& glyph, int origin) {
    const int columns = columns_of(glyph);
    const int first = origin + scaled(glyph.left);
    place = {first, glyph.width, columns, first + columns / 2.0, false, 0};
    follow(glyph.path);
    if (is_thick()) fill_pinholes();
}

void stroke_tracer::trace_accent(const stroke_glyph& accent, const stroke_glyph& letter, int rise,
                                 int origin) {
    const double middle = origin + scaled(letter.left) + columns_of(letter) / 2.0;
    place = {origin, 0, 0, middle, true, rise};
    follow(accent.path);
}

int stroke_tracer::column(int x) const {
    double at = 0;
    if (place.centred) {
        at = place.middle + x * scale;
    } else if (x <= 0) {
        at = place.first + x * scale;
    } else if (x >= place.width) {
        at = place.first + place.columns + (x - place.width) * scale;
    } else {
        at = place.first + static_cast<double>(x) * place.columns / place.width;
    }
    // A position between two columns is rounded toward the middle, so that both halves stay alike.
    return static_cast<int>(at < place.middle ? std::floor(at + 0.5) : std::ceil(at - 0.5));
}

int stroke_tracer::row(int y) const {
    return scaled(y + place.rise);
}

void stroke_tracer::follow(const char* path) {
    const char* at = path;
    const auto number = [&at] {
        char* behind = nullptr;
        const long value = std::strtol(at, &behind, 10);
        at = behind;
        return static_cast<int>(value);
    };
    const auto next_point = [&] {
        const int x = column(number());
        const int y = row(number());
        return point{x, y};
    };
    open = false;
    while (*at) {
        switch (*at++) {
        case 'M':
            move_to(next_point());
            break;
        case 'L':
            line_to(next_point());
            break;
        case 'A': {
            const point low = next_point();
            const point high = next_point();
            const int from = number();
            arc_to(low, high, from, number());
            break;
        }
        case 'O': {
            const point low = next_point();
            ellipse(low, next_point());
            break;
        }
        case 'B': {
            const point low = next_point();
            box(low, next_point());
            break;
        }
        default: // blanks, and the mark of a middle
            break;
        }
    }
}

void stroke_tracer::move_to(point to) {
    last = to;
    open = true;
}

void stroke_tracer::line_to(point to) {
    add_straight(last, to);
    last = to;
}

void stroke_tracer::arc_to(point low, point high, int from, int to) {
    const double rx = (high.x - low.x) / 2.0;
    const double ry = (high.y - low.y) / 2.0;
    const bool flat = rx < 1 || ry < 1;
    std::vector<curve_point> way =
        way_along(flat ? flat_curve_pixels(rx, ry, from, to) : curve_pixels(rx, ry), from, to);
    if (!flat) close_gaps(way, rx, ry);
    const std::vector<point> pixels = pixels_of(way, low.x + rx, low.y + ry);
    if (pixels.empty()) return;

    if (open) line_to(pixels.front());
    open = true;
    add_way(pixels);
    last = pixels.back();
}

void stroke_tracer::ellipse(point low, point high) {
    open = false;
    arc_to(low, high, 0, 360);
    open = false;
}

void stroke_tracer::box(point low, point high) {
    for (int y = low.y; y < high.y + pen; y++)
        lines.push_back({low.x, y, high.x + pen - 1, y});
}

void stroke_tracer::add_straight(point a, point b) {
    if (a.x != b.x && a.y != b.y) {
        if (is_thick() && b.y < a.y) std::swap(a, b); // so that mirror images are alike
        add_way({a, b});
        return;
    }
    const int reach = pen - 1;
    const point low{std::min(a.x, b.x), std::min(a.y, b.y)};
    const point high{std::max(a.x, b.x) + reach, std::max(a.y, b.y) + reach};
    if (a.y == b.y) {
        for (int y = low.y; y <= high.y; y++)
            lines.push_back({low.x, y, high.x, y});
    } else {
        for (int x = low.x; x <= high.x; x++)
            lines.push_back({x, low.y, x, high.y});
    }
}

void stroke_tracer::add_way(const std::vector<point>& pixels) {
    if (is_thick()) {
        sweep(pixels);
    } else {
        add_runs(pixels);
    }
}

void stroke_tracer::add_run(point a, point b) {
    for (int y = 0; y < pen; y++) {
        for (int x = nib[y].left; x <= nib[y].right; x++)
            lines.push_back({a.x + x, a.y + y, b.x + x, b.y + y});
    }
}

// Consecutive steps in the same direction become one line.
void stroke_tracer::add_runs(const std::vector<point>& pixels) {
    std::size_t start = 0;
    for (std::size_t i = 1; i < pixels.size(); i++) {
        const bool goes_on = i + 1 < pixels.size() &&
                             pixels[i + 1].x - pixels[i].x == pixels[i].x - pixels[i - 1].x &&
                             pixels[i + 1].y - pixels[i].y == pixels[i].y - pixels[i - 1].y;
        if (goes_on) continue;
        add_run(pixels[start], pixels[i]);
        start = i;
    }
    if (pixels.size() == 1) add_run(pixels[0], pixels[0]);
}
