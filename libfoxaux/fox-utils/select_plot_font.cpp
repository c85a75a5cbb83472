// SPDX-License-Identifier: MIT
// The dialog "Select Font": three kinds of plot font, one page each.
#include "libfoxaux/fox-utils/select_plot_font.h"

#include "libfoxaux/font/fox_font.h"
#include "libfoxaux/font/fox_hfont.h"
#include "libfoxaux/font/fox_ttf_font.h"
#include "libfoxaux/fox-utils/color_manager.h"
#include "libfoxaux/fox-utils/dialog_shape.h"
#include "libfoxaux/fox-utils/file_dialogs.h"
#include "libfoxaux/fox-utils/fxmain_base.h"
#include "libfoxaux/fox-utils/history_manager.h"
#include "libfoxaux/fox-utils/label_text.h"
#include "libfoxaux/fox-utils/page_book.h"
#include "mathkit/TError.h"

namespace {

constexpr const char* source = "libfoxaux/fox-utils/select_plot_font";

// The pages of the dialog, in order: one for each kind of plot font.
enum page { stroke_page, toolkit_page, file_page };

// Each field has a history of its own under one of these numbers.
enum history_line {
    tab_line = 1,
    stroke_size_line,
    font_line,
    file_line,
    ttf_size_line,
    antialias_line,
    browse_line
};

} // namespace

namespace detail_hfont {

// clang-format off
FXDEFMAP(specDataTarget) specDataTarget_map[] = {
    FXMAPFUNC(SEL_COMMAND, specDataTarget::ID_PATH,   specDataTarget::onCmdValue),
    FXMAPFUNC(SEL_CHANGED, specDataTarget::ID_PATH,   specDataTarget::onCmdValue),
    FXMAPFUNC(SEL_UPDATE,  specDataTarget::ID_PATH,   specDataTarget::onUpdValue),
    FXMAPFUNC(SEL_COMMAND, specDataTarget::ID_BROWSE, specDataTarget::onCmdBrowse),
};
// clang-format on
FXIMPLEMENT(specDataTarget, FXObject, specDataTarget_map, ARRAYNUMBER(specDataTarget_map))

FXIMPLEMENT(specDataTarget1, font_choice, nullptr, 0)

long specDataTarget::onCmdValue(FXObject* sender, FXSelector, void*) {
    sender->handle(this, FXSEL(SEL_COMMAND, FXWindow::ID_GETSTRINGVALUE), value);
    return 1;
}

long specDataTarget::onUpdValue(FXObject* sender, FXSelector, void*) {
    sender->handle(this, FXSEL(SEL_COMMAND, FXWindow::ID_SETSTRINGVALUE), value);
    return 1;
}

long specDataTarget::onCmdBrowse(FXObject* sender, FXSelector, void*) {
    kit::string file;
    open_file_dialog(window_of(sender), "Select Font", file, "All Files (*)", source, browse_line,
                     nullptr);
    if (!file.is_empty()) *value = file.c_str();
    return 1;
}

} // namespace detail_hfont

using detail_hfont::specDataTarget;
using detail_hfont::specDataTarget1;

namespace {

// The dialog while it is open: what it lets the user choose, page by page, and its widgets.
class font_dialog {
public:
    explicit font_dialog(FXWindow* owner);
    font_dialog(const font_dialog&) = delete;
    font_dialog& operator=(const font_dialog&) = delete;

    // True for "&Accept".
    bool run();
    // Stores what was chosen for the next opening, until the program ends.
    void store();
    // Makes the chosen font the plot font; gives its size. If the font can't be loaded, throws
    // TError and changes nothing.
    int apply();
    FXColor color() const { return color_well->getRGBA(); }

private:
    void add_stroke_page();
    void add_toolkit_page();
    void add_file_page();
    FXComboBoxPopup* add_size(FXComposite* page, int& size, int line,
                              FXuint justify = JUSTIFY_NORMAL);

    // The page "Stroke Font".
    int stroke_size = 10;
    FXComboBoxPopup* stroke_size_field = nullptr;

    // The page "Fox Font".
    specDataTarget1 toolkit_font{FXApp::instance()->getNormalFont()};

    // The page "TTF Font".
    FXString file;
    specDataTarget file_target{&file};
    FXComboBoxPopup* file_field = nullptr;
    int ttf_size = 20;
    FXComboBoxPopup* ttf_size_field = nullptr;
    int antialias = remembered_int(source, antialias_line, 1);

