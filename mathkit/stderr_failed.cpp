// SPDX-License-Identifier: MIT
// The two ways out for what must not happen: both report on standard error and end the process.
#include "mathkit/stderr_failed.h"

#include <cstdio>
#include <cstdlib>

namespace {

const char* shown(const char* text) {
    return text ? text : "?";
}

} // namespace

void stderr_assert_failed(const char* expression, const char* file, int line,
                          const char* function) {
    std::fprintf(stderr, "%s:%d: %s: assertion failed: %s\n", shown(file), line, shown(function),
                 shown(expression));
    std::abort();
}

void stderr_fatal_error(const char* message, const char* file, int line, const char* function) {
    std::fprintf(stderr, "%s:%d: %s: fatal error%s%s\n", shown(file), line, shown(function),
                 message ? ": " : "", message ? message : "");
    std::abort();
}

void* xrealloc(void* pointer, std::size_t bytes) {
    // For 0 bytes the C library may free the block and give null.
    void* block = std::realloc(pointer, bytes ? bytes : 1);
    if (!block) {
        stderr_fatal_error("out of memory", "mathkit/stderr_failed", __LINE__,
                           "void* xrealloc(void*, std::size_t)");
    }
    return block;
}
