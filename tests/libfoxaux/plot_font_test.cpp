// SPDX-License-Identifier: MIT
// One test sheet for all three back-ends of the plot font: where the ink lies, what it leaves
// alone.
#include "libfoxaux/font/fox_font.h"
#include "libfoxaux/font/fox_hfont.h"
#include "libfoxaux/font/fox_ttf_font.h"
#include "tests/data_tables.h"
#include "tests/ink_box.h"
#include "tests/libfoxaux/pixels.h"

#include <cmath>
#include <memory>
#include <numbers>
#include <string>

using namespace window_test;

namespace {

constexpr double quarter = std::numbers::pi / 2;
const std::string font_path = data_file("plain.ttf");

constexpr int sheet_w = 400;
constexpr int sheet_h = 360;
constexpr int anchor_x = 200;
constexpr int anchor_y = 180;
constexpr FXColor ink_color = FXRGB(30, 0, 60); // not the black of a context set back

// A light pattern, different at every pixel nearby.
FXColor pattern(int x, int y) {
    return FXRGB(200 + (x * 7 + y * 3) % 50, 200 + (x * 5 + y * 11) % 50, 200 + (x + y * 2) % 50);
}

// An image full of the pattern, and what a drawing has changed in it.
class sheet {
public:
    sheet() : image(&app(), nullptr, IMAGE_KEEP | IMAGE_OWNED, sheet_w, sheet_h) {
        for (int y = 0; y < sheet_h; y++)
            for (int x = 0; x < sheet_w; x++)
                image.setPixel(x, y, pattern(x, y));
        image.create();
    }

    // Draws the text and measures the box of the pixels that are mostly ink.
    void draw(base_font& font, const wchar_t* text, double size, double rot = 0, unsigned align = 0,
              int x = anchor_x, int y = anchor_y) {
        FXDCWindow dc(&image);
        dc.setForeground(ink_color);
        font.set_dc(&dc);
        font.setsizerot(size, rot);
        font.align = align;
        font.drawText(x, y, text, -1);
        dc.drawPoint(0, 0); // in that colour, unless the font has left another state behind
        dc.end();
        now = std::make_unique<pixels>(&image);
        box = {};
        changed = 0;
        each_changed([&](int px, int py, FXColor color) {
            changed++;
            const int under = FXREDVAL(pattern(px, py));
            const double share = double(under - FXREDVAL(color)) / (under - FXREDVAL(ink_color));
            if (share >= 0.4) box.add(px, py);
        });
    }

    template<class Visit>
    void each_changed(Visit visit) const {
        for (int y = 0; y < sheet_h; y++)
            for (int x = 0; x < sheet_w; x++)
                if ((x || y) && now->at(x, y) != pattern(x, y)) visit(x, y, now->at(x, y));
    }

