// SPDX-License-Identifier: MIT
// The FreeType plot font, painting its glyph bitmaps on the toolkit's drawing contexts.
#pragma once

#include "mathkit/ttf_font.h"

/// Draws the glyphs of a font file on an FXDCWindow, mixed into what the picture holds.
class fox_ttf_font : public ttf_font {
public:
    /// Opens the font file; throws TError as ttf_font does.
    explicit fox_ttf_font(const char* path);
    ~fox_ttf_font() override;

protected:
    void draw_bitmap(void* bitmap, int x, int y) override;
};
