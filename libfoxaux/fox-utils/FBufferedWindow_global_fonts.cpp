// SPDX-License-Identifier: MIT
// The dialog that chooses the fonts of the toolkit's own widgets, from the next start on.
#include "libfoxaux/fox-utils/FBufferedWindow_global_fonts.h"

#include "libfoxaux/fox-utils/FBufferedWindow.h"
#include "libfoxaux/fox-utils/dialog_shape.h"
#include "libfoxaux/fox-utils/fxmain_base.h"
#include "libfoxaux/fox-utils/history_manager.h"

namespace detail_font {
FXIMPLEMENT(specDataTarget, font_choice, nullptr, 0)
} // namespace detail_font

using detail_font::specDataTarget;

namespace {

constexpr const char* source = "libfoxaux/fox-utils/FBufferedWindow";
constexpr const char* registry_group = "SETTINGS";

enum font_mode { chosen_fonts = 0, automatic_fonts = 1 };

// One font: its label, its key in the registry, and the line that names its history.
struct font_row {
    const char* label;
    const char* key;
    int line;
};

constexpr font_row normal_row = {"Normal Font", "normalfont", 511};
constexpr font_row fixed_row = {"Fixed Font", "fixedfont", 524};
constexpr int mode_line = 535; // the same for the font_mode

// Fills `font` with what was accepted last in this run, or before that with what the registry
// names, and adds its row to the matrix.
void add_font_row(FXComposite* matrix, const font_row& row, FXRegistry& registry,
                  specDataTarget& font) {
    const char* registered = registry.readStringEntry(registry_group, row.key, nullptr);
    if (registered) font.set_from_text(registered);
    font.set_from_text(remembered_text(source, row.line, font.name.text()));

    new FXLabel(matrix, row.label);
    font.add_widgets(matrix);
}

void add_mode_buttons(FXComposite* parent, FXDataTarget* mode) {
    auto* group = new FXGroupBox(parent, "Automatic font selection",
                                 GROUPBOX_NORMAL | FRAME_GROOVE | LAYOUT_FILL_X);
    new FXRadioButton(group, "Use above values", mode, FXDataTarget::ID_OPTION + chosen_fonts);
    new FXRadioButton(group, "Use automatic font selection(discard above values)", mode,
                      FXDataTarget::ID_OPTION + automatic_fonts);
}

void store_font(FXRegistry& registry, const font_row& row, int mode, const specDataTarget& font) {
    *history_object(source, row.line, nullptr)._S = font.name.text();
    if (mode == automatic_fonts)
        registry.deleteEntry(registry_group, row.key);
    else
        registry.writeStringEntry(registry_group, row.key, font.name.text());
}

} // namespace

void FBufferedWindow::global_fonts_dialog() {
    // The file that every program of the vendor reads before its own.
    FXRegistry registry("Iterra", "Iterra");
    registry.read();

    specDataTarget normal(getApp()->getNormalFont());
    specDataTarget fixed(main_base::instance()->get_fixed_font());
    int mode = remembered_int(source, mode_line, automatic_fonts);

    dialog_shape dialog(main_base::dialog_owner(), "Select Global Fonts", nullptr);
    FXMatrix* matrix = dialog.add_matrix(3);
    add_font_row(matrix, normal_row, registry, normal);
    add_font_row(matrix, fixed_row, registry, fixed);
    add_mode_buttons(dialog.frame, dialog.target(mode));
    dialog.add_buttons();

    if (dialog.run(PLACEMENT_CURSOR)) {
        store_font(registry, normal_row, mode, normal);
        store_font(registry, fixed_row, mode, fixed);
        history_object(source, mode_line, nullptr).set_int(mode);
    }
    registry.write();
}
