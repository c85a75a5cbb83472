// SPDX-License-Identifier: MIT
// The one table of the curves that the "Function" menu offers: menu entry, dialog, texts, class.
#pragma once

#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/kit_string.h"

#include <fx.h>

#include <memory>
#include <variant>
#include <vector>

/// What stands in the fields of a curve's dialog, in their order.
using curve_values = std::vector<std::variant<double, int, FXString>>;

/// One field of a curve's dialog. The kind of its first value is the kind of the field.
struct curve_parameter {
    const char* label;                            ///< in the toolkit's label syntax, UTF-8
    std::variant<double, int, const char*> first; ///< offered until a value was accepted
    int history_line;                             ///< names the field's input history
};

/// How the fields of a dialog are laid out.
enum class field_layout { rows, matrix };

/// A curve of the menu and its dialog.
struct curve_entry {
    const char* name; ///< menu text
    FXuint id;        ///< message of the menu entry
    kit::string (*heading)();
    std::vector<curve_parameter> parameters;

    /// Builds the curve from the fields' values, one for each parameter. Null for values that it
    /// refuses, where there is a refusal; throws TError where the error has a text of its own.
    std::unique_ptr<TRadiusFunction> (*build)(const curve_values& values);

    const char* refusal = nullptr; ///< what the box says when `build` gives null

    field_layout layout = field_layout::rows;
    bool cancel_first = false;   ///< order of the buttons
    FXint width = 0, height = 0; ///< of the dialog in pixels; 0: what its content wants
};

/// The curves in the order of the menu.
const std::vector<curve_entry>& curve_table();

/// The curve with that message id, which must be one of the table's.
const curve_entry& curve_of(FXuint id);

/// What the fields of a curve's dialog hold before anything was accepted in it.
curve_values first_values(const curve_entry& entry);
