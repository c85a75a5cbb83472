// SPDX-License-Identifier: MIT
// The plot font that renders the glyphs of a font file by FreeType.
#pragma once

#include "mathkit/base_font.h"

#include <cstdint>
#include <memory>
#include <vector>

/// A scalable font file (TrueType, OpenType, Type 1, ...), rendered glyph by glyph.
///
/// A back-end overrides draw_bitmap. Once the constructor has come through, nothing throws: a glyph
/// that cannot be rendered is left out.
class ttf_font : public base_font {
public:
    /// Grey edges or hard ones.
    bool antialias = true;

    /// Opens the first face of the file. Throws TError, with a text that names the file and tells
    /// the reason, if there is no such file, or it is no scalable font.
    explicit ttf_font(const char* path);
    ~ttf_font() override;

    void drawText(int x, int y, const wchar_t* text, int length) override;
    using base_font::drawText;

    /// The way from the start of the text to its end, in pixels, at the present size.
    int text_width(const wchar_t* text, int length) const;

protected:
    /// Paints one glyph. `bitmap` is an FT_Bitmap*, of pixel mode grey or mono, valid during the
    /// call only and empty for a blank; (x, y) is the pixel of its top left corner.
    virtual void draw_bitmap(void* bitmap, int x, int y) = 0;

private:
    struct face;
    struct placed_glyph;

    std::int32_t load_flags() const;
    std::vector<placed_glyph> lay_out(const wchar_t* text, int length, int& width) const;
    void draw_glyph(unsigned index, int x, int y);

    std::unique_ptr<face> opened;
};
