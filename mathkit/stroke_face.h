// SPDX-License-Identifier: MIT
// The data of a stroke font: glyphs as short texts of strokes, and accented letters by their parts.
#pragma once

#include <span>

/// One glyph, drawn in units of a hundredth of a capital's height, y upward from the base line.
///
/// The path is a text of commands, each a letter with whole numbers:
///
///     M x y                  begins a stroke at a point
///     L x y                  goes on by a straight line
///     A x0 y0 x1 y1 from to  goes on by an arc of the ellipse in a box, between two angles in
///                            degrees, 0 to the right and 90 up; the way leads from `from` to `to`
///     O x0 y0 x1 y1          a whole ellipse
///     B x0 y0 x1 y1          a filled box
///
/// A path that begins with | has a stroke along its middle: both halves get as many pixels.
struct stroke_glyph {
    wchar_t code;
    int left;  ///< blank before the strokes
    int width; ///< of the strokes, between x = 0 and x = width
    int right; ///< blank behind the strokes
    const char* path;
};

/// A letter with an accent over (or a cedilla under) its middle.
struct accented_letter {
    wchar_t code;
    wchar_t letter;
    wchar_t accent; ///< a glyph with x = 0 at its middle, placed for small letters
    int rise;       ///< how much higher the accent stands than over a small letter
};

/// A whole face; both tables are in the order of their codes. Code 0 is what a missing character
/// looks like.
struct stroke_face {
    std::span<const stroke_glyph> glyphs;
    std::span<const accented_letter> accented;
};

/// The face that stroke_font::load_default loads: all of ASCII and Latin-1.
extern const stroke_face default_stroke_face;
