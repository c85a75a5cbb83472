// SPDX-License-Identifier: MIT
// The billiard: its curve, the table of its arc length, and the map from impact to impact.
#include "billiard/radius-core/TBilliard.h"

#include <algorithm>
#include <cmath>

#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/TError.h"
#include "mathkit/bsearch.h"
#include "mathkit/stderr_failed.h"

namespace {

constexpr double pi = 3.14159265358979324;
constexpr double two_pi = 2 * pi;

[[noreturn]] void confused(int line) {
    throw TError("The root solver is confused.\n"
                 "Could not find intersection between ray and billiard.\n"
                 "Something must be wrong with the billiard shape!\n")
        .setPosition("void TBilliard::findit(double&, double&)", "billiard/radius-core/TBilliard",
                     line);
}

int sign(double x) {
    return (x > 0) - (x < 0);
}

} // namespace

double TCircumferenceIntegrator::f(double x) {
    return F->arcDensity(x);
}

double TFindRoot::f(double theta) {
    return F->R(theta) - c / std::sin(psi - theta);
}

void TFindRoot::fdf(double theta, double& value, double& slope) {
    value = f(theta);
    slope = df(theta);
}

double TFindRoot::df(double theta) {
    const double cosine = std::cos(psi - theta);
    return F->dR(theta) - c * cosine / (1 - cosine * cosine);
}

double TFindExt::f(double theta) {
    const double cosine = std::cos(psi - theta);
    return F->dR(theta) - c * cosine / (1 - cosine * cosine);
}

void TFindExt::fdf(double theta, double& value, double& slope) {
    value = f(theta);
    slope = df(theta);
}

double TFindExt::df(double theta) {
    const double s = std::sin(psi - theta);
    const double cotangent = std::cos(psi - theta) / s;
    return F->ddR(theta) - c * (1 + 2 * cotangent * cotangent) / s;
}

double curvature_root::f(double x) {
    return F->curvatureNumerator(x);
}

void TBilliard::circumference_class::resize(int n) {
    phi.resize(static_cast<std::size_t>(n));
    s.resize(static_cast<std::size_t>(n));
    r.resize(static_cast<std::size_t>(n));
}

void TBilliard::circumference_class::get(int i, double& x, double& y) const {
    if (!(i >= 0 && i < size())) {
        stderr_assert_failed("i>=0 && i<size()", "billiard/radius-core/TBilliard", __LINE__,
                             "void TBilliard::circumference_class::get(int, double&, double&)");
    }
    const auto row = static_cast<std::size_t>(i);
    x = r[row] * std::cos(phi[row]);
    y = r[row] * std::sin(phi[row]);
}

void TBilliard::circumference_class::getR(double angle, double& x, double& y) const {
    if (!(size() > 1)) {
        stderr_assert_failed("size()>1", "billiard/radius-core/TBilliard", __LINE__,
                             "void TBilliard::circumference_class::getR(double, double&, double&)");
    }
    const double radius = bsearch_list_lookup(size(), angle, phi.data(), r.data());
    x = radius * std::cos(angle);
    y = radius * std::sin(angle);
}

void TBilliard::circumference_class::getborder(TRect& rect) const {
    if (!(size() > 0)) {
        stderr_assert_failed("size()>0", "billiard/radius-core/TBilliard", __LINE__,
                             "void TBilliard::circumference_class::getborder(TRect&)");
    }
    double x, y;
    get(0, x, y);
    rect.set(x, y);
    for (int i = 1; i < size(); ++i) {
        get(i, x, y);
        rect.expand(x, y);
    }
}

TBilliard::TBilliard(TRadiusFunction* F) : F(F) {
    prepare();
}

TBilliard::~TBilliard() {
    delete F;
}

void TBilliard::setF(TRadiusFunction* curve) {
    delete F;
    F = curve;
    prepare();
}

void TBilliard::prepare() {
    convex = F->isConvex();
    buildCircumference();
    if (!convex) buildInflections();
}

