// SPDX-License-Identifier: MIT
// The stroke font, judged by the pixels that its lines cover.
#include "mathkit/stroke_font.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
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
struct ink {
    std::set<pixel> pixels;
    long lines = 0;

    int left() const { return extreme(true, false); }
    int right() const { return extreme(true, true); }
    int top() const { return extreme(false, false); }
    int bottom() const { return extreme(false, true); }

private:
    int extreme(bool of_x, bool largest) const {
        int found = largest ? INT_MIN : INT_MAX;
        for (const auto& [x, y] : pixels) {
            found = largest ? std::max(found, of_x ? x : y) : std::min(found, of_x ? x : y);
        }
        return found;
    }
};

// Covers a line of one pixel's width, as a display does.
void cover(int x1, int y1, int x2, int y2, void* dc) {
    auto& drawn = *static_cast<ink*>(dc);
    drawn.lines++;
    const int steps = std::max(std::abs(x2 - x1), std::abs(y2 - y1));
    ASSERT_LT(steps, 5000) << "a line far longer than any letter";
    for (int i = 0; i <= steps; i++) {
        const double t = steps ? static_cast<double>(i) / steps : 0;
        drawn.pixels.insert({static_cast<int>(std::lround(x1 + t * (x2 - x1))),
                             static_cast<int>(std::lround(y1 + t * (y2 - y1)))});
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

int width_of(const std::wstring& text, double size) {
    stroke_font font;
    font.load_default();
    font.setsize(size);
    return font.text_width(text.c_str(), -1);
}

std::wstring one(wchar_t c) {
    return std::wstring(1, c);
}

// Every character that a label may hold.
std::vector<wchar_t> characters() {
    std::vector<wchar_t> all;
    for (wchar_t c = 0x20; c <= 0xff; c++) {
        if (c < 0x7f || c >= 0xa0) all.push_back(c);
    }
    return all;
}

bool is_alphanumeric(wchar_t c) {
    if (c >= 0xc0) return c != 0xd7 && c != 0xf7;
    return c < 0x80 && std::isalnum(static_cast<int>(c));
}

} // namespace

TEST(stroke_font, has_every_character_and_none_looks_like_another) {
    const auto missing = draw(one(0x4e00), 14).pixels;
    ASSERT_FALSE(missing.empty()) << "a character without a glyph must show";
    std::map<std::set<pixel>, wchar_t> seen{{missing, 0}};
    for (const wchar_t c : characters()) {
        const auto pixels = draw(one(c), 14).pixels;
        const bool is_blank = c == L' ' || c == 0xa0;
        EXPECT_EQ(pixels.empty(), is_blank) << std::hex << static_cast<int>(c);
        const bool has_twin = c == 0xad; // the soft hyphen is one
        if (is_blank || has_twin) continue;
        const auto [twin, is_new] = seen.insert({pixels, c});
        EXPECT_TRUE(is_new) << std::hex << static_cast<int>(c) << " looks like "
                            << static_cast<int>(twin->second);
    }
}

TEST(stroke_font, capitals_and_digits_fill_as_many_rows_as_the_size_has_points) {
    for (int size = 4; size <= 60; size++) {
        for (const wchar_t c : std::wstring(L"0123456789ABCDEFGHIJKLMNOPRSTUVWXYZ")) {
            const ink drawn = draw(one(c), size);
            EXPECT_EQ(drawn.top(), -size) << static_cast<char>(c) << " at " << size;
            EXPECT_EQ(drawn.bottom(), -1) << static_cast<char>(c) << " at " << size;
        }
        const int small_top = draw(L"x", size).top();
        for (const wchar_t c : std::wstring(L"acegmnopqrsuvwyz")) {
            EXPECT_EQ(draw(one(c), size).top(), small_top) << static_cast<char>(c) << size;
        }
    }
}

TEST(stroke_font, letters_keep_inside_their_width_and_leave_a_blank_column) {
    for (int size = 8; size <= 40; size++) {
        for (const wchar_t c : characters()) {
            if (!is_alphanumeric(c) || c == L'j') continue; // the hook of j reaches under its left
            const ink drawn = draw(one(c), size);
            EXPECT_GE(drawn.left(), 0) << std::hex << static_cast<int>(c) << std::dec << size;
            EXPECT_LE(drawn.right(), width_of(one(c), size) - 2)
                << std::hex << static_cast<int>(c) << " at " << std::dec << size;
        }
    }
}

TEST(stroke_font, symmetric_characters_are_drawn_symmetric) {
    for (int size = 8; size <= 40; size++) {
        for (const wchar_t c : std::wstring(L"0AHIMOTUVWXYovwx8+=|\xc4\xcf\xd6\xf6\xb0")) {
            const ink drawn = draw(one(c), size);
            const int sum = drawn.left() + drawn.right();
            int astray = 0;
            for (const auto& [x, y] : drawn.pixels)
                astray += !drawn.pixels.contains({sum - x, y});
            // A slanted line and its mirror image may round a step to different rows.
            const bool has_slants = std::wstring(L"AMVWXYvwx\xc4").find(c) != std::wstring::npos;
            EXPECT_LE(astray, has_slants ? size : 0)
                << std::hex << static_cast<int>(c) << " at " << std::dec << size;
        }
    }
}

TEST(stroke_font, widths_add_up_and_digits_share_one) {
    for (const int size : {8, 12, 17, 40}) {
        const int digit = width_of(L"0", size);
        for (const wchar_t c : std::wstring(L"123456789"))
            EXPECT_EQ(width_of(one(c), size), digit);
        EXPECT_EQ(width_of(L"-1.5e-05 P", size), 4 * digit + 2 * width_of(L"-", size) +
                                                     width_of(L".", size) + width_of(L"e", size) +
                                                     width_of(L" ", size) + width_of(L"P", size));
        EXPECT_LT(width_of(L"i", size), width_of(L"m", size));
    }
    stroke_font font;
    font.load_default();
    EXPECT_EQ(font.text_width(L"123", 0), 0);
    EXPECT_EQ(font.text_width(L"123", 1), font.text_width(L"1", -1));
}

// Where the ink must lie is computed from the rules alone: flush with the anchor but for the blanks
// beside a letter.
TEST(stroke_font, aligns_ink_at_the_anchor_in_both_rotations) {
    constexpr int x = 500;
    constexpr int y = 400;
    for (const int size : {8, 12, 13, 20, 40}) {
        const int blank = 1 + size / 6;
        for (const unsigned across : {0u, 4u, 8u}) {
            const int down = across == 4 ? size : across == 8 ? size / 2 : 0;
            for (const unsigned along : {0u, 1u, 2u}) {
                SCOPED_TRACE(testing::Message()
                             << "size " << size << " align " << (across | along));
                const ink flat = draw(L"H0B", size, 0, across | along, x, y);
                EXPECT_EQ(flat.bottom(), y + down - 1);
                EXPECT_EQ(flat.top(), y + down - size);
                if (along == 0) {
                    EXPECT_NEAR(flat.left(), x, blank);
                }
                if (along == 2) {
                    EXPECT_NEAR(flat.right(), x - 1, blank);
                }
                if (along == 1) {
                    EXPECT_NEAR((flat.left() + flat.right()) / 2.0, x - 0.5, 1.5);
                }

                const ink turned = draw(L"H0B", size, quarter, across | along, x, y);
                std::set<pixel> expected;
                for (const auto& [px, py] : flat.pixels)
                    expected.insert({x + py - y, y - 1 - (px - x)});
                EXPECT_EQ(turned.pixels, expected) << "not the flat text, turned";
            }
        }
    }
}

TEST(stroke_font, turns_to_any_angle_about_the_anchor) {
    const ink eighth = draw(L"HH", 20, quarter / 2, 0, 100, 100);
    EXPECT_NEAR(eighth.left(), 100 - 14, 3);
    EXPECT_NEAR(eighth.bottom(), 100, 3);
    const ink over = draw(L"HH", 20, 2 * quarter, 0, 100, 100);
    EXPECT_EQ(over.top(), 100);
    EXPECT_LE(over.right(), 99);
}

TEST(stroke_font, unusable_sizes_angles_and_anchors_are_drawn_within_bounds) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    const double nan = std::nan("");
    for (const double size : {0.0, -5.0, nan, inf, -inf, 1e9, 1e300, 0.3}) {
        const ink drawn = draw(L"-1.5", size);
        EXPECT_FALSE(drawn.pixels.empty()) << size;
        EXPECT_LT(drawn.right(), 2000) << size;
        EXPECT_LT(drawn.lines, 40000) << size;
    }
    EXPECT_EQ(draw(L"7", 12, nan).pixels, draw(L"7", 12).pixels);
    EXPECT_EQ(draw(L"7", 12, inf).pixels, draw(L"7", 12).pixels);
    for (const int far : {INT_MIN, INT_MAX})
        draw(L"7", 1e9, 1, 6, far, far);
}

TEST(stroke_font, draws_nothing_without_face_or_line_function) {
    ink drawn;
    stroke_font font;
    font.set_dc(&drawn);
    font.drawText(0, 0, L"1", -1);
    font.line_function = cover;
    font.drawText(0, 0, L"1", -1);
    EXPECT_EQ(drawn.lines, 0);
    EXPECT_EQ(font.text_width(L"1", -1), 0);
    font.load_default();
    font.drawText(0, 0, L"1", 0);
    font.drawText(0, 0, L"", -1);
    EXPECT_EQ(drawn.lines, 0);
    font.drawText(0, 0, L"1", -1);
    EXPECT_GT(drawn.lines, 0);
}

TEST(stroke_font, narrow_text_is_latin_1) {
    stroke_font font;
    font.load_default();
    font.line_function = cover;
    ink drawn;
    font.set_dc(&drawn);
    font.drawText(0, 0, "\xe4\xb0 and more", 2);
    EXPECT_EQ(drawn.pixels, draw(L"\xe4\xb0", 12).pixels);
}
