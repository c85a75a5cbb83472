// SPDX-License-Identifier: MIT
// The one exception class: what a user can cause and a user action catches.
#include "mathkit/TError.h"

TError& TError::setPosition(const char* function_, const char* file_, int line_) {
    function = function_;
    file = file_;
    line = line_;
    return *this;
}
