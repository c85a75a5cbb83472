// SPDX-License-Identifier: MIT
// A plot of any iterated two-dimensional map: orbits, undo, loop, colour cycle, circle capture.
#include "libfoxaux/fox-utils/FPoincareWin.h"

#include "libfoxaux/fox_compat.h"
#include "mathkit/TError.h"
#include "mathkit/getMicroTime.h"
#include "mathkit/html_colors.h"
#include "mathkit/stderr_failed.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr std::int64_t sync_distance = 1000000; // microseconds between refreshes in the loop
constexpr std::int64_t shortest_lead = 500;     // microseconds of drawing before the next wait
constexpr std::int64_t longest_lead = 20000;
constexpr FXint full_circle = 360 * 64; // in the units of FXDC::drawArc
constexpr int colors_line = 372;        // that a report of a wrong colour name tells
constexpr int cross_reach = 5;          // pixels from the anchor to the ends of the cross

constexpr const char* cycle_names[] = {
    "black",    "white",       "gray",          "red",       "green",     "blue",
    "yellow",   "cyan",        "magenta",       "lightcyan", "indigo",    "lightgreen",
    "darkblue", "gold",        "darkred",       "lightblue", "darkgreen", "deeppink",
    "olive",    "springgreen", "darkslategray", "lightgray", "steelblue", "aquamarine",
    "teal",     "wheat",       "brown",
};

} // namespace

FXIMPLEMENT(FPoincareWin, basic_plotter, nullptr, 0)

FPoincareWin::FPoincareWin(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h)
    : basic_plotter(parent, opts, x, y, w, h) {
    loop_idle.func = functor0<void>(this, &FPoincareWin::loop_body);
    ensure_backup();
    init_cycle_color();
}

void FPoincareWin::render() {
    if (!image || !image->id()) return;
    draw_axes();
    backup_eq_image();
}

// clang-format off
long FPoincareWin::on_key(int key) {
    switch (key) {
    case ' ':           iterate(); FXWindow::update(); return 0;
    case 'l': case 'L': toggle_loop(); return 0;
    case 'u': case 'U': undo(); return 0;
    case 'z': case 'Z': next_color(); return 0;
    default:            return basic_plotter::on_key(key);
    }
}
// clang-format on

void FPoincareWin::toggle_loop() {
    if (loop_idle.is_active()) {
        stop_loop();
    } else {
        start_loop();
    }
}

void FPoincareWin::next_color() {
    if (cycle_index >= cycle_colors.size()) cycle_index = 0;
    foreground = cycle_colors[cycle_index++];
    on_change(); // and not colors_changed(): the picture stays
}

void FPoincareWin::arm_zoom() {
    stop_loop();
    basic_plotter::arm_zoom();
}

void FPoincareWin::arm_fixed_point() {
    stop_loop();
    if (mode != idle) return;
    mode = circle_armed;
    setDefaultCursor(zoom_cursor);
}

void FPoincareWin::left_press(FXEvent* event) {
    basic_plotter::left_press(event);
    if (mode == idle) {
        const world_point at = screen_to_world(event->win_x, event->win_y);
        start_at(at.x, at.y);
    } else if (mode == circle_armed) {
        begin_drag(event, circle_dragged);
    }
}

void FPoincareWin::mouse_motion(FXEvent* event) {
    basic_plotter::mouse_motion(event);
    // Also outside the window: only the distance counts.
    if (mode == circle_dragged) drag_to({event->win_x, event->win_y});
}

void FPoincareWin::left_release(FXEvent* event) {
    basic_plotter::left_release(event);
    if (mode != circle_dragged) return;
    const std::optional<window_point> end = end_drag();
    stop_loop(); // the search wants the map for itself
    const double radius = end ? distance_from_anchor(*end) : 0;
    if (radius == 0) return; // there is no circle

    const world_point center = screen_to_world(anchor_x, anchor_y);
    double rx = radius, ry = radius;
    w2s->ratio_stow(rx, ry);
    find_fixed_point(center.x, center.y, rx, ry);
}

bool FPoincareWin::is_dragging() const {
    return mode == circle_dragged || basic_plotter::is_dragging();
}

void FPoincareWin::draw_marks(FXDC& dc, const window_point& end) const {
    if (mode == circle_dragged) {
        draw_circle(dc, distance_from_anchor(end));
        draw_cross(dc);
    } else {
        basic_plotter::draw_marks(dc, end);
    }
}

double FPoincareWin::distance_from_anchor(const window_point& end) const {
    const double dx = anchor_x - end.x, dy = anchor_y - end.y;
    return std::sqrt(dx * dx + dy * dy);
}

void FPoincareWin::draw_circle(FXDC& dc, double radius) const {
    const int r = static_cast<int>(radius);
    if (!fox_compat::is_drawable_coordinate(2 * r)) return;
    dc.drawArc(anchor_x - r, anchor_y - r, 2 * r, 2 * r, 0, full_circle);
}

