// SPDX-License-Identifier: MIT
// Integration of a smooth function with a bound on its evaluations.
#pragma once

/// The base of an integrand: a derived class gives `f`.
class TIntegrator {
public:
    virtual ~TIntegrator() = default;

    /// The integrand.
    virtual double f(double x) = 0;

    /// The integral of f from a to b with an absolute error of `tol`, or as near as rounding
    /// allows. `n` is the number of equal parts to begin with; parts are halved where f asks for
    /// it.
    ///
    /// Ends for every f: a part whose values are no numbers is not halved, nor one whose halves
    /// are no better. The integrals that one object computes share a number of evaluations, and
    /// once it is spent each part costs five and the result is what they give.
    double AdaptiveGauss(double a, double b, double tol, int n);

protected:
    /// Evaluations that may still be spent on halving.
    long evaluations_left = 500000;

private:
    double part(double a, double b, double tol, double error_before, int depth);
};
