// SPDX-License-Identifier: MIT
// The texts of --help and --version.
#pragma once

#include <string>
#include <string_view>

namespace batch {

/// The name and the version, as --version and the first line of the rows tell them.
inline constexpr const char* program_version = "billiard-batch " BILLIARD_VERSION;

std::string program_help();
std::string verb_help(std::string_view verb);

} // namespace batch
