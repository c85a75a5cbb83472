// SPDX-License-Identifier: MIT
// The name that was probably meant.
#include "billiard/batch/nearest_name.h"

#include <algorithm>
#include <cstddef>

namespace batch {

namespace {

// Changes of letters from a to b, two swapped neighbours counted as one.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before(b.size() + 1), here(b.size() + 1), next(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        here[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        next[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = here[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            next[j] = std::min({here[j] + 1, next[j - 1] + 1, changed});
            const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (swapped) next[j] = std::min(next[j], before[j - 2] + 1);
        }
        before.swap(here);
        here.swap(next);
    }
    return here[b.size()];
}

} // namespace

std::string_view nearest_name(std::string_view typed, const std::vector<std::string_view>& names) {
    constexpr std::size_t longest = 64; // what is longer was no misspelt name
    std::string_view best;
    if (typed.size() > longest) return best;
    std::size_t least = (typed.size() + 2) / 3 + 1;
    for (const std::string_view name : names) {
        const std::size_t changes = distance(typed, name);
        if (changes >= least || changes >= name.size()) continue;
        least = changes;
        best = name;
    }
    return best;
}

std::string name_hint(std::string_view typed, const std::vector<std::string_view>& names) {
    const std::string_view near = nearest_name(typed, names);
    if (!near.empty()) return "; did you mean '" + std::string(near) + "'?";
    std::string all;
    for (const std::string_view name : names)
        all += (all.empty() ? "; known are " : ", ") + std::string(name);
    return all;
}

} // namespace batch
