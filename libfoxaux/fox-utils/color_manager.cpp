// SPDX-License-Identifier: MIT
// The colours and the font size of one plot, and the two dialogs that change them.
#include "libfoxaux/fox-utils/color_manager.h"

#include "libfoxaux/fox-utils/dialog_shape.h"
#include "libfoxaux/fox-utils/icons.h"
#include "libfoxaux/fox-utils/layout.h"
#include "libfoxaux/fox_compat.h"
#include "mathkit/stderr_failed.h"

#include <FXPNGIcon.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int smallest_text = 1;
constexpr int largest_text = 256; // a letter taller than most plots

} // namespace

std::set<color_manager*>& color_manager::instances() {
    static std::set<color_manager*> set;
    return set;
}

color_manager::color_manager(FXWindow* owner) : owner(owner) {
    instances().insert(this);
}

color_manager::~color_manager() {
    instances().erase(this);
}

void color_manager::get_fx_owner() {
    stderr_assert(FXApp::instance() != nullptr, "FXApp::instance()!=0",
                  "libfoxaux/fox-utils/color_manager", "void color_manager::get_fx_owner()");
    if (!owner) owner = FXApp::instance()->getRootWindow();
}

void color_manager::colors_dialog() {
    get_fx_owner();
    FXPNGIcon icon(owner->getApp(), icons::color_png);
    dialog_shape dialog(owner, "Change Colors", &icon);
    FXMatrix* rows = dialog.add_matrix(2);
    int size = font_size;
    dialog.add_number(rows, "Font Size", size, 10);
    FXColorWell* fore = dialog_shape::add_well(rows, foreground_label, foreground);
    FXColorWell* fore2 = foreground2_label.is_empty()
                             ? nullptr
                             : dialog_shape::add_well(rows, foreground2_label, foreground2);
    FXColorWell* back = dialog_shape::add_well(rows, "Background Color", background);
    FXColorWell* axes = dialog_shape::add_well(rows, "Axis Color", axis_color);
    dialog.add_buttons();
    if (!dialog.run()) return;

    font_size = size;
    foreground = fore->getRGBA();
    if (fore2) foreground2 = fore2->getRGBA();
    background = back->getRGBA();
    axis_color = axes->getRGBA();
    colors_changed();
    on_change();
}

void color_manager::foreground_dialog() {
    get_fx_owner();
    FXPNGIcon icon(owner->getApp(), icons::color_png);
    FXColorDialog dialog(owner, "Foreground Color");
    dialog.setIcon(&icon);
    dialog.setOpaqueOnly(true); // lines ignore the alpha value, text does not
    dialog.setRGBA(foreground);
    dialog.create();
    place_on_monitor(dialog, PLACEMENT_OWNER);
    if (!dialog.execute(PLACEMENT_DEFAULT)) return;
    foreground = dialog.getRGBA();
    on_change();
}

void color_manager::set_all_axes(int size, FXColor color) {
    for (color_manager* plot : instances()) {
        plot->axis_color = color;
        plot->font_size = size;
        plot->colors_changed();
    }
}

int color_manager::text_size() const {
    const double points = std::clamp(font_size, smallest_text, largest_text);
    const double finer = std::max(1.0, fox_compat::dots_per_inch() / 100);
    // Settings may name any resolution: the product need not fit an int.
    return static_cast<int>(std::lround(std::min<double>(points * finer, largest_text)));
}
