// SPDX-License-Identifier: MIT
// One bounce: the search for the point where a straight path meets the curve again.
#pragma once

#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/TRadiusFunction.h"
#include "billiard/radius-core/unit_vector.h"

#include <cstddef>
#include <optional>
#include <vector>

// From one impact to the next, in the order in which it happens:
// - start_from_last takes point and line from what the last impact has left; at the first bounce
//   start_from_angles computes them from phi and alpha.
// - beside_start and beside_pole are the ends of the way: just behind the start, and just before
//   the ray from the origin runs along the line. bracket sees to it that the line is inside at the
//   first and outside at the second; on a convex curve, where that is so, only after a search has
//   failed.
// - first_piece, if the curve has inflections, walks to the piece in which the path leaves.
// - first_guess lays a conic through what is known of both ends and meets it with the line.
// - approach looks at the curve there, takes the best_step to the root, looks again, and so on,
//   until a step is so short that the search ends_without_a_look; arrived moves the last point by
//   that step. Where the steps do not settle, as beside a corner, halve finds the root instead.
// - reflect mirrors the line at the tangent there and tells the new phi and alpha.
// - leave keeps point and line for the next start_from_last.
//
// Notes, for whoever changes this:
// - A point of the curve is a unit vector from the origin, and the radius there. Of the line its
//   direction and its distance from the origin are known. The vector's components across the line
//   and along it are sine and cosine of the angle between both, and so a step of the search costs
//   the curve's own work and no call of the library.
// - The distance along the ray, R - distance / across, has a pole at the far end of every path,
//   where the ray runs along the line: Newton's method crawls there, and its values overwhelm any
//   interpolation. Two functions without a pole have the same root. `beyond`, R across - distance,
//   tells how far the curve's point lies beyond the line, seen from the origin: where it is
//   positive, the line's point at that angle is inside the table. Its sign decides everything, also
//   where R is not positive. W = across - distance / R is what Newton's method works on. Its slope
//   is -along + distance R' / R^2, since across falls by `along` for each radian. The step
//   atan(-W / W') leads to the point where the line crosses the curve's tangent, which is the root
//   itself on a straight side.
// - The curve is not looked at again at the impact: the last step, right to rounding, is only
// added.
//   The slope at the impact, which the mirror needs, is that of the last point plus bend times
//   step: without the bend the direction would drift.
// - What a bounce costs is the chain of operations that wait for each other. Divisions that do not
//   wait for each other are free; structures that go through memory are not.
// - Tried, and not worth its code: to refine the guess by rows of radius and slope at even angles
//   with Hermite's cubics between them. It spares a look or two, but a row read costs two thirds of
//   a look: ellipses gained a sixth, most curves nothing, triangles lost as much.
// - Tests are written so that NaN fails them: it ends in a refusal, not in a loop.

namespace ray {

/// Why a bounce found no impact.
enum class refusal {
    none,              ///< it found one
    direction,         ///< the angle does not point into the table, or is NaN
    near_end_forward,  ///< beside the start the line lies outside, towards growing angles
    near_end_backward, ///< the same towards falling angles
    far_end,           ///< no change from inside to outside up to the far end
    outside_list,      ///< the start lies outside the list of inflections
    stationary_point,  ///< the curve gave NaN where the distance is stationary
    no_number          ///< the curve gave NaN
};

/// A curve measured in a unit of length of its own, for radii whose squares leave the range of
/// doubles. Refers to the other curve.
class curve_in_units final : public TRadiusFunction {
public:
    curve_in_units(const TRadiusFunction& curve, double unit) : curve(curve), unit(unit) {}
    double R(double phi) const override { return curve.R(phi) / unit; }
    double dR(double phi) const override { return curve.dR(phi) / unit; }
    double ddR(double phi) const override { return curve.ddR(phi) / unit; }
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override {
        curve.value_and_slope(phi, sin_phi, cos_phi, r, dr);
        r /= unit;
        dr /= unit;
    }

private:
    const TRadiusFunction& curve;
    const double unit;
};

/// One bounce of a billiard.
class bounce {
public:
    /// `inflections` is read when `convex` is false. `knots` may hold the same angles with their
    /// values; where it does not, the curve is asked. `last` is the last impact, which the bounce
    /// replaces. All stay the caller's.
    bounce(TRadiusFunction& curve, bool convex, const std::vector<double>& inflections,
           const std::vector<inflection_knot>& knots, departure& last)
        : curve(curve),
          convex(convex),
          inflections(inflections),
          knots(knots),
          last(last) {}

