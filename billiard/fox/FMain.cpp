// SPDX-License-Identifier: MIT
// The main window: the phase-space canvas, the button panel and the one billiard.
#include "billiard/fox/FMain.h"

#include "billiard/fox/coordinate_space.h"
#include "billiard/fox/curve_table.h"
#include "billiard/fox/help_text.h"
#include "billiard/fox/panel_widgets.h"
#include "billiard/fox/poincare_billiard.h"
#include "libfoxaux/fox-utils/layout.h"

#include <fxkeys.h>

// clang-format off
FXDEFMAP(FMain) FMainMap[] = {
    FXMAPFUNC (SEL_CLOSE,   0,                                          FMain::onClose),
    FXMAPFUNC (SEL_COMMAND, FMain::ID_SHOW_POSITION,                    FMain::onCmdShowPosition),
    FXMAPFUNCS(SEL_COMMAND, FMain::ID_COMMAND_FIRST,
                            FMain::ID_COMMAND_LAST,                     FMain::onCommand),
    FXMAPFUNC (SEL_COMMAND, FMain::ID_OVAL_A,                           FMain::onCmdOvalA),
    FXMAPFUNC (SEL_COMMAND, FMain::ID_OVAL_B,                           FMain::onCmdOvalB),
    FXMAPFUNC (SEL_COMMAND, FMain::ID_ELLIPSE,                          FMain::onCmdEllipse),
    FXMAPFUNC (SEL_COMMAND, FMain::ID_STADIUM,                          FMain::onCmdStadium),
    FXMAPFUNC (SEL_COMMAND, FMain::ID_OVAL_C,                           FMain::onCmdOvalC),
    FXMAPFUNC (SEL_COMMAND, FMain::ID_USER_FORMULA,                     FMain::onCmdFormula),
    FXMAPFUNC (SEL_COMMAND, FMain::ID_TRIANGLE,                         FMain::onCmdTriangle),
};
// clang-format on

FXIMPLEMENT(FMain, FXMainWindow, FMainMap, ARRAYNUMBER(FMainMap))

// The ids follow those of the toolkit and keep their numbers: add a new one at the end.
static_assert(FXMainWindow::ID_LAST == 60);
static_assert(FMain::ID_COMMAND_FIRST == 61 && FMain::ID_COMMAND_LAST == 74);
static_assert(FMain::ID_OVAL_A == 75 && FMain::ID_TRIANGLE == 81);

namespace {

constexpr FXint least_panel_width = 100;
constexpr FXint label_padding = 2; // around the labels of the panel

struct button_row {
    const char* label;
    FXuint id;
};

constexpr button_row buttons_above_loop[] = {
    {"Show Billiard", FMain::ID_SHOW_BILLIARD}, {"Iterate", FMain::ID_ITERATE},
    {"Show Position", FMain::ID_SHOW_POSITION}, {"Zoom In", FMain::ID_ZOOM_IN},
    {"Zoom Out", FMain::ID_ZOOM_OUT},           {"Undo", FMain::ID_UNDO},
    {"Fixed Point", FMain::ID_FIXED_POINT},     {"Save Picture", FMain::ID_SAVE_PICTURE},
};

constexpr button_row buttons_at_foot[] = {
    {"Help", FMain::ID_HELP},
    {"About", FMain::ID_ABOUT},
};

// None is a default button: Return and Tab typed in the canvas must not press one.
template<std::size_t n>
void add_buttons(FXComposite* panel, FMain* target, const button_row (&rows)[n]) {
    for (const button_row& row : rows)
        new FXButton(panel, row.label, nullptr, target, row.id, FRAME_RAISED | LAYOUT_FILL_X, 0, 0,
                     0, 0, label_padding, label_padding, label_padding, label_padding);
}

// Makes the panel as wide as its labels want. At the usual font the longest fits without its
// padding, and the panel keeps its width.
void fit_panel(FXComposite* panel) {
    const FXint wanted = panel->getDefaultWidth();
    if (wanted - 2 * label_padding > panel->getWidth()) panel->setWidth(wanted);
}

} // namespace

FMain::FMain(FXApp* app, FXint x, FXint y, FXint w, FXint h)
    : FXMainWindow(app, "Billiard: Phase Space(Poincare Section)", nullptr, nullptr, DECOR_ALL, x,
                   y, w, h) {
    setIcon(main_icon);

    auto* splitter =
        new FXSplitter(this, SPLITTER_REVERSED | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0);
    build_canvas(splitter);
    build_panel(splitter);
    build_coordinate_window(app);
    for (FXWindow* window : {static_cast<FXWindow*>(this), static_cast<FXWindow*>(coordinate_win)})
        window->getAccelTable()->addAccel(KEY_F1, this, FXSEL(SEL_COMMAND, ID_HELP));

    const curve_entry& first = curve_of(ID_OVAL_A);
    map.setF(first.build(first_values(first)).release());
    map.setPoint(0.5, 0.5);

    FXMainWindow::create(); // curve_changed() draws, and that takes windows and pictures
    coordinate_win->accompany(this);
    curve_changed();
}

