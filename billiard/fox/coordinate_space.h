// SPDX-License-Identifier: MIT
// The second window: the boundary curve in the plane and the particle's path inside it.
#pragma once

#include "libfoxaux/fox-utils/FBufferedWindow.h"
#include "libfoxaux/fox-utils/companion_window.h"
#include "mathkit/TMapW2S.h"

class FMain;
class TBilliardMap;

/// The path canvas. It keeps the last two bounces only; older ones live in the pixels of `image`.
///
/// World units are those of the curve. The view always holds the whole table of the curve, with
/// one scale on both axes. A curve whose table holds a NaN or an infinity is drawn as far as it
/// goes.
class coordinate_space : public FBufferedWindow {
    FXDECLARE(coordinate_space)

public:
    FMain* main = nullptr;       ///< filled by FMain after the window is built
    TBilliardMap* map = nullptr; ///< held by FMain; filled together with `main`
    TMapW2S w2s;                 ///< world to screen
    TRect full_view;       ///< the bounding box of the curve's table, 1 percent wider each side
    int segment_state = 0; ///< 0: no bounce known, 1: `prev` known, 2: `prev` and `last` known
    double prev_x = 0, prev_y = 0; ///< the earlier of the two bounces
    double last_x = 0, last_y = 0; ///< the later one; the head segment leads from `prev` to it
    FXColor line_color = 0;        ///< the older path
    FXColor back_color = 0;
    FXColor boundary_color = 0;
    FXColor head_color = 0; ///< the newest segment

    coordinate_space(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h);
    coordinate_space(const coordinate_space&) = delete;
    coordinate_space& operator=(const coordinate_space&) = delete;

    /// Draws the bare curve at the present size of `image`. The two stored bounces stay.
    void render() override;

    /// Space iterates, "b" paints the boundary over the path, "d" wipes the path, "l" takes the
    /// highlight off the newest segment; the other keys are those of the base class.
    long on_key(int key) override;

    /// Fits the view to the map's curve, forgets the path and draws the bare curve.
    void fit_view();

    /// Draws the bare curve, forgets the path and shows the picture.
    void redraw_boundary();

    /// Takes the map's present impact as the first point of a path. What was drawn stays, the
    /// newest segment no longer highlighted, and no segment will lead from there to here. Shows the
    /// picture.
    void begin_path();

    /// Takes the map's present impact as the next point of the path and draws the segment that
    /// leads there. The caller shows the picture by update().
    void add_bounce();

protected:
    coordinate_space() = default;

private:
    void draw_boundary(bool clear);
    void draw_head(FXDC& dc, FXColor color) const;
    void end_highlight();
    void draw_segment(FXDC& dc, double x1, double y1, double x2, double y2) const;
    bool clip_to_image(double& x1, double& y1, double& x2, double& y2) const;
};

/// The top-level window that the path canvas fills. Closing it only hides it.
class coordinate_space_win : public companion_window {
    FXDECLARE(coordinate_space_win)

public:
    coordinate_space* canvas = nullptr; ///< owned by the widget tree

    coordinate_space_win(FXApp* app, FXint x, FXint y, FXint w, FXint h);
    coordinate_space_win(const coordinate_space_win&) = delete;
    coordinate_space_win& operator=(const coordinate_space_win&) = delete;

    long onClose(FXObject*, FXSelector, void*);

protected:
    coordinate_space_win() = default;
};
