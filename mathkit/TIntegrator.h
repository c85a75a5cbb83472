// SPDX-License-Identifier: MIT
// Integration of a smooth function with a bound on its evaluations.
#pragma once

#include <vector>

/// The base of an integrand: a derived class gives `f`.
class TIntegrator {
public:
    virtual ~TIntegrator() = default;

    /// The integrand.
    virtual double f(double x) = 0;

    /// The integral of f from a to b with an absolute error of `tol`, or as near as rounding
    /// allows. `n`, from 1 to 1000, is the number of equal parts to begin with; the worst part is
    /// halved until the sum of the estimated errors is small enough.
    ///
    /// Ends for every f. A NaN among the values makes the result NaN. Parts whose halves are no
    /// better stay whole. All integrals that one object computes share a limit; one of them spends
    /// at most a 32nd part of what is left, or some 3000 evaluations for each of the n parts. Once
    /// all is spent, each part costs five, and the result is what they give.
    double AdaptiveGauss(double a, double b, double tol, int n);

    /// The same for one part, fa = f(a) and fb = f(b): a caller that walks from part to part has
    /// these values at hand, and they are two of five.
    double AdaptiveGauss(double a, double fa, double b, double fb, double tol);

private:
    struct part;
    struct total;
    part measured(double a, double fa, double b, double fb, double tol);
    static total total_of(const std::vector<part>& open, total rest);
    double halve_worst(std::vector<part>& open, total rest, double tol, int parts);

    long evaluations_left = 1500000; ///< that may still be spent on halving
};
