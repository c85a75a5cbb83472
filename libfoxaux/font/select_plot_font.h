// SPDX-License-Identifier: MIT
// The dialog "Select Font": the one font of all plots, with its size and colour.
#pragma once

#include "libfoxaux/font/font_choice.h"

#include <fx.h>

/// Lets the user choose kind, size and colour of the plot font. On "&Accept" the global `hfont` is
/// replaced and every plot takes size and axis colour and is redrawn. A font file that can't be
/// loaded is reported in a box and changes nothing.
void select_plot_font();

namespace detail_hfont {

/// A data target for a text: id 0 is a field that edits it, id 1 a button that asks for a file.
class specDataTarget : public FXObject {
    FXDECLARE(specDataTarget)

public:
    FXString* value = nullptr; ///< not owned

    specDataTarget() = default; ///< useless until `value` is set
    explicit specDataTarget(FXString* value) : value(value) {}
    ~specDataTarget() override = default;

    long onCmdValue(FXObject*, FXSelector, void*);
    long onUpdValue(FXObject*, FXSelector, void*);
    long onCmdBrowse(FXObject*, FXSelector, void*);
};

/// A data target for a font of the toolkit: id 0 is a button that chooses one, id 1 a field that
/// shows it.
class specDataTarget1 : public font_choice {
    FXDECLARE(specDataTarget1)

public:
    specDataTarget1() = default;
    /// Describes `font`, which must have been created, by what the screen really shows of it.
    explicit specDataTarget1(FXFont* font) { take_font(font); }
    ~specDataTarget1() override = default;

    void set_desc(const FXFontDesc& d) { take_desc(d); }
    void set_name(const char* text) { take_text(text); }
};

} // namespace detail_hfont
