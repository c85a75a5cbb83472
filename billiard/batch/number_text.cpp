// SPDX-License-Identifier: MIT
// Numbers of the command line and of rows: from text and to text.
#include "billiard/batch/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace batch {

std::optional<double> parse_real(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double x = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, x);
    if (error != std::errc{} || stop != end || !std::isfinite(x)) return {};
    return x;
}

std::optional<std::int64_t> parse_count(std::string_view text) {
    const auto x = parse_real(text);
    constexpr double most = 0x1p53; // up to here doubles hold each whole number
    if (!x || *x < 0 || *x > most || *x != std::floor(*x)) return {};
    return static_cast<std::int64_t>(*x);
}

std::optional<std::vector<double>> parse_reals(std::string_view text) {
    std::vector<double> numbers;
    for (const std::string_view piece : split(text, ',')) {
        const auto x = parse_real(piece);
        if (!x) return {};
        numbers.push_back(*x);
    }
    return numbers;
}

std::optional<count_pair> parse_pair(std::string_view text, char separator) {
    const auto pieces = split(text, separator);
    if (pieces.size() != 2) return {};
    const auto first = parse_count(pieces[0]);
    const auto second = parse_count(pieces[1]);
    if (!first || !second) return {};
    return count_pair{*first, *second};
}

char* put_real(char* at, double x) {
    if (std::isnan(x)) return std::copy_n("nan", 3, at);
    return put_shortest(at, x);
}

char* put_count(char* at, std::int64_t n) {
    return std::to_chars(at, at + longest_number, n).ptr;
}

std::string real_text(double x) {
    char text[longest_number];
    return {text, put_real(text, x)};
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

} // namespace batch
