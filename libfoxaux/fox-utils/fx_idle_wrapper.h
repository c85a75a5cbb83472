// SPDX-License-Identifier: MIT
// Runs a callback again and again from the event loop, whenever it is idle or on a timer.
#pragma once

#include "libfoxaux/fox-utils/functor.h"

#include <fx.h>

/// A repeated call of `func`: a chore of the application, or a timeout.
///
/// It is stopped or active. The first start decides the mode; a start while active does nothing.
/// An exception out of `func` passes through and ends the calls; the object stays active until
/// stop().
class fx_idle_wrapper : public FXObject {
    FXDECLARE(fx_idle_wrapper)
public:
    bool active = false; ///< true from a start to `stop` or the end of a one-shot timer
    FXint period = -1;   ///< milliseconds between calls; negative: the timer fires once
    functor0<void> func; ///< the work; assigned by the owner before the first start

    long onChore(FXObject*, FXSelector, void*);
    long onTimeout(FXObject*, FXSelector, void*);

    enum { ID_CHORE = 7, ID_TIMEOUT = 8 };

    fx_idle_wrapper() = default;
    fx_idle_wrapper(const fx_idle_wrapper&) = delete;
    fx_idle_wrapper& operator=(const fx_idle_wrapper&) = delete;

    /// Calls `func` whenever the event loop has nothing to do.
    void start();

    /// Calls `func` after the absolute value of `milliseconds`: once with `once`, else again
    /// and again at that distance. For plots that advance at a steady pace; the loop of Billiard
    /// runs as fast as it can, by start().
    void start_timeout(int milliseconds, bool once);

    /// Ends the calls; `func` itself may do so.
    void stop();

    bool is_active() const { return active; }

    ~fx_idle_wrapper() override;
};
