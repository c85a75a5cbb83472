// SPDX-License-Identifier: MIT
// The name that was probably meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace batch {

/// The one of `names` that takes the fewest changed, missing, surplus or swapped letters to become
/// `typed`; empty where that would be more than a third of them.
std::string_view nearest_name(std::string_view typed, const std::vector<std::string_view>& names);

/// The end of an error text: "; did you mean 'c'?", or all names where none is near.
std::string name_hint(std::string_view typed, const std::vector<std::string_view>& names);

} // namespace batch