    /// Replaces phi and alpha by those of the next impact; both stay unless the answer is none.
    refusal next(double& phi, double& alpha);

private:
    // A point of the curve, as seen from the line.
    struct spot {
        double theta;         // its polar angle, counted on from that of the start
        unit_vector at;       // from the origin towards it
        double across, along; // components of `at`: across the line, and along it
        double r, dr;         // of the curve
        double beyond;        // R across - distance
    };

    // What the search keeps of the point before: W and 1/W' there, and the curve.
    struct sample {
        double value, inverse_slope, r, dr;
    };

    void start_from_last();
    refusal start_from_angles(double phi, double alpha);
    refusal in_units(double unit, double& phi, double& alpha);
    refusal find(spot& impact);
    refusal through_origin(spot& impact) const;
    spot beside_start(double d) const;
    spot beside_pole() const;
    refusal bracket(spot& near_end, const spot& far_end) const;
    bool approach(spot p, const spot& inside, const spot& outside, spot& impact) const;
    double inverse_at(const spot& p) const;
    bool is_on_line(const spot& p) const;
    bool leaves(const spot& p, double inverse) const;
    static bool is_rounding(const spot& p, double step, double inverse);
    static bool ends_without_a_look(const spot& p, double step, const sample& previous, double way,
                                    double& bend);
    static double best_step(const spot& p, double inverse, const sample& previous, double way);
    spot arrived(const spot& p, double step, double bend) const;
    refusal halve(const spot& inside, const spot& outside, spot& impact) const;
    refusal reflect(const spot& impact, double& phi, double& alpha);
    double angle_told(const spot& impact) const;
    void leave(const spot& impact, double sine, double cosine);

    void look(spot& p) const;
    spot seen(double theta, unit_vector at) const;
    spot moved(const spot& from, double way) const;

    // bounce_guess.h
    spot first_guess(const spot& inside, const spot& outside) const;
    spot conic_guess(const spot& far_end) const;
    spot conic_between(const spot& u, const spot& e) const;

    // bounce_pieces.h
    refusal first_piece(spot& inside, spot& outside) const;
    bool may_leave_between(const spot& u, const spot& e, int bends) const;
    double slope_of_distance(const spot& p) const;
    bool arc_stays_inside(const spot& u, const spot& e) const;
    std::optional<spot> stationary_between(const spot& u, const spot& e) const;
    spot piece_end(std::size_t entry) const;
    int bends_of(std::ptrdiff_t interval) const;

    // In the order of the path.
    bool before(double a, double b) const { return dir > 0 ? a < b : b < a; }
    bool between(double a, double x, double b) const { return before(a, x) && before(x, b); }

    TRadiusFunction& curve;
    const bool convex;
    const std::vector<double>& inflections;
    const std::vector<inflection_knot>& knots;
    departure& last;
    bool is_in_units = false;

    unsigned impacts = 0; // before this one, in a row without a new start from phi and alpha
    unit_vector line;     // of its two directions the one with across >= 0 at the start
    double distance = 0;  // of the line from the origin
    int dir = 0;          // +1 where the path runs towards growing angles, else -1
    spot start;
};

// Asks the curve.
inline void bounce::look(spot& p) const {
    double r, dr; // the addresses of p's own would keep p in memory
    curve.value_and_slope(p.theta, p.at.y, p.at.x, r, dr);
    p.r = r;
    p.dr = dr;
    p.beyond = r * p.across - distance;
}

// A point not looked at yet.
inline bounce::spot bounce::seen(double theta, unit_vector at) const {
    spot p;
    p.theta = theta;
    p.at = at;
    p.across = cross(at, line);
    p.along = dot(at, line);
    return p;
}

} // namespace ray
