// SPDX-License-Identifier: MIT
// The dialog "Select Font": the one font of all plots, with its size and colour.
#pragma once

#include "libfoxaux/fox-utils/font_choice.h"

/// Lets the user choose kind, size and colour of the plot font. On "&Accept" the global `hfont` is
/// replaced and every plot takes size and axis colour and is redrawn. A font file that can't be
/// loaded is reported in a box and changes nothing.
void select_plot_font();

namespace detail_hfont {

/// The path of a font file, as the target of two widgets:
///
///     entry field   ID_PATH    SEL_COMMAND, SEL_CHANGED  onCmdValue   takes what is typed
///                              SEL_UPDATE                onUpdValue   shows the path
///     button "..."  ID_BROWSE  SEL_COMMAND               onCmdBrowse  asks for a file
class specDataTarget : public FXObject {
    FXDECLARE(specDataTarget)

public:
    FXString* value = nullptr; ///< the path, not owned

    enum { ID_PATH = 0, ID_BROWSE = 1 };

    specDataTarget() = default; ///< useless until `value` is set
    explicit specDataTarget(FXString* value) : value(value) {}
    ~specDataTarget() override = default;

    long onCmdValue(FXObject*, FXSelector, void*);
    long onUpdValue(FXObject*, FXSelector, void*);
    long onCmdBrowse(FXObject*, FXSelector, void*);
};

/// A font of the toolkit, see font_choice.
class specDataTarget1 : public font_choice {
    FXDECLARE(specDataTarget1)

public:
    specDataTarget1() = default; ///< for the metaclass
    /// Takes `font`, which must have been created.
    explicit specDataTarget1(FXFont* font) : font_choice(font) {}
    ~specDataTarget1() override = default;

    /// For callers that have a description; this dialog has a text, from its history.
    void set_desc(const FXFontDesc& d) { take_desc(d); }
    void set_name(const char* text) { take_text(text); }
};

} // namespace detail_hfont
