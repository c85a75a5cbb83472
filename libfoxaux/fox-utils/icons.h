// SPDX-License-Identifier: MIT
// The program's icons as the build embeds them from libfoxaux/icons, each 32 x 32.
#pragma once

/// Picture files in memory, for the toolkit's icon classes with their default arguments.
namespace icons {

extern const char main_ico[];  ///< FXICOIcon: the program, an orbit in an oval
extern const char help_ico[];  ///< FXICOIcon: a question mark
extern const char file_gif[];  ///< FXGIFIcon: a folder, for the file dialogs
extern const char color_png[]; ///< FXPNGIcon: patches of colour, for the colour dialogs
extern const char range_ico[]; ///< FXICOIcon: a gear wheel, for "Change Position"

} // namespace icons
