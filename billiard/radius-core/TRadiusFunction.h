// SPDX-License-Identifier: MIT
// The boundary of a table as a polar radius R(phi): the interface of a curve, and all curves but
// the user's formula.
#pragma once

#include "mathkit/kit_string.h"

/// A closed curve about the origin, given by one radius for each polar angle.
///
/// The boundary point at phi is (R cos phi, R sin phi); it runs counter-clockwise as phi grows.
/// Angles are radians, and phi may be any finite number. A new curve needs `R`, `dR` and `ddR`
/// only; everything else has a default that is built on them.
///
/// A curve is not changed once a billiard owns it.
class TRadiusFunction {
public:
    virtual ~TRadiusFunction() = default;

    virtual double R(double phi) const = 0;   ///< the radius
    virtual double dR(double phi) const = 0;  ///< its first derivative by phi
    virtual double ddR(double phi) const = 0; ///< its second derivative by phi

    /// True when the caller may treat the curve as having no inflection points.
    virtual bool isConvex() const { return true; }

    /// N = R^2 + 2 R'^2 - R R''. It has the sign of the curvature: positive where the curve bends
    /// as a convex table does.
    virtual double curvatureNumerator(double phi) const;

    /// The signed curvature, N / (R^2 + R'^2)^(3/2).
    virtual double curvature(double phi) const;

    /// A text that names the family of curves, with letters for the parameters.
    virtual kit::string familyText() const { return kit::string::empty(); }

    /// A text that names this curve, with the values of the parameters.
    virtual kit::string instanceText() const { return kit::string::empty(); }

    /// Radius and first derivative together, for callers that hold the sine and cosine of phi.
    ///
    /// `sin_phi` and `cos_phi` are those of `phi`, and the results those of `R` and `dR`, but for
    /// rounding. A curve replaces it to share work between the two: the bounce asks for
    /// little else.
    virtual void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                                 double& dr) const;

    /// The same with the second derivative, for the search for inflections, which asks at thousands
    /// of angles.
    virtual void derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                             double& ddr) const;

    /// The curvature, for callers that hold what value_and_slope takes and gives; each curve has
    /// its own short form.
    virtual double curvature_at(double phi, double sin_phi, double cos_phi, double r,
                                double dr) const;

    /// The arc length per radian, sqrt(R^2 + R'^2).
    double arcDensity(double phi) const;

    /// The same with the radius, which is evaluated on the way.
    double arcDensity(double phi, double& r) const;

    /// The area per radian, R^2 / 2.
    double areaDensity(double phi) const;

    /// The boundary's point at the polar angle phi.
    void pointAt(double phi, double& x, double& y) const;

    /// The derivative of that point by phi; its length is `arcDensity`.
    void tangentAt(double phi, double& tx, double& ty) const;

    void unitTangent(double phi, double& tx, double& ty) const;

    /// The unit vector across the curve that points outward; for callers that start particles at a
    /// point inside or move them by vectors. The bounce works with angles.
    void unitNormal(double phi, double& nx, double& ny) const;

    /// True when (x, y) lies inside; a point on the curve itself does not. For callers that place
    /// particles in the plane: orbits here start on the curve.
    bool isInside(double x, double y) const;

protected:
    /// The signed curvature from the radius and its first two derivatives.
    static double curvature_of(double r, double dr, double ddr);
};

/// The ellipse (1 + e^2) x^2 + y^2 = 1: radius 1 on the y axis, and the unit circle for e = 0.
class TEllipseFunction : public TRadiusFunction {
public:
    double e = 0.5;

    TEllipseFunction() = default;
    explicit TEllipseFunction(double e) : e(e) {}

    /// Stores e, whatever it is; always true.
    bool set(double e);

    double R(double phi) const override;
    double dR(double phi) const override;
    double ddR(double phi) const override;
    kit::string familyText() const override;
    kit::string instanceText() const override;
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override;
    double curvature_at(double phi, double sin_phi, double cos_phi, double r,
                        double dr) const override;
};

/// R = c + cos(2 phi), c > 1; convex from c = 5 on.
class TOvalAFunction : public TRadiusFunction {
public:
    double c = 10.0;

    TOvalAFunction() = default;
    explicit TOvalAFunction(double c) { set(c); }

    /// Stores c if it is above 1. Otherwise false, and c is 2.
    bool set(double c);

    double R(double phi) const override;
    double dR(double phi) const override;
    double ddR(double phi) const override;
    bool isConvex() const override { return c >= 5.0; }
    double curvatureNumerator(double phi) const override;
    kit::string familyText() const override;
    kit::string instanceText() const override;
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override;
    void derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                     double& ddr) const override;
    double curvature_at(double phi, double sin_phi, double cos_phi, double r,
                        double dr) const override;
};

/// R = 1 + e cos(phi), |e| < 1.
class TOvalBFunction : public TRadiusFunction {
public:
    double e = 0.1;

    TOvalBFunction() = default;
    explicit TOvalBFunction(double e) { set(e); }

    /// Stores e if its modulus is below 1. Otherwise false, and e is 0.3.
    bool set(double e);

    double R(double phi) const override;
    double dR(double phi) const override;
    double ddR(double phi) const override;
    /// Decides by the signed value: every negative e counts as convex.
    bool isConvex() const override { return e <= 0.5; }
    double curvatureNumerator(double phi) const override;
    kit::string familyText() const override;
    kit::string instanceText() const override;
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override;
    void derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                     double& ddr) const override;
    double curvature_at(double phi, double sin_phi, double cos_phi, double r,
                        double dr) const override;
};

