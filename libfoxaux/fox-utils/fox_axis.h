// SPDX-License-Identifier: MIT
// The axes of a plot: a line with ticks, labels at its ends, a title; a small family of layouts.
#pragma once

#include "mathkit/axis.h"

#include <fx.h>

/// An axis that lives for one redraw. basic_plotter draws xaxis1b and yaxis1b; the other layouts
/// are for plots that want less or more than a title between two labels.
///
/// Construct it, set `tick_len` and `font_size`, ask for
/// thickness(), let the map fill ticks and labels, set the other fields, draw().
///
/// Texts go through the plot font. The foreground of `dc` is the colour, except in the two-colour
/// layouts. Lengths are in pixels.
class fox_axis : public kit::axis {
public:
    int font_size = 12; ///< of all texts, in points, as color_manager::text_size() gives it
    FXDC* dc = nullptr; ///< where to draw, not owned
    int pos = 0;  ///< the line's fixed coordinate: y of a horizontal axis, x of a vertical one
    int from = 0; ///< where the line begins along the axis
    int to = 0;   ///< where it ends
    int tick_len = 5;

    virtual ~fox_axis() = default;

    /// The pixels needed across the axis, from its line outward.
    virtual int thickness() = 0;

    /// Draws the axis with `dc`.
    virtual void draw() = 0;
};

/// No axis: takes no room and draws nothing.
class null_axis : public fox_axis {
public:
    int thickness() override;
    void draw() override;
};

/// Horizontal: the line, and ticks that point down, away from the plot.
class xaxis : public fox_axis {
public:
    int thickness() override;
    void draw() override;
};

/// xaxis with the first and the last tick labelled, below.
class xaxis1a : public xaxis {
public:
    int thickness() override;
    void draw() override;
};

/// xaxis1a with the title centred between the labels.
class xaxis1b : public xaxis1a {
public:
    void draw() override;
};

/// xaxis1a with two titles, each in its colour, on both sides of the middle.
class xaxis1b_twocolor : public xaxis1a {
public:
    kit::wstring title_low, title_high;
    FXColor line_color = 0, low_color = 0, high_color = 0;

    void draw() override;
};

/// Ticks through the line, the first and the last one labelled, the title above the line.
class xaxis1c : public xaxis {
public:
    int thickness() override;
    void draw() override;
};

/// Every tick labelled, no title.
class xaxis2a : public xaxis {
public:
    int thickness() override;
    void draw() override;
};

/// Vertical: the line, and ticks that point left.
class yaxis : public fox_axis {
public:
    int thickness() override;
    void draw() override;
};

/// yaxis with the first and the last tick labelled, reading upward.
class yaxis1a : public yaxis {
public:
    int thickness() override;
    void draw() override;
};

/// yaxis1a with the title centred between the labels.
class yaxis1b : public yaxis1a {
public:
    void draw() override;
};

/// yaxis1a with two titles, each in its colour, on both sides of the middle.
class yaxis1b_twocolor : public yaxis1a {
public:
    kit::wstring title_low, title_high;
    FXColor line_color = 0, low_color = 0, high_color = 0;

    void draw() override;
};

/// Every tick labelled, and the title in a line of its own beside the labels.
class yaxis2b : public yaxis1a {
public:
    int thickness() override;
    void draw() override;
};
