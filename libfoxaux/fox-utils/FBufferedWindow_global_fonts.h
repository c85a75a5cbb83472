// SPDX-License-Identifier: MIT
// What the rows of the dialog "Select Global Fonts" show and change.
#pragma once

#include "libfoxaux/fox-utils/font_choice.h"

namespace detail_font {

/// The font of one row of the dialog, see font_choice.
class specDataTarget : public font_choice {
    FXDECLARE(specDataTarget)

public:
    /// Takes `font`, which must have been created.
    explicit specDataTarget(const FXFont* font) : font_choice(font) {}
    ~specDataTarget() override = default;

    /// For callers that have a description; this dialog has texts, from the registry.
    void set_from_desc(FXFontDesc& d) { take_desc(d); }
    void set_from_text(const char* text) { take_text(text); }

protected:
    specDataTarget() = default;
};

} // namespace detail_font
