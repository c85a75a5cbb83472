// SPDX-License-Identifier: MIT
// The impact by a general library: Boost.Math's Newton iteration on the same bracket.
#pragma once

#include "bench/textbook_bounce.h"

#include <boost/math/tools/roots.hpp>

#include <algorithm>
#include <limits>
#include <utility>

namespace bench {

/// A search for `textbook_billiard`, used as the library comes.
///
/// `digits`, binary, is the accuracy that the library is asked for: all that a double has, as the
/// program's own search gives, or the 40 of a step below 1e-12.
///
/// The library keeps its bracket by the direction of its steps and not by signs. So it throws in
/// some bounces, and in some answers what is no root; these are left to the textbook, and both
/// times count.
struct boost_search {
    int digits = std::numeric_limits<double>::digits;
    long searches = 0, misses = 0;

    template<class Curve>
    double operator()(const line_distance<Curve>& distance, double a, double b) {
        ++searches;
        double last = 0; // value of the last evaluation: tells a root from a mere end
        const auto function = [&](double theta) {
            last = distance.g(theta);
            return std::pair(last, distance.dg(theta));
        };
        try {
            boost::uintmax_t steps = 200;
            const double theta = boost::math::tools::newton_raphson_iterate(
                function, 0.5 * (a + b), std::min(a, b), std::max(a, b), digits, steps);
            if (std::fabs(last) < 1e-5) return theta;
        } catch (const boost::math::evaluation_error&) { // no root, says the library
        }
        ++misses;
        return textbook_search{}(distance, a, b);
    }
};

} // namespace bench
