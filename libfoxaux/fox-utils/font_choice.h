// SPDX-License-Identifier: MIT
// One font of the toolkit as two widgets show and change it: a read-only field and a button.
#pragma once

#include <fx.h>

/// A font in the toolkit's two forms, a description and a text, and the target of two widgets:
///
///     read-only field  ID_FIELD   SEL_UPDATE   onUpdName    shows the text
///     button "..."     ID_BUTTON  SEL_COMMAND  onCmdChange  runs the dialog "Change Font"
///
/// No font is created for the translation between the forms. The dialogs of the plot font and of
/// the toolkit's own fonts each derive a target from this class; those add nothing but names.
class font_choice : public FXObject {
    FXDECLARE_ABSTRACT(font_choice)

public:
    FXFontDesc desc{}; ///< the font as a description
    FXString name;     ///< the same as the toolkit's font text

    enum { ID_BUTTON = 0, ID_FIELD = 1 };

    /// Adds the field and the button.
    void add_widgets(FXComposite* parent);

    long onCmdChange(FXObject*, FXSelector, void*);
    long onUpdName(FXObject*, FXSelector, void*);

protected:
    font_choice() = default;

    /// Describes `font`, which must have been created, by what the screen really shows of it: the
    /// font dialog replaces a face, weight or slant that it can't find by the first of its list.
    explicit font_choice(const FXFont* font);

    /// Takes a description, brought into the toolkit's own form.
    void take_desc(const FXFontDesc& wanted);

    /// Takes a text as FXFont::setFont reads it.
    void take_text(const char* text);

    ~font_choice() override = default;
};

/// The window of the widget `sender`, or the root window if `sender` is none.
FXWindow* window_of(FXObject* sender);
