// SPDX-License-Identifier: MIT
// The stroke font, judged by the pixels that its lines cover.
#include "mathkit/stroke_font.h"

#include "tests/ink_box.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <map>
#include <numbers>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double quarter = std::numbers::pi / 2;

using pixel = std::pair<int, int>;

/// What was drawn: a set of pixels and how far it reaches.
struct ink : ink_box {
    std::set<pixel> pixels;
    long lines = 0;
};

// Covers a line of one pixel's width, as a display does.
void cover(int x1, int y1, int x2, int y2, void* dc) {
    auto& drawn = *static_cast<ink*>(dc);
    drawn.lines++;
    const int steps = std::max(std::abs(x2 - x1), std::abs(y2 - y1));
    ASSERT_LT(steps, 5000) << "a line far longer than any letter";
    for (int i = 0; i <= steps; i++) {
        const double t = steps ? static_cast<double>(i) / steps : 0;
        const auto x = static_cast<int>(std::lround(x1 + t * (x2 - x1)));
        const auto y = static_cast<int>(std::lround(y1 + t * (y2 - y1)));
        drawn.pixels.insert({x, y});
        drawn.add(x, y);
    }
}

ink draw(const std::wstring& text, double size, double rot = 0, unsigned align = 0, int x = 0,
         int y = 0) {
    stroke_font font;
    font.load_default();
    font.line_function = cover;
    ink drawn;
    font.set_dc(&drawn);
    font.setsizerot(size, rot);
    font.align = align;
    font.drawText(x, y, text.c_str(), -1);
    return drawn;
}

ink draw(wchar_t c, double size) {
    return draw(std::wstring(1, c), size);
}

int width_of(const std::wstring& text, double size) {
    stroke_font font;
    font.load_default();
    font.setsize(size);
    return font.text_width(text.c_str(), -1);
}

int width_of(wchar_t c, double size) {
    return width_of(std::wstring(1, c), size);
}

std::string name_of(wchar_t c, int size = 0) {
    return "character " + std::to_string(static_cast<int>(c)) + " at " + std::to_string(size);
}

// Every character that a label may hold.
std::wstring characters() {
    std::wstring all;
    for (wchar_t c = 0x20; c <= 0xff; c++)
        if (c < 0x7f || c >= 0xa0) all += c;
    return all;
}

bool is_alphanumeric(wchar_t c) {
    if (c >= 0xc0) return c != 0xd7 && c != 0xf7;
    return c < 0x80 && std::isalnum(static_cast<int>(c));
}

} // namespace

TEST(StrokeFont, HasEveryCharacterAndNoneLooksLikeAnother) {
    const auto missing = draw(L'\x4e00', 14).pixels;
    ASSERT_FALSE(missing.empty()) << "a character without a glyph must show";
    std::map<std::set<pixel>, wchar_t> seen{{missing, 0}};
    for (const wchar_t c : characters()) {
        const auto pixels = draw(c, 14).pixels;
        const bool is_blank = c == L' ' || c == 0xa0;
        EXPECT_EQ(pixels.empty(), is_blank) << name_of(c);
        const bool has_twin = c == 0xad; // the soft hyphen is one
        if (is_blank || has_twin) continue;
        const auto [twin, is_new] = seen.insert({pixels, c});
        EXPECT_TRUE(is_new) << name_of(c) << " looks like " << name_of(twin->second);
    }
}

TEST(StrokeFont, CapitalsAndDigitsFillAsManyRowsAsTheSizeHasPoints) {
    for (int size = 4; size <= 256; size += size < 60 ? 1 : 49) {
        for (const wchar_t c : std::wstring(L"0123456789ABCDEFGHIJKLMNOPRSTUVWXYZ")) {
            const ink drawn = draw(c, size);
            EXPECT_EQ(drawn.top, -size) << name_of(c, size);
            EXPECT_EQ(drawn.bottom, -1) << name_of(c, size);
        }
        const int small_top = draw(L'x', size).top;
        for (const wchar_t c : std::wstring(L"acegmnopqrsuvwyz"))
            EXPECT_EQ(draw(c, size).top, small_top) << name_of(c, size);
    }
}

