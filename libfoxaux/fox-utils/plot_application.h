// SPDX-License-Identifier: MIT
// The toolkit's application, less one of its faults.
#pragma once

#include <fx.h>

/// An application in which the middle mouse button does nothing to a colour well.
///
/// The toolkit's well would paste the colour that the display offers; where none is on offer it
/// frees a pointer that nobody has set.
class plot_application : public FXApp {
public:
    using FXApp::FXApp;

protected:
    bool dispatchEvent(FXRawEvent& event) override;
};
