// SPDX-License-Identifier: MIT
// Where the ticks of a range lie and what stands beside them: short decimals, told truthfully.
#include "mathkit/tick_model.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <system_error>

namespace kit {

namespace {

constexpr double pixels_between_ticks = 30;
constexpr double most_intervals = 20;
// Numbers of steps from zero up to this fit a 64-bit integer, even times 5.
constexpr double most_steps = 1e18;
// Among the denormal numbers there are no decimals left to round to.
constexpr double narrowest = 1e-300;

// A step of 1, 2 or 5 times a power of ten.
struct decimal_step {
    int mantissa = 1;
    int exponent = 0;

    double value() const;
    double times(std::int64_t n) const;
    decimal_step finer() const;
    decimal_step coarser() const;
};

// The double nearest to n * 10^exponent. Read from its decimal form and not multiplied out: three
// steps of 0.1 are 0.3, not 0.30000000000000004. Beyond the doubles it is an infinity or 0.
double decimal(std::int64_t n, int exponent) {
    char text[48];
    char* end = std::to_chars(text, text + 24, n).ptr;
    *end++ = 'e';
    end = std::to_chars(end, text + sizeof text, exponent).ptr;
    double value = 0;
    if (std::from_chars(text, end, value).ec == std::errc()) return value;
    return exponent > 0 ? std::copysign(HUGE_VAL, static_cast<double>(n)) : 0;
}

double decimal_step::value() const {
    return decimal(mantissa, exponent);
}

double decimal_step::times(std::int64_t n) const {
    return decimal(n * mantissa, exponent);
}

decimal_step decimal_step::finer() const {
    if (mantissa == 5) return {2, exponent};
    if (mantissa == 2) return {1, exponent};
    return {5, exponent - 1};
}

decimal_step decimal_step::coarser() const {
    if (mantissa == 1) return {2, exponent};
    if (mantissa == 2) return {5, exponent};
    return {1, exponent + 1};
}

// The finest step of which at most `intervals` fit in `width`.
decimal_step step_for(double width, double intervals) {
    const double wanted = width / intervals;
    decimal_step step{1, static_cast<int>(std::floor(std::log10(wanted)))};
    // A hair of tolerance: for 0 to 1 in 10 intervals the step is 0.1, whatever the rounding.
    while (step.value() < wanted * (1 - 1e-9))
        step = step.coarser();
    return step;
}

// The multiples of a step inside the range, each double once.
std::vector<double> multiples(const decimal_step& step, double low, double high) {
    std::vector<double> values;
    const double size = step.value();
    const double first = low / size;
    const double last = high / size;
    if (!(size > 0 && std::fabs(first) < most_steps && std::fabs(last) < most_steps)) return values;
    // The quotients are off by rounding; ends that miss a multiple by that only still have it.
    const double slack = (high - low) * 1e-9;
    const double reach = 1 + std::ceil(std::max(std::fabs(first), std::fabs(last)) * 0x1p-51);
    const auto from = static_cast<std::int64_t>(std::floor(first) - reach);
    const auto to = static_cast<std::int64_t>(std::ceil(last) + reach);
    for (std::int64_t n = from; n <= to; ++n) {
        const double value = step.times(n);
        if (value < low - slack || value > high + slack) continue;
        if (values.empty() || value > values.back()) values.push_back(value);
    }
    return values;
}

std::vector<double> tick_values(double low, double high, double pixels) {
    if (!(high - low >= narrowest) || !std::isfinite(high - low)) return {low, high};
    const double intervals = std::clamp(pixels / pixels_between_ticks, 2.0, most_intervals);
    decimal_step step = step_for(high - low, intervals);
    for (int tries = 0; tries < 4; ++tries, step = step.finer()) {
        std::vector<double> values = multiples(step, low, high);
        if (values.size() >= 2) return values;
    }
    return {low, high};
}

// The shortest text that reads back as the value: "0", "-1", "0.25", "1e-17".
wstring shortest(double value) {
    char text[48];
    const auto result =
        std::to_chars(text, text + sizeof text, value + 0.0, std::chars_format::general);
    const std::wstring wide(text, result.ptr); // plain ASCII: widened byte by byte
    return {wide.c_str()};
}

} // namespace

std::vector<tick> nice_ticks(double low, double high, double pixels) {
    std::vector<tick> ticks;
    for (double value : tick_values(low, high, pixels))
        ticks.push_back({value, shortest(value)});
    return ticks;
}

void snap_range(double& lo, double& hi) {
    // A rounded range may lie just in the next decade; a few passes settle it.
    for (int pass = 0; pass < 4; ++pass) {
        const double width = hi - lo;
        if (!(width >= narrowest) || !std::isfinite(width)) return;
        const int exponent = static_cast<int>(std::floor(std::log10(width) + 1e-9)) - 1;
        const double size = decimal(1, exponent);
        const double first = std::rint(lo / size);
        const double last = std::rint(hi / size);
        // Further from zero than this the decimals are finer than the doubles themselves.
        if (!(size > 0 && std::fabs(first) < 0x1p53 && std::fabs(last) < 0x1p53)) return;
        const double new_lo = decimal(static_cast<std::int64_t>(first), exponent);
        const double new_hi = decimal(static_cast<std::int64_t>(last), exponent);
        if (!std::isfinite(new_lo) || !std::isfinite(new_hi)) return;
        if (new_lo == lo && new_hi == hi) return;
        lo = new_lo;
        hi = new_hi;
    }
}

} // namespace kit
