// SPDX-License-Identifier: MIT
// How neighbouring paths part: the derivative of the bounce.
#include "billiard/radius-core/tangent_map.h"

#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/trig.h"

#include <cmath>

namespace {

struct spot {
    double x, y;
    chord_end end;
};

spot spot_at(const TRadiusFunction& F, double phi, double alpha) {
    double s, c, r, dr;
    kit::sincos(phi, s, c);
    F.value_and_slope(phi, s, c, r, dr);
    const double density = std::sqrt(r * r + dr * dr);
    return {r * c, r * s, {density, F.curvature_at(phi, s, c, r, dr), std::sin(alpha)}};
}

} // namespace

chord chord_between(const TRadiusFunction& F, double phi, double alpha, double phi1,
                    double alpha1) {
    const spot from = spot_at(F, phi, alpha);
    const spot to = spot_at(F, phi1, alpha1);
    return {std::hypot(to.x - from.x, to.y - from.y), from.end, to.end};
}

matrix2 tangent_of_angles(const chord& path) {
    const auto& [density, curvature, sine] = path.from;
    const auto& [density1, curvature1, sine1] = path.to;
    const double along = (path.length * curvature - sine) / sine1; // ds1/ds
    const double across = path.length / sine1;                     // ds1/dalpha
    return {density * along / density1, across / density1,
            density * (curvature1 * along - curvature), curvature1 * across - 1};
}

matrix2 tangent_of_section(const chord& path, double circumference) {
    const double l = path.length, whole = circumference;
    const auto& [density, curvature, sine] = path.from;
    const auto& [density1, curvature1, sine1] = path.to;
    return {(l * curvature - sine) / sine1, -l / (whole * sine * sine1),
            whole * (curvature * sine1 + curvature1 * (sine - l * curvature)),
            (l * curvature1 - sine1) / sine};
}
