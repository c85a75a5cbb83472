// SPDX-License-Identifier: MIT
// The billiard: its curve, the table of its arc length, and the map from impact to impact.
#include "billiard/radius-core/TBilliard.h"

#include "billiard/radius-core/TRadiusFunction.h"
#include "mathkit/bsearch.h"
#include "mathkit/stderr_failed.h"
#include "mathkit/trig.h"
#include "mathkit/turn.h"

#include <algorithm>
#include <cmath>

namespace {

using kit::two_pi;

} // namespace

double TCircumferenceIntegrator::f(double x) {
    return F->arcDensity(x);
}

namespace {

// The radius of the line in polar form, at the angle x = psi - theta from its direction, with the
// derivatives by theta.
struct line_spot {
    double r, dr, ddr;
};

line_spot line_at(double c, double x) {
    double sine, cosine;
    kit::sincos(x, sine, cosine);
    const double r = c / sine;
    const double cotangent = cosine / sine;
    return {r, r * cotangent, r * (1 + 2 * cotangent * cotangent)};
}

} // namespace

double TFindRoot::f(double theta) {
    return F->R(theta) - line_at(c, psi - theta).r;
}

void TFindRoot::fdf(double theta, double& value, double& slope) {
    const line_spot line = line_at(c, psi - theta);
    value = F->R(theta) - line.r;
    slope = F->dR(theta) - line.dr;
}

double TFindRoot::df(double theta) {
    return F->dR(theta) - line_at(c, psi - theta).dr;
}

double TFindExt::f(double theta) {
    return F->dR(theta) - line_at(c, psi - theta).dr;
}

void TFindExt::fdf(double theta, double& value, double& slope) {
    const line_spot line = line_at(c, psi - theta);
    value = F->dR(theta) - line.dr;
    slope = F->ddR(theta) - line.ddr;
}

double TFindExt::df(double theta) {
    return F->ddR(theta) - line_at(c, psi - theta).ddr;
}

void TBilliard::circumference_class::resize(int n) {
    phi.resize(static_cast<std::size_t>(n));
    s.resize(static_cast<std::size_t>(n));
    r.resize(static_cast<std::size_t>(n));
}

void TBilliard::circumference_class::get(int i, double& x, double& y) const {
    stderr_assert(i >= 0 && i < size(), "i>=0 && i<size()", "billiard/radius-core/TBilliard",
                  "void TBilliard::circumference_class::get(int, double&, double&)");
    const auto row = static_cast<std::size_t>(i);
    double sine, cosine;
    kit::sincos(phi[row], sine, cosine);
    x = r[row] * cosine;
    y = r[row] * sine;
}

void TBilliard::circumference_class::getR(double angle, double& x, double& y) const {
    stderr_assert(size() > 1, "size()>1", "billiard/radius-core/TBilliard",
                  "void TBilliard::circumference_class::getR(double, double&, double&)");
    const double radius = bsearch_list_lookup(size(), angle, phi.data(), r.data());
    x = radius * std::cos(angle);
    y = radius * std::sin(angle);
}

void TBilliard::circumference_class::getborder(TRect& rect) const {
    stderr_assert(size() > 0, "size()>0", "billiard/radius-core/TBilliard",
                  "void TBilliard::circumference_class::getborder(TRect&)");
    double x, y;
    get(0, x, y);
    rect.set(x, y);
    for (int i = 1; i < size(); ++i) {
        get(i, x, y);
        rect.expand(x, y);
    }
}

TBilliard::TBilliard() = default;

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
    last = {};
    buildCircumference();
    if (!convex) buildInflections();
}

namespace {

constexpr int usual_rows = 2000;
constexpr int most_rows = 50000;

// The angle of the row after row i at phi, where ds is the length to cover and `density` the arc
// length per radian at phi.
//
// The step that the density asks for may be NaN, endless, or too small to move phi: then a
// row of an even table takes its place. Where half of all rows is used up, steps shorter than an
// even spread of the other half are lengthened, and so the table ends.
double next_angle(double phi, double ds, double density, int i) {
    double p = phi + ds / (density + 1e-10);
    if (!(p > phi && std::isfinite(p))) p = phi + two_pi / usual_rows;
    if (i >= most_rows / 2) p = std::max(p, phi + (two_pi - phi) / (most_rows - 1 - i));
    return p < two_pi ? p : two_pi;
}

// Goes along the curve from row to row.
//
// A step is chosen by the density at its row, and so may jump over a whole tip. If its length turns
// out far above the usual, it is halved until it is not. After the first halving no step is more
// than twice as wide as the one before, since the far side of a tip is as steep as its near side;
// and the tolerance is no finer than the rounding of the whole length. As long as nothing is halved
// neither matters, and the table is that of the densities alone.
class row_steps {
public:
    row_steps(const TRadiusFunction& F, TIntegrator& integrator, double length)
        : F(F),
          integrator(integrator),
          length(length),
          ds(length / usual_rows),
          too_long(16 * ds) {}

