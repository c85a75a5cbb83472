// SPDX-License-Identifier: MIT
// The layouts of an axis, put together from a few steps that they share.
#include "libfoxaux/fox-utils/fox_axis.h"

#include "libfoxaux/font/fox_hfont.h"

#include <numbers>

namespace {

// Rotations of text: from left to right, and upward.
constexpr double level = 0;
constexpr double upward = std::numbers::pi / 2;

constexpr int label_gap = 5; // pixels between ticks and text

int middle(const fox_axis& axis) {
    return (axis.from + axis.to) / 2;
}

int one_text_line(const fox_axis& axis) {
    return 8 + axis.tick_len + axis.font_size;
}

void put_text(const fox_axis& axis, double rot, int x, int y, unsigned align,
              const kit::wstring& text) {
    if (text.is_empty()) return;
    ensure_hfont();
    hfont->set_dc(axis.dc);
    hfont->setsizerot(axis.font_size, rot);
    hfont->align = align;
    hfont->drawText(x, y, text.c_str(), -1);
}

// Horizontal axes: texts hang by their tops from one height.

int text_top(const fox_axis& axis) {
    return axis.pos + label_gap + axis.tick_len;
}

void put_below(const fox_axis& axis, int x, unsigned align, const kit::wstring& text) {
    put_text(axis, level, x, text_top(axis), base_font::top | align, text);
}

void draw_x_line(const fox_axis& axis, int tick_above) {
    axis.dc->drawLine(axis.from, axis.pos, axis.to, axis.pos);
    for (const int t : axis.ticks) {
        axis.dc->drawLine(t, axis.pos - tick_above, t, axis.pos + axis.tick_len);
    }
}

bool draw_x_end_labels(const fox_axis& axis) {
    if (axis.ticks.size() < 2 || axis.labels.size() < 2) return false;
    put_below(axis, axis.ticks.front(), 0, axis.labels.front());
    put_below(axis, axis.ticks.back(), base_font::end, axis.labels.back());
    return true;
}

// Vertical axes: texts stand on one line and read upward.

int text_base(const fox_axis& axis) {
    return axis.pos - axis.tick_len - label_gap;
}

void put_beside(const fox_axis& axis, int y, unsigned align, const kit::wstring& text) {
    put_text(axis, upward, text_base(axis), y, align, text);
}

void draw_y_line(const fox_axis& axis) {
    axis.dc->drawLine(axis.pos, axis.from, axis.pos, axis.to);
    for (const int t : axis.ticks)
        axis.dc->drawLine(axis.pos, t, axis.pos - axis.tick_len, t);
}

bool has_y_labels(const fox_axis& axis) {
    return axis.ticks.size() > 1 && axis.labels.size() >= axis.ticks.size();
}

void draw_y_end_labels(const fox_axis& axis) {
    if (!has_y_labels(axis)) return;
    put_beside(axis, axis.ticks.front(), 0, axis.labels.front());
    put_beside(axis, axis.ticks.back(), base_font::end, axis.labels.back());
}

} // namespace

int null_axis::thickness() {
    return 0;
}

void null_axis::draw() {}

int xaxis::thickness() {
    return tick_len;
}

void xaxis::draw() {
    draw_x_line(*this, 0);
}

int xaxis1a::thickness() {
    return one_text_line(*this);
}

void xaxis1a::draw() {
    xaxis::draw();
    draw_x_end_labels(*this);
}

void xaxis1b::draw() {
    xaxis1a::draw();
    put_below(*this, middle(*this), base_font::center, title);
}

void xaxis1b_twocolor::draw() {
    dc->setForeground(line_color);
    xaxis1a::draw();
    dc->setForeground(low_color);
    put_below(*this, middle(*this) - font_size, base_font::end, title_low);
    dc->setForeground(high_color);
    put_below(*this, middle(*this) + font_size, 0, title_high);
}

int xaxis1c::thickness() {
    return one_text_line(*this);
}

void xaxis1c::draw() {
    draw_x_line(*this, tick_len);
    if (!draw_x_end_labels(*this)) return;
    put_text(*this, level, middle(*this), pos - tick_len - label_gap, base_font::center, title);
}

int xaxis2a::thickness() {
    return font_size + tick_len;
}

void xaxis2a::draw() {
    xaxis::draw();
    if (ticks.size() < 2 || labels.size() < ticks.size()) return;
    for (std::size_t i = 0; i < ticks.size(); i++) {
        put_text(*this, level, ticks[i], pos + tick_len, base_font::top | base_font::center,
                 labels[i]);
    }
}

int yaxis::thickness() {
    return tick_len;
}

void yaxis::draw() {
    draw_y_line(*this);
}

int yaxis1a::thickness() {
    return one_text_line(*this);
}

void yaxis1a::draw() {
    yaxis::draw();
    draw_y_end_labels(*this);
}

void yaxis1b::draw() {
    yaxis1a::draw();
    put_beside(*this, middle(*this), base_font::center, title);
}

void yaxis1b_twocolor::draw() {
    dc->setForeground(line_color);
    yaxis1a::draw();
    dc->setForeground(low_color);
    put_beside(*this, middle(*this) + font_size, base_font::end, title_low);
    dc->setForeground(high_color);
    put_beside(*this, middle(*this) - font_size, 0, title_high);
}

int yaxis2b::thickness() {
    return 13 + tick_len + 2 * font_size;
}

void yaxis2b::draw() {
    draw_y_line(*this);
    if (!has_y_labels(*this)) return;
    for (std::size_t i = 0; i < ticks.size(); i++) {
        put_beside(*this, ticks[i], base_font::center, labels[i]);
    }
    const int title_base = pos - tick_len - font_size - 10;
    put_text(*this, upward, title_base, middle(*this), base_font::center, title);
}
