// SPDX-License-Identifier: MIT
// Orbits all over the section, and curves to run them on.
#pragma once

#include "billiard/radius-core/TBilliard.h"
#include "mathkit/TError.h"

inline constexpr const char* convex_curves[] = {"Ellipse 0.5", "Ellipse 1",       "OvalA 5",
                                                "OvalB 0.3",   "Stadium 1",       "Triangle 60 70",
                                                "OvalC 60 7",  "Formula 5+sin(t)"};
inline constexpr const char* other_curves[] = {
    "OvalA 2", "OvalC 2 3", "OvalC 5 5", "OvalB 0.9375", "Formula 3+erf(cos(2*t))",
};

/// Forty orbits over the section, some shorter where one breaks off; tells the number of visits.
template<class Visit>
int on_many_orbits(TBilliardMap& map, int bounces, Visit visit) {
    int visits = 0;
    for (int orbit = 0; orbit < 40; ++orbit) {
        map.setPoint(0.011 + 0.0247 * orbit, -0.97 + 0.0497 * orbit);
        try {
            for (int i = 0; i < bounces; ++i, ++visits)
                visit();
        } catch (const TError&) {
        }
    }
    return visits;
}
