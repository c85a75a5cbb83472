// SPDX-License-Identifier: MIT
// Tests of the text viewer: what it shows, saves and frees.
#include "libfoxaux/fox-utils/display_text.h"

#include "tests/libfoxaux/services.h"

using namespace window_test;

namespace {

display_text* opened(const char* text) {
    services().show_text("Title", text);
    pump();
    return text_windows().back();
}

TEST(DisplayText, EachWindowEndsWithItsOwnClosing) {
    display_text* first = opened("one");
    display_text* second = opened("two");
    display_text* third = opened("three");
    close_by_manager(second);
    EXPECT_EQ(text_windows(), (std::vector{first, third}));
    FXButton* close = all_of<FXButton>(third).at(0);
    third->handle(close, FXSEL(SEL_COMMAND, close->getSelector()), nullptr);
    EXPECT_EQ(text_windows(), std::vector{first});
    EXPECT_STREQ(first->text->getText().text(), "one");
    send_key(first, KEY_Escape); // takes the road of a dialog's cancel
    pump();
    EXPECT_TRUE(text_windows().empty());
}

TEST(DisplayText, ARightClickOpensTheMenuAndADragDoesNot) {
    display_text* window = opened("some text");
    FXEvent event = mouse_event(window->text, 5, 5);
    for (const bool dragged : {true, false}) {
        const menu_closer closer(window->popup);
        event.moved = dragged;
        window->handle(window->text, FXSEL(SEL_RIGHTBUTTONRELEASE, display_text::ID_TEXT), &event);
        EXPECT_EQ(closer.was_shown, !dragged);
    }
    delete window;
}

TEST(DisplayText, SavesByteForByte) {
    const folder place;
    for (const std::string& text : {std::string("a\tb\n\nc"), std::string(),
                                    std::string(300000, 'x'), std::string("gr\xc3\xbc%s\n")}) {
        display_text* window = opened(text.c_str());
        put_file(place / "t", "something longer that was there before");
        save_text(window->text, (place / "t").c_str());
        EXPECT_EQ(content_of(place / "t"), text);
        delete window;
    }
}

TEST(DisplayText, SaveAsksForAFileAndReportsWhatFails) {
    const folder place;
    display_text* window = opened("text");
    const auto save = [&](const std::vector<dialog_driver::script>& scripts) {
        with_dialogs(
            [&] { window->handle(window, FXSEL(SEL_COMMAND, display_text::ID_SAVE), nullptr); },
            scripts);
    };
    save({choose_file(place / "t")});
    EXPECT_EQ(content_of(place / "t"), "text");

    save({choose_file(place / "t"), close_by_manager}); // the question whether to overwrite it

    save({choose_file("/dev/full"), message_box("Warning", "", FXMessageBox::ID_CLICKED_YES),
          message_box("Error", "File not saved.\nfailure during saving \"/dev/full\":\n  " +
                                   reason_of(ENOSPC))});
    const std::string path = place / "no/t";
    save({choose_file(path),
          message_box("Error", "File not saved.\ncould not open file \"" + path + "\"")});
    delete window;
}

} // namespace