namespace {

constexpr int usual_rows = 2000;
constexpr int most_rows = 50000;

// The angle of the row after row i at phi, where ds is the length to cover and `density` the arc
// length per radian at phi.
//
// The step that the density asks for may be no number, or too small to move phi: then a row of an
// even table takes its place. Where half of all rows is used up, steps shorter than an even spread
// of the other half are lengthened, and so the table ends.
double next_angle(double phi, double ds, double density, int i) {
    double p = phi + ds / (density + 1e-10);
    if (!(p > phi)) p = phi + two_pi / usual_rows;
    if (i >= most_rows / 2) p = std::max(p, phi + (two_pi - phi) / (most_rows - 1 - i));
    return p < two_pi ? p : two_pi;
}

// Turns lengths into parts of the whole. A boundary whose length is 0 or no number is measured by
// its angle instead.
void normalise(std::vector<double>& s, const std::vector<double>& phi) {
    const double whole = s.back();
    const bool measured = whole > 0 && std::isfinite(1 / whole) && std::isfinite(whole);
    const std::vector<double>& from = measured ? s : phi;
    const double scale = 1 / from.back();
    std::transform(from.begin(), from.end(), s.begin(), [&](double x) { return x * scale; });
    s.back() = 1;
}

} // namespace

void TBilliard::buildCircumference() {
    TCircumferenceIntegrator integrator(F);
    const double length = integrator.AdaptiveGauss(0, two_pi, 1e-12, 36);
    const double ds = length / usual_rows;

    circumference_class& table = circumference;
    table.resize(usual_rows + 20);
    double phi = 0;
    double s = 0;
    int i = 0;
    for (;; ++i) {
        if (i == table.size()) table.resize(2 * i);
        const auto row = static_cast<std::size_t>(i);
        table.phi[row] = phi;
        table.s[row] = s;
        double dr;
        F->value_and_slope(phi, std::sin(phi), std::cos(phi), table.r[row], dr);
        if (phi >= two_pi) break;

        const double density = std::sqrt(table.r[row] * table.r[row] + dr * dr);
        const double p = next_angle(phi, ds, density, i);
        const double step = integrator.AdaptiveGauss(phi, p, 1e-12, 1);
        if (std::isfinite(step)) s += step;
        phi = p;
    }
    table.resize(i + 1);
    normalise(table.s, table.phi);
}

void TBilliard::buildInflections() {
    constexpr double step = 0.0031415926535897933; // pi/1000
    curvature_root root(F);
    inflections.clear();
    inflections.reserve(2000);
    inflections.push_back(-pi);
    double before = F->curvature(-pi);
    for (double x = -pi + step; x <= 3 * pi; x += step) {
        const double here = F->curvature(x);
        if (before * here < 0) {
            double a = x - step;
            double b = x;
            inflections.push_back(root.brent1(a, b, 1e-14));
        }
        before = here;
    }
    inflections.push_back(3 * pi);
    if (inflections.size() == 2) convex = true;
}

