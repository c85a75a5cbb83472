// SPDX-License-Identifier: MIT
// A font of the toolkit as description and as text, and the dialog that chooses one.
#pragma once

#include <fx.h>

/// What the data targets of the font dialogs keep: one font in the toolkit's two forms.
///
/// No font is created for the translation between the forms.
class font_choice : public FXObject {
public:
    FXFontDesc desc{}; ///< the font as a description
    FXString name;     ///< the same as the toolkit's font text

    enum { ID_BUTTON = 0, ID_FIELD = 1 };

    long onCmdChange(FXObject*, FXSelector, void*); ///< the button's command
    long onUpdName(FXObject*, FXSelector, void*);   ///< the field's update

    /// Adds a read-only field that shows the font, and a button "..." that chooses another one.
    void add_widgets(FXComposite* parent);

protected:
    font_choice() = default;

    /// Describes `font`, which must have been created, by what the screen really shows of it: the
    /// font dialog replaces a face, weight or slant that it can't find by the first of its list.
    void take_font(const FXFont* font);

    /// Takes a description, brought into the toolkit's own form.
    void take_desc(const FXFontDesc& wanted);

    /// Takes a text as FXFont::setFont reads it.
    void take_text(const char* text);

    /// Runs the dialog "Change Font" over `desc` and takes what is accepted. `sender` is the widget
    /// that asked; its window owns the dialog.
    void ask(FXObject* sender);

    /// Makes the widget `sender` show `name`.
    void show_name(FXObject* sender);

    ~font_choice() override = default;
};

/// The window of the widget `sender`, or the root window if `sender` is none.
FXWindow* window_of(FXObject* sender);