    // After what its widgets point at, so that it is destroyed first.
    dialog_shape dialog;
    page_book* book;
    FXColorWell* color_well;
};

font_dialog::font_dialog(FXWindow* owner)
    : dialog(owner, "Select Font", nullptr),
      book(new page_book(dialog.frame)) {
    toolkit_font.set_name(remembered_text(source, font_line, toolkit_font.name.text()));
    add_stroke_page();
    add_toolkit_page();
    add_file_page();
    color_well = dialog_shape::add_well(dialog.add_matrix(2), "Font Color", FXRGBA(0, 0, 0, 255));
    dialog.add_buttons();
    book->setCurrent(remembered_int(source, tab_line, stroke_page), false);
}

FXComboBoxPopup* font_dialog::add_size(FXComposite* page, int& size, int line, FXuint justify) {
    return dialog.add_row(dialog.add_matrix(2, page), {source, nullptr},
                          {"Font Size", &size, line, true, justify});
}

void font_dialog::add_stroke_page() {
    stroke_size_field = add_size(dialog_shape::add_page(book, "Stroke Font"), stroke_size,
                                 stroke_size_line, JUSTIFY_RIGHT);
}

void font_dialog::add_toolkit_page() {
    auto* row = new FXHorizontalFrame(dialog_shape::add_page(book, "Fox Font"), LAYOUT_FILL_X);
    toolkit_font.add_widgets(row);
}

void font_dialog::add_file_page() {
    FXVerticalFrame* page = dialog_shape::add_page(book, "TTF Font");
    auto* row = new FXHorizontalFrame(page, LAYOUT_FILL_X);
    new FXLabel(row, "Font File(ttf,pfb,...)", nullptr, LABEL_NORMAL | LAYOUT_CENTER_Y);
    file_field = new FXComboBoxPopup(row, 60, &file_target, specDataTarget::ID_PATH,
                                     FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_CENTER_Y);
    file_field->load_history(source, file_line, nullptr, true);
    new FXButton(row, "...", nullptr, &file_target, specDataTarget::ID_BROWSE);

    ttf_size_field = add_size(page, ttf_size, ttf_size_line);

    auto* group = new FXGroupBox(page, "Anti Aliasing", GROUPBOX_NORMAL | FRAME_GROOVE);
    FXDataTarget* target = dialog.target(antialias);
    new FXRadioButton(group, "Off", target, FXDataTarget::ID_OPTION + 0);
    new FXRadioButton(group, "On", target, FXDataTarget::ID_OPTION + 1);
}

bool font_dialog::run() {
    return dialog.run(PLACEMENT_CURSOR);
}

void font_dialog::store() {
    history_object(source, tab_line, nullptr).set_int(book->getCurrent());
    *history_object(source, font_line, nullptr)._S = toolkit_font.name.text();
    stroke_size_field->save_history();
    history_object(source, antialias_line, nullptr).set_int(antialias);
    file_field->save_history();
    ttf_size_field->save_history();
}

// Puts `font` in the place of the plot font.
void replace_hfont(base_font* font) {
    delete hfont;
    hfont = font;
}

int font_dialog::apply() {
    switch (book->getCurrent()) {
    case stroke_page: {
        auto* stroke = new fox_stroke_font;
        stroke->load_default();
        replace_hfont(stroke);
        return stroke_size;
    }
    case toolkit_page: {
        auto* toolkit = new fox_font;
        replace_hfont(toolkit);
        toolkit->setFont(toolkit_font.desc);
        return toolkit_font.desc.size / 10;
    }
    default: {
        auto* loaded = new fox_ttf_font(file.text());
        replace_hfont(loaded);
        loaded->antialias = antialias != 0;
        return ttf_size;
    }
    }
}

} // namespace

void select_plot_font() {
    FXWindow* owner = main_base::dialog_owner();
    font_dialog dialog(owner);
    if (!dialog.run()) return;
    // Stored even if the font then fails to load, so that a wrong path can be corrected.
    dialog.store();
    try {
        const int size = dialog.apply();
        color_manager::set_all_axes(size, dialog.color());
    } catch (const TError& error) {
        show_error(owner, kit::string::format("Could not load font:\n%s", error.text().c_str()));
    }
}