void FPoincareWin::draw_cross(FXDC& dc) const {
    // One pixel further at the far end: the display leaves out the last pixel of such a line.
    dc.setLineWidth(1);
    dc.drawLine(anchor_x - cross_reach, anchor_y - cross_reach, anchor_x + cross_reach + 1,
                anchor_y + cross_reach + 1);
    dc.drawLine(anchor_x - cross_reach, anchor_y + cross_reach, anchor_x + cross_reach + 1,
                anchor_y - cross_reach - 1);
    dc.setLineWidth(mark_width);
}

bool FPoincareWin::set_start(double, double) {
    return false;
}

void FPoincareWin::iterate() {
    run_orbit(iterations);
}

void FPoincareWin::find_fixed_point(double, double, double, double) {}

void FPoincareWin::undo() {
    image_eq_backup();
    FXWindow::update();
}

void FPoincareWin::start_loop() {
    if (loop_idle.is_active()) return;
    loop_changed(1);
    loop_idle.start();
    last_sync = last_wait = getMicroTime();
    lead = shortest_lead;
}

void FPoincareWin::stop_loop() {
    if (!loop_idle.is_active()) return;
    loop_changed(0);
    loop_idle.stop();
    FXWindow::update();
    sync_companions();
}

// Runs the map until an event waits; the event loop then comes back here. A map that fails stops
// the loop from inside iterate(), and then no other iterate() may follow.
void FPoincareWin::loop_body() {
    do {
        iterate();
        if (!loop_idle.is_active()) return;
        const std::int64_t now = getMicroTime();
        if (now - last_sync > sync_distance) {
            sync_companions();
            show_image();
            restore_marks();
            getApp()->flush(false);
            last_sync = now;
        }
        if (now - last_wait > lead) wait_for_display(now);
    } while (!getApp()->peekEvent());
}

// The loop draws faster than a slow display or network takes it in, and the answer to a key has to
// wait until all that was drawn before it has arrived. So the slower the display, the sooner the
// loop waits for it again.
void FPoincareWin::wait_for_display(std::int64_t now) {
    getApp()->flush(true);
    last_wait = getMicroTime();
    const bool slow = last_wait - now > longest_lead; // shorter waits are the machine being busy
    lead = std::clamp(slow ? lead / 2 : lead * 2, shortest_lead, longest_lead);
}

namespace {

// Draws points together, which takes a quarter of the time of drawing them one by one. Its
// destructor draws those that are left, even after a map has failed.
class point_batch {
public:
    explicit point_batch(FXDC& dc) : dc(dc) {}
    point_batch(const point_batch&) = delete;
    point_batch& operator=(const point_batch&) = delete;
    ~point_batch() { draw(); }

    void add(int x, int y) {
        if (count == std::size(points)) draw();
        points[count++] = FXPoint(static_cast<FXshort>(x), static_cast<FXshort>(y));
    }

private:
    void draw() {
        if (count > 0) dc.drawPoints(points, count);
        count = 0;
    }

    FXDC& dc;
    FXPoint points[1000]; // the steps of one unit of the loop
    FXuint count = 0;
};

} // namespace

void FPoincareWin::run_orbit(int n) {
    if (!image->id()) return;
    FXDCWindow dc(image);
    dc.setForeground(foreground);
    point_batch points(dc);
    for (int i = 0; i < n; ++i) {
        step();
        w2s->to_screen(current_x, current_y);
        int px, py;
        if (to_pixel(current_x, current_y, px, py)) points.add(px, py);
    }
}

void FPoincareWin::plot_point(double x, double y) {
    w2s->to_screen(x, y);
    int px, py;
    if (!to_pixel(x, y, px, py) || !image->id() || !id()) return;
    FXDCWindow dc(image);
    dc.setForeground(foreground);
    dc.drawPoint(px, py);
    dc.end();
    dc.begin(this);
    dc.setForeground(foreground); // begin() has made it black
    dc.drawPoint(px, py);
}

void FPoincareWin::start_at(double x, double y) {
    if (!set_start(x, y)) return;
    backup_eq_image();
    plot_point(current_x, current_y);
    getApp()->flush(false);
}

void FPoincareWin::init_cycle_color() {
    cycle_colors.clear();
    try {
        for (const char* name : cycle_names) {
            const std::uint32_t rgb = html_colors::name2color(name);
            cycle_colors.push_back(FXRGB(rgb >> 16 & 0xff, rgb >> 8 & 0xff, rgb & 0xff));
        }
    } catch (const TError& error) {
        stderr_fatal_error(error.text(), "libfoxaux/fox-utils/FPoincareWin", colors_line,
                           "void FPoincareWin::init_cycle_color()");
    }
    cycle_index = 0;
}
