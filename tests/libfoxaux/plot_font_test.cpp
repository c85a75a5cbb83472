// SPDX-License-Identifier: MIT
// One test sheet for all three back-ends of the plot font: where the ink lies, what it leaves
// alone.
#include "libfoxaux/font/fox_font.h"
#include "libfoxaux/font/fox_hfont.h"
#include "libfoxaux/font/fox_ttf_font.h"
#include "mathkit/TError.h"
#include "tests/libfoxaux/window_fixture.h"

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <string>

using namespace window_test;

namespace {

constexpr double quarter = std::numbers::pi / 2;
const std::string font_path = std::string(TEST_DATA_DIR) + "/plain.ttf";

constexpr int sheet_w = 400;
constexpr int sheet_h = 360;
constexpr int anchor_x = 200;
constexpr int anchor_y = 180;
constexpr FXColor ink_color = FXRGB(30, 0, 60); // not the black of a context set back

// A light pattern, different at every pixel nearby.
FXColor pattern(int x, int y) {
    return FXRGB(200 + (x * 7 + y * 3) % 50, 200 + (x * 5 + y * 11) % 50, 200 + (x + y * 2) % 50);
}

// How much of a pixel is ink: 1 for the ink's colour, 0 for what was there.
double ink_share(FXColor now, FXColor under) {
    const int before = FXREDVAL(under);
    return static_cast<double>(before - FXREDVAL(now)) / (before - FXREDVAL(ink_color));
}

/// An image full of the pattern, and what a drawing has changed in it.
class sheet {
public:
    sheet(int w = sheet_w, int h = sheet_h)
        : image(&app(), nullptr, IMAGE_KEEP | IMAGE_OWNED, w, h) {
        for (int y = 0; y < h; y++) {
            for (int x = 0; x < w; x++)
                image.setPixel(x, y, pattern(x, y));
        }
        image.create();
    }

    void draw(base_font& font, const wchar_t* text, double size, double rot, unsigned align,
              int x = anchor_x, int y = anchor_y) {
        FXDCWindow dc(&image);
        dc.setForeground(ink_color);
        font.set_dc(&dc);
        font.setsizerot(size, rot);
        font.align = align;
        font.drawText(x, y, text, -1);
        foreground_after = dc.getForeground();
        dc.drawPoint(0, 0); // in that colour, unless the font has left another state behind
    }

