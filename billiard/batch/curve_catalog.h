// SPDX-License-Identifier: MIT
// The one table of the curves that a command line can name: parameters, limits, texts, classes.
#pragma once

#include "billiard/radius-core/TRadiusFunction.h"

#include <memory>
#include <string_view>
#include <vector>

namespace batch {

/// A named number of a curve.
struct curve_parameter {
    const char* name;
    double first;       ///< where the command line leaves it out
    bool whole = false; ///< takes whole numbers of an int's range
};

/// What follows the colon of a curve's word.
enum class curve_syntax { parameters, fourier, formula };

/// A kind of curve.
struct curve_kind {
    const char* name;
    const char* shape; ///< for the help
    curve_syntax syntax;
    std::vector<curve_parameter> parameters; ///< of curve_syntax::parameters
    const char* limit;                       ///< what the values must obey

    /// The curve with these values, one for each parameter; null if it refuses them. Null itself
    /// where the curve has no such parameters.
    std::unique_ptr<TRadiusFunction> (*build)(const std::vector<double>& values);
};

/// A curve that claims to be convex whatever its parameters, and here leaves that to the search for
/// inflections: where it bends inward, a bounce that trusts it goes through the wall.
template<class Curve>
class searched : public Curve {
public:
    using Curve::Curve;
    bool isConvex() const override { return false; }
};

/// All curves, in the order of the help.
const std::vector<curve_kind>& curve_catalog();

/// The curve of that name. Throws usage_error with the nearest one.
const curve_kind& find_curve(std::string_view name);

/// What a formula is where none is given.
inline constexpr const char* first_formula = "5+sin(t)";

} // namespace batch
