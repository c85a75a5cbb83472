// SPDX-License-Identifier: MIT
// The main window: the phase-space canvas, the button panel and the one billiard.
#pragma once

#include "billiard/radius-core/TBilliard.h"
#include "libfoxaux/fox-utils/fxmain_base.h"

#include <fx.h>

class coordinate_space;
class coordinate_space_win;
class poincare_billiard;

/// The program's main window, which is also its application singleton.
///
/// It owns the billiard and both plot windows, and carries out the panel's commands by calls on the
/// phase-space canvas. It knows nothing of orbits: they live in the pixels of the canvases.
class FMain : public FXMainWindow, public main_base {
    FXDECLARE(FMain)

public:
    poincare_billiard* poincare = nullptr;  ///< phase-space canvas; owned by the widget tree
    coordinate_space* coordinate = nullptr; ///< canvas inside `coordinate_win`
    coordinate_space_win* coordinate_win = nullptr; ///< built once, hidden and shown
    bool show_billiard = false;                     ///< `coordinate_win` is shown
    FXMenuPane* function_menu = nullptr;            ///< pane of the "Function" button; owned
    FXColorWell* color_well = nullptr;              ///< plot colour
    FXCheckButton* loop_check = nullptr;
    TBilliardMap map; ///< a new curve replaces only the TRadiusFunction inside it

    enum {
        ID_SHOW_POSITION = FXMainWindow::ID_LAST,
        ID_COMMAND_FIRST, ///< the ids from here to ID_COMMAND_LAST go to onCommand
        ID_SHOW_BILLIARD,
        ID_ITERATE,
        ID_ZOOM_IN,
        ID_ZOOM_OUT,
        ID_FIXED_POINT,
        ID_SAVE_PICTURE,
        ID_SPARE, ///< no widget sends it
        ID_LOOP,
        ID_PLOT_COLOR,
        ID_HELP,
        ID_ABOUT,
        ID_UNDO,
        ID_COMMAND_LAST,
        ID_OVAL_A,
        ID_OVAL_B,
        ID_ELLIPSE,
        ID_STADIUM,
        ID_OVAL_C,
        ID_USER_FORMULA,
        ID_TRIANGLE,
        ID_LAST
    };

    /// Builds the window, at that place of the screen and of that size in pixels, with the start
    /// curve and start point, and creates it; show() is the caller's.
    FMain(FXApp* app, FXint x, FXint y, FXint w, FXint h);
    FMain(const FMain&) = delete;
    FMain& operator=(const FMain&) = delete;
    ~FMain() override;

    /// Refits and redraws both canvases after a new curve has come into `map`. The map's polar
    /// angle and direction, the zoom, the colours and a running loop stay.
    void curve_changed();

    /// Shows the canvas's plot colour in the well; the well sends no message back.
    void update_color_well();

    /// Checks (1) or clears (0) the "Loop" button; any other value does nothing.
    void set_loop_check(int state);

    long onClose(FXObject*, FXSelector, void*);
    long onCommand(FXObject*, FXSelector, void*);
    long onCmdShowPosition(FXObject*, FXSelector, void*);
    long onCmdOvalA(FXObject*, FXSelector, void*);
    long onCmdOvalB(FXObject*, FXSelector, void*);
    long onCmdEllipse(FXObject*, FXSelector, void*);
    long onCmdStadium(FXObject*, FXSelector, void*);
    long onCmdOvalC(FXObject*, FXSelector, void*);
    long onCmdFormula(FXObject*, FXSelector, void*);
    long onCmdTriangle(FXObject*, FXSelector, void*);

protected:
    FMain() = default;

private:
    void build_canvas(FXComposite* parent);
    void build_panel(FXComposite* parent);
    void build_function_menu();
    void build_coordinate_window(FXApp* app);
    void toggle_coordinate_window();
    void follow_loop_check();
    bool run_command(FXuint id);

    /// Asks for the parameters of the curve with that message id and installs what is accepted.
    long curve_dialog(FXuint id);
};
