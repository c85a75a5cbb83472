// SPDX-License-Identifier: MIT
// Fits the strokes of a glyph to the pixel grid of one size and cuts them into lines.
#pragma once

#include "mathkit/stroke_face.h"

#include <vector>

/// Turns glyphs into lines of one pixel's width.
///
/// The grid has its origin at the lower left pixel of the text: x grows to the right, y upward, row
/// 0 stands on the base line. Ends of strokes fall on pixels, so that equal heights are equal rows;
/// capitals fill exactly `height` rows.
class stroke_tracer {
public:
    struct line {
        int x1, y1, x2, y2; ///< both ends are drawn
    };
    struct point {
        int x, y;
    };

    /// `height` is that of a capital, in pixels, at least 1.
    explicit stroke_tracer(int height);

    /// The distance from this glyph's origin to the next one's.
    int advance(const stroke_glyph& glyph) const;

    /// Adds the lines of a glyph that begins at column `origin` to `lines`.
    void trace(const stroke_glyph& glyph, int origin);

    /// Adds those of an accent over `letter`, which begins at `origin`.
    void trace_accent(const stroke_glyph& accent, const stroke_glyph& letter, int rise, int origin);

    std::vector<line> lines;

private:
    /// Where the current glyph lies on the grid.
    struct placement {
        int first;     ///< column of x = 0
        int width;     ///< of the strokes, in the glyph's units
        int columns;   ///< of the strokes, not counting the pen's width
        double middle; ///< column of the middle, perhaps between two
        bool centred;  ///< x counts from the middle
        int rise;      ///< added to every y
    };

    /// Pixels of a row from `left` to `right`.
    struct span {
        int left, right;
    };

    /// Whether strokes are filled row by row: a line for each pixel of the nib would make too many.
    bool is_thick() const { return pen > 4; }

    int columns_of(const stroke_glyph& glyph) const;
    int scaled(int units) const;
    int column(int x) const;
    int row(int y) const;

    void follow(const char* path);
    void move_to(point to);
    void line_to(point to);
    void arc_to(point low, point high, int from, int to);
    void ellipse(point low, point high);
    void box(point low, point high);
    void add_straight(point a, point b);
    void add_way(const std::vector<point>& pixels);
    void add_run(point a, point b);
    void add_runs(const std::vector<point>& pixels);
    void sweep(const std::vector<point>& way);
    void fill_pinholes();

    int height;
    int pen;               ///< thickness of a stroke, in pixels
    double scale;          ///< pixels a unit
    std::vector<span> nib; ///< the rows of the pen on a slanted stroke
    placement place{};
    point last{};
    bool open = false; ///< a stroke has begun
};
