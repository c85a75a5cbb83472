// SPDX-License-Identifier: MIT
// Writes a picture as a PDF document of one page.
#pragma once

#include <cstdint>

class whole_file;

/// Writes the picture as a compressed PDF whose single page has the picture's shape.
///
/// `pixels` holds `w` * `h` words row by row from the top, each with alpha, blue, green and red
/// from its high byte down; alpha is not written. The page is one point (1/72 inch) a pixel, or
/// less where a side would be longer than a page may be. Pixels go to the file as they are read,
/// so a large picture needs no memory of its own.
///
/// Nothing tells whether the file could be written. An old file of that name stays as it was until
/// the new one is whole; sides below 1 and a null pointer write nothing.
void save_rgba_as_pdf(const char* path, int w, int h, const std::uint32_t* pixels);

/// The same into a file that is open, and which tells what fails. False if there is no memory.
bool write_rgba_as_pdf(whole_file& file, int w, int h, const std::uint32_t* pixels);
