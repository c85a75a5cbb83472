// SPDX-License-Identifier: MIT
// Tests of the Poincare canvas: orbits, loop, colour cycle, circle capture. The journeys see starts
// and undo.
#include "libfoxaux/fox-utils/FPoincareWin.h"

#include "mathkit/TError.h"
#include "mathkit/getMicroTime.h"
#include "tests/libfoxaux/events.h"
#include "tests/libfoxaux/pixels.h"

#include <cmath>
#include <limits>
#include <map>

using namespace window_test;

namespace {

// A map that visits given points in turn, in the unit square, one unit 100 pixels wide.
class toy_map : public FPoincareWin {
public:
    toy_map(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h)
        : FPoincareWin(parent, opts, x, y, w, h) {
        w2s->set_world(0, 0, 1, 1);
        on_change = functor0<void>(this, &toy_map::on_color);
    }

    bool set_start(double x, double y) override {
        ++starts;
        if (!(x > 0 && x < 1 && y > 0 && y < 1)) return false;
        current_x = x;
        current_y = y;
        return true;
    }
    void step() override {
        if (steps == fails_at) throw TError("no next point");
        const auto& point = orbit[steps++ % orbit.size()];
        current_x = point.first;
        current_y = point.second;
    }
    void draw_axes() override {
        FXDCWindow dc(image);
        dc.setForeground(white);
        dc.fillRectangle(0, 0, image->getWidth(), image->getHeight());
        w2s->set_screen(0, 0, image->getWidth() - 1, image->getHeight() - 1, false);
    }
    void iterate() override {
        try {
            FPoincareWin::iterate();
        } catch (const TError&) {
            stop_loop();
            ++failures;
            pump(); // as the error box would: nothing waits any more when it returns
        }
    }
    void sync_companions() override { ++syncs; }
    void find_fixed_point(double x, double y, double rx, double ry) override {
        found.push_back({x, y, rx, ry});
    }

    std::vector<std::pair<double, double>> orbit{{0.5, 0.5}};
    std::size_t steps = 0, fails_at = std::numeric_limits<std::size_t>::max();
    int starts = 0, syncs = 0, colors = 0, failures = 0;
    std::vector<std::vector<double>> found;

private:
    void on_color() { ++colors; }
};

// 101 pixels a side: the world point (0.3, 0.4) is the pixel (30, 60).
struct toy : shown<toy_map> {
    toy() : shown(101, 101) {}
};

TEST(FPoincareWin, AnOrbitDrawsWhatLiesInThePlotAndNothingElse) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    toy window;
    // Among them some where 16 bits or 32 bits wrap back into the picture.
    window->orbit = {{0.3, 0.4},     {nan, 0.5},         {0.5, nan},  {inf, 0.5},
                     {0.5, -inf},    {1e300, 0.5},       {-0.5, 0.5}, {655.41, 0.5},
                     {0.5, -655.35}, {42949672.99, 0.5}, {0, 0},      {1, 1},
                     {1.0049, 0.25}, {1.0051, 0.25 + 1}};
    window->iterations = static_cast<int>(window->orbit.size());
    type_keys(window.canvas, " ");
    EXPECT_EQ(window->steps, window->orbit.size());
    const pixels picture(window->image);
    for (const auto& [x, y] : {std::pair{30, 60}, {0, 100}, {100, 0}, {100, 75}})
        EXPECT_EQ(picture.at(x, y), black);
    EXPECT_EQ(picture.count(black), 4);
    pump();
    EXPECT_EQ(screen_of(window.canvas).count(black), 4);
}

TEST(FPoincareWin, UndoBringsNothingBackThatWasWiped) {
    toy window;
    click(window.canvas, 40, 40);
    click(window.canvas, 50, 50); // undo would leave the point before this start
    type_keys(window.canvas, "du");
    EXPECT_EQ(pixels(window->image).count(black), 0);
}

