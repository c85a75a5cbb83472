// SPDX-License-Identifier: MIT
// The parser of the formula language: one operation for each rule of its grammar.
#include "mathkit/symbolic/scanexpr.h"

#include "mathkit/symbolic/formula_error.h"
#include "mathkit/symbolic/limits.h"
#include "mathkit/symbolic/nodes.h"

#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace symbolic {

namespace {

// The character classes of the language; those of the C library depend on the locale.
bool is_space(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool is_digit(char c) {
    return c >= '0' && c <= '9';
}
bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool is_name_character(char c) {
    return is_letter(c) || is_digit(c) || c == '_';
}

class parser {
public:
    explicit parser(std::string_view text) : text(text) { skip_space(); }

    ex formula();

private:
    ex sum();
    ex product();
    ex signed_power();
    ex power_or_operand();
    ex operand();
    ex number_operand();
    ex name_operand();
    ex bracket();
    std::vector<ex> arguments();

    char next() const { return position < text.size() ? text[position] : '\0'; }
    bool accept(char c);
    void skip_space();
    void close_bracket(int opened_at);
    void open_level();
    int column() const { return static_cast<int>(position) + 1; }

    // What stands at the position, for an error text: a name, a number or a character in quotes.
    std::string found() const;

    [[noreturn]] void fail_at_operand() const;
    [[noreturn]] void fail_at_operator() const;

    std::string_view text;
    std::size_t position = 0; // of the next character that is no space
    int level = 0;            // brackets, signs and exponents that are open
};

void parser::skip_space() {
    while (position < text.size() && is_space(text[position]))
        ++position;
}

bool parser::accept(char c) {
    if (next() != c || position >= text.size()) return false;
    ++position;
    skip_space();
    return true;
}

// Separate functions throw the errors, which keeps the stack frames of the recursion small.

std::string parser::found() const {
    if (position >= text.size()) return "the end of the formula";
    std::size_t end = position + 1;
    if (is_name_character(text[position])) {
        while (end < text.size() && (is_name_character(text[end]) || text[end] == '.'))
            ++end;
    }
    std::string quoted = "'";
    quoted += shown(text.substr(position, end - position));
    quoted += '\'';
    return quoted;
}

void parser::fail_at_operand() const {
    throw TError(kit::string::format(
        "expected a number, a name or '(' at column %d, but found %s%s", column(), found().c_str(),
        next() == '*' && position > 0 && text[position - 1] == '*' ? " (a power is written '^')"
                                                                   : ""));
}

void parser::fail_at_operator() const {
    if (next() == ')') {
        throw TError(kit::string::format("')' without '(' at column %d", column()));
    }
    const bool decimal_comma = next() == ',' && position > 0 && is_digit(text[position - 1]);
    throw TError(kit::string::format(
        "expected an operator such as '+' or '*' at column %d, but found %s%s", column(),
        found().c_str(), decimal_comma ? " (decimals are written with a point)" : ""));
}

void parser::open_level() {
    if (++level <= max_depth) return;
    throw TError(
        kit::string::format("the formula is nested too deeply at column %d: the limit is %d "
                            "brackets, signs and exponents",
                            column(), max_depth));
}

ex parser::formula() {
    if (position >= text.size())
        throw TError("the formula is empty: expected one such as 5+sin(t)");
    ex result = sum();
    if (position < text.size()) fail_at_operator();
    return result;
}

ex parser::sum() {
    ex result = product();
    for (;;) {
        if (accept('+')) {
            result = add(result, product());
        } else if (accept('-')) {
            result = sub(result, product());
        } else {
            return result;
        }
    }
}

ex parser::product() {
    ex result = signed_power();
    for (;;) {
        if (accept('*')) {
            result = mul(result, signed_power());
        } else if (accept('/')) {
            result = divide(result, signed_power());
        } else {
            return result;
        }
    }
}

ex parser::signed_power() {
    const bool negative = next() == '-';
    if (!accept('-') && !accept('+')) return power_or_operand();
    open_level();
    ex result = signed_power();
    --level;
    return negative ? ex(minus(result)) : result;
}

ex parser::power_or_operand() {
    ex base = operand();
    if (!accept('^')) return base;
    open_level();
    ex exponent = signed_power();
    --level;
    return power(base, exponent);
}

ex parser::operand() {
    const char c = next();
    if (is_digit(c) || c == '.') return number_operand();
    if (is_letter(c)) return name_operand();
    if (c == '(') return bracket();
    fail_at_operand();
}

ex parser::number_operand() {
    const char* first = text.data() + position;
    double value = 0;
    const auto [last, error] = std::from_chars(first, text.data() + text.size(), value);
    if (error == std::errc::invalid_argument) fail_at_operand(); // a lone point
    if (error == std::errc::result_out_of_range) {
        throw TError(kit::string::format(
            "the number '%s' at column %d is too large or too small",
            shown(std::string_view(first, static_cast<std::size_t>(last - first))).c_str(),
            column()));
    }
    position += static_cast<std::size_t>(last - first);
    skip_space();
    return value;
}

ex parser::name_operand() {
    const std::size_t begin = position;
    const int name_column = column();
    while (is_name_character(next()))
        ++position;
    const std::string_view name = text.substr(begin, position - begin);
    skip_space();
    if (next() == '(' && name != "t") {
        return unresolved_call(std::string(name), name_column, arguments());
    }
    if (name == "t") return var("t");
    if (find_function(name)) throw missing_bracket(name, column());
    return unresolved_name(std::string(name), name_column);
}

ex parser::bracket() {
    const int opened_at = column();
    accept('(');
    open_level();
    ex result = sum();
    --level;
    close_bracket(opened_at);
    return result;
}

std::vector<ex> parser::arguments() {
    const int opened_at = column();
    accept('(');
    open_level();
    std::vector<ex> result;
    do {
        result.push_back(sum());
    } while (accept(','));
    --level;
    close_bracket(opened_at);
    return result;
}

void parser::close_bracket(int opened_at) {
    if (accept(')')) return;
    if (position < text.size()) fail_at_operator();
    throw TError(kit::string::format("missing ')' at column %d for the '(' at column %d", column(),
                                     opened_at));
}

} // namespace

ex scanexpr(const char* text) {
    const std::string_view formula = text ? text : "";
    if (formula.size() > static_cast<std::size_t>(max_text_length)) {
        throw TError(kit::string::format("the formula is too long: %zu characters, the limit is %d",
                                         formula.size(), max_text_length));
    }
    return parser(formula).formula();
}

} // namespace symbolic
