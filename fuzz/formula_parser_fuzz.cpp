// SPDX-License-Identifier: MIT
// Fuzz target: any text, parsed and its names resolved. Refusals must be texts that a box can show.
#include "mathkit/TError.h"
#include "mathkit/symbolic/ex.h"
#include "mathkit/symbolic/limits.h"
#include "mathkit/symbolic/scanexpr.h"
#include "mathkit/symbolic/subs_manager.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

/// What an error may grow to, its quotes included.
constexpr std::size_t longest_error = 300;

bool is_fit_to_show(const TError& error) {
    const std::string text = error.text().c_str();
    return !text.empty() && text.size() <= longest_error &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const symbolic::subs_manager manager = [] {
        symbolic::subs_manager made;
        made.set_math_constants();
        made.set_experimental_functions();
        return made;
    }();
    const std::string text(reinterpret_cast<const char*>(data), size);
    try {
        const symbolic::ex formula =
            symbolic::scanexpr(text.c_str()).eval(manager.first, manager.second, -1);
        if (formula->depth() > symbolic::max_depth) __builtin_trap();
    } catch (const TError& error) {
        if (!is_fit_to_show(error)) __builtin_trap();
    }
    return 0;
}
