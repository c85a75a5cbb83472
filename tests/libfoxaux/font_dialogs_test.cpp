// SPDX-License-Identifier: MIT
// Tests of the dialogs "Select Font" and "Select Global Fonts".
#include "libfoxaux/font/fox_font.h"
#include "libfoxaux/font/fox_hfont.h"
#include "libfoxaux/font/fox_ttf_font.h"
#include "libfoxaux/fox-utils/FBufferedWindow.h"
#include "libfoxaux/fox-utils/FBufferedWindow_global_fonts.h"
#include "libfoxaux/fox-utils/color_manager.h"
#include "libfoxaux/fox-utils/select_plot_font.h"
#include "tests/libfoxaux/services.h"

using namespace window_test;

namespace {

using texts = std::vector<std::string>;

constexpr FXColor opaque_black = FXRGBA(0, 0, 0, 255);

class plot : public color_manager {
public:
    plot() : color_manager(nullptr) {}
    void colors_changed() override { ++changes; }
    int changes = 0;
};

// The widgets of "Select Font", in the order of their pages.
struct font_widgets {
    explicit font_widgets(FXTopWindow* dialog) : dialog(dialog) {
        EXPECT_STREQ(dialog->getTitle().text(), "Select Font");
        app().forceRefresh();
    }
    FXTextField* field(std::size_t i) const { return all_of<FXTextField>(dialog).at(i); }

    FXTopWindow* dialog;
    FXTabBook* book = all_of<FXTabBook>(dialog).at(0);
    FXTextField *stroke_size = field(0), *font_name = field(1), *file = field(2),
                *ttf_size = field(3);
    FXRadioButton* off = all_of<FXRadioButton>(dialog).at(0); // of the smoothing
    FXColorWell* well = all_of<FXColorWell>(dialog).at(0);
};

// The widgets of "Select Global Fonts".
struct global_widgets {
    explicit global_widgets(FXTopWindow* dialog) : dialog(dialog) {
        EXPECT_STREQ(dialog->getTitle().text(), "Select Global Fonts");
        app().forceRefresh();
    }
    bool are_24_points() const {
        return texts_of<FXTextField>(dialog).at(0).find("240") != std::string::npos;
    }

