// SPDX-License-Identifier: MIT
// The one exception class: what a user can cause and a user action catches.
#pragma once

#include "mathkit/kit_string.h"

/// A failure with a text for the user; thrown by value, caught by reference.
class TError {
public:
    explicit TError(const char* message) : message(message) {}
    explicit TError(const kit::string& message) : message(message) {}
    TError(const TError&) = default;
    TError& operator=(const TError&) = default;
    virtual ~TError() = default;

    /// What a message box shows.
    virtual kit::string text() const { return message; }

    /// Records where the error was found: the full signature of the function, the path of the
    /// source without its ending, and the line. Returns *this, so that it can stand in a throw.
    TError& setPosition(const char* function, const char* file, int line);

    kit::string message;  ///< the text for the user
    kit::string function; ///< empty until setPosition
    kit::string file;     ///< empty until setPosition
    int line = 0;         ///< 0 until setPosition
};
