// SPDX-License-Identifier: MIT
// The curves made of pieces: stadium and triangle.
#include "billiard/radius-core/TRadiusFunction.h"

#include "mathkit/turn.h"

#include <cmath>
#include <numbers>

using kit::reduced;
using std::numbers::pi;

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
    corner4 = kit::two_pi - corner1;
    least_square = b2 * b2 / (a2 + b2);
    return true;
}

TStadiumFunction::piece TStadiumFunction::piece_at(double u) const {
    if (u < corner1 || u > corner4) return right_arc;
    if (u < corner2) return top_side;
    if (u < corner3) return left_arc;
    return bottom_side;
}

// b^2 - a^2 s^2, whose least value on the semicircles is that at the joints. For a long stadium
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

double TStadiumFunction::curvature_at(double phi, double /*sin_phi*/, double /*cos_phi*/,
                                      double /*r*/, double /*dr*/) const {
    const piece p = piece_at(reduced(phi));
    return p == right_arc || p == left_arc ? 1 / b : 0;
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
    const auto sloping = [this](double shift, double sign) {
        return side{shift, std::sin(shift), std::cos(shift), sign * rin};
    };
    sides[0] = sloping(shift1, 1);
    sides[1] = sloping(-shift2, 1);
    sides[2] = sloping(-shift1, -1);
    return good;
}

bool TTriangleFunction::setDegrees(double alpha_, double beta_) {
    // In radians 120 and 60 degrees would leave a third angle that is nothing but rounding.
    if (!(alpha_ + beta_ < 180)) return set(0, 0);
    return set(alpha_ * pi / 180, beta_ * pi / 180);
}

// Each number is selected on its own: the processor would wait for a jump or an address that
// depends on u.
TTriangleFunction::side TTriangleFunction::side_at(double u) const {
    const bool first = 0 <= u && u <= corner1;
    const bool second = !first && corner1 <= u && u <= corner2;
    const auto pick = [&](double side::*number) {
        return first ? sides[0].*number : second ? sides[1].*number : sides[2].*number;
    };
    return {pick(&side::shift), pick(&side::sin_shift), pick(&side::cos_shift),
            pick(&side::distance)};
}

double TTriangleFunction::R(double phi) const {
    const double u = reduced(phi);
    const side at = side_at(u);
    return at.distance / std::sin(u + at.shift);
}

double TTriangleFunction::dR(double phi) const {
    const double u = reduced(phi);
    const side at = side_at(u);
    const double x = u + at.shift;
    const double s = std::sin(x);
    return -at.distance * std::cos(x) / (s * s);
}

double TTriangleFunction::ddR(double phi) const {
    const double u = reduced(phi);
    const side at = side_at(u);
    const double x = u + at.shift;
    const double s = std::sin(x);
    const double c = std::cos(x);
    return at.distance / s + 2 * at.distance * c * c / (s * s * s);
}

double TTriangleFunction::curvature_at(double /*phi*/, double /*sin_phi*/, double /*cos_phi*/,
                                       double /*r*/, double /*dr*/) const {
    return 0;
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
    const side at = side_at(reduced(phi));
    const double s = sin_phi * at.cos_shift + cos_phi * at.sin_shift;
    const double c = cos_phi * at.cos_shift - sin_phi * at.sin_shift;
    r = at.distance / s;
    dr = -r * c / s;
}
