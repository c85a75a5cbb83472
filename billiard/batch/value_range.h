// SPDX-License-Identifier: MIT
// The values of one parameter of a curve: one number, or evenly spaced ones.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace batch {

/// The numbers from `first` to `last`, both included.
struct value_range {
    double first = 0, last = 0;
    std::int64_t count = 1;

    /// True for what was typed as a range, even of one value.
    bool typed_as_range = false;

    /// Value i, which is a multiple of the step where that has a short decimal form: of 1.5..6/46
    /// the second is 1.6.
    double at(std::int64_t i) const;
};

/// True where the text is meant as a range: it has two dots in a row.
bool looks_like_range(std::string_view text);

/// Reads "0.5", or "1.5..6/46" for 46 values. Throws usage_error, which begins with `what`.
value_range parse_range(std::string_view text, const std::string& what);

} // namespace batch
