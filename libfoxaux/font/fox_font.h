// SPDX-License-Identifier: MIT
// A plot font of the toolkit's fonts, with a cache of sizes and text that reads upward.
#pragma once

#include "mathkit/base_font.h"
#include "mathkit/kit_string.h"

#include <fx.h>

#include <cstdint>
#include <list>
#include <map>

/// Draws with the toolkit's fonts on an FXDCWindow.
///
/// Text that reads upward is drawn lying down, on a rotated copy of the picture, which is then
/// rotated back. Only the rotations 0 and pi/2 can be drawn; another one ends the process.
class fox_font : public base_font {
public:
    FXFontDesc desc;                         ///< the wanted font; its size in deci-points
    FXFont* current = nullptr;               ///< the font in use, owned through font_map
    std::map<kit::string, FXFont*> font_map; ///< every font made and not yet evicted, by key; owned
    std::list<kit::string> allocated;        ///< the same keys, oldest first
    std::int32_t allocated_count = 0;        ///< entries of `allocated`

    /// Takes the application's normal font. Throws TError if the display has no font at all.
    fox_font();
    ~fox_font() override;

    /// Uses the font that `d` describes, from the cache if it is there. A font that cannot be made
    /// (an empty face name) leaves the present one in use.
    void setFont(FXFontDesc& d);

    /// The same for callers that have a font and no description; `font` itself stays theirs.
    void setFont(FXFont* font);

    /// Takes any number: one that is no usable size is brought into the range of usable_size.
    void setsize(double points) override;

    /// Takes any angle and reduces it to [-pi, pi); close to 0 and pi/2 it becomes exactly that.
    void setrot(double radians) override;

    void setsizerot(double points, double radians) override;
    void drawText(int x, int y, const wchar_t* text, int length) override;
    using base_font::drawText;

private:
    FXFont* make_font();
    void evict_oldest();
    void draw_upward(int x, int y, const FXString& text, int width);
};
