// SPDX-License-Identifier: MIT
// The phase-space canvas: the Poincare section of the one billiard.
#pragma once

#include "libfoxaux/fox-utils/FPoincareWin.h"

class FMain;
class TBilliardMap;

/// Plots orbits of the billiard map in the section S (0 to 1) against P (-1 to 1).
///
/// While the path window is shown an iteration is one bounce, drawn in both windows; while it is
/// hidden it is `iterations` bounces. A bounce that fails ends the loop, puts the map at (0.5, 0.5)
/// and shows the error's text; the points plotted so far stay.
class poincare_billiard : public FPoincareWin {
    FXDECLARE(poincare_billiard)

public:
    FMain* main = nullptr;       ///< filled by FMain right after construction
    TBilliardMap* map = nullptr; ///< held by FMain; filled together with `main`

    poincare_billiard(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h);
    poincare_billiard(const poincare_billiard&) = delete;
    poincare_billiard& operator=(const poincare_billiard&) = delete;

    /// "f" arms the fixed point capture; the other keys are those of the base class.
    long on_key(int key) override;

    /// Keeps the shown range inside the section.
    void constrain_view() override;
    void zoom_full() override;

    /// Puts the map at S = x, P = y and begins a new path in the path window. Answers false, and
    /// changes nothing, where the point lies outside the open section.
    bool set_start(double x, double y) override;
    void step() override;
    void draw_axes() override;
    void iterate() override;

    /// Shows the path window's picture if that window is shown.
    void sync_companions() override;

    /// Looks for a periodic point in the ellipse about (x, y) with the radii rx, ry (world units),
    /// tells what was found in a box and makes it the new start. Where nothing is found the map
    /// stays where it was. No error leaves it.
    void find_fixed_point(double x, double y, double rx, double ry) override;

protected:
    poincare_billiard() = default;

private:
    FXWindow* box_owner();
};