    FXTopWindow* dialog;
    FXRadioButton* chosen = all_of<FXRadioButton>(dialog).at(0);
    FXRadioButton* automatic = all_of<FXRadioButton>(dialog).at(1);
};

// Opens a dialog, lets `change` work on its widgets, and ends it; other dialogs may come up.
template<class Widgets>
void drive(const std::function<void()>& open, bool accept,
           const std::function<void(Widgets&)>& change,
           std::vector<dialog_driver::script> others = {}) {
    others.insert(others.begin(), [=](FXTopWindow* dialog) {
        Widgets widgets(dialog);
        change(widgets);
        close_dialog(dialog, accept);
    });
    with_dialogs(open, others);
}

void font_dialog(bool accept, const std::function<void(font_widgets&)>& change,
                 const std::vector<dialog_driver::script>& others = {}) {
    drive(select_plot_font, accept, change, others);
}

void global_dialog(bool accept, const std::function<void(global_widgets&)>& change,
                   const std::vector<dialog_driver::script>& others = {}) {
    const shown<FBufferedWindow> window(50, 50);
    drive([&] { window->global_fonts_dialog(); }, accept, change, others);
}

// What a click on a button or radio button does. It takes the focus: a focused text field would
// not follow its target.
void press(FXWindow* widget) {
    widget->setFocus();
    widget->getTarget()->handle(widget, FXSEL(SEL_COMMAND, widget->getSelector()), nullptr);
}

// Presses one of the buttons "..." of a dialog, counted from its top.
void browse(FXTopWindow* dialog, std::size_t number) {
    std::vector<FXButton*> found;
    for (FXButton* button : all_of<FXButton>(dialog))
        if (button->getText() == "...") found.push_back(button);
    press(found.at(number));
    app().forceRefresh();
}

// A script for the toolkit's font dialog: the same font, of 24 points.
void choose_24_points(FXTopWindow* dialog) {
    EXPECT_STREQ(dialog->getTitle().text(), "Change Font");
    auto* fonts = dynamic_cast<FXFontDialog*>(dialog);
    FXFontDesc desc;
    fonts->getFontSelection(desc);
    desc.size = 240;
    fonts->setFontSelection(desc);
    close_dialog(dialog, true);
}

std::string font_file() {
    return output_of("fc-match -f '%{file}' 'DejaVu Sans'");
}

// The tests share the dialog's histories, as one run of the program does; they run in this order.

TEST(SelectFont, TheFirstOpeningShowsTheDefaultsAndCancelKeepsThem) {
    services();
    plot a_plot;
    for (int opening = 0; opening < 2; ++opening) {
        font_dialog(false, [&](font_widgets& w) {
            EXPECT_EQ(w.book->getCurrent(), 0);
            const detail_hfont::specDataTarget1 normal(app().getNormalFont());
            EXPECT_EQ(texts_of<FXTextField>(w.dialog), (texts{"10", normal.name.text(), "", "20"}));
            EXPECT_FALSE(w.off->getCheck());
            EXPECT_EQ(w.well->getRGBA(), opaque_black);
            w.book->setCurrent(2);
            type_into(w.stroke_size, "33");
            type_into(w.file, "/nowhere");
        });
    }
    EXPECT_EQ(hfont, nullptr);
    EXPECT_TRUE(a_plot.changes == 0 && a_plot.font_size == 12);
}

TEST(SelectFont, EachTabMakesItsKindOfFontForEveryPlotAlive) {
    plot first, second;
    { plot gone; }
    second.axis_color = FXRGB(9, 9, 9);
    font_dialog(true, [](font_widgets& w) { type_into(w.stroke_size, "17"); });
    EXPECT_TRUE(dynamic_cast<fox_stroke_font*>(hfont));
    for (const plot* each : {&first, &second}) {
        EXPECT_EQ(each->axis_color, opaque_black) << "also when the well was not touched";
        EXPECT_TRUE(each->font_size == 17 && each->changes == 1);
    }

    font_dialog(true, [](font_widgets& w) {
        w.book->setCurrent(1);
        w.well->setRGBA(FXRGB(200, 0, 0));
    });
    EXPECT_TRUE(dynamic_cast<fox_font*>(hfont));
    EXPECT_EQ(first.font_size, static_cast<int>(app().getNormalFont()->getSize() / 10));
    EXPECT_EQ(first.axis_color, FXRGB(200, 0, 0));

    font_dialog(true, [](font_widgets& w) {
        EXPECT_EQ(w.book->getCurrent(), 1);
        EXPECT_EQ(w.well->getRGBA(), opaque_black);
        w.book->setCurrent(2);
        type_into(w.file, font_file().c_str());
        type_into(w.ttf_size, "23");
        press(w.off);
    });
    auto* file = dynamic_cast<fox_ttf_font*>(hfont);
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->antialias);
    EXPECT_TRUE(first.font_size == 23 && first.changes == 3);

    font_dialog(false, [](font_widgets& w) {
        EXPECT_EQ(w.book->getCurrent(), 2);
        EXPECT_STREQ(w.stroke_size->getText().text(), "17");
        EXPECT_EQ(w.file->getText().text(), font_file());
        EXPECT_STREQ(w.ttf_size->getText().text(), "23");
        EXPECT_TRUE(w.off->getCheck());
    });
}

