// SPDX-License-Identifier: MIT
// Axis-parallel rectangles, of world units and of pixels.
#pragma once

/// A rectangle in world units, given by two opposite corners.
struct TRect {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;

    TRect() = default;
    TRect(double x1, double y1, double x2, double y2) : x1(x1), y1(y1), x2(x2), y2(y2) {}

    void set(double x1_, double y1_, double x2_, double y2_);
    void set(double x, double y) { set(x, y, x, y); }

    /// Grows the rectangle, whose corners are in order, to hold the point; a NaN changes nothing.
    void expand(double x, double y);

    /// Places the rectangle by its centre and its sides.
    void set_mid(double cx, double cy, double w, double h);

    /// Moves both corners. A side stays where it is if its ends would fall together by rounding or
    /// leave the finite numbers.
    void shift(double dx, double dy);

    /// Scales the width by fx and the height by fy; the centre stays. A side never shrinks to
    /// nothing: at the limit of the doubles it stays, and a factor above 1 grows any finite side,
    /// so that every zoom has its way back. A result that is not finite leaves the side alone.
    void zoom(double fx, double fy);

    /// Puts the corners in order: x1 <= x2 and y1 <= y2.
    void purify();

    double width() const { return x2 - x1; }
    double height() const { return y2 - y1; }

    /// The larger side, whatever the order of the corners; NaN if a side is NaN.
    double maxdim() const;
};

/// A rectangle of pixels; both corners belong to it.
struct irect {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;

    /// For programs that plot points without a clip region; the canvases here clip by themselves.
    bool isinside(int x, int y) const { return x1 <= x && x <= x2 && y1 <= y && y <= y2; }
};
