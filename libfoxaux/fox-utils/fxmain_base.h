// SPDX-License-Identifier: MIT
// The application's singleton: what any window needs of the application as a whole.
#pragma once

#include "mathkit/stderr_failed.h"

#include <fx.h>

/// What belongs to the application and not to one window: its icons, the fixed-pitch font of the
/// text views, About, Help, the bell. There is exactly one object of it in a process.
class main_base {
public:
    FXIcon* main_icon;  ///< owned; icon of the main windows, the parameter dialogs and About
    FXIcon* help_icon;  ///< owned; icon of the Help windows
    FXFont* fixed_font; ///< owned; null until get_fixed_font() has run

    inline static main_base* _main = nullptr; ///< the one object

    /// Registers the object and builds the icons; nothing is created on the display. The FXApp
    /// must exist. A second object ends the process by an assertion.
    main_base();
    main_base(const main_base&) = delete;
    main_base& operator=(const main_base&) = delete;
    /// Deletes the icons and the font; `_main` stays as it is.
    ~main_base();

    /// The one object; asking before it exists ends the process by an assertion.
    static main_base* instance() {
        stderr_assert(_main != nullptr, "_main!=0", "libfoxaux/fox-utils/fxmain_base",
                      "static main_base* main_base::instance()");
        return _main;
    }

    /// The window that should own a dialog of the whole application, so that a click on it cannot
    /// cover the dialog: the main window that has the keys, else the first main window, else,
    /// before there is one, the root window.
    static FXWindow* dialog_owner();

    /// The fixed-pitch font of the text views, created on the display; stays owned here.
    ///
    /// Made at the first call: the registry's "fixedfont" of "SETTINGS", or else a "courier new"
    /// of 13/9 times the size of the application's normal font.
    FXFont* get_fixed_font();

    /// Rings the bell of the display, if there is an open one.
    void beep();

    /// Shows the About dialog and returns when it is closed.
    void show_about();

    /// Opens one more Help window over the text that the zlib stream of `size` bytes at `data`
    /// holds. Throws TError if it isn't one.
    void show_help(const char* data, unsigned size);

    /// Opens a text window with the main icon; it copies `text` and deletes itself when closed. For
    /// programs that have reports to show; Billiard has none.
    void show_text(const FXString& title, const char* text);

    /// The same with the title "Help" and the help icon.
    void show_help_text(const char* text);
};

/// main_base as an object of the toolkit, for a program whose main window is not derived from it.
/// That of Billiard is.
class fxmain_base : public FXObject, public main_base {
    FXDECLARE(fxmain_base)

public:
    fxmain_base() = default;
    ~fxmain_base() override = default;
};
