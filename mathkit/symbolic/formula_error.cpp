// SPDX-License-Identifier: MIT
// Error texts that quote a user's formula.
#include "mathkit/symbolic/formula_error.h"

#include "mathkit/symbolic/functions.h"

#include <cstddef>

namespace symbolic {

namespace {

constexpr std::size_t longest_quote = 24;

struct hint {
    const char* name;
    const char* instead;
};

// What people who come from other programs type.
constexpr hint usual_names[] = {
    {"abs", "fabs"},     {"arccos", "acos"}, {"arcsin", "asin"}, {"arctan", "atan"},
    {"ceiling", "ceil"}, {"int", "trunc"},   {"ln", "log"},      {"phi", "t"},
    {"sgn", "signum"},   {"sign", "signum"}, {"theta", "t"},     {"x", "t"},
};

std::string lower_case(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

// The name that is probably meant, empty if none comes to mind.
std::string name_instead(const std::string& name) {
    std::string lower = lower_case(name);
    for (const hint& known : usual_names) {
        if (lower == known.name) return known.instead;
    }
    if (lower == name) return {};
    if (find_function(lower) || lower == "t" || lower == "pi" || lower == "e") return lower;
    return {};
}

} // namespace

std::string shown(std::string_view text) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text.substr(0, longest_quote)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7f) {
            result += c;
        } else {
            result += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
        }
    }
    if (text.size() > longest_quote) result += "...";
    return result;
}

TError unknown_name(const std::string& name, int column) {
    const std::string instead = name_instead(name);
    if (instead.empty()) {
        return TError(
            kit::string::format("unknown name '%s' at column %d", shown(name).c_str(), column));
    }
    return TError(kit::string::format("unknown name '%s' at column %d; '%s' is known",
                                      shown(name).c_str(), column, instead.c_str()));
}

TError missing_bracket(std::string_view name, int column) {
    return TError(kit::string::format("missing '(' at column %d after the function '%s'", column,
                                      shown(name).c_str()));
}

TError missing_arguments(const char* name) {
    return TError(kit::string::format("function '%s' without its arguments", name));
}

} // namespace symbolic