TEST(FPoincareWin, TheColoursCycleAndThePictureStays) {
    toy window;
    click(window.canvas, 40, 40);
    // black, white, gray, red (the lowest byte), green; ..., brown, the last; black again
    const std::map<int, FXColor> known{{1, black},      {3, 0xff808080},  {4, red},
                                       {5, 0xff008000}, {27, 0xff2a2aa5}, {28, black}};
    for (int press = 1; press <= 28; ++press) {
        window->foreground = 0xff123456; // chosen elsewhere: the cycle does not follow
        type_keys(window.canvas, press % 2 ? "z" : "Z");
        if (known.contains(press)) {
            EXPECT_EQ(window->foreground, known.at(press)) << press;
        }
    }
    EXPECT_EQ(window->colors, 28);
    EXPECT_EQ(pixels(window->image).at(40, 40), black);
}

TEST(FPoincareWin, AFailingMapEndsTheLoopAtOnceAndItsPointsStay) {
    toy window;
    window->orbit.clear();
    for (int i = 0; i < 5000; ++i)
        window->orbit.emplace_back(i % 100 / 100.0, i / 100 / 100.0);
    window->iterations = 3000; // more than are drawn together
    window->fails_at = 4321;
    window->start_loop();
    EXPECT_TRUE(pump_until([&] { return !window->loop_idle.is_active(); }));
    pump();
    EXPECT_TRUE(window->failures == 1 && window->steps == 4321);
    EXPECT_EQ(pixels(window->image).count(black), 4321);
}

TEST(FPoincareWin, TheLoopBringsTheScreenUpToDateAboutOnceASecond) {
    toy window;
    window->iterations = 1;
    const std::int64_t before = getMicroTime();
    window->start_loop();
    EXPECT_GE(window->last_sync, before);
    pump(3);
    EXPECT_TRUE(window->syncs == 0 || getMicroTime() - before > 1000000) << window->syncs;
    send_mouse(window.canvas, SEL_RIGHTBUTTONPRESS, 50, 10);
    const int bar = screen_of(window.canvas).count(black);
    EXPECT_GT(bar, 1000);
    window->last_sync = getMicroTime() - 1000001;
    EXPECT_TRUE(pump_until([&] { return window->syncs > 0; }));
    EXPECT_GT(window->last_sync, before);
    EXPECT_EQ(screen_of(window.canvas).count(black), bar + 1) << "the refresh keeps the bar";
    send_mouse(window.canvas, SEL_RIGHTBUTTONRELEASE, 50, 10);
    pump();
    EXPECT_EQ(screen_of(window.canvas).count(black), 1);
    window->orbit = {{0.6, 0.6}};
    const std::size_t steps = window->steps;
    EXPECT_TRUE(pump_until([&] { return window->steps > steps; }));
    const int syncs = window->syncs;
    window->last_sync = getMicroTime();
    type_keys(window.canvas, "L"); // the end of the loop is a refresh, too
    EXPECT_EQ(window->syncs, syncs + 1);
    pump();
    EXPECT_EQ(screen_of(window.canvas).count(black), 2);
}

TEST(FPoincareWin, ACircleIsCapturedInWorldUnits) {
    toy window;
    window->w2s->world.set(0, 0, 2, 1); // one pixel: 0.02 x 0.01
    window->redraw();
    const pixels before(window->image);
    const struct {
        int ax, ay, ex, ey;
        double r; // pixels
    } cases[] = {
        {40, 60, 43, 56, 5},     {40, 60, 41, 61, std::sqrt(2.0)}, // not rounded
        {10, 60, 10, 160, 100}, // beyond the edge, too, the circle follows the pointer
        {10, 60, -50, -20, 100}, {10, 60, -1, 60, 11},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.ex);
        window->found.clear();
        window->arm_fixed_point();
        EXPECT_EQ(window->getDefaultCursor(), window->zoom_cursor);
        send_mouse(window.canvas, SEL_LEFTBUTTONPRESS, c.ax, c.ay);
        send_mouse(window.canvas, SEL_MOTION, 70, 70);
        send_mouse(window.canvas, SEL_MOTION, c.ex, c.ey);
        EXPECT_FALSE(screen_of(window.canvas) == before);
        send_mouse(window.canvas, SEL_LEFTBUTTONRELEASE, c.ex, c.ey);
        EXPECT_EQ(window->mode, 0);
        EXPECT_EQ(window->getDefaultCursor(), window->normal_cursor);
        EXPECT_TRUE(screen_of(window.canvas) == before);
        ASSERT_EQ(window->found.size(), 1u);
        const std::vector<double> wanted{c.ax * 0.02, 1 - c.ay * 0.01, c.r * 0.02, c.r * 0.01};
        for (int i = 0; i < 4; ++i)
            EXPECT_NEAR(window->found[0][i], wanted[i], 1e-12);
    }
    EXPECT_EQ(window->starts, 0);
    EXPECT_TRUE(pixels(window->image) == before);
}

