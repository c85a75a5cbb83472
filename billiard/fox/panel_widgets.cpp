// SPDX-License-Identifier: MIT
// The two widgets of the main window's panel that may take the keys without sending a command.
#include "billiard/fox/panel_widgets.h"

#include "libfoxaux/fox-utils/FBufferedWindow.h"
#include "libfoxaux/fox-utils/layout.h"

namespace {

constexpr FXint padding = 2; // of the labels, as of the other buttons

// Without ICON_AFTER_TEXT the arrow would stand across the label.
constexpr FXuint menu_style = FXuint{MENUBUTTON_UP} | JUSTIFY_NORMAL | ICON_AFTER_TEXT |
                              FRAME_RAISED | FRAME_THICK | LAYOUT_FILL_X;

} // namespace

// clang-format off
FXDEFMAP(function_button) function_button_map[] = {
    FXMAPFUNC(SEL_COMMAND, FXWindow::ID_UNPOST, function_button::onCmdUnpost),
};
// clang-format on
FXIMPLEMENT(function_button, FXMenuButton, function_button_map, ARRAYNUMBER(function_button_map))

function_button::function_button(FXComposite* panel, FXPopup* menu, FBufferedWindow* canvas)
    : FXMenuButton(panel, "Function", nullptr, menu, menu_style, 0, 0, 0, 0, padding, padding,
                   padding, padding),
      canvas(canvas) {}

long function_button::onCmdUnpost(FXObject* sender, FXSelector sel, void* ptr) {
    const long answer = FXMenuButton::onCmdUnpost(sender, sel, ptr);
    canvas->take_focus();
    return answer;
}

panel_well::panel_well(FXComposite* panel, FXObject* target, FXSelector message)
    : FXColorWell(panel, FXRGB(255, 255, 255), target, message,
                  FXuint{COLORWELL_NORMAL} | COLORWELL_OPAQUEONLY | LAYOUT_FILL_X, 0, 0, 0, 0,
                  padding, padding, padding, padding) {}

bool panel_well::canFocus() const {
    return false;
}

FXint panel_well::getDefaultHeight() {
    return grown(FXColorWell::getDefaultHeight());
}
