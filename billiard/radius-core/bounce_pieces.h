// SPDX-License-Identifier: MIT
// The bounce on curves with inflections: the walk over the pieces between them. A part of
// bounce.cpp, which includes it and nobody else: it is to be inlined there.
#pragma once

#include "billiard/radius-core/bounce.h"
#include "mathkit/bsearch.h"
#include "mathkit/trig.h"

#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>

namespace ray {

// Narrows the ends of the way to those of the first piece between inflections that holds an impact.
// One of both ends may lie on the line, and then is the impact.
inline refusal bounce::first_piece(spot& inside, spot& outside) const {
    const auto size = std::ssize(inflections);
    const int interval =
        bsearch_interval(static_cast<unsigned>(size), inside.theta, inflections.data());
    if (interval < 0 || interval >= size - 1) return refusal::outside_list;

    const spot far_end = outside;
    for (std::ptrdiff_t entry = dir > 0 ? interval + 1 : interval;; entry += dir) {
        const auto i = static_cast<std::size_t>(entry); // -1 becomes larger than any size
        const bool is_last = !(i < inflections.size() && before(inflections[i], far_end.theta));
        // An entry may stand twice, or the start may have been rounded onto it: no piece at all.
        if (!is_last && !before(inside.theta, inflections[i])) continue;
        outside = is_last ? far_end : piece_end(i);
        if (inside.beyond == 0 || outside.beyond <= 0) return refusal::none;
        if (!(outside.beyond > 0)) return refusal::no_number;

        if (may_leave_between(inside, outside, bends_of(dir > 0 ? entry - 1 : entry))) {
            if (const std::optional<spot> near = stationary_between(inside, outside)) {
                if (!(near->beyond == near->beyond)) return refusal::stationary_point;
                if (near->beyond <= 0) {
                    outside = *near;
                    return refusal::none;
                }
            }
        }
        if (is_last) return refusal::no_number; // not reached: the far end is outside
        inside = outside;
    }
}

// Both ends are inside. A boundary that bends left, towards the origin's side, cannot cross the
// line between two such points. Where it bends right the path may have left the table and come
// back, around a point where the distance along the ray is stationary.
inline bool bounce::may_leave_between(const spot& u, const spot& e, int bends) const {
    if (bends > 0 || !(slope_of_distance(u) * slope_of_distance(e) <= 0)) return false;
    return !(bends < 0 && arc_stays_inside(u, e));
}

// The slope by theta of R - distance / across, times across^2, which is positive.
inline double bounce::slope_of_distance(const spot& p) const {
    return p.dr * p.across * p.across - distance * p.along;
}

// An arc that bends one way lies in the triangle of its chord and its end tangents. Where all three
// corners are inside, so is the arc, and no stationary point need be searched. Coordinates run
// along the line and across it; nothing is divided.
inline bool bounce::arc_stays_inside(const spot& u, const spot& e) const {
    const double ux = u.dr * u.along + u.r * u.across; // the tangents, per radian
    const double uy = u.dr * u.across - u.r * u.along;
    const double ex = e.dr * e.along + e.r * e.across;
    const double ey = e.dr * e.across - e.r * e.along;
    const double dx = e.r * e.along - u.r * u.along; // the chord
    const double dy = e.beyond - u.beyond;
    const double cross = ux * ey - uy * ex;
    const double from_u = dx * ey - dy * ex; // way to the meeting point, times cross
    const double from_e = ux * dy - uy * dx;
    const bool ahead = dir * from_u * cross > 0 && dir * from_e * cross > 0;
    return ahead && (u.beyond * cross + from_u * uy) * cross > 0;
}

// The point where the distance along the ray is stationary; none where the slopes at u and e differ
// in sign by rounding alone.
inline std::optional<bounce::spot> bounce::stationary_between(const spot& u, const spot& e) const {
    const double psi = start.theta + kit::angle_of(start.across, start.along);
    TFindExt extremum(&curve, distance, psi);
    double a = u.theta;
    double b = e.theta;
    const double theta = extremum.safe_newton(a, b, 1e-14);
    if (theta != theta) return {};
    unit_vector at;
    kit::sincos(theta, at.y, at.x);
    spot p = seen(theta, at);
    kit::sincos(psi - theta, p.across, p.along); // and not by the vectors: across may be 1 exactly
    look(p);
    return p;
}

// Radius and slope at the inflections are constants of the curve, and so the ends of the pieces
// cost no evaluation.
inline bounce::spot bounce::piece_end(std::size_t entry) const {
    const double theta = inflections[entry];
    if (entry >= knots.size() || knots[entry].theta != theta) {
        unit_vector at;
        kit::sincos(theta, at.y, at.x);
        spot p = seen(theta, at);
        look(p);
        return p;
    }
    const inflection_knot& knot = knots[entry];
    spot p = seen(theta, knot.at);
    p.r = knot.r;
    p.dr = knot.dr;
    p.beyond = p.r * p.across - distance;
    return p;
}

// How the piece from this entry to the next bends, as inflection_knot has it; 0, unknown, where the
// knots are not those of the list.
inline int bounce::bends_of(std::ptrdiff_t interval) const {
    const auto i = static_cast<std::size_t>(interval);
    if (i >= knots.size() || knots.size() != inflections.size()) return 0;
    return knots[i].theta == inflections[i] ? knots[i].bends : 0;
}

} // namespace ray
