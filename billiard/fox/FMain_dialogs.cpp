// SPDX-License-Identifier: MIT
// The dialogs of the main window: one for each curve of the menu, and the current position.
#include "billiard/fox/FMain.h"

#include "billiard/fox/coordinate_space.h"
#include "billiard/fox/curve_table.h"
#include "billiard/fox/poincare_billiard.h"
#include "libfoxaux/fox-utils/dialog_shape.h"
#include "libfoxaux/fox-utils/label_text.h"
#include "libfoxaux/fox-utils/page_book.h"
#include "mathkit/TError.h"
#include "mathkit/turn.h"

#include <numbers>

namespace {

constexpr const char* history_file = "billiard/fox/FMain_dialogs";

double to_degrees(double radians) {
    return radians * 180 / std::numbers::pi;
}
double to_radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

entry_row field_row(const curve_parameter& parameter, curve_values::value_type& value) {
    entry_row row{parameter.label, {}, parameter.history_line, true};
    std::visit([&](auto& variable) { row.value = &variable; }, value);
    return row;
}

dialog_shape::fields add_fields(dialog_shape& dialog, const history_site& site,
                                const curve_entry& entry, curve_values& values) {
    FXMatrix* matrix = entry.layout == field_layout::matrix ? dialog.add_matrix(2) : nullptr;
    dialog_shape::fields fields;
    for (std::size_t i = 0; i < values.size(); ++i) {
        FXComposite* parent = matrix;
        if (!parent) parent = new FXHorizontalFrame(dialog.frame, LAYOUT_FILL_X);
        fields.push_back(dialog.add_row(parent, site, field_row(entry.parameters[i], values[i])));
    }
    return fields;
}

// Shows the dialog of a curve. True if it was accepted: `values` and the histories then hold what
// stood in the fields.
bool ask_curve(FMain* owner, const curve_entry& entry, curve_values& values) {
    dialog_shape dialog(owner, "Boundary Curve", owner->main_icon, DECOR_ALL, entry.width,
                        entry.height);
    new FXLabel(dialog.frame, entry.heading().c_str(), nullptr, JUSTIFY_LEFT);
    const auto fields = add_fields(dialog, {history_file, owner}, entry, values);
    dialog.add_buttons(entry.cancel_first);
    if (!dialog.run()) return false;
    dialog_shape::save_histories(fields);
    return true;
}

// The toolkit's wait cursor on all windows for as long as this lives.
class wait_cursor {
public:
    explicit wait_cursor(FXApp* app) : app(app) { app->beginWaitCursor(); }
    wait_cursor(const wait_cursor&) = delete;
    wait_cursor& operator=(const wait_cursor&) = delete;
    ~wait_cursor() { app->endWaitCursor(); }

private:
    FXApp* app;
};

// Puts the curve with these values into the map, which may take seconds for a long formula. False
// for one that its setter refuses.
bool install_curve(FMain* owner, const curve_entry& entry, const curve_values& values) {
    const wait_cursor shown(owner->getApp());
    auto curve = entry.build(values);
    if (!curve) return false;
    owner->map.setF(curve.release());
    owner->curve_changed();
    return true;
}

// The same; a curve that is refused changes nothing, and a box tells why.
void try_curve(FMain* owner, const curve_entry& entry, const curve_values& values) {
    try {
        if (!install_curve(owner, entry, values)) show_error(owner, entry.refusal);
    } catch (const TError& error) {
        show_error(owner, error.text());
    }
}

// What "Show Position" edits; the angles are in degrees.
struct position_values {
    double S, P, phi, alpha;
};

enum class position_tab { none, section, angles };

// Asks for the point by either tab; gives the one that was open at "&Accept".
position_tab ask_position(FMain* owner, position_values& at) {
    constexpr FXint side = 300;
    dialog_shape dialog(owner, "Current Position", owner->main_icon,
                        DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE, side, side);
    const FXFont* font = owner->getApp()->getNormalFont();
    const FXString curve =
        label_text(owner->map.F->instanceText(), font, dialog_shape::label_room(side), 3);
    new FXLabel(dialog.frame, curve, nullptr, JUSTIFY_LEFT);

    auto* book = new page_book(dialog.frame);
    const history_site site{history_file, owner};
    const auto section = dialog.add_rows(dialog.add_matrix(2, dialog_shape::add_page(book, "S/P")),
                                         site, {{"S", &at.S, 49, false}, {"P", &at.P, 58, false}});
    const auto angles = dialog.add_rows(
        dialog.add_matrix(2, dialog_shape::add_page(book, "phi/alpha")), site,
        {{"phi   (\u00B0)", &at.phi, 73, true}, {"alpha (\u00B0)", &at.alpha, 82, true}});
    dialog.add_button_row();

    if (!dialog.run()) return position_tab::none;
    const bool by_section = book->getCurrent() == 0;
    dialog_shape::save_histories(by_section ? section : angles);
    return by_section ? position_tab::section : position_tab::angles;
}

} // namespace

// The fields' texts are remembered even if the curve is then refused.
long FMain::curve_dialog(FXuint id) {
    const curve_entry& entry = curve_of(id);
    curve_values values = first_values(entry);
    if (ask_curve(this, entry, values)) try_curve(this, entry, values);
    poincare->take_focus();
    return 1;
}

long FMain::onCmdEllipse(FXObject*, FXSelector, void*) {
    return curve_dialog(ID_ELLIPSE);
}
long FMain::onCmdOvalA(FXObject*, FXSelector, void*) {
    return curve_dialog(ID_OVAL_A);
}
long FMain::onCmdOvalB(FXObject*, FXSelector, void*) {
    return curve_dialog(ID_OVAL_B);
}
long FMain::onCmdOvalC(FXObject*, FXSelector, void*) {
    return curve_dialog(ID_OVAL_C);
}
long FMain::onCmdStadium(FXObject*, FXSelector, void*) {
    return curve_dialog(ID_STADIUM);
}
long FMain::onCmdFormula(FXObject*, FXSelector, void*) {
    return curve_dialog(ID_USER_FORMULA);
}
long FMain::onCmdTriangle(FXObject*, FXSelector, void*) {
    return curve_dialog(ID_TRIANGLE);
}

long FMain::onCmdShowPosition(FXObject*, FXSelector, void*) {
    position_values at;
    map.getPoint(at.S, at.P);
    map.getPhiAlpha(at.phi, at.alpha);
    at.phi = to_degrees(at.phi);
    at.alpha = to_degrees(at.alpha);

    const position_tab accepted = ask_position(this, at);
    if (accepted == position_tab::section) map.setPoint(at.S, at.P);
    if (accepted == position_tab::angles) {
        map.setPhiAlpha(kit::wrapped(to_radians(at.phi)), to_radians(at.alpha));
        coordinate->redraw_boundary(); // the map has moved, perhaps to a point that is no start
        coordinate->begin_path();
    }
    if (accepted != position_tab::none) {
        map.getPoint(at.S, at.P);
        poincare->start_at(at.S, at.P);
    }
    poincare->take_focus();
    return 1;
}
