// SPDX-License-Identifier: MIT
// Mouse and keys for the windows of a test, sent as the toolkit does.
#pragma once

#include "tests/libfoxaux/application.h"

#include <fxkeys.h>

#include <string>

namespace window_test {

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

/// A click of the left button.
inline void click(FXWindow* window, int x, int y) {
    send_mouse(window, SEL_LEFTBUTTONPRESS, x, y);
    send_mouse(window, SEL_LEFTBUTTONRELEASE, x, y);
}

/// Presses a key that carries a text, or one that has only a code.
inline long send_key(FXWindow* window, FXint code, const FXString& text = "") {
    FXEvent event{};
    event.code = code;
    event.text = text;
    return send(window, SEL_KEYPRESS, event);
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
