// SPDX-License-Identifier: MIT
// Tests of the text viewer: what it shows, saves and frees.
#include "libfoxaux/fox-utils/display_text.h"

#include "mathkit/TError.h"
#include "tests/libfoxaux/services.h"

#include <sys/stat.h>

using namespace window_test;

namespace {

display_text* opened(const char* text) {
    services().show_text("Title", text);
    pump();
    return text_windows().back();
}

std::string error_of(display_text* window, const std::string& path) {
    try {
        save_text(window->text, path.c_str());
    } catch (const TError& error) {
        return error.text().c_str();
    }
    return "";
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

TEST(DisplayText, SavesByteForByteOrNamesThePathThatFailed) {
    const folder place;
    for (const std::string& text : {std::string("a\tb\n\nc"), std::string(),
                                    std::string(300000, 'x'), std::string("gr\xc3\xbc%s\n")}) {
        display_text* window = opened(text.c_str());
        put_file(place / "t", "something longer that was there before");
        EXPECT_EQ(error_of(window, place / "t"), "");
        EXPECT_EQ(content_of(place / "t"), text);
        delete window;
    }
    put_file(place / "file", "old");
    display_text* window = opened("text");
    ASSERT_EQ(mkfifo((place / "pipe").c_str(), 0600), 0); // nobody reads it
    for (const std::string& path :
         {place.path.string(), place / "file/t", place / "no/%s%n", place / "pipe"})
        EXPECT_EQ(error_of(window, path), "could not open file \"" + path + "\"");
    EXPECT_EQ(error_of(window, "/dev/full"),
              "failure during saving \"/dev/full\":\n  " + reason_of(ENOSPC));
    EXPECT_EQ(content_of(place / "file"), "old");
    delete window;
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

    const std::string path = place / "no/t";
    save({choose_file(path),
          message_box("Error", "File not saved.\ncould not open file \"" + path + "\"")});
    delete window;
}

} // namespace
