// SPDX-License-Identifier: MIT
// The axis layouts, judged by the pixels that they draw.
#include "libfoxaux/font/fox_hfont.h"
#include "libfoxaux/fox-utils/fox_axis.h"
#include "tests/ink_box.h"
#include "tests/libfoxaux/window_fixture.h"

#include <memory>

using namespace window_test;

namespace {

constexpr FXColor paper = FXRGB(255, 255, 255);
constexpr FXColor ink = FXRGB(0, 60, 0);
constexpr FXColor low_ink = FXRGB(200, 0, 0);
constexpr FXColor high_ink = FXRGB(0, 0, 200);

constexpr int side = 300;
constexpr int line_pos = 150; ///< of every axis here
constexpr int line_from = 40;
constexpr int line_to = 260;

class canvas {
public:
    canvas() : image(&app(), nullptr, IMAGE_KEEP, side, side) { image.create(); }

    /// Draws the axis across the middle, ticks at the ends of its line, after `change`.
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

/// Texts in the rows of the labels, from left to right: runs of inked columns, joined over the
/// gaps within a text.
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

const std::vector<int> two_ticks{line_from, line_to};
const std::vector<const wchar_t*> two_labels{L"0.25", L"0.75"};

} // namespace

TEST(fox_axis, line_and_ticks_point_away_from_the_plot) {
    canvas c;
    xaxis x;
    EXPECT_EQ(x.thickness(), 5);
    c.draw(x, {line_from, 100, line_to}, two_labels, L"title");
    EXPECT_EQ(c.inked(ink), (ink_box{line_from, line_pos, line_to, line_pos + 5}));
    EXPECT_EQ(c.inked(ink, 41, line_pos + 1, 259), (ink_box{100, line_pos + 1, 100, line_pos + 5}));

    yaxis y;
    EXPECT_EQ(y.thickness(), 5);
    c.draw(y, {line_to, 100, line_from}, two_labels, L"title");
    EXPECT_EQ(c.inked(ink), (ink_box{line_pos - 5, line_from, line_pos, line_to}));
    EXPECT_EQ(c.inked(ink, 0, 41, line_pos - 1, 259),
              (ink_box{line_pos - 5, 100, line_pos - 1, 100}));

    null_axis none;
    EXPECT_EQ(none.thickness(), 0);
    c.draw(none, two_ticks, two_labels, L"title");
    EXPECT_TRUE(c.inked(ink).empty());
}

TEST(fox_axis, end_labels_and_title_share_one_line_below) {
    canvas c;
    xaxis1b axis;
    EXPECT_EQ(axis.thickness(), 5 + 8 + 12);
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

    xaxis1a untitled;
    c.draw(untitled, two_ticks, two_labels, L"S");
    EXPECT_EQ(texts_below(c).size(), 2U);
}

// The vertical layout is the horizontal one, turned; the low end is at the bottom.
TEST(fox_axis, the_vertical_axis_is_the_horizontal_one_turned) {
    canvas flat;
    canvas upright;
    xaxis1b x;
    yaxis1b y;
    EXPECT_EQ(y.thickness(), x.thickness());
    flat.draw(x, two_ticks, {L"-1", L"1.5"}, L"P");
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

TEST(fox_axis, labels_need_two_ticks_and_enough_texts) {
    const struct {
        std::vector<int> ticks;
        std::vector<const wchar_t*> labels;
        bool x_labels, y_labels;
    } cases[] = {
        {{}, {}, false, false},
        {{100}, {L"1"}, false, false},
        {{100}, {L"1", L"2"}, false, false},
        {{100, 200}, {L"1"}, false, false},
        {{100, 200}, {L"1", L"2"}, true, true},
        {{100, 150, 200}, {L"1", L"2"}, true, false}, // the two directions differ here
    };
    for (const auto& k : cases) {
        canvas c;
        xaxis1a x;
        c.draw(x, k.ticks, k.labels, L"T");
        EXPECT_EQ(!c.inked(ink, 0, line_pos + 6).empty(), k.x_labels) << k.ticks.size();
        yaxis1a y;
        c.draw(y, k.ticks, k.labels, L"T");
        EXPECT_EQ(!c.inked(ink, 0, 0, line_pos - 6).empty(), k.y_labels) << k.ticks.size();

        xaxis1b xb;
        c.draw(xb, k.ticks, k.labels, L"T");
        EXPECT_FALSE(c.inked(ink, 145, line_pos + 6, 155).empty()) << "the title always shows";
        yaxis1b yb;
        c.draw(yb, k.ticks, k.labels, L"T");
        EXPECT_FALSE(c.inked(ink, 0, 145, line_pos - 6, 155).empty());
        c.draw(yb, k.ticks, k.labels, L"");
        EXPECT_TRUE(c.inked(ink, 0, 140, line_pos - 6, 155).empty()) << "an empty one doesn't";

        xaxis1c xc;
        c.draw(xc, k.ticks, k.labels, L"T");
        EXPECT_EQ(!c.inked(ink, 0, 0, side - 1, line_pos - 6).empty(), k.x_labels)
            << "this title shows only with labels";
    }
}

TEST(fox_axis, the_other_layouts_put_their_texts_where_the_table_says) {
    canvas c;
    xaxis1c through;
    EXPECT_EQ(through.thickness(), 25);
    c.draw(through, two_ticks, two_labels, L"S");
    EXPECT_EQ(c.inked(ink, line_from, 0, line_from, side - 1).top, line_pos - 5);
    const ink_box above = c.inked(ink, 0, 0, side - 1, line_pos - 6);
    EXPECT_EQ(above.bottom, line_pos - 10 - 1);
    EXPECT_NEAR(above.middle_x(), 150, 1);
    EXPECT_EQ(texts_below(c).size(), 2U);

    xaxis2a all;
    EXPECT_EQ(all.thickness(), 12 + 5);
    c.draw(all, {60, 150, 240}, {L"1", L"22", L"3"}, L"S");
    const ink_box below = c.inked(ink, 0, line_pos + 6);
    EXPECT_EQ(below.bottom, line_pos + 5 + 12 - 1) << "the text hangs at the ends of the ticks";
    for (const int tick : {60, 150, 240}) {
        const ink_box label = c.inked(ink, tick - 30, line_pos + 6, tick + 30);
        EXPECT_NEAR(label.middle_x(), tick, 1.5);
    }
    c.draw(all, {60, 150, 240}, {L"1", L"2"}, L"S");
    EXPECT_TRUE(c.inked(ink, 0, line_pos + 6).empty()) << "a label for each tick, or none";

    yaxis2b both;
    EXPECT_EQ(both.thickness(), 5 + 13 + 2 * 12);
    c.draw(both, {240, 60}, {L"1", L"3"}, L"P");
    const int title_base = line_pos - 5 - 12 - 10;
    const ink_box title = c.inked(ink, 0, 0, title_base);
    EXPECT_EQ(title.right, title_base - 1);
    EXPECT_NEAR(title.middle_y(), 150, 1);
    for (const int tick : {60, 240}) {
        const ink_box label = c.inked(ink, title_base, tick - 30, line_pos - 6, tick + 30);
        EXPECT_EQ(label.right, line_pos - 10 - 1);
        EXPECT_NEAR(label.middle_y(), tick, 1.5);
    }
}

template<class Axis>
void paint_two_colors(Axis& axis) {
    axis.title_low = L"low";
    axis.title_high = L"high";
    axis.line_color = ink;
    axis.low_color = low_ink;
    axis.high_color = high_ink;
}

TEST(fox_axis, two_colours_stand_on_both_sides_of_the_middle) {
    canvas c;
    xaxis1b_twocolor x;
    paint_two_colors(x);
    c.draw(x, two_ticks, {L"0", L"1"}, L"unused");
    EXPECT_EQ(c.inked(ink, 0, 0, side - 1, line_pos + 5),
              (ink_box{line_from, line_pos, line_to, line_pos + 5}));
    EXPECT_EQ(texts_below(c).size(), 2U) << "the labels have the colour of the line";
    EXPECT_NEAR(c.inked(low_ink).right, 150 - 12, 3);
    EXPECT_NEAR(c.inked(high_ink).left, 150 + 12, 3);
    EXPECT_EQ(c.inked(low_ink).top, text_top);

    yaxis1b_twocolor y;
    paint_two_colors(y);
    c.draw(y, {line_to, line_from}, {L"0", L"1"}, L"unused");
    EXPECT_NEAR(c.inked(low_ink).top, 150 + 12, 3) << "low is below";
    EXPECT_NEAR(c.inked(high_ink).bottom, 150 - 12, 3);
    EXPECT_EQ(c.inked(low_ink).left, line_pos - 10 - 12);
}
