// SPDX-License-Identifier: MIT
// Tests of what any text becomes before it stands in a label or a box.
#include "libfoxaux/fox-utils/label_text.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::string repeated(const char* text, int times) {
    std::string result;
    while (times-- > 0)
        result += text;
    return result;
}

TEST(BoxText, KeepsAllOfATextThatABoxCanShow) {
    const std::string a100(100, 'a'), e100 = repeated("\xc3\xa9", 100);
    const struct {
        std::string text, shown;
    } cases[] = {
        {"", ""},
        {"one\ntwo\n", "one\ntwo\n"},
        {"\n\nx", "\n\nx"},
        {"50%s & \"more\"", "50%s && \"more\""},
        {"tab\there\x01", "tab here "},
        {"\xe9t\xe9", "\xc3\xa9t\xc3\xa9"}, // Latin-1
        {a100, a100},
        {a100 + "b", a100 + "\nb"},
        {a100 + "\nb", a100 + "\nb"},
        {"first\n" + a100 + a100 + "\nlast", "first\n" + a100 + "\n" + a100 + "\nlast"},
        {e100 + e100, e100 + "\n" + e100}, // characters count, not bytes
        {repeated("&", 101), repeated("&&", 100) + "\n&&"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(box_text(c.text.c_str()).text(), c.shown);
}

TEST(BoxText, EndsATextWithoutEnd) {
    const FXString shown = box_text(std::string(5000000, 'x').c_str());
    EXPECT_EQ(shown.length(), 20 * 101 + 3);
    EXPECT_EQ(shown.right(4), "\n...");
    EXPECT_EQ(box_text(repeated("a\n", 30).c_str()).contains('\n'), 20);
}

} // namespace
