// SPDX-License-Identifier: MIT
// The FreeType font, judged by the bitmaps that it hands out, and its answers to bad files.
//
// plain.ttf has capitals of 0.72 em, H from 0.08 to 0.60 em of an advance of 0.68, and kerning of
// -0.24 em between A and V.
#include "mathkit/ttf_font.h"

#include "mathkit/TError.h"

#include "tests/data_tables.h"
#include "tests/folder.h"
#include "tests/ink_box.h"

#include <gtest/gtest.h>

#include <ft2build.h>
#include FT_FREETYPE_H

#include <cmath>
#include <map>
#include <numbers>
#include <string>
#include <sys/stat.h>

namespace {

constexpr double quarter = std::numbers::pi / 2;
const std::string font_path = data_file("plain.ttf");

/// Collects what is drawn as coverage by pixel, 255 for a bit of a mono bitmap.
class recording_font : public ttf_font {
public:
    using ttf_font::ttf_font;

    std::map<std::pair<int, int>, int> coverage;
    ink_box box; ///< of pixels half covered
    int glyphs = 0, mono_glyphs = 0, soft = 0;

    void draw(const wchar_t* text, double size, double rot = 0, unsigned flags = 0, int x = 0,
              int y = 0) {
        coverage.clear();
        box = {};
        glyphs = mono_glyphs = soft = 0;
        setsizerot(size, rot);
        align = flags;
        drawText(x, y, text, -1);
    }

protected:
    void draw_bitmap(void* bitmap, int x, int y) override {
        const auto& glyph = *static_cast<FT_Bitmap*>(bitmap);
        const bool mono = glyph.pixel_mode == FT_PIXEL_MODE_MONO;
        glyphs++;
        mono_glyphs += mono;
        for (int r = 0; r < static_cast<int>(glyph.rows); r++) {
            const unsigned char* row = glyph.buffer + static_cast<std::ptrdiff_t>(r) * glyph.pitch;
            for (int c = 0; c < static_cast<int>(glyph.width); c++) {
                const int value = mono ? 255 * (row[c >> 3] >> (7 - (c & 7)) & 1) : row[c];
                if (value) coverage[{x + c, y + r}] = value;
                if (value >= 128) box.add(x + c, y + r);
                soft += value && value < 255;
            }
        }
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

} // namespace

TEST(TtfFontFiles, ThatAreNoFontsAreRefusedWithTheirNameAndAReason) {
    const folder place;
    const std::string pipe = place / "pipe.ttf";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::pair<std::string, const char*> cases[] = {
        {put_file(place / "text.ttf", std::string(5000, 'x')), "is no font file"},
        {put_file(place / "empty.ttf", ""), "the file is empty"},
        {place / "missing.ttf", "No such file or directory"},
        {place.path, "is a directory"},
        {put_file(place / "zeros.ttf", "", 100 << 20), "the file is too large for a font"},
        {put_file(place / "some_zeros.ttf", "", 20 << 20), "is no font file"},
        {pipe, "is not a regular file"},
        {"/dev/zero", "is not a regular file"},
        {put_file(place / "bitmaps.bdf",
                  "STARTFONT 2.1\nFONT x\nSIZE 8 75 75\nFONTBOUNDINGBOX 8 8 0 0\nCHARS 1\n"
                  "STARTCHAR A\nENCODING 65\nSWIDTH 500 0\nDWIDTH 8 0\nBBX 8 1 0 0\nBITMAP\n"
                  "FF\nENDCHAR\nENDFONT\n"),
         "is no scalable font"},
    };
    for (const auto& [path, reason] : cases)
        EXPECT_EQ(error_of(path.c_str()), path + ": " + reason);
    EXPECT_EQ(error_of(""), "No font file given.");
    EXPECT_EQ(error_of(nullptr), "No font file given.");
}

TEST(TtfFontFiles, CutShortOrDamagedAreRefusedOrDrawnButNeverFatal) {
    const folder place;
    const std::string whole = content_of(font_path);
    ASSERT_GT(whole.size(), 500U);
    const auto opens = [&](const std::string& bytes) {
        const std::string path = put_file(place / "damaged.ttf", bytes);
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
    EXPECT_TRUE(opens(whole));
    EXPECT_FALSE(opens(whole.substr(0, 100)));
    for (std::size_t at = 0; at < whole.size(); at += 3) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(~damaged[at]);
        opens(damaged);
        opens(whole.substr(0, at));
    }
}

TEST(TtfFontFiles, MayVanishWhileTheFontIsInUse) {
    const folder place;
    const std::string path = put_file(place / "copy.ttf", content_of(font_path));
    recording_font font(path.c_str());
    std::filesystem::resize_file(path, 10);
    std::filesystem::remove(path);
    font.draw(L"H", 12);
    EXPECT_EQ(font.box.top, -12);
}

TEST(TtfFont, AlignsInkAtTheAnchorInBothRotations) {
    recording_font font(font_path.c_str());
    constexpr int x = 500, y = 400;
    for (const bool gray : {true, false}) {
        font.antialias = gray;
        for (const int size : {10, 12, 20, 40}) {
            const double em = size * 100 / 72.0;
            for (const unsigned align : {0u, 1u, 2u, 4u, 5u, 6u, 8u, 9u, 10u}) {
                SCOPED_TRACE(testing::Message() << "size " << size << " align " << align);
                const int base = y + (align & 4 ? size : align & 8 ? size / 2 : 0);
                const double start = x - (align & 3) * 0.68 * em;
                font.draw(L"HH", size, 0, align, x, y);
                EXPECT_EQ(font.glyphs, 2);
                EXPECT_EQ(font.mono_glyphs, gray ? 0 : 2);
                EXPECT_NEAR(font.box.bottom, base - 1, 1);
                EXPECT_NEAR(font.box.top, base - size, 1);
                EXPECT_NEAR(font.box.left, start + 0.08 * em, 1.6);
                EXPECT_NEAR(font.box.right, start + (0.68 + 0.60) * em - 1, 1.6);

                std::map<std::pair<int, int>, int> turned;
                for (const auto& [p, value] : font.coverage)
                    turned[{x + p.second - y, y - 1 - (p.first - x)}] = value;
                font.draw(L"HH", size, quarter, align, x, y);
                EXPECT_EQ(font.coverage, turned);
            }
        }
    }
}

TEST(TtfFont, KernsWhereTheFontSaysSo) {
    recording_font font(font_path.c_str());
    font.setsize(36); // an em of 50 pixels
    EXPECT_EQ(font.text_width(L"A", -1), 35);
    EXPECT_EQ(font.text_width(L"AV", -1), 35 + 35 - 12);
    EXPECT_EQ(font.text_width(L"AH", -1), 35 + 34);
    EXPECT_EQ(font.text_width(L"AVH", 1), 35);
    font.draw(L"AV", 36);
    const int kerned = font.box.right;
    font.draw(L"V", 36);
    EXPECT_EQ(kerned, font.box.right + 35 - 12);
}

TEST(TtfFont, DrawsSoftEdgesAndABoxForWhatTheFontLacks) {
    recording_font font(font_path.c_str());
    font.draw(L"A p", 12);
    EXPECT_GT(font.soft, 0);
    font.draw(L"\x4e00", 12);
    EXPECT_FALSE(font.coverage.empty());
    font.draw(L"", 12);
    EXPECT_EQ(font.glyphs, 0);
}

TEST(TtfFont, UnusableSizesAnglesAndAnchorsAreDrawnWithinBounds) {
    recording_font font(font_path.c_str());
    for (const double size : {0.0, -5.0, double(NAN), HUGE_VAL, -HUGE_VAL, 1e9, 0.3}) {
        font.draw(L"H", size);
        EXPECT_FALSE(font.coverage.empty()) << size;
        EXPECT_TRUE(font.box.empty() || font.box.bottom - font.box.top <= 401) << size;
    }
    font.draw(L"H", 12);
    const auto upright = font.coverage;
    for (const double rot : {double(NAN), HUGE_VAL}) {
        font.draw(L"H", 12, rot);
        EXPECT_EQ(font.coverage, upright);
    }
    for (const int far : {INT_MIN, INT_MAX})
        font.draw(L"H", 1e9, 1, 6, far, far);
}
