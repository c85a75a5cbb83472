// SPDX-License-Identifier: MIT
// The rows of an orbit as text.
#pragma once

#include "billiard/batch/number_text.h"
#include "billiard/batch/orbit_verdict.h"
#include "billiard/batch/start_list.h"

#include <string>

namespace batch {

/// Writes orbit,bounce,S,P,phi,alpha,x,y,length for impacts that follow each other.
class orbit_rows {
public:
    static constexpr const char* columns = "orbit,bounce,S,P,phi,alpha,x,y,length";

    /// Appends to `text`. The map gives S and the plane's points; its own point is changed.
    orbit_rows(TBilliardMap& map, std::int64_t orbit, std::string& text);

    /// The row of bounce 0.
    void add_start(const start& from);

    /// The impact that comes before the next one of `add`, whose row stands already.
    void go_on_from(const phase_point& at) { place = plane_point_of(at.phi); }

    /// The row of an impact; its length is the way from the impact before.
    void add(std::int64_t bounce, const phase_point& at);

private:
    struct plane_point {
        double x, y;
    };
    plane_point plane_point_of(double phi) const;
    void append(std::int64_t bounce, const start& at, double length);

    // Two whole numbers, seven others, and a separator behind each.
    static constexpr int longest_row = 9 * (longest_number + 1);

    TBilliardMap& map;
    std::string& text;
    plane_point place{}; ///< of the last impact
    char row[longest_row];
    char* after_orbit; ///< in `row`, where the bounce begins
};

} // namespace batch
