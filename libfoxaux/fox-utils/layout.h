// SPDX-License-Identifier: MIT
// Places top-level windows on the screen, and sizes what stands in them.
#pragma once

#include "mathkit/TRect.h"

#include <fx.h>

/// The whole root window in screen pixels, from which a window's rectangle is cut; y1 is its
/// upper edge. The application must stand and be created.
class layout_root : public TRect {
public:
    layout_root();

    /// Moves the upper edge down by `pixels`; a rectangle too low for that stays as it is.
    void lower_top(double pixels);
};

/// A length in pixels that suits the toolkit's usual font, 9 points at 100 dots per inch: longer in
/// the proportion in which the letters of the application's normal font are larger, never shorter.
FXint grown(FXint pixels);

/// Makes a window smaller that is larger than the screen can show together with title and border.
void fit_to_screen(FXTopWindow& window);
