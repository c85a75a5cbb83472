// SPDX-License-Identifier: MIT
// The one plot font in use, and its default: the stroke font, drawn with the toolkit.
#pragma once

#include "mathkit/base_font.h"
#include "mathkit/stroke_font.h"

/// The plot font of the whole program, owned by this module; null until ensure_hfont has run.
/// Whoever replaces it deletes the old one. set_dc takes an FXDCWindow*.
extern base_font* hfont;

/// Makes the default stroke font the plot font where there is none yet.
void ensure_hfont();

/// Draws one line of a stroke font; `dc` is an FXDC*. Both ends are drawn. A line with an
/// end beyond the display's 16 bits is left out: it would wrap into the picture.
void stroke_line(int x1, int y1, int x2, int y2, void* dc);

/// The vector font of the support library, drawing on the toolkit. Empty until load_default().
class fox_stroke_font : public stroke_font {
public:
    fox_stroke_font();
    ~fox_stroke_font() override;
};
