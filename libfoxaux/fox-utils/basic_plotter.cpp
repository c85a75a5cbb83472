// SPDX-License-Identifier: MIT
// A canvas with world coordinates, a frame of axes and every way to change the view.
#include "libfoxaux/fox-utils/basic_plotter.h"

#include "libfoxaux/fox-utils/fox_axis.h"

#include <fxkeys.h>

#include <algorithm>

namespace {

constexpr double closer = 0.6666666666666666; // one step of zooming in
constexpr double wider = 1.5;                 // one step of zooming out

constexpr int tick_length = 5;
constexpr int axis_margin = 5;

// The width over the larger end. Sixteen neighbouring doubles fit into the least view: a pan by a
// tenth of it still moves it.
constexpr double least_width = 0x1p-48;
// Beyond these the scale between world and screen would overflow.
constexpr double least_extent = 1e-290;
constexpr double farthest_end = 1e299;

bool can_show(double from, double to) {
    const double reach = std::max(std::fabs(from), std::fabs(to));
    return reach <= farthest_end && to - from >= std::max(least_extent, reach * least_width);
}

} // namespace

// clang-format off
FXDEFMAP(basic_plotter) basic_plotter_map[] = {
    FXMAPFUNC(SEL_PAINT,              0, basic_plotter::onPaint),
    FXMAPFUNC(SEL_ENTER,              0, basic_plotter::onEnter),
    FXMAPFUNC(SEL_LEFTBUTTONPRESS,    0, basic_plotter::onLeftBtnPress),
    FXMAPFUNC(SEL_LEFTBUTTONRELEASE,  0, basic_plotter::onLeftBtnRelease),
    FXMAPFUNC(SEL_RIGHTBUTTONPRESS,   0, basic_plotter::onRightBtnPress),
    FXMAPFUNC(SEL_RIGHTBUTTONRELEASE, 0, basic_plotter::onRightBtnRelease),
    FXMAPFUNC(SEL_MOTION,             0, basic_plotter::onMotion),
};
// clang-format on
FXIMPLEMENT(basic_plotter, FBufferedWindow, basic_plotter_map, ARRAYNUMBER(basic_plotter_map))

basic_plotter::basic_plotter() : color_manager(nullptr) {}

basic_plotter::basic_plotter(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h)
    : FBufferedWindow(parent, opts, x, y, w, h),
      color_manager(this),
      normal_cursor(getDefaultCursor()),
      zoom_cursor(getApp()->getDefaultCursor(DEF_CROSSHAIR_CURSOR)) {}

// Marks are drawn by XOR, and painting a part of the window would erase a part of them: while there
// are any, the whole window is painted and they are drawn again.
long basic_plotter::onPaint(FXObject* sender, FXSelector selector, void* ptr) {
    if (!has_marks() && mode != position_shown)
        return FBufferedWindow::onPaint(sender, selector, ptr);
    FBufferedWindow::onPaint(sender, selector, nullptr);
    restore_marks();
    return 1;
}

long basic_plotter::onEnter(FXObject*, FXSelector, void*) {
    setFocus();
    return 0;
}

long basic_plotter::onLeftBtnPress(FXObject*, FXSelector, void* ptr) {
    take_focus();
    auto* event = static_cast<FXEvent*>(ptr);
    end_missed_release(event->state & ~LEFTBUTTONMASK);
    left_press(event);
    return 0;
}

long basic_plotter::onLeftBtnRelease(FXObject*, FXSelector, void* ptr) {
    left_release(static_cast<FXEvent*>(ptr));
    return 0;
}

long basic_plotter::onRightBtnPress(FXObject*, FXSelector, void* ptr) {
    take_focus();
    auto* event = static_cast<FXEvent*>(ptr);
    end_missed_release(event->state & ~RIGHTBUTTONMASK);
    if (mode != idle) return 0;
    bar_y = event->win_y <= getHeight() / 2 ? getHeight() - 3 * text_size() : 0;
    draw_position_bar(event);
    mode = position_shown;
    return 0;
}

long basic_plotter::onRightBtnRelease(FXObject*, FXSelector, void*) {
    if (mode != position_shown) return 0;
    FXWindow::update();
    mode = idle;
    return 0;
}

long basic_plotter::onMotion(FXObject*, FXSelector, void* ptr) {
    auto* event = static_cast<FXEvent*>(ptr);
    end_missed_release(event->state);
    mouse_motion(event);
    return 0;
}

