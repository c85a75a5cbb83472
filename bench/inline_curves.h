// SPDX-License-Identifier: MIT
// The curves once more, as the compiler likes them best: known by type, with nothing to call.
#pragma once

#include <cmath>
#include <numbers>

namespace bench {

/// A curve that a search can inline. Each gives R, its derivative and its second derivative.
struct inline_ellipse {
    double e;

    double R(double phi) const {
        const double ec = e * std::cos(phi);
        return 1 / std::sqrt(1 + ec * ec);
    }
    double dR(double phi) const {
        const double c = std::cos(phi), q = 1 + e * e * c * c;
        return e * e * c * std::sin(phi) / (q * std::sqrt(q));
    }
    double ddR(double) const { return 0; } // only asked of curves with inflections
    void value_and_slope(double, double s, double c, double& r, double& dr) const {
        const double q = 1 + e * e * c * c;
        r = 1 / std::sqrt(q);
        dr = e * e * c * s * r / q;
    }
};

/// c + cos(n phi)
template<int n>
struct inline_wave {
    double c;

    double R(double phi) const { return c + std::cos(n * phi); }
    double dR(double phi) const { return -n * std::sin(n * phi); }
    double ddR(double phi) const { return -n * n * std::cos(n * phi); }
    void value_and_slope(double, double s, double co, double& r, double& dr) const {
        double x = co, y = s; // the n-th power of cos + i sin
        for (int i = 1; i < n; ++i) {
            const double t = x * co - y * s;
            y = x * s + y * co;
            x = t;
        }
        r = c + x;
        dr = -n * y;
    }
};

/// 1 + e cos(phi)
struct inline_oval_b {
    double e;

    double R(double phi) const { return 1 + e * std::cos(phi); }
    double dR(double phi) const { return -e * std::sin(phi); }
    double ddR(double phi) const { return -e * std::cos(phi); }
    void value_and_slope(double, double s, double c, double& r, double& dr) const {
        r = 1 + e * c;
        dr = -e * s;
    }
};

/// 5 + sin(phi), the formula
struct inline_formula {
    double R(double phi) const { return 5 + std::sin(phi); }
    double dR(double phi) const { return std::cos(phi); }
    double ddR(double phi) const { return -std::sin(phi); }
    void value_and_slope(double, double s, double c, double& r, double& dr) const {
        r = 5 + s;
        dr = c;
    }
};

/// The angle less its whole turns.
inline double inline_reduced(double phi) {
    const double turn = 2 * std::numbers::pi;
    return phi - turn * std::floor(phi / turn);
}

/// Two sides of length 2 at the distance 1, closed by semicircles.
struct inline_stadium {
    double R(double phi) const { return at(phi).r; }
    double dR(double phi) const { return at(phi).dr; }
    double ddR(double) const { return 0; }
    void value_and_slope(double phi, double s, double c, double& r, double& dr) const {
        const values v = at(inline_reduced(phi), s, c);
        r = v.r;
        dr = v.dr;
    }

private:
    struct values {
        double r, dr;
    };
    static values at(double phi) {
        const double u = inline_reduced(phi);
        return at(u, std::sin(u), std::cos(u));
    }
    static values at(double u, double s, double c) {
        const double joint = std::numbers::pi / 4; // of the ratio 1
        const bool right = u < joint || u > 7 * joint;
        if (!right && u < 3 * joint) return {1 / s, -c / (s * s)};
        if (!right && u >= 5 * joint) return {-1 / s, c / (s * s)};
        const double side = right ? 1 : -1, d = std::sqrt(1 - s * s);
        return {side * c + d, -side * s - s * c / d};
    }
};

/// The triangle of area 1 with the angles 60 and 70 degrees.
struct inline_triangle {
    inline_triangle() {
        const double pi = std::numbers::pi, alpha = pi / 3, beta = 7 * pi / 18;
        const double gamma = pi - alpha - beta;
        const double sa = std::sin(alpha), sb = std::sin(beta), sc = std::sin(gamma);
        rin = std::sqrt(2 * sa * sb * sc) / (sa + sb + sc);
        corner1 = pi - (beta + gamma) / 2;
        corner2 = corner1 + pi - (alpha + gamma) / 2;
        const double shift1 = beta / 2, shift2 = pi - (beta / 2 + gamma);
        shifts[0] = {std::sin(shift1), std::cos(shift1)};
        shifts[1] = {-std::sin(shift2), std::cos(shift2)};
        shifts[2] = {-std::sin(shift1), std::cos(shift1)};
    }
    double R(double phi) const {
        const double u = inline_reduced(phi);
        return value(u, std::sin(u), std::cos(u));
    }
    double dR(double phi) const {
        const double u = inline_reduced(phi);
        double r, dr;
        both(u, std::sin(u), std::cos(u), r, dr);
        return dr;
    }
    double ddR(double) const { return 0; }
    void value_and_slope(double phi, double s, double c, double& r, double& dr) const {
        both(inline_reduced(phi), s, c, r, dr);
    }

private:
    struct shift {
        double s = 0, c = 1;
    };
    int side(double u) const { return u <= corner1 ? 0 : u <= corner2 ? 1 : 2; }
    double value(double u, double s, double c) const {
        const shift& t = shifts[side(u)];
        return rin / std::fabs(s * t.c + c * t.s);
    }
    void both(double u, double s, double c, double& r, double& dr) const {
        const shift& t = shifts[side(u)];
        const double sine = s * t.c + c * t.s, cosine = c * t.c - s * t.s;
        r = rin / std::fabs(sine);
        dr = -r * cosine / sine;
    }

    double rin = 0, corner1 = 0, corner2 = 0;
    shift shifts[3]; ///< of each side; the foot of its normal lies a quarter turn on
};

} // namespace bench
