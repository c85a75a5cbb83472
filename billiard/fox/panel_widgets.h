// SPDX-License-Identifier: MIT
// The two widgets of the main window's panel that may take the keys without sending a command.
//
// The command of a button gives the keys to the phase canvas again; these two do so themselves.
#pragma once

#include <fx.h>

class FBufferedWindow;

/// The button "Function" with its menu. A menu that closes, by a choice or by Esc, gives the keys
/// to the canvas.
class function_button : public FXMenuButton {
    FXDECLARE(function_button)

public:
    /// `menu` and `canvas` stay their owners'.
    function_button(FXComposite* panel, FXPopup* menu, FBufferedWindow* canvas);

    long onCmdUnpost(FXObject*, FXSelector, void*);

protected:
    function_button() = default;

private:
    FBufferedWindow* canvas = nullptr;
};

/// The colour well, of opaque colours only: plots have no alpha. It never takes the keys: a click
/// on it, or its dialog cancelled, would tell nobody to give them back.
class panel_well : public FXColorWell {
public:
    /// Sends `message` to `target` when another colour has been chosen.
    panel_well(FXComposite* panel, FXObject* target, FXSelector message);

    bool canFocus() const override;
    FXint getDefaultHeight() override;
};
