// SPDX-License-Identifier: MIT
// What every curve shares; the analytic curves and the Fourier curve.
#include "billiard/radius-core/TRadiusFunction.h"

#include "mathkit/stderr_failed.h"
#include "mathkit/trig.h"
#include "mathkit/turn.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <vector>

// TRadiusFunction

double TRadiusFunction::curvatureNumerator(double phi) const {
    const double r = R(phi);
    const double dr = dR(phi);
    return r * r + 2 * dr * dr - r * ddR(phi);
}

double TRadiusFunction::curvature_of(double r, double dr, double ddr) {
    const double q = r * r + dr * dr;
    return (r * r + 2 * dr * dr - r * ddr) / (q * std::sqrt(q));
}

double TRadiusFunction::curvature(double phi) const {
    return curvature_of(R(phi), dR(phi), ddR(phi));
}

double TRadiusFunction::curvature_at(double phi, double /*sin_phi*/, double /*cos_phi*/, double r,
                                     double dr) const {
    return curvature_of(r, dr, ddR(phi));
}

void TRadiusFunction::value_and_slope(double phi, double /*sin_phi*/, double /*cos_phi*/, double& r,
                                      double& dr) const {
    r = R(phi);
    dr = dR(phi);
}

void TRadiusFunction::derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                                  double& ddr) const {
    value_and_slope(phi, sin_phi, cos_phi, r, dr);
    ddr = ddR(phi);
}

double TRadiusFunction::arcDensity(double phi) const {
    double r;
    return arcDensity(phi, r);
}

double TRadiusFunction::arcDensity(double phi, double& r) const {
    double s, c, dr;
    kit::sincos(phi, s, c);
    value_and_slope(phi, s, c, r, dr);
    return std::sqrt(r * r + dr * dr);
}

double TRadiusFunction::areaDensity(double phi) const {
    const double r = R(phi);
    return 0.5 * r * r;
}

void TRadiusFunction::pointAt(double phi, double& x, double& y) const {
    const double r = R(phi);
    x = r * std::cos(phi);
    y = r * std::sin(phi);
}

void TRadiusFunction::tangentAt(double phi, double& tx, double& ty) const {
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    double r, dr;
    value_and_slope(phi, s, c, r, dr);
    tx = dr * c - r * s;
    ty = r * c + dr * s;
}

void TRadiusFunction::unitTangent(double phi, double& tx, double& ty) const {
    tangentAt(phi, tx, ty);
    const double length = std::hypot(tx, ty);
    tx /= length;
    ty /= length;
}

void TRadiusFunction::unitNormal(double phi, double& nx, double& ny) const {
    double tx, ty;
    unitTangent(phi, tx, ty);
    nx = ty;
    ny = -tx;
}

bool TRadiusFunction::isInside(double x, double y) const {
    const double angle = std::atan2(y, x);
    return R(angle < 0 ? angle + kit::two_pi : angle) > std::hypot(x, y);
}

// TEllipseFunction

bool TEllipseFunction::set(double e_) {
    e = e_;
    return true;
}

double TEllipseFunction::R(double phi) const {
    const double ec = e * std::cos(phi);
    return 1 / std::sqrt(1 + ec * ec);
}

double TEllipseFunction::dR(double phi) const {
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    const double q = 1 + e * e * c * c;
    return e * e * c * s / (q * std::sqrt(q));
}

double TEllipseFunction::ddR(double phi) const {
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    const double e2 = e * e;
    const double q = 1 + e2 * c * c;
    const double root = std::sqrt(q);
    return e2 * (c * c - s * s) / (q * root) + 3 * e2 * e2 * c * c * s * s / (q * q * root);
}

kit::string TEllipseFunction::familyText() const {
    return "R(phi)=1/sqrt(1+(e*cos(phi))^2)";
}

kit::string TEllipseFunction::instanceText() const {
    return kit::string::format("R(phi)=1/sqrt(1+(%.4g*cos(phi))^2)", e);
}

void TEllipseFunction::value_and_slope(double /*phi*/, double sin_phi, double cos_phi, double& r,
                                       double& dr) const {
    const double e2c = e * e * cos_phi;
    const double q = 1 + e2c * cos_phi;
    r = 1 / std::sqrt(q);
    dr = e2c * sin_phi * r / q;
}

// A long ellipse is nearly flat along its sides, where the terms that curvature_of adds would
// cancel.
double TEllipseFunction::curvature_at(double /*phi*/, double sin_phi, double cos_phi, double r,
                                      double /*dr*/) const {
    const double q = 1 + e * e;
    const double x = q * r * cos_phi;
    const double y = r * sin_phi;
    const double slant = x * x + y * y;
    return q / (slant * std::sqrt(slant));
}

