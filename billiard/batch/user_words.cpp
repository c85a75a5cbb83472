// SPDX-License-Identifier: MIT
// A user's words in messages and in the first lines of a file.
#include "billiard/batch/user_words.h"

#include "mathkit/symbolic/formula_error.h"

#include <algorithm>

namespace batch {

namespace {

bool is_plain(char c) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    return letter || std::string_view("-+_=:,./@%").find(c) != std::string_view::npos;
}

bool is_printable(char c) {
    return c >= ' ' && c <= '~';
}

// The form $'...', the only one in which a shell takes a control character on one line.
std::string escaped_word(std::string_view word) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text = "$'";
    for (const char c : word) {
        const auto byte = static_cast<unsigned char>(c);
        if (!is_printable(c)) {
            text += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
        } else {
            if (c == '\'' || c == '\\') text += '\\';
            text += c;
        }
    }
    return text + '\'';
}

} // namespace

std::string in_quotes(std::string_view text) {
    return '\'' + symbolic::shown(text) + '\'';
}

std::string shell_word(std::string_view word) {
    if (!word.empty() && std::all_of(word.begin(), word.end(), is_plain)) return std::string(word);
    const bool simple =
        std::all_of(word.begin(), word.end(), [](char c) { return is_printable(c) && c != '\''; });
    return simple ? '\'' + std::string(word) + '\'' : escaped_word(word);
}

} // namespace batch
