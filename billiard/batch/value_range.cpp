// SPDX-License-Identifier: MIT
// The values of one parameter of a curve: one number, or evenly spaced ones.
#include "billiard/batch/value_range.h"

#include "billiard/batch/errors.h"
#include "billiard/batch/number_text.h"
#include "billiard/batch/user_words.h"

#include <cmath>

namespace batch {

double value_range::at(std::int64_t i) const {
    if (i == 0) return first;
    if (i == count - 1) return last;
    const auto steps = static_cast<double>(count - 1);
    const auto done = static_cast<double>(i);
    const double sum = first * (steps - done) + last * done;
    if (std::isfinite(sum)) return sum / steps;
    return first + (last / steps - first / steps) * done;
}

bool looks_like_range(std::string_view text) {
    return text.find("..") != std::string_view::npos;
}

value_range parse_range(std::string_view text, const std::string& what) {
    if (!looks_like_range(text)) {
        const auto x = parse_real(text);
        if (!x) throw usage_error(what + " is " + in_quotes(text) + ", which is no number");
        return {*x, *x, 1, false};
    }
    const std::size_t dots = text.find("..");
    const std::size_t slash = text.find('/');
    const auto first = parse_real(text.substr(0, dots));
    const bool counted = slash != std::string_view::npos && slash > dots;
    const auto last = counted ? parse_real(text.substr(dots + 2, slash - dots - 2)) : first;
    const auto count = counted ? parse_count(text.substr(slash + 1)) : 0;
    if (!first || !last || !count || *count < 1) {
        throw usage_error(what + " is " + in_quotes(text) +
                          ", which is no range; one of 46 values is 1.5..6/46");
    }
    if (*count == 1 && *first != *last) {
        throw usage_error(what + " is " + in_quotes(text) + ": a range with two ends has 2 values");
    }
    return {*first, *last, *count, true};
}

} // namespace batch
