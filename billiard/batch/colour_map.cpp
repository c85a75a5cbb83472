// SPDX-License-Identifier: MIT
// Colours for numbers: equal steps of a value look like equal steps of colour.
#include "billiard/batch/colour_map.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace batch {

namespace {

// A colour of OKLab: lightness, and two axes across it.
struct lab {
    double L, a, b;
};

// The path through the colours, t from 0 to 1: lightness grows evenly, the hue turns from blue over
// red to yellow, and the ends have little colour, where the space of a screen narrows.
lab path(double t) {
    const double lightness = 0.15 + 0.82 * t;
    const double hue = (280 + 180 * t) * std::numbers::pi / 180;
    const double chroma = 0.17 * std::pow(std::sin(std::numbers::pi * std::pow(t, 0.9)), 0.8);
    return {lightness, chroma * std::cos(hue), chroma * std::sin(hue)};
}

double cube(double x) {
    return x * x * x;
}

std::uint8_t encoded(double linear) {
    const double x = std::clamp(linear, 0.0, 1.0);
    const double level = x <= 0.0031308 ? 12.92 * x : 1.055 * std::pow(x, 1 / 2.4) - 0.055;
    return static_cast<std::uint8_t>(std::lround(255 * level));
}

// B. Ottosson, "A perceptual color space for image processing", 2020.
rgb on_screen(const lab& colour) {
    const auto [L, a, b] = colour;
    const double l = cube(L + 0.3963377774 * a + 0.2158037573 * b);
    const double m = cube(L - 0.1055613458 * a - 0.0638541728 * b);
    const double s = cube(L - 0.0894841775 * a - 1.2914855480 * b);
    return {encoded(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
            encoded(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
            encoded(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s)};
}

// Walks the path and takes a colour whenever another part of its length is done.
std::array<rgb, colour_count> evenly_spaced() {
    constexpr int places = 10001;
    const auto place = [](int i) { return path(static_cast<double>(i) / (places - 1)); };
    std::array<double, places> way{};
    lab before = place(0);
    for (int i = 1; i < places; ++i) {
        const lab here = place(i);
        way[i] = way[i - 1] + std::hypot(here.L - before.L, here.a - before.a, here.b - before.b);
        before = here;
    }
    std::array<rgb, colour_count> colours;
    int at = 0;
    for (int i = 0; i < colour_count; ++i) {
        while (way[at] < way.back() * i / (colour_count - 1))
            ++at;
        colours[i] = on_screen(place(at));
    }
    return colours;
}

} // namespace

const std::array<rgb, colour_count>& colour_map() {
    static const std::array<rgb, colour_count> colours = evenly_spaced();
    return colours;
}

int colour_index(double value, double low, double high) {
    if (std::isnan(value)) return -1;
    const double share = (value - low) / (high - low); // NaN where both ends are one
    if (!(share > 0)) return 0;
    return std::min(colour_count - 1, static_cast<int>(std::min(share, 1.0) * colour_count));
}

} // namespace batch
