// SPDX-License-Identifier: MIT
// The one shape of the program's dialogs, built from rows of tables.
#include "libfoxaux/fox-utils/dialog_shape.h"

#include "libfoxaux/fox-utils/label_text.h"
#include "libfoxaux/fox-utils/layout.h"

#include <algorithm>

namespace {

constexpr FXint padding = 10;      // around the dialog's frame
constexpr FXint inner_padding = 4; // of what stands in it
constexpr FXint spacing = 4;

constexpr FXuint fill = LAYOUT_FILL_X | LAYOUT_FILL_Y;
constexpr FXuint matrix_style = FXuint{MATRIX_BY_COLUMNS} | LAYOUT_FILL_X;
constexpr FXuint separator_style = FXuint{SEPARATOR_GROOVE} | LAYOUT_FILL_X;
constexpr FXuint button_row_style = FXuint{LAYOUT_FILL_X} | PACK_UNIFORM_WIDTH;
constexpr FXuint entry_style = FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_COLUMN;
constexpr FXuint label_style = LABEL_NORMAL | LAYOUT_CENTER_Y;
// A button shows by BUTTON_DEFAULT that it has the focus, and Enter then presses it.
constexpr FXuint button_style =
    BUTTON_DEFAULT | FRAME_RAISED | FRAME_THICK | LAYOUT_CENTER_X | LAYOUT_CENTER_Y;

// The first text field that can be seen below `top`; pages behind the current one are hidden.
FXTextField* first_field(FXWindow* top) {
    for (FXWindow* child = top->getFirst(); child; child = child->getNext()) {
        if (!child->shown()) continue;
        if (auto* field = dynamic_cast<FXTextField*>(child)) return field;
        if (FXTextField* deeper = first_field(child)) return deeper;
    }
    return nullptr;
}

} // namespace

// clang-format off
FXDEFMAP(dialog_shape) dialog_shape_map[] = {
    FXMAPFUNC(SEL_MAP,     0,                       dialog_shape::onMap),
    FXMAPFUNC(SEL_COMMAND, FXDialogBox::ID_ACCEPT,  dialog_shape::onCmdAccept),
};
// clang-format on
FXIMPLEMENT(dialog_shape, FXDialogBox, dialog_shape_map, ARRAYNUMBER(dialog_shape_map))

dialog_shape::dialog_shape(FXWindow* owner, const char* title, FXIcon* icon, FXuint decorations,
                           FXint width, FXint height)
    : FXDialogBox(owner, title, decorations, 0, 0, grown(width), grown(height), padding, padding,
                  padding, padding, spacing, spacing),
      frame(new FXVerticalFrame(this, fill, 0, 0, 0, 0, inner_padding, inner_padding, inner_padding,
                                inner_padding, spacing, spacing)) {
    setIcon(icon);
}

FXint dialog_shape::label_room(FXint width) {
    return grown(width) - 2 * (padding + inner_padding + DEFAULT_PAD);
}

FXMatrix* dialog_shape::add_matrix(int columns, FXComposite* parent) {
    return new FXMatrix(parent ? parent : frame, columns, matrix_style, 0, 0, 0, 0, inner_padding,
                        inner_padding, inner_padding, inner_padding, spacing, spacing);
}

FXVerticalFrame* dialog_shape::add_page(FXTabBook* book, const char* title) {
    new FXTabItem(book, title);
    return new FXVerticalFrame(book, FRAME_RAISED | FRAME_THICK | fill);
}

FXComboBoxPopup* dialog_shape::add_row(FXComposite* parent, const history_site& site,
                                       const entry_row& row, int columns) {
    new FXLabel(parent, row.label, nullptr, label_style | row.justify);
    entry_target* variable = std::visit(
        [&](auto* value) { return &entries.emplace_back(row.label, *value); }, row.value);
    auto* field =
        new FXComboBoxPopup(parent, columns, variable, FXDataTarget::ID_VALUE, entry_style);
    variable->field = field->text_field();
    field->load_history(site.file, row.line, site.context, row.set_text);
    return field;
}

