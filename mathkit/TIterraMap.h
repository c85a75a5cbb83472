// SPDX-License-Identifier: MIT
// The abstract iterated map of a two-dimensional section, and the search for its periodic points.
#pragma once

#include "mathkit/TRect.h"
#include "mathkit/kit_string.h"

/// A map of a two-dimensional section onto itself, iterated one step at a time.
///
/// The object holds one current point. `setPoint`, `getPoint` and `iterate` are all that the
/// searches use of it, beside `get_area`; `iterate` may throw a TError.
class TIterraMap {
public:
    virtual ~TIterraMap() = default;

    /// Makes (x, y) the current point. False for a point outside the section: nothing has changed.
    virtual bool setPoint(double x, double y) = 0;

    /// Reads the current point.
    virtual void getPoint(double& x, double& y) = 0;

    /// Replaces the current point by its image.
    virtual void iterate() = 0;

    /// How many iterates make up a first picture of an orbit; for programs that choose among maps.
    /// Billiard leaves the number to its user.
    virtual int numiter() { return 1000; }

    /// The rectangle of the section. Between two points of it x is measured the shorter way round,
    /// since the section of a closed boundary has a seam where x jumps from one end to the other.
    virtual void get_area(TRect& area) { area.set(0, -1, 1, 1); }

    /// A text that names the map, for programs that show which one of several is in use.
    virtual kit::string name() { return kit::string::empty(); }

    /// The least order of the periodic points in the ellipse about (x, y) with the radii rx, ry;
    /// orders up to n are tried.
    ///
    /// Negative when no order is certain: none was found, the map refuses the centre, a radius is
    /// not positive, or a number is not finite. Ends after about a million iterates. A TError of
    /// the map ends one sample of the search and never leaves this operation.
    ///
    /// The current point is afterwards the periodic point found; without one, what it was before.
    int getorder(double x, double y, double rx, double ry, int n);

    /// Refines (x, y) to the nearest periodic point of that order; above order 100 to the one that
    /// Newton's method reaches from there, if it reaches one.
    ///
    /// `iter` limits the Newton steps of one refinement and then holds those that the result took;
    /// a refinement ends early when a step is below `tol`.
    ///
    /// True: (x, y) is the point found and the current point, and `box` encloses it and its image
    /// after `order` iterates, so that `box.maxdim()` is the precision. Where the map hardly moves
    /// the neighbours either, as between flat walls, the point found is one of those that come back
    /// to rounding, some 1e-7 beside the true one. False: x, y and the current point are as before,
    /// and `box` is infinitely large.
    bool fixfinder(double& x, double& y, int order, int& iter, TRect& box, double tol);
};
