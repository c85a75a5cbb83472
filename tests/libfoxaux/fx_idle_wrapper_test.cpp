// SPDX-License-Identifier: MIT
// Tests of the repeated callback: chore, timer, stopping from inside.
#include "libfoxaux/fox-utils/fx_idle_wrapper.h"

#include "tests/libfoxaux/window_fixture.h"

#include <climits>

using namespace window_test;

namespace {

/// Counts its calls and stops the wrapper at one of them.
struct worker {
    worker() { wrapper.func = functor0<void>(this, &worker::work); }
    void work() {
        if (++calls == stop_at) wrapper.stop();
        if (calls == throw_at) throw calls;
    }
    bool has_chore() { return app().hasChore(&wrapper, fx_idle_wrapper::ID_CHORE); }
    bool has_timeout() { return app().hasTimeout(&wrapper, fx_idle_wrapper::ID_TIMEOUT); }

    fx_idle_wrapper wrapper;
    int calls = 0, stop_at = -1, throw_at = -1;
};

TEST(fx_idle_wrapper, AChoreRunsUntilItIsStopped) {
    worker w;
    w.wrapper.start();
    EXPECT_TRUE(w.wrapper.is_active());
    w.wrapper.start_timeout(1, true); // the first start decides
    EXPECT_FALSE(w.has_timeout());
    EXPECT_TRUE(pump_until([&] { return w.calls > 3; }));
    w.wrapper.stop();
    w.wrapper.stop();
    EXPECT_FALSE(w.has_chore());
    const int calls = w.calls;
    pump();
    EXPECT_EQ(w.calls, calls);

    worker itself; // may be stopped by its own work
    itself.stop_at = 2;
    itself.wrapper.start();
    EXPECT_TRUE(pump_until([&] { return !itself.wrapper.is_active() && !itself.has_chore(); }));
    EXPECT_EQ(itself.calls, 2);
}

TEST(fx_idle_wrapper, ATimerFiresOnceOrAgainAndAgain) {
    worker once;
    once.wrapper.start_timeout(-3, true);
    EXPECT_EQ(once.wrapper.period, -1);
    worker again;
    again.stop_at = 3;
    again.wrapper.start_timeout(-2, false);
    EXPECT_EQ(again.wrapper.period, 2);
    EXPECT_TRUE(pump_until([&] { return again.calls == 3; }));
    EXPECT_EQ(once.calls, 1);
    EXPECT_FALSE(once.wrapper.is_active());
    EXPECT_FALSE(again.wrapper.is_active());
    pump();
    EXPECT_EQ(again.calls, 3);

    worker never;
    never.wrapper.start_timeout(INT_MIN, false);
    EXPECT_EQ(never.wrapper.period, INT_MAX);
}

TEST(fx_idle_wrapper, AnExceptionEndsTheRepetitionAndNoWorkDoesNot) {
    worker w;
    w.throw_at = 1;
    w.wrapper.start();
    app().removeChore(&w.wrapper, fx_idle_wrapper::ID_CHORE); // as the toolkit does before a call
    EXPECT_THROW(w.wrapper.onChore(nullptr, 0, nullptr), int);
    EXPECT_FALSE(w.has_chore());
    w.wrapper.stop();
    fx_idle_wrapper idle;
    idle.start();
    pump();
    EXPECT_TRUE(idle.is_active() && app().hasChore(&idle, fx_idle_wrapper::ID_CHORE));
}

TEST(fx_idle_wrapper, ItTakesItsChoreAndTimerAlong) {
    auto chore = std::make_unique<worker>(), timer = std::make_unique<worker>();
    chore->wrapper.start();
    timer->wrapper.start_timeout(1, false);
    fx_idle_wrapper* const dead[] = {&chore->wrapper, &timer->wrapper};
    EXPECT_TRUE(chore->has_chore() && timer->has_timeout());
    chore.reset();
    timer.reset();
    EXPECT_FALSE(app().hasChore(dead[0], fx_idle_wrapper::ID_CHORE));
    EXPECT_FALSE(app().hasTimeout(dead[1], fx_idle_wrapper::ID_TIMEOUT));
}

} // namespace
