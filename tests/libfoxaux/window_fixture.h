// SPDX-License-Identifier: MIT
// What the window tests share: the one application, its events, dialogs driven from a timer,
// pixels.
#pragma once

#include "libfoxaux/fox-utils/plot_application.h"

#include <fx.h>
#include <fxkeys.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace window_test {

constexpr FXColor black = 0xff000000, white = 0xffffffff, red = 0xff0000ff;

/// The application of the process, connected to the display; made at first use, never deleted.
inline FXApp& app() {
    static FXApp* application = [] {
        static char name[] = "test";
        static char* arguments[] = {name, nullptr};
        int count = 1;
        auto* created = new plot_application("Billiard", "Iterra");
        created->init(count, arguments);
        created->create();
        return created;
    }();
    return *application;
}

/// Letters of so many dots per inch for as long as this lives.
class resolution {
public:
    explicit resolution(FXuint dots) {
        app().reg().writeUnsignedEntry("SETTINGS", "screenres", dots);
    }
    resolution(const resolution&) = delete;
    resolution& operator=(const resolution&) = delete;
    ~resolution() { app().reg().deleteEntry("SETTINGS", "screenres"); }
};

/// Makes a timer due again and again: a chore that works until something waits, as the canvases'
/// loop does, then gives way.
class ticker : public FXObject {
public:
    static constexpr FXuint id = 1;

    ticker() { app().addTimeout(this, id, distance); }
    ~ticker() override { app().removeTimeout(this, id); }
    long handle(FXObject*, FXSelector, void*) override {
        app().addTimeout(this, id, distance);
        return 1;
    }

private:
    static constexpr FXuint distance = 3; // milliseconds
};

/// Handles what is pending: paints, layout, timers that are due. A running chore runs some times.
inline void pump(int passes = 10) {
    const ticker events;
    for (int i = 0; i < passes; ++i) {
        app().flush(true);
        app().runWhileEvents();
    }
    app().forceRefresh(); // widgets would ask their targets one by one, whenever idle
    app().repaint();
    app().flush(true);
}

/// Handles events until `done` says so; false if it never does within some seconds.
inline bool pump_until(const std::function<bool()>& done) {
    const ticker events;
    const FXTime deadline = FXThread::time() + 10000000000LL; // nanoseconds
    while (!done()) {
        if (FXThread::time() > deadline) return false;
        app().runWhileEvents();
        FXThread::sleep(2000000);
    }
    return true;
}

/// A mouse event at a position of the window.
inline FXEvent mouse_event(FXWindow* window, int x, int y) {
    FXEvent event{};
    event.win_x = x;
    event.win_y = y;
    window->translateCoordinatesTo(event.root_x, event.root_y, app().getRootWindow(), x, y);
    event.moved = false;
    return event;
}

/// Hands an event to a window as the toolkit does: a handled one makes the widgets ask their
/// targets for news. Gives the handler's answer.
inline long send(FXWindow* window, FXuint type, FXEvent& event) {
    event.type = type;
    const long answer = window->handle(window, FXSEL(type, 0), &event);
    if (answer) app().refresh();
    return answer;
}

/// The mouse buttons that are held, as bits of an event's state.
inline FXuint buttons_down = 0;

/// Sends a mouse message, SEL_LEFTBUTTONPRESS and the like; gives the handler's answer.
inline long send_mouse(FXWindow* window, FXuint type, int x, int y) {
    if (type == SEL_LEFTBUTTONPRESS) buttons_down |= LEFTBUTTONMASK;
    if (type == SEL_LEFTBUTTONRELEASE) buttons_down &= ~LEFTBUTTONMASK;
    if (type == SEL_RIGHTBUTTONPRESS) buttons_down |= RIGHTBUTTONMASK;
    if (type == SEL_RIGHTBUTTONRELEASE) buttons_down &= ~RIGHTBUTTONMASK;
    FXEvent event = mouse_event(window, x, y);
    event.state = buttons_down;
    return send(window, type, event);
}

/// Presses a key that carries a text, or one that has only a code.
inline long send_key(FXWindow* window, FXint code, const FXString& text = "") {
    FXEvent event{};
    event.code = code;
    event.text = text;
    return send(window, SEL_KEYPRESS, event);
}

/// Presses a key and lets it go, which is when a button acts.
inline void strike_key(FXWindow* window, FXint code) {
    FXEvent event{};
    event.code = code;
    send(window, SEL_KEYPRESS, event);
    send(window, SEL_KEYRELEASE, event);
}

/// Types characters one after another, "\r" by the Enter key; gives the answer to the last.
inline long type_keys(FXWindow* window, const char* characters) {
    long answer = 0;
    for (; *characters; ++characters) {
        const FXint code = *characters == '\r' ? FXint{KEY_Return} : FXuchar(*characters);
        answer = send_key(window, code, FXString(characters, 1));
    }
    return answer;
}

/// A picture's pixels as they are now, row by row, in the order of FXColor with the alpha set.
class pixels {
public:
    explicit pixels(FXImage* image) : w(image->getWidth()), h(image->getHeight()) {
        image->restore();
        values.assign(image->getData(), image->getData() + static_cast<std::size_t>(w) * h);
        image->release();
    }

