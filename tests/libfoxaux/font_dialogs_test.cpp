// SPDX-License-Identifier: MIT
// Tests of the dialogs "Select Font" and "Select Global Fonts".
#include "libfoxaux/font/fox_font.h"
#include "libfoxaux/font/fox_hfont.h"
#include "libfoxaux/font/fox_ttf_font.h"
#include "libfoxaux/font/select_plot_font.h"
#include "libfoxaux/fox-utils/FBufferedWindow.h"
#include "libfoxaux/fox-utils/FBufferedWindow_fonts.h"
#include "libfoxaux/fox-utils/color_manager.h"
#include "tests/libfoxaux/dialog_helpers.h"

using namespace window_test;

namespace {

constexpr FXColor opaque_black = FXRGBA(0, 0, 0, 255);

class plot : public color_manager {
public:
    plot() : color_manager(nullptr) {}
    void colors_changed() override { ++changes; }
    int changes = 0;
};

/// The widgets of "Select Font", in the order of their pages.
struct font_widgets {
    explicit font_widgets(FXTopWindow* dialog)
        : dialog(dialog),
          book(all_of<FXTabBook>(dialog).at(0)),
          well(all_of<FXColorWell>(dialog).at(0)) {
        const auto fields = all_of<FXTextField>(dialog);
        EXPECT_EQ(fields.size(), 4U);
        stroke_size = fields.at(0);
        font_name = fields.at(1);
        file = fields.at(2);
        ttf_size = fields.at(3);
        const auto radios = all_of<FXRadioButton>(dialog);
        off = radios.at(0);
        on = radios.at(1);
        update_widgets(dialog);
        EXPECT_STREQ(dialog->getTitle().text(), "Select Font");
    }
    FXTopWindow* dialog;
    FXTabBook* book;
    FXColorWell* well;
    FXTextField *stroke_size, *font_name, *file, *ttf_size;
    FXRadioButton *off, *on;
};

/// Opens the dialog, lets `change` work on it, and ends it; boxes may follow.
void font_dialog(bool accept, const std::function<void(font_widgets&)>& change,
                 std::vector<dialog_driver::script> boxes = {}) {
    boxes.insert(boxes.begin(), [=](FXTopWindow* dialog) {
        font_widgets widgets(dialog);
        change(widgets);
        close_dialog(dialog, accept);
    });
    with_dialogs(select_plot_font, boxes);
}

/// What a click on a button or radio button does. It takes the focus: a focused text field would
/// not follow its target.
void press(FXWindow* widget) {
    widget->setFocus();
    widget->getTarget()->handle(widget, FXSEL(SEL_COMMAND, widget->getSelector()), nullptr);
}

FXButton* button_of(FXWindow* top, const char* text, std::size_t number) {
    std::vector<FXButton*> found;
    for (FXButton* button : all_of<FXButton>(top))
        if (button->getText() == text) found.push_back(button);
    return found.at(number);
}

/// A script for the toolkit's font dialog: the same font, of 24 points.
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
    for (int opening = 0; opening < 2; ++opening)
        font_dialog(false, [&](font_widgets& w) {
            EXPECT_EQ(w.book->getCurrent(), 0);
            const detail_hfont::specDataTarget1 normal(app().getNormalFont());
            EXPECT_EQ(texts_of<FXTextField>(w.dialog),
                      (std::vector<std::string>{"10", normal.name.text(), "", "20"}));
            EXPECT_TRUE(w.on->getCheck() && !w.off->getCheck());
            EXPECT_EQ(w.well->getRGBA(), opaque_black);
            w.book->setCurrent(2);
            type_into(w.stroke_size, "33");
            type_into(w.file, "/nowhere");
        });
    EXPECT_EQ(hfont, nullptr);
    EXPECT_TRUE(a_plot.changes == 0 && a_plot.font_size == 12);
}

TEST(SelectFont, EachTabMakesItsKindOfFont) {
    plot first, second;
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
    FXFontDesc normal;
    app().getNormalFont()->getFontDesc(normal);
    EXPECT_TRUE(dynamic_cast<fox_font*>(hfont));
    EXPECT_EQ(first.font_size, normal.size / 10);
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
    put_file(place / "zeros", std::string(1000000, '\0'));
    plot a_plot;
    const base_font* before = hfont;
    for (const std::string& path :
         {place / "missing", place / "100%s&\"x\".ttf", place / "text.ttf", place / "short.ttf",
          place / "zeros", place.path.string(), std::string()}) {
        font_dialog(true,
                    [&](font_widgets& w) {
                        w.book->setCurrent(2);
                        type_into(w.file, path.c_str());
                    },
                    {message_box("Error", "Could not load font:\n")});
        EXPECT_EQ(hfont, before);
        EXPECT_EQ(a_plot.changes, 0);
        font_dialog(false, [&](font_widgets& w) { EXPECT_EQ(w.file->getText().text(), path); });
    }
}

TEST(SelectFont, TheButtonsChooseAFontAndAFile) {
    const std::string file = font_file();
    plot a_plot;
    font_dialog(true,
                [&](font_widgets& w) {
                    press(button_of(w.dialog, "...", 0));
                    press(button_of(w.dialog, "...", 1));
                    update_widgets(w.dialog);
                    EXPECT_EQ(w.file->getText().text(), file);
                    EXPECT_NE(w.font_name->getText().find(",240"), -1);
                    w.book->setCurrent(1);
                },
                {choose_24_points, choose_file(file)});
    EXPECT_EQ(a_plot.font_size, 24);
    EXPECT_TRUE(dynamic_cast<fox_font*>(hfont));
}

