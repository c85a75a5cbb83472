// SPDX-License-Identifier: MIT
// The window for a long text to read, and the writer that saves it.
#include "libfoxaux/fox-utils/display_text.h"

#include "libfoxaux/fox-utils/file_dialogs.h"
#include "libfoxaux/fox-utils/fxmain_base.h"
#include "libfoxaux/fox-utils/label_text.h"
#include "libfoxaux/fox-utils/layout.h"
#include "mathkit/TError.h"
#include "mathkit/kit_string.h"
#include "mathkit/whole_file.h"

#include <cstring>
#include <vector>

// The toolkit's dialogs only hide when they are closed; by the last two entries this one is
// deleted.
// clang-format off
FXDEFMAP(display_text) display_text_map[] = {
    FXMAPFUNC(SEL_RIGHTBUTTONRELEASE, display_text::ID_TEXT,   display_text::onTextRightRelease),
    FXMAPFUNC(SEL_COMMAND,            display_text::ID_SAVE,   display_text::onCmdSave),
    FXMAPFUNC(SEL_CLOSE,              0,                       display_text::onCmdClose),
    FXMAPFUNC(SEL_COMMAND,            FXDialogBox::ID_CANCEL,  display_text::onCmdClose),
};
// clang-format on
FXIMPLEMENT(display_text, FXDialogBox, display_text_map, ARRAYNUMBER(display_text_map))

namespace {

constexpr int save_directory_key = 896668706; // in place of a line: all windows share it

void add_button(FXComposite* row, const char* label, FXObject* target, FXSelector message) {
    new FXButton(row, label, nullptr, target, message,
                 BUTTON_INITIAL | BUTTON_DEFAULT | FRAME_RAISED | FRAME_THICK | LAYOUT_RIGHT, 0, 0,
                 0, 0, 20, 20, 5, 5);
}

} // namespace

display_text::display_text(const FXString& title, const char* content)
    : FXDialogBox(FXApp::instance(), title, DECOR_ALL, 0, 0, 0, 0, 6, 6, 6, 6, 4, 4) {
    auto* buttons =
        new FXHorizontalFrame(this, LAYOUT_SIDE_BOTTOM | LAYOUT_FILL_X | PACK_UNIFORM_WIDTH, 0, 0,
                              0, 0, 4, 4, 4, 4, 4, 4);
    auto* frame =
        new FXHorizontalFrame(this, FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0,
                              0, 0, 0, 0, 0, 0, 0, 4, 4);
    text = new FXText(frame, this, ID_TEXT, TEXT_READONLY | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0,
                      0, 3, 3, 2, 2);
    text->setFont(main_base::instance()->get_fixed_font());
    text->setTabColumns(35);

    add_button(buttons, "&Close", this, FXTopWindow::ID_CLOSE);
    add_button(buttons, "&Search", text, FXText::ID_SEARCH);
    add_button(buttons, "Save", this, ID_SAVE);

    popup = new FXMenuPane(this);
    new FXMenuCommand(popup, "Copy\tCtl-c", nullptr, text, FXText::ID_COPY_SEL);
    new FXMenuCommand(popup, "Select All\tCtl-a", nullptr, text, FXText::ID_SELECT_ALL);

    if (content) set_text(content);
    buttons->getFirst()->setFocus();
}

display_text::~display_text() {
    delete popup;
}

void display_text::create() {
    FXDialogBox::create();
    popup->create();
}

void display_text::set_text(const char* replacement) {
    text->setText(replacement, static_cast<FXint>(strlen(replacement)), false);
}

void display_text::open() {
    const layout_root screen;
    setWidth(static_cast<FXint>(screen.width()) * 3 / 4);
    setHeight(static_cast<FXint>(screen.height()) * 3 / 4);
    create();
    place_on_monitor(*this, PLACEMENT_SCREEN);
    show();
}

long display_text::onTextRightRelease(FXObject*, FXSelector sel, void* ptr) {
    const auto* event = static_cast<FXEvent*>(ptr);
    if (event->moved || FXSELID(sel) != ID_TEXT) return 0;
    popup->popup(nullptr, event->root_x, event->root_y, 0, 0);
    getApp()->runModalWhileShown(popup);
    return 1;
}

long display_text::onCmdSave(FXObject*, FXSelector, void*) {
    kit::string file;
    save_file_dialog(this, "Save File", file, "All Files (*)", "libfoxaux/fox-utils/display_text",
                     save_directory_key, nullptr);
    if (file.is_empty()) return 0;
    try {
        save_text(text, file);
    } catch (const TError& error) {
        show_error(this, kit::string::format("File not saved.\n%s", error.text().c_str()));
    }
    return 0;
}

void save_text(FXText* text, const char* filename) {
    std::vector<char> bytes(static_cast<std::size_t>(text->getLength()) + 1); // and a zero
    text->getText(bytes.data(), text->getLength());
    whole_file file(filename);
    if (!file.is_open()) throw TError(kit::string::format("could not open file \"%s\"", filename));
    file.write(bytes.data(), bytes.size() - 1);
    if (!file.keep())
        throw TError(kit::string::format("failure during saving \"%s\":\n  %s", filename,
                                         file.reason().c_str()));
}
