// SPDX-License-Identifier: MIT
// The box of the pixels that a drawing covers.
#pragma once

#include <algorithm>
#include <climits>
#include <ostream>

/// Grows with each pixel; empty before the first.
struct ink_box {
    int left = INT_MAX, top = INT_MAX, right = INT_MIN, bottom = INT_MIN;

    void add(int x, int y) {
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
    bool empty() const { return left > right; }
    double middle_x() const { return (left + right) / 2.0; }
    double middle_y() const { return (top + bottom) / 2.0; }
    bool operator==(const ink_box&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const ink_box& b) {
    if (b.empty()) return out << "nothing";
    return out << b.left << "," << b.top << " to " << b.right << "," << b.bottom;
}
