// SPDX-License-Identifier: MIT
// One bounce: the search for the point where a straight path meets the curve again.
//
// Notes, for whoever changes this:
// - Everything is seen from the impact where the path starts: angles are x = theta - phi, and
//   (s, o) are sine and cosine of psi - theta, psi the direction of the line. They are carried
//   along by rotation, as are sine and cosine of theta, so that a step of the search costs the
//   curve's own work and no call of the library.
// - g = R - c / sin(psi - theta), the distance along the ray, has a pole at the far end of every
//   path; Newton's method crawls there, and its values overwhelm any interpolation. Two functions
//   without a pole have the same root. h = R s - c is the distance from the line: it has the sign
//   of g always, also where R is not positive, and so every decision is made on h. W = s - c / R
//   is what Newton works on: with an arc tangent around the step it goes to where the line meets
//   the tangent of the curve, which is exact on a straight side.
// - The last point looked at is the impact to within rounding, and its slope is the mirror's.
// - The chain of operations that wait for each other is what a bounce costs. Divisions that do not
//   wait for each other are free.
// - Who calls `next` wants all of it inlined ([[gnu::flatten]]): what one step hands to another
//   then need not go through memory, which is worth 3 to 10 % of a bounce.
// - Tests are written so that NaN fails them: it ends in a refusal, not in a loop.
#pragma once

#include "billiard/radius-core/TBilliard.h"
#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/bsearch.h"
#include "mathkit/trig.h"
#include "mathkit/turn.h"

#include <cmath>
#include <cstddef>
#include <iterator>
#include <numbers>
#include <optional>
#include <type_traits>
#include <vector>

namespace ray {

using std::numbers::pi;

/// Why a bounce found no impact.
enum class refusal {
    none,              ///< it found one
    direction,         ///< the angle does not point into the table, or is NaN
    through_origin,    ///< the line is not the one through the origin that it was taken for
    near_end_forward,  ///< beside the start the line lies outside, towards growing angles
    near_end_backward, ///< the same towards falling angles
    far_end,           ///< no change from inside to outside up to the far end
    outside_list,      ///< the start lies outside the list of inflections
    stationary_point,  ///< the distance has no sign at its extremum
    no_number          ///< the curve gave NaN
};

/// A point of the curve where its curvature changes sign, with what a bounce needs there.
struct inflection_knot {
    double theta, sine, cosine, r, dr;
    int bends; ///< up to the next knot the boundary bends only left: 1, only right: -1, else 0
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

/// The bounce on a curve of the type Curve, of which value_and_slope is nearly all that is used.
///
/// The billiard uses it with TRadiusFunction. With a final class derived from it whose
/// value_and_slope is inline, the same search has no virtual call: the benchmarks compare with it.
template<class Curve>
class bounce {
public:
    /// `inflections` is read when `convex` is false. `knots` may hold the same angles with their
    /// values; where it does not, the curve is asked. `last` is the last impact, which each bounce
    /// replaces. All stay the caller's.
    bounce(Curve& curve, bool convex, const std::vector<double>& inflections,
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
        double x;            // its polar angle, less that of the start
        double sine, cosine; // of its polar angle
        double s, o;         // sine and cosine of psi - theta
        double r, dr;        // of the curve
        double h;            // distance from the line, positive inside
    };

    // What the search keeps of a point: W and 1/W' there, and R'.
    struct sample {
        double x, value, inverse_slope, dr;
    };

    refusal in_units(double unit, double& phi, double& alpha);
    refusal find(spot& impact);
    refusal reflect(const spot& impact, double& phi, double& alpha);
    void keep(const spot& impact, double phi, double alpha, double across, double along);
    void depart();
    refusal direction(double alpha);
    refusal through_origin(spot& impact);
    refusal bracket();
    refusal first_in_pieces(spot& impact);
    refusal search(const spot& inside, const spot& outside, spot& impact);

    void look(spot& p) {
        curve.value_and_slope(phi + p.x, p.sine, p.cosine, p.r, p.dr);
        p.h = p.r * p.s - c;
    }

