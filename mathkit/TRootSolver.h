// SPDX-License-Identifier: MIT
// Roots of a function of one variable in a bracket, without and with its derivative.
#pragma once

/// The base of a function whose root is wanted: a derived class gives `f`.
class TRootSolver {
public:
    virtual ~TRootSolver() = default;

    virtual double f(double x) = 0;

    /// The root of f between a and b, to within `tol` or to rounding, by Brent's method.
    ///
    /// The ends may come in either order and are narrowed to the bracket last known. A zero at an
    /// end is that end. Without a change of sign, or where f gives NaN, the result is NaN. Always
    /// ends.
    double brent1(double& a, double& b, double tol);
};

/// The same with a derivative at hand.
class TNewtonRootSolver : public TRootSolver {
public:
    /// Value and derivative at x.
    virtual void fdf(double x, double& f, double& df) = 0;

    /// The derivative at x.
    virtual double df(double x) = 0;

    /// The root of f between a and b, to within `tol` or to rounding: Newton's method, kept in the
    /// bracket and helped by halving it.
    ///
    /// Contract as of `brent1`. Jumps and zeros of the derivative, and a pole at an end, cost
    /// steps but not the root.
    double safe_newton(double& a, double& b, double tol);
};
