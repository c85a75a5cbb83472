// SPDX-License-Identifier: MIT
// A second top-level window that belongs to the main one.
#pragma once

#include <fx.h>

/// A window that goes with another one: window managers keep it above that one and minimise and
/// restore both together. Shown, it does not take the keys; a click on it does. Otherwise it is a
/// window like any other, with its own place, size and decorations.
class companion_window : public FXMainWindow {
    FXDECLARE(companion_window)

public:
    companion_window(FXApp* app, const FXString& title, FXint x, FXint y, FXint w, FXint h);
    companion_window(const companion_window&) = delete;
    companion_window& operator=(const companion_window&) = delete;

    /// Names the window that this one goes with. Both must have been created; holds from the next
    /// show() on.
    void accompany(const FXTopWindow* main);

    void show() override;
    using FXMainWindow::show;

    long onMap(FXObject*, FXSelector, void*);

protected:
    companion_window() = default;

private:
    void accept_keys(bool accepted);
};
