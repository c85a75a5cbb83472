// SPDX-License-Identifier: MIT
// How neighbouring paths part: the derivative of the bounce.
#include "billiard/radius-core/tangent_map.h"

#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/trig.h"

mirror mirror_at(const TRadiusFunction& F, double phi, double alpha) {
    double s, c, r, dr;
    kit::sincos(phi, s, c);
    F.value_and_slope(phi, s, c, r, dr);
    return {r * c, r * s, std::sqrt(r * r + dr * dr), F.curvature_at(phi, s, c, r, dr),
            kit::sin(alpha)};
}

mirror mirror_after_findit(const TBilliard& table, double phi, double alpha) {
    const ray::departure& d = table.lastDeparture();
    if (!d.leads_to(phi, alpha)) return mirror_at(*table.F, phi, alpha);
    const double density = std::sqrt(d.r * d.r + d.dr * d.dr);
    // Of the tangent, to the new line.
    const double across = std::fabs(d.dr * cross(d.at, d.line) - d.r * dot(d.at, d.line));
    return {d.r * d.at.x, d.r * d.at.y, density,
            table.F->curvature_at(phi, d.at.y, d.at.x, d.r, d.dr), across / density};
}

matrix2 tangent_of_angles(const chord& path) {
    const double density = path.from.density, density1 = path.to.density;
    const double curvature = path.from.curvature, curvature1 = path.to.curvature;
    const double sine = path.from.sin_alpha, sine1 = path.to.sin_alpha;
    const double along = (path.length * curvature - sine) / sine1; // ds1/ds
    const double across = path.length / sine1;                     // ds1/dalpha
    return {density * along / density1, across / density1,
            density * (curvature1 * along - curvature), curvature1 * across - 1};
}

matrix2 tangent_of_section(const chord& path, double circumference) {
    const double l = path.length, whole = circumference;
    const double curvature = path.from.curvature, curvature1 = path.to.curvature;
    const double sine = path.from.sin_alpha, sine1 = path.to.sin_alpha;
    return {(l * curvature - sine) / sine1, -l / (whole * sine * sine1),
            whole * (curvature * sine1 + curvature1 * (sine - l * curvature)),
            (l * curvature1 - sine1) / sine};
}
