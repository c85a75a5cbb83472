// SPDX-License-Identifier: MIT
// Lays out a text of strokes and draws its lines, rotated, on the drawing context.
#include "mathkit/stroke_font.h"

#include "mathkit/stroke_face.h"
#include "mathkit/stroke_tracer.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

template<class Entry>
const Entry* find(std::span<const Entry> table, wchar_t code) {
    const auto found = std::lower_bound(table.begin(), table.end(), code,
                                        [](const Entry& e, wchar_t c) { return e.code < c; });
    return found != table.end() && found->code == code ? &*found : nullptr;
}

// What a character is made of: a glyph, and perhaps an accent on it.
struct parts {
    const stroke_glyph* letter;
    const stroke_glyph* accent;
    int rise;
};

parts parts_of(const stroke_face& face, wchar_t code) {
    const accented_letter* both = find(face.accented, code);
    const stroke_glyph* letter = find(face.glyphs, both ? both->letter : code);
    if (!letter) letter = &face.glyphs.front();
    if (!both) return {letter, nullptr, 0};
    return {letter, find(face.glyphs, both->accent), both->rise};
}

// Rotates a pixel of the text (columns to the right, rows upward from the base line) about the
// anchor. It moves the centre of the pixel, so that a right angle hits pixels exactly.
class rotation {
public:
    rotation(int x, int y, double angle) : x(x), y(y), c(std::cos(angle)), s(std::sin(angle)) {}

    void operator()(int column, int row, int& out_x, int& out_y) const {
        const double along = column + 0.5;
        const double up = row + 0.5;
        out_x = to_pixel(x + along * c - up * s);
        out_y = to_pixel(y - along * s - up * c);
    }

private:
    static int to_pixel(double value) {
        constexpr double limit = base_font::coordinate_limit;
        return static_cast<int>(std::floor(std::clamp(value, -limit, limit)));
    }

    double x, y, c, s;
};

} // namespace

stroke_font::stroke_font() = default;
stroke_font::~stroke_font() = default;

void stroke_font::load_default() {
    face = &default_stroke_face;
}

int stroke_font::text_width(const wchar_t* text, int length) const {
    if (!face) return 0;
    const stroke_tracer tracer(static_cast<int>(usable_size(size)));
    int width = 0;
    const int count = length_of(text, length);
    for (int i = 0; i < count && width < coordinate_limit; i++) {
        width += tracer.advance(*parts_of(*face, text[i]).letter);
    }
    return width;
}

void stroke_font::drawText(int x, int y, const wchar_t* text, int length) {
    if (!face || !line_function) return;
    const int count = length_of(text, length);
    move_to_base_line(x, y, text_width(text, count));

    stroke_tracer tracer(static_cast<int>(usable_size(size)));
    const rotation rotate(x, y, usable_rot());
    int origin = 0;
    for (int i = 0; i < count && origin < coordinate_limit; i++) {
        const parts part = parts_of(*face, text[i]);
        tracer.trace(*part.letter, origin);
        if (part.accent) tracer.trace_accent(*part.accent, *part.letter, part.rise, origin);
        origin += tracer.advance(*part.letter);

        for (const stroke_tracer::line& line : tracer.lines) {
            int x1, y1, x2, y2;
            rotate(line.x1, line.y1, x1, y1);
            rotate(line.x2, line.y2, x2, y2);
            line_function(x1, y1, x2, y2, dc);
        }
        tracer.lines.clear();
    }
}
