// SPDX-License-Identifier: MIT
// The axis layouts, judged by the pixels that they draw.
#include "libfoxaux/fox-utils/fox_axis.h"

#include "libfoxaux/font/fox_hfont.h"
#include "tests/ink_box.h"
#include "tests/libfoxaux/pixels.h"

#include <memory>

using namespace window_test;

namespace {

constexpr FXColor paper = FXRGB(255, 255, 255);
constexpr FXColor ink = FXRGB(0, 60, 0);
constexpr FXColor low_ink = FXRGB(200, 0, 0);
constexpr FXColor high_ink = FXRGB(0, 0, 200);

constexpr int side = 300;
constexpr int line_pos = 150; // of every axis here
constexpr int line_from = 40;
constexpr int line_to = 260;

class canvas {
public:
    canvas() : image(&app(), nullptr, IMAGE_KEEP, side, side) { image.create(); }

    // Draws the axis across the middle, with these ticks, labels and title.
    template<class Axis>
    void draw(Axis& axis, const std::vector<int>& ticks, const std::vector<const wchar_t*>& labels,
              const wchar_t* title) {
        delete hfont; // the default font, whatever a test before has chosen
        hfont = nullptr;
        FXDCWindow dc(&image);
        dc.setForeground(paper);
        dc.fillRectangle(0, 0, side, side);
        dc.setForeground(ink);
        axis.dc = &dc;
        axis.pos = line_pos;
        axis.from = line_from;
        axis.to = line_to;
        axis.ticks = ticks;
        axis.labels.clear();
        for (const wchar_t* label : labels)
            axis.labels.emplace_back(label);
        axis.title = title;
        axis.draw();
        dc.end();
        shown = std::make_unique<pixels>(&image);
    }

    FXColor at(int x, int y) const { return shown->at(x, y); }

    ink_box inked(FXColor color, int x1 = 0, int y1 = 0, int x2 = side - 1,
                  int y2 = side - 1) const {
        ink_box b;
        for (int y = y1; y <= y2; y++)
            for (int x = x1; x <= x2; x++)
                if (at(x, y) == color) b.add(x, y);
        return b;
    }

private:
    FXImage image;
    std::unique_ptr<pixels> shown;
};

// Where texts of size 12 lie below a horizontal axis: the rows from g = pos + 5 + tick_len.
constexpr int text_top = line_pos + 5 + 5;
constexpr int text_bottom = text_top + 12 - 1;

// Texts in the rows of the labels, from left to right: runs of inked columns, joined over the
// gaps within a text.
std::vector<ink_box> texts_below(const canvas& c) {
    std::vector<ink_box> found;
    for (int x = 0; x < side; x++) {
        const ink_box column = c.inked(ink, x, line_pos + 6, x, side - 1);
        if (column.empty()) continue;
        if (found.empty() || x - found.back().right > 8) found.push_back(column);
        ink_box& text = found.back();
        text.right = x;
        text.top = std::min(text.top, column.top);
        text.bottom = std::max(text.bottom, column.bottom);
    }
    return found;
}

} // namespace

TEST(FoxAxis, EndLabelsAndTitleShareOneLineBelow) {
    canvas c;
    xaxis1b axis;
    EXPECT_EQ(axis.thickness(), 5 + 8 + 12);
    c.draw(axis, {line_from, 90, 160, line_to}, {}, L"");
    EXPECT_EQ(c.inked(ink), (ink_box{line_from, line_pos, line_to, line_pos + 5}));
    EXPECT_EQ(c.inked(ink, 50, line_pos + 1, 150), (ink_box{90, line_pos + 1, 90, line_pos + 5}))
        << "a tick points away from the plot";
    c.draw(axis, {line_from, 90, 160, line_to}, {L"0.25", L"0.4", L"0.6", L"0.75"}, L"S");
    const auto texts = texts_below(c);
    ASSERT_EQ(texts.size(), 3U) << "low value, title, high value";
    for (const ink_box& text : texts) {
        EXPECT_EQ(text.top, text_top);
        EXPECT_EQ(text.bottom, text_bottom);
    }
    EXPECT_NEAR(texts[0].left, line_from, 2);
    EXPECT_NEAR(texts[1].middle_x(), 150, 1);
    EXPECT_NEAR(texts[2].right, line_to, 3);
    EXPECT_LT(text_bottom, line_pos + axis.thickness());
}

