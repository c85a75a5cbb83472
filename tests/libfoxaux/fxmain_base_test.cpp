// SPDX-License-Identifier: MIT
// Tests of the application's services: icons, fixed-pitch font, Help.
#include "libfoxaux/fox-utils/fxmain_base.h"

#include "libfoxaux/fox-utils/display_text.h"
#include "libfoxaux/fox-utils/icons.h"
#include "mathkit/TError.h"
#include "tests/libfoxaux/services.h"

#include <zlib.h>

using namespace window_test;

namespace {

TEST(MainBase, TheToolkitReadsEveryIcon) {
    services();
    FXICOIcon main_icon(&app(), icons::main_ico, 0, IMAGE_KEEP);
    FXICOIcon help(&app(), icons::help_ico, 0, IMAGE_KEEP);
    FXICOIcon range(&app(), icons::range_ico, 0, IMAGE_KEEP);
    FXGIFIcon file(&app(), icons::file_gif, 0, IMAGE_KEEP);
    for (FXIcon* icon : std::initializer_list<FXIcon*>{&main_icon, &help, &range, &file}) {
        EXPECT_TRUE(icon->getWidth() == 32 && icon->getHeight() == 32);
        const auto opaque = std::count_if(icon->getData(), icon->getData() + std::size_t{32} * 32,
                                          [](FXColor color) { return FXALPHAVAL(color) != 0; });
        EXPECT_TRUE(300 < opaque && opaque < 1000) << "a picture, with a transparent border";
    }
}

// A main_base whose font is made anew, under a registry entry or without one.
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
        app().setNormalFont(normal);
        EXPECT_EQ(made.font->getSize(), 10u * points) << tenths;
        EXPECT_EQ(made.font->getTextWidth("iiii", 4), made.font->getTextWidth("MMMM", 4));
    }
}

TEST(MainBase, TheRegistryNamesTheFixedFont) {
    const fresh_font named("DejaVu Sans Mono,200,bold");
    EXPECT_EQ(named.font->getSize(), 200U);
    EXPECT_EQ(named.font->getWeight(), FXuint{FXFont::Bold});
}

TEST(MainBase, HelpUnpacksItsTextOrSaysWhyNot) {
    std::string text;
    for (int i = 0; i < 3000; ++i)
        text += "line " + std::to_string(i) + "\n";
    std::vector<Bytef> packed(compressBound(text.size()));
    uLongf size = packed.size();
    compress(packed.data(), &size, reinterpret_cast<const Bytef*>(text.data()), text.size());
    const auto* stream = reinterpret_cast<const char*>(packed.data());

    services().show_help(stream, static_cast<unsigned>(size));
    ASSERT_EQ(text_windows().size(), 1U);
    EXPECT_EQ(text_windows()[0]->text->getText().text(), text);
    EXPECT_EQ(text_windows()[0]->text->getFont(), services().get_fixed_font());
    close_by_manager(text_windows()[0]);
    EXPECT_THROW(services().show_help("no zlib stream", 14), TError);
    EXPECT_THROW(services().show_help(stream, static_cast<unsigned>(size) - 5), TError);
    EXPECT_TRUE(text_windows().empty());
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
