// SPDX-License-Identifier: MIT
// Runs a callback again and again from the event loop, whenever it is idle or on a timer.
#include "libfoxaux/fox-utils/fx_idle_wrapper.h"

#include <climits>
#include <cstdlib>

// clang-format off
FXDEFMAP(fx_idle_wrapper) fx_idle_wrapper_map[] = {
    FXMAPFUNC(SEL_CHORE,   fx_idle_wrapper::ID_CHORE,   fx_idle_wrapper::onChore),
    FXMAPFUNC(SEL_TIMEOUT, fx_idle_wrapper::ID_TIMEOUT, fx_idle_wrapper::onTimeout),
};
// clang-format on
FXIMPLEMENT(fx_idle_wrapper, FXObject, fx_idle_wrapper_map, ARRAYNUMBER(fx_idle_wrapper_map))

long fx_idle_wrapper::onChore(FXObject*, FXSelector, void*) {
    if (!active) return 0; // fired after stop()
    func();
    // Also when `func` has stopped it: the next one then finds `active` false and ends.
    FXApp::instance()->addChore(this, ID_CHORE);
    return 0;
}

long fx_idle_wrapper::onTimeout(FXObject*, FXSelector, void*) {
    if (!active) return 0;
    func();
    if (period < 0) {
        active = false;
        return 0;
    }
    FXApp::instance()->addTimeout(this, ID_TIMEOUT, static_cast<FXuint>(period));
    return 0;
}

void fx_idle_wrapper::start() {
    if (active) return;
    active = true;
    FXApp::instance()->addChore(this, ID_CHORE);
}

void fx_idle_wrapper::start_timeout(int milliseconds, bool once) {
    if (active) return;
    if (milliseconds == INT_MIN) milliseconds = INT_MAX; // has no absolute value
    milliseconds = std::abs(milliseconds);
    active = true;
    period = once ? -1 : milliseconds;
    FXApp::instance()->addTimeout(this, ID_TIMEOUT, static_cast<FXuint>(milliseconds));
}

void fx_idle_wrapper::stop() {
    if (!active) return;
    active = false;
    FXApp::instance()->removeChore(this, ID_CHORE);
    FXApp::instance()->removeTimeout(this, ID_TIMEOUT);
}

fx_idle_wrapper::~fx_idle_wrapper() {
    FXApp* app = FXApp::instance();
    if (!app) return; // the application took its chores and timeouts with it
    app->removeChore(this, ID_CHORE);
    app->removeTimeout(this, ID_TIMEOUT);
}