    // The place at the angle x, not looked at yet.
    spot place(double x) const {
        double sin_x, cos_x;
        kit::sincos(x, sin_x, cos_x);
        return turned(start, x, sin_x, 1 - cos_x);
    }
    // Turned by an angle whose sine and versed sine, 1 - cosine, are given: where both are small
    // nothing but the result is rounded, and vectors keep their length over many steps.
    static spot turned(const spot& from, double by, double sin_by, double versine_by) {
        spot p;
        p.x = from.x + by;
        p.sine = from.sine + (from.cosine * sin_by - from.sine * versine_by);
        p.cosine = from.cosine - (from.sine * sin_by + from.cosine * versine_by);
        p.s = from.s - (from.o * sin_by + from.s * versine_by);
        p.o = from.o + (from.s * sin_by - from.o * versine_by);
        return p;
    }

    sample sample_of(const spot& p, double inverse) const {
        return {p.x, p.h / p.r, -p.r * p.r * inverse, p.dr};
    }
    // 1 / (-R^2 W')
    double inverse_at(const spot& p) const { return 1 / (p.r * p.r * p.o - c * p.dr); }
    spot first_guess(const spot& inside, const spot& outside) const;
    static double best_step(const spot& p, double inverse, const sample& last, const sample& now);
    static spot arrived(const spot& p, const sample& last, double step);
    bool may_leave_between(const spot& u, const spot& e, int bends) const;
    std::optional<spot> stationary_between(const spot& u, const spot& e);
    double angle_to(std::ptrdiff_t entry) const {
        return inflections[static_cast<std::size_t>(entry)] - phi;
    }
    spot piece_end(std::ptrdiff_t entry);
    bool arc_stays_inside(const spot& u, const spot& e) const;
    int bends_of(std::ptrdiff_t interval) const;
    spot conic_between(const spot& u, const spot& e) const;
    spot conic_guess() const;
    // In the order of the path.
    bool before(double a, double b) const { return dir > 0 ? a < b : b < a; }
    bool between(double a, double x, double b) const { return before(a, x) && before(x, b); }

    // The slope of g at p, times s^2, which is positive.
    double slope_of_g(const spot& p) const { return p.dr * p.s * p.s - c * p.o; }

    Curve& curve;
    const bool convex;
    const std::vector<double>& inflections;
    const std::vector<inflection_knot>& knots;
    departure& last;

