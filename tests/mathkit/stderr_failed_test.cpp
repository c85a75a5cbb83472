// SPDX-License-Identifier: MIT
// The ways out for what must not happen, and the clock.
#include "mathkit/stderr_failed.h"

#include "mathkit/getMicroTime.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

namespace {

TEST(StderrFailedDeathTest, ReportsAllItWasTold) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(stderr_assert_failed("size()>0", "billiard/radius-core/TBilliard", 77,
                                      "void TBilliard::getborder(TRect&)"),
                 "billiard/radius-core/TBilliard:77: void TBilliard::getborder\\(TRect&\\): "
                 "assertion failed: size\\(\\)>0");
    EXPECT_DEATH(stderr_fatal_error("50%n", "a/b", 1, "void f()"), "a/b:1: void f.*: 50%n");
    EXPECT_DEATH(stderr_fatal_error(nullptr, "a/b", 1, "void f()"), "a/b:1: void f.*fatal error");
    // A sanitizer's allocator ends the process itself.
    EXPECT_DEATH(xrealloc(nullptr, SIZE_MAX / 4), "out of memory|AddressSanitizer");
}

TEST(Xrealloc, NeverGivesNull) {
    void* block = xrealloc(nullptr, 0);
    ASSERT_NE(block, nullptr);
    block = xrealloc(block, 100);
    static_cast<char*>(block)[99] = 1;
    block = xrealloc(block, 0);
    ASSERT_NE(block, nullptr);
    std::free(block);
}

TEST(GetMicroTime, CountsMicrosecondsForward) {
    const std::int64_t start = getMicroTime();
    std::int64_t now = start;
    for (int i = 0; i < 1000000 && now < start + 50; ++i) { // leaves the loop within 50 us
        const std::int64_t later = getMicroTime();
        ASSERT_GE(later, now);
        now = later;
    }
    EXPECT_GE(now, start + 50);
}

} // namespace
