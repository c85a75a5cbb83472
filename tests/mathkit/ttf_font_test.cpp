// SPDX-License-Identifier: MIT
// The FreeType font, judged by the bitmaps that it hands out, and its answers to bad files.
//
// plain.ttf has capitals of 0.72 em, H from 0.08 to 0.60 em of an advance of 0.68, and kerning of
// -0.24 em between A and V.
#include "mathkit/ttf_font.h"

#include "mathkit/TError.h"

#include <gtest/gtest.h>

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <climits>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <numbers>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr double quarter = std::numbers::pi / 2;
const std::string font_path = std::string(TEST_DATA_DIR) + "/plain.ttf";

/// Collects what is drawn as coverage by pixel, 255 for a bit of a mono bitmap.
class recording_font : public ttf_font {
public:
    using ttf_font::ttf_font;

    std::map<std::pair<int, int>, int> coverage;
    int glyphs = 0;
    int mono_glyphs = 0;

    int left = INT_MAX, right = INT_MIN, top = INT_MAX,
        bottom = INT_MIN; ///< of pixels half covered

    void draw(const wchar_t* text, double size, double rot = 0, unsigned flags = 0, int x = 0,
              int y = 0) {
        coverage.clear();
        glyphs = mono_glyphs = 0;
        left = top = INT_MAX;
        right = bottom = INT_MIN;
        setsizerot(size, rot);
        align = flags;
        drawText(x, y, text, -1);
    }

protected:
    void draw_bitmap(void* bitmap, int x, int y) override {
        const auto& glyph = *static_cast<FT_Bitmap*>(bitmap);
        glyphs++;
        mono_glyphs += glyph.pixel_mode == FT_PIXEL_MODE_MONO;
        for (int r = 0; r < static_cast<int>(glyph.rows); r++) {
            const unsigned char* row = glyph.buffer + static_cast<std::ptrdiff_t>(r) * glyph.pitch;
            for (int c = 0; c < static_cast<int>(glyph.width); c++) {
                const int value = glyph.pixel_mode == FT_PIXEL_MODE_GRAY
                                      ? row[c]
                                      : ((row[c >> 3] & (0x80 >> (c & 7))) != 0 ? 255 : 0);
                if (value) cover(x + c, y + r, value);
            }
        }
    }

private:
    void cover(int x, int y, int value) {
        coverage[{x, y}] = value;
        if (value < 128) return;
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
};

/// The text of the error that opening a file gives; empty if it opens.
std::string error_of(const char* path) {
    try {
        recording_font font(path);
    } catch (const TError& e) {
        return e.text().c_str();
    }
    return "";
}

std::vector<char> bytes_of(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// A folder that goes with the test.
class ttf_font_files : public testing::Test {
protected:
    ttf_font_files() { std::filesystem::create_directory(folder); }
    ~ttf_font_files() override { std::filesystem::remove_all(folder); }

    std::string write(const char* name, const std::vector<char>& bytes) const {
        std::string path = folder + "/" + name;
        std::ofstream(path, std::ios::binary).write(bytes.data(), std::ssize(bytes));
        return path;
    }

    const std::string folder = testing::TempDir() + "ttf_font_files." +
                               std::to_string(testing::UnitTest::GetInstance()->random_seed()) +
                               "." + std::to_string(getpid());
};

} // namespace

TEST_F(ttf_font_files, that_are_no_fonts_are_refused_with_their_name_and_a_reason) {
    const std::string text = write("text.ttf", std::vector<char>(5000, 'x'));
    const std::string empty = write("empty.ttf", {});
    const std::string missing = folder + "/missing.ttf";
    const std::string zeros = write("zeros.ttf", {});
    std::filesystem::resize_file(zeros, 100 << 20);
    const std::string some_zeros = write("some_zeros.ttf", {});
    std::filesystem::resize_file(some_zeros, 20 << 20);
    const std::string pipe = folder + "/pipe.ttf";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string bitmap_font = write("bitmaps.bdf", [] {
        const std::string bdf =
            "STARTFONT 2.1\nFONT x\nSIZE 8 75 75\nFONTBOUNDINGBOX 8 8 0 0\nCHARS 1\n"
            "STARTCHAR A\nENCODING 65\nSWIDTH 500 0\nDWIDTH 8 0\nBBX 8 1 0 0\nBITMAP\n"
            "FF\nENDCHAR\nENDFONT\n";
        return std::vector<char>(bdf.begin(), bdf.end());
    }());
    const struct {
        std::string path;
        const char* reason;
    } cases[] = {
        {text, "is no font file"},
        {empty, "the file is empty"},
        {missing, "No such file or directory"},
        {folder, "is a directory"},
        {zeros, "the file is too large for a font"},
        {some_zeros, "is no font file"},
        {pipe, "is not a regular file"},
        {"/dev/zero", "is not a regular file"},
        {bitmap_font, "is no scalable font"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(error_of(c.path.c_str()), c.path + ": " + c.reason);
    EXPECT_EQ(error_of(""), "No font file given.");
    EXPECT_EQ(error_of(nullptr), "No font file given.");
}

TEST_F(ttf_font_files, cut_short_or_damaged_are_refused_or_drawn_but_never_fatal) {
    const std::vector<char> whole = bytes_of(font_path);
    ASSERT_GT(whole.size(), 500U);
    const auto try_bytes = [&](const std::vector<char>& bytes) {
        const std::string path = write("damaged.ttf", bytes);
        try {
            recording_font font(path.c_str());
            font.draw(L"HAV p?", 12);
            font.antialias = false;
            font.draw(L"HAV p?", 40, quarter);
            return true;
        } catch (const TError& e) {
            EXPECT_NE(std::string(e.text().c_str()).find(path + ": "), std::string::npos);
            return false;
        }
    };
    EXPECT_TRUE(try_bytes(whole));
    for (std::size_t length = 0; length < whole.size(); length += 7)
        try_bytes({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
    EXPECT_FALSE(try_bytes({whole.begin(), whole.begin() + 100}));
    for (std::size_t at = 0; at < whole.size(); at += 3) {
        std::vector<char> damaged = whole;
        damaged[at] = static_cast<char>(~damaged[at]);
        try_bytes(damaged);
    }
}

TEST_F(ttf_font_files, may_vanish_while_the_font_is_in_use) {
    const std::string path = write("copy.ttf", bytes_of(font_path));
    recording_font font(path.c_str());
    std::filesystem::resize_file(path, 10);
    std::filesystem::remove(path);
    font.draw(L"H", 12);
    EXPECT_EQ(font.top, -12);
}

TEST(ttf_font, aligns_ink_at_the_anchor_in_both_rotations) {
    recording_font font(font_path.c_str());
    constexpr int x = 500;
    constexpr int y = 400;
    for (const bool gray : {true, false}) {
        font.antialias = gray;
        for (const int size : {10, 12, 20, 40}) {
            const double em = size * 100 / 72.0;
            for (const unsigned across : {0u, 4u, 8u}) {
                const int base = y + (across == 4 ? size : across == 8 ? size / 2 : 0);
                for (const unsigned along : {0u, 1u, 2u}) {
                    SCOPED_TRACE(testing::Message() << size << " align " << (across | along));
                    const double width = 2 * 0.68 * em;
                    const double start = x - (along == 2 ? width : along == 1 ? width / 2 : 0);
                    font.draw(L"HH", size, 0, across | along, x, y);
                    EXPECT_EQ(font.mono_glyphs, gray ? 0 : 2);
                    EXPECT_NEAR(font.bottom, base - 1, 1);
                    EXPECT_NEAR(font.top, base - size, 1);
                    EXPECT_NEAR(font.left, start + 0.08 * em, 1.6);
                    EXPECT_NEAR(font.right, start + (0.68 + 0.60) * em - 1, 1.6);

                    const auto flat = font.coverage;
                    font.draw(L"HH", size, quarter, across | along, x, y);
                    std::map<std::pair<int, int>, int> expected;
                    for (const auto& [p, value] : flat)
                        expected[{x + p.second - y, y - 1 - (p.first - x)}] = value;
                    EXPECT_EQ(font.coverage, expected) << "not the flat text, turned";
                }
            }
        }
    }
}

TEST(ttf_font, kerns_where_the_font_says_so) {
    recording_font font(font_path.c_str());
    font.setsize(36); // an em of 50 pixels
    const int apart = font.text_width(L"A", -1) + font.text_width(L"V", -1);
    EXPECT_EQ(apart, 70);
    EXPECT_EQ(font.text_width(L"AV", -1), apart - 12);
    EXPECT_EQ(font.text_width(L"AH", -1), 35 + 34);
    EXPECT_EQ(font.text_width(L"AVH", 1), 35);
    font.draw(L"AV", 36);
    const int kerned = font.right;
    font.draw(L"A", 36);
    font.draw(L"V", 36);
    EXPECT_EQ(kerned, font.right + 35 - 12);
}

TEST(ttf_font, hands_out_one_bitmap_a_glyph_with_soft_or_hard_edges) {
    recording_font font(font_path.c_str());
    font.draw(L"A p", 12);
    EXPECT_EQ(font.glyphs, 3);
    EXPECT_EQ(font.mono_glyphs, 0);
    EXPECT_GT(std::count_if(font.coverage.begin(), font.coverage.end(),
                            [](const auto& p) { return p.second < 255; }),
              0);
    font.antialias = false;
    font.draw(L"AV", 12);
    EXPECT_EQ(font.mono_glyphs, 2);
    font.draw(L"\x4e00", 12); // what the font lacks shows as its box
    EXPECT_FALSE(font.coverage.empty());
    font.draw(L"", 12);
    EXPECT_EQ(font.glyphs, 0);
}

TEST(ttf_font, unusable_sizes_angles_and_anchors_are_drawn_within_bounds) {
    recording_font font(font_path.c_str());
    constexpr double inf = std::numeric_limits<double>::infinity();
    for (const double size : {0.0, -5.0, std::nan(""), inf, -inf, 1e9, 0.3}) {
        font.draw(L"H", size);
        EXPECT_FALSE(font.coverage.empty()) << size;
        if (font.top <= font.bottom) {
            EXPECT_LE(font.bottom - font.top, 401) << size;
        }
    }
    font.draw(L"H", 12);
    const auto upright = font.coverage;
    for (const double rot : {std::nan(""), inf}) {
        font.draw(L"H", 12, rot);
        EXPECT_EQ(font.coverage, upright);
    }
    for (const int far : {INT_MIN, INT_MAX})
        font.draw(L"H", 1e9, 1, 6, far, far);
}