TEST(StrokeFont, LettersKeepInsideTheirWidthAndLeaveABlankColumn) {
    for (int size = 8; size <= 256; size += size < 60 ? 1 : 49) {
        for (const wchar_t c : characters()) {
            if (!is_alphanumeric(c) || c == L'j') continue; // the hook of j reaches under its left
            const ink drawn = draw(c, size);
            EXPECT_GE(drawn.left, 0) << name_of(c, size);
            EXPECT_LE(drawn.right, width_of(c, size) - 2) << name_of(c, size);
        }
    }
}

TEST(StrokeFont, SymmetricCharactersAreDrawnSymmetric) {
    for (int size = 8; size <= 256; size += size < 60 ? 1 : 49) {
        for (const wchar_t c : std::wstring(L"0AHIMOTUVWXYovwx8+=|\xc4\xcf\xd6\xf6\xb0")) {
            const ink drawn = draw(c, size);
            int astray = 0;
            for (const auto& [x, y] : drawn.pixels)
                astray += !drawn.pixels.contains({drawn.left + drawn.right - x, y});
            // A thin slanted line and its mirror image may round a step to different rows.
            const bool has_slants =
                size < 48 && std::wstring(L"AMVWXYvwx\xc4").find(c) != std::wstring::npos;
            EXPECT_LE(astray, has_slants ? size : 0) << name_of(c, size);
        }
    }
}

// The areas of white that ink encloses.
int counters(const ink& drawn) {
    if (drawn.empty()) return 0;
    const int columns = drawn.right - drawn.left + 3; // and a white frame
    const int rows = drawn.bottom - drawn.top + 3;
    std::vector<char> seen(static_cast<std::size_t>(columns * rows));
    for (const auto& [x, y] : drawn.pixels)
        seen[static_cast<std::size_t>((y - drawn.top + 1) * columns + x - drawn.left + 1)] = 1;
    int areas = 0;
    for (int first = 0; first < columns * rows; first++) {
        std::vector<int> open = {first};
        bool is_new = false;
        while (!open.empty()) {
            const int at = open.back();
            open.pop_back();
            if (at < 0 || at >= columns * rows || seen[static_cast<std::size_t>(at)]) continue;
            seen[static_cast<std::size_t>(at)] = is_new = true;
            open.insert(open.end(), {at - 1, at + 1, at - columns, at + columns});
        }
        areas += is_new;
    }
    return areas - 1;
}

TEST(StrokeFont, StrokesAreSolid) {
    const std::wstring two = L"$%&8B\xae\xc5\xd8\xe5\xe6\xf8";
    const std::wstring one = L"#0469@ADOPQRabdegopq\xa2\xa4\xa7\xa9\xaa\xb0\xb6\xba\xbc\xbe"
                             "\xc0\xc1\xc2\xc3\xc4\xc6\xd0\xd2\xd3\xd4\xd5\xd6\xde"
                             "\xe0\xe1\xe2\xe3\xe4\xe8\xe9\xea\xeb\xf0\xf2\xf3\xf4\xf5\xf6\xfe";
    const auto has = [](const std::wstring& set, wchar_t c) { return set.find(c) != set.npos; };
    for (const int size : {48, 60, 120, 160, 256}) {
        for (const wchar_t c : characters()) {
            if (c == 0xbd) continue; // the 2 of a half leans on its bar
            EXPECT_EQ(counters(draw(c, size)), has(two, c)   ? 2
                                               : has(one, c) ? 1
                                                             : 0)
                << name_of(c, size);
        }
    }
}

TEST(StrokeFont, WidthsAddUpAndDigitsShareOne) {
    for (const int size : {8, 12, 17, 40}) {
        const int digit = width_of(L'0', size);
        for (const wchar_t c : std::wstring(L"123456789"))
            EXPECT_EQ(width_of(c, size), digit);
        EXPECT_EQ(width_of(L"-15e-", size),
                  2 * digit + 2 * width_of(L'-', size) + width_of(L'e', size));
        EXPECT_LT(width_of(L'i', size), width_of(L'm', size));
    }
}

