// SPDX-License-Identifier: MIT
// The curve of a formula R(t) that the user types.
#pragma once

#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/kit_string.h"
#include "mathkit/symbolic/postfix_list.h"
#include "mathkit/symbolic/subs_manager.h"

#include <vector>

namespace symbolic {

/// The curve R(t) of a formula such as "5+sin(t)".
///
/// The formula is parsed, differentiated and compiled once; evaluation runs the compiled lists and
/// allocates nothing. It is always evaluated on one turn, 0 <= t < 2 pi: a formula that is not
/// 2 pi periodic gives a curve with a jump at phi = 0. Nothing checks that its values make a curve;
/// they may be negative, infinite or NaN.
///
/// The lists hold the address of `t`, so that an object can be neither copied nor moved. An
/// evaluation writes to `t` and to the stacks: one object serves one evaluation at a time.
class TSymbolicRadius : public TRadiusFunction {
public:
    postfix_list listR;                        ///< R
    postfix_list listdR;                       ///< R'
    postfix_list listddR;                      ///< R''
    postfix_list listN;                        ///< R^2 + 2 R'^2 - R R''
    mutable double t = 0;                      ///< the variable of the lists, in radians
    kit::string text;                          ///< the formula as entered
    mutable std::vector<double> stack;         ///< for eval_double
    mutable std::vector<diffarithm> diffstack; ///< for eval_diffarithm

    /// Throws TError, with a text for the user, if the formula cannot be parsed or is beyond the
    /// limits of symbolic/limits.h. Null counts as an empty text, which is no formula.
    explicit TSymbolicRadius(const char* formula);

    /// The same for a formula whose names, those of constants and functions too, are `names`.
    TSymbolicRadius(const char* formula, const subs_manager& names);
    TSymbolicRadius(const TSymbolicRadius&) = delete;
    TSymbolicRadius& operator=(const TSymbolicRadius&) = delete;

    double R(double phi) const override;
    double dR(double phi) const override;
    double ddR(double phi) const override;
    bool isConvex() const override { return false; } ///< not known of any formula
    double curvatureNumerator(double phi) const override;
    kit::string instanceText() const override;
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override;
    void derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                     double& ddr) const override;
    double curvature_at(double phi, double sin_phi, double cos_phi, double r,
                        double dr) const override;

    /// Radius and first derivative in one pass of forward differentiation over `listR`: a second
    /// way to the numbers of value_and_slope, for comparison. The bounce takes the first, which is
    /// faster.
    void getRdR(double phi, double& r, double& dr) const;

private:
    postfix_list listRdR;   ///< R and R' from one list, with sine and cosine of t given
    postfix_list list_bend; ///< R'' with them given
};

} // namespace symbolic