/// R = c + cos(n phi), c > 1, n >= 0.
class TGenOvalFunction : public TRadiusFunction {
public:
    double c = 5.0;
    int n = 2;

    TGenOvalFunction() = default;
    TGenOvalFunction(double c, int n) { set(c, n); }

    /// Stores |n|, and c if it is above 1. Otherwise false, and c is 2. The least int, whose
    /// modulus is no int, becomes the largest one.
    bool set(double c, int n);

    double R(double phi) const override;
    double dR(double phi) const override;
    double ddR(double phi) const override;
    bool isConvex() const override { return false; }
    double curvatureNumerator(double phi) const override;
    kit::string familyText() const override;
    kit::string instanceText() const override;
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override;
    void derivatives(double phi, double sin_phi, double cos_phi, double& r, double& dr,
                     double& ddr) const override;
    double curvature_at(double phi, double sin_phi, double cos_phi, double r,
                        double dr) const override;

private:
    void power(double phi, double sin_phi, double cos_phi, double& x, double& y) const;
};

/// Two straight sides of the length 2 a at the distance b from the x axis, closed by semicircles.
class TStadiumFunction : public TRadiusFunction {
public:
    double a = 1;         ///< half the length of a side
    double b = 1;         ///< radius of the semicircles about (a, 0) and (-a, 0)
    double a2 = 1;        ///< a squared
    double b2 = 1;        ///< b squared
    double corner1 = 0.0; ///< polar angle of the joint (a, b)
    double corner2 = 0.0; ///< of (-a, b)
    double corner3 = 0.0; ///< of (-a, -b)
    double corner4 = 0.0; ///< of (a, -b)

    TStadiumFunction() { set(1); }
    explicit TStadiumFunction(double z) { set(z); }

    /// The stadium of the ratio |z| and b = 1; always true. 0 gives the unit circle.
    bool set(double z);

    /// Stores both unchanged; always true.
    bool set(double a, double b);

    double R(double phi) const override;
    double dR(double phi) const override;
    double ddR(double phi) const override;
    kit::string familyText() const override;
    kit::string instanceText() const override;
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override;
    double curvature_at(double phi, double sin_phi, double cos_phi, double r,
                        double dr) const override;

private:
    enum piece { right_arc, top_side, left_arc, bottom_side };
    piece piece_at(double u) const;
    double arc_square(double s) const;

    double least_square = 0;
};

/// The triangle of area 1 with the centre of its inscribed circle at the origin. Counter-clockwise
/// from polar angle 0 its vertices have the angles beta, gamma and alpha.
class TTriangleFunction : public TRadiusFunction {
public:
    double alpha = 0; ///< radians, as the next two
    double beta = 0;
    double gamma = 0;   ///< pi - alpha - beta
    double rin = 0;     ///< radius of the inscribed circle
    double corner1 = 0; ///< polar angle of the vertex gamma
    double corner2 = 0; ///< polar angle of the vertex alpha
    double shift2 = 0;  ///< the second side is rin / sin(phi - shift2)
    double shift1 = 0; ///< the first is rin / sin(phi + shift1), the third -rin / sin(phi - shift1)

    TTriangleFunction() { set(1.0471975511965976, 1.0471975511965976); }

    /// Radians. False when an angle, or what both leave to pi, is not positive: the triangle then
    /// has the angles 1, 1.08 and pi - 2.08.
    bool set(double alpha, double beta);

    /// The same in degrees, whose sum must be less than 180 before it is rounded to radians.
    bool setDegrees(double alpha, double beta);

    double R(double phi) const override;
    double dR(double phi) const override;
    double ddR(double phi) const override;
    kit::string familyText() const override;
    kit::string instanceText() const override;
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override;
    double curvature_at(double phi, double sin_phi, double cos_phi, double r,
                        double dr) const override;

private:
    // A side is R = distance / sin(phi + shift).
    struct side {
        double shift, sin_shift, cos_shift, distance;
    };
    side side_at(double u) const;

    side sides[3]{};
};

/// A finite cosine series, R = A[0] + sum of A[i] cos(i phi + PH[i]) for i from 1 to n - 1.
///
/// It answers isConvex with true, whatever the coefficients.
class TPotatoFunction : public TRadiusFunction {
public:
    int n = 0;            ///< number of terms, at least 1
    double* A = nullptr;  ///< amplitudes, owned; A[0] is the constant term
    double* PH = nullptr; ///< phases in radians, owned; PH[0] is never used

    /// Copies n values from each array. A count below 1 gives the one term A[0] = 0.
    TPotatoFunction(int n, const double* A, const double* PH);

    /// Parses "n A0 PH0 A1 PH1 ...", numbers separated by exactly one blank; what follows the last
    /// phase is ignored. A malformed text ends the process. The count 0 gives the one term
    /// A[0] = 0, so that every series has a constant term.
    explicit TPotatoFunction(const char* text);

    TPotatoFunction(const TPotatoFunction&) = delete;
    TPotatoFunction& operator=(const TPotatoFunction&) = delete;
    ~TPotatoFunction() override;

    double R(double phi) const override;
    double dR(double phi) const override;
    double ddR(double phi) const override;
    kit::string familyText() const override;
    kit::string instanceText() const override;
    void value_and_slope(double phi, double sin_phi, double cos_phi, double& r,
                         double& dr) const override;

private:
    void allocate(int count);
};