// TOvalAFunction

bool TOvalAFunction::set(double c_) {
    const bool good = c_ > 1.0;
    c = good ? c_ : 2.0;
    return good;
}

double TOvalAFunction::R(double phi) const {
    return c + std::cos(2 * phi);
}

double TOvalAFunction::dR(double phi) const {
    return -2 * std::sin(2 * phi);
}

double TOvalAFunction::ddR(double phi) const {
    return -4 * std::cos(2 * phi);
}

double TOvalAFunction::curvatureNumerator(double phi) const {
    const double d = std::cos(2 * phi);
    return c * c + 6 * c * d - 3 * d * d + 8;
}

kit::string TOvalAFunction::familyText() const {
    return "R(phi)=c+cos(2*phi)";
}

kit::string TOvalAFunction::instanceText() const {
    return kit::string::format("R(phi)=%.4g+cos(2*phi)", c);
}

void TOvalAFunction::value_and_slope(double /*phi*/, double sin_phi, double cos_phi, double& r,
                                     double& dr) const {
    r = c + (cos_phi - sin_phi) * (cos_phi + sin_phi);
    dr = -4 * sin_phi * cos_phi;
}

void TOvalAFunction::derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                                 double& ddr) const {
    TOvalAFunction::value_and_slope(phi, sin_phi, cos_phi, r, dr);
    ddr = -4 * (cos_phi - sin_phi) * (cos_phi + sin_phi);
}

double TOvalAFunction::curvature_at(double /*phi*/, double /*sin_phi*/, double /*cos_phi*/,
                                    double r, double dr) const {
    return curvature_of(r, dr, 4 * (c - r));
}

// TOvalBFunction

bool TOvalBFunction::set(double e_) {
    const bool good = std::fabs(e_) < 1.0;
    e = good ? e_ : 0.3;
    return good;
}

double TOvalBFunction::R(double phi) const {
    return 1 + e * std::cos(phi);
}

double TOvalBFunction::dR(double phi) const {
    return -e * std::sin(phi);
}

double TOvalBFunction::ddR(double phi) const {
    return -e * std::cos(phi);
}

double TOvalBFunction::curvatureNumerator(double phi) const {
    return 1 + 2 * e * e + 3 * e * std::cos(phi);
}

kit::string TOvalBFunction::familyText() const {
    return "R(phi)=1+e*cos(phi)";
}

kit::string TOvalBFunction::instanceText() const {
    return kit::string::format("R(phi)=1+%.4g*cos(phi)", e);
}

void TOvalBFunction::value_and_slope(double /*phi*/, double sin_phi, double cos_phi, double& r,
                                     double& dr) const {
    r = 1 + e * cos_phi;
    dr = -e * sin_phi;
}

void TOvalBFunction::derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                                 double& ddr) const {
    TOvalBFunction::value_and_slope(phi, sin_phi, cos_phi, r, dr);
    ddr = -e * cos_phi;
}

double TOvalBFunction::curvature_at(double /*phi*/, double /*sin_phi*/, double /*cos_phi*/,
                                    double r, double dr) const {
    return curvature_of(r, dr, 1 - r);
}

// TGenOvalFunction. Products with n are products of doubles: n * n may leave the range of int.

bool TGenOvalFunction::set(double c_, int n_) {
    const bool good = c_ > 1.0;
    c = good ? c_ : 2.0;
    n = n_ == INT_MIN ? INT_MAX : std::abs(n_);
    return good;
}

double TGenOvalFunction::R(double phi) const {
    return c + std::cos(n * phi);
}

double TGenOvalFunction::dR(double phi) const {
    return -n * std::sin(n * phi);
}

double TGenOvalFunction::ddR(double phi) const {
    const double m = n;
    return -m * m * std::cos(n * phi);
}

double TGenOvalFunction::curvatureNumerator(double phi) const {
    const double m = n;
    const double a = std::cos(m * phi);
    const double b = std::cos(2 * m * phi);
    return c * c + 2 * c * a + 0.5 + b / 2 + m * m / 2 * (3 - b + 2 * c * a);
}

kit::string TGenOvalFunction::familyText() const {
    return "R(phi)=c+cos(n*phi)";
}

kit::string TGenOvalFunction::instanceText() const {
    return kit::string::format("R(phi)=%.4g+cos(%d*phi)", c, n);
}

