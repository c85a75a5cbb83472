// SPDX-License-Identifier: MIT
// The curve of a command line, as in "oval-a:c=5", with its ranges and the names of its formula.
#pragma once

#include "billiard/batch/curve_catalog.h"
#include "billiard/batch/value_range.h"
#include "billiard/radius-core/TBilliard.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace batch {

/// A curve, or where parameters are ranges the curves of all combinations of their values.
///
/// Combinations are numbered from 0; the range that was typed last changes fastest.
class curve_word {
public:
    /// Reads CURVE and the NAME=VALUE of each --let. Throws usage_error for an unknown name, a
    /// value that the curve refuses, and an error in a formula.
    curve_word(std::string_view word, const std::vector<std::string>& lets);

    /// Names of the ranges, in the order typed.
    const std::vector<std::string>& range_names() const { return names; }

    /// Number of combinations; 1 without a range.
    std::int64_t combinations() const { return count; }

    /// The ranges' values of combination i.
    std::vector<double> range_values(std::int64_t i) const;

    /// The table of combination i. May be called by several threads at a time. Throws usage_error
    /// where the curve is no boundary: a radius that is not positive or no number.
    std::unique_ptr<TBilliardMap> billiard(std::int64_t i) const;

private:
    struct definition {
        std::string name;
        std::string text;  // of an expression; empty for a range
        value_range range; // read where there is no text
    };

    void read_parameters(std::string_view text);
    void read_fourier(std::string_view text);
    void read_let(std::string_view text);
    void refuse_bad_corners() const;
    void number_ranges();
    std::unique_ptr<TRadiusFunction> curve(std::int64_t i) const;
    std::unique_ptr<TRadiusFunction> formula_curve(const std::vector<double>& of_ranges) const;

    const curve_kind* kind;
    std::vector<value_range> parameters;    // one for each of the kind
    std::vector<std::size_t> typed;         // the parameters that were given, in their order
    std::vector<double> amplitudes, phases; // of a Fourier curve
    std::string formula;
    std::vector<definition> definitions;

    std::vector<std::string> names;
    std::vector<value_range> ranges;
    std::int64_t count = 1;
};

} // namespace batch
