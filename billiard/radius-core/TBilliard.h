// SPDX-License-Identifier: MIT
// The billiard: its curve, the table of its arc length, and the map from impact to impact.
#pragma once

#include "billiard/radius-core/unit_vector.h"
#include "mathkit/TIntegrator.h"
#include "mathkit/TIterraMap.h"
#include "mathkit/TRect.h"
#include "mathkit/TRootSolver.h"

#include <bit>
#include <cstdint>
#include <vector>

class TRadiusFunction;
namespace ray {

/// A point of the curve where its curvature changes sign, with what a bounce needs there.
struct inflection_knot {
    double theta;
    unit_vector at; ///< from the origin towards it
    double r, dr;
    int bends; ///< up to the next knot the boundary bends only left: 1, only right: -1, else 0
};

/// How the particle leaves the last impact: what the next bounce would else compute anew from phi
/// and alpha, and less exactly. It is valid for exactly this phi and alpha.
struct departure {
    double phi = 0, alpha = 0;
    unit_vector at;       ///< from the origin towards the impact
    unit_vector line;     ///< the direction of the path or the opposite one
    double r = 0, dr = 0; ///< of the curve
    unsigned impacts = 0; ///< in a row, each found from the one before; 0: nothing is known

    bool leads_to(double phi_, double alpha_) const {
        return impacts > 0 &&
               std::bit_cast<std::uint64_t>(phi) == std::bit_cast<std::uint64_t>(phi_) &&
               std::bit_cast<std::uint64_t>(alpha) == std::bit_cast<std::uint64_t>(alpha_);
    }
};

} // namespace ray

/// The arc length per radian of a curve, as an integrand.
class TCircumferenceIntegrator : public TIntegrator {
public:
    TRadiusFunction* F; ///< not owned

    explicit TCircumferenceIntegrator(TRadiusFunction* F) : F(F) {}
    double f(double x) override;
};

/// The distance, along the ray from the origin, between a straight line and the curve.
///
/// The line is r = c / sin(psi - theta) for theta in (psi - pi, psi), psi its direction and c its
/// distance from the origin. The value is g(theta) = R(theta) - c / sin(psi - theta), positive
/// where the line's point lies inside the curve; its roots are the line's impacts.
class TFindRoot : public TNewtonRootSolver {
public:
    TRadiusFunction* F; ///< not owned
    double c;
    double psi;

    TFindRoot(TRadiusFunction* F, double c, double psi) : F(F), c(c), psi(psi) {}
    double f(double theta) override;                               ///< g
    void fdf(double theta, double& value, double& slope) override; ///< g and g'
    double df(double theta) override;                              ///< g'
};

/// The derivative g' of the distance in TFindRoot. Between two points inside, the line may leave
/// and come back; a root of g' tells.
class TFindExt : public TNewtonRootSolver {
public:
    TRadiusFunction* F; ///< not owned
    double c;
    double psi;

    TFindExt(TRadiusFunction* F, double c, double psi) : F(F), c(c), psi(psi) {}
    double f(double theta) override;                               ///< g'
    void fdf(double theta, double& value, double& slope) override; ///< g' and g''
    double df(double theta) override;                              ///< g''
};

/// The curvature's numerator, whose roots are the inflection points of the curve.
class curvature_root : public TRootSolver {
public:
    TRadiusFunction* F; ///< not owned

    explicit curvature_root(TRadiusFunction* F) : F(F) {}
    double f(double x) override;
};

/// A billiard table: a curve, which it owns, with what is computed once for it.
class TBilliard {
public:
    /// The boundary as rows of polar angle, arc length and radius.
    ///
    /// A curve has about 2000 rows, spaced evenly in arc length as nearly as the slope at each
    /// row's start tells; before a tip a step may be up to 16 times as long as the others. Where
    /// the radius swings too fast to be followed, or has poles, there are between 2 and 50,000.
    class circumference_class {
    public:
        std::vector<double> phi; ///< strictly growing from 0 to 2 pi
        std::vector<double> s;   ///< arc length from phi = 0, over the circumference: 0 to 1
        std::vector<double> r;   ///< R(phi)

        /// The circumference, in units of the radius. Where it is 0, NaN or endless, s is the share
        /// of the angle instead.
        double length = 0;

        int size() const { return static_cast<int>(phi.size()); }
        void resize(int n);

        /// The point of row i, which must be one of the table.
        void get(int i, double& x, double& y) const;

        /// The table's point at that polar angle, its radius interpolated between the rows.
        void getR(double phi, double& x, double& y) const;

