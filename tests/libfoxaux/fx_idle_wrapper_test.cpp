// SPDX-License-Identifier: MIT
// Tests of the repeated callback: its timer and its end. The chore: FPoincareWin_test.cpp.
#include "libfoxaux/fox-utils/fx_idle_wrapper.h"

#include "tests/libfoxaux/application.h"

#include <climits>
#include <memory>

using namespace window_test;

namespace {

// Counts its calls and stops the wrapper at one of them.
struct worker {
    worker() { wrapper.func = functor0<void>(this, &worker::work); }
    void work() {
        if (++calls == stop_at) wrapper.stop();
    }
    bool has_timeout() { return app().hasTimeout(&wrapper, fx_idle_wrapper::ID_TIMEOUT); }

    fx_idle_wrapper wrapper;
    int calls = 0, stop_at = -1;
};

TEST(IdleWrapper, ATimerFiresOnceOrAgainAndAgain) {
    worker once, again;
    once.wrapper.start_timeout(-3, true);
    once.wrapper.start(); // the first start decides
    EXPECT_EQ(once.wrapper.period, -1);
    again.stop_at = 3;
    again.wrapper.start_timeout(-2, false);
    EXPECT_EQ(again.wrapper.period, 2);
    EXPECT_TRUE(pump_until([&] { return again.calls == 3; }));
    pump();
    EXPECT_TRUE(once.calls == 1 && again.calls == 3);
    EXPECT_FALSE(once.wrapper.is_active() || again.wrapper.is_active());

    again.wrapper.start_timeout(INT_MIN, false);
    EXPECT_EQ(again.wrapper.period, INT_MAX);
}

TEST(IdleWrapper, ItTakesItsTimerAlong) {
    auto timer = std::make_unique<worker>();
    timer->wrapper.start_timeout(1, false);
    fx_idle_wrapper* const dead = &timer->wrapper;
    EXPECT_TRUE(timer->has_timeout());
    timer.reset();
    EXPECT_FALSE(app().hasTimeout(dead, fx_idle_wrapper::ID_TIMEOUT));
}

} // namespace
