// SPDX-License-Identifier: MIT
// The colours and the font size of one plot, and the two dialogs that change them.
#pragma once

#include "libfoxaux/fox-utils/functor.h"
#include "mathkit/kit_string.h"

#include <fx.h>

#include <set>

/// What a plot draws with. The plot reads the fields when it draws. The class keeps a list of its
/// objects, so that the font dialog reaches all plots at once.
class color_manager {
public:
    functor0<void> on_change;        ///< called after the user changed a colour; may be empty
    FXColor foreground = 0xff000000; ///< plotted points
    FXColor foreground2 =
        0xffff0000; ///< of a second kind of points, where `foreground2_label` is set
    kit::string foreground_label = "Foreground Color"; ///< in the dialog
    kit::string foreground2_label;   ///< empty, as in Billiard: there is no second kind
    FXColor background = 0xffffffff; ///< of the picture
    FXColor axis_color = 0xff808080; ///< axes, ticks and their text
    FXColor band_color = 0xff00ffff; ///< what is drawn by XOR
    int font_size = 12;              ///< points, as typed; any value. Draw with text_size()
    FXWindow* owner;                 ///< of the dialogs, not owned; null: the root window

    explicit color_manager(FXWindow* owner);
    color_manager(const color_manager&) = delete;
    color_manager& operator=(const color_manager&) = delete;
    virtual ~color_manager();

    /// Called after colours or font size changed: redraw what depends on them.
    virtual void colors_changed() {}

    /// Makes sure that `owner` is a window: the application's root window if there was none.
    void get_fx_owner();

    /// The dialog "Change Colors". Accepted: the fields take its values, then colors_changed()
    /// and on_change. Cancelled: nothing happens.
    void colors_dialog();

    /// The dialog "Foreground Color". Accepted: `foreground` is set and on_change called; the
    /// picture stays as it is.
    void foreground_dialog();

    /// Sets font size and axis colour of every plot alive and tells each by colors_changed().
    static void set_all_axes(int size, FXColor color);

    /// `font_size` in points of the plot fonts, which are those of 100 dots per inch: more of them
    /// on a display of higher resolution, and at least 1 and at most 256.
    int text_size() const;

private:
    static std::set<color_manager*>& instances();
};
