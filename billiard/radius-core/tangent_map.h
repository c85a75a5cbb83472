// SPDX-License-Identifier: MIT
// How neighbouring paths part: the derivative of the bounce.
#pragma once

#include "mathkit/matrix2.h"

#include <cmath>

class TBilliard;
class TRadiusFunction;

/// The boundary where a path leaves it.
struct mirror {
    double x, y;
    double density;   ///< the arc length per radian of phi
    double curvature; ///< signed, positive where the curve bends as a convex table does
    double sin_alpha; ///< of the angle from the counter-clockwise tangent to the outgoing velocity
};

/// At the polar angle phi, with the angle alpha; radians.
mirror mirror_at(const TRadiusFunction& F, double phi, double alpha);

/// The same for the impact that the table's last findit gave, at the price of the curvature: the
/// rest is known. For any other numbers it is that of mirror_at.
mirror mirror_after_findit(const TBilliard& table, double phi, double alpha);

/// The straight way from one impact to the next, all that the tangent map of a bounce needs.
struct chord {
    double length;
    mirror from, to;

    chord(const mirror& from, const mirror& to)
        : length(std::sqrt((to.x - from.x) * (to.x - from.x) + (to.y - from.y) * (to.y - from.y))),
          from(from),
          to(to) {}
};

/// The derivative of (phi1, alpha1) by (phi, alpha). Its determinant is D sin(alpha) over
/// D1 sin(alpha1), D the density.
///
/// In arc length s and angle alpha, with l the length of the chord, K and K1 the curvatures at its
/// ends, a and a1 the sines of alpha and alpha1:
///
///     ds1/ds     = (l K - a) / a1             ds1/dalpha     = l / a1
///     dalpha1/ds = K1 (l K - a) / a1 - K      dalpha1/dalpha = l K1 / a1 - 1
///
/// Moving the start by ds shifts the path across itself by -a ds and rotates it by K ds + dalpha.
/// After the length l it is l (K ds + dalpha) - a ds beside itself, and meets the boundary as much
/// further on, divided by a1, where the tangent has rotated by K1 ds1 (M. V. Berry, Regularity and
/// chaos in classical mechanics, illustrated by three deformations of a circular 'billiard', Eur.
/// J. Phys. 2, 1981; N. Chernov and R. Markarian, Chaotic Billiards, 2006, chapter 2, where the
/// signs of curvature and angle are others).
///
/// Singular where alpha1 is 0 or pi: beside a path that grazes the boundary are paths that pass it
/// by, and the entries grow like 1 / a1 towards it. On a corner or a joint there are two
/// derivatives, one for each side; this is that of the side to which the curve gives the angle. No
/// derivative tells that of two neighbouring paths a corner or a bulge may catch only one.
matrix2 tangent_of_angles(const chord& path);

/// The same of (S1, P1) by (S, P), S the arc length over `circumference`, P = cos(alpha):
///
///     dS1/dS = (l K - a) / a1                    dS1/dP = -l / (L a a1)
///     dP1/dS = L (K a1 + K1 a - l K K1)          dP1/dP = (l K1 - a1) / a
///
/// Its determinant is 1: the bounce keeps areas of the section. Singular where either angle is 0
/// or pi.
matrix2 tangent_of_section(const chord& path, double circumference);
