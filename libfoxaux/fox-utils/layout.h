// SPDX-License-Identifier: MIT
// Places top-level windows on the screen, and sizes what stands in them.
#pragma once

#include "mathkit/TRect.h"

#include <fx.h>

/// The area in screen pixels from which a window's rectangle is cut; y1 is its upper edge. It is
/// the whole root window or, where there are several monitors, one of them. The application must
/// have been created.
class layout_root : public TRect {
public:
    /// The monitor that holds the pointer.
    layout_root();

    /// The monitor that holds the pixel (x, y) of the root window.
    layout_root(FXint x, FXint y);

    /// Moves the upper edge down by `pixels`; a rectangle too low for that stays as it is.
    void lower_top(double pixels);
};

/// `pixels`, a length that suits the toolkit's usual font, 9 points at 100 dots per inch, enlarged
/// in the same proportion as the application's normal font is larger; never made smaller.
FXint grown(FXint pixels);

/// Places a window that is about to be shown by PLACEMENT_OWNER or another placement of the
/// toolkit, but on one monitor only, and no larger than this monitor less a title and a border.
/// Then show it by PLACEMENT_DEFAULT, which leaves it there.
void place_on_monitor(FXTopWindow& window, FXuint placement);