    double phi = 0;
    double c = 0; // distance of the line from the origin
    double w = 0; // psi - phi, in [0, pi]
    int dir = 0;  // +1 where the path runs towards growing angles, else -1
    spot start;
    spot near_end; // beside the start, where the line has entered the table
    spot far_end;  // beside the pole, where it has left it
};

// The far end keeps this distance from the pole, and the near end starts with it.
constexpr double end_distance = 2.5e-7;

// Of radii within these bounds the search may take squares and products.
constexpr double least_radius = 1e-70;
constexpr double largest_radius = 1e70;

// Of such a point the path leads on by the plain formulas.
inline bool is_ordinary(double r, double dr) {
    return r > least_radius && r < largest_radius && std::fabs(dr) < 1e100;
}

// Of a vector that has nearly that length: one step of Newton's method, with the root left out.
inline void bring_to_length_1(double& x, double& y) {
    const double lacks = 0.5 * ((1 - x) * (1 + x) - y * y);
    x += x * lacks;
    y += y * lacks;
}

template<class Curve>
refusal bounce<Curve>::next(double& phi_, double& alpha) {
    phi = phi_;
    start.x = 0;
    start.h = 0;
    if (last.leads_to(phi, alpha)) {
        depart();
    } else {
        kit::sincos(phi, start.sine, start.cosine);
        curve.value_and_slope(phi, start.sine, start.cosine, start.r, start.dr);
        const double unit = std::fabs(start.r);
        if (unit > largest_radius || unit < least_radius) {
            if (unit > 0 && std::isfinite(unit)) return in_units(unit, phi_, alpha);
        }
        const refusal why = direction(alpha);
        if (why != refusal::none) return why;
    }
    c = start.r * start.s;
    dir = start.dr * start.s - start.r * start.o > 0 ? 1 : -1;

    spot impact;
    const refusal why = std::fabs(start.s) < 1e-6 ? through_origin(impact) : find(impact);
    if (why != refusal::none) return why;
    return reflect(impact, phi_, alpha);
}

// Takes the start from the last impact, which knows all of it.
template<class Curve>
void bounce<Curve>::depart() {
    start.sine = last.sine;
    start.cosine = last.cosine;
    start.s = last.s;
    start.o = last.o;
    start.r = last.r;
    start.dr = last.dr;
    w = kit::angle_of(start.s, start.o);
}

// The same bounce on the curve measured by its radius at the start.
template<class Curve>
refusal bounce<Curve>::in_units(double unit, double& phi_, double& alpha) {
    if constexpr (std::is_same_v<Curve, curve_in_units>) {
        return refusal::no_number; // a radius that changes from one look to the next
    } else {
        curve_in_units measured(curve, unit);
        const std::vector<inflection_knot> no_knots; // theirs are in the other unit
        last.known = false;
        departure unused; // theirs too
        return bounce<curve_in_units>(measured, convex, inflections, no_knots, unused)
            .next(phi_, alpha);
    }
}

template<class Curve>
refusal bounce<Curve>::find(spot& impact) {
    const refusal why = bracket();
    if (why != refusal::none) return why;
    if (far_end.h > 0) {
        impact = near_end; // where h is 0, so that this end is an impact itself
        return refusal::none;
    }
    return convex ? search(near_end, far_end, impact) : first_in_pieces(impact);
}

// Velocity (o, s) against tangent (R', R), both from the radius at the impact. Angles to the
// tangent count modulo pi, and so the velocity may as well be the opposite one.
template<class Curve>
refusal bounce<Curve>::reflect(const spot& impact, double& phi_, double& alpha) {
    double across = impact.o * impact.r - impact.s * impact.dr;
    double along = impact.o * impact.dr + impact.s * impact.r;
    if (across < 0) {
        across = -across;
        along = -along;
    }
    const double turned_alpha = kit::angle_of(across, along);
    const double theta = kit::reduced(phi + impact.x);
    if (!(turned_alpha >= 0 && theta >= 0 && theta <= kit::two_pi)) return refusal::no_number;
    phi_ = theta < kit::two_pi ? theta : 0;
    alpha = turned_alpha < pi ? turned_alpha : 0;
    keep(impact, phi_, alpha, across, along);
    return refusal::none;
}

// The next path starts here. Its velocity comes from that of this one by the tangent, without a
// root or an angle; both vectors are brought back to length 1.
template<class Curve>
void bounce<Curve>::keep(const spot& impact, double phi_, double alpha, double across,
                         double along) {
    const double r = impact.r;
    const double dr = impact.dr;
    last.known = is_ordinary(r, dr);
    const double scale = 1 / (r * r + dr * dr);
    const double radial = (dr * along - r * across) * scale;
    const double tangential = (r * along + dr * across) * scale;
    last.s = std::fabs(tangential);
    last.o = tangential < 0 ? -radial : radial;
    last.sine = impact.sine;
    last.cosine = impact.cosine;
    bring_to_length_1(last.s, last.o);
    bring_to_length_1(last.sine, last.cosine);
    last.r = r;
    last.dr = dr;
    last.phi = phi_;
    last.alpha = alpha;
}

// The direction of the line, its distance from the origin, and which way the path runs.
template<class Curve>
refusal bounce<Curve>::direction(double alpha) {
    const double r = start.r;
    const double dr = start.dr;
    if (is_ordinary(r, dr) && alpha >= 0 && alpha < pi) {
        // The velocity from the radius: the tangent (R', R), turned by alpha. Of the two
        // directions of the line, psi is the one with a sine that is not negative.
        double sin_alpha, cos_alpha;
        kit::sincos(alpha, sin_alpha, cos_alpha);
        const double scale = 1 / std::sqrt(r * r + dr * dr);
        const double radial = (dr * cos_alpha - r * sin_alpha) * scale;
        const double tangential = (r * cos_alpha + dr * sin_alpha) * scale;
        start.s = std::fabs(tangential);
        start.o = tangential < 0 ? -radial : radial;
        w = kit::angle_of(start.s, start.o);
    } else {
        w = (alpha + pi) - (std::atan(dr / r) + pi / 2);
        if (w >= pi) w -= pi;
        const double psi = phi + w;
        if (!(psi >= phi && phi >= psi - pi)) return refusal::direction;
        start.s = std::sin(w);
        start.o = std::cos(w);
    }
    return refusal::none;
}

// The pole lies too near the start for a bracket. The impact is that on the opposite side, moved
// by what the small angle e between line and radius makes of the way across.
template<class Curve>
refusal bounce<Curve>::through_origin(spot& impact) {
    const double e = start.o > 0 ? start.s : -start.s;
    if (!(std::fabs(e) < 1e-4)) return refusal::through_origin;
    double r2, dr2;
    curve.value_and_slope(phi + pi, -start.sine, -start.cosine, r2, dr2);
    const double move = e * (start.r + r2) / r2;
    if (!(std::fabs(move) < 1e9)) return refusal::no_number;
    impact = place(move);
    impact = turned(impact, pi, 0, 2);
    look(impact);
    return refusal::none;
}

// Finds both ends: the start is a root itself, so the search begins beside it; it ends beside the
// pole. Afterwards h is not negative at the near end and, unless it is 0 there, not positive at
// the far end.
template<class Curve>
refusal bounce<Curve>::bracket() {
    double d = end_distance;
    for (int i = 0;; ++i, d *= 0.01) {
        near_end = turned(start, dir * d, dir * d, 0.5 * d * d);
        look(near_end);
        if (near_end.h >= 0) break;
        if (i == 2) return dir > 0 ? refusal::near_end_forward : refusal::near_end_backward;
    }

    constexpr double sin_end = end_distance;
    constexpr double cos_end = 1 - 0.5 * end_distance * end_distance;
    if (dir > 0) {
        far_end = turned(start, w - end_distance, start.s * cos_end - start.o * sin_end,
                         1 - (start.o * cos_end + start.s * sin_end));
    } else {
        far_end = turned(start, (w - pi) + end_distance, -start.s * cos_end - start.o * sin_end,
                         1 - (-start.o * cos_end + start.s * sin_end));
    }
    far_end.s = sin_end; // known better than by turning
    far_end.o = dir * cos_end;
    look(far_end);
    if (far_end.h <= 0) return refusal::none;
    return far_end.h > 0 && near_end.h == 0 ? refusal::none : refusal::far_end;
}

// In polar form 1/R of a straight line, of a circle about the origin and of any conic with its
// focus there is A + B cos + C sin. One such conic has the curve's radius and slope at the start
// and its radius at the far end; this is where the line meets it again. Not looked at yet.
template<class Curve>
typename bounce<Curve>::spot bounce<Curve>::conic_guess() const {
    // Sine and cosine of the angle from the start to the far end, which is w or w - pi but for
    // the distance from the pole, too small to matter here.
    const double sin_far = dir * start.s;
    const double cos_far = dir * start.o;
    const double rb = far_end.r;
    const double n = (start.dr * start.s - start.r * start.o) * (1 - cos_far) * rb;
    const double m = start.s * (start.r * start.r - (start.r * cos_far - start.dr * sin_far) * rb);
    const double scale = 1 / (n * n + m * m);
    return turned(start, 2 * kit::angle_of(n, m), 2 * n * m * scale, 2 * n * n * scale);
}

// The same from one point to another, with the slope of the first: the conic meets the line where
// a quadratic equation for the tangent of half the angle has its roots.
template<class Curve>
typename bounce<Curve>::spot bounce<Curve>::conic_between(const spot& u, const spot& e) const {
    const double cos_e = e.cosine * u.cosine + e.sine * u.sine;
    const double sin_e = e.sine * u.cosine - e.cosine * u.sine;
    // 1/R less the line, a + p cos + q sin of the angle from u.
    const double inverse_u = 1 / u.r;
    const double conic_sin = -u.dr * inverse_u * inverse_u;
    const double conic_cos = (1 / e.r - inverse_u - conic_sin * sin_e) / (cos_e - 1);
    const double a = inverse_u - conic_cos;
    const double p = conic_cos - u.s / c;
    const double q = conic_sin + u.o / c;
    const double root = std::sqrt(q * q - (a - p) * (a + p));
    const double sum = -(q + std::copysign(root, q));
    double n = sum;
    double m = a - p;
    const double other = a + p;
    // Of n / m and other / n the one on the way from u to e.
    const double half = sin_e / (1 + cos_e);
    const double t1 = n / m;
    if (!(dir > 0 ? t1 > 0 && t1 < half : t1 < 0 && t1 > half)) {
        n = other;
        m = sum;
    }
    if (m < 0) {
        n = -n;
        m = -m;
    }
    const double scale = 1 / (n * n + m * m);
    return turned(u, 2 * kit::angle_of(n, m), 2 * n * m * scale, 2 * n * n * scale);
}

// A few terms of the arc tangent: what they leave out only makes the next step larger, and small
// steps are exact.
inline double arc_tangent_of_step(double t) {
    if (!(std::fabs(t) < 0.25)) return std::atan(t);
    const double z = t * t;
    return t - t * z * (1.0 / 3 - z * (1.0 / 5 - z * (1.0 / 7)));
}

// The second derivative from the last two slopes, for the last step alone: Newton's method comes
// from one side, and without it the direction would drift over a million bounces. A large one is
// that of a corner and means nothing.
inline double bend_near(double rise, double way, double r) {
    const double bend = rise / way;
    return std::fabs(bend) < 1000 * r ? bend : 0;
}

// Sine and versed sine of a step of the search; most are so small that few terms are enough.
inline void step_sine_versine(double d, double& sine, double& versine) {
    const double z = d * d;
    if (!(z < 0.0025)) {
        double cosine;
        kit::sincos(d, sine, cosine);
        versine = 1 - cosine;
        return;
    }
    sine = d + d * z * (-1.0 / 6 + z * (1.0 / 120 - z * (1.0 / 5040)));
    versine = z * (0.5 - z * (1.0 / 24 - z * (1.0 / 720 - z * (1.0 / 40320))));
}

// The cubic through x at two values of W, with the slopes there, read at 0: the way from `now`.
// It gains half of Newton's digits again, but means nothing across a corner.
template<class Sample>
double cubic_step(const Sample& before, const Sample& now) {
    const double back = 1 / (before.value - now.value);
    const double chord = (before.x - now.x) * back;
    const double v = now.value * back;
    const double bent =
        v * v * (before.value - now.value) *
        ((chord - now.inverse_slope) -
         before.value * back * (before.inverse_slope + now.inverse_slope - 2 * chord));
    return -now.inverse_slope * now.value + bent;
}

// Where the search looks first. The squares of a guess may leave the range of doubles, and then
// its sine and cosine are not of one angle: the middle takes its place.
template<class Curve>
typename bounce<Curve>::spot bounce<Curve>::first_guess(const spot& inside,
                                                        const spot& outside) const {
    const spot p = convex ? conic_guess() : conic_between(inside, outside);
    const bool sound = std::fabs(p.s * p.s + p.o * p.o - 1) < 1e-9;
    if (sound && between(inside.x, p.x, outside.x)) return p;
    return place(inside.x + 0.5 * (outside.x - inside.x));
}

// The way from p to the root: by the tangent, or by the cubic where that is but a correction.
template<class Curve>
double bounce<Curve>::best_step(const spot& p, double inverse, const sample& last,
                                const sample& now) {
    constexpr double small_part = 0.25; // of a step: a correction that is believed
    const double step = arc_tangent_of_step(p.r * p.h * inverse);
    const double cubic = cubic_step(last, now);
    return std::fabs(cubic - step) < small_part * std::fabs(step) ? cubic : step;
}

// The end of the search: the last point, moved by the last step. Where the line runs along a side
// all points are near, and a step is but rounding.
template<class Curve>
typename bounce<Curve>::spot bounce<Curve>::arrived(const spot& p, const sample& last,
                                                    double step) {
    const double move = std::fabs(step) < 1e-7 ? step : 0;
    spot impact = turned(p, move, move, 0);
    impact.r = p.r + p.dr * move;
    impact.dr = p.dr + bend_near(p.dr - last.dr, p.x - last.x, p.r) * move;
    return impact;
}

// The root between a point inside, h >= 0, and one outside, h <= 0; the second lies in the
// direction of the path. Comes with radius and slope of the curve there.
template<class Curve>
refusal bounce<Curve>::search(const spot& inside, const spot& outside, spot& impact) {
    constexpr int most_steps = 120;      // halving alone would be through
    constexpr int free_steps = 4;        // those after must each be half the one before
    constexpr double near_after = 1e-13; // a step that short is the last one,
    constexpr double near_first = 1e-15; // from the guess only if it is none
    constexpr double near_line = 1e-3;   // of c: a far larger distance than any impact has

    double in = inside.x;
    double out = outside.x;
    spot p = first_guess(inside, outside);
    sample previous = sample_of(outside, inverse_at(outside));
    double last_size = std::fabs(out - in);
    for (int i = 0; i < most_steps; ++i) {
        look(p);
        if (!(p.h == p.h)) return refusal::no_number;
        const bool still_inside = p.h >= 0;
        in = still_inside ? p.x : in;
        out = still_inside ? out : p.x;

        const double inverse = inverse_at(p);
        const sample now = sample_of(p, inverse);
        const double step = best_step(p, inverse, previous, now);

        // The rounding of W, divided by its slope, is as near as any step can come. The test
        // stands before that of the bracket, which the last step may leave by one rounding. Steps
        // also vanish where W has a pole, at R = 0, or an endless slope: that is no impact.
        const double size = std::fabs(step);
        const double near = i > 0 ? near_after : near_first;
        const bool at_rest = size <= near + 1e-15 * std::fabs(now.inverse_slope);
        if (at_rest && std::fabs(p.h) <= near_line * std::fabs(c)) {
            impact = arrived(p, previous, step);
            return refusal::none;
        }
        if (std::fabs(out - in) <= 1e-15) {
            impact = p;
            return refusal::none;
        }
        previous = now;

        // Beside a corner two points may take turns for ever: a step that is not half the one
        // before gives way to halving, but for the first few.
        const bool shrinks = i < free_steps || 2 * size < last_size;
        if (shrinks && !at_rest && between(in, p.x + step, out)) {
            double sin_step, versine_step;
            step_sine_versine(step, sin_step, versine_step);
            p = turned(p, step, sin_step, versine_step);
            last_size = size;
            continue;
        }
        p = place(in + 0.5 * (out - in));
        last_size = 0.5 * std::fabs(out - in);
    }
    impact = p;
    look(impact);
    return refusal::none;
}

// Walks over the pieces between the inflections to the first one that holds an impact.
template<class Curve>
refusal bounce<Curve>::first_in_pieces(spot& impact) {
    const auto size = std::ssize(inflections);
    const int interval =
        bsearch_interval(static_cast<unsigned>(size), phi + near_end.x, inflections.data());
    if (interval < 0 || interval >= size - 1) return refusal::outside_list;

    spot u = near_end;
    for (std::ptrdiff_t entry = dir > 0 ? interval + 1 : interval;; entry += dir) {
        const double x = entry >= 0 && entry < size ? angle_to(entry) : far_end.x;
        const bool at_end = !before(x, far_end.x);
        // An entry may stand twice, or the start may have been rounded onto it: no piece at all.
        if (!at_end && !before(u.x, x)) continue;
        const spot e = at_end ? far_end : piece_end(entry);
        if (u.h == 0 && e.h > 0) { // as at the near end: it is an impact itself
            impact = u;
            return refusal::none;
        }
        if (e.h == 0) {
            impact = e;
            return refusal::none;
        }
        if (e.h < 0) return search(u, e, impact);
        if (!(e.h > 0)) return refusal::no_number;

        if (may_leave_between(u, e, bends_of(dir > 0 ? entry - 1 : entry))) {
            if (const std::optional<spot> turn = stationary_between(u, e)) {
                if (!(turn->h == turn->h)) return refusal::stationary_point;
                if (turn->h == 0) {
                    impact = *turn;
                    return refusal::none;
                }
                if (turn->h < 0) return search(u, *turn, impact);
            }
        }
        if (at_end) return refusal::no_number; // not reached: the far end is outside
        u = e;
    }
}

// Both ends are inside. Seen from the origin the boundary lies beyond the line there, and where it
// bends left it comes no nearer in between. Where it bends right the path may have left the table
// and come back, around a point where g is stationary.
template<class Curve>
bool bounce<Curve>::may_leave_between(const spot& u, const spot& e, int bends) const {
    if (bends > 0 || !(slope_of_g(u) * slope_of_g(e) <= 0)) return false;
    return !(bends < 0 && arc_stays_inside(u, e));
}

// The point where g is stationary; none where its slopes had the signs of rounding.
template<class Curve>
std::optional<typename bounce<Curve>::spot> bounce<Curve>::stationary_between(const spot& u,
                                                                              const spot& e) {
    TFindExt extremum(&curve, c, phi + w);
    double a = phi + u.x;
    double b = phi + e.x;
    const double theta = extremum.safe_newton(a, b, 1e-14);
    if (theta != theta) return {};
    spot x = place(theta - phi);
    look(x);
    return x;
}

// Radius and slope at the inflections are constants of the curve, and so the ends of the pieces
// cost no evaluation.
template<class Curve>
typename bounce<Curve>::spot bounce<Curve>::piece_end(std::ptrdiff_t entry) {
    const auto i = static_cast<std::size_t>(entry);
    if (i >= knots.size() || knots[i].theta != inflections[i]) {
        spot p = place(angle_to(entry));
        look(p);
        return p;
    }
    const inflection_knot& k = knots[i];
    spot p = turned(start, angle_to(entry), k.sine * start.cosine - k.cosine * start.sine,
                    1 - (k.cosine * start.cosine + k.sine * start.sine));
    p.sine = k.sine;
    p.cosine = k.cosine;
    p.r = k.r;
    p.dr = k.dr;
    p.h = p.r * p.s - c;
    return p;
}

// The knots know it of the interval from an entry to the next, if they are those of the list.
template<class Curve>
int bounce<Curve>::bends_of(std::ptrdiff_t interval) const {
    const auto i = static_cast<std::size_t>(interval); // -1 becomes larger than any size
    if (i >= knots.size() || knots.size() != inflections.size()) return 0;
    return knots[i].theta == inflections[i] ? knots[i].bends : 0;
}

// An arc that bends one way lies in the triangle of its chord and its end tangents. Where all
// three corners are inside, so is the arc, and no stationary point need be searched. Coordinates
// run along the line and across it; nothing is divided.
template<class Curve>
bool bounce<Curve>::arc_stays_inside(const spot& u, const spot& e) const {
    const double ux = u.dr * u.o + u.r * u.s; // the tangents, per radian
    const double uy = u.dr * u.s - u.r * u.o;
    const double ex = e.dr * e.o + e.r * e.s;
    const double ey = e.dr * e.s - e.r * e.o;
    const double dx = e.r * e.o - u.r * u.o; // the chord
    const double dy = e.h - u.h;
    const double cross = ux * ey - uy * ex;
    const double from_u = dx * ey - dy * ex; // way to the meeting point, times cross
    const double from_e = ux * dy - uy * dx;
    const bool ahead = dir * from_u * cross > 0 && dir * from_e * cross > 0;
    return ahead && (u.h * cross + from_u * uy) * cross > 0;
}

} // namespace ray