        /// The bounding box of the rows' points; the table must not be empty.
        void getborder(TRect& rect) const;
    };

    TRadiusFunction* F = nullptr;      ///< the curve, owned; null until the first setF
    circumference_class circumference; ///< empty until the first setF
    bool convex = false;               ///< the curve counts as free of inflection points

    /// The polar angles where the curvature changes sign, ascending over two turns between the
    /// first entry -pi and the last 3 pi. Read only when `convex` is false.
    ///
    /// A corner that points against the curvature beside it changes the sign twice: it has two
    /// entries, one on each side.
    std::vector<double> inflections;

    TBilliard();
    explicit TBilliard(TRadiusFunction* F);
    TBilliard(const TBilliard&) = delete;
    TBilliard& operator=(const TBilliard&) = delete;
    virtual ~TBilliard();

    /// Replaces the curve by F, which passes to the billiard, and computes table and inflections.
    ///
    /// Takes any curve but a null one, also one whose values are no radii or NaN: its table is
    /// finite, and the trouble shows in findit.
    void setF(TRadiusFunction* F);

    /// Carries the particle from one impact to the next.
    ///
    /// In: polar angle phi of the impact and angle alpha from the counter-clockwise tangent to the
    /// velocity after it. Out: the same of the next impact, phi in [0, 2 pi) and alpha in [0, pi).
    /// Throws a TError, with both unchanged, where no impact can be found. There must be a curve.
    ///
    /// Called with exactly the two numbers that the last call on the same curve gave, it goes on
    /// from what it knew of that impact beyond their rounding, and fewer roundings enter the orbit.
    /// From any other point, or in another billiard, it starts from phi and alpha alone. So an
    /// orbit that goes on and one that starts anew from the same two numbers differ by some
    /// rounding, and chaotic ones part as they do for any other rounding.
    void findit(double& phi, double& alpha);

    /// What findit knows of the impact that it found last; a failed search leaves it as it was.
    const ray::departure& lastDeparture() const { return last; }

    /// Lets the next findit start from phi and alpha alone, whatever it was called with before.
    void forgetDeparture() { last = {}; }

    /// The arc length from phi = 0 to phi, in [0, 2 pi], over the circumference. Good to 1e-12,
    /// whereas the S that getPoint reads from the table is linear between the rows.
    double arcShare(double phi) const;

    /// Lists the sign changes of the curvature in `inflections`, and sets `convex` if there are
    /// none. Changes closer together than pi/1000 may go unseen, and so may a corner at which the
    /// tangent jumps by less than the curve itself bends within that angle. Needs the curve alone;
    /// without the table each bounce is slower.
    void buildInflections();

private:
    void prepare();
    void buildCircumference();
    void buildKnots();

    std::vector<ray::inflection_knot> knots; // what a bounce needs at the inflections
    ray::departure last;                     // of the last findit; a new curve forgets it
};

/// The billiard as a map of its section (S, P) onto itself.
///
/// S in (0, 1) is the arc length from the boundary point at phi = 0, counter-clockwise, over the
/// circumference; P in (-1, 1) is cos(alpha), the tangential component of the unit velocity after
/// the bounce. The state is phi and alpha; S is read from the table.
class TBilliardMap : public TIterraMap, public TBilliard {
public:
    double phi = 0.0;                   ///< polar angle of the impact, radians
    double alpha = 1.57079632679489662; ///< angle from the tangent to the velocity, radians

    TBilliardMap() = default;
    explicit TBilliardMap(TRadiusFunction* F) : TBilliard(F) {}

    /// False, with nothing changed, unless 0 < S < 1 and -1 < P < 1.
    bool setPoint(double S, double P) override;

    /// The section's point of the map; what setPoint took, but for the rounding of the table.
    void getPoint(double& S, double& P) override;

    /// The next impact. Throws as findit does, and then the point is as before.
    void iterate() override;

    /// The state itself, in radians.
    void getPhiAlpha(double& phi, double& alpha) const;

    /// Stores both, radians, without a test. What getPhiAlpha gave continues the orbit unchanged,
    /// to the last digit, as long as the map has not bounced from elsewhere in between. Until the
    /// next impact getPoint and getXY know a phi in [0, 2 pi) only; an alpha that leads out of the
    /// table shows in that impact.
    void setPhiAlpha(double phi, double alpha);

    /// The impact as a point of the plane, its radius interpolated between the rows of the table.
    void getXY(double& x, double& y) const;
};
