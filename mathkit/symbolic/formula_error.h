// SPDX-License-Identifier: MIT
// What a formula's error texts have in common.
#pragma once

#include "mathkit/TError.h"

#include <string>
#include <string_view>

namespace symbolic {

/// A piece of a user's text that is safe to show: long text is shortened, and bytes that are not
/// printable ASCII appear as \xNN.
std::string shown(std::string_view text);

/// The error for a name that means nothing, with a hint where a known one is probably meant:
/// "unknown name 'sn' at column 3".
TError unknown_name(const std::string& name, int column);

/// The error for a function's name without the '(' that is missing at `column`.
TError missing_bracket(std::string_view name, int column);

/// The error for a function without arguments where a value is wanted.
TError missing_arguments(const char* name);

} // namespace symbolic
