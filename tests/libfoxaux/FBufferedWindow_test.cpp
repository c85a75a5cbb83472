// SPDX-License-Identifier: MIT
// Tests of the buffered canvas: how keys arrive. What it shows, the journeys see.
#include "libfoxaux/fox-utils/FBufferedWindow.h"

#include "tests/libfoxaux/events.h"

using namespace window_test;

namespace {

// Remembers what the base class asks of it.
class canvas : public FBufferedWindow {
public:
    using FBufferedWindow::FBufferedWindow;

    void save_picture() override { ++saves; }
    long on_key(int key) override {
        last_key = key;
        return FBufferedWindow::on_key(key);
    }

    int saves = 0, last_key = 0;
};

TEST(FBufferedWindow, AKeyArrivesAsItsCharacterOrItsSymbol) {
    shown<canvas> window(50, 50);
    const struct {
        FXString text;
        int code, key;
    } cases[] = {
        {"a", KEY_a, 'a'},
        {"+", KEY_KP_Add, '+'},                // the character, whatever key has produced it
        {FXString("\0", 1), KEY_Left, 0xff51}, // the toolkit's text of a key without one
        {"", KEY_Left, 0xff51},
        {"\x1b", KEY_Escape, 0xff1b}, // a control character is no character
        {"\xfc", 0x00fc, 0xfc},
        {"\xc3\xbc", 0x00fc, 0xfc}, // the same letter as UTF-8: two bytes, so the symbol
    };
    for (const auto& c : cases) {
        EXPECT_EQ(send_key(window.canvas, c.code, c.text), 0);
        EXPECT_EQ(window->last_key, c.key) << std::hex << c.code;
    }
    type_keys(window.canvas, "sSq");
    send_key(window.canvas, KEY_F2);
    EXPECT_EQ(window->saves, 3);
}

TEST(FBufferedWindow, AKeyWithControlOrAltIsNoCommand) {
    shown<canvas> window(50, 50);
    const FXuint alt_gr = 0x80; // the fifth modifier, as all layouts have it
    const std::pair<FXuint, int> cases[] = {
        {CONTROLMASK, 0},           {ALTMASK, 0},   {SHIFTMASK | CONTROLMASK, 0},
        {NUMLOCKMASK | ALTMASK, 0}, {SHIFTMASK, 1}, {CAPSLOCKMASK | NUMLOCKMASK | alt_gr, 1},
    };
    for (const auto& [state, saves] : cases) {
        window->saves = 0;
        FXEvent event{};
        event.code = KEY_s;
        event.text = "s";
        event.state = state;
        EXPECT_EQ(send(window.canvas, SEL_KEYPRESS, event), 0);
        EXPECT_EQ(window->saves, saves) << std::hex << state;
    }
}

} // namespace
