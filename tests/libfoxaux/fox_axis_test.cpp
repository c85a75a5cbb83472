// SPDX-License-Identifier: MIT
// The axis layouts, judged by the pixels that they draw.
#include "libfoxaux/fox-utils/fox_axis.h"

#include "libfoxaux/font/fox_hfont.h"
#include "tests/libfoxaux/pixels.h"

#include <vector>

using namespace window_test;

namespace {

constexpr FXColor ink = FXRGB(0, 60, 0);
constexpr FXColor low_ink = FXRGB(200, 0, 0);
constexpr FXColor high_ink = FXRGB(0, 0, 200);

constexpr int side = 300;
constexpr int line_pos = 150; // of every axis here
constexpr int line_from = 40;
constexpr int line_to = 260;

// The axis across the middle of a picture, with these ticks, labels and title.
template<class Axis>
pixels drawn(Axis&& axis, const std::vector<int>& ticks, const std::vector<const wchar_t*>& labels,
             const wchar_t* title) {
    delete hfont; // the default font, whatever a test before has chosen
    hfont = nullptr;
    FXImage image(&app(), nullptr, IMAGE_KEEP, side, side);
    image.create();
    FXDCWindow dc(&image);
    dc.setForeground(white);
    dc.fillRectangle(0, 0, side, side);
    dc.setForeground(ink);
    axis.dc = &dc;
    axis.pos = line_pos;
    axis.from = line_from;
    axis.to = line_to;
    axis.ticks = ticks;
    axis.labels.assign(labels.begin(), labels.end());
    axis.title = title;
    axis.draw();
    dc.end();
    return pixels(&image);
}

// Where texts of size 12 lie below a horizontal axis: the rows from g = pos + 5 + tick_len.
constexpr int text_top = line_pos + 5 + 5;
constexpr int text_bottom = text_top + 12 - 1;

// Texts in the rows of the labels, from left to right: runs of inked columns, joined over the
// gaps within a text.
std::vector<ink_box> texts_below(const pixels& picture) {
    std::vector<ink_box> found;
    for (int x = 0; x < side; x++) {
        const ink_box column = picture.box_of(ink, x, line_pos + 6, x);
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
    const std::vector ticks{line_from, 90, 160, line_to};
    const pixels bare = drawn(xaxis1b(), ticks, {}, L"");
    EXPECT_EQ(bare.box_of(ink), (ink_box{line_from, line_pos, line_to, line_pos + 5}));
    EXPECT_EQ(bare.box_of(ink, 50, line_pos + 1, 150),
              (ink_box{90, line_pos + 1, 90, line_pos + 5}))
        << "a tick points away from the plot";
    const auto texts =
        texts_below(drawn(xaxis1b(), ticks, {L"0.25", L"0.4", L"0.6", L"0.75"}, L"S"));
    ASSERT_EQ(texts.size(), 3U) << "low value, title, high value";
    for (const ink_box& text : texts) {
        EXPECT_EQ(text.top, text_top);
        EXPECT_EQ(text.bottom, text_bottom);
    }
    EXPECT_NEAR(texts[0].left, line_from, 2);
    EXPECT_NEAR(texts[1].middle_x(), 150, 1);
    EXPECT_NEAR(texts[2].right, line_to, 3);
    EXPECT_EQ(xaxis1b().thickness(), 5 + 8 + 12);
}

// The vertical layout is the horizontal one, turned; the low end is at the bottom.
TEST(FoxAxis, TheVerticalAxisIsTheHorizontalOneTurned) {
    EXPECT_EQ(yaxis1b().thickness(), xaxis1b().thickness());
    EXPECT_EQ(drawn(yaxis1b(), {line_to, 100, line_from}, {}, L"").box_of(ink),
              (ink_box{line_pos - 5, line_from, line_pos, line_to}));
    const pixels flat = drawn(xaxis1b(), {line_from, line_to}, {L"-1", L"1.5"}, L"P");
    const pixels upright = drawn(yaxis1b(), {line_to, line_from}, {L"-1", L"1.5"}, L"P");

    // Where a text reads upward: its start is at the low end, its tops to the left.
    const int base = line_pos - 10; // right of the last column of the text
    const ink_box all = upright.box_of(ink, 0, 0, line_pos - 6);
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
        const pixels x = drawn(xaxis1b(), k.ticks, k.labels, L"T");
        EXPECT_EQ(texts_below(x).size(), k.x_labels ? 3U : 1U) << "the title always shows";
        const pixels y = drawn(yaxis1b(), k.ticks, k.labels, L"T");
        EXPECT_FALSE(y.box_of(ink, 0, 145, line_pos - 6, 155).empty());
        const pixels untitled = drawn(yaxis1b(), k.ticks, k.labels, L"");
        EXPECT_EQ(!untitled.box_of(ink, 0, 0, line_pos - 6).empty(), k.y_labels) << k.ticks.size();
    }
}

// An axis of two titles in colours of their own.
template<class Axis>
pixels two_colors() {
    Axis axis;
    axis.title_low = L"low";
    axis.title_high = L"high";
    axis.line_color = ink;
    axis.low_color = low_ink;
    axis.high_color = high_ink;
    return drawn(axis, {line_from, line_to}, {L"0", L"1"}, L"unused");
}

TEST(FoxAxis, LayoutsThatStandInNoWindowOfThisProgram) {
    const pixels every_tick = drawn(xaxis2a(), {60, 150, 240}, {L"1", L"22", L"3"}, L"S");
    for (const int tick : {60, 150, 240})
        EXPECT_NEAR(every_tick.box_of(ink, tick - 30, line_pos + 6, tick + 30).middle_x(), tick,
                    1.5);
    const int title_base = line_pos - 5 - 12 - 10;
    const pixels upright = drawn(yaxis2b(), {240, 60}, {L"1", L"3"}, L"P");
    EXPECT_EQ(upright.box_of(ink, 0, 0, title_base).right, title_base - 1);
    const pixels title_above = drawn(xaxis1c(), {line_from, line_to}, {L"0.25", L"0.75"}, L"S");
    EXPECT_EQ(title_above.box_of(ink, 0, 0, side, line_pos - 6).bottom, line_pos - 10 - 1);

    const pixels flat = two_colors<xaxis1b_twocolor>();
    EXPECT_EQ(texts_below(flat).size(), 2U) << "the labels have the colour of the line";
    EXPECT_NEAR(flat.box_of(low_ink).right, 150 - 12, 3);
    EXPECT_NEAR(flat.box_of(high_ink).left, 150 + 12, 3);
    const pixels turned = two_colors<yaxis1b_twocolor>();
    EXPECT_NEAR(turned.box_of(low_ink).top, 150 + 12, 3);
    EXPECT_NEAR(turned.box_of(high_ink).bottom, 150 - 12, 3);
}
