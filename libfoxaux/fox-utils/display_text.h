// SPDX-License-Identifier: MIT
// The window for a long text to read: it can be searched, copied from and saved.
#pragma once

#include <fx.h>

/// A text window of its own, in the fixed-pitch font of main_base.
///
/// Make it with `new` and call open(): nobody owns it, it deletes itself when it is closed.
class display_text : public FXDialogBox {
    FXDECLARE(display_text)

public:
    FXText* text = nullptr;      ///< a child of the dialog
    FXMenuPane* popup = nullptr; ///< context menu of the text, owned; null if default-constructed

    enum { ID_TEXT = FXDialogBox::ID_LAST, ID_SAVE, ID_LAST };

    long onTextRightRelease(FXObject*, FXSelector, void*);
    long onCmdSave(FXObject*, FXSelector, void*);

    /// Copies `text`, which ends in a zero; null leaves the window empty.
    display_text(const FXString& title, const char* text);
    display_text(const display_text&) = delete;
    display_text& operator=(const display_text&) = delete;
    ~display_text() override;

    void create() override;

    /// Replaces the text by a copy of `replacement`, which ends in a zero.
    void set_text(const char* replacement);

    /// Shows the window in the middle of the screen, three quarters of its size.
    void open();

protected:
    display_text() = default;
};

/// Writes what `text` holds to a file, byte for byte. Throws TError if it can't; an old file then
/// stays, and no part of a new one is left.
void save_text(FXText* text, const char* filename);
