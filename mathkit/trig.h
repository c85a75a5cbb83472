// SPDX-License-Identifier: MIT
// Sine, cosine and the angle of a vector, that inline into a loop.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace kit {

// Notes: the library's functions are calls, and in a loop of small steps the call, its saved
// registers and its branches cost as much as the polynomial. fit_trig.py fits the factors and
// prints them with their errors, which are below a tenth of those of rounding.
//
// Sine and cosine: the reduction by pi/2 in two parts is exact for the quotients that occur up to
// sincos_limit; beyond it, and for NaN and infinity, the library answers. Both together are within
// 1e-16, for the remainder of the reduction has two parts as well; each alone is within 2e-16.
//
// Both together take two polynomials, which change places with the quadrant. One alone takes the
// one that the quadrant asks for; its factors are chosen instead of its value, for no branch could
// foresee the quadrant. The cosine of 0 is 1, and no value is beyond 1.

/// Arguments up to this size are reduced here.
inline constexpr double sincos_limit = 1e6;

namespace trig_detail {

/// Adding it moves the whole part of a number below 2^51 into the low bits of the sum.
inline constexpr double to_integer = 0x1.8p52;
inline constexpr double two_over_pi = 0x1.45f306dc9c883p-1;
/// The quarter turn in two parts; products of the first with 20 bits are exact.
inline constexpr double half_pi_high = 0x1.921fb544p+0;
inline constexpr double half_pi_low = 0x1.0b4611a626331p-34;

/// An argument less its quarter turns.
struct reduced_angle {
    double value;           ///< within pi/4 of 0
    double rest;            ///< what rounding has taken from it
    std::uint64_t quadrant; ///< in the two low bits
};

inline reduced_angle reduce(double x) {
    const double shifted = x * two_over_pi + to_integer;
    const double quotient = shifted - to_integer;
    const double near = x - quotient * half_pi_high;
    const double less = quotient * half_pi_low;
    const double value = near - less;
    return {value, (near - value) - less, std::bit_cast<std::uint64_t>(shifted)};
}

/// For |r| <= pi/4 and z = r^2 sine is r + r z (k[0] + k[1] z + ...), cosine 1 + z (...).
inline constexpr double factors[2][7] = {
    {-0.16666666666666666, 0.0083333333333333124, -0.00019841269841245414, 2.7557319210132808e-06,
     -2.505210401986664e-08, 1.6058268058263935e-10, -7.5743706724421915e-13},
    {-0.5, 0.041666666666666567, -0.0013888888888869656, 2.4801587287086338e-05,
     -2.7557313741930997e-07, 2.0875648676736986e-09, -1.135612502707575e-11}};

/// k[0] + z k[1] + ..., grouped for short chains of dependent operations.
inline double seven_terms(const double* k, double z) {
    const double w = z * z;
    const double high = (k[4] + z * k[5]) + w * k[6];
    return (k[0] + z * k[1]) + (w * (k[2] + z * k[3]) + (w * w) * high);
}

/// The sine of r + rest.
inline double small_sine(double r, double rest) {
    const double z = r * r;
    return r + ((r * z) * seven_terms(factors[0], z) + rest * (1 - 0.5 * z));
}

/// The cosine of r + rest. The upper part of r, a multiple of 2^-26, has an exact square, and 1
/// less half of that is exact too: all that is rounded is small.
inline double small_cosine(double r, double rest) {
    constexpr double split = 0x1.8p26;
    const double upper = (r + split) - split;
    const double lower = (r - upper) + rest;
    const double z = r * r;
    const double w = z * z;
    const double* k = factors[1];
    const double terms = (k[1] + z * k[2]) + w * ((k[3] + z * k[4]) + w * (k[5] + z * k[6]));
    return (1 - 0.5 * upper * upper) + (w * terms - 0.5 * lower * (r + upper));
}

/// Takes b in place of a where the lowest bit of `which` is set, without a branch: quadrants are
/// not predictable. Then changes the sign where `negate` has bit 1 set.
inline double select(double a, double b, std::uint64_t which, std::uint64_t negate) {
    const auto first = std::bit_cast<std::uint64_t>(a);
    const auto second = std::bit_cast<std::uint64_t>(b);
    const std::uint64_t mask = 0 - (which & 1);
    return std::bit_cast<double>((first ^ ((first ^ second) & mask)) ^ ((negate & 2) << 62));
}

/// The sine of x and `quadrants` quarter turns.
inline double shifted_sine(double x, std::uint64_t quadrants) {
    const reduced_angle angle = reduce(x);
    const double r = angle.value;
    const std::uint64_t quadrant = angle.quadrant + quadrants;
    const double* k = factors[quadrant & 1];
    const double first = select(r, 1.0, quadrant, 0);
    const double z = r * r;
    return select(first + first * z * seven_terms(k, z), 0, 0, quadrant);
}

/// The angle whose tangent is t, for |t| up to tan(pi/8).
inline double small_arc_tangent(double t) {
    const double z = t * t;
    const double zz = z * z;
    const double z4 = zz * zz;
    const double low = (-0.33333333333332765 + z * 0.19999999999866441) +
                       zz * (-0.14285714273382463 + z * 0.11111110503100116);
    const double high = (-0.090908908719661161 + z * 0.076919528876203944) +
                        zz * (-0.066620149211742433 + z * 0.058407139252302391);
    const double top =
        (-0.050097051015736874 + z * 0.037369911520974915) + zz * -0.017199402553928753;
    return t + t * z * (low + z4 * (high + z4 * top));
}

} // namespace trig_detail

/// The sine and the cosine of x, in radians.
inline void sincos(double x, double& sine, double& cosine) {
    using namespace trig_detail;
    if (!(std::fabs(x) <= sincos_limit)) {
        sine = std::sin(x);
        cosine = std::cos(x);
        return;
    }
    const reduced_angle angle = reduce(x);
    const double s = small_sine(angle.value, angle.rest);
    const double c = small_cosine(angle.value, angle.rest);
    sine = select(s, c, angle.quadrant, angle.quadrant);
    cosine = select(c, s, angle.quadrant, angle.quadrant + 1);
}

/// The sine of x, in radians.
inline double sin(double x) {
    if (!(std::fabs(x) <= sincos_limit)) return std::sin(x);
    return trig_detail::shifted_sine(x, 0);
}

/// The cosine of x, in radians.
inline double cos(double x) {
    if (!(std::fabs(x) <= sincos_limit)) return std::cos(x);
    return trig_detail::shifted_sine(x, 1);
}

/// The angle of the vector (x, y) from the x axis, in [-pi, pi], as std::atan2 tells it.
inline double angle_of(double y, double x) {
    using std::numbers::pi;
    const double ax = std::fabs(x);
    const double ay = std::fabs(y);
    const double large = ax > ay ? ax : ay;
    const double small = ax > ay ? ay : ax;
    // Zeros, infinities, NaN, and products that would leave the range.
    if (!(large > 1e-290 && large < 1e290)) return std::atan2(y, x);
    const bool middle = small > 0.41421356237309503 * large;
    const double t = (middle ? small - large : small) / (middle ? small + large : large);
    double angle = trig_detail::small_arc_tangent(t) + (middle ? pi / 4 : 0.0);
    angle = ay > ax ? pi / 2 - angle : angle;
    angle = x < 0 ? pi - angle : angle;
    return std::copysign(angle, y);
}

} // namespace kit
