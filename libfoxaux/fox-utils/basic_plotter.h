// SPDX-License-Identifier: MIT
// A canvas with world coordinates, a frame of axes and every way to change the view.
#pragma once

#include "libfoxaux/fox-utils/FBufferedWindow.h"
#include "libfoxaux/fox-utils/color_manager.h"
#include "mathkit/TMapW2S.h"

#include <cmath>
#include <optional>

/// Holds the map of a plot. All code reaches it through the pointer, so that a program may let
/// several plots share one map; those of Billiard each use their own.
class map_wrap {
public:
    TMapW2S own_map;         ///< the map itself
    TMapW2S* w2s = &own_map; ///< the map to use

    map_wrap() = default;
    map_wrap(const map_wrap&) = delete;
    map_wrap& operator=(const map_wrap&) = delete;
};

/// A position in a window, in pixels; beyond its edges, too.
struct window_point {
    int x, y;
};

/// A two-dimensional plot. It knows nothing of what is plotted.
///
/// A subclass gives the map a first world rectangle in its constructor, calls draw_frame() in
/// render(), overrides zoom_full() with its whole range and constrain_view() if that is limited.
///
/// Whatever changes the view ends in constrain_view(), render() and update(). A view that is not
/// finite, or so narrow that few doubles lie in it, is dropped: the old one stays with its picture.
/// So one can always zoom out again.
class basic_plotter : public FBufferedWindow, public map_wrap, public color_manager {
    FXDECLARE(basic_plotter)

public:
    FXCursor* normal_cursor = nullptr;    ///< of the idle state, not owned
    FXCursor* zoom_cursor = nullptr;      ///< while something is armed or dragged, not owned
    int anchor_x = 0, anchor_y = 0;       ///< where a drag began, in window pixels
    std::optional<window_point> drag_end; ///< where it has come to; empty before its first motion
    int mode = idle;                      ///< a mouse_mode, or a state that a subclass adds
    int bar_y = 0;                        ///< top edge of the position bar, in window pixels

    /// The states of the mouse.
    enum mouse_mode {
        idle,
        zoom_armed,     ///< the next left press begins a rubber band
        band_dragged,   ///< by the left button
        position_shown, ///< while the right button is down
        first_own_mode  ///< of a subclass; in its states this class does nothing but cancel_mode()
    };

    basic_plotter(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h);

    void render() override;
    long on_key(int key) override;
    void colors_changed() override;

    /// Called after every change of the world rectangle, before the picture is redrawn.
    virtual void constrain_view() {}

    /// Redraws the picture and shows it.
    virtual void redraw();

    /// Leaves any mouse state; the next paint takes away what that state has drawn on the window.
    virtual void cancel_mode();

    /// Sets the world rectangle to the whole range; here, where none is known, 1.5 times larger.
    virtual void zoom_full();

    /// Arms the zoom by mouse if the mouse is idle.
    virtual void arm_zoom();

    /// Takes the rubber band, from the anchor to `drag_end`, as the new world rectangle.
    virtual void apply_zoom();

    /// Zooms out: to the whole range, or by 1.5 about the centre.
    virtual void zoom_out(bool entirely);

    virtual void left_press(FXEvent* event);
    virtual void left_release(FXEvent* event);
    virtual void mouse_motion(FXEvent* event);

    /// Gives the text of the position bar: the world coordinates of the pointer, x first.
    virtual void position_text(kit::wstring& text, FXEvent* event);

    /// Clears `image`, fits the map to it and draws both axes with their titles. `iso` gives both
    /// axes one scale. For render() of a subclass, once `image` is created.
    void draw_frame(const wchar_t* xtitle, const wchar_t* ytitle, bool iso);

    /// The dialog "Change Position": the range by its corners or by centre and size. A box tells if
    /// the range is dropped.
    void position_dialog();

    /// Draws the bar with the pointer's world position on the window, at `bar_y`.
    void draw_position_bar(FXEvent* event);

    /// Moves `rect` inside `limit`; what is larger than `limit` becomes as large.
    static void limit_rect(TRect& rect, const TRect& limit);

    long onPaint(FXObject*, FXSelector, void*);
    long onEnter(FXObject*, FXSelector, void*);
    long onLeftBtnPress(FXObject*, FXSelector, void*);
    long onLeftBtnRelease(FXObject*, FXSelector, void*);
    long onRightBtnPress(FXObject*, FXSelector, void*);
    long onRightBtnRelease(FXObject*, FXSelector, void*);
    long onMotion(FXObject*, FXSelector, void*);

protected:
    basic_plotter();

    /// Width in pixels of the marks that a drag draws on the window.
    static constexpr FXuint mark_width = 3;

    struct world_point {
        double x, y;
    };

    /// World point of a window position.
    world_point screen_to_world(int px, int py) const {
        return {px * w2s->cx + w2s->dx, py * w2s->cy + w2s->dy};
    }

    /// Finds the pixel (px, py) of a point in screen units; true if it lies in the plot area.
    /// Takes any doubles.
    bool to_pixel(double x, double y, int& px, int& py) const {
        const double nearest_x = std::rint(x);
        const double nearest_y = std::rint(y);
        const irect& area = w2s->screen;
        // As doubles: what lies outside, a NaN too, may not fit an int.
        if (!(area.x1 <= nearest_x && nearest_x <= area.x2 && area.y1 <= nearest_y &&
              nearest_y <= area.y2))
            return false;
        px = static_cast<int>(nearest_x);
        py = static_cast<int>(nearest_y);
        return true;
    }

    /// Starts a drag at the pointer, in the state `dragging`.
    void begin_drag(const FXEvent* event, int dragging);

    /// Moves the end of the drag, and its marks on the window.
    void drag_to(const window_point& end);

    /// Takes the marks off the window and leaves the mouse idle. Gives the end of the drag, or
    /// nothing where it has not moved.
    std::optional<window_point> end_drag();

    /// Draws again what copying the picture has erased on the window: the marks of a drag, or the
    /// position bar.
    void restore_marks();

    /// Whether a drag with marks goes on: here that of the rubber band.
    virtual bool is_dragging() const;

    /// Draws the marks of a drag to `end`, the rubber band here, by a DC that is set up for them.
    virtual void draw_marks(FXDC& dc, const window_point& end) const;

private:
    void flip_marks();
    void end_missed_release(FXuint buttons);
    bool has_marks() const;
    void draw_bar();
    bool set_view(const TRect& wanted);
    bool show_view(const TRect& before);
    void zoom_view(double fx, double fy);
    void pan_view(double tenths_x, double tenths_y);
    void snap_view();
    void isometric_view();
    void clear_image(FXDC& dc) const;

    kit::wstring bar_text; // of the position bar
};
