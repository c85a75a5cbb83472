// SPDX-License-Identifier: MIT
// The picture of a grid of cells, as a PNG file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace batch {

/// How the rows of `map --cells` become a picture.
struct picture_plan {
    std::int64_t width = 0, height = 0;             ///< cells
    int scale = 1;                                  ///< pixels on each side of a cell
    int column = 2;                                 ///< of the rows: where the value stands
    std::optional<std::pair<double, double>> range; ///< at the ends of the colours
    std::string title;                              ///< a text in the file
};

/// The most pixels on a side.
inline constexpr std::int64_t most_pixels = 65535;

/// Draws the values of a file of rows, cell by cell from the upper left, and puts the picture in
/// the place of the file `name` once it is whole. Reads the rows twice and holds one line of the
/// picture. Answers the values at the ends of the colours: those of the plan, or the least and the
/// largest. Throws run_error, and then there is no new picture.
std::pair<double, double> draw_picture(const picture_plan& plan, const std::string& rows_name,
                                       const std::string& name);

} // namespace batch