dialog_shape::fields dialog_shape::add_rows(FXComposite* parent, const history_site& site,
                                            const std::vector<entry_row>& rows) {
    fields added;
    for (const entry_row& row : rows)
        added.push_back(add_row(parent, site, row));
    return added;
}

FXTextField* dialog_shape::add_number(FXComposite* parent, const char* label, int& value,
                                      int columns) {
    new FXLabel(parent, label, nullptr, label_style);
    entry_target* variable = &entries.emplace_back(label, value);
    variable->field = new FXTextFieldPopup(parent, columns, variable, FXDataTarget::ID_VALUE,
                                           FRAME_SUNKEN | FRAME_THICK);
    return variable->field;
}

FXColorWell* dialog_shape::add_well(FXComposite* parent, const char* label, FXColor color) {
    new FXLabel(parent, label, nullptr, label_style);
    // Opaque only: lines ignore the alpha value, text does not.
    auto* well = new FXColorWell(parent, color, nullptr, 0,
                                 COLORWELL_NORMAL | COLORWELL_OPAQUEONLY | LAYOUT_FILL_X |
                                     LAYOUT_FILL_Y | LAYOUT_FILL_COLUMN);
    well->setRGBA(color, false);
    return well;
}

void dialog_shape::add_buttons(bool cancel_first) {
    new FXHorizontalSeparator(frame, separator_style);
    add_button_row(cancel_first);
}

void dialog_shape::add_button_row(bool cancel_first) {
    auto* row = new FXHorizontalFrame(frame, button_row_style);
    const auto add = [&](const char* label, FXSelector message) {
        new FXButton(row, label, nullptr, this, message, button_style);
    };
    if (cancel_first) add("&Cancel", ID_CANCEL);
    add("&Accept", ID_ACCEPT);
    if (!cancel_first) add("&Cancel", ID_CANCEL);
}

// Without a window manager nobody gives the keys to a dialog; a window manager gives them only to a
// dialog of the active window.
long dialog_shape::onMap(FXObject* sender, FXSelector sel, void* ptr) {
    FXDialogBox::onMap(sender, sel, ptr);
    setFocus();
    return 1;
}

// Whether a widget of the dialog can be seen: it stands on no page, or on the one in front.
bool dialog_shape::is_seen(const FXWindow* widget) const {
    while (widget != this && widget->shown())
        widget = widget->getParent();
    return widget == this;
}

long dialog_shape::onCmdAccept(FXObject* sender, FXSelector sel, void* ptr) {
    layout(); // brings a page that has just been chosen to the front
    for (const entry_target& entry : entries) {
        const kit::string complaint = entry.complaint();
        if (complaint.is_empty() || !is_seen(entry.field)) continue;
        show_error(this, complaint);
        entry.field->setFocus();
        entry.field->selectAll();
        return 1;
    }
    return FXDialogBox::onCmdAccept(sender, sel, ptr);
}

bool dialog_shape::run(FXuint placement) {
    // A field takes the focus only once it exists on the display, and a text that its target
    // replaces at the first update would lose the selection.
    create();
    grow_to_contents();
    layout();
    forceRefresh();
    focus_first_field(this);
    place_on_monitor(*this, placement);
    return execute(PLACEMENT_DEFAULT) != 0;
}

// The texts may need more than the width that was asked for; entry fields make do with it.
void dialog_shape::grow_to_contents() {
    FXint width = getWidth();
    for (FXWindow* child = frame->getFirst(); child; child = child->getNext()) {
        if (!dynamic_cast<FXLabel*>(child)) continue;
        width = std::max(width, child->getDefaultWidth() + 2 * (padding + inner_padding));
    }
    resize(width, std::max(getHeight(), getDefaultHeight()));
}

void dialog_shape::save_histories(const fields& entered) {
    for (FXComboBoxPopup* field : entered)
        field->save_history();
}

void focus_first_field(FXWindow* dialog) {
    FXTextField* field = first_field(dialog);
    if (!field) return;
    field->setFocus();
    field->selectAll();
}
