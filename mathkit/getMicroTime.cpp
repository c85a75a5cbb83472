// SPDX-License-Identifier: MIT
// The clock of the loop.
#include "mathkit/getMicroTime.h"

#include <chrono>

std::int64_t getMicroTime() {
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}
