// SPDX-License-Identifier: MIT
// A user's words in messages and in the first lines of a file.
#pragma once

#include <string>
#include <string_view>

namespace batch {

/// The text between single quotes for a message: long text is shortened, bytes that are not
/// printable ASCII appear as \xNN.
std::string in_quotes(std::string_view text);

/// The word as a shell reads it back, on one line and in ASCII: as it stands where it needs no
/// quotes.
std::string shell_word(std::string_view word);

} // namespace batch
