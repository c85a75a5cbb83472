// SPDX-License-Identifier: MIT
// A plot of any iterated two-dimensional map: orbits, undo, loop, colour cycle, circle capture.
#pragma once

#include "libfoxaux/fox-utils/basic_plotter.h"
#include "libfoxaux/fox-utils/functor.h"
#include "libfoxaux/fox-utils/fx_idle_wrapper.h"

#include <cstdint>
#include <vector>

/// Plots the points of a map that a subclass brings in through set_start() and step().
///
/// A plotted point is a pixel of `image` and nothing else: whatever renders the picture anew wipes
/// the points. `backup` is the picture from before the last start; undo() brings it back.
class FPoincareWin : public basic_plotter {
    FXDECLARE(FPoincareWin)

public:
    functor1<void, int> loop_changed;  ///< told 1 before the loop starts, 0 before it stops
    int iterations = 100;              ///< steps of one iterate()
    double current_x = 0;              ///< working pair: world units after step() and set_start(),
    double current_y = 0;              ///< screen units after run_orbit()
    fx_idle_wrapper loop_idle;         ///< the chore of the loop; active while it runs
    std::int64_t last_sync = 0;        ///< getMicroTime() of the last refresh of the screen
    std::vector<FXColor> cycle_colors; ///< the colours of the key "z", in order
    unsigned cycle_index = 0;          ///< of the next colour to take

    /// The states of the mouse for the capture of a fixed point, beside those of the base.
    enum capture_mode { circle_armed = first_own_mode, circle_dragged };

    FPoincareWin(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h);

    void render() override;
    long on_key(int key) override;
    void arm_zoom() override;
    void left_press(FXEvent* event) override;
    void left_release(FXEvent* event) override;
    void mouse_motion(FXEvent* event) override;

    /// Sets the map to a start point, leaves it in the current pair and gives true; gives false,
    /// with nothing changed, for a point that the map refuses. Always false here.
    virtual bool set_start(double x, double y);

    /// Runs the map once and leaves the new world point in the current pair.
    virtual void step() {}

    /// Draws the empty picture.
    virtual void draw_axes() {}

    /// One unit of work: run_orbit(iterations).
    virtual void iterate();

    /// Brings other windows up to date, about once a second while the loop runs and when it ends.
    virtual void sync_companions() {}

    /// Looks for a fixed point in the ellipse about (x, y) with the half axes rx, ry, all in
    /// world units.
    virtual void find_fixed_point(double x, double y, double rx, double ry);

    /// Stops the loop and arms the capture of a fixed point if the mouse is idle.
    virtual void arm_fixed_point();

    /// Brings back the picture from before the last start; the map stays where it is.
    void undo();

    void start_loop(); ///< does nothing while the loop runs
    void stop_loop();  ///< does nothing while it does not; brings the screen up to date

    /// Runs the map n times and draws a pixel into `image` for each point in the plot area. The
    /// window is not touched. An exception out of step() leaves the points drawn so far.
    void run_orbit(int n);

    /// Draws a world point in `foreground`, in `image` and at once on the window.
    void plot_point(double x, double y);

    /// Starts an orbit: set_start(), and if that took the point, a backup for undo() and the point
    /// on the screen.
    void start_at(double x, double y);

    /// Fills `cycle_colors` and goes back to its first colour.
    void init_cycle_color();

protected:
    FPoincareWin() = default;

    bool is_dragging() const override;

    /// The circle of a capture and the cross at its centre, or the rubber band.
    void draw_marks(FXDC& dc, const window_point& end) const override;

private:
    void loop_body();
    void wait_for_display(std::int64_t now);
    void toggle_loop();
    void next_color();
    double distance_from_anchor(const window_point& end) const;
    void draw_circle(FXDC& dc, double radius) const;
    void draw_cross(FXDC& dc) const;

    std::int64_t last_wait = 0; ///< getMicroTime() when the display had last drawn all there was
    std::int64_t lead = 0;      ///< microseconds until the loop waits for it again
};
