// SPDX-License-Identifier: MIT
// The vector font: every glyph is a few strokes, drawn through a line function.
#pragma once

#include "mathkit/base_font.h"

struct stroke_face;

/// A font of strokes, fitted to the pixel grid at every size, at any rotation.
///
/// Capitals and digits are as many pixels high as the size has points. Strokes get heavier as the
/// size grows. Draws nothing before load_default() or without a line function.
class stroke_font : public base_font {
public:
    /// Draws a line of one pixel's width on `dc`, the context set by set_dc; both ends are
    /// drawn.
    void (*line_function)(int x1, int y1, int x2, int y2, void* dc) = nullptr;

    stroke_font();
    ~stroke_font() override;

    /// Loads the built-in face: ASCII and Latin-1. A character that it lacks shows as a box.
    void load_default();

    void drawText(int x, int y, const wchar_t* text, int length) override;
    using base_font::drawText;

    /// The width of the text in pixels, at the present size: where text that follows would start.
    int text_width(const wchar_t* text, int length) const;

private:
    const stroke_face* face = nullptr; ///< not owned
};
