// SPDX-License-Identifier: MIT
// The one application of a test process, its event loop, and a window to show a widget in.
#pragma once

#include "libfoxaux/fox-utils/plot_application.h"

#include <fx.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

namespace window_test {

/// The application of the process, connected to the display; made at first use, never deleted.
inline FXApp& app() {
    static FXApp* application = [] {
        static char name[] = "test";
        static char* arguments[] = {name, nullptr};
        int count = 1;
        auto* created = new plot_application("Billiard", "Iterra");
        created->init(count, arguments);
        created->create();
        return created;
    }();
    return *application;
}

/// Letters of so many dots per inch for as long as this lives.
class resolution {
public:
    explicit resolution(FXuint dots) {
        app().reg().writeUnsignedEntry("SETTINGS", "screenres", dots);
    }
    resolution(const resolution&) = delete;
    resolution& operator=(const resolution&) = delete;
    ~resolution() { app().reg().deleteEntry("SETTINGS", "screenres"); }
};

/// Works every so many milliseconds for as long as it lives.
class timer : public FXObject {
public:
    explicit timer(
        FXuint period, std::function<void()> work = [] {})
        : period(period),
          work(std::move(work)) {
        app().addTimeout(this, 0, period);
    }
    ~timer() override { app().removeTimeout(this, 0); }
    long handle(FXObject*, FXSelector, void*) override {
        app().addTimeout(this, 0, period);
        work();
        return 1;
    }

private:
    FXuint period;
    std::function<void()> work;
};

/// A chore works until something waits, as the canvases' loop does: with a timer it gives way.
constexpr FXuint chore_time = 3; // milliseconds

/// Handles what is pending: paints, layout, timers that are due. A running chore runs some times.
inline void pump(int passes = 10) {
    const timer interrupts(chore_time);
    for (int i = 0; i < passes; ++i) {
        app().flush(true);
        app().runWhileEvents();
    }
    app().forceRefresh(); // widgets would ask their targets one by one, whenever idle
    app().repaint();
    app().flush(true);
}

/// Handles events until `done` says so; false if it never does within some seconds.
inline bool pump_until(const std::function<bool()>& done) {
    const timer interrupts(chore_time);
    const FXTime deadline = FXThread::time() + 10000000000LL; // nanoseconds
    while (!done()) {
        if (FXThread::time() > deadline) return false;
        app().runWhileEvents();
        FXThread::sleep(2000000);
    }
    return true;
}

/// A top-level window with one child that fills it, shown.
template<class Canvas>
class shown {
public:
    shown(int w, int h)
        : shell(new FXMainWindow(&app(), "test", nullptr, nullptr, DECOR_NONE, 20, 20, w, h)),
          canvas(fill(shell.get())) {
        shell->create();
        shell->show();
        pump();
    }

    Canvas* operator->() const { return canvas; }
    Canvas& operator*() const { return *canvas; }

    /// Gives the canvas another size and lets it paint.
    void resize(int w, int h) {
        shell->resize(w, h);
        shell->layout();
        pump();
    }

    std::unique_ptr<FXMainWindow> shell;
    Canvas* canvas; ///< owned by the shell

private:
    static Canvas* fill(FXComposite* parent) {
        return new Canvas(parent, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0);
    }
};

} // namespace window_test
