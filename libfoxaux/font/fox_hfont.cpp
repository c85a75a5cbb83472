// SPDX-License-Identifier: MIT
// The current plot font, and the stroke font's lines on the toolkit.
#include "libfoxaux/font/fox_hfont.h"

#include "libfoxaux/fox_compat.h"

#include <fx.h>

#include <memory>

base_font* hfont = nullptr;

void ensure_hfont() {
    if (hfont) return;
    auto font = std::make_unique<fox_stroke_font>();
    font->load_default();
    hfont = font.release();
}

void stroke_line(int x1, int y1, int x2, int y2, void* dc) {
    using fox_compat::is_drawable_coordinate;
    if (!is_drawable_coordinate(x1) || !is_drawable_coordinate(y1)) return;
    if (!is_drawable_coordinate(x2) || !is_drawable_coordinate(y2)) return;
    static_cast<FXDC*>(dc)->drawLine(x1, y1, x2, y2);
}

fox_stroke_font::fox_stroke_font() {
    line_function = stroke_line;
}

fox_stroke_font::~fox_stroke_font() = default;
