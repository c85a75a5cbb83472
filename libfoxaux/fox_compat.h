// SPDX-License-Identifier: MIT
// Where releases of the toolkit differ, or trip a caller: one small helper for each such place.
#pragma once

#include <fx.h>

#include <algorithm>
#include <cwchar>

namespace fox_compat {

/// The text as the toolkit's text operations take it: UTF-8. A negative length means all of it.
inline FXString utf8(const wchar_t* text, int length = -1) {
    return FXString(text, length < 0 ? static_cast<FXint>(std::wcslen(text)) : length);
}

/// The dots per inch of the toolkit's letters, that is the pixels of a size of 72 points. The
/// toolkit tells them by its registry alone.
inline double dots_per_inch() {
    const FXuint set = FXApp::instance()->reg().readUnsignedEntry("SETTINGS", "screenres", 100);
    return std::max(set, 1U);
}

/// What `dc` draws on: drawArea wants a drawable, and a context hides its own.
inline const FXDrawable* drawable_of(const FXDCWindow* dc) {
    struct access : FXDCWindow {
        static const FXDrawable* surface_of(const FXDCWindow* dc) {
            return dc->*(&access::surface);
        }
    };
    return access::surface_of(dc);
}

/// Whether a coordinate survives the display's 16 bits; a larger one would wrap into the picture.
inline bool is_drawable_coordinate(int x) {
    return -32768 <= x && x <= 32767;
}

/// A second context, opened on another drawable while `outer` is open.
///
/// All contexts of a visual share one graphics context of the display. The second one starts with
/// the colour, function, width and clip of the first, and when it closes, what it has set goes back
/// to the defaults under the first. This one starts unclipped and copying, and gives the outer one
/// its state back.
class inner_dc {
    struct restorer {
        FXDCWindow* outer;
        FXRectangle clip;
        ~restorer() {
            outer->setForeground(outer->getForeground());
            outer->setBackground(outer->getBackground());
            outer->setFunction(outer->getFunction());
            outer->setLineWidth(outer->getLineWidth());
            outer->setClipRectangle(clip);
        }
    };

    restorer state; ///< before dc: it acts after the inner context has closed

public:
    FXDCWindow dc;

    inner_dc(FXDrawable* target, FXDCWindow* outer)
        : state{outer, outer->getClipRectangle()},
          dc(target) {
        dc.setFunction(BLT_SRC);
        dc.setClipRectangle(0, 0, target->getWidth(), target->getHeight());
    }
    inner_dc(const inner_dc&) = delete;
    inner_dc& operator=(const inner_dc&) = delete;
};

} // namespace fox_compat
