// SPDX-License-Identifier: MIT
// Vectors of length 1 in the plane, and how to rotate one so that its length stays 1.
#pragma once

#include "mathkit/trig.h"

/// A vector of length 1, but for rounding.
struct unit_vector {
    double x = 1, y = 0;
};

/// The sine of the angle from a to b.
inline double cross(unit_vector a, unit_vector b) {
    return a.x * b.y - a.y * b.x;
}

/// Its cosine.
inline double dot(unit_vector a, unit_vector b) {
    return a.x * b.x + a.y * b.y;
}

/// v rotated by an angle whose sine and versed sine, 1 - cosine, are given.
/// Where both are small, what is added to v is small, and its rounding is lost in
/// that of the sum: the length does not drift over many rotations.
inline unit_vector rotated(unit_vector v, double sine, double versine) {
    return {v.x - (v.y * sine + v.x * versine), v.y + (v.x * sine - v.y * versine)};
}

/// v brought back to length 1 from nearly that: one step of Newton's method,
/// which needs no root.
inline unit_vector at_length_1(unit_vector v) {
    const double lacks = 0.5 * ((1 - v.x) * (1 + v.x) - v.y * v.y);
    return {v.x + v.x * lacks, v.y + v.y * lacks};
}

/// v rotated by an angle; most steps of a search are so small that few terms are enough.
inline unit_vector rotated_by(unit_vector v, double angle) {
    const double z = angle * angle;
    if (z < 1e-6) {
        return rotated(v, angle - angle * z * (1.0 / 6), z * (0.5 - z * (1.0 / 24)));
    }
    if (!(z < 0.0025)) {
        double sine, cosine;
        kit::sincos(angle, sine, cosine);
        return rotated(v, sine, 1 - cosine);
    }
    // The series of sine and versed sine: angle (1 - z fall) and z rise.
    const double zz = z * z;
    const double fall = (1.0 / 6 - z * (1.0 / 120)) + zz * (1.0 / 5040);
    const double rise = (0.5 - z * (1.0 / 24)) + zz * (1.0 / 720 - z * (1.0 / 40320));
    return rotated(v, angle - angle * z * fall, z * rise);
}
