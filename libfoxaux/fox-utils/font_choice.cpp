// SPDX-License-Identifier: MIT
// One font of the toolkit as two widgets show and change it: a read-only field and a button.
#include "libfoxaux/fox-utils/font_choice.h"

#include "libfoxaux/fox-utils/layout.h"

#include <cstring>

namespace {

FXushort known_or(FXuint actual, FXushort wanted) {
    return actual != 0 ? static_cast<FXushort>(actual) : wanted;
}

} // namespace

// clang-format off
FXDEFMAP(font_choice) font_choice_map[] = {
    FXMAPFUNC(SEL_COMMAND, font_choice::ID_BUTTON, font_choice::onCmdChange),
    FXMAPFUNC(SEL_UPDATE,  font_choice::ID_FIELD,  font_choice::onUpdName),
};
// clang-format on
FXIMPLEMENT_ABSTRACT(font_choice, FXObject, font_choice_map, ARRAYNUMBER(font_choice_map))

FXWindow* window_of(FXObject* sender) {
    auto* window = dynamic_cast<FXWindow*>(sender);
    return window ? window->getShell() : FXApp::instance()->getRootWindow();
}

font_choice::font_choice(const FXFont* font) {
    FXFontDesc actual;
    font->getFontDesc(actual);
    const FXString& face = font->getActualName();
    if (!face.empty()) { // empty only before the font was created
        strncpy(actual.face, face.text(), sizeof(actual.face) - 1);
        actual.face[sizeof(actual.face) - 1] = '\0';
    }
    actual.weight = known_or(font->getActualWeight(), actual.weight);
    actual.slant = known_or(font->getActualSlant(), actual.slant);
    take_desc(actual);
}

void font_choice::take_desc(const FXFontDesc& wanted) {
    const FXFont font(FXApp::instance(), wanted);
    font.getFontDesc(desc);
    name = font.getFont();
}

void font_choice::take_text(const char* text) {
    FXFont font(FXApp::instance(), desc);
    font.setFont(FXString(text));
    font.getFontDesc(desc);
    name = font.getFont();
}

void font_choice::add_widgets(FXComposite* parent) {
    auto* field =
        new FXTextField(parent, 30, this, ID_FIELD, TEXTFIELD_NORMAL | TEXTFIELD_READONLY);
    // At once: the first update may find the field focused, and then leaves it alone.
    field->setText(name);
    field->setCursorPos(0);
    field->makePositionVisible(0); // the family, which matters most
    new FXButton(parent, "...", nullptr, this, ID_BUTTON);
}

long font_choice::onCmdChange(FXObject* sender, FXSelector, void*) {
    FXFontDialog dialog(window_of(sender), "Change Font", DECOR_TITLE | DECOR_BORDER, 0, 0,
                        grown(600), grown(380));
    dialog.setFontSelection(desc);
    dialog.forceRefresh();
    place_on_monitor(dialog, PLACEMENT_CURSOR);
    if (!dialog.execute(PLACEMENT_DEFAULT)) return 1;
    dialog.getFontSelection(desc);
    take_desc(desc);
    return 1;
}

long font_choice::onUpdName(FXObject* sender, FXSelector, void*) {
    sender->handle(this, FXSEL(SEL_COMMAND, FXWindow::ID_SETSTRINGVALUE), &name);
    return 1;
}
