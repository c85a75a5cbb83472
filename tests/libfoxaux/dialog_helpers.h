// SPDX-License-Identifier: MIT
// What the tests of services and dialogs share: file dialogs, files, other programs.
#pragma once

#include "libfoxaux/fox-utils/display_text.h"
#include "libfoxaux/fox-utils/fxmain_base.h"
#include "tests/folder.h"
#include "tests/libfoxaux/window_fixture.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace window_test {

namespace fs = std::filesystem;

/// The one main_base of the process, made at first use, never deleted.
inline main_base& services() {
    app();
    static auto* object = new fxmain_base;
    return *object;
}

/// What a command of the shell writes to its standard output.
inline std::string output_of(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) throw std::runtime_error("popen");
    std::array<char, 4096> part;
    while (const std::size_t n = fread(part.data(), 1, part.size(), pipe))
        output.append(part.data(), n);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

/// A word for the shell.
inline std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

/// What the system says of an error, in the language of the user.
inline std::string reason_of(int error) {
    return std::generic_category().message(error);
}

/// The text windows that exist now.
inline std::vector<display_text*> text_windows() {
    std::vector<display_text*> found;
    for (FXWindow* w = app().getRootWindow()->getFirst(); w; w = w->getNext())
        if (auto* text = dynamic_cast<display_text*>(w)) found.push_back(text);
    return found;
}

/// Lets every widget below `top` follow its target, as the event loop does when it is idle.
inline void update_widgets(FXWindow* top) {
    for (FXWindow* child = top->getFirst(); child; child = child->getNext()) {
        child->handle(child, FXSEL(SEL_UPDATE, 0), nullptr);
        update_widgets(child);
    }
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
