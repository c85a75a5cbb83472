// SPDX-License-Identifier: MIT
// One bounce: the search for the point where a straight path meets the curve again.
#include "billiard/radius-core/bounce.h"

#include "billiard/radius-core/bounce_guess.h"
#include "billiard/radius-core/bounce_pieces.h"
#include "mathkit/TError.h"
#include "mathkit/trig.h"
#include "mathkit/turn.h"

#include <cmath>
#include <numbers>

namespace ray {

namespace {

using std::numbers::pi;

// The far end keeps this distance, in radians, from the pole, and the near end is first tried at
// this distance from the start. Even a path along the tangent is there k d^2 / 2 = 3e-14 k away
// from a curve of curvature k: enough to tell inside from outside by doubles, and d is far less
// than any piece of a curve is long.
constexpr double end_distance = 2.5e-7;

// On paths nearer to the origin start and pole are less than 1e-6 apart, and both ends would take
// half of that.
constexpr double no_room = 1e-6;

// An impact lies on the line to within rounding. A step also vanishes at R = 0 or where the
// slope of W is endless, which is no impact: the curve's point is about as far from the line there
// as the origin is.
constexpr double on_the_line = 1e-3; // of the line's distance

// Of radii within these bounds the search may take squares and products.
constexpr double least_radius = 1e-70;
constexpr double largest_radius = 1e70;

// From a point of such radius and slope the plain formulas lead on, without overflow.
bool is_ordinary(double r, double dr) {
    return r > least_radius && r < largest_radius && std::fabs(dr) < 1e100;
}

// A few terms of its series. What they leave out is made up for by the next step, and small steps
// are exact.
double arc_tangent_of_step(double t) {
    if (!(std::fabs(t) < 0.25)) return std::atan(t);
    const double z = t * t;
    return t - t * z * ((1.0 / 3 - z * (1.0 / 5)) + (z * z) * (1.0 / 7));
}

// The second derivative of R from two slopes. A large one is that of a corner and means nothing.
double bend_of(double rise, double way, double r) {
    const double bend = rise * (1 / way);
    return std::fabs(bend) < 1000 * r ? bend : 0;
}

} // namespace

refusal bounce::next(double& phi, double& alpha) {
    if (last.leads_to(phi, alpha)) {
        start_from_last();
    } else {
        impacts = 0;
        start.theta = phi;
        kit::sincos(phi, start.at.y, start.at.x);
        curve.value_and_slope(phi, start.at.y, start.at.x, start.r, start.dr);
        const double unit = std::fabs(start.r);
        if (unit > largest_radius || unit < least_radius) {
            if (unit > 0 && std::isfinite(unit)) return in_units(unit, phi, alpha);
        }
        const refusal why = start_from_angles(phi, alpha);
        if (why != refusal::none) return why;
    }
    start.beyond = 0;
    distance = start.r * start.across;
    // The path runs to the side on which `beyond` grows, since the line is inside there.
    dir = start.dr * start.across - start.r * start.along > 0 ? 1 : -1;

    spot impact;
    const refusal why = std::fabs(start.across) < no_room ? through_origin(impact) : find(impact);
    if (why != refusal::none) return why;
    return reflect(impact, phi, alpha);
}

// The same bounce on the curve measured by its radius at the start.
refusal bounce::in_units(double unit, double& phi, double& alpha) {
    if (is_in_units) return refusal::no_number; // a radius that changes from one look to the next
    curve_in_units measured(curve, unit);
    const std::vector<inflection_knot> no_knots; // theirs are in the other unit
    departure unused;                            // and so is this
    bounce same(measured, convex, inflections, no_knots, unused);
    same.is_in_units = true;
    return same.next(phi, alpha);
}

inline void bounce::start_from_last() {
    impacts = last.impacts;
    line = at_length_1(last.line);
    start = seen(last.phi, at_length_1(last.at));
    start.r = last.r;
    start.dr = last.dr;
}

// The velocity is the tangent, rotated by alpha; across and along are sine and cosine of the angle
// from the radius to the line, which lies between 0 and pi. Where the plain formulas do not hold,
// or alpha is not in [0, pi), angles are added up instead: the tangent lies pi/2 - atan(R'/R) ahead
// of the radius, w is the line's angle from the radius, and psi its direction.
inline refusal bounce::start_from_angles(double phi, double alpha) {
    const double r = start.r;
    const double dr = start.dr;
    if (is_ordinary(r, dr) && alpha >= 0 && alpha < pi) {
        double sine, cosine;
        kit::sincos(alpha, sine, cosine);
        const double scale = 1 / std::sqrt(r * r + dr * dr);
        const double radial = (dr * cosine - r * sine) * scale;
        const double tangential = (r * cosine + dr * sine) * scale;
        start.across = std::fabs(tangential);
        start.along = tangential < 0 ? -radial : radial;
    } else {
        double w = (alpha + pi) - (std::atan(dr / r) + pi / 2);
        if (w >= pi) w -= pi;
        const double psi = phi + w;
        if (!(psi >= phi && phi >= psi - pi)) return refusal::direction;
        start.across = std::sin(w);
        start.along = std::cos(w);
    }
    line = rotated(start.at, start.across, 1 - start.along);
    return refusal::none;
}

// The start is a root itself, so the search begins beside it; it ends beside the pole. On a convex
// curve there is but one other root, and whoever has found it need not look beside the start.
inline refusal bounce::find(spot& impact) {
    spot inside = beside_start(end_distance);
    spot outside = beside_pole();
    if (convex && outside.beyond < 0) {
        if (approach(first_guess(inside, outside), inside, outside, impact)) return refusal::none;
    }
    refusal why = bracket(inside, outside);
    if (why == refusal::none && !convex && outside.beyond <= 0) why = first_piece(inside, outside);
    if (why != refusal::none) return why;
    if (!(outside.beyond < 0)) {
        // One end lies on the line: the near one if the far one is inside, too.
        impact = outside.beyond > 0 ? inside : outside;
        return refusal::none;
    }
    if (!convex) {
        if (approach(first_guess(inside, outside), inside, outside, impact)) return refusal::none;
    }
    return halve(inside, outside, impact);
}

// Pole and start lie too near each other for a bracket. The impact is the opposite point, moved by
// what the small angle between line and radius amounts to over the length of the path.
refusal bounce::through_origin(spot& impact) const {
    const double angle = start.along > 0 ? start.across : -start.across;
    spot opposite = seen(start.theta + pi, {-start.at.x, -start.at.y});
    look(opposite);
    const double way = angle * (start.r + opposite.r) / opposite.r;
    if (!(std::fabs(way) < 1e9)) return refusal::no_number;
    impact = moved(opposite, way);
    look(impact);
    return refusal::none;
}

// Not looked at yet.
inline bounce::spot bounce::beside_start(double d) const {
    const double sine = dir * d;
    const double versine = 0.5 * d * d;
    spot p = seen(start.theta + sine, rotated(start.at, sine, versine));
    // Known better so than by the vectors: it is the difference to the start that counts.
    p.across = start.across - (start.along * sine + start.across * versine);
    return p;
}

inline bounce::spot bounce::beside_pole() const {
    constexpr double versine = 0.5 * end_distance * end_distance;
    const double psi = start.theta + kit::angle_of(start.across, start.along);
    spot p = seen(dir > 0 ? psi - end_distance : (psi - pi) + end_distance,
                  rotated({dir * line.x, dir * line.y}, -dir * end_distance, versine));
    p.across = end_distance; // known better so than by the vectors
    p.along = dir * (1 - versine);
    look(p);
    return p;
}

// Looks at the near end, and nearer while the line is outside there. Afterwards the line is inside
// at the near end and outside at the far end, or one of both lies on it.
inline refusal bounce::bracket(spot& near_end, const spot& far_end) const {
    look(near_end);
    double d = end_distance;
    for (int i = 0; !(near_end.beyond >= 0); ++i) {
        if (i == 2) return dir > 0 ? refusal::near_end_forward : refusal::near_end_backward;
        d *= 0.01;
        near_end = beside_start(d);
        look(near_end);
    }
    if (far_end.beyond <= 0) return refusal::none;
    return far_end.beyond > 0 && near_end.beyond == 0 ? refusal::none : refusal::far_end;
}

[[gnu::always_inline]] inline bounce::spot bounce::moved(const spot& from, double way) const {
    return seen(from.theta + way, rotated_by(from.at, way));
}

// 1 / (-R^2 W'). R beyond times this is -W / W'.
inline double bounce::inverse_at(const spot& p) const {
    return 1 / (p.r * p.r * p.along - distance * p.dr);
}

inline bool bounce::is_on_line(const spot& p) const {
    return std::fabs(p.beyond) <= on_the_line * std::fabs(distance);
}

// The rounding of W, divided by its slope, is as near as any step can come.
inline bool bounce::is_rounding(const spot& p, double step, double inverse) {
    return std::fabs(step) <= 1e-13 + 1e-15 * std::fabs(p.r * p.r * inverse);
}

// Whether the line leaves the table in a root.
inline bool bounce::leaves(const spot& p, double inverse) const {
    return is_on_line(p) && dir * inverse > 0;
}

// Goes from the guess to the impact. Answers false where it does not get there in a few steps, or
// where it comes to a root that lies elsewhere or in which the line enters the table.
[[gnu::always_inline]] inline bool bounce::approach(spot p, const spot& inside, const spot& outside,
                                                    spot& impact) const {
    constexpr int most_steps = 4;

    look(p);
    double inverse = inverse_at(p);
    double step = arc_tangent_of_step(p.r * p.beyond * inverse);
    if (std::fabs(step) < 1e-15) {
        impact = p;
        return leaves(p, inverse);
    }
    for (int i = 0; i < most_steps; ++i) {
        const sample previous = {p.beyond / p.r, -p.r * p.r * inverse, p.r, p.dr};
        const double way = step;
        p = moved(p, way);
        look(p);
        inverse = inverse_at(p);
        step = p.r * p.beyond * inverse;
        double bend;
        if (ends_without_a_look(p, step, previous, way, bend)) {
            impact = arrived(p, step, bend);
            return leaves(p, inverse) && between(inside.theta, p.theta, outside.theta);
        }
        step = best_step(p, inverse, previous, way);
        if (is_rounding(p, step, inverse)) {
            impact = arrived(p, step, bend_of(p.dr - previous.dr, way, p.r));
            return leaves(p, inverse) && between(inside.theta, p.theta, outside.theta);
        }
    }
    return false;
}

// True if two things hold: the tangent's step from p ends at the root to within rounding, and the
// bend at p is known well enough to give the slope at the end of that step. Sets `bend`, the second
// derivative of R, which radii and slopes of the last two points tell to within way^2. One that
// changes by more than 100 radii per radian is a corner's.
[[gnu::always_inline]] inline bool bounce::ends_without_a_look(const spot& p, double step,
                                                               const sample& previous, double way,
                                                               double& bend) {
    const double size = std::fabs(step);
    const double square = way * way;
    // All lost in rounding: the step's square; the slope's error by that of the bend, step way^2;
    // and its error by the rounding of the differences, step 1e-16 / way^2.
    if (!(size <= 3e-9 && size * square <= 1e-17 && size <= 0.02 * square)) return false;
    const double per_way = 1 / way;
    const double mean_bend = (p.dr - previous.dr) * per_way;
    bend = ((4 * p.dr + 2 * previous.dr) - 6 * (p.r - previous.r) * per_way) * per_way;
    return std::fabs(bend - mean_bend) <= 100 * p.r * std::fabs(way);
}

// The way from p to the root: by the tangent; or, where that differs little from the tangent's, by
// inverse interpolation, the angle as the cubic in W that has the last two points, `way` apart, and
// the slopes there. It has 1.5 times the correct digits of Newton's step, but means nothing across
// a corner.
[[gnu::always_inline]] inline double bounce::best_step(const spot& p, double inverse,
                                                       const sample& previous, double way) {
    constexpr double small_part = 0.25; // of a step: a correction that is believed
    const double newton = p.r * p.beyond * inverse;
    const double step = std::fabs(newton) < 1e-3 ? newton : arc_tangent_of_step(newton);

    const double back = 1 / (previous.value * p.r - p.beyond); // 1 / (W before - W) is R times this
    const double chord = -way * p.r * back;
    const double inverse_slope = -p.r * p.r * inverse;
    const double twist = previous.inverse_slope + inverse_slope - 2 * chord;
    // What the cubic at W = 0 differs from its tangent at p.
    const double bent = p.beyond * p.beyond / p.r * back *
                        ((chord - inverse_slope) - previous.value * p.r * back * twist);
    const double cubic = newton + bent;
    return std::fabs(cubic - step) < small_part * std::fabs(step) ? cubic : step;
}

// The last point looked at, moved by the last step. The curve's bend gives its slope there:
// Newton's method always comes from the same side, and with the slope from before the step the
// direction would drift over a million bounces. A step above 1e-7 comes here only where the line
// runs along a side: it is rounding alone, and is not taken.
[[gnu::always_inline]] inline bounce::spot bounce::arrived(const spot& p, double step,
                                                           double bend) const {
    const double way = std::fabs(step) < 1e-7 ? step : 0;
    spot impact = seen(p.theta + way, rotated(p.at, way, 0));
    impact.r = p.r + p.dr * way;
    impact.dr = p.dr + bend * way;
    return impact;
}

// The slow and sure way: Newton's method inside a bracket of signs. Where its step leaves the
// bracket, or is more than half of the last one, the bracket is halved instead: beside a corner two
// points may alternate for ever.
// Where the radius jumps it ends on the side from which the path comes.
refusal bounce::halve(const spot& inside, const spot& outside, spot& impact) const {
    constexpr int most_steps = 120; // enough even for halving alone
    const double whole = kit::angle_of(cross(inside.at, outside.at), dot(inside.at, outside.at));
    double in = 0; // ways from the point inside
    double out = whole;
    double at = 0.5 * whole;
    double last_size = std::fabs(whole);
    double last_dr = inside.dr;
    double step = at;
    impact = inside;
    for (int i = 0; i < most_steps; ++i) {
        spot p = moved(inside, at);
        look(p);
        if (!(p.beyond == p.beyond)) return refusal::no_number;
        const double bend = bend_of(p.dr - last_dr, step, p.r);
        if (p.beyond >= 0) impact = p;
        (p.beyond >= 0 ? in : out) = at;

        const double inverse = inverse_at(p);
        step = arc_tangent_of_step(p.r * p.beyond * inverse);
        const double size = std::fabs(step);
        const bool at_rest = is_rounding(p, step, inverse);
        if (at_rest && is_on_line(p)) {
            impact = arrived(p, step, bend);
            return refusal::none;
        }
        if (std::fabs(out - in) <= 1e-15) break;
        last_dr = p.dr;
        if (at_rest || !(2 * size < last_size) || !before(in, at + step) ||
            !before(at + step, out)) {
            step = 0.5 * (in + out) - at;
            last_size = 0.5 * std::fabs(out - in);
        } else {
            last_size = size;
        }
        at += step;
    }
    return refusal::none;
}

// The angle, a sum of steps, would drift away from the vector by their rounding; so every few
// impacts it is computed from the vector.
inline double bounce::angle_told(const spot& impact) const {
    if (impacts % 16 != 15) return kit::reduced(impact.theta);
    const double theta = kit::angle_of(impact.at.y, impact.at.x);
    return theta < 0 ? theta + kit::two_pi : theta;
}

// The angle from the line to the tangent is that from the tangent to the mirrored line, alpha. It
// counts modulo pi, and so either direction of the line will do.
inline refusal bounce::reflect(const spot& impact, double& phi, double& alpha) {
    // Of alpha, both times the tangent's length: along the radius and across it the tangent is
    // (R', R), and the line (along, across).
    double sine = impact.along * impact.r - impact.across * impact.dr;
    double cosine = impact.along * impact.dr + impact.across * impact.r;
    if (sine < 0) {
        sine = -sine;
        cosine = -cosine;
    }
    const double new_alpha = kit::angle_of(sine, cosine);
    const double theta = angle_told(impact);
    if (!(new_alpha >= 0 && theta >= 0 && theta <= kit::two_pi)) return refusal::no_number;
    phi = theta < kit::two_pi ? theta : 0;
    alpha = new_alpha < pi ? new_alpha : 0;
    leave(impact, sine, cosine);
    last.phi = phi;
    last.alpha = alpha;
    return refusal::none;
}

// The next path starts here. Its line comes from this one by the tangent, without a root or an
// angle.
inline void bounce::leave(const spot& impact, double sine, double cosine) {
    const double r = impact.r;
    const double dr = impact.dr;
    const double scale = 1 / (r * r + dr * dr);
    const double radial = (dr * cosine - r * sine) * scale;
    const double tangential = (r * cosine + dr * sine) * scale;
    const double sign = tangential < 0 ? -1 : 1;
    last.at = impact.at;
    last.line = {sign * (radial * impact.at.x - tangential * impact.at.y),
                 sign * (radial * impact.at.y + tangential * impact.at.x)};
    last.r = r;
    last.dr = dr;
    last.impacts = is_ordinary(r, dr) ? impacts + 1 : 0;
}

} // namespace ray

namespace {

[[noreturn]] void confused(int line) {
    throw TError("The root solver is confused.\n"
                 "Could not find intersection between ray and billiard.\n"
                 "Something must be wrong with the billiard shape!\n")
        .setPosition("void TBilliard::findit(double&, double&)", "billiard/radius-core/TBilliard",
                     line);
}

} // namespace

// All steps of a bounce are inlined here: what one hands to another then stays in registers.
[[gnu::flatten]] void TBilliard::findit(double& phi, double& alpha) {
    using ray::refusal;
    ray::bounce path(*F, convex, inflections, knots, last);
    // One line each: the error's line number is all that tells one reason from another.
    switch (path.next(phi, alpha)) {
    case refusal::none:
        return;
    case refusal::direction:
        confused(__LINE__);
    case refusal::near_end_forward:
        confused(__LINE__);
    case refusal::near_end_backward:
        confused(__LINE__);
    case refusal::far_end:
        confused(__LINE__);
    case refusal::outside_list:
        confused(__LINE__);
    case refusal::stationary_point:
        confused(__LINE__);
    case refusal::no_number:
        confused(__LINE__);
    }
}
