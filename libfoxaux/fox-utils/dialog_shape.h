// SPDX-License-Identifier: MIT
// The one shape of the program's dialogs, built from rows of tables.
#pragma once

#include "libfoxaux/fox-utils/FXTextFieldPopup.h"
#include "libfoxaux/fox-utils/entry_target.h"

#include <fx.h>

#include <list>
#include <variant>
#include <vector>

/// One entry field of a dialog: its label, the variable behind it, and where its history lives.
struct entry_row {
    const char* label;                            ///< in the toolkit's label syntax, UTF-8
    std::variant<double*, int*, FXString*> value; ///< follows the text while it is edited
    int line;                                     ///< names the field's history
    bool set_text;                                ///< opens with the newest entry
    FXuint justify = JUSTIFY_NORMAL;              ///< of the label
};

/// The histories of a dialog's fields share source name and context; the line tells them apart.
struct history_site {
    const char* file;
    void* context;
};

/// A modal dialog with padding and spacing, a filling vertical frame, and "&Accept" and "&Cancel".
///
/// "&Accept" first looks at the number fields that can be seen, those of the page in front: a box
/// tells of a text that is no number, the text is selected, and the dialog stays.
///
/// Build it on the stack, fill `frame` from the top down, close it with add_buttons() and run it:
///
///     dialog_shape dialog(this, "Boundary Curve", icon);
///     auto fields = dialog.add_rows(dialog.add_matrix(2), {file, this}, {{"c", &c, 348, true},
///                                                                        {"n", &n, 358, true}});
///     dialog.add_buttons();
///     if (!dialog.run()) return;
///     dialog_shape::save_histories(fields);
class dialog_shape : public FXDialogBox {
    FXDECLARE(dialog_shape)

public:
    using fields = std::vector<FXComboBoxPopup*>;

    FXVerticalFrame* frame = nullptr; ///< holds all that the dialog shows; padding and spacing 4

    /// `icon` is not owned, must outlive the dialog and may be null. Width and height are those for
    /// the toolkit's usual font; one of 0 is what the content wants.
    dialog_shape(FXWindow* owner, const char* title, FXIcon* icon, FXuint decorations = DECOR_ALL,
                 FXint width = 0, FXint height = 0);
    dialog_shape(const dialog_shape&) = delete;
    dialog_shape& operator=(const dialog_shape&) = delete;

    /// The pixels that a label in `frame` has for its text in a dialog made with `width`.
    static FXint label_room(FXint width);

    /// Adds a matrix by columns, in `parent` or, if that is null, in `frame`.
    FXMatrix* add_matrix(int columns, FXComposite* parent = nullptr);

    /// Adds a tab with its page, a raised frame, to `book`; gives the page.
    static FXVerticalFrame* add_page(FXTabBook* book, const char* title);

    /// Adds a label and a field of `columns` characters with its history loaded.
    FXComboBoxPopup* add_row(FXComposite* parent, const history_site& site, const entry_row& row,
                             int columns = 30);

    /// Adds rows in order; gives their fields.
    fields add_rows(FXComposite* parent, const history_site& site,
                    const std::vector<entry_row>& rows);

    /// Adds a label and a plain text field over `value`, without a history.
    FXTextField* add_number(FXComposite* parent, const char* label, int& value, int columns);

    /// Adds a label and a colour well, to be read by getRGBA() when the dialog has ended.
    static FXColorWell* add_well(FXComposite* parent, const char* label, FXColor color);

    /// Adds a separator below what `frame` holds, and the two buttons.
    void add_buttons(bool cancel_first = false);

    /// The two buttons alone.
    void add_button_row(bool cancel_first = false);

    /// Creates the dialog, at the size that was asked for or a larger one that its texts need,
    /// gives the focus to the first text field shown, its text selected, and executes it. True for
    /// "&Accept"; false for "&Cancel", Esc and the window's close button.
    bool run(FXuint placement = PLACEMENT_OWNER);

    /// Stores what stands in the fields in their histories, in order.
    static void save_histories(const fields& entered);

    /// A target over a variable, owned by the dialog; for widgets that the rows do not cover.
    template<class T>
    FXDataTarget* target(T& value) {
        return &targets.emplace_back(value);
    }

    long onMap(FXObject*, FXSelector, void*);
    long onCmdAccept(FXObject*, FXSelector, void*);

protected:
    dialog_shape() = default;

private:
    void grow_to_contents();
    bool is_seen(const FXWindow* widget) const;

    std::list<entry_target> entries; ///< what the entry fields point at
    std::list<FXDataTarget> targets; ///< what other widgets point at
};

/// Gives the focus to the first text field shown in a dialog, which must have been created, and
/// selects its text: what is typed then replaces it.
void focus_first_field(FXWindow* dialog);