// Where the ink must lie is computed from the rules alone: flush with the anchor but for the blanks
// beside a letter.
TEST(StrokeFont, AlignsInkAtTheAnchorInBothRotations) {
    constexpr int x = 500, y = 400;
    for (const int size : {8, 12, 13, 20, 40}) {
        const int width = width_of(L"H0H", size), blank = 1 + size / 6;
        for (const unsigned align : {0u, 1u, 2u, 4u, 5u, 6u, 8u, 9u, 10u}) {
            const int down = align & 4 ? size : align & 8 ? size / 2 : 0, along = align & 3;
            SCOPED_TRACE(testing::Message() << "size " << size << " align " << align);
            const ink flat = draw(L"H0H", size, 0, align, x, y);
            EXPECT_EQ(flat.bottom, y + down - 1);
            EXPECT_EQ(flat.top, y + down - size);
            EXPECT_NEAR(flat.middle_x(), x - 0.5 + (1 - along) * width / 2.0, 1.5);
            EXPECT_NEAR(flat.right - flat.left, width, 2 * blank);
            std::set<pixel> turned;
            for (const auto& [px, py] : flat.pixels)
                turned.insert({x + py - y, y - 1 - (px - x)});
            EXPECT_EQ(draw(L"H0H", size, quarter, align, x, y).pixels, turned);
        }
    }
}

TEST(StrokeFont, TurnsToAnyAngleAboutTheAnchor) {
    const ink eighth = draw(L"HH", 20, quarter / 2, 0, 100, 100);
    EXPECT_NEAR(eighth.left, 100 - 14, 3);
    EXPECT_NEAR(eighth.bottom, 100, 3);
    const ink over = draw(L"HH", 20, 2 * quarter, 0, 100, 100);
    EXPECT_EQ(over.top, 100);
    EXPECT_LE(over.right, 99);
}

TEST(StrokeFont, UnusableSizesAnglesAndAnchorsAreDrawnWithinBounds) {
    for (const double size : {0.0, -5.0, double(NAN), HUGE_VAL, -HUGE_VAL, 1e9, 1e300, 0.3}) {
        const ink drawn = draw(L"-1.5", size);
        EXPECT_FALSE(drawn.empty()) << size;
        EXPECT_LT(drawn.right, 2000) << size;
        EXPECT_LT(drawn.lines, 40000) << size;
    }
    for (const double rot : {double(NAN), HUGE_VAL})
        EXPECT_EQ(draw(L"7", 12, rot).pixels, draw(L"7", 12).pixels);
    for (const int far : {INT_MIN, INT_MAX})
        draw(L"7", 1e9, 1, 6, far, far);
}

TEST(StrokeFont, DrawsAndMeasuresThePartThatIsAskedFor) {
    ink drawn;
    stroke_font font;
    font.set_dc(&drawn);
    font.drawText(0, 0, L"1", -1); // no face and no line function
    font.line_function = cover;
    font.drawText(0, 0, L"1", -1);
    EXPECT_EQ(font.text_width(L"1", -1), 0);
    font.load_default();
    font.line_function = nullptr;
    font.drawText(0, 0, "1", -1);
    font.line_function = cover;
    font.drawText(0, 0, L"1", 0);
    font.drawText(0, 0, "1", 0);
    font.drawText(0, 0, L"", -1);
    EXPECT_EQ(drawn.lines, 0);
    EXPECT_EQ(font.text_width(L"123", 0), 0);
    EXPECT_EQ(font.text_width(L"123", 1), font.text_width(L"1", -1));
    font.drawText(0, 0, "\xe4\xb0 and more", 2); // narrow text is Latin-1
    EXPECT_EQ(drawn.pixels, draw(L"\xe4\xb0", 12).pixels);
}