void TBilliard::findit(double& phi, double& alpha) {
    const double t0 = std::atan(F->dR(phi) / F->R(phi)) + pi / 2;
    double w = (alpha + pi) - t0;
    if (w >= pi) w -= pi;
    const double psi = phi + w;
    if (!(psi >= phi && phi >= psi - pi)) confused(__LINE__);

    const double s = std::sin(psi - phi);
    double theta = 0;
    if (std::fabs(s) < 1e-6) {
        const double phi2 = phi + pi;
        double e = psi - phi;
        if (e > 0.1) e -= pi;
        if (!(std::fabs(e) < 1e-4)) confused(__LINE__);
        theta = phi2 + e * (F->R(phi) + F->R(phi2)) / F->R(phi2);
    } else {
        const double c = F->R(phi) * s;
        TFindRoot find(F, c, psi);
        const int dir = find.df(phi) > 0 ? 1 : -1;
        double a = phi + dir * 2.5e-7;
        if (!(find.f(a) >= 0)) a = phi + dir * 2.5e-9;
        if (!(find.f(a) >= 0)) a = phi + dir * 2.5e-11;
        if (!(find.f(a) >= 0)) confused(__LINE__);
        double b = dir > 0 ? psi - 2.5e-7 : (psi - pi) + 2.5e-7;
        if (find.f(a) * find.f(b) > 0) confused(__LINE__);
        if (convex) {
            theta = find.safe_newton(a, b, 1e-12);
        } else {
            const int size = static_cast<int>(inflections.size());
            int i = bsearch_interval(inflections.size(), a, inflections.data());
            if (i < 0 || i >= size - 1) confused(__LINE__);
            if (dir > 0) ++i;
            double u = a;
            TFindExt ext(F, c, psi);
            for (;;) {
                const double k = i >= 0 && i < size ? inflections[static_cast<std::size_t>(i)] : b;
                const bool last = !(dir * (b - k) > 0) || i < 0 || i >= size;
                double e = last ? b : k;
                if (sign(find.f(u)) * sign(find.f(e)) <= 0) {
                    theta = find.safe_newton(u, e, 1e-12);
                    break;
                }
                if (sign(ext.f(u)) * sign(ext.f(e)) <= 0) {
                    double u1 = u, e1 = e;
                    double x = ext.safe_newton(u1, e1, 1e-14);
                    const int s1 = sign(find.f(u)) * sign(find.f(x));
                    const int s2 = sign(find.f(x)) * sign(find.f(e));
                    if (s2 != 0 && s1 * s2 < 0) confused(__LINE__);
                    if (s1 <= 0) {
                        theta = find.safe_newton(u, x, 1e-12);
                        break;
                    }
                }
                if (last) {
                    a = phi + dir * 2.5e-7;
                    theta = find.safe_newton(a, b, 1e-12);
                    break;
                }
                u = e;
                i += dir;
            }
        }
    }
    const double t1 = std::atan(F->dR(theta) / F->R(theta)) + pi / 2;
    const double turned = (theta - phi + t0) - t1 - alpha;
    const double next_phi = theta - two_pi * std::floor(theta / two_pi);
    const double next_alpha = turned - pi * std::floor(turned / pi);
    if (!(next_phi >= 0 && next_alpha >= 0)) confused(__LINE__);
    phi = next_phi;
    alpha = next_alpha;
}

bool TBilliardMap::setPoint(double S, double P) {
    if (!(circumference.size() > 1)) {
        stderr_assert_failed("circumference.size()>1", "billiard/radius-core/TBilliard", __LINE__,
                             "bool TBilliardMap::setPoint(double, double)");
    }
    if (!(S > 0 && S < 1)) return false;
    if (!(P > -1 && P < 1)) return false;
    phi = bsearch_list_lookup(circumference.size(), S, circumference.s.data(),
                              circumference.phi.data());
    alpha = std::acos(P);
    return true;
}

void TBilliardMap::getPoint(double& S, double& P) {
    if (!(circumference.size() > 1)) {
        stderr_assert_failed("circumference.size()>1", "billiard/radius-core/TBilliard", __LINE__,
                             "void TBilliardMap::getPoint(double&, double&)");
    }
    S = bsearch_list_lookup(circumference.size(), phi, circumference.phi.data(),
                            circumference.s.data());
    P = std::cos(alpha);
}

void TBilliardMap::iterate() {
    if (!(F != nullptr)) {
        stderr_assert_failed("F!=0", "billiard/radius-core/TBilliard", __LINE__,
                             "void TBilliardMap::iterate()");
    }
    findit(phi, alpha);
}

void TBilliardMap::getPhiAlpha(double& phi_, double& alpha_) const {
    phi_ = phi;
    alpha_ = alpha;
}

void TBilliardMap::setPhiAlpha(double phi_, double alpha_) {
    phi = phi_;
    alpha = alpha_;
}

void TBilliardMap::getXY(double& x, double& y) const {
    circumference.getR(phi, x, y);
}