    // Goes from row i at phi, where the curve has that density, to the next row; tells the arc
    // length between them and the next row's radius.
    double advance(int i, double& phi, double& density, double& r) {
        const double from = phi;
        const double density_from = density;
        const auto go = [&](double to) {
            phi = to;
            density = F.arcDensity(to, r);
            return integrator.AdaptiveGauss(from, density_from, to, density, tolerance);
        };
        const double p = next_angle(phi, ds, density, i);
        if (i >= most_rows / 2) return go(p); // the rows must last
        double step = go(std::min(p, from + widest));
        while (step > too_long && halvings_left > 0) {
            const double middle = from + 0.5 * (phi - from);
            if (!(middle > from)) break; // neighbouring doubles
            step = go(middle);
            tolerance = std::max(tolerance, 1e-16 * length);
            --halvings_left;
        }
        if (halvings_left < most_halvings) widest = 2 * (phi - from);
        return step;
    }

private:
    static constexpr int most_halvings = 1000; // a hundred do for any curve; a pole takes them all

    const TRadiusFunction& F;
    TIntegrator& integrator;
    const double length, ds, too_long; // of the curve, of the usual step, of one to halve
    double tolerance = 1e-12;
    double widest = HUGE_VAL; // of the steps to come, in radians
    int halvings_left = most_halvings;
};

// Whether lengths can be told as parts of the whole.
bool is_measure(double whole) {
    return whole > 0 && std::isfinite(1 / whole) && std::isfinite(whole);
}

// Divides lengths by the whole length. A boundary whose length is 0, NaN or endless is measured
// by its angle instead.
void normalise(std::vector<double>& s, const std::vector<double>& phi) {
    const std::vector<double>& from = is_measure(s.back()) ? s : phi;
    const double scale = 1 / from.back();
    std::transform(from.begin(), from.end(), s.begin(), [&](double x) { return x * scale; });
    s.back() = 1;
}

} // namespace

void TBilliard::buildCircumference() {
    TCircumferenceIntegrator integrator(F);
    const double length = integrator.AdaptiveGauss(0, two_pi, 1e-12, 36);
    row_steps steps(*F, integrator, length);

    circumference_class& table = circumference;
    table.resize(usual_rows + 20);
    double phi = 0;
    double s = 0;
    double r;
    double density = F->arcDensity(phi, r);
    int i = 0;
    for (;; ++i) {
        if (i == table.size()) table.resize(2 * i);
        const auto row = static_cast<std::size_t>(i);
        table.phi[row] = phi;
        table.s[row] = s;
        table.r[row] = r;
        if (phi >= two_pi) break;
        const double step = steps.advance(i, phi, density, r);
        if (std::isfinite(step)) s += step;
    }
    table.resize(i + 1);
    table.length = s;
    normalise(table.s, table.phi);
}

double TBilliard::arcShare(double phi) const {
    const circumference_class& table = circumference;
    const int i = bsearch_interval(static_cast<unsigned>(table.size()), phi, table.phi.data());
    if (i < 0) return 0;
    if (!is_measure(table.length)) return phi / two_pi;
    const auto row = static_cast<std::size_t>(i);
    TCircumferenceIntegrator integrator(F);
    const double from = table.phi[row];
    const double part =
        integrator.AdaptiveGauss(from, F->arcDensity(from), phi, F->arcDensity(phi), 1e-12);
    return std::isfinite(part) ? table.s[row] + part / table.length : table.s[row];
}

bool TBilliardMap::setPoint(double S, double P) {
    stderr_assert(circumference.size() > 1, "circumference.size()>1",
                  "billiard/radius-core/TBilliard", "bool TBilliardMap::setPoint(double, double)");
    if (!(S > 0 && S < 1)) return false;
    if (!(P > -1 && P < 1)) return false;
    phi = bsearch_list_lookup(circumference.size(), S, circumference.s.data(),
                              circumference.phi.data());
    alpha = std::acos(P);
    return true;
}

void TBilliardMap::getPoint(double& S, double& P) {
    stderr_assert(circumference.size() > 1, "circumference.size()>1",
                  "billiard/radius-core/TBilliard",
                  "void TBilliardMap::getPoint(double&, double&)");
    S = bsearch_list_lookup(circumference.size(), phi, circumference.phi.data(),
                            circumference.s.data());
    P = kit::cos(alpha);
}

void TBilliardMap::iterate() {
    stderr_assert(F != nullptr, "F!=0", "billiard/radius-core/TBilliard",
                  "void TBilliardMap::iterate()");
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