// The vertical layout is the horizontal one, turned; the low end is at the bottom.
TEST(FoxAxis, TheVerticalAxisIsTheHorizontalOneTurned) {
    canvas flat;
    canvas upright;
    xaxis1b x;
    yaxis1b y;
    EXPECT_EQ(y.thickness(), x.thickness());
    upright.draw(y, {line_to, 100, line_from}, {}, L"");
    EXPECT_EQ(upright.inked(ink), (ink_box{line_pos - 5, line_from, line_pos, line_to}));
    flat.draw(x, {line_from, line_to}, {L"-1", L"1.5"}, L"P");
    upright.draw(y, {line_to, line_from}, {L"-1", L"1.5"}, L"P");

    // Where a text reads upward: its start is at the low end, its tops to the left.
    const int base = line_pos - 10; // right of the last column of the text
    const ink_box all = upright.inked(ink, 0, 0, line_pos - 6);
    EXPECT_EQ(all.right, base - 1);
    EXPECT_EQ(all.left, base - 12);
    EXPECT_NEAR(all.bottom, line_to, 2);
    EXPECT_NEAR(all.top, line_from, 3);

    // Each letter is the other's, turned by a quarter against the clock. Its first pixel lies on
    // the row above the anchor, and both anchors are the same distance from the ends.
    for (int i = 0; i < 40; i++) {
        for (int j = 0; j < 12; j++) {
            EXPECT_EQ(upright.at(base - 12 + j, line_to - 1 - i),
                      flat.at(line_from + i, text_top + j))
                << i << " " << j;
        }
    }
}

TEST(FoxAxis, LabelsNeedTwoTicksAndEnoughTexts) {
    const struct {
        std::vector<int> ticks;
        std::vector<const wchar_t*> labels;
        bool x_labels, y_labels;
    } cases[] = {
        {{}, {}, false, false},
        {{100}, {L"1", L"2"}, false, false},
        {{100, 200}, {L"1"}, false, false},
        {{100, 200}, {L"1", L"2"}, true, true},
        {{100, 150, 200}, {L"1", L"2"}, true, false}, // the two directions differ here
    };
    for (const auto& k : cases) {
        canvas c;
        xaxis1b x;
        c.draw(x, k.ticks, k.labels, L"T");
        EXPECT_EQ(texts_below(c).size(), k.x_labels ? 3U : 1U) << "the title always shows";
        yaxis1b y;
        c.draw(y, k.ticks, k.labels, L"T");
        EXPECT_FALSE(c.inked(ink, 0, 145, line_pos - 6, 155).empty());
        c.draw(y, k.ticks, k.labels, L"");
        EXPECT_EQ(!c.inked(ink, 0, 0, line_pos - 6).empty(), k.y_labels) << k.ticks.size();
    }
}

TEST(FoxAxis, LayoutsThatStandInNoWindowOfThisProgram) {
    canvas c;
    xaxis2a every_tick;
    c.draw(every_tick, {60, 150, 240}, {L"1", L"22", L"3"}, L"S");
    for (const int tick : {60, 150, 240}) {
        const ink_box label = c.inked(ink, tick - 30, line_pos + 6, tick + 30);
        EXPECT_NEAR(label.middle_x(), tick, 1.5);
    }
    yaxis2b upright;
    c.draw(upright, {240, 60}, {L"1", L"3"}, L"P");
    const int title_base = line_pos - 5 - 12 - 10;
    EXPECT_EQ(c.inked(ink, 0, 0, title_base).right, title_base - 1);

    xaxis1c title_above;
    c.draw(title_above, {line_from, line_to}, {L"0.25", L"0.75"}, L"S");
    EXPECT_EQ(c.inked(ink, 0, 0, side - 1, line_pos - 6).bottom, line_pos - 10 - 1);

    xaxis1b_twocolor two_titles;
    two_titles.title_low = L"low";
    two_titles.title_high = L"high";
    two_titles.line_color = ink;
    two_titles.low_color = low_ink;
    two_titles.high_color = high_ink;
    c.draw(two_titles, {line_from, line_to}, {L"0", L"1"}, L"unused");
    EXPECT_EQ(texts_below(c).size(), 2U) << "the labels have the colour of the line";
    EXPECT_NEAR(c.inked(low_ink).right, 150 - 12, 3);
    EXPECT_NEAR(c.inked(high_ink).left, 150 + 12, 3);
}
