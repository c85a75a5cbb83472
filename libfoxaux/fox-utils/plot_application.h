// SPDX-License-Identifier: MIT
// The toolkit's application without four of its faults.
#pragma once

#include <fx.h>

/// What it does otherwise than FXApp:
///
/// - The middle mouse button does nothing on a colour well. There it pastes the colour that the
///   display offers, and without such an offer the toolkit frees a pointer that was never set.
/// - The space bar does nothing on the button that picks a colour from the screen. The toolkit
/// would
///   read the place of a click that has not happened.
/// - Letters have the resolution that the desktop tells by the resource Xft.dpi. The toolkit has
/// 100
///   dots per inch for any display, or its setting "screenres" of "SETTINGS", which still wins.
/// - A click on another window of the application brings an open modal dialog to the front and
/// gives
///   it the keys. It may lie behind that window, and nothing else answers before it is closed.
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