FMain::~FMain() {
    delete coordinate_win; // its canvas refers to this window and to the map
    delete function_menu;
}

void FMain::build_canvas(FXComposite* parent) {
    poincare = new poincare_billiard(parent, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0);
    poincare->main = this;
    poincare->map = &map;
    poincare->on_change = functor0<void>(this, &FMain::update_color_well);
    poincare->loop_changed = functor1<void, int>(this, &FMain::set_loop_check);
}

void FMain::build_panel(FXComposite* parent) {
    auto* panel = new FXVerticalFrame(parent, LAYOUT_FIX_WIDTH | LAYOUT_FILL_Y, 0, 0,
                                      least_panel_width, 0, 4, 4, 4, 4, 4, 4);
    add_buttons(panel, this, buttons_above_loop);
    loop_check =
        new FXCheckButton(panel, "Loop", this, ID_LOOP, CHECKBUTTON_NORMAL | LAYOUT_FILL_X, 0, 0, 0,
                          0, label_padding, label_padding, label_padding, label_padding);
    color_well = new panel_well(panel, this, ID_PLOT_COLOR);
    update_color_well();
    build_function_menu();
    new function_button(panel, function_menu, poincare);
    add_buttons(panel, this, buttons_at_foot);
    fit_panel(panel);
}

void FMain::build_function_menu() {
    function_menu = new FXMenuPane(this);
    for (const curve_entry& entry : curve_table())
        new FXMenuCommand(function_menu, entry.name, nullptr, this, entry.id);
}

void FMain::build_coordinate_window(FXApp* app) {
    const layout_root screen(getX(), getY());
    const auto x = static_cast<FXint>(screen.x1) + 40, y = static_cast<FXint>(screen.y1) + 40;
    coordinate_win = new coordinate_space_win(app, x, y, grown(300), grown(300));
    coordinate_win->setIcon(main_icon);
    coordinate_win->create();
    coordinate = coordinate_win->canvas;
    coordinate->main = this;
    coordinate->map = &map;
    coordinate_win->hide();
    show_billiard = false;
}

long FMain::onClose(FXObject*, FXSelector, void*) {
    getApp()->exit(0);
    return 1;
}

long FMain::onCommand(FXObject*, FXSelector sel, void*) {
    if (run_command(FXSELID(sel))) poincare->take_focus();
    return 1;
}

// False for an id without a command.
bool FMain::run_command(FXuint id) {
    switch (id) {
    case ID_SHOW_BILLIARD:
        toggle_coordinate_window();
        return true;
    case ID_ITERATE:
        poincare->iterate();
        poincare->update();
        return true;
    case ID_ZOOM_IN:
        poincare->arm_zoom();
        return true;
    case ID_ZOOM_OUT:
        poincare->zoom_out(false);
        return true;
    case ID_FIXED_POINT:
        poincare->arm_fixed_point();
        return true;
    case ID_SAVE_PICTURE:
        poincare->save_picture();
        return true;
    case ID_LOOP:
        follow_loop_check();
        return true;
    case ID_PLOT_COLOR:
        poincare->foreground = color_well->getRGBA();
        return true;
    case ID_HELP:
        show_help(help_text::data, help_text::size);
        return true;
    case ID_ABOUT:
        show_about();
        return true;
    case ID_UNDO:
        poincare->undo();
        return true;
    default:
        return false;
    }
}

void FMain::toggle_coordinate_window() {
    if (show_billiard) {
        coordinate_win->hide();
    } else {
        coordinate->redraw_boundary();
        coordinate_win->show();
        coordinate->take_focus();
    }
    show_billiard = !show_billiard;
    setFocus(); // without a window manager showing or hiding a window may move the keys
}

void FMain::follow_loop_check() {
    if (loop_check->getCheck() == FALSE) poincare->stop_loop();
    if (loop_check->getCheck() == TRUE) poincare->start_loop();
}

void FMain::curve_changed() {
    coordinate->fit_view();
    coordinate->redraw_boundary();
    coordinate->update();
    poincare->render();
    poincare->update();
}

void FMain::update_color_well() {
    color_well->setRGBA(poincare->foreground, false);
}

void FMain::set_loop_check(int state) {
    if (state == 1) loop_check->setCheck(TRUE);
    if (state == 0) loop_check->setCheck(FALSE);
}
