// SPDX-License-Identifier: MIT
// The map between a plot's world units and its pixels.
#pragma once

#include "mathkit/TRect.h"

namespace kit {
struct axis;
}

/// A linear map of each coordinate, world to screen and back; screen y runs downward.
///
/// Callers map a point to the screen by to_screen(), and back by the two lines
///     wx = sx * cx + dx, wy = sy * cy + dy,
/// and read and write `world` directly. The coefficients hold after set_screen only.
class TMapW2S {
public:
    double ax = 1, ay = 1, bx = 0, by = 0; ///< world to screen
    double cx = 1, cy = 1, dx = 0, dy = 0; ///< screen to world
    TRect world;                           ///< what is shown, in world units

private:
    bool screen_set = false; ///< set_screen has run; makeIso has nothing to fit to before

    void compute_coefficients();

public:
    irect screen; ///< where it is shown, in pixels; y1 is the upper edge

    void set_world(double x1, double y1, double x2, double y2) { world.set(x1, y1, x2, y2); }

    /// Takes the screen rectangle and computes the coefficients. With `iso` the world rectangle is
    /// widened about its centre until both axes have one scale.
    ///
    /// The coefficients are finite for any rectangle. For them, and for the ticks, but not in
    /// `world` itself: a range with a NaN counts as 0 to 1, an end beyond 1e300 as 1e300, equal
    /// ends as a range of their own size, at least 1, about them; a reversed range is mirrored; a
    /// screen without extent counts as one pixel wide.
    void set_screen(int x1, int y1, int x2, int y2, bool iso);

    /// Converts a world point to screen units, in place. Any doubles may come out.
    void to_screen(double& x, double& y) const {
        x = x * ax + bx;
        y = y * ay + by;
    }

    /// Widens the world rectangle to one scale on both axes, for the present screen rectangle, and
    /// computes the coefficients anew. Before the first set_screen, and where a widened side would
    /// not be finite, the world stays.
    void makeIso();

    /// Converts lengths in pixels to lengths in world units, both positive for positive input.
    void ratio_stow(double& w, double& h) const;

    /// Rounds the ends of a range to short decimals close by, lo < hi kept. Ends that are equal,
    /// reversed or no finite numbers stay as they are.
    static void snap_to_grid(double& lo, double& hi);

    /// Fills ticks and labels of both axes for the present rectangles: at least two ticks inside
    /// the screen rectangle, from the low world value up, each label the value at its tick with
    /// as many digits as tell the ends apart.
    void a_model_4(kit::axis& x, kit::axis& y) const;
};
