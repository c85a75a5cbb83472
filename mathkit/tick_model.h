// SPDX-License-Identifier: MIT
// Where the ticks of a range lie and what stands beside them: short decimals, told truthfully.
#pragma once

#include "mathkit/kit_string.h"

#include <vector>

namespace kit {

/// A value that a tick stands for and the text that reads back as that value.
struct tick {
    double value;
    wstring label;
};

/// Ticks for the range low < high, shown on `pixels` pixels: ascending, at least two and at most
/// about twenty, all inside the range but for a rounding, a billionth of its width.
///
/// They lie at multiples of 1, 2 or 5 times a power of ten, at least thirty pixels apart where two
/// of them fit so. Where the doubles are too coarse for that they are doubles of the range; of a
/// range whose width is not finite or among the denormal numbers they are its two ends.
/// nice_ticks(0, 1, 300) are 0, 0.1, ..., 1; a range that ends at a multiple has a tick there.
std::vector<tick> nice_ticks(double low, double high, double pixels);

/// Rounds the ends of a range to multiples of a power of ten, a tenth to a hundredth of its width:
/// 0.16667 to 0.83333 becomes 0.17 to 0.83. Done twice it changes nothing more. Ends that are
/// equal, reversed or not finite stay, and so do ends further from zero than decimals reach.
void snap_range(double& lo, double& hi);

} // namespace kit
