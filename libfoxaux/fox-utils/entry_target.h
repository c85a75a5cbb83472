// SPDX-License-Identifier: MIT
// Ties an entry field of a dialog to its variable, and notices a text that is no number.
#pragma once

#include "mathkit/kit_string.h"

#include <fx.h>

/// A data target whose variable follows the field as in the toolkit: a number takes what the text
/// begins with, or 0. But a text that is not a number as a whole stays in the field as it was
/// typed, so that the user can be told.
class entry_target : public FXDataTarget {
    FXDECLARE(entry_target)

public:
    FXTextField* field = nullptr; ///< shows the variable; to be set before a message comes

    /// `label` is how the user knows the field.
    entry_target(const char* label, double& value) : FXDataTarget(value), label(label) {}
    entry_target(const char* label, FXint& value) : FXDataTarget(value), label(label) {}
    entry_target(const char* label, FXString& value) : FXDataTarget(value), label(label) {}

    /// What the user must be told before the field's text can be taken, or an empty text: an int
    /// takes whole numbers only, a double whatever reads as one (also 1e3, inf), with white
    /// space around, and a text everything.
    kit::string complaint() const;

    long onCmdValue(FXObject*, FXSelector, void*);
    long onUpdValue(FXObject*, FXSelector, void*);

protected:
    entry_target() = default;

private:
    const char* label = nullptr;
    bool stays = false; ///< what was typed last is no number
};
