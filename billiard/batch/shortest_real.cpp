// SPDX-License-Identifier: MIT
// Numbers of everyday size as text, twice as fast as the library does it.
//
// Notes: a double is m 2^e, and a text reads back to it that is off by less than half of 2^e. The
// general way to the shortest such text takes tables, as m 2^e 10^j can be thousands of bits long.
// In the range of this file it has 128, and all is exact. With 10^-j just below 2^e, a number of j
// decimals is always near enough, a number of j - 1 decimals may be, and is then the only one.
#include "billiard/batch/shortest_real.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace batch {

namespace {

char* put_any(char* at, double x) {
    return std::to_chars(at, at + longest_number, x).ptr;
}

#ifdef __SIZEOF_INT128__

__extension__ using wide = unsigned __int128;

constexpr int least_exponent = -61, most_exponent = -37;

constexpr int most_decimals = 19;

using power_table = std::array<std::uint64_t, most_decimals + 1>;

constexpr power_table make_powers_of_ten() {
    power_table powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = 10 * powers[i - 1];
    return powers;
}

constexpr power_table powers_of_ten = make_powers_of_ten();

// The shortest number of so many decimals.
struct decimal {
    std::uint64_t digits; // as a whole number, below 10^17; the last ones may be 0
    int decimals;         // 12 to most_decimals
};

// Of m 2^e. A power of 2 has a nearer neighbour below it, but in this range is itself as short.
decimal shortest_decimal(std::uint64_t m, int e) {
    const int decimals = (-e * 1233 >> 12) + 1; // -e log10(2), rounded up
    const std::uint64_t scale = powers_of_ten[static_cast<std::size_t>(decimals)];
    // In units of 2^(e - 1) 10^-j, of which `unit` are one of the last decimal.
    const int shift = 1 - e;
    const wide unit = wide{1} << shift;
    const std::uint64_t halves = 2 * m;
    const wide exact = wide{halves} * scale; // off by less than `scale` is near enough
    const auto whole = static_cast<std::uint64_t>(exact >> shift);
    const auto rest = static_cast<std::uint64_t>(exact & (unit - 1));

    const std::uint64_t ones = whole % 10;
    const wide above_ten = (wide{ones} << shift) + rest;
    const wide below_ten = 10 * unit - above_ten;
    const std::uint64_t ten = whole - ones + (above_ten < scale ? 0 : 10);
    const std::uint64_t nearest = whole + (rest + (whole & 1) > unit / 2 ? 1 : 0);
    return {above_ten < scale || below_ten < scale ? ten : nearest, decimals};
}

// A text of eight characters, the first one in the lowest byte.
constexpr std::uint64_t zeros = 0x3030303030303030;

// The eight digits of n as numbers, less the '0' of the text.
std::uint64_t eight_digits(std::uint64_t n) {
    const std::uint64_t fours = n / 10'000 | n % 10'000 << 32;
    const std::uint64_t hundreds = fours * 10'486 >> 20 & 0x7f'0000'007f;
    const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
    const std::uint64_t tens = twos * 103 >> 10 & 0x000f'000f'000f'000f;
    return tens | (twos - 10 * tens) << 8;
}

void put_eight(char* at, std::uint64_t digits) {
    const std::uint64_t text = digits | zeros;
    std::memcpy(at, &text, sizeof text);
}

// Writes all digits with three zeros before them, and copies from there what is to be seen. Without
// a branch that depends on the number: none of them would be foretold.
char* put_decimal(char* at, const decimal& x) {
    constexpr std::uint64_t eight = 100'000'000;
    constexpr int all = 20;
    const std::uint64_t front = x.digits / eight;
    const std::uint64_t middle = eight_digits(front % eight), end = eight_digits(x.digits % eight);
    const std::uint64_t begin = middle << 32 | front / eight << 24;
    char text[all + all];
    put_eight(text, begin);
    put_eight(text + 4, middle);
    put_eight(text + 12, end);

    const int point = all - x.decimals;
    const int first = std::min(std::countr_zero(begin | std::uint64_t{1} << 63) / 8, point - 1);
    int last = all - std::countl_zero(end | 1) / 8;
    if (last == all - 7) { // eight zeros or nearly: not all of them are seen yet
        last = all;
        while (last > point && text[last - 1] == '0')
            --last;
    }
    std::memcpy(at, text + first, 8);
    at += point - first;
    *at = '.';
    std::memcpy(at + 1, text + point, all);
    return last == point ? at : at + 1 + (last - point);
}

} // namespace

char* put_shortest(char* at, double x) {
    constexpr int mantissa_bits = 52, bias = 1075;
    constexpr std::uint64_t implied = std::uint64_t{1} << mantissa_bits;
    const auto bits = std::bit_cast<std::uint64_t>(x);
    const std::uint64_t mantissa = bits & (implied - 1);
    const int e = static_cast<int>(bits >> mantissa_bits & 0x7ff) - bias;
    const bool in_range = e >= least_exponent && e <= most_exponent;
    if (std::endian::native != std::endian::little || !in_range) return put_any(at, x);
    *at = '-';
    return put_decimal(at + (bits >> 63), shortest_decimal(mantissa | implied, e));
}

#else

} // namespace

char* put_shortest(char* at, double x) {
    return put_any(at, x);
}

#endif

} // namespace batch
