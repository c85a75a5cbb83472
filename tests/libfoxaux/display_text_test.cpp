// SPDX-License-Identifier: MIT
// Tests of the text viewer: what it shows, saves and frees.
#include "libfoxaux/fox-utils/display_text.h"

#include "mathkit/TError.h"
#include "tests/libfoxaux/dialog_helpers.h"

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

TEST(DisplayText, OpensInTheMiddleWithTheFocusOnClose) {
    display_text* window = opened("some text");
    const FXWindow* root = app().getRootWindow();
    EXPECT_EQ(window->getWidth(), root->getWidth() * 3 / 4);
    EXPECT_EQ(window->getHeight(), root->getHeight() * 3 / 4);
    EXPECT_EQ(window->text->getFont(), services().get_fixed_font());
    EXPECT_EQ(window->text->getTabColumns(), 35);
    EXPECT_FALSE(window->text->isEditable());
    EXPECT_EQ(texts_of<FXButton>(window), (std::vector<std::string>{"Close", "Search", "Save"}));
    EXPECT_EQ(focus_of(window), all_of<FXButton>(window).at(0));
    window->set_text("second");
    EXPECT_STREQ(window->text->getText().text(), "second");
    delete window;
}

TEST(DisplayText, EachWindowEndsWithItsOwnClosing) {
    opened("one");
    opened("two");
    display_text* third = opened("three");
    ASSERT_EQ(text_windows().size(), 3U);
    close_by_manager(text_windows()[1]);
    EXPECT_EQ(text_windows().size(), 2U);
    FXButton* close = all_of<FXButton>(third).at(0);
    ASSERT_STREQ(close->getText().text(), "Close");
    third->handle(close, FXSEL(SEL_COMMAND, close->getSelector()), nullptr);
    ASSERT_EQ(text_windows().size(), 1U);
    EXPECT_STREQ(text_windows()[0]->text->getText().text(), "one");
    // Escape takes the road of a dialog's cancel.
    send_key(text_windows()[0], KEY_Escape);
    FXEvent release{};
    if (!text_windows().empty())
        text_windows()[0]->handle(nullptr, FXSEL(SEL_KEYRELEASE, 0), &release);
    pump();
    EXPECT_TRUE(text_windows().empty());
}

TEST(DisplayText, ARightClickOpensTheMenuAndADragDoesNot) {
    display_text* window = opened("some text");
    FXEvent event = mouse_event(window->text, 5, 5);
    const auto release = [&](FXuint id) {
        return window->handle(window->text, FXSEL(SEL_RIGHTBUTTONRELEASE, id), &event);
    };
    event.moved = true;
    EXPECT_EQ(release(display_text::ID_TEXT), 0);
    event.moved = false;
    EXPECT_EQ(window->onTextRightRelease(nullptr, FXSEL(SEL_RIGHTBUTTONRELEASE, 0), &event), 0);
    menu_closer closer(window->popup);
    EXPECT_EQ(release(display_text::ID_TEXT), 1);
    EXPECT_TRUE(closer.was_shown);
    delete window;
}

TEST(DisplayText, SavesByteForByteOrNamesThePathThatFailed) {
    const folder place;
    for (const std::string& text :
         {std::string("a\tb\n\nc"), std::string(), std::string(300000, 'x'),
          std::string("gr\xc3\xbc\xc3\x9f") + "e %s\n"}) {
        display_text* window = opened(text.c_str());
        put_file(place / "t", "something longer that was there before");
        EXPECT_EQ(error_of(window, place / "t"), "");
        EXPECT_EQ(content_of(place / "t"), text);
        delete window;
    }
    put_file(place / "file", "old");
    display_text* window = opened("text");
    for (const std::string& path : {place.path.string(), place / "file/t", place / "no/%s%n"})
        EXPECT_EQ(error_of(window, path), "could not open file \"" + path + "\"");
    EXPECT_EQ(error_of(window, "/dev/full").rfind("failure during saving \"/dev/full\":\n  ", 0),
              0U);
    EXPECT_EQ(content_of(place / "file"), "old");
    delete window;
}

TEST(DisplayText, SaveAsksForAFileAndReportsWhatFails) {
    const folder place;
    display_text* window = opened("text");
    const auto save = [&] {
        window->handle(window, FXSEL(SEL_COMMAND, display_text::ID_SAVE), nullptr);
    };
    with_dialogs(save, {choose_file(place / "t")});
    EXPECT_EQ(content_of(place / "t"), "text");

    const std::string question = "File \"a&b\" exists.\nOverwrite it?";
    put_file(place / "a&b", "old");
    with_dialogs(save, {choose_file(place / "a&b"),
                        message_box("Warning", question, FXMessageBox::ID_CLICKED_CANCEL)});
    EXPECT_EQ(content_of(place / "a&b"), "old");

    const std::string path = place / "no/t";
    with_dialogs(save,
                 {choose_file(path),
                  message_box("Error", "File not saved.\ncould not open file \"" + path + "\"")});
    with_dialogs(save, {[&](FXTopWindow* dialog) {
                     EXPECT_STREQ(dialog->getTitle().text(), "Save File");
                     close_dialog(dialog, false);
                 }});
    EXPECT_EQ(text_windows().size(), 1U);
    delete window;
}

} // namespace