// A dialog that a key opens while a button is held gets the release in our place. `buttons` are
// those that were held when the event came; at a press without its own, of which an earlier hold
// must have ended.
void basic_plotter::end_missed_release(FXuint buttons) {
    FXuint wanted = 0;
    if (mode == position_shown) wanted = RIGHTBUTTONMASK;
    if (is_dragging()) wanted = LEFTBUTTONMASK;
    if (wanted && !(buttons & wanted)) cancel_mode();
}

void basic_plotter::render() {
    if (!image || !image->id()) return;
    FXDCWindow dc(image);
    clear_image(dc);
}

void basic_plotter::clear_image(FXDC& dc) const {
    dc.setForeground(background);
    dc.fillRectangle(0, 0, image->getWidth(), image->getHeight());
}

// clang-format off
long basic_plotter::on_key(int key) {
    switch (key) {
    case '+': case KEY_KP_Add:         arm_zoom(); return 0;
    case KEY_Escape:                   cancel_mode(); return 0;
    case '*': case KEY_KP_Multiply:    zoom_view(closer, closer); return 0;
    case '-': case KEY_KP_Subtract:    zoom_out(false); return 0;
    case '/': case KEY_KP_Divide:      zoom_out(true); return 0;
    case 'x':                          zoom_view(closer, 1); return 0;
    case 'X':                          zoom_view(wider, 1); return 0;
    case 'y':                          zoom_view(1, closer); return 0;
    case 'Y':                          zoom_view(1, wider); return 0;
    case 'p': case 'P':                position_dialog(); return 0;
    case 'g': case 'G':                snap_view(); return 0;
    case 'i': case 'I':                isometric_view(); return 0;
    case 'd': case 'D':                redraw(); return 0;
    case 'c':                          foreground_dialog(); return 0;
    case 'C':                          colors_dialog(); return 0;
    // Or the toolkit would move the focus too.
    case KEY_Left:  case KEY_KP_Left:  pan_view(-1, 0); return 1;
    case KEY_Right: case KEY_KP_Right: pan_view(1, 0); return 1;
    case KEY_Up:    case KEY_KP_Up:    pan_view(0, 1); return 1;
    case KEY_Down:  case KEY_KP_Down:  pan_view(0, -1); return 1;
    default:                           return FBufferedWindow::on_key(key);
    }
}
// clang-format on

void basic_plotter::colors_changed() {
    redraw();
}

void basic_plotter::redraw() {
    render();
    FXWindow::update();
}

void basic_plotter::cancel_mode() {
    setDefaultCursor(normal_cursor);
    if (mode == idle) return;
    mode = idle;
    FXWindow::update(); // a paint takes marks and bar off the window
}

void basic_plotter::zoom_full() {
    w2s->world.zoom(wider, wider);
}

void basic_plotter::arm_zoom() {
    if (mode != idle) return;
    mode = zoom_armed;
    setDefaultCursor(zoom_cursor);
}

void basic_plotter::apply_zoom() {
    if (!drag_end) return;
    const world_point from = screen_to_world(anchor_x, anchor_y);
    const world_point to = screen_to_world(drag_end->x, drag_end->y);
    set_view({from.x, from.y, to.x, to.y});
}

void basic_plotter::zoom_out(bool entirely) {
    const TRect before = w2s->world;
    if (entirely) {
        zoom_full();
    } else {
        w2s->world.zoom(wider, wider);
    }
    show_view(before);
}

// Takes a new world rectangle, its corners in any order; gives what show_view() gives.
bool basic_plotter::set_view(const TRect& wanted) {
    const TRect before = w2s->world;
    w2s->world = wanted;
    w2s->world.purify();
    return show_view(before);
}

// Ends every change of view; the map holds the new world rectangle. If this, once limited, cannot
// be shown, the one from before the change comes back, its picture stays, and the answer is false.
bool basic_plotter::show_view(const TRect& before) {
    constrain_view();
    TRect& view = w2s->world;
    if (!can_show(view.x1, view.x2) || !can_show(view.y1, view.y2)) {
        view = before;
        return false;
    }
    redraw();
    return true;
}

void basic_plotter::zoom_view(double fx, double fy) {
    TRect view = w2s->world;
    view.zoom(fx, fy);
    set_view(view);
}

void basic_plotter::pan_view(double tenths_x, double tenths_y) {
    TRect view = w2s->world;
    view.shift(view.width() / 10 * tenths_x, view.height() / 10 * tenths_y);
    set_view(view);
}

