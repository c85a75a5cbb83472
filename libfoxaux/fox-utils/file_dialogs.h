// SPDX-License-Identifier: MIT
// The two file dialogs: they remember their directory for the run, saving asks before overwriting.
#pragma once

#include "mathkit/kit_string.h"

#include <fx.h>

/// Asks for the name of an existing file.
///
/// `file` goes in as the proposed name, or empty, and comes out as the chosen path, or empty if the
/// user cancelled. `patterns` is a list in the form of FXFileDialog::setPatternList, or empty. The
/// last three arguments name the history that keeps the directory, as those of history_object.
/// `owner` must have been created.
void open_file_dialog(FXWindow* owner, const FXString& title, kit::string& file,
                      const kit::string& patterns, const kit::string& key_file, int key_line,
                      void* key_context);

/// Asks for the name of a file to write, and asks again before one that exists is overwritten.
///
/// A cancelled question empties `file`, as does closing it; "No" opens the dialog again on the
/// chosen name. Otherwise as open_file_dialog.
void save_file_dialog(FXWindow* owner, const FXString& title, kit::string& file,
                      const kit::string& patterns, const kit::string& key_file, int key_line,
                      void* key_context);

/// Asks whether the file of the path `file` may be overwritten; gives MBOX_CLICKED_YES, _NO or
/// _CANCEL. Closing the box counts as cancelling.
FXuint ask_overwrite(FXWindow* owner, const kit::string& file);

/// Shows a box "Error" with an OK button and a text of the user's or of an exception below
/// `first_line`, which ends in a line break.
void show_error(FXWindow* owner, const char* first_line, const kit::string& text);
