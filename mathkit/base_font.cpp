// SPDX-License-Identifier: MIT
// What all plot fonts share: usable sizes, alignment, and Latin-1 text by way of wide text.
#include "mathkit/base_font.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <cwchar>
#include <string>

namespace {

constexpr double smallest_size = 1;
constexpr double default_size = 12;
constexpr double largest_size = 400; // a letter then fills a screen, and still fits in memory

int to_coordinate(double value) {
    constexpr double limit = base_font::coordinate_limit;
    return static_cast<int>(std::lround(std::clamp(value, -limit, limit)));
}

} // namespace

void base_font::setsizerot(double points, double radians) {
    setsize(points);
    setrot(radians);
}

void base_font::drawText(int x, int y, const char* text, int length) {
    const std::size_t count = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
    std::wstring wide(count, L'\0');
    for (std::size_t i = 0; i < count; i++)
        wide[i] = static_cast<unsigned char>(text[i]);
    drawText(x, y, wide.c_str(), static_cast<int>(count));
}

double base_font::usable_size(double points) {
    if (std::isnan(points)) return default_size;
    return std::clamp(points, smallest_size, largest_size);
}

int base_font::length_of(const wchar_t* text, int length) {
    return length < 0 ? static_cast<int>(std::wcslen(text)) : length;
}

double base_font::usable_rot() const {
    return std::isfinite(rot) ? rot : 0;
}

void base_font::move_to_base_line(int& x, int& y, int width) const {
    const int points = static_cast<int>(usable_size(size));
    int along = 0;
    int down = 0;
    if (align & end) along -= width;
    if (align & center) along -= width / 2;
    if (align & top) down += points;
    if (align & middle) down += points / 2;

    const double c = std::cos(usable_rot());
    const double s = std::sin(usable_rot());
    x = to_coordinate(x + along * c + down * s);
    y = to_coordinate(y - along * s + down * c);
}
