// SPDX-License-Identifier: MIT
// The toolkit's application, less four of its faults.
#pragma once

#include <fx.h>

/// An application that keeps two events from the toolkit's colour dialogs, for they would end it.
///
/// On the middle mouse button a colour well pastes the colour that the display offers; where none
/// is on offer it frees a pointer that nobody has set. And the button that picks a colour from the
/// screen, pressed by the space bar, reads the place of a click that has not happened.
///
/// And its letters have the resolution that the desktop tells by the resource Xft.dpi, where the
/// toolkit has 100 dots per inch for any display. Its setting "screenres" of "SETTINGS" wins.
///
/// And a click on another window of the application brings a modal dialog to the front and gives it
/// the keys: it may lie behind that window, and nothing else answers before it is closed.
class plot_application : public FXApp {
public:
    using FXApp::FXApp;

    void create() override;
    void exit(FXint code = 0) override;

protected:
    bool dispatchEvent(FXRawEvent& event) override;

private:
    bool pastes_color(const FXRawEvent& event) const;
    bool picks_by_key(FXRawEvent& event) const;
    FXTopWindow* dialog_beside(const FXRawEvent& event) const;

    bool follows_desktop = false; ///< the resolution in the settings is the desktop's
};
