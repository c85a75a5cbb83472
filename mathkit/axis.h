// SPDX-License-Identifier: MIT
// The model of a plot's axis: where its ticks lie and what stands beside them.
#pragma once

#include "mathkit/kit_string.h"

#include <vector>

namespace kit {

/// Ticks and labels in screen pixels, filled by TMapW2S::a_model_4 and drawn by fox_axis.
struct axis {
    std::vector<int> ticks;           ///< pixels along the axis; index 0 is the low world end
    std::vector<int> extra;           ///< for plots with ticks of a second kind; empty here
    std::vector<kit::wstring> labels; ///< labels[i] belongs to ticks[i]
    kit::wstring title;
};

} // namespace kit
