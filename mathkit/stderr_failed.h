// SPDX-License-Identifier: MIT
// The two ways out for what must not happen: both report on standard error and end the process.
#pragma once

#include <cstddef>

/// Reports a broken internal rule and ends the process (by abort).
///
/// `expression` is the rule as text, `file` the path of the source without its ending, `line` its
/// line, `function` the full signature, as in "void FXComboBoxPopup::save_history()".
[[noreturn]] void stderr_assert_failed(const char* expression, const char* file, int line,
                                       const char* function);

/// Ends the process by stderr_assert_failed unless the rule holds. The line is the caller's.
inline void stderr_assert(bool holds, const char* expression, const char* file,
                          const char* function, int line = __builtin_LINE()) {
    if (!holds) stderr_assert_failed(expression, file, line, function);
}

/// Reports what the program cannot go on from and ends the process (by abort). `message` may be
/// null; the other arguments are those of stderr_assert_failed.
[[noreturn]] void stderr_fatal_error(const char* message, const char* file, int line,
                                     const char* function);

/// `realloc` that never gives null: a failed allocation ends the process.
void* xrealloc(void* pointer, std::size_t bytes);
