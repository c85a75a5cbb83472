// SPDX-License-Identifier: MIT
// The curves made of pieces: stadium and triangle.
#include <cmath>
#include <numbers>

#include "billiard/radius-core/TRadiusFunction.h"

namespace {

using std::numbers::pi;
constexpr double two_pi = 2 * pi;

// phi less its whole turns; rounding may leave it very slightly below 0, or at 2 pi, which a curve
// with a corner at the seam must tell from 0. A bounce comes with at most one turn too many on
// either side, and needs no call for them; which of them it is cannot be predicted, and so it is
// no branch either.
double reduced(double phi) {
    if (phi >= -two_pi && phi < 2 * two_pi) {
        const double down = phi >= two_pi ? two_pi : 0.0;
        const double up = phi < 0 ? two_pi : 0.0;
        return (phi - down) + up;
    }
    return phi - two_pi * std::floor(phi / two_pi);
}

} // namespace

// TStadiumFunction

bool TStadiumFunction::set(double z) {
    return set(std::fabs(z), 1);
}

bool TStadiumFunction::set(double a_, double b_) {
    a = a_;
    b = b_;
    a2 = a * a;
    b2 = b * b;
    corner1 = std::atan(b / a);
    corner2 = pi - corner1;
    corner3 = pi + corner1;
    corner4 = two_pi - corner1;
    least_square = b2 * b2 / (a2 + b2);
    return true;
}

TStadiumFunction::piece TStadiumFunction::piece_at(double u) const {
    if (u < corner1 || u > corner4) return right_arc;
    if (u < corner2) return top_side;
    if (u < corner3) return left_arc;
    return bottom_side;
}

// b^2 - a^2 s^2, whose least value on the semicircles stands at the joints. For a long stadium
// rounding of the angle there would make it negative.
double TStadiumFunction::arc_square(double s) const {
    return std::fmax(b2 - a2 * s * s, least_square);
}

double TStadiumFunction::R(double phi) const {
    const double u = reduced(phi);
    const double s = std::sin(u);
    const double c = std::cos(u);
    switch (piece_at(u)) {
    case right_arc:
        return a * c + std::sqrt(arc_square(s));
    case left_arc:
        return -a * c + std::sqrt(arc_square(s));
    case top_side:
        return b / s;
    default:
        return -b / s;
    }
}

double TStadiumFunction::dR(double phi) const {
    const double u = reduced(phi);
    const double s = std::sin(u);
    const double c = std::cos(u);
    switch (piece_at(u)) {
    case right_arc:
        return -a * s - a2 * s * c / std::sqrt(arc_square(s));
    case left_arc:
        return a * s - a2 * s * c / std::sqrt(arc_square(s));
    case top_side:
        return -b * c / (s * s);
    default:
        return b * c / (s * s);
    }
}

double TStadiumFunction::ddR(double phi) const {
    const double u = reduced(phi);
    const double s = std::sin(u);
    const double c = std::cos(u);
    const piece p = piece_at(u);
    if (p == top_side) return b / s + 2 * b * c * c / (s * s * s);
    if (p == bottom_side) return -b / s - 2 * b * c * c / (s * s * s);
    const double E = arc_square(s);
    const double D = std::sqrt(E);
    const double bend = a2 * (s * s - c * c) / D - a2 * a2 * c * c * s * s / (D * E);
    return p == right_arc ? bend - a * c : bend + a * c;
}

kit::string TStadiumFunction::familyText() const {
    return "Stadium with ratio z";
}

kit::string TStadiumFunction::instanceText() const {
    return kit::string::format("Stadium with ratio %g", a / b);
}

void TStadiumFunction::value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                                       double& dr) const {
    const piece p = piece_at(reduced(phi));
    if (p == top_side || p == bottom_side) {
        r = (p == top_side ? b : -b) / sin_phi;
        dr = -r * cos_phi / sin_phi;
        return;
    }
    const double ac = p == right_arc ? a * cos_phi : -a * cos_phi;
    const double D = std::sqrt(arc_square(sin_phi));
    r = ac + D;
    dr = -(p == right_arc ? a : -a) * sin_phi * r / D;
}

// TTriangleFunction

bool TTriangleFunction::set(double alpha_, double beta_) {
    alpha = alpha_;
    beta = beta_;
    gamma = pi - alpha - beta;
    const bool good = alpha > 0 && beta > 0 && gamma > 0;
    if (!good) {
        alpha = 1.0;
        beta = 1.08;
        gamma = 1.061592653589793;
    }
    const double sa = std::sin(alpha);
    const double sb = std::sin(beta);
    const double sc = std::sin(gamma);
    const double outer = 1 / std::sqrt(2 * sa * sb * sc);
    rin = 2 / (2 * outer * (sa + sb + sc));
    corner1 = pi - (beta + gamma) / 2;
    corner2 = corner1 + pi - (alpha + gamma) / 2;
    shift2 = pi - (beta / 2 + gamma);
    shift1 = beta / 2;
    sin_shift1 = std::sin(shift1);
    cos_shift1 = std::cos(shift1);
    sin_shift2 = std::sin(shift2);
    cos_shift2 = std::cos(shift2);
    return good;
}

bool TTriangleFunction::setDegrees(double alpha_, double beta_) {
    return set(alpha_ * pi / 180, beta_ * pi / 180);
}

// The angle from the direction of the side at u to the ray, and the sign of its sine.
double TTriangleFunction::angle_to_side(double u, double& sign) const {
    sign = 1;
    if (0 <= u && u <= corner1) return u + shift1;
    if (corner1 <= u && u <= corner2) return u - shift2;
    sign = -1;
    return u - shift1;
}

double TTriangleFunction::R(double phi) const {
    double sign;
    const double x = angle_to_side(reduced(phi), sign);
    return sign * rin / std::sin(x);
}

double TTriangleFunction::dR(double phi) const {
    double sign;
    const double x = angle_to_side(reduced(phi), sign);
    const double s = std::sin(x);
    return -sign * rin * std::cos(x) / (s * s);
}

double TTriangleFunction::ddR(double phi) const {
    double sign;
    const double x = angle_to_side(reduced(phi), sign);
    const double s = std::sin(x);
    const double c = std::cos(x);
    return sign * (rin / s + 2 * rin * c * c / (s * s * s));
}

kit::string TTriangleFunction::familyText() const {
    return "Triangle with angles alpha and beta (in degree)";
}

kit::string TTriangleFunction::instanceText() const {
    return kit::string::format("Triangle with angles alpha=%g\xb0 and beta=%g\xb0",
                               alpha * 180 / pi, beta * 180 / pi);
}

void TTriangleFunction::value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                                        double& dr) const {
    const double u = reduced(phi);
    const bool first = 0 <= u && u <= corner1;
    const bool second = !first && corner1 <= u && u <= corner2;
    // Sine and cosine of the shift to this side, signed so that one formula serves all three.
    const double shift_sin = first ? sin_shift1 : second ? -sin_shift2 : -sin_shift1;
    const double shift_cos = second ? cos_shift2 : cos_shift1;
    const double s = sin_phi * shift_cos + cos_phi * shift_sin;
    const double c = cos_phi * shift_cos - sin_phi * shift_sin;
    r = (first || second ? rin : -rin) / s;
    dr = -r * c / s;
}
