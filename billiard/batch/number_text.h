// SPDX-License-Identifier: MIT
// Numbers of the command line and of rows: from text and to text.
#pragma once

#include "billiard/batch/shortest_real.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace batch {

/// The number that the whole text is, as in "-0.5" or "1e-3"; empty for anything else, also for
/// what is not finite.
std::optional<double> parse_real(std::string_view text);

/// The whole number from 0 to 2^53 that the text is; "1e6" is one.
std::optional<std::int64_t> parse_count(std::string_view text);

/// The numbers of a list such as "0.5,0.25"; empty if one of them is none.
std::optional<std::vector<double>> parse_reals(std::string_view text);

/// The two whole numbers of a pair such as "40x30" or "2/8".
struct count_pair {
    std::int64_t first, second;
};
std::optional<count_pair> parse_pair(std::string_view text, char separator);

/// Writes x at `at`, where longest_number characters are free, in the shortest form that reads back
/// to the same double; "nan" without a sign. The end of what was written.
char* put_real(char* at, double x);
char* put_count(char* at, std::int64_t n);

/// The same as a text.
std::string real_text(double x);

/// The text cut at each separator: always one piece at least.
std::vector<std::string_view> split(std::string_view text, char separator);

} // namespace batch
