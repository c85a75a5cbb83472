// SPDX-License-Identifier: MIT
// Where a bounce looks first for its impact. A part of bounce.cpp, which includes it and nobody
// else: it is to be inlined there.
#pragma once

#include "billiard/radius-core/bounce.h"
#include "mathkit/trig.h"

#include <cmath>

namespace ray {

// Where the search looks first. The squares of a guess may leave the range of doubles, and then its
// vector is not of length 1: the middle between both ends takes its place.
inline bounce::spot bounce::first_guess(const spot& inside, const spot& outside) const {
    const spot p = convex ? conic_guess(outside) : conic_between(inside, outside);
    const bool sound = std::fabs(dot(p.at, p.at) - 1) < 1e-9;
    if (sound && between(inside.theta, p.theta, outside.theta)) return p;
    return moved(inside,
                 0.5 * kit::angle_of(cross(inside.at, outside.at), dot(inside.at, outside.at)));
}

// In polar form 1/R of a straight line, of a circle about the origin and of any conic with its
// focus there is A + B cos + C sin. One such conic has the curve's radius and slope at the start
// and its radius at the far end; this is where the line meets it again.
inline bounce::spot bounce::conic_guess(const spot& far_end) const {
    // 1/R of the conic less 1/R of the line is 0 at the start, and so at an angle x from there it
    // is a multiple of sin(x/2) (n cos(x/2) - m sin(x/2)): n / m is the tangent of half the way.
    // Sine and cosine here are those of the pole; the far end is near enough to it.
    const double sin_far = dir * start.across;
    const double cos_far = dir * start.along;
    const double r = far_end.r;
    const double n = (start.dr * start.across - start.r * start.along) * (1 - cos_far) * r;
    const double m =
        start.across * (start.r * start.r - (start.r * cos_far - start.dr * sin_far) * r);
    const double scale = 2 * n / (n * n + m * m);
    return seen(start.theta + 2 * kit::angle_of(n, m), rotated(start.at, m * scale, n * scale));
}

// The same from one point to another, with the slope of the first: the conic meets the line where a
// quadratic equation for the tangent of half the angle has its roots.
inline bounce::spot bounce::conic_between(const spot& u, const spot& e) const {
    const double cos_e = dot(u.at, e.at);
    const double sin_e = cross(u.at, e.at);
    // 1/R of the conic less 1/R of the line, as a + p cos + q sin of the angle from u.
    const double inverse_u = 1 / u.r;
    const double conic_sin = -u.dr * inverse_u * inverse_u;
    const double conic_cos = (1 / e.r - inverse_u - conic_sin * sin_e) / (cos_e - 1);
    const double a = inverse_u - conic_cos;
    const double p = conic_cos - u.across / distance;
    const double q = conic_sin + u.along / distance;
    const double root = std::sqrt(q * q - (a - p) * (a + p));
    const double sum = -(q + std::copysign(root, q));
    double n = sum;
    double m = a - p;
    const double other = a + p;
    // Of n / m and other / n the one on the way from u to e.
    const double half = sin_e / (1 + cos_e);
    const double t1 = n / m;
    if (!(dir > 0 ? t1 > 0 && t1 < half : t1 < 0 && t1 > half)) {
        n = other;
        m = sum;
    }
    if (m < 0) {
        n = -n;
        m = -m;
    }
    const double scale = 2 * n / (n * n + m * m);
    return seen(u.theta + 2 * kit::angle_of(n, m), rotated(u.at, m * scale, n * scale));
}

} // namespace ray
