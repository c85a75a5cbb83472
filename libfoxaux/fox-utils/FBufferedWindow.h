// SPDX-License-Identifier: MIT
// The drawing canvas: a window that shows an off-screen picture and can save it.
#pragma once

#include "mathkit/kit_string.h"

#include <fx.h>

/// A window whose content lives in the server-side picture `image`.
///
/// A subclass draws into `image` through an FXDCWindow, the whole of it in render(); a paint only
/// copies `image` to the screen. The pictures follow the window's size at the next paint, and
/// nowhere else. `backup`, a second picture of the same size, is there for a subclass that wants
/// to keep an earlier state; after a resize both hold undefined pixels until render() has run.
class FBufferedWindow : public FXWindow {
    FXDECLARE(FBufferedWindow)

public:
    bool first_draw = true;    ///< until the first paint has looked at it
    FXImage* image = nullptr;  ///< the picture, owned; no client-side pixels
    kit::string picture_title; ///< title of the save dialog
    FXImage* backup = nullptr; ///< owned; null until ensure_backup()

    FBufferedWindow(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h);
    FBufferedWindow(const FBufferedWindow&) = delete;
    FBufferedWindow& operator=(const FBufferedWindow&) = delete;

    void create() override;
    void detach() override;
    FXint getDefaultWidth() override;
    FXint getDefaultHeight() override;
    bool canFocus() const override;

    /// Draws the whole picture into `image`, at its present size. Does nothing here.
    virtual void render() {}

    /// Asks for a file and saves the picture.
    virtual void save_picture();

    /// Reacts to one key: a typed character as its byte (32 to 255), else the key symbol. Keys with
    /// Control or Alt do not come here. A subclass hands the keys that it does not know to its
    /// base.
    ///
    /// The answer is for the toolkit: 1 keeps it from acting on the key too, as it would move the
    /// focus by an arrow; 0 lets it. 0 does not mean that nobody took the key.
    virtual long on_key(int key);

    /// Makes `backup` if there is none; to be called before create().
    void ensure_backup();

    void backup_eq_image(); ///< copies `image` into `backup`, which must exist
    void image_eq_backup(); ///< copies `backup`, which must exist, into `image`

    /// Copies `image` to the screen at once; nothing before both are on the display.
    void show_image();

    /// Takes the keyboard focus within its top-level window.
    void take_focus();

    /// Asks for a file and saves `image` there. What save() throws is reported in a box.
    void save_dialog(const char* title);

    /// Saves `image` as PNG, BMP, JPEG or PDF, by the ending of `path`; a path with no such ending
    /// gets ".png". Throws TError if the file cannot be opened or written, or the picture cannot be
    /// read. An old file of that name then stays, and no part of a new one is left.
    void save(const char* path);
    using FXWindow::save; // the toolkit's own, to a stream

    /// The dialog "Resize Hack": forces the canvas to a size in pixels, or on cancel back to what
    /// its layout gives it.
    void resize_hack_dialog();

    /// The dialog "Select Global Fonts": the toolkit's own fonts from the next start on.
    void global_fonts_dialog();

    ~FBufferedWindow() override;

    long onPaint(FXObject*, FXSelector, void*);
    long onKeyPress(FXObject*, FXSelector, void*);

protected:
    FBufferedWindow() = default;

private:
    static void copy_image(FXImage* dst, FXImage* src);
};