TEST(FPoincareWin, ACaptureWithoutMotionOrCancelledSearchesNothing) {
    toy window;
    window->drag_end = {70, 77}; // of an earlier drag
    for (const bool there_and_back : {false, true}) {
        window->arm_fixed_point();
        send_mouse(window.canvas, SEL_LEFTBUTTONPRESS, 50, 50);
        for (const int x : {70, 50})
            if (there_and_back) send_mouse(window.canvas, SEL_MOTION, x, 50);
        send_mouse(window.canvas, SEL_LEFTBUTTONRELEASE, 50, 50);
        EXPECT_TRUE(window->mode == 0 && window->getDefaultCursor() == window->normal_cursor);
        pump();
        EXPECT_EQ(screen_of(window.canvas).count(white), 101 * 101);
    }

    window->arm_fixed_point();
    send_mouse(window.canvas, SEL_LEFTBUTTONPRESS, 50, 50);
    send_mouse(window.canvas, SEL_MOTION, 70, 50);
    buttons_down = 0; // a dialog has taken the release
    send_mouse(window.canvas, SEL_MOTION, 60, 50);
    EXPECT_EQ(window->mode, 0);
    pump();

    window->arm_fixed_point();
    send_mouse(window.canvas, SEL_LEFTBUTTONPRESS, 50, 50);
    send_mouse(window.canvas, SEL_MOTION, 70, 50);
    const pixels during = screen_of(window.canvas); // a cross and a circle, yellow by XOR on white
    for (const auto& [x, y] : {std::pair{45, 45}, {55, 55}, {45, 55}, {55, 45}, {70, 50}, {50, 30}})
        EXPECT_EQ(during.at(x, y), 0xffff0000u) << x << ' ' << y;
    EXPECT_EQ(during.box_of(0xffff0000u), (ink_box{29, 29, 71, 71})); // lines of three pixels
    EXPECT_TRUE(during.at(44, 44) == white && during.at(60, 50) == white);
    send_key(window.canvas, KEY_Escape);
    pump();
    EXPECT_EQ(screen_of(window.canvas).count(0xffff0000u), 0);
    send_mouse(window.canvas, SEL_LEFTBUTTONRELEASE, 60, 60);
    EXPECT_EQ(window->mode, 0);
    EXPECT_TRUE(window->found.empty() && window->starts == 0);
}

TEST(FPoincareWin, MarksOutliveWhatIsPaintedUnderThem) {
    toy window;
    window->orbit = {{0, 0}}; // a corner, away from the marks
    for (const bool circle : {true, false}) {
        circle ? window->arm_fixed_point() : window->arm_zoom();
        send_mouse(window.canvas, SEL_LEFTBUTTONPRESS, 50, 50);
        send_mouse(window.canvas, SEL_MOTION, 60, 65);
        const int marked = screen_of(window.canvas).count(0xffff0000u);
        EXPECT_GT(marked, 20);
        window->update(45, 45, 10, 10); // half of them
        pump();
        EXPECT_EQ(screen_of(window.canvas).count(0xffff0000u), marked);
        window->start_loop();
        const int syncs = window->syncs;
        window->last_sync = getMicroTime() - 1000001;
        EXPECT_TRUE(pump_until([&] { return window->syncs > syncs; }));
        EXPECT_EQ(screen_of(window.canvas).count(0xffff0000u), marked);
        send_mouse(window.canvas, SEL_LEFTBUTTONRELEASE, 60, 65);
        EXPECT_EQ(screen_of(window.canvas).count(0xffff0000u), 0);
        EXPECT_EQ(window->loop_idle.is_active(), !circle) << "a search wants the map for itself";
        window->stop_loop();
    }
    EXPECT_EQ(window->found.size(), 1u);
}

} // namespace
