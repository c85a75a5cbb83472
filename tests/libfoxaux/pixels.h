// SPDX-License-Identifier: MIT
// The pixels of pictures and windows.
#pragma once

#include "tests/ink_box.h"
#include "tests/libfoxaux/application.h"

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

namespace window_test {

constexpr FXColor black = 0xff000000, white = 0xffffffff, red = 0xff0000ff;

/// A picture's pixels as they are now, row by row, in the order of FXColor with the alpha set.
class pixels {
public:
    explicit pixels(FXImage* image) : w(image->getWidth()), h(image->getHeight()) {
        image->restore();
        values.assign(image->getData(), image->getData() + static_cast<std::size_t>(w) * h);
        image->release();
    }

    FXColor at(int x, int y) const { return values[static_cast<std::size_t>(y) * w + x]; }

    /// Red, green, blue, alpha of each pixel.
    std::string bytes() const {
        return {reinterpret_cast<const char*>(values.data()), 4 * values.size()};
    }

    /// How many pixels have the colour.
    int count(FXColor color) const {
        return static_cast<int>(std::count(values.begin(), values.end(), color));
    }

    /// How far the pixels of a colour reach within a part of the picture, its ends included.
    ink_box box_of(FXColor color, int x1 = 0, int y1 = 0, int x2 = INT_MAX,
                   int y2 = INT_MAX) const {
        ink_box box;
        for (int y = y1; y <= std::min(y2, h - 1); ++y)
            for (int x = x1; x <= std::min(x2, w - 1); ++x)
                if (at(x, y) == color) box.add(x, y);
        return box;
    }

    bool operator==(const pixels&) const = default;

private:
    int w, h;
    std::vector<FXColor> values;
};

/// The pixels that a window shows now, which must lie on the screen uncovered.
inline pixels screen_of(FXWindow* window) {
    app().flush(true);
    FXImage copy(&app(), nullptr, 0, window->getWidth(), window->getHeight());
    copy.create();
    FXDCWindow(&copy).drawArea(window, 0, 0, window->getWidth(), window->getHeight(), 0, 0);
    return pixels(&copy);
}

} // namespace window_test
