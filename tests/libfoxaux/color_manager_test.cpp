// SPDX-License-Identifier: MIT
// Tests of the plot colours: defaults, both dialogs. That of all plots: font_dialogs_test.cpp.
#include "libfoxaux/fox-utils/color_manager.h"

#include "tests/libfoxaux/dialogs.h"
#include "tests/libfoxaux/pixels.h"

#include <array>
#include <climits>
#include <tuple>

using namespace window_test;

namespace {

// Counts what it is told.
struct palette : color_manager {
    palette() : color_manager(nullptr) { on_change = functor0<void>(this, &palette::changed); }
    void colors_changed() override { ++redraws; }
    void changed() { ++changes; }

    // What "Change Colors" offers, in its order.
    std::array<FXColor, 3> all() const { return {foreground, background, axis_color}; }
    int redraws = 0, changes = 0;
};

using colors = std::array<FXColor, 3>;
constexpr colors defaults{black, white, 0xff808080};

TEST(ColorManager, DrawsWithAUsableSize) {
    palette plot;
    const std::tuple<int, FXuint, int> cases[] = {
        {12, 100, 12},          {1, 100, 1},  {0, 100, 1},  {-5, 100, 1},  {INT_MIN, 100, 1},
        {1000000000, 100, 256}, {12, 50, 12}, {12, 96, 12}, {12, 192, 23}, {12, 0, 12},
        {60, 4294967291U, 256}};
    for (const auto& [size, dots, used] : cases) {
        plot.font_size = size;
        const resolution display(dots);
        EXPECT_EQ(plot.text_size(), used) << dots;
    }
}

// Opens "Change Colors", gives each well the next of a row of colours, types a size, ends it.
void change_colors(palette& plot, const char* size, bool accept) {
    with_dialogs([&] { plot.colors_dialog(); }, {[&](FXTopWindow* dialog) {
                     EXPECT_STREQ(dialog->getTitle().text(), "Change Colors");
                     EXPECT_EQ(texts_of<FXLabel>(dialog),
                               (std::vector<std::string>{"Font Size", "Foreground Color",
                                                         "Background Color", "Axis Color"}));
                     FXColor next = 0xff000001;
                     for (FXColorWell* well : all_of<FXColorWell>(dialog))
                         well->setRGBA(next++, false);
                     type_into(all_of<FXTextField>(dialog).at(0), size);
                     close_dialog(dialog, accept);
                 }});
}

TEST(ColorManager, ChangeColorsTakesEffectOnAcceptOnly) {
    palette plot;
    change_colors(plot, "30", false);
    EXPECT_EQ(plot.all(), defaults);
    EXPECT_TRUE(plot.font_size == 12 && plot.redraws == 0 && plot.changes == 0);

    change_colors(plot, "-3", true);
    EXPECT_EQ(plot.all(), (colors{0xff000001, 0xff000002, 0xff000003}));
    EXPECT_EQ(plot.font_size, -3); // as typed
    EXPECT_TRUE(plot.redraws == 1 && plot.changes == 1);
}

TEST(ColorManager, TheForegroundDialogLeavesThePictureAlone) {
    palette plot;
    for (const bool accept : {false, true}) {
        with_dialogs([&] { plot.foreground_dialog(); }, {[&](FXTopWindow* dialog) {
                         EXPECT_STREQ(dialog->getTitle().text(), "Foreground Color");
                         auto* chooser = dynamic_cast<FXColorDialog*>(dialog);
                         ASSERT_NE(chooser, nullptr);
                         EXPECT_EQ(chooser->getRGBA(), black);
                         chooser->setRGBA(red);
                         close_dialog(dialog, accept);
                     }});
        EXPECT_EQ(plot.foreground, accept ? red : black);
        EXPECT_EQ(plot.changes, accept ? 1 : 0);
        EXPECT_EQ(plot.redraws, 0);
    }
}

} // namespace
