// SPDX-License-Identifier: MIT
// The one table of verbs and options: the parser, the help, the completion and the errors read it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace batch {

/// A verb of the command line.
struct verb_entry {
    const char* name;
    const char* summary;
    const char* columns; ///< what its rows are, for the help
    const char* example;
};

/// An option, of one verb or of several.
struct option_entry {
    const char* name;
    const char* value; ///< its value in the help; empty for a switch
    const char* verbs; ///< names, separated by blanks
    const char* help;
    bool repeatable = false;
    bool decides_rows = true; ///< stands in the first lines of the output
    const char* choices = ""; ///< all values there are, separated by blanks

    bool belongs_to(std::string_view verb) const;
    bool is_switch() const { return *value == '\0'; }
};

const std::vector<verb_entry>& verbs();
const std::vector<option_entry>& options();

/// The option of that name, which must be one.
const option_entry& find_option(std::string_view name);

} // namespace batch
