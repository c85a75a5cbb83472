// SPDX-License-Identifier: MIT
// Places top-level windows on the screen.
#pragma once

#include "mathkit/TRect.h"

/// The whole root window in screen pixels, from which a window's rectangle is cut; y1 is its
/// upper edge. The application must stand and be created.
class layout_root : public TRect {
public:
    layout_root();

    /// Moves the upper edge down by `pixels`; a rectangle too low for that stays as it is.
    void lower_top(double pixels);
};