// cos(n phi) + i sin(n phi) as a power of (cos phi + i sin phi), where n is small enough for its
// products to cost less, and to round less, than a sine and cosine.
void TGenOvalFunction::power(double phi, double sin_phi, double cos_phi, double& x,
                             double& y) const {
    if (!(0 <= n && n <= 32)) {
        kit::sincos(n * phi, y, x);
        return;
    }
    x = 1, y = 0;
    double px = cos_phi, py = sin_phi;
    for (int bits = n; bits != 0; bits >>= 1) {
        if ((bits & 1) != 0) {
            const double t = x * px - y * py;
            y = x * py + y * px;
            x = t;
        }
        const double t = (px - py) * (px + py);
        py = 2 * px * py;
        px = t;
    }
}

void TGenOvalFunction::value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                                       double& dr) const {
    double x, y;
    power(phi, sin_phi, cos_phi, x, y);
    r = c + x;
    dr = -n * y;
}

void TGenOvalFunction::derivatives(double phi, double sin_phi, double cos_phi, double& r,
                                   double& dr, double& ddr) const {
    double x, y;
    power(phi, sin_phi, cos_phi, x, y);
    r = c + x;
    dr = -n * y;
    const double m = n;
    ddr = -m * m * x;
}

double TGenOvalFunction::curvature_at(double /*phi*/, double /*sin_phi*/, double /*cos_phi*/,
                                      double r, double dr) const {
    const double m = n;
    return curvature_of(r, dr, m * m * (c - r));
}

// TPotatoFunction

void TPotatoFunction::allocate(int count) {
    n = std::max(count, 1);
    A = new double[static_cast<std::size_t>(n)]();
    PH = new double[static_cast<std::size_t>(n)]();
}

TPotatoFunction::TPotatoFunction(int count, const double* amplitudes, const double* phases) {
    allocate(count);
    if (count < 1) return;
    std::copy_n(amplitudes, n, A);
    std::copy_n(phases, n, PH);
}

TPotatoFunction::TPotatoFunction(const char* text) {
    const auto malformed = [](int line) {
        stderr_fatal_error(nullptr, "billiard/radius-core/TRadiusFunction", line,
                           "TPotatoFunction::TPotatoFunction(const char*)");
    };
    char* at = nullptr;
    const long count = std::strtol(text, &at, 10);
    if (at == text || *at != ' ' || count < 0) malformed(__LINE__);
    // If there is no number, `at` stays where it is.
    const auto next_number = [&at](double& x) {
        char* const from = at;
        x = std::strtod(from, &at);
        return at != from;
    };

    // The arrays grow with the text, so that a count larger than the text costs no memory.
    std::vector<double> amplitudes, phases;
    for (long i = 0; i < count; ++i) {
        double amplitude, phase;
        if (!next_number(amplitude) || *at != ' ') malformed(__LINE__);
        if (!next_number(phase) || (i != count - 1 && *at != ' ')) malformed(__LINE__);
        amplitudes.push_back(amplitude);
        phases.push_back(phase);
    }
    allocate(static_cast<int>(amplitudes.size()));
    std::copy(amplitudes.begin(), amplitudes.end(), A);
    std::copy(phases.begin(), phases.end(), PH);
}

TPotatoFunction::~TPotatoFunction() {
    delete[] A;
    delete[] PH;
}

double TPotatoFunction::R(double t) const {
    double sum = A[0];
    for (int i = 1; i < n; ++i)
        sum += A[i] * std::cos(i * t + PH[i]);
    return sum;
}

double TPotatoFunction::dR(double t) const {
    double sum = 0;
    for (int i = 1; i < n; ++i)
        sum -= i * A[i] * std::sin(i * t + PH[i]);
    return sum;
}

double TPotatoFunction::ddR(double t) const {
    double sum = 0;
    for (int i = 1; i < n; ++i)
        sum -= double(i) * i * A[i] * std::cos(i * t + PH[i]);
    return sum;
}

kit::string TPotatoFunction::familyText() const {
    kit::string text = "A[0]";
    for (int i = 1; i < n; ++i) {
        text = kit::string::concat(text, kit::string::format("+A[%d]*cos(%d*t+PH[%d]) ", i, i, i));
    }
    return text;
}

kit::string TPotatoFunction::instanceText() const {
    kit::string text = kit::string::format("%g+", A[0]);
    for (int i = 1; i < n; ++i) {
        text = kit::string::concat(
            text, kit::string::format(i > 1 ? "+ (%g)*cos(%d*t+%g) " : " (%g)*cos(%d*t+%g) ", A[i],
                                      i, PH[i]));
    }
    return text;
}

void TPotatoFunction::value_and_slope(double t, double /*sin_phi*/, double /*cos_phi*/, double& r,
                                      double& dr) const {
    r = A[0];
    dr = 0;
    for (int i = 1; i < n; ++i) {
        double s, c;
        kit::sincos(i * t + PH[i], s, c);
        r += A[i] * c;
        dr -= i * A[i] * s;
    }
}
