// SPDX-License-Identifier: MIT
// Texts: sharing, formats of any length, self-reference; errors and colours that carry texts.
#include "mathkit/kit_string.h"

#include "mathkit/TError.h"
#include "mathkit/html_colors.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <map>
#include <string>
#include <type_traits>

namespace {

TEST(KitString, CopiesShareUntilOneChanges) {
    kit::string a("orbit");
    kit::string b = a;
    EXPECT_EQ(a.c_str(), b.c_str());
    b.sprintf("%s.%s", b.c_str(), "png"); // its own text is among the arguments
    EXPECT_STREQ(a, "orbit");
    EXPECT_STREQ(b, "orbit.png");
    const kit::string& self = a;
    a = self;
    EXPECT_STREQ(a, "orbit");
    a = a.c_str() + 2;
    EXPECT_STREQ(a, "bit");
}

// The handle's first field leads to the block, whose first field is the text.
TEST(KitString, IsAPointerToABlockThatBeginsWithItsText) {
    static_assert(sizeof(kit::string) == sizeof(void*));
    const kit::string a("text");
    kit::bvector* const* handle = reinterpret_cast<kit::bvector* const*>(&a);
    EXPECT_STREQ((*handle)->data, "text");
    EXPECT_EQ(*reinterpret_cast<char**>(*handle), (*handle)->data);
}

TEST(KitString, EmptyAndOddTexts) {
    for (const kit::string& s :
         {kit::string(), kit::string(""), kit::string(static_cast<const char*>(nullptr)),
          kit::string(nullptr, 7), kit::string::format("%s", ""), kit::string::empty(),
          kit::string::concat("", "")}) {
        EXPECT_TRUE(s.is_empty());
        EXPECT_STREQ(s, "");
        EXPECT_TRUE(s == kit::string::empty());
    }
    EXPECT_EQ(kit::string("ab\0cd", 5).length(), 2u);
    EXPECT_STREQ(kit::string("abcdef", 3), "abc");
    EXPECT_EQ(kit::string::format("%c%s", 0, "lost").length(), 0u);
}

TEST(KitString, FormatsOfAnyLength) {
    for (std::size_t length : {1u, 255u, 256u, 4095u, 100000u}) {
        const std::string text(length, 'x');
        EXPECT_EQ(std::string(kit::string::format("<%s>%d", text.c_str(), 42)), "<" + text + ">42");
    }
    // A user's text is an argument, never a format.
    EXPECT_STREQ(kit::string::format("File \"%s\"", "100%s%n.png"), "File \"100%s%n.png\"");
    EXPECT_STREQ(kit::string::concat("a%d", "%n"), "a%d%n");
    EXPECT_STREQ(kit::string::format("%.15g %s", 0.1, "\xC3\xBC"), "0.1 \xC3\xBC");
}

TEST(KitString, OrdersByBytes) {
    std::map<kit::string, int> order{{"b", 1}, {"a", 0}, {"\xE4", 3}, {"ba", 2}};
    int expected = 0;
    for (const auto& [text, place] : order)
        EXPECT_EQ(place, expected++) << text.c_str();
    EXPECT_TRUE(kit::string("a") == "a" && kit::string("a") == kit::string("a"));
    EXPECT_FALSE(kit::string("a") == "ab" || kit::string("a") == kit::string("ab"));
    EXPECT_TRUE(kit::string() == static_cast<const char*>(nullptr));
    EXPECT_STREQ(kit::string::concat("a", ""), "a");
}

TEST(KitWstring, HoldsAndFormatsWideTexts) {
    kit::wstring a(L"P");
    kit::wstring b = a;
    EXPECT_TRUE(a == b && a.c_str() == b.c_str());
    b.sprintf(L"%13.10g     %13.10g", 0.5, -1 / 3.0);
    EXPECT_STREQ(b, L"          0.5     -0.3333333333");
    EXPECT_TRUE(!(a == b) && a == kit::wstring(L"P"));
    b = a;
    EXPECT_EQ(a.c_str(), b.c_str());
    a.sprintf(L"%ls%ls", a.c_str(), a.c_str());
    EXPECT_STREQ(a, L"PP");
    EXPECT_EQ(a.length(), 2u);
    const std::wstring text(100000, L'\u03B1');
    EXPECT_EQ(a.sprintf(L"%ls!", text.c_str()).length(), text.size() + 1);
    EXPECT_TRUE(a.sprintf(L"%s", "\xFF\xFE").is_empty()); // no characters of the locale
    EXPECT_TRUE(kit::wstring::empty().is_empty() && kit::wstring() == kit::wstring(nullptr));
}

TEST(Bvector, KeepsWhatItHeldAndClearsTheRest) {
    kit::bvector v;
    v.setsize(3);
    v.data[0] = 'a';
    v.data[2] = 'c';
    v.setsize(1);
    v.setsize(1000);
    EXPECT_EQ(std::string(v.data, 1000), 'a' + std::string(999, '\0'));
    v.free();
    EXPECT_TRUE(!v.data && v.size == 0 && v.capacity == 0);
    v.setsize(0);
    EXPECT_EQ(v.size, 0u);
}

TEST(TError, CarriesTextAndPosition) {
    TError e(kit::string::format("error open \"%s\"", "a%n.png"));
    e.setPosition("void f(int)", "libfoxaux/font/fox_font", 12);
    EXPECT_STREQ(e.text(), "error open \"a%n.png\"");
    EXPECT_TRUE(e.message == e.text() && e.function == "void f(int)" && e.line == 12);
    EXPECT_STREQ(e.file, "libfoxaux/font/fox_font");
}

TEST(HtmlColors, KnowsTheKeywordsInAnyCase) {
    const std::pair<const char*, unsigned> colors[] = {
        {"black", 0x000000},         {"white", 0xffffff},     {"red", 0xff0000},
        {"green", 0x008000},         {"aliceblue", 0xf0f8ff}, {"yellowgreen", 0x9acd32},
        {"DarkSlateGray", 0x2f4f4f}, {"LIGHTGREY", 0xd3d3d3}, {"rebeccapurple", 0x663399}};
    for (const auto& [name, color] : colors)
        EXPECT_EQ(html_colors::name2color(name), color) << name;
    for (const char* wrong : {"", "re", "redd", " red", "#ff0000", "zzz", "%s%n"})
        EXPECT_THROW(html_colors::name2color(wrong), TError) << wrong;
    EXPECT_THROW(html_colors::name2color(nullptr), TError);
}

} // namespace
