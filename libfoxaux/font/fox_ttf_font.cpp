// SPDX-License-Identifier: MIT
// Mixes the coverage of glyph bitmaps into the picture.
#include "libfoxaux/font/fox_ttf_font.h"

#include "libfoxaux/fox_compat.h"
#include "mathkit/stderr_failed.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <fx.h>

#include <algorithm>

namespace {

// The part of a glyph that lies on the drawable, in columns and rows of the glyph.
struct visible_part {
    int left, top, right, bottom; // the last two are the first ones outside

    visible_part(const FT_Bitmap& glyph, const FXDrawable& target, int x, int y)
        : left(std::max(0, -x)),
          top(std::max(0, -y)),
          right(std::min(static_cast<int>(glyph.width), target.getWidth() - x)),
          bottom(std::min(static_cast<int>(glyph.rows), target.getHeight() - y)) {}

    bool empty() const { return left >= right || top >= bottom; }
    int width() const { return right - left; }
    int height() const { return bottom - top; }
};

const unsigned char* row_of(const FT_Bitmap& glyph, int row) {
    return glyph.buffer + static_cast<std::ptrdiff_t>(row) * glyph.pitch;
}

int mix_channel(int old_value, int ink, int coverage) {
    return old_value + (ink - old_value) * coverage / 255;
}

FXColor mix(FXColor old_color, FXColor ink, int coverage) {
    return FXRGB(mix_channel(FXREDVAL(old_color), FXREDVAL(ink), coverage),
                 mix_channel(FXGREENVAL(old_color), FXGREENVAL(ink), coverage),
                 mix_channel(FXBLUEVAL(old_color), FXBLUEVAL(ink), coverage));
}

void draw_gray(FXDCWindow* dc, const FT_Bitmap& glyph, const visible_part& part, int x, int y) {
    // Reading single pixels costs two round trips to the server each; the box is fetched at once.
    FXImage under(dc->getApp(), nullptr, IMAGE_KEEP, part.width(), part.height());
    under.create();
    {
        fox_compat::inner_dc inner(&under, dc);
        inner.dc.drawArea(fox_compat::drawable_of(dc), x + part.left, y + part.top, part.width(),
                          part.height(), 0, 0);
    }
    under.restore();

    const FXColor ink = dc->getForeground();
    for (int r = part.top; r < part.bottom; r++) {
        const unsigned char* coverage = row_of(glyph, r);
        for (int c = part.left; c < part.right; c++) {
            if (coverage[c] == 0) continue;
            const FXColor old_color = under.getPixel(c - part.left, r - part.top);
            dc->setForeground(mix(old_color, ink, coverage[c]));
            dc->drawPoint(x + c, y + r);
        }
    }
    dc->setForeground(ink);
}

void draw_mono(FXDCWindow* dc, const FT_Bitmap& glyph, const visible_part& part, int x, int y) {
    for (int r = part.top; r < part.bottom; r++) {
        const unsigned char* bits = row_of(glyph, r);
        for (int c = part.left; c < part.right; c++) {
            if (bits[c >> 3] & (0x80 >> (c & 7))) dc->drawPoint(x + c, y + r);
        }
    }
}

} // namespace

fox_ttf_font::fox_ttf_font(const char* path) : ttf_font(path) {}

fox_ttf_font::~fox_ttf_font() = default;

void fox_ttf_font::draw_bitmap(void* bitmap, int x, int y) {
    const auto& glyph = *static_cast<const FT_Bitmap*>(bitmap);
    if (glyph.pixel_mode != FT_PIXEL_MODE_GRAY && glyph.pixel_mode != FT_PIXEL_MODE_MONO) {
        stderr_fatal_error("freetype: pixel format not recognized", "libfoxaux/font/fox_ttf_font",
                           __LINE__, "virtual void fox_ttf_font::draw_bitmap(void*, int, int)");
    }
    auto* target = static_cast<FXDCWindow*>(dc);
    if (!fox_compat::is_drawable_coordinate(x) || !fox_compat::is_drawable_coordinate(y)) return;
    const visible_part part(glyph, *fox_compat::drawable_of(target), x, y);
    if (part.empty()) return;
    if (glyph.pixel_mode == FT_PIXEL_MODE_MONO) {
        draw_mono(target, glyph, part, x, y);
        return;
    }
    try {
        draw_gray(target, glyph, part, x, y);
    } catch (const FXException&) {
        // The server has no room for the copy: this glyph is left out, the plot goes on.
    }
}
