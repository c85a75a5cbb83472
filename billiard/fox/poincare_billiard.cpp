// SPDX-License-Identifier: MIT
// The phase-space canvas: the Poincare section of the one billiard.
#include "billiard/fox/poincare_billiard.h"

#include "billiard/fox/FMain.h"
#include "billiard/fox/coordinate_space.h"
#include "billiard/radius-core/TBilliard.h"
#include "libfoxaux/fox-utils/label_text.h"
#include "mathkit/TError.h"

#include <exception>

namespace {

const TRect whole_section(0, -1, 1, 1);

// The longest orbit that the search for a periodic point follows, in bounces.
constexpr int order_limit = 10000;

} // namespace

FXIMPLEMENT(poincare_billiard, FPoincareWin, nullptr, 0)

poincare_billiard::poincare_billiard(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w,
                                     FXint h)
    : FPoincareWin(parent, opts, x, y, w, h) {
    picture_title = "Save Poincare-Section as Picture";
    poincare_billiard::zoom_full();
    iterations = 1000;
}

long poincare_billiard::on_key(int key) {
    if (key != 'f' && key != 'F') return FPoincareWin::on_key(key);
    arm_fixed_point();
    return 0;
}

void poincare_billiard::constrain_view() {
    limit_rect(w2s->world, whole_section);
}

void poincare_billiard::zoom_full() {
    w2s->world = whole_section;
}

bool poincare_billiard::set_start(double x, double y) {
    if (!map->setPoint(x, y)) return false;
    current_x = x;
    current_y = y;
    main->coordinate->redraw_boundary();
    main->coordinate->add_bounce();
    main->coordinate->update();
    return true;
}

void poincare_billiard::step() {
    map->iterate();
    map->getPoint(current_x, current_y);
}

void poincare_billiard::draw_axes() {
    draw_frame(L"S", L"P", false);
}

void poincare_billiard::iterate() {
    try {
        if (!main->show_billiard) {
            run_orbit(iterations);
            return;
        }
        run_orbit(1);
        main->coordinate->add_bounce();
        if (!loop_idle.is_active()) main->coordinate->update();
    } catch (const TError& error) {
        stop_loop();
        map->setPoint(0.5, 0.5);
        main->coordinate->begin_path();
        update(); // shows the points that came before the error behind its box
        show_error(box_owner(), error.text());
    }
}

void poincare_billiard::sync_companions() {
    if (main->show_billiard) main->coordinate->update();
}

// The key that began the iteration may have come from the path window.
FXWindow* poincare_billiard::box_owner() {
    if (main->coordinate->hasFocus()) return main->coordinate;
    return this;
}

void poincare_billiard::find_fixed_point(double x, double y, double rx, double ry) {
    double phi, alpha;
    map->getPhiAlpha(phi, alpha);
    const auto fail = [&](const char* text) {
        map->setPhiAlpha(phi, alpha); // the search may have left it on another orbit
        show_error(this, text);
    };
    try {
        // A point that cannot be refined does not count: no answer is better than a wrong one.
        const int order = map->getorder(x, y, rx, ry, order_limit);
        if (order < 0) {
            fail("could not get order of fixpoint");
            return;
        }
        // The map now stands on the point that told the order. Beside the circle there may be one
        // that is nearer to the centre.
        map->getPoint(x, y);
        TRect box;
        int steps = 30;
        if (!map->fixfinder(x, y, order, steps, box, 1e-14)) {
            fail(kit::string::format("could not refine fixpoint of order %d", order));
            return;
        }
        FXMessageBox::information(this, MBOX_OK, "Information",
                                  "Found fixpoint of order %d at (%g,%g) \n with precision %g",
                                  order, x, y, box.maxdim());
        start_at(x, y);
    } catch (const TError& error) {
        fail(error.text());
    } catch (const std::exception& error) {
        fail(error.what());
    }
}
