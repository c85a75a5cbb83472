// SPDX-License-Identifier: MIT
// The clock of the loop.
#pragma once

#include <cstdint>

/// Microseconds of a clock that never runs backward; its zero is arbitrary.
std::int64_t getMicroTime();
