// SPDX-License-Identifier: MIT
// The colour keywords of HTML and CSS.
#pragma once

#include <cstdint>

namespace html_colors {

/// The colour of a keyword as 0xRRGGBB; upper and lower case are one. Throws TError for a name
/// that is no keyword, null included.
///
/// name2color("red") is 0xff0000, name2color("DarkSlateGray") is 0x2f4f4f.
std::uint32_t name2color(const char* name);

} // namespace html_colors
