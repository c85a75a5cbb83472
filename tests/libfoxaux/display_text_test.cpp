// SPDX-License-Identifier: MIT
// Tests of the text viewer: what it shows, saves and frees.
#include "libfoxaux/fox-utils/display_text.h"

#include "mathkit/TError.h"
#include "tests/libfoxaux/dialog_helpers.h"

using namespace window_test;

namespace {

/// The text windows that exist now.
std::vector<display_text*> open_windows() {
    std::vector<display_text*> found;
    for (FXWindow* w = app().getRootWindow()->getFirst(); w; w = w->getNext())
        if (auto* text = dynamic_cast<display_text*>(w)) found.push_back(text);
    return found;
}

display_text* opened(const char* text) {
    services().show_text("Title", text);
    pump();
    return open_windows().back();
}

std::string error_of(display_text* window, const std::string& path) {
    try {
        save_text(window->text, path.c_str());
    } catch (const TError& error) {
        return error.text().c_str();
    }
    return "";
}

/// Pops the posted menu down as soon as the event loop runs.
class menu_closer : public FXObject {
public:
    explicit menu_closer(FXMenuPane* menu) : menu(menu) { app().addTimeout(this, 1, 20); }
    ~menu_closer() override { app().removeTimeout(this, 1); }
    long handle(FXObject*, FXSelector, void*) override {
        was_shown = menu->shown();
        menu->popdown();
        return 1;
    }
    bool was_shown = false;

private:
    FXMenuPane* menu;
};

TEST(DisplayText, OpensInTheMiddleWithTheFocusOnClose) {
    display_text* window = opened("some text");
    const FXWindow* root = app().getRootWindow();
    EXPECT_EQ(window->getWidth(), root->getWidth() * 3 / 4);
    EXPECT_EQ(window->getHeight(), root->getHeight() * 3 / 4);
    EXPECT_EQ(window->text->getFont(), services().get_fixed_font());
    EXPECT_EQ(window->text->getTabColumns(), 35);
    EXPECT_FALSE(window->text->isEditable());
    std::vector<std::string> labels;
    for (FXButton* button : all_of<FXButton>(window)) {
        labels.push_back(button->getText().text());
        EXPECT_EQ(focus_of(window) == button, labels.back() == "Close");
    }
    EXPECT_EQ(labels, (std::vector<std::string>{"Close", "Search", "Save"}));
    delete window;
}

TEST(DisplayText, EachWindowEndsWithItsOwnClosing) {
    opened("one");
    opened("two");
    display_text* third = opened("three");
    ASSERT_EQ(open_windows().size(), 3U);
    close_by_manager(open_windows()[1]);
    EXPECT_EQ(open_windows().size(), 2U);
    FXButton* close = all_of<FXButton>(third).at(0);
    ASSERT_STREQ(close->getText().text(), "Close");
    third->handle(close, FXSEL(SEL_COMMAND, close->getSelector()), nullptr);
    ASSERT_EQ(open_windows().size(), 1U);
    EXPECT_STREQ(open_windows()[0]->text->getText().text(), "one");
    // Escape takes the road of a dialog's cancel.
    send_key(open_windows()[0], KEY_Escape);
    FXEvent release{};
    if (!open_windows().empty())
        open_windows()[0]->handle(nullptr, FXSEL(SEL_KEYRELEASE, 0), &release);
    pump();
    EXPECT_TRUE(open_windows().empty());
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

TEST(DisplayText, SavesByteForByte) {
    const folder place;
    const std::string long_text(300000, 'x');
    for (const std::string& text : {std::string("a\tb\n\nc"), std::string(), long_text,
                                    std::string("gr\xc3\xbc\xc3\x9f"
                                                "e %s\n")}) {
        display_text* window = opened(text.c_str());
        put_file(place / "t", "something longer that was there before");
        EXPECT_EQ(error_of(window, place / "t"), "");
        EXPECT_EQ(content_of(place / "t"), text);
        delete window;
    }
}

TEST(DisplayText, AFailureNamesThePath) {
    const folder place;
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
                        answer_box("Warning", question, FXMessageBox::ID_CLICKED_CANCEL)});
    EXPECT_EQ(content_of(place / "a&b"), "old");

    const std::string path = place / "no/t";
    with_dialogs(save, {choose_file(path),
                        error_box("File not saved.\ncould not open file \"" + path + "\"")});
    with_dialogs(save, {[&](FXTopWindow* dialog) {
                     EXPECT_STREQ(dialog->getTitle().text(), "Save File");
                     close_dialog(dialog, false);
                 }});
    EXPECT_EQ(open_windows().size(), 1U);
    delete window;
}

TEST(DisplayText, SetTextReplacesWhatIsShown) {
    display_text* window = opened(nullptr);
    EXPECT_EQ(window->text->getLength(), 0);
    window->set_text("second");
    EXPECT_STREQ(window->text->getText().text(), "second");
    delete window;
}

} // namespace
