// SPDX-License-Identifier: MIT
// Fuzz target: any text as a curve, its table, and 200 bounces in it.
#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/TSymbolicRadius.h"
#include "mathkit/TError.h"

#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>

namespace {

constexpr int bounces = 200;

void check(bool holds) {
    if (!holds) __builtin_trap();
}

/// Follows one orbit to its end or to its error; an impact that is given must be one.
void follow(TBilliardMap& map) {
    double s = 0, p = 0;
    try {
        for (int i = 0; i < bounces; ++i) {
            map.iterate();
            check(map.phi >= 0 && map.phi < 2 * std::numbers::pi);
            check(map.alpha >= 0 && map.alpha < std::numbers::pi);
            map.getPoint(s, p);
        }
    } catch (const TError&) {
        map.getPoint(s, p); // the point before the error is still there
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    try {
        TBilliardMap map(new symbolic::TSymbolicRadius(text.c_str()));
        if (map.setPoint(0.5, 0.5)) follow(map);
        if (map.setPoint(0.1, -0.999)) follow(map);
    } catch (const TError&) { // the text is no formula
        return 0;
    }
    return 0;
}
