// SPDX-License-Identifier: MIT
// The two file dialogs: they remember the chosen file's directory for the run, and saving asks
// before it overwrites.
#pragma once

#include "mathkit/kit_string.h"

#include <fx.h>

#include <functional>

/// Asks for the name of an existing file.
///
/// `file` goes in as the proposed name, or empty, and comes out as the chosen path, or empty if the
/// user cancelled. `patterns` is a list in the form of FXFileDialog::setPatternList, or empty. The
/// last three arguments name the history that keeps the chosen file's directory, as those of
/// history_object.
/// `owner` must have been created.
void open_file_dialog(FXWindow* owner, const FXString& title, kit::string& file,
                      const kit::string& patterns, const kit::string& key_file, int key_line,
                      void* key_context);

/// Tells under which name a chosen file will really be written.
using written_name = std::function<kit::string(const kit::string& chosen)>;

/// Asks for the name of a file to write, and asks again before one that exists is overwritten.
///
/// "No" opens the dialog again on the chosen name; "Cancel", or closing the question, empties
/// `file`. With a `rule` the question is also asked about the name that it gives. `file` comes out
/// as it was chosen. Otherwise as open_file_dialog.
void save_file_dialog(FXWindow* owner, const FXString& title, kit::string& file,
                      const kit::string& patterns, const kit::string& key_file, int key_line,
                      void* key_context, const written_name& rule = {});
