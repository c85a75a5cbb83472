// SPDX-License-Identifier: MIT
// Colours for numbers: equal steps of a value look like equal steps of colour.
#pragma once

#include <array>
#include <cstdint>

namespace batch {

/// Red, green, blue, as screens take them (sRGB).
using rgb = std::array<std::uint8_t, 3>;

inline constexpr int colour_count = 255;

/// Colours from a dark blue over red to a light yellow, each lighter than the one before, at equal
/// distances in the space OKLab, which is made for even perception (Ottosson 2020).
const std::array<rgb, colour_count>& colour_map();

/// For cells without a value: a grey.
inline constexpr rgb no_value_colour = {128, 128, 128};

/// The place of a value in the map that reaches from `low` to `high`; values beyond them have the
/// colours of the ends. -1 for NaN.
int colour_index(double value, double low, double high);

} // namespace batch
