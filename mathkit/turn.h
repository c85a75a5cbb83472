// SPDX-License-Identifier: MIT
// Angles less their whole turns.
#pragma once

#include <cmath>
#include <numbers>

namespace kit {

/// A whole turn, in radians.
constexpr double two_pi = 2 * std::numbers::pi;

/// phi less its whole turns, in radians: in [0, 2 pi] but for rounding, which may leave it very
/// slightly below 0, and which a curve with a corner at the seam must tell from 0. Angles far out,
/// where neighbouring doubles are turns apart, give anything; NaN and infinities give NaN.
///
/// A bounce comes with at most one turn too many on either side, and these need no division; which
/// of them it is cannot be predicted, and so it is no branch either.
inline double reduced(double phi) {
    if (std::fabs(phi - std::numbers::pi) < 1.5 * two_pi) {
        const double down = phi >= two_pi ? two_pi : 0.0;
        const double up = phi < 0 ? two_pi : 0.0;
        return (phi - down) + up;
    }
    return phi - two_pi * std::floor(phi / two_pi);
}

/// The same in [0, 2 pi), with 0 in place of what lies outside; NaN stays NaN.
inline double wrapped(double phi) {
    const double u = reduced(phi);
    return u < 0 || u >= two_pi ? 0.0 : u;
}

} // namespace kit
