// SPDX-License-Identifier: MIT
// Newton's step from a point towards one that comes back, also where the Jacobian is singular.
#pragma once

#include "mathkit/budgeted_map.h"

#include <optional>

namespace periodic {

/// The step from `here`, in radii of `unit`, that closes the gap to the image after `order`
/// iterates. Empty when the map fails on both sides of the point.
///
/// Where periodic points fill a curve (the tori of an ellipse, the bouncing balls of a stadium) the
/// step goes straight to the curve and not along it.
std::optional<point> closing_step(budgeted_map& map, const passage& here, int order,
                                  const region& unit);

/// The multiplicity of the root to which Newton's steps lead.
///
/// Near a root of multiplicity m each step is 1 - 1/m of the one before, and a step m times as long
/// comes as near as to a simple root. Two parallel walls without curvature are such a case, m = 3:
/// what is left of the tangent map is a shear, and the gap grows with the third power of the way.
class root_multiplicity {
public:
    /// Takes note of the next step, in radii, and of how much of the last was taken.
    void watch(point step, double taken);

    /// 1 for a simple root, and as long as the steps do not tell.
    double shown() const { return agreed; }

private:
    point last;
    double guess = 1, agreed = 1;
};

} // namespace periodic
