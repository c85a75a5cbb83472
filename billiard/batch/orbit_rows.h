// SPDX-License-Identifier: MIT
// The rows of an orbit as text.
#pragma once

#include "billiard/batch/number_text.h"
#include "billiard/batch/orbit_verdict.h"
#include "billiard/batch/start_list.h"

#include <string>

namespace batch {

/// A point of the boundary that the particle meets: as the map has it, and in the plane.
struct impact {
    phase_point at;
    double x, y;
};

/// The impact where the map stands, which is the map's last one or any.
impact impact_of(const TBilliardMap& map);

/// Writes orbit,bounce,S,P,phi,alpha,x,y,length for impacts that follow each other.
class orbit_rows {
public:
    static constexpr const char* columns = "orbit,bounce,S,P,phi,alpha,x,y,length";

    /// Appends to `text`. The map gives S; its point is changed.
    orbit_rows(TBilliardMap& map, std::int64_t orbit, std::string& text);

    /// The row of bounce 0, and the impact there.
    void add_start(const start& from, const impact& here);

    /// The impact that comes before the next one of `add`, whose row stands already.
    void go_on_from(const impact& before) { place = before; }

    /// The row of an impact; its length is the way from the impact before.
    void add(std::int64_t bounce, const impact& here);

private:
    void append(std::int64_t bounce, double S, double P, const impact& here, double length);

    // Two whole numbers, seven others, and a separator behind each.
    static constexpr int longest_row = 9 * (longest_number + 1);

    TBilliardMap& map;
    std::string& text;
    impact place{}; ///< the last one
    char row[longest_row]{};
    char* after_orbit; ///< in `row`, where the bounce begins
};

} // namespace batch
