// SPDX-License-Identifier: MIT
// Tests of the plot colours: defaults, both dialogs, the setting that reaches every plot.
#include "libfoxaux/fox-utils/color_manager.h"

#include "tests/libfoxaux/window_fixture.h"

#include <climits>

using namespace window_test;

namespace {

/// Counts what it is told.
struct palette : color_manager {
    explicit palette(FXWindow* owner = nullptr) : color_manager(owner) {
        on_change = functor0<void>(this, &palette::changed);
    }
    void colors_changed() override { ++redraws; }
    void changed() { ++changes; }
    int redraws = 0, changes = 0;
};

TEST(color_manager, StartsWithItsDefaults) {
    const palette colors;
    EXPECT_EQ(colors.foreground, 0xff000000u);
    EXPECT_EQ(colors.foreground2, 0xffff0000u);
    EXPECT_EQ(colors.background, 0xffffffffu);
    EXPECT_EQ(colors.axis_color, 0xff808080u);
    EXPECT_EQ(colors.band_color, 0xff00ffffu);
    EXPECT_EQ(colors.font_size, 12);
    EXPECT_STREQ(colors.foreground_label, "Foreground Color");
    EXPECT_TRUE(colors.foreground2_label.is_empty());
}

TEST(color_manager, AnySizeIsKeptAndDrawnWithAUsableOne) {
    palette colors;
    const int sizes[][2] = {{12, 12}, {1, 1}, {0, 1}, {-5, 1}, {INT_MIN, 1}, {1000000000, 256}};
    for (const auto& size : sizes) {
        colors.font_size = size[0];
        EXPECT_EQ(colors.text_size(), size[1]);
    }
}

TEST(color_manager, OneSettingReachesEveryPlotAlive) {
    palette first;
    { palette gone; }
    palette second;
    color_manager::set_all_axes(20, 0xff112233);
    for (const palette* colors : {&first, &second}) {
        EXPECT_EQ(colors->axis_color, 0xff112233u);
        EXPECT_EQ(colors->font_size, 20);
        EXPECT_EQ(colors->redraws, 1);
        EXPECT_EQ(colors->changes, 0);
    }
}

/// Opens "Change Colors", gives each well the next of a row of colours, types a size, ends it.
void change_colors(palette& colors, const std::vector<std::string>& labels, const char* size,
                   bool accept) {
    with_dialogs([&] { colors.colors_dialog(); }, {[&](FXTopWindow* dialog) {
                     EXPECT_STREQ(dialog->getTitle().text(), "Change Colors");
                     std::vector<std::string> shown_labels;
                     for (FXLabel* label : all_of<FXLabel>(dialog))
                         if (!dynamic_cast<FXButton*>(label))
                             shown_labels.push_back(label->getText().text());
                     EXPECT_EQ(shown_labels, labels);
                     FXColor next = 0xff000001;
                     for (FXColorWell* well : all_of<FXColorWell>(dialog))
                         well->setRGBA(next++, false);
                     type_into(all_of<FXTextField>(dialog).at(0), size);
                     close_dialog(dialog, accept);
                 }});
}

TEST(color_manager, ChangeColorsTakesEffectOnAcceptOnly) {
    palette colors;
    const std::vector<std::string> four{"Font Size", "Foreground Color", "Background Color",
                                        "Axis Color"};
    change_colors(colors, four, "30", false);
    EXPECT_EQ(colors.foreground, 0xff000000u);
    EXPECT_EQ(colors.font_size, 12);
    EXPECT_EQ(colors.redraws + colors.changes, 0);

    change_colors(colors, four, "30", true);
    EXPECT_EQ(colors.font_size, 30);
    EXPECT_EQ(colors.foreground, 0xff000001u);
    EXPECT_EQ(colors.foreground2, 0xffff0000u); // not offered: untouched
    EXPECT_EQ(colors.background, 0xff000002u);
    EXPECT_EQ(colors.axis_color, 0xff000003u);
    EXPECT_EQ(colors.redraws, 1);
    EXPECT_EQ(colors.changes, 1);
}

TEST(color_manager, ALabelOffersTheSecondColour) {
    palette colors;
    colors.foreground_label = "Chaotic";
    colors.foreground2_label = "Regular";
    change_colors(colors, {"Font Size", "Chaotic", "Regular", "Background Color", "Axis Color"},
                  "-3", true);
    EXPECT_EQ(colors.foreground2, 0xff000002u);
    EXPECT_EQ(colors.axis_color, 0xff000004u);
    EXPECT_EQ(colors.font_size, -3); // as typed
}

TEST(color_manager, TheForegroundDialogLeavesThePictureAlone) {
    palette colors;
    for (bool accept : {false, true}) {
        with_dialogs([&] { colors.foreground_dialog(); }, {[&](FXTopWindow* dialog) {
                         EXPECT_STREQ(dialog->getTitle().text(), "Foreground Color");
                         auto* chooser = dynamic_cast<FXColorDialog*>(dialog);
                         ASSERT_NE(chooser, nullptr);
                         EXPECT_EQ(chooser->getRGBA(), 0xff000000u);
                         chooser->setRGBA(0xff0000ff);
                         close_dialog(dialog, accept);
                     }});
        EXPECT_EQ(colors.foreground, accept ? 0xff0000ffu : 0xff000000u);
        EXPECT_EQ(colors.changes, accept ? 1 : 0);
        EXPECT_EQ(colors.redraws, 0);
    }
    EXPECT_EQ(colors.owner, app().getRootWindow());
}

} // namespace
