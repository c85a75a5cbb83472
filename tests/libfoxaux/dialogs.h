// SPDX-License-Identifier: MIT
// Dialogs and menus of a test: opened by an action, driven from a timer, read widget by widget.
#pragma once

#include "tests/libfoxaux/events.h"

#include <type_traits>
#include <vector>

namespace window_test {

/// Drives the modal dialogs that an action opens: each script is called once, in order, when
/// another modal window has come up, and should end in closing it. A dialog without a script is
/// cancelled and fails the test.
class dialog_driver {
public:
    using script = std::function<void(FXTopWindow*)>;

    explicit dialog_driver(std::vector<script> scripts) : scripts(std::move(scripts)) {}

    std::size_t next = 0;

private:
    void look() {
        auto* dialog = dynamic_cast<FXTopWindow*>(app().getModalWindow());
        if (!dialog || !dialog->shown()) return;
        if (next < scripts.size()) return scripts[next++](dialog);
        ADD_FAILURE() << "unexpected dialog: " << dialog->getTitle().text();
        dialog->handle(dialog, FXSEL(SEL_COMMAND, FXDialogBox::ID_CANCEL), nullptr);
    }

    std::vector<script> scripts;
    timer looks{5, [this] { look(); }};
};

/// Drives the dialogs of an action. The test fails if fewer come up than there are scripts.
///
///     with_dialogs([&] { canvas->position_dialog(); }, {[](FXTopWindow* dialog) {
///         close_dialog(dialog, true);
///     }});
inline void with_dialogs(const std::function<void()>& action,
                         std::vector<dialog_driver::script> scripts) {
    const std::size_t wanted = scripts.size();
    dialog_driver driver(std::move(scripts));
    action();
    EXPECT_EQ(driver.next, wanted) << "dialogs that came up";
}

/// Pops a posted menu down as soon as the event loop runs, after a last look at it.
class menu_closer {
public:
    explicit menu_closer(
        FXPopup* menu, const std::function<void()>& last = [] {})
        : looks(20, [=, this] {
              was_shown = menu->shown();
              last();
              menu->popdown();
          }) {}

    bool was_shown = false;

private:
    timer looks;
};

/// Ends a dialog by its "&Accept" or "&Cancel" command.
inline void close_dialog(FXTopWindow* dialog, bool accept) {
    dialog->handle(dialog,
                   FXSEL(SEL_COMMAND, accept ? FXDialogBox::ID_ACCEPT : FXDialogBox::ID_CANCEL),
                   nullptr);
}

/// Closes a window as the window manager does.
inline void close_by_manager(FXTopWindow* window) {
    window->handle(window, FXSEL(SEL_CLOSE, 0), nullptr);
}

/// All widgets of a class below `top`, in the order of their construction.
template<class Widget>
std::vector<Widget*> all_of(FXWindow* top) {
    std::vector<Widget*> found;
    for (FXWindow* child = top->getFirst(); child; child = child->getNext()) {
        if (auto* match = dynamic_cast<Widget*>(child)) found.push_back(match);
        for (Widget* deeper : all_of<Widget>(child))
            found.push_back(deeper);
    }
    return found;
}

/// The texts of all widgets of a class below `top`, buttons among labels left out.
template<class Widget>
std::vector<std::string> texts_of(FXWindow* top) {
    std::vector<std::string> texts;
    for (Widget* widget : all_of<Widget>(top))
        if (!std::is_same_v<Widget, FXLabel> || !dynamic_cast<FXButton*>(widget))
            texts.push_back(widget->getText().text());
    return texts;
}

/// A script for a message box with that caption and that text in it: presses a button.
inline dialog_driver::script message_box(const std::string& title, const std::string& text,
                                         FXuint button = FXMessageBox::ID_CLICKED_OK) {
    return [=](FXTopWindow* box) {
        EXPECT_EQ(box->getTitle().text(), title);
        const std::string said = texts_of<FXLabel>(box).back();
        EXPECT_NE(said.find(text), std::string::npos) << "the box says: " << said;
        box->handle(box, FXSEL(SEL_COMMAND, button), nullptr);
    };
}

/// A script for a file dialog: types `path`, whatever folder is shown.
inline dialog_driver::script choose_file(const std::string& path) {
    return [path](FXTopWindow* dialog) {
        auto* files = dynamic_cast<FXFileDialog*>(dialog);
        ASSERT_TRUE(files) << dialog->getTitle().text();
        all_of<FXTextField>(dialog).at(0)->setText(path.c_str());
        EXPECT_EQ(files->getFilename().text(), path);
        close_dialog(dialog, true);
    };
}

/// A script for a file dialog: it must show this folder. Cancels.
inline dialog_driver::script expect_folder(const std::string& path) {
    return [path](FXTopWindow* dialog) {
        EXPECT_EQ(dynamic_cast<FXFileDialog*>(dialog)->getDirectory().text(), path);
        close_dialog(dialog, false);
    };
}

} // namespace window_test
