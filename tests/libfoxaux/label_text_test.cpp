// SPDX-License-Identifier: MIT
// Tests of what any text becomes before it stands in a label or a box.
#include "libfoxaux/fox-utils/label_text.h"

#include "tests/libfoxaux/application.h"

#include <cstring>

using namespace window_test;

namespace {

std::string repeated(const char* text, int times) {
    std::string result;
    while (times-- > 0)
        result += text;
    return result;
}

TEST(LabelText, GoesOnBelowFromItsLastBlankAndEndsInTime) {
    const FXFont* font = app().getNormalFont();
    const auto width = [&](const char* text) {
        return font->getTextWidth(text, static_cast<FXuint>(strlen(text)));
    };
    const FXint three = width("one two three");
    const struct {
        const char* text;
        FXint width, lines;
        const char* shown;
    } cases[] = {
        {"one two three", three, 1, "one two three"},
        {"one two three", three - 1, 2, "one two\nthree"},
        {"one two three", width("one two"), 2, "one two\nthree"},
        {"one two three", width("one tw"), 3, "one\ntwo\nthree"},
        {"onetwothree", width("onetwo"), 2, "onetwo\nthree"}, // no blank
        {"mm&nn", width("mm&"), 2, "mm&&\nnn"},
        {"one two three", width("one two") + width("..."), 1, "one two..."},
        {"one two", 0, 1, "..."},
        {"one two", -5, 1, "..."},
        {"", 0, 1, ""},
    };
    for (const auto& c : cases)
        EXPECT_STREQ(label_text(c.text, font, c.width, c.lines).text(), c.shown) << c.width;

    const FXint narrow = width("mm&"); // too narrow for all of it, and for the dots after a line
    const FXString shown = label_text("mmmmmmmm", font, narrow, 3);
    EXPECT_EQ(shown.contains('\n'), 2);
    EXPECT_EQ(shown.right(3), "...");
    for (FXint line = 0; line < 3; ++line)
        EXPECT_LE(width(shown.section('\n', line).text()), narrow) << shown.text();
}

TEST(BoxText, KeepsAllOfATextThatABoxCanShow) {
    const std::string a100(100, 'a'), e100 = repeated("\xc3\xa9", 100);
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"\n\none\ntwo\n", "\n\none\ntwo\n"},
        {"50%s & \"more\"", "50%s && \"more\""},
        {"tab\there\x01", "tab here "},
        {"\xe9t\xe9", "\xc3\xa9t\xc3\xa9"}, // Latin-1
        {a100, a100},
        {a100 + "b", a100 + "\nb"},
        {a100 + "\nb", a100 + "\nb"},
        {"one " + a100, "one\n" + a100}, // at the last blank
        {a100 + " b", a100 + "\nb"},
        {"first\n" + a100 + a100 + "\nlast", "first\n" + a100 + "\n" + a100 + "\nlast"},
        {e100 + e100, e100 + "\n" + e100}, // characters count, not bytes
        {repeated("&", 101), repeated("&&", 100) + "\n&&"},
    };
    for (const auto& [text, wanted] : cases)
        EXPECT_EQ(box_text(text.c_str()).text(), wanted);
    const FXString endless = box_text(std::string(5000000, 'x').c_str());
    EXPECT_EQ(endless.length(), 20 * 101 + 3);
    EXPECT_EQ(endless.right(4), "\n...");
    EXPECT_EQ(box_text(repeated("a\n", 30).c_str()).contains('\n'), 20);
}

} // namespace
