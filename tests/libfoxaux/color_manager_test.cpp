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

TEST(color_manager, StartsWithItsDefaultsAndDrawsWithAUsableSize) {
    palette colors;
    const FXColor all[] = {colors.foreground, colors.foreground2, colors.background,
                           colors.axis_color, colors.band_color};
    const FXColor wanted[] = {0xff000000, 0xffff0000, 0xffffffff, 0xff808080, 0xff00ffff};
    EXPECT_TRUE(std::equal(std::begin(all), std::end(all), wanted));
    EXPECT_EQ(colors.font_size, 12);
    for (const auto& [size, used] :
         {std::pair{12, 12}, {1, 1}, {0, 1}, {-5, 1}, {INT_MIN, 1}, {1000000000, 256}}) {
        colors.font_size = size;
        EXPECT_EQ(colors.text_size(), used);
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
                     EXPECT_EQ(texts_of<FXLabel>(dialog), labels);
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
    for (const bool accept : {false, true}) {
        change_colors(colors, four, "30", accept);
        EXPECT_EQ(colors.font_size, accept ? 30 : 12);
        EXPECT_EQ(colors.foreground, accept ? 0xff000001u : 0xff000000u);
        EXPECT_EQ(colors.foreground2, 0xffff0000u); // not offered: untouched
        EXPECT_EQ(colors.background, accept ? 0xff000002u : 0xffffffffu);
        EXPECT_EQ(colors.axis_color, accept ? 0xff000003u : 0xff808080u);
        EXPECT_TRUE(colors.redraws == accept && colors.changes == accept);
    }
    colors.foreground_label = "Chaotic"; // a second label offers the second colour
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
