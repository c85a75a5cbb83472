// SPDX-License-Identifier: MIT
// The entry widgets of all dialogs: a text field with a context menu, a combo box with a history.
#include "libfoxaux/fox-utils/FXTextFieldPopup.h"

#include "mathkit/stderr_failed.h"

#include <cstring>

namespace {

constexpr int visible_rows = 10;
constexpr const char* source_name = "libfoxaux/fox-utils/FXTextFieldPopup";

} // namespace

// clang-format off
FXDEFMAP(FXTextFieldPopup) FXTextFieldPopupMap[] = {
    FXMAPFUNC(SEL_RIGHTBUTTONPRESS, 0,                                  FXTextFieldPopup::onRightBtnPress),
    FXMAPFUNC(SEL_COMMAND,          FXTextFieldPopup::ID_SETREALVALUE,  FXTextFieldPopup::onCmdSetRealValue),
};
// clang-format on
FXIMPLEMENT(FXTextFieldPopup, FXTextField, FXTextFieldPopupMap, ARRAYNUMBER(FXTextFieldPopupMap))

FXTextFieldPopup::FXTextFieldPopup(FXComposite* p, FXint ncols, FXObject* tgt, FXSelector sel,
                                   FXuint opts, FXint x, FXint y, FXint w, FXint h, FXint pl,
                                   FXint pr, FXint pt, FXint pb)
    : FXTextField(p, ncols, tgt, sel, opts, x, y, w, h, pl, pr, pt, pb),
      popup(new FXMenuPane(this)) {
    new FXMenuCommand(popup, "Cut\tCtl-x", nullptr, this, ID_CUT_SEL);
    new FXMenuCommand(popup, "Copy\tCtl-c", nullptr, this, ID_COPY_SEL);
    new FXMenuCommand(popup, "Paste\tCtl-v", nullptr, this, ID_PASTE_SEL);
    new FXMenuCommand(popup, "Select All\tCtl-a", nullptr, this, ID_SELECT_ALL);
}

void FXTextFieldPopup::create() {
    FXTextField::create();
    popup->create();
}

long FXTextFieldPopup::onRightBtnPress(FXObject*, FXSelector, void* ptr) {
    const auto* event = static_cast<const FXEvent*>(ptr);
    if (event->moved) return 1;
    popup->popup(nullptr, event->root_x, event->root_y, 0, 0);
    getApp()->runModalWhileShown(popup);
    return 1;
}

long FXTextFieldPopup::onCmdSetRealValue(FXObject*, FXSelector, void* ptr) {
    setText(kit::string::format("%.15g", *static_cast<const double*>(ptr)).c_str());
    return 1;
}

FXTextFieldPopup::~FXTextFieldPopup() {
    delete popup;
}

// clang-format off
FXDEFMAP(FXComboBoxPopup) FXComboBoxPopupMap[] = {
    FXMAPFUNC(SEL_FOCUS_PREV, 0, FXComboBoxPopup::onFocusPrev),
};
// clang-format on
FXIMPLEMENT(FXComboBoxPopup, FXComboBox, FXComboBoxPopupMap, ARRAYNUMBER(FXComboBoxPopupMap))

FXComboBoxPopup::FXComboBoxPopup(FXComposite* p, FXint cols, FXObject* tgt, FXSelector sel,
                                 FXuint opts, FXint x, FXint y, FXint w, FXint h, FXint pl,
                                 FXint pr, FXint pt, FXint pb)
    : FXComboBox(p, cols, tgt, sel, opts | COMBOBOX_INSERT_FIRST, x, y, w, h, pl, pr, pt, pb) {
    // The base lays its field out through this pointer, so another field can take its place.
    delete field;
    field = new FXTextFieldPopup(this, cols, this, ID_TEXT, 0, 0, 0, 0, 0, pl, pr, pt, pb);
    if (opts & COMBOBOX_STATIC) field->setEditable(false);
    setNumVisible(visible_rows);
}

// The arrow stands before the field: the Tab key skips it on its way, and here on its way back.
long FXComboBoxPopup::onFocusPrev(FXObject* sender, FXSelector sel, void* ptr) {
    return getFocus() ? 0 : FXComboBox::onFocusPrev(sender, sel, ptr);
}

void FXComboBoxPopup::fill(bool set_text) {
    clearItems();
    if (history->empty()) {
        // The field shows the variable at once, not at the next update: its text is the item.
        if (target) target->tryHandle(this, FXSEL(SEL_UPDATE, message), nullptr);
        appendItem(getText());
        return;
    }
    for (const kit::string& entry : *history)
        appendItem(entry.c_str());
    if (!set_text) return;
    setText(history->front().c_str());
    if (target) target->tryHandle(this, FXSEL(SEL_COMMAND, message), nullptr);
}

void FXComboBoxPopup::load_history(const char* file, int line, void* context, bool set_text) {
    stderr_assert(history == nullptr, "history==0", source_name,
                  "void FXComboBoxPopup::load_history(const char*, int, void*, bool)");
    history = &history_manager::instance()->lookup(file, line, context);
    fill(set_text);
}

void FXComboBoxPopup::load_history_key(const char* key, void* context, bool set_text) {
    stderr_assert(history == nullptr, "history==0", source_name,
                  "void FXComboBoxPopup::load_history_key(const char*, void*, bool)");
    history = &history_manager::instance()->lookup_key(key, context);
    fill(set_text);
}

void FXComboBoxPopup::save_history() {
    stderr_assert(history != nullptr, "history!=0", source_name,
                  "void FXComboBoxPopup::save_history()");
    history->clear();
    for (FXint i = 0; i < getNumItems(); ++i)
        history->emplace_back(getItemText(i).text());
    const FXString text = getText();
    if (history->empty() || std::strcmp(text.text(), history->front()) != 0)
        history->emplace_front(text.text());
}