TEST(SelectFont, AnyTypedSizeIsTaken) {
    plot a_plot;
    for (const char* size : {"0", "-7", "1000000000", "99999999999999", "abc", ""}) {
        for (const int tab : {0, 2}) {
            font_dialog(true, [&](font_widgets& w) {
                w.book->setCurrent(tab);
                type_into(w.file, font_file().c_str());
                type_into(tab == 0 ? w.stroke_size : w.ttf_size, size);
            });
        }
    }
    EXPECT_EQ(a_plot.changes, 12);
}

TEST(SelectFont, TheTabKeyLeavesThePageOpenThatWillCount) {
    font_dialog(false, [](font_widgets& w) {
        for (int page = 0; page < 3; ++page) {
            w.book->setCurrent(page);
            for (int i = 0; i < 12; ++i)
                send_key(w.dialog, KEY_Tab);
            EXPECT_EQ(w.book->getCurrent(), page);
        }
    });
}

/// The vendor's registry file, as the toolkit writes it.
std::string vendor_file() {
    return content_of(std::string(getenv("HOME")) + "/.foxrc/Iterra/Iterra");
}

struct global_widgets {
    explicit global_widgets(FXTopWindow* dialog) : dialog(dialog) {
        EXPECT_STREQ(dialog->getTitle().text(), "Select Global Fonts");
        update_widgets(dialog);
    }
    std::vector<std::string> fonts() const { return texts_of<FXTextField>(dialog); }
    bool are_24_points() const { return fonts().at(0).find("240") != std::string::npos; }

    FXTopWindow* dialog;
    FXRadioButton* chosen = all_of<FXRadioButton>(dialog).at(0);
    FXRadioButton* automatic = all_of<FXRadioButton>(dialog).at(1);
};

void global_dialog(FBufferedWindow& window, bool accept,
                   const std::function<void(global_widgets&)>& change,
                   std::vector<dialog_driver::script> inner = {}) {
    inner.insert(inner.begin(), [=](FXTopWindow* dialog) {
        global_widgets widgets(dialog);
        change(widgets);
        close_dialog(dialog, accept);
    });
    with_dialogs([&] { window.global_fonts_dialog(); }, inner);
}

TEST(GlobalFonts, OpensOnAutomaticWithTheFontsInUse) {
    shown<FBufferedWindow> window(50, 50);
    const detail_font::specDataTarget normal(app().getNormalFont());
    const detail_font::specDataTarget fixed(services().get_fixed_font());
    for (const bool accept : {false, true}) {
        global_dialog(*window, accept, [&](global_widgets& w) {
            EXPECT_EQ(w.fonts(), (std::vector<std::string>{normal.name.text(), fixed.name.text()}));
            EXPECT_TRUE(w.automatic->getCheck());
        });
        EXPECT_EQ(vendor_file(), "") << "nothing to write";
    }
}

TEST(GlobalFonts, AcceptWritesBothFontsAndAutomaticTakesThemBack) {
    shown<FBufferedWindow> window(50, 50);
    global_dialog(*window, true,
                  [](global_widgets& w) {
                      press(button_of(w.dialog, "...", 0));
                      update_widgets(w.dialog);
                      EXPECT_TRUE(w.are_24_points());
                      press(w.chosen);
                  },
                  {choose_24_points});
    const std::string written = vendor_file();
    for (const char* part : {"[SETTINGS]", "normalfont=", ",240", "fixedfont="})
        EXPECT_NE(written.find(part), std::string::npos) << written;
    EXPECT_EQ(std::count(written.begin(), written.end(), '='), 2) << written;

    for (const bool accept : {false, true}) {
        EXPECT_EQ(vendor_file(), written);
        global_dialog(*window, accept, [](global_widgets& w) {
            EXPECT_TRUE(w.are_24_points());
            EXPECT_TRUE(w.chosen->getCheck());
            press(w.automatic);
        });
    }
    EXPECT_EQ(vendor_file().find("font="), std::string::npos) << vendor_file();
    global_dialog(*window, false, [](global_widgets& w) {
        EXPECT_TRUE(w.are_24_points()) << "remembered for this run all the same";
        EXPECT_TRUE(w.automatic->getCheck());
    });
}

TEST(GlobalFonts, AnUntouchedFontDialogGivesTheFontBack) {
    detail_font::specDataTarget normal(app().getNormalFont());
    const std::string before = normal.name.text();
    FXTextField* sender = nullptr;
    with_dialogs([&] { normal.handle(sender, FXSEL(SEL_COMMAND, 0), nullptr); },
                 {[](FXTopWindow* dialog) { close_dialog(dialog, true); }});
    EXPECT_EQ(normal.name.text(), before);
    normal.set_from_text("no such font at all,77,bold,italic");
    EXPECT_EQ(normal.desc.size, 77);
    normal.set_from_text("");
    normal.set_from_text(",,,,,,,,%s%n");
}

} // namespace
