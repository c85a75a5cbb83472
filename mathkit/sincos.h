// SPDX-License-Identifier: MIT
// Sine and cosine that inline into a loop.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace kit {

// Notes: the library's functions are calls, and in a loop of small steps the call, its saved
// registers and its branches cost as much as the polynomial. The reduction by pi/2 in two parts is
// exact for the quotients that occur up to sincos_limit; beyond it, and for NaN and infinity, the
// library answers. Errors stay near one unit in the last place of 1.
//
// Both together take two polynomials, which change places with the quadrant. One alone takes the
// one that the quadrant asks for; its factors are chosen instead of its value, for no branch could
// foresee the quadrant. The cosine of 0 is 1, and no value is beyond 1.

/// Arguments up to this size are reduced here.
inline constexpr double sincos_limit = 1e6;

namespace sincos_detail {

/// Adding it moves the whole part of a number below 2^51 into the low bits of the sum.
inline constexpr double to_integer = 0x1.8p52;
inline constexpr double two_over_pi = 0x1.45f306dc9c883p-1;
inline constexpr double half_pi_high =
    0x1.921fb544p+0; ///< 33 bits: products with 20 bits are exact
inline constexpr double half_pi_low = 0x1.0b4611a626331p-34;

/// The remainder of x by pi/2, within pi/4 of 0, and the quadrant in the two low bits.
inline double reduce(double x, std::uint64_t& quadrant) {
    const double shifted = x * two_over_pi + to_integer;
    quadrant = std::bit_cast<std::uint64_t>(shifted);
    const double quotient = shifted - to_integer;
    return (x - quotient * half_pi_high) - quotient * half_pi_low;
}

/// The minimax polynomials of fdlibm, for |r| <= pi/4 and z = r^2: sine is r + r z (...), cosine
/// 1 + z (...).
inline constexpr double kernel_factors[2][7] = {
    {-1.66666666666666324348e-01, 8.33333333332248946124e-03, -1.98412698298579493134e-04,
     2.75573137070700676789e-06, -2.50507602534068634195e-08, 1.58969099521155010221e-10, 0},
    {-0.5, 4.16666666666666019037e-02, -1.38888888888741095749e-03, 2.48015872894767294178e-05,
     -2.75573143513906633035e-07, 2.08757232129817482790e-09, -1.13596475577881948265e-11}};

/// k[0] + z k[1] + ... + z^5 k[5], grouped for short chains of dependent operations.
inline double kernel_sum(const double* k, double z) {
    const double w = z * z;
    const double low = k[0] + z * k[1];
    const double middle = k[2] + z * k[3];
    const double high = k[4] + z * k[5];
    return low + w * (middle + w * high);
}
inline double sine_kernel(double r) {
    const double z = r * r;
    return r + (r * z) * kernel_sum(kernel_factors[0], z);
}
inline double cosine_kernel(double r) {
    const double z = r * r;
    const double half = 0.5 * z;
    const double rest = 1.0 - half;
    return rest + (((1.0 - rest) - half) + z * z * kernel_sum(kernel_factors[1] + 1, z));
}

/// Takes b in place of a where the lowest bit of `which` is set, without a branch: quadrants are
/// not predictable. Then turns the sign where `turn` has bit 1 set.
inline double select(double a, double b, std::uint64_t which, std::uint64_t turn) {
    const auto first = std::bit_cast<std::uint64_t>(a);
    const auto second = std::bit_cast<std::uint64_t>(b);
    const std::uint64_t mask = 0 - (which & 1);
    return std::bit_cast<double>((first ^ ((first ^ second) & mask)) ^ ((turn & 2) << 62));
}

/// The sine of x and `quadrants` quarter turns.
inline double turned_sine(double x, std::uint64_t quadrants) {
    std::uint64_t quadrant;
    const double r = reduce(x, quadrant);
    quadrant += quadrants;
    const double* k = kernel_factors[quadrant & 1];
    const double first = select(r, 1.0, quadrant, 0);
    const double z = r * r;
    const double w = z * z;
    const double low = (k[0] + z * k[1]) + w * (k[2] + z * k[3]);
    const double high = (k[4] + z * k[5]) + w * k[6];
    return select(first + first * z * (low + w * w * high), 0, 0, quadrant);
}

} // namespace sincos_detail

/// The sine and the cosine of x, in radians.
inline void sincos(double x, double& sine, double& cosine) {
    using namespace sincos_detail;
    if (!(std::fabs(x) <= sincos_limit)) {
        sine = std::sin(x);
        cosine = std::cos(x);
        return;
    }
    std::uint64_t quadrant;
    const double r = reduce(x, quadrant);
    const double s = sine_kernel(r);
    const double c = cosine_kernel(r);
    sine = select(s, c, quadrant, quadrant);
    cosine = select(c, s, quadrant, quadrant + 1);
}

/// The sine of x, in radians.
inline double sin(double x) {
    if (!(std::fabs(x) <= sincos_limit)) return std::sin(x);
    return sincos_detail::turned_sine(x, 0);
}

/// The cosine of x, in radians.
inline double cos(double x) {
    if (!(std::fabs(x) <= sincos_limit)) return std::cos(x);
    return sincos_detail::turned_sine(x, 1);
}

} // namespace kit
