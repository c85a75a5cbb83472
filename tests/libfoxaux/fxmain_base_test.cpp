// SPDX-License-Identifier: MIT
// Tests of the application's services: icons, fixed-pitch font, About, Help.
#include "libfoxaux/fox-utils/fxmain_base.h"

#include "libfoxaux/fox-utils/display_text.h"
#include "libfoxaux/fox-utils/icons.h"
#include "mathkit/TError.h"
#include "tests/libfoxaux/dialog_helpers.h"

#include <cmath>
#include <zlib.h>

using namespace window_test;

namespace {

// Runs before any other test has made the one object.
TEST(MainBase, ThereIsExactlyOne) {
    EXPECT_DEATH(main_base::instance(), "main_base::instance\\(\\).*_main!=0");
    services();
    EXPECT_EQ(main_base::instance(), &services());
    EXPECT_DEATH(fxmain_base(), "main_base::main_base\\(\\).*_main==0");
}

/// Pixels of an icon that are not transparent.
int opaque_pixels(FXIcon& icon) {
    int count = 0;
    for (int i = 0; i < icon.getWidth() * icon.getHeight(); ++i)
        count += FXALPHAVAL(icon.getData()[i]) != 0;
    return count;
}

TEST(MainBase, TheToolkitReadsEveryIcon) {
    FXICOIcon main_icon(&app(), icons::main_ico, FXRGB(192, 192, 192), IMAGE_KEEP);
    FXICOIcon help(&app(), icons::help_ico, FXRGB(192, 192, 192), IMAGE_KEEP);
    FXICOIcon range(&app(), icons::range_ico, FXRGB(192, 192, 192), IMAGE_KEEP);
    FXGIFIcon file(&app(), icons::file_gif, FXRGB(192, 192, 192), IMAGE_KEEP);
    for (FXIcon* icon : std::initializer_list<FXIcon*>{&main_icon, &help, &range, &file}) {
        EXPECT_EQ(icon->getWidth(), 32);
        EXPECT_EQ(icon->getHeight(), 32);
        EXPECT_GT(opaque_pixels(*icon), 300); // a picture, with a transparent border
        EXPECT_LT(opaque_pixels(*icon), 1000);
        EXPECT_EQ(FXALPHAVAL(icon->getData()[0]), 0U);
    }
    for (FXIcon* icon : {services().main_icon, services().help_icon})
        EXPECT_EQ(icon->getWidth(), 32);
}

/// A main_base whose font is made anew, under a registry entry or without one.
class fresh_font {
public:
    explicit fresh_font(const char* entry) : kept(services().fixed_font) {
        services().fixed_font = nullptr;
        if (entry) app().reg().writeStringEntry("SETTINGS", "fixedfont", entry);
        font = services().get_fixed_font();
    }
    ~fresh_font() {
        app().reg().deleteEntry("SETTINGS", "fixedfont");
        delete font;
        services().fixed_font = kept;
    }
    FXFont* font;

private:
    FXFont* kept;
};

TEST(MainBase, TheFixedFontFollowsTheNormalOneInSize) {
    FXFont* normal = app().getNormalFont();
    for (const auto& [tenths, points] :
         {std::pair{90, 12}, {100, 14}, {120, 17}, {45, 6}, {365, 52}}) {
        FXFontDesc desc;
        normal->getFontDesc(desc);
        desc.size = static_cast<FXushort>(tenths);
        FXFont sized(&app(), desc);
        app().setNormalFont(&sized);
        const fresh_font made(nullptr);
        FXFontDesc fixed;
        made.font->getFontDesc(fixed);
        app().setNormalFont(normal);
        EXPECT_STREQ(fixed.face, "courier new");
        EXPECT_EQ(fixed.size, 10 * points) << tenths;
        EXPECT_TRUE(fixed.weight == FXFont::Normal && fixed.slant == FXFont::Straight);
        EXPECT_EQ(fixed.flags, 9U);
        EXPECT_EQ(made.font->getTextWidth("iiii", 4), made.font->getTextWidth("MMMM", 4));
    }
}

TEST(MainBase, TheRegistryNamesTheFixedFont) {
    FXFont* font = services().get_fixed_font();
    EXPECT_EQ(services().get_fixed_font(), font);
    const fresh_font named("DejaVu Sans Mono,200,bold");
    EXPECT_EQ(named.font->getSize(), 200U);
    EXPECT_EQ(named.font->getWeight(), FXuint{FXFont::Bold});
    for (const char* damaged : {"", ",,,,", "no such face,999999"}) {
        const fresh_font other(damaged);
        EXPECT_NE(other.font->id(), 0U) << damaged;
    }
}

std::string packed(const std::string& plain) {
    std::string out(compressBound(plain.size()), '\0');
    uLongf size = out.size();
    compress(reinterpret_cast<Bytef*>(out.data()), &size,
             reinterpret_cast<const Bytef*>(plain.data()), plain.size());
    out.resize(size);
    return out;
}

TEST(MainBase, EachHelpIsAWindowOfItsOwn) {
    std::string text;
    for (int i = 0; i < 3000; ++i)
        text += "line " + std::to_string(i) + "\n";
    const std::string stream = packed(text);
    services().show_help(stream.data(), static_cast<unsigned>(stream.size()));
    services().show_help(stream.data(), static_cast<unsigned>(stream.size()));
    pump();
    ASSERT_EQ(text_windows().size(), 2U);
    EXPECT_EQ(text_windows()[0]->text->getText().text(), text);
    close_by_manager(text_windows()[0]);
    ASSERT_EQ(text_windows().size(), 1U);
    EXPECT_EQ(text_windows()[0]->text->getText().text(), text);
    close_by_manager(text_windows()[0]);
    EXPECT_THROW(services().show_help("no zlib stream", 14), TError);
    EXPECT_THROW(services().show_help(stream.data(), static_cast<unsigned>(stream.size()) - 5),
                 TError);
    EXPECT_TRUE(text_windows().empty());
}

TEST(MainBase, ATextWindowHasTitleAndIcon) {
    services().show_text("Some title", "text");
    services().show_help_text("help");
    ASSERT_EQ(text_windows().size(), 2U);
    EXPECT_STREQ(text_windows()[0]->getTitle().text(), "Some title");
    EXPECT_EQ(text_windows()[0]->getIcon(), services().main_icon);
    EXPECT_STREQ(text_windows()[1]->getTitle().text(), "Help");
    EXPECT_EQ(text_windows()[1]->getIcon(), services().help_icon);
    while (!text_windows().empty())
        close_by_manager(text_windows()[0]);
}

TEST(MainBase, AboutTellsItsPagesAndEnterClosesIt) {
    with_dialogs([&] { services().show_about(); }, {[&](FXTopWindow* dialog) {
                     EXPECT_STREQ(dialog->getTitle().text(), "About");
                     EXPECT_EQ(texts_of<FXTabItem>(dialog),
                               (std::vector<std::string>{"About", "Credits", "Disclaimer"}));
                     std::vector<std::string> pages;
                     for (FXVerticalFrame* page :
                          all_of<FXVerticalFrame>(all_of<FXTabBook>(dialog)[0]))
                         pages.push_back(texts_of<FXLabel>(page)[0]);
                     ASSERT_EQ(pages.size(), 3U);
                     EXPECT_EQ(pages[0].rfind("Iterra:\n", 0), 0U);
                     EXPECT_NE(pages[0].find("Version:\n  svn-revision: 192\n"), std::string::npos);
                     for (const char* library :
                          {"FOX Toolkit Library", "GNU standard library", "\n  libjpeg\n",
                           "\n  libpng\n", "\n  zlib\n", "\n  FreeType\n"})
                         EXPECT_NE(pages[1].find(library), std::string::npos) << library;
                     EXPECT_EQ(std::count(pages[2].begin(), pages[2].end(), '\n'), 6);

                     auto* ok = all_of<FXButton>(dialog).back();
                     EXPECT_STREQ(ok->getText().text(), "Ok");
                     EXPECT_EQ(focus_of(dialog), ok);
                     FXEvent event{};
                     event.code = KEY_Return;
                     event.text = "\r";
                     send(dialog, SEL_KEYPRESS, event);
                     send(dialog, SEL_KEYRELEASE, event);
                 }});
}

TEST(MainBase, DialogsBelongToTheFirstMainWindow) {
    EXPECT_EQ(main_base::dialog_owner(), app().getRootWindow());
    FXMainWindow first(&app(), "first"), second(&app(), "second");
    second.create();
    EXPECT_EQ(main_base::dialog_owner(), &second) << "a window not created can own nothing";
    first.create();
    EXPECT_EQ(main_base::dialog_owner(), &first);
}

} // namespace