    FXColor at(int x, int y) const { return values[static_cast<std::size_t>(y) * w + x]; }
    int width() const { return w; }
    int height() const { return h; }

    /// Red, green, blue, alpha of each pixel.
    std::string bytes() const {
        return {reinterpret_cast<const char*>(values.data()), 4 * values.size()};
    }

    /// How many pixels have the colour.
    int count(FXColor color) const {
        return static_cast<int>(std::count(values.begin(), values.end(), color));
    }

    bool operator==(const pixels& other) const {
        return w == other.w && h == other.h && values == other.values;
    }

private:
    int w, h;
    std::vector<FXColor> values;
};

/// The pixels that a window shows now, which must lie on the screen uncovered.
inline pixels screen_of(FXWindow* window) {
    app().flush(true);
    FXImage copy(&app(), nullptr, 0, window->getWidth(), window->getHeight());
    copy.create();
    FXDCWindow(&copy).drawArea(window, 0, 0, window->getWidth(), window->getHeight(), 0, 0);
    return pixels(&copy);
}

/// A top-level window with one child that fills it, shown.
template<class Canvas>
class shown {
public:
    shown(int w, int h)
        : shell(new FXMainWindow(&app(), "test", nullptr, nullptr, DECOR_NONE, 20, 20, w, h)),
          canvas(fill(shell.get())) {
        shell->create();
        shell->show();
        pump();
    }

    Canvas* operator->() const { return canvas; }
    Canvas& operator*() const { return *canvas; }

    /// Gives the canvas another size and lets it paint.
    void resize(int w, int h) {
        shell->resize(w, h);
        shell->layout();
        pump();
    }

    std::unique_ptr<FXMainWindow> shell;
    Canvas* canvas; ///< owned by the shell

private:
    static Canvas* fill(FXComposite* parent) {
        return new Canvas(parent, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0);
    }
};

/// Drives the modal dialogs that an action opens: each script is called once, in order, when
/// another modal window has come up, and should end in closing it.
///
///     with_dialogs([&] { canvas->position_dialog(); }, {[](FXTopWindow* dialog) {
///         close_dialog(dialog, true);
///     }});
/// The test fails if fewer dialogs come up; a dialog without a script is cancelled and fails it.
class dialog_driver : public FXObject {
public:
    using script = std::function<void(FXTopWindow*)>;

    static constexpr FXuint id = 1;

    explicit dialog_driver(std::vector<script> scripts) : scripts(std::move(scripts)) {
        app().addTimeout(this, id, 5);
    }
    ~dialog_driver() override { app().removeTimeout(this, id); }

    long handle(FXObject*, FXSelector, void*) override {
        auto* dialog = dynamic_cast<FXTopWindow*>(app().getModalWindow());
        app().addTimeout(this, id, 5);
        if (!dialog || !dialog->shown()) return 1;
        if (next >= scripts.size()) {
            ADD_FAILURE() << "unexpected dialog: " << dialog->getTitle().text();
            dialog->handle(dialog, FXSEL(SEL_COMMAND, FXDialogBox::ID_CANCEL), nullptr);
            return 1;
        }
        scripts[next++](dialog);
        return 1;
    }

    std::size_t next = 0;

private:
    std::vector<script> scripts;
};

/// Pops a posted menu down as soon as the event loop runs, after a last look at it.
class menu_closer : public FXObject {
public:
    static constexpr FXuint id = 1;

    explicit menu_closer(
        FXPopup* menu, std::function<void()> last = [] {})
        : menu(menu),
          last(std::move(last)) {
        app().addTimeout(this, id, 20);
    }
    ~menu_closer() override { app().removeTimeout(this, id); }
    long handle(FXObject*, FXSelector, void*) override {
        was_shown = menu->shown();
        last();
        menu->popdown();
        return 1;
    }

    bool was_shown = false;

private:
    FXPopup* menu;
    std::function<void()> last;
};

inline void with_dialogs(const std::function<void()>& action,
                         std::vector<dialog_driver::script> scripts) {
    const std::size_t wanted = scripts.size();
    dialog_driver driver(std::move(scripts));
    action();
    EXPECT_EQ(driver.next, wanted) << "dialogs that came up";
}

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

/// The widget within a window that has the focus.
inline FXWindow* focus_of(FXWindow* top) {
    while (top->getFocus())
        top = top->getFocus();
    return top;
}

/// Replaces a field's text as a person does: delete it, then type. "\r" is the Enter key.
inline void type_into(FXTextField* field, const char* text) {
    field->setFocus();
    // Letter by letter: whether all of it is selected is up to the display, and may fail.
    send_key(field, KEY_End);
    for (FXint letters = field->getText().count(); letters > 0; --letters)
        send_key(field, KEY_BackSpace);
    type_keys(field, text);
}

/// The part of a field's text that is selected.
inline std::string selected_text(const FXTextField* field) {
    std::string selected;
    const FXString text = field->getText();
    for (FXint i = 0; i < text.length(); ++i)
        if (field->isPosSelected(i)) selected += text[i];
    return selected;
}

} // namespace window_test
