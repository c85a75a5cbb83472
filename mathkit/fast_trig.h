// SPDX-License-Identifier: MIT
// The angle of a vector, short enough to be inlined where a bounce waits for it.
#pragma once

#include <cmath>
#include <numbers>

/// Does for the arc tangent what mathkit/sincos.h does for sine and cosine. The polynomial was
/// fitted to the function at Chebyshev nodes with fifty digits; its own error is below 1e-16 of the
/// value.
namespace fast_trig {

using std::numbers::pi;

/// The angle whose tangent is t, for |t| up to tan(pi/8).
inline double small_arc_tangent(double t) {
    const double z = t * t;
    const double zz = z * z;
    const double z4 = zz * zz;
    const double low = (-0.3333333333333333009 + z * 0.1999999999999543734) +
                       zz * (-0.1428571428464917351 + z * 0.111111110138606878);
    const double high = (-0.09090904521471690746 + z * 0.07692181876036845531) +
                        zz * (-0.06664492945806264124 + z * 0.05857988350245762191);
    const double top =
        (-0.05084610357631765136 + z * 0.03920743321261196149) + zz * -0.01914724896461176532;
    return t + t * z * (low + z4 * (high + z4 * top));
}

/// The angle of the vector (x, y) from the x axis, in [-pi, pi], as std::atan2 tells it.
inline double angle_of(double y, double x) {
    const double ax = std::fabs(x);
    const double ay = std::fabs(y);
    const double large = ax > ay ? ax : ay;
    const double small = ax > ay ? ay : ax;
    // Zeros, infinities, NaN, and products that would leave the range.
    if (!(large > 1e-290 && large < 1e290)) return std::atan2(y, x);
    const bool middle = small > 0.41421356237309503 * large;
    const double t = (middle ? small - large : small) / (middle ? small + large : large);
    double angle = small_arc_tangent(t) + (middle ? pi / 4 : 0.0);
    angle = ay > ax ? pi / 2 - angle : angle;
    angle = x < 0 ? pi - angle : angle;
    return std::copysign(angle, y);
}

} // namespace fast_trig