    /// Measures the box of the pixels that are mostly ink.
    void measure() {
        const pixels now(&image);
        left = top = INT_MAX;
        right = bottom = INT_MIN;
        changed = 0;
        mark = now.at(0, 0);
        for (int y = 0; y < now.height(); y++) {
            for (int x = 0; x < now.width(); x++) {
                if ((x == 0 && y == 0) || now.at(x, y) == pattern(x, y)) continue;
                changed++;
                if (ink_share(now.at(x, y), pattern(x, y)) < 0.4) continue;
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        }
    }

    FXImage image;
    int left = 0, right = 0, top = 0, bottom = 0;
    int changed = 0; ///< pixels that differ from the pattern
    FXColor foreground_after = 0;
    FXColor mark = 0; ///< the point drawn after the text
};

struct back_end {
    const char* name;
    std::unique_ptr<base_font> font;
};

std::vector<back_end> back_ends() {
    std::vector<back_end> all;
    auto stroke = std::make_unique<fox_stroke_font>();
    stroke->load_default();
    all.push_back({"stroke", std::move(stroke)});
    all.push_back({"toolkit", std::make_unique<fox_font>()});
    auto soft = std::make_unique<fox_ttf_font>(font_path.c_str());
    auto hard = std::make_unique<fox_ttf_font>(font_path.c_str());
    hard->antialias = false;
    all.push_back({"TrueType", std::move(soft)});
    all.push_back({"TrueType, mono", std::move(hard)});
    return all;
}

} // namespace

TEST(plot_font, all_back_ends_put_text_at_the_same_place) {
    for (const back_end& b : back_ends()) {
        for (const int size : {9, 12, 16, 24, 40}) {
            for (const unsigned across : {0u, 4u, 8u}) {
                for (const unsigned along : {0u, 1u, 2u}) {
                    SCOPED_TRACE(testing::Message()
                                 << b.name << " " << size << " align " << (across | along));
                    const int down = across == 4 ? size : across == 8 ? size / 2 : 0;
                    // Beside a letter there are blanks: a tenth of the size in every face here.
                    const double blank = size * 0.11;

                    sheet flat;
                    flat.draw(*b.font, L"HHH", size, 0, across | along);
                    flat.measure();
                    EXPECT_NEAR(flat.bottom, anchor_y + down - 1, 2);
                    EXPECT_NEAR(flat.top, anchor_y + down - size, 2);
                    if (along == 0) {
                        EXPECT_NEAR(flat.left, anchor_x + blank, 2);
                    }
                    if (along == 2) {
                        EXPECT_NEAR(flat.right, anchor_x - 1 - blank, 2);
                    }
                    if (along == 1) {
                        EXPECT_NEAR((flat.left + flat.right) / 2.0, anchor_x, 2);
                    }

                    sheet turned;
                    turned.draw(*b.font, L"HHH", size, quarter, across | along);
                    turned.measure();
                    EXPECT_EQ(turned.right - anchor_x, flat.bottom - anchor_y);
                    EXPECT_EQ(turned.left - anchor_x, flat.top - anchor_y);
                    EXPECT_EQ(anchor_y - 1 - turned.bottom, flat.left - anchor_x);
                    EXPECT_EQ(anchor_y - 1 - turned.top, flat.right - anchor_x);
                    EXPECT_EQ(turned.changed, flat.changed) << "ink, or the pattern around it";
                }
            }
        }
    }
}

TEST(plot_font, leaves_the_pattern_and_the_context_as_they_were) {
    for (const back_end& b : back_ends()) {
        for (const double rot : {0.0, quarter}) {
            SCOPED_TRACE(testing::Message() << b.name << " " << rot);
            sheet s;
            s.draw(*b.font, L"H", 20, rot, 0);
            s.measure();
            EXPECT_LE(s.changed, 22 * 22) << "more than the letter's own box";
            EXPECT_GT(s.changed, 40);
            EXPECT_EQ(s.foreground_after, ink_color);
            EXPECT_EQ(s.mark, ink_color) << "the context has lost its colour";
        }
    }
}

TEST(plot_font, at_and_beyond_the_edges_only_the_visible_part_is_drawn) {
    for (const back_end& b : back_ends()) {
        for (const double rot : {0.0, quarter}) {
            SCOPED_TRACE(testing::Message() << b.name << " " << rot);
            const std::pair<int, int> corners[] = {
                {-5, 8}, {sheet_w - 6, 10}, {10, sheet_h + 5}, {8, -3}, {sheet_w + 5, sheet_h}};
            for (const auto& [x, y] : corners) {
                sheet s;
                s.draw(*b.font, L"HAVH", 12, rot, 0, x, y);
                s.measure();
                EXPECT_LE(s.changed, 60 * 16);
            }
            for (const int far : {40000, -40000, 65536 + 200, INT_MAX, INT_MIN}) {
                sheet s;
                s.draw(*b.font, L"HAVH", 12, rot, 5, far, anchor_y);
                s.draw(*b.font, L"HAVH", 12, rot, 5, anchor_x, far);
                s.measure();
                EXPECT_EQ(s.changed, 0) << far << " wraps into the picture";
            }
        }
    }
}

TEST(plot_font, any_size_draws_and_the_next_one_is_right_again) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    for (const back_end& b : back_ends()) {
        for (const double size : {0.0, -7.0, std::nan(""), 1e9, inf, -inf, 6553.7}) {
            sheet s;
            s.draw(*b.font, L"H-1", size, 0, 5);
            s.draw(*b.font, L"H-1", size, quarter, 5);
        }
        sheet s;
        s.draw(*b.font, L"H", 12, 0, 0);
        s.measure();
        EXPECT_NEAR(s.top, anchor_y - 12, 2) << b.name;
    }
}

// Coverage 255 gives exactly the ink, 0 the background, and between them each channel is mixed.
TEST(fox_ttf_font, mixes_ink_into_the_picture_by_coverage) {
    fox_ttf_font font(font_path.c_str());
    sheet s;
    s.draw(font, L"H", 30, 0, 0);
    const pixels now(&s.image);
    int full = 0;
    int mixed = 0;
    for (int y = 1; y < sheet_h; y++) {
        for (int x = 0; x < sheet_w; x++) {
            const FXColor under = pattern(x, y);
            if (now.at(x, y) == under) continue;
            if (now.at(x, y) == ink_color) {
                full++;
                continue;
            }
            mixed++;
            // One coverage must explain all three channels.
            bool explained = false;
            for (int a = 1; a < 255 && !explained; a++) {
                const auto n = [a](int o, int f) { return o + (f - o) * a / 255; };
                explained = now.at(x, y) == FXRGB(n(FXREDVAL(under), FXREDVAL(ink_color)),
                                                  n(FXGREENVAL(under), FXGREENVAL(ink_color)),
                                                  n(FXBLUEVAL(under), FXBLUEVAL(ink_color)));
            }
            EXPECT_TRUE(explained) << x << " " << y;
        }
    }
    EXPECT_GT(full, 60);
    EXPECT_GT(mixed, 20);
}