TEST(SelectFont, ABadFontFileChangesNothingAndIsRemembered) {
    const folder place;
    put_file(place / "text.ttf", "no font at all");
    put_file(place / "short.ttf", content_of(font_file()).substr(0, 2000));
    plot a_plot;
    const base_font* before = hfont;
    for (const std::string& path : {place / "100%s&\"x\".ttf", place / "text.ttf",
                                    place / "short.ttf", place.path.string(), std::string()}) {
        const auto enter = [&](font_widgets& w) {
            w.book->setCurrent(2);
            type_into(w.file, path.c_str());
        };
        font_dialog(true, enter, {message_box("Error", "Could not load font:\n")});
        EXPECT_EQ(hfont, before);
        EXPECT_EQ(a_plot.changes, 0);
        font_dialog(false, [&](font_widgets& w) { EXPECT_EQ(w.file->getText().text(), path); });
    }
}

TEST(SelectFont, TheButtonsChooseAFontAndAFile) {
    const std::string file = font_file();
    plot a_plot;
    const auto change = [&](font_widgets& w) {
        browse(w.dialog, 0);
        browse(w.dialog, 1);
        EXPECT_EQ(w.file->getText().text(), file);
        browse(w.dialog, 1);
        EXPECT_NE(w.font_name->getText().find(",240"), -1);
        w.book->setCurrent(1);
    };
    font_dialog(true, change,
                {choose_24_points, choose_file(file), expect_folder(fs::path(file).parent_path())});
    EXPECT_EQ(a_plot.font_size, 24);
    EXPECT_TRUE(dynamic_cast<fox_font*>(hfont));
}

// The vendor's registry file, as the toolkit writes it.
std::string vendor_file() {
    return content_of((FXSystem::getHomeDirectory() + "/.foxrc/Iterra/Iterra").text());
}

TEST(GlobalFonts, OpensOnAutomaticWithTheFontsInUse) {
    const detail_font::specDataTarget normal(app().getNormalFont());
    const detail_font::specDataTarget fixed(services().get_fixed_font());
    for (const bool accept : {false, true}) {
        global_dialog(accept, [&](global_widgets& w) {
            EXPECT_EQ(texts_of<FXTextField>(w.dialog),
                      (texts{normal.name.text(), fixed.name.text()}));
            EXPECT_TRUE(w.automatic->getCheck());
        });
        EXPECT_EQ(vendor_file(), "") << "nothing to write";
    }
}

TEST(GlobalFonts, AcceptWritesBothFontsAndAutomaticTakesThemBack) {
    const auto change = [](global_widgets& w) {
        browse(w.dialog, 0);
        EXPECT_TRUE(w.are_24_points());
        press(w.chosen);
    };
    global_dialog(true, change, {choose_24_points});
    const std::string written = vendor_file();
    for (const char* part : {"[SETTINGS]", "normalfont=", ",240", "fixedfont="})
        EXPECT_NE(written.find(part), std::string::npos) << written;
    EXPECT_EQ(std::count(written.begin(), written.end(), '='), 2) << written;

    for (const bool accept : {false, true}) {
        EXPECT_EQ(vendor_file(), written);
        global_dialog(accept, [](global_widgets& w) {
            EXPECT_TRUE(w.are_24_points());
            EXPECT_TRUE(w.chosen->getCheck());
            press(w.automatic);
        });
    }
    EXPECT_EQ(vendor_file().find("font="), std::string::npos) << vendor_file();
    global_dialog(false, [](global_widgets& w) {
        EXPECT_TRUE(w.are_24_points()) << "remembered for this run all the same";
        EXPECT_TRUE(w.automatic->getCheck());
    });
}

TEST(GlobalFonts, AnUntouchedFontDialogGivesTheFontBack) {
    detail_font::specDataTarget normal(app().getNormalFont());
    const std::string before = normal.name.text();
    with_dialogs([&] { normal.handle(nullptr, FXSEL(SEL_COMMAND, 0), nullptr); },
                 {[](FXTopWindow* dialog) { close_dialog(dialog, true); }});
    EXPECT_EQ(normal.name.text(), before);
}

} // namespace
