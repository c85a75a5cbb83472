// SPDX-License-Identifier: MIT
// What the rows of the dialog "Select Global Fonts" show and change.
#pragma once

#include "libfoxaux/font/font_choice.h"

namespace detail_font {

/// A data target for a font of the toolkit: id 0 is a button that chooses one, id 1 a field that
/// shows it.
class specDataTarget : public font_choice {
    FXDECLARE(specDataTarget)

public:
    /// Describes `font`, which must have been created, by what the screen really shows of it.
    explicit specDataTarget(const FXFont* font) { take_font(font); }
    ~specDataTarget() override = default;

    void set_from_desc(FXFontDesc& d) { take_desc(d); }
    void set_from_text(const char* text) { take_text(text); }

protected:
    specDataTarget() = default;
};

} // namespace detail_font