void basic_plotter::snap_view() {
    TRect view = w2s->world;
    TMapW2S::snap_to_grid(view.x1, view.x2);
    TMapW2S::snap_to_grid(view.y1, view.y2);
    set_view(view);
}

void basic_plotter::isometric_view() {
    TMapW2S widened = *w2s; // a copy: if the view is dropped, the picture keeps its scale
    widened.makeIso();
    set_view(widened.world);
}

void basic_plotter::left_press(FXEvent* event) {
    if (mode == zoom_armed) begin_drag(event, band_dragged);
}

void basic_plotter::left_release(FXEvent*) {
    if (mode != band_dragged) return;
    const std::optional<window_point> end = end_drag();
    // Without motion there is no band, and a mere line counts as none.
    if (end && end->x != anchor_x && end->y != anchor_y) apply_zoom();
}

void basic_plotter::mouse_motion(FXEvent* event) {
    if (mode == position_shown) draw_position_bar(event);
    if (mode != band_dragged) return;
    // During a drag motions come from beyond the window's edges, too; the band ends there.
    drag_to({std::clamp(event->win_x, 0, std::max(getWidth() - 1, 0)),
             std::clamp(event->win_y, 0, std::max(getHeight() - 1, 0))});
}

void basic_plotter::begin_drag(const FXEvent* event, int dragging) {
    anchor_x = event->win_x;
    anchor_y = event->win_y;
    drag_end.reset();
    mode = dragging;
}

void basic_plotter::drag_to(const window_point& end) {
    flip_marks();
    drag_end = end;
    flip_marks();
}

std::optional<window_point> basic_plotter::end_drag() {
    flip_marks();
    mode = idle;
    setDefaultCursor(normal_cursor);
    return drag_end;
}

bool basic_plotter::is_dragging() const {
    return mode == band_dragged;
}

bool basic_plotter::has_marks() const {
    return is_dragging() && drag_end;
}

// Draws the marks of the present drag on the window, or erases them: a second time they vanish.
void basic_plotter::flip_marks() {
    if (!has_marks() || !id()) return;
    FXDCWindow dc(this);
    dc.setForeground(band_color);
    dc.setFunction(BLT_SRC_XOR_DST);
    dc.setLineWidth(mark_width);
    draw_marks(dc, *drag_end);
}

void basic_plotter::restore_marks() {
    if (mode == position_shown) draw_bar();
    flip_marks();
}

void basic_plotter::draw_marks(FXDC& dc, const window_point& end) const {
    dc.drawLine(anchor_x, anchor_y, end.x, anchor_y);
    dc.drawLine(end.x, anchor_y, end.x, end.y);
    dc.drawLine(end.x, end.y, anchor_x, end.y);
    dc.drawLine(anchor_x, end.y, anchor_x, anchor_y);
}

void basic_plotter::draw_frame(const wchar_t* xtitle, const wchar_t* ytitle, bool iso) {
    if (!image || !image->id()) return;
    FXDCWindow dc(image);
    clear_image(dc);

    xaxis1b x;
    yaxis1b y;
    x.tick_len = y.tick_len = tick_length;
    x.font_size = y.font_size = text_size();
    w2s->set_screen(y.thickness() + axis_margin, 0, image->getWidth() - 1,
                    image->getHeight() - (x.thickness() + axis_margin), iso);
    w2s->a_model_4(x, y);
    x.title = xtitle;
    y.title = ytitle;

    const irect& area = w2s->screen;
    x.pos = area.y2;
    x.from = area.x1;
    x.to = area.x2;
    y.pos = area.x1;
    y.from = area.y1;
    y.to = area.y2;
    dc.setForeground(axis_color);
    x.dc = y.dc = &dc;
    x.draw();
    y.draw();
}

void basic_plotter::limit_rect(TRect& rect, const TRect& limit) {
    // Sets both ends: far from 0 the sum of one end and the limit's width would be rounded.
    if (rect.width() > limit.width()) {
        rect.x1 = limit.x1;
        rect.x2 = limit.x2;
    }
    if (rect.height() > limit.height()) {
        rect.y1 = limit.y1;
        rect.y2 = limit.y2;
    }
    rect.shift(std::max(0.0, limit.x1 - rect.x1), std::max(0.0, limit.y1 - rect.y1));
    rect.shift(std::min(0.0, limit.x2 - rect.x2), std::min(0.0, limit.y2 - rect.y2));
}
