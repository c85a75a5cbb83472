// SPDX-License-Identifier: MIT
// Makes any text safe for a label or a message box.
//
// The toolkit reads labels as UTF-8, takes '&' for a hot key and cuts them off at a tab; the
// program's own texts may be Latin-1 (the degree sign), and a user's text may hold anything and be
// of any length.
#pragma once

#include <fx.h>

/// `text` as label text of at most `lines` lines, in UTF-8 and with '&' doubled. A line wider
/// than `width` pixels of `font`, which must be created, is broken, at its last blank if it has
/// one; what does not fit into `lines` lines becomes "...". A text that is not UTF-8 counts as
/// Latin-1.
FXString label_text(const char* text, const FXFont* font, FXint width, FXint lines = 1);

/// The same for a message box: line breaks stay, a line is broken after 100 characters, or fewer on
/// a narrow screen, and the text ends with "..." after 20 lines.
FXString box_text(const char* text);

/// Shows `text`, whatever it holds, in a box with the caption "Error" and one OK button, and
/// returns when it is closed. `owner` is the window whose action failed.
void show_error(FXWindow* owner, const char* text);
