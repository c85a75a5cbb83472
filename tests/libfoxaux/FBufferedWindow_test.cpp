// SPDX-License-Identifier: MIT
// Tests of the buffered canvas: when it renders, what a paint shows, how keys arrive.
#include "libfoxaux/fox-utils/FBufferedWindow.h"

#include "tests/libfoxaux/window_fixture.h"

using namespace window_test;

namespace {

constexpr FXColor blue = 0xffff0000;

/// Counts what the base class asks of it; its picture is white.
class canvas : public FBufferedWindow {
public:
    canvas(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h)
        : FBufferedWindow(parent, opts, x, y, w, h) {
        ensure_backup();
    }

    void render() override {
        ++renders;
        fill(image, white);
    }
    void save_picture() override { ++saves; }
    long on_key(int key) override {
        last_key = key;
        return FBufferedWindow::on_key(key);
    }

    void fill(FXImage* picture, FXColor color) {
        FXDCWindow dc(picture);
        dc.setForeground(color);
        dc.fillRectangle(0, 0, picture->getWidth(), picture->getHeight());
    }

    int renders = 0, saves = 0, last_key = 0;
};

long paint(FXWindow* window, FXEvent* event) {
    return window->handle(window, FXSEL(SEL_PAINT, 0), event);
}

TEST(FBufferedWindow, APaintBeforeCreateDoesNothing) {
    FXMainWindow shell(&app(), "test");
    auto* window = new canvas(&shell, 0, 0, 0, 50, 50);
    EXPECT_EQ(paint(window, nullptr), 1);
    EXPECT_EQ(window->renders, 0);
    EXPECT_TRUE(window->first_draw);
    EXPECT_EQ(window->image->getWidth(), 100);
    window->backup_eq_image(); // neither picture is on the display: no drawing, no abort
    window->show_image();
    EXPECT_STREQ(window->picture_title, "Save a Picture");
}

TEST(FBufferedWindow, RendersAtTheFirstPaintAndAfterAResizeOnly) {
    shown<canvas> window(200, 150);
    EXPECT_EQ(window->renders, 1);
    EXPECT_FALSE(window->first_draw);
    EXPECT_EQ(paint(window.canvas, nullptr), 1);
    window->update();
    pump();
    EXPECT_EQ(window->renders, 1);

    window.resize(120, 160);
    EXPECT_EQ(window->renders, 2);
    for (FXImage* picture : {window->image, window->backup})
        EXPECT_TRUE(picture->getWidth() == 120 && picture->getHeight() == 160);
    window.resize(1, 1);
    EXPECT_EQ(window->renders, 3);
    EXPECT_EQ(pixels(window->image).at(0, 0), white);
}

TEST(FBufferedWindow, APaintCopiesThePictureInsideItsClip) {
    shown<canvas> window(100, 80);
    window->fill(window->image, blue);
    window->backup_eq_image();
    window->fill(window->image, red);
    FXEvent exposed{};
    exposed.rect = FXRectangle(10, 20, 5, 6);
    paint(window.canvas, &exposed);
    EXPECT_EQ(screen_of(window.canvas).count(red), 5 * 6);
    EXPECT_EQ(screen_of(window.canvas).at(10, 20), red);
    window->show_image();
    EXPECT_EQ(screen_of(window.canvas).count(red), 100 * 80);
    window->image_eq_backup();
    EXPECT_EQ(pixels(window->image).count(blue), 100 * 80);
}

TEST(FBufferedWindow, WithoutABackupCopyingEndsTheProcess) {
    FXMainWindow shell(&app(), "test");
    auto* window = new FBufferedWindow(&shell, 0, 0, 0, 50, 50);
    EXPECT_DEATH(window->backup_eq_image(), "::backup_eq_image\\(\\).*image!=0 && backup!=0");
    EXPECT_DEATH(window->image_eq_backup(), "::image_eq_backup\\(\\).*image!=0 && backup!=0");
}

TEST(FBufferedWindow, AKeyArrivesAsItsCharacterOrItsSymbol) {
    shown<canvas> window(50, 50);
    const struct {
        FXString text;
        int code;
        int key;
    } cases[] = {
        {"a", KEY_a, 'a'},
        {"+", KEY_KP_Add, '+'},                // the character, whatever key has produced it
        {FXString("\0", 1), KEY_Left, 0xff51}, // the toolkit's text of a key without one
        {"", KEY_Left, 0xff51},
        {"\x1b", KEY_Escape, 0xff1b}, // a control character is no character
        {"\xfc", 0x00fc, 0xfc},
        {"\xc3\xbc", 0x00fc, 0xfc}, // the same letter as UTF-8: two bytes, so the symbol
        {"\xe2\x82\xac", 0x20ac, 0x20ac},
    };
    for (const auto& c : cases) {
        FXEvent event{};
        event.code = c.code;
        event.text = c.text;
        EXPECT_EQ(window->handle(nullptr, FXSEL(SEL_KEYPRESS, 0), &event), 0);
        EXPECT_EQ(window->last_key, c.key) << std::hex << c.code;
    }
}

TEST(FBufferedWindow, TakesTheFocusAndTheSaveKeys) {
    shown<canvas> window(50, 50);
    type_keys(window.canvas, "sSq");
    send_key(window.canvas, KEY_F2);
    EXPECT_EQ(window->saves, 3);
    EXPECT_TRUE(window->canFocus());
    window->take_focus();
    EXPECT_EQ(window.shell->getFocus(), window.canvas);
}

} // namespace