TEST(fox_ttf_font, draws_on_a_window_that_is_hidden_or_hangs_off_the_screen) {
    fox_ttf_font font(font_path.c_str());
    FXMainWindow shell(&app(), "test", nullptr, nullptr, DECOR_NONE, -20, -10, 100, 60);
    shell.create();
    for (const bool visible : {false, true}) {
        if (visible) shell.show();
        pump();
        FXDCWindow dc(&shell);
        font.set_dc(&dc);
        font.setsizerot(12, 0);
        font.align = 0;
        font.drawText(5, 15, L"HAVH", -1);
        app().flush(true);
    }
}

TEST(fox_font, keeps_twenty_fonts_and_evicts_the_oldest_made) {
    fox_font font;
    const auto made_by = [&font](double size) {
        const int before = fox_font::fonts_made;
        font.setsize(size);
        EXPECT_NEAR(font.get_size(), size, 0.05);
        return fox_font::fonts_made - before;
    };
    made_by(30);
    EXPECT_EQ(made_by(30), 0) << "the same size again";
    for (int size = 31; size < 50; size++)
        EXPECT_EQ(made_by(size), 1);
    // With the font of the constructor these were twenty-one, and that one has gone.
    EXPECT_EQ(made_by(30), 0) << "used again: stays the oldest all the same";
    EXPECT_EQ(made_by(50), 1) << "the twenty-first evicts the first made";
    EXPECT_EQ(made_by(30), 1) << "although it was used a moment ago";
    EXPECT_EQ(made_by(32), 0);
    EXPECT_EQ(made_by(31), 1);
    EXPECT_EQ(font.allocated_count, 20);
    EXPECT_EQ(font.allocated.size(), 20U);
    EXPECT_EQ(font.font_map.size(), 20U);
}

TEST(fox_font, takes_a_description_a_font_or_neither) {
    fox_font font;
    FXFontDesc wanted = font.desc;
    wanted.size = 155;
    wanted.weight = FXFont::Bold;
    font.setFont(wanted);
    EXPECT_EQ(font.current->getActualSize(), 155U);
    EXPECT_EQ(font.get_size(), 15.5);
    EXPECT_EQ(font.desc.weight, FXFont::Bold);

    font.setFont(app().getNormalFont());
    EXPECT_EQ(font.current->getActualName(), app().getNormalFont()->getActualName());

    const FXFont* before = font.current;
    wanted.face[0] = '\0'; // no font can be made of this
    font.setFont(wanted);
    EXPECT_EQ(font.current, before);
    font.setsizerot(12, 0);
    sheet s;
    s.draw(font, L"H", 12, 0, 0);
    s.measure();
    EXPECT_GT(s.changed, 0);
}

TEST(fox_font, reduces_angles_and_snaps_to_the_two_that_it_draws) {
    constexpr double pi = std::numbers::pi;
    fox_font font;
    const struct {
        double angle, reduced;
        bool exact;
    } cases[] = {
        {0, 0, true},
        {2 * pi + 0.00005, 0, true},
        {-0.00005, 0, true},
        {pi / 2 + 0.00005, pi / 2, true},
        {5 * pi / 2, pi / 2, true},
        {-3 * pi / 2, pi / 2, true},
        {2000 * pi + pi / 2, pi / 2, true},
        {pi / 2 + 0.001, pi / 2 + 0.001, false},
        {pi, -pi, false},
        {-pi, -pi, false},
        {-pi / 2, -pi / 2, false},
        {std::nan(""), 0, true},
        {std::numeric_limits<double>::infinity(), 0, true},
    };
    for (const auto& c : cases) {
        font.setrot(c.angle);
        if (c.exact) {
            EXPECT_EQ(font.get_rot(), c.reduced) << c.angle;
        } else {
            EXPECT_NEAR(font.get_rot(), c.reduced, 1e-12) << c.angle;
        }
    }
}

TEST(fox_font_death, another_angle_ends_the_process_with_its_place) {
    GTEST_FLAG_SET(death_test_style, "fast");
    fox_font font;
    font.setrot(1);
    EXPECT_DEATH(font.drawText(10, 10, L"H", -1),
                 "libfoxaux/font/fox_font.*"
                 "virtual void fox_font::drawText\\(int, int, const wchar_t\\*, int\\)");
}

TEST(hfont, is_made_once_and_is_the_stroke_font) {
    delete hfont;
    hfont = nullptr;
    ensure_hfont();
    base_font* first = hfont;
    ASSERT_NE(dynamic_cast<fox_stroke_font*>(first), nullptr);
    ensure_hfont();
    EXPECT_EQ(hfont, first);
    sheet s;
    s.draw(*hfont, L"\xdf\xb0", 12, 0, 0);
    s.measure();
    EXPECT_GT(s.changed, 0) << "the face is not loaded";
}
