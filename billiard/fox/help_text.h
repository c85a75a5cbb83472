// SPDX-License-Identifier: MIT
// The user's manual as the build packs it from help.txt.
#pragma once

/// One zlib stream, the two arguments of main_base::show_help.
namespace help_text {

extern const char data[];
extern const unsigned size; ///< bytes of `data`

} // namespace help_text
