// SPDX-License-Identifier: MIT
// The entry widgets of all dialogs: a text field with a context menu, a combo box with a history.
#pragma once

#include "libfoxaux/fox-utils/history_manager.h"

#include <fx.h>

/// A text field whose right button opens "Cut", "Copy", "Paste", "Select All", and which shows a
/// real number with up to 15 significant digits.
class FXTextFieldPopup : public FXTextField {
    FXDECLARE(FXTextFieldPopup)

public:
    FXMenuPane* popup = nullptr; ///< the context menu, owned; null only if default-constructed

    /// The arguments of FXTextField.
    FXTextFieldPopup(FXComposite* p, FXint ncols, FXObject* tgt = nullptr, FXSelector sel = 0,
                     FXuint opts = TEXTFIELD_NORMAL, FXint x = 0, FXint y = 0, FXint w = 0,
                     FXint h = 0, FXint pl = DEFAULT_PAD, FXint pr = DEFAULT_PAD,
                     FXint pt = DEFAULT_PAD, FXint pb = DEFAULT_PAD);
    FXTextFieldPopup(const FXTextFieldPopup&) = delete;
    FXTextFieldPopup& operator=(const FXTextFieldPopup&) = delete;
    ~FXTextFieldPopup() override;

    void create() override;

    long onRightBtnPress(FXObject*, FXSelector, void*);
    long onCmdSetRealValue(FXObject*, FXSelector, void*);

protected:
    FXTextFieldPopup() = default;
};

/// A combo box over an FXTextFieldPopup that offers what was entered at its site before.
///
/// Make it with its target, load its history once, run the dialog, and save the history only if the
/// dialog was accepted. The lists belong to history_manager and outlive the widget.
class FXComboBoxPopup : public FXComboBox {
    FXDECLARE(FXComboBoxPopup)

public:
    history_manager::history* history = nullptr; ///< not owned; null until a history is loaded

    /// The arguments of FXComboBox; Enter puts the text at the top of the list.
    FXComboBoxPopup(FXComposite* p, FXint cols, FXObject* tgt = nullptr, FXSelector sel = 0,
                    FXuint opts = COMBOBOX_NORMAL, FXint x = 0, FXint y = 0, FXint w = 0,
                    FXint h = 0, FXint pl = DEFAULT_PAD, FXint pr = DEFAULT_PAD,
                    FXint pt = DEFAULT_PAD, FXint pb = DEFAULT_PAD);
    FXComboBoxPopup(const FXComboBoxPopup&) = delete;
    FXComboBoxPopup& operator=(const FXComboBoxPopup&) = delete;
    ~FXComboBoxPopup() override = default;

    long onFocusPrev(FXObject*, FXSelector, void*);

    /// Takes the history of a site and offers it in the list, newest first. With `set_text` the
    /// newest entry goes into the field and through the target into its variable; without, the
    /// field shows the variable. An empty history gives the variable's value as the only item.
    void load_history(const char* file, int line, void* context, bool set_text);

    /// The same for a history named by a free text: for fields that are made at run time and stand
    /// in no line of the source. The dialogs of Billiard have none.
    void load_history_key(const char* key, void* context, bool set_text);

    /// Stores the items, and before them the field's text if it differs from the first.
    void save_history();

    /// The inner field, for focus and selection.
    FXTextField* text_field() const { return field; }

protected:
    FXComboBoxPopup() = default;

private:
    void fill(bool set_text);
};
