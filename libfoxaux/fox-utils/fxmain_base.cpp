// SPDX-License-Identifier: MIT
// The application's singleton: icons, fixed-pitch font, About, Help, the bell.
#include "libfoxaux/fox-utils/fxmain_base.h"

#include "libfoxaux/fox-utils/dialog_shape.h"
#include "libfoxaux/fox-utils/display_text.h"
#include "libfoxaux/fox-utils/icons.h"
#include "libfoxaux/fox-utils/layout.h"
#include "mathkit/kit_stream.h"
#include "mathkit/tiny_izstream.h"

#include <utility>

FXIMPLEMENT(fxmain_base, FXObject, nullptr, 0)

namespace {

constexpr char build_revision[] = "192";

void write_about(std::ostream& out) {
    out << "Iterra:\n"
           "Orbits and phase portraits of two-dimensional billiards\n\n"
           "Authors:\n"
           "  The Iterra developers\n\n"
           "Published by the Iterra project\n\n"
           "Programmer:\n"
           "  The Iterra developers\n\n"
           "Copyright (C) 2026 the Iterra developers\n\n\n"
           "Version:\n"
           "  svn-revision: "
        << build_revision << '\n';
}

void write_credits(std::ostream& out) {
    out << "This software uses the FOX Toolkit Library and the GNU standard library.\n\n"
           "It is also built on these libraries:\n\n"
           "  libjpeg\n"
           "  libpng\n"
           "  zlib\n"
           "  FreeType\n\n"
           "Their licences are told in the file README.licences.txt,\n"
           "which comes with this program.\n\n";
}

void write_disclaimer(std::ostream& out) {
    out << "This software comes without any warranty, neither expressed nor implied.\n"
           "You use it at your own risk and accept full responsibility for any damage\n"
           "that results from its use. The authors are not liable for any such damage,\n"
           "be it direct, indirect or consequential, for instance the loss of data,\n"
           "the loss of profit, an interruption of work, a damaged computer, or\n"
           "wrong conclusions that were drawn from a picture or a number.\n";
}

void add_page(FXTabBook* book, const char* title, const char* text) {
    new FXLabel(dialog_shape::add_page(book, title), text, nullptr,
                JUSTIFY_LEFT | JUSTIFY_TOP | LAYOUT_FILL_X | LAYOUT_FILL_Y);
}

void add_pages(FXTabBook* book) {
    static constexpr struct {
        const char* title;
        void (*write)(std::ostream&);
    } pages[] = {
        {"About", write_about}, {"Credits", write_credits}, {"Disclaimer", write_disclaimer}};

    kit::ostringstream text;
    for (const auto& page : pages) {
        text.rdbuf()->reset(1024);
        page.write(text);
        text << '\0';
        add_page(book, page.title, text.data());
    }
}

void open_text(display_text* window, FXIcon* icon) {
    window->setIcon(icon);
    window->open();
}

FXFont* make_fixed_font() {
    FXApp* app = FXApp::instance();
    FXFontDesc normal;
    app->getNormalFont()->getFontDesc(normal);
    // The factor is the double nearest 13/9, which lies a little below it, and the product is not
    // rounded: 90 deci-points give 12 points and not 13. In whole numbers this is exact.
    const FXuint points = normal.size == 0 ? 0 : (13U * normal.size - 1) / 90;
    return new FXFont(app, "courier new", points, FXFont::Normal, FXFont::Straight,
                      FONTENCODING_DEFAULT, 0, FXFont::Fixed | FXFont::Modern);
}

} // namespace

main_base::main_base() {
    stderr_assert(_main == nullptr, "_main==0", "libfoxaux/fox-utils/fxmain_base",
                  "main_base::main_base()");
    _main = this;
    main_icon = new FXICOIcon(FXApp::instance(), icons::main_ico);
    help_icon = new FXICOIcon(FXApp::instance(), icons::help_ico);
    fixed_font = nullptr;
}

main_base::~main_base() {
    delete main_icon;
    delete help_icon;
    delete fixed_font;
}

FXWindow* main_base::dialog_owner() {
    const auto owns_dialogs = [](const FXWindow* window) {
        return window->isMemberOf(FXMETACLASS(FXMainWindow)) && window->id();
    };
    FXWindow* active = FXApp::instance()->getActiveWindow();
    if (active && active->shown() && owns_dialogs(active)) return active;
    FXWindow* root = FXApp::instance()->getRootWindow();
    for (FXWindow* window = root->getFirst(); window; window = window->getNext())
        if (owns_dialogs(window)) return window;
    return root;
}

FXFont* main_base::get_fixed_font() {
    if (fixed_font) return fixed_font;
    fixed_font = make_fixed_font();
    const char* entry = FXApp::instance()->reg().readStringEntry("SETTINGS", "fixedfont", nullptr);
    if (entry) fixed_font->setFont(FXString(entry));
    try {
        fixed_font->create();
    } catch (const FXFontException&) { // the entry names no face at all
        delete std::exchange(fixed_font, make_fixed_font());
        fixed_font->create();
    }
    return fixed_font;
}

void main_base::beep() {
    FXApp::instance()->beep(); // volume 0, and nothing while no display is open
}

void main_base::show_about() {
    FXDialogBox dialog(dialog_owner(), "About", DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE, 0, 0, 0,
                       0, 10, 10, 10, 10, 4, 4);
    dialog.setIcon(main_icon);
    auto* frame =
        new FXVerticalFrame(&dialog, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 4, 4, 4, 4, 4, 4);
    add_pages(
        new FXTabBook(frame, nullptr, 0, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 4, 4, 4, 4));
    // Enter presses a button that has the focus only if it can also be the default one.
    auto* ok =
        new FXButton(frame, "&Ok", nullptr, &dialog, FXDialogBox::ID_ACCEPT,
                     BUTTON_INITIAL | BUTTON_DEFAULT | FRAME_RAISED | FRAME_THICK | LAYOUT_FILL_X,
                     0, 0, 0, 0, 2, 2, 2, 2);
    ok->setFocus();
    dialog.create();
    place_on_monitor(dialog, PLACEMENT_SCREEN);
    dialog.execute(PLACEMENT_DEFAULT);
}

void main_base::show_help(const char* data, unsigned size) {
    kit::istringstream packed(data, size);
    tiny_izstream plain(packed.rdbuf());
    kit::ostringstream text;
    // So that a failure to read is thrown by the operator below.
    text.exceptions(std::ios_base::badbit | std::ios_base::failbit);
    text << plain.rdbuf() << '\0';
    show_help_text(text.data());
}

void main_base::show_text(const FXString& title, const char* text) {
    open_text(new display_text(title, text), main_icon);
}

void main_base::show_help_text(const char* text) {
    open_text(new display_text("Help", text), help_icon);
}
