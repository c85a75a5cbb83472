// SPDX-License-Identifier: MIT
// What the tests of the application's services share: its text windows, files, other programs.
#pragma once

#include "libfoxaux/fox-utils/display_text.h"
#include "libfoxaux/fox-utils/fxmain_base.h"
#include "tests/folder.h"
#include "tests/libfoxaux/dialogs.h"

#include <array>
#include <cerrno>
#include <cstdio>
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

} // namespace window_test
