// SPDX-License-Identifier: MIT
// The rows of an orbit as text.
#include "billiard/batch/orbit_rows.h"

#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/trig.h"

#include <cmath>

namespace batch {

impact impact_of(const TBilliardMap& map) {
    const ray::departure& known = map.lastDeparture();
    if (known.leads_to(map.phi, map.alpha)) {
        return {{map.phi, map.alpha}, known.r * known.at.x, known.r * known.at.y};
    }
    double sine, cosine, r, dr;
    kit::sincos(map.phi, sine, cosine);
    map.F->value_and_slope(map.phi, sine, cosine, r, dr);
    return {{map.phi, map.alpha}, r * cosine, r * sine};
}

orbit_rows::orbit_rows(TBilliardMap& map, std::int64_t orbit, std::string& text)
    : map(map),
      text(text),
      after_orbit(put_count(row, orbit)) {
    *after_orbit++ = ',';
}

void orbit_rows::add_start(const start& from, const impact& here) {
    place = here;
    append(0, from.S, from.P, here, 0);
}

void orbit_rows::add(std::int64_t bounce, const impact& here) {
    double S, P;
    map.setPhiAlpha(here.at.phi, here.at.alpha);
    map.getPoint(S, P);
    const double dx = here.x - place.x, dy = here.y - place.y;
    place = here;
    append(bounce, S, P, here, std::sqrt(dx * dx + dy * dy));
}

void orbit_rows::append(std::int64_t bounce, double S, double P, const impact& here,
                        double length) {
    char* end = put_count(after_orbit, bounce);
    for (const double x : {S, P, here.at.phi, here.at.alpha, here.x, here.y, length}) {
        *end++ = ',';
        end = put_real(end, x);
    }
    *end++ = '\n';
    text.append(row, end);
}

} // namespace batch