    FXImage image;
    std::unique_ptr<pixels> now;
    ink_box box;
    int changed = 0; // pixels that differ from the pattern
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

// Each back-end puts the text where the rules tell, upright as flat, and touches nothing else.
TEST(PlotFont, AllBackEndsPutTextAtTheSamePlace) {
    for (const back_end& b : back_ends()) {
        for (const int size : {9, 12, 16, 24, 40}) {
            for (const unsigned across : {0u, 4u, 8u}) {
                for (const unsigned along : {0u, 1u, 2u}) {
                    SCOPED_TRACE(testing::Message()
                                 << b.name << " " << size << " align " << (across | along));
                    const int down = across == 4 ? size : across == 8 ? size / 2 : 0;
                    // Beside a letter there are blanks: a tenth of the size in every face here.
                    const double blank = size * 0.11;
                    sheet flat, turned;
                    flat.draw(*b.font, L"HHH", size, 0, across | along);
                    const ink_box& box = flat.box;
                    EXPECT_NEAR(box.bottom, anchor_y + down - 1, 2);
                    EXPECT_NEAR(box.top, anchor_y + down - size, 2);
                    const double places[] = {box.left - blank, box.middle_x(),
                                             box.right + 1 + blank};
                    EXPECT_NEAR(places[along], anchor_x, 2);
                    EXPECT_EQ(flat.now->at(0, 0), ink_color) << "the context has lost its colour";

                    turned.draw(*b.font, L"HHH", size, quarter, across | along);
                    EXPECT_EQ(turned.box, (ink_box{anchor_x + box.top - anchor_y,
                                                   anchor_y - 1 - (box.right - anchor_x),
                                                   anchor_x + box.bottom - anchor_y,
                                                   anchor_y - 1 - (box.left - anchor_x)}));
                    EXPECT_EQ(turned.changed, flat.changed) << "ink, or the pattern around it";
                    EXPECT_LE(flat.changed, (box.right - box.left + 3) * (size + 2));
                }
            }
        }
    }
}

TEST(PlotFont, AtAndBeyondTheEdgesOnlyTheVisiblePartIsDrawn) {
    for (const back_end& b : back_ends()) {
        for (const double rot : {0.0, quarter}) {
            SCOPED_TRACE(testing::Message() << b.name << " " << rot);
            for (const auto& [x, y] : {std::pair{-5, 8},
                                       {sheet_w - 6, 10},
                                       {10, sheet_h + 5},
                                       {8, -3},
                                       {sheet_w + 5, sheet_h}}) {
                sheet s;
                s.draw(*b.font, L"HAVH", 12, rot, 0, x, y);
                EXPECT_LE(s.changed, 60 * 16);
            }
            for (const int far : {40000, -40000, 65536 + 200, INT_MAX, INT_MIN}) {
                sheet s;
                s.draw(*b.font, L"HAVH", 12, rot, 5, far, anchor_y);
                s.draw(*b.font, L"HAVH", 12, rot, 5, anchor_x, far);
                EXPECT_EQ(s.changed, 0) << far << " wraps into the picture";
            }
        }
        for (const double size : {0.0, -7.0, double(NAN), 1e9, HUGE_VAL, -HUGE_VAL, 6553.7})
            sheet().draw(*b.font, L"H-1", size, quarter, 5);
        sheet s; // the next size is right again
        s.draw(*b.font, L"H", 12);
        EXPECT_NEAR(s.box.top, anchor_y - 12, 2) << b.name;
    }
}

// Coverage 255 gives exactly the ink, 0 the background, and between them each channel is mixed.
TEST(FoxTtfFont, MixesInkIntoThePictureByCoverage) {
    fox_ttf_font font(font_path.c_str());
    sheet s;
    s.draw(font, L"H", 30);
    int full = 0;
    s.each_changed([&](int x, int y, FXColor color) {
        const FXColor under = pattern(x, y);
        full += color == ink_color;
        bool explained = false; // one coverage must explain all three channels
        for (int a = 1; a <= 255 && !explained; a++) {
            const auto n = [a](int o, int f) { return o + (f - o) * a / 255; };
            explained = color == FXRGB(n(FXREDVAL(under), FXREDVAL(ink_color)),
                                       n(FXGREENVAL(under), FXGREENVAL(ink_color)),
                                       n(FXBLUEVAL(under), FXBLUEVAL(ink_color)));
        }
        EXPECT_TRUE(explained) << x << " " << y;
    });
    EXPECT_GT(full, 60);
    EXPECT_GT(s.changed - full, 20);
}

TEST(FoxFont, HasThePointsOfTheOthersAtAnyResolution) {
    for (const FXuint dots : {50U, 96U, 192U, 300U}) {
        const resolution display(dots);
        fox_font font;
        sheet s;
        s.draw(font, L"H", 24);
        EXPECT_NEAR(s.box.bottom - s.box.top, 24, 2) << dots;
        EXPECT_NEAR(font.get_size(), 24, 0.2) << dots;
    }
}

TEST(FoxFont, KeepsTwentyFontsAndEvictsTheOldestMade) {
    fox_font font;
    const auto made_by = [&font](double size) {
        const std::list<kit::string> before = font.allocated;
        font.setsize(size);
        EXPECT_NEAR(font.get_size(), size, 0.05);
        return font.allocated != before; // a font made is the newest
    };
    for (int size = 30; size < 50; size++)
        EXPECT_TRUE(made_by(size));
    // The twenty-first evicts the first made, although that was used a moment ago.
    for (const auto& [size, made] : {std::pair{30, false}, {50, true}, {30, true}, {32, false}})
        EXPECT_EQ(made_by(size), made) << size;
}

TEST(FoxFont, TakesADescriptionOrKeepsItsFont) {
    fox_font font;
    FXFontDesc wanted = font.desc;
    wanted.size = 155;
    wanted.weight = FXFont::Bold;
    font.setFont(wanted);
    EXPECT_EQ(font.current->getActualSize(), 155U);
    EXPECT_EQ(font.get_size(), 15.5);
    EXPECT_EQ(font.desc.weight, FXFont::Bold);

    const FXFont* before = font.current;
    wanted.face[0] = '\0'; // no font can be made of this
    font.setFont(wanted);
    EXPECT_EQ(font.current, before);
    sheet s;
    s.draw(font, L"H", 12);
    EXPECT_GT(s.changed, 0);
}
