// SPDX-License-Identifier: MIT
// The words of a command line, taken apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace batch {

/// A command as it was typed. Values are texts still.
struct command {
    std::string verb;
    std::string curve;

    /// Options and their values in the order typed; switches have an empty value.
    std::vector<std::pair<std::string, std::string>> given;

    bool has(std::string_view option) const;

    /// The value of an option that is given once at most.
    std::optional<std::string> value(std::string_view option) const;
    std::vector<std::string> values(std::string_view option) const;

    /// The words that decide the rows, as a shell reads them back.
    std::string deciding_words() const;
};

/// What a command line asks for: a command, or a text for standard output.
struct parsed_line {
    command what;
    std::string answer; ///< help or version; empty where there is a command
};

/// Throws usage_error.
parsed_line parse_command_line(int argc, const char* const* argv);

} // namespace batch
