// SPDX-License-Identifier: MIT
// Axis-parallel rectangles, of world units and of pixels.
#include "mathkit/TRect.h"

#include <cmath>
#include <utility>

namespace {

// Scales one side about its middle. Deep in a zoom the ends are neighbouring doubles, and plain
// arithmetic would let them fall together, from where no factor leads out again: there a side that
// should shrink stays, and one that should grow moves by a double at each end.
void zoom_side(double& lo, double& hi, double factor) {
    if (factor == 1) return;                   // what follows would round
    const double middle = lo * 0.5 + hi * 0.5; // halves first: the sum of the ends may overflow
    const double half = (hi * 0.5 - lo * 0.5) * factor;
    double new_lo = middle - half;
    double new_hi = middle + half;
    const bool grew = new_hi * 0.5 - new_lo * 0.5 > hi * 0.5 - lo * 0.5;
    if (factor > 1 && lo <= hi && !grew) {
        new_lo = std::nextafter(lo, -HUGE_VAL);
        new_hi = std::nextafter(hi, HUGE_VAL);
    }
    const bool collapsed = lo < hi && factor > 0 && !(new_lo < new_hi);
    if (collapsed || !std::isfinite(new_lo) || !std::isfinite(new_hi)) return;
    lo = new_lo;
    hi = new_hi;
}

void shift_side(double& lo, double& hi, double by) {
    const double new_lo = lo + by;
    const double new_hi = hi + by;
    const bool collapsed = lo != hi && new_lo == new_hi;
    if (collapsed || !std::isfinite(new_lo) || !std::isfinite(new_hi)) return;
    lo = new_lo;
    hi = new_hi;
}

} // namespace

void TRect::set(double x1_, double y1_, double x2_, double y2_) {
    x1 = x1_;
    y1 = y1_;
    x2 = x2_;
    y2 = y2_;
}

void TRect::expand(double x, double y) {
    if (x < x1) x1 = x;
    if (x > x2) x2 = x;
    if (y < y1) y1 = y;
    if (y > y2) y2 = y;
}

void TRect::set_mid(double cx, double cy, double w, double h) {
    set(cx - w * 0.5, cy - h * 0.5, cx + w * 0.5, cy + h * 0.5);
}

void TRect::shift(double dx, double dy) {
    shift_side(x1, x2, dx);
    shift_side(y1, y2, dy);
}

void TRect::zoom(double fx, double fy) {
    zoom_side(x1, x2, fx);
    zoom_side(y1, y2, fy);
}

void TRect::purify() {
    if (x2 < x1) std::swap(x1, x2);
    if (y2 < y1) std::swap(y1, y2);
}

double TRect::maxdim() const {
    const double w = std::fabs(width());
    const double h = std::fabs(height());
    if (std::isnan(w)) return w;
    return w > h ? w : h; // also a NaN of h
}
