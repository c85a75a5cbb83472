// SPDX-License-Identifier: MIT
// The rows of an orbit as text.
#include "billiard/batch/orbit_rows.h"

#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/trig.h"

#include <cmath>

namespace batch {

orbit_rows::orbit_rows(TBilliardMap& map, std::int64_t orbit, std::string& text)
    : map(map),
      text(text),
      after_orbit(put_count(row, orbit)) {
    *after_orbit++ = ',';
}

void orbit_rows::add_start(const start& from) {
    place = plane_point_of(from.phi);
    append(0, from, 0);
}

void orbit_rows::add(std::int64_t bounce, const phase_point& at) {
    start of_section{0, 0, at.phi, at.alpha};
    map.setPhiAlpha(at.phi, at.alpha);
    map.getPoint(of_section.S, of_section.P);
    const plane_point before = place;
    place = plane_point_of(at.phi);
    append(bounce, of_section, std::hypot(place.x - before.x, place.y - before.y));
}

orbit_rows::plane_point orbit_rows::plane_point_of(double phi) const {
    double sine, cosine, r, dr;
    kit::sincos(phi, sine, cosine);
    map.F->value_and_slope(phi, sine, cosine, r, dr);
    return {r * cosine, r * sine};
}

void orbit_rows::append(std::int64_t bounce, const start& at, double length) {
    char* end = put_count(after_orbit, bounce);
    for (const double x : {at.S, at.P, at.phi, at.alpha, place.x, place.y, length}) {
        *end++ = ',';
        end = put_real(end, x);
    }
    *end++ = '\n';
    text.append(row, end);
}

} // namespace batch
