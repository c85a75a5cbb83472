// SPDX-License-Identifier: MIT
// Completion of the command line in a shell.
#pragma once

#include <string>

namespace batch {

/// A script that bash reads to complete verbs, curves, options and their values.
std::string bash_completion();

} // namespace batch
