// SPDX-License-Identifier: MIT
// The drawing canvas: a window that shows an off-screen picture and can save it.
#include "libfoxaux/fox-utils/FBufferedWindow.h"

#include "libfoxaux/fox-utils/select_plot_font.h"
#include "mathkit/stderr_failed.h"

#include <fxkeys.h>

#include <algorithm>

namespace {

constexpr FXint default_side = 40; // pixels, of the window
constexpr FXint first_side = 100;  // pixels, of the pictures until the first paint

} // namespace

// clang-format off
FXDEFMAP(FBufferedWindow) FBufferedWindowMap[] = {
    FXMAPFUNC(SEL_PAINT,    0, FBufferedWindow::onPaint),
    FXMAPFUNC(SEL_KEYPRESS, 0, FBufferedWindow::onKeyPress),
};
// clang-format on
FXIMPLEMENT(FBufferedWindow, FXWindow, FBufferedWindowMap, ARRAYNUMBER(FBufferedWindowMap))

FBufferedWindow::FBufferedWindow(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w,
                                 FXint h)
    : FXWindow(parent, opts, x, y, w, h),
      image(new FXImage(getApp(), nullptr, 0, first_side, first_side)),
      picture_title("Save a Picture") {
    flags |= FLAG_SHOWN | FLAG_ENABLED;
}

void FBufferedWindow::create() {
    FXWindow::create();
    image->create();
    if (backup) backup->create();
}

void FBufferedWindow::detach() {
    FXWindow::detach();
    image->detach();
    if (backup) backup->detach();
}

FXint FBufferedWindow::getDefaultWidth() {
    return default_side;
}

FXint FBufferedWindow::getDefaultHeight() {
    return default_side;
}

bool FBufferedWindow::canFocus() const {
    return true;
}

long FBufferedWindow::onPaint(FXObject*, FXSelector, void* ptr) {
    if (!image || !id() || !image->id()) return 1;

    // A layout may leave a window no size at all; a picture has at least one pixel.
    const FXint w = std::max(getWidth(), 1);
    const FXint h = std::max(getHeight(), 1);
    const bool resized = image->getWidth() != w || image->getHeight() != h;
    if (resized) {
        image->resize(w, h);
        if (backup) backup->resize(w, h);
    }
    const bool first = first_draw;
    first_draw = false;
    if (first || resized) render();

    if (ptr) {
        FXDCWindow dc(this, static_cast<FXEvent*>(ptr)); // clipped to what is exposed
        dc.drawImage(image, 0, 0);
    } else {
        show_image();
    }
    return 1;
}

long FBufferedWindow::onKeyPress(FXObject*, FXSelector, void* ptr) {
    const auto* event = static_cast<const FXEvent*>(ptr);
    if (event->state & (CONTROLMASK | ALTMASK))
        return 0; // AltGr, which types characters, is neither
    int key = event->code;
    // The text of a key that types nothing is one zero byte.
    if (event->text.length() == 1) {
        const auto byte = static_cast<unsigned char>(event->text[0]);
        if (byte >= 32) key = byte;
    }
    return on_key(key);
}

void FBufferedWindow::save_picture() {
    save_dialog(picture_title);
}

// clang-format off
long FBufferedWindow::on_key(int key) {
    switch (key) {
    case 'S': case 's': case KEY_F2: save_picture(); break;
    case KEY_F8:                     select_plot_font(); break;
    case KEY_F9:                     resize_hack_dialog(); break;
    case KEY_F10:                    global_fonts_dialog(); break;
    default:                         break;
    }
    return 0;
}
// clang-format on

void FBufferedWindow::copy_image(FXImage* dst, FXImage* src) {
    if (!dst->id() || !src->id()) return; // not on the display yet: nothing is drawn there
    FXDCWindow dc(dst);
    dc.drawImage(src, 0, 0);
}

void FBufferedWindow::ensure_backup() {
    if (!backup) backup = new FXImage(getApp(), nullptr, 0, first_side, first_side);
}

void FBufferedWindow::backup_eq_image() {
    stderr_assert(image != nullptr && backup != nullptr, "image!=0 && backup!=0",
                  "libfoxaux/fox-utils/FBufferedWindow", "void FBufferedWindow::backup_eq_image()");
    copy_image(backup, image);
}

void FBufferedWindow::image_eq_backup() {
    stderr_assert(image != nullptr && backup != nullptr, "image!=0 && backup!=0",
                  "libfoxaux/fox-utils/FBufferedWindow", "void FBufferedWindow::image_eq_backup()");
    copy_image(image, backup);
}

void FBufferedWindow::show_image() {
    if (!image || !image->id() || !id()) return;
    FXDCWindow dc(this);
    dc.drawImage(image, 0, 0);
}

void FBufferedWindow::take_focus() {
    handle(this, FXSEL(SEL_FOCUS_SELF, 0), nullptr);
}

FBufferedWindow::~FBufferedWindow() {
    delete image;
    delete backup;
}
