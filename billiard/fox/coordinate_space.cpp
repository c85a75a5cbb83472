// SPDX-License-Identifier: MIT
// The second window: the boundary curve in the plane and the particle's path inside it.
#include "billiard/fox/coordinate_space.h"

#include "billiard/fox/FMain.h"
#include "billiard/fox/poincare_billiard.h"
#include "billiard/radius-core/TBilliard.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// Coordinates travel to the display as 16 bits; beyond this they are clipped before they turn
// into integers, so that neither the conversion nor the wire can wrap them.
constexpr double pixel_limit = 16384;

// A request to the display holds some 65,000 points at most.
constexpr std::size_t points_per_request = 16000;

bool is_drawable(double x, double y) {
    return std::fabs(x) <= pixel_limit && std::fabs(y) <= pixel_limit; // false for a NaN
}

FXPoint to_pixel(double x, double y) {
    return {static_cast<FXshort>(std::rint(x)), static_cast<FXshort>(std::rint(y))};
}

bool is_finite(const TRect& rect) {
    return std::isfinite(rect.width()) && std::isfinite(rect.height()) && std::isfinite(rect.x1) &&
           std::isfinite(rect.y1);
}

// The box of those points of the table that can be shown: some curves' tables hold a NaN,
// infinities or numbers whose difference is infinite.
TRect finite_border(const TBilliard::circumference_class& table) {
    constexpr double largest = 1e150;
    TRect border(-1, -1, 1, 1);
    bool empty = true;
    for (int i = 0; i < table.size(); ++i) {
        double x, y;
        table.get(i, x, y);
        if (!(std::fabs(x) < largest && std::fabs(y) < largest)) continue;
        if (empty) border.set(x, y);
        empty = false;
        border.expand(x, y);
    }
    return border;
}

// Collects a polyline and draws it in as few requests as the display takes.
class polyline {
public:
    explicit polyline(FXDC& dc) : dc(dc) {}
    ~polyline() { flush(); }
    polyline(const polyline&) = delete;
    polyline& operator=(const polyline&) = delete;

    void add(FXPoint point) {
        points.push_back(point);
        if (points.size() < points_per_request) return;
        flush();
        points.push_back(point);
    }

    void flush() {
        if (points.size() > 1) dc.drawLines(points.data(), static_cast<FXuint>(points.size()));
        points.clear();
    }

private:
    FXDC& dc;
    std::vector<FXPoint> points;
};

} // namespace

FXIMPLEMENT(coordinate_space, FBufferedWindow, nullptr, 0)

coordinate_space::coordinate_space(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w,
                                   FXint h)
    : FBufferedWindow(parent, opts, x, y, w, h),
      line_color(0xFFFF7267),
      back_color(0xFFFFFFFF),
      boundary_color(0xFF000000),
      head_color(0xFF0000FF) {
    take_focus();
    picture_title = "Save Coordinate Space as Picture";
}

void coordinate_space::fit_view() {
    map->circumference.getborder(full_view);
    full_view.zoom(1.02, 1.02);
    if (!is_finite(full_view)) {
        full_view = finite_border(map->circumference);
        full_view.zoom(1.02, 1.02);
    }
    segment_state = 0;
    render();
}

void coordinate_space::render() {
    w2s.world = full_view;
    w2s.set_screen(0, 0, image->getWidth(), image->getHeight(), true);
    draw_boundary(true);
}

void coordinate_space::redraw_boundary() {
    draw_boundary(true);
    segment_state = 0;
    update();
}

void coordinate_space::begin_path() {
    end_highlight();
    segment_state = 0;
    add_bounce();
    update();
}

void coordinate_space::draw_boundary(bool clear) {
    if (!image->id()) return;

    FXDCWindow dc(image);
    if (clear) {
        dc.setForeground(back_color);
        dc.fillRectangle(0, 0, image->getWidth(), image->getHeight());
    }
    dc.setForeground(boundary_color);

    const auto& table = map->circumference;
    polyline curve(dc);
    double old_x = NAN, old_y = NAN;
    for (int i = 0; i < table.size(); ++i) {
        double x, y;
        table.get(i, x, y);
        w2s.to_screen(x, y);
        if (is_drawable(x, y) && (i == 0 || is_drawable(old_x, old_y))) {
            curve.add(to_pixel(x, y));
        } else {
            curve.flush();
            if (i > 0) draw_segment(dc, old_x, old_y, x, y);
            if (is_drawable(x, y)) curve.add(to_pixel(x, y));
        }
        old_x = x;
        old_y = y;
    }
}

void coordinate_space::add_bounce() {
    if (!image->id()) return; // no path begins where nothing can be drawn
    double x, y;
    map->getXY(x, y);

    if (segment_state == 0) {
        prev_x = x;
        prev_y = y;
        segment_state = 1;
        return;
    }
    FXDCWindow dc(image);
    if (segment_state == 2) {
        draw_head(dc, line_color);
        prev_x = last_x;
        prev_y = last_y;
    }
    last_x = x;
    last_y = y;
    segment_state = 2;
    draw_head(dc, head_color);
}

void coordinate_space::draw_head(FXDC& dc, FXColor color) const {
    double x1 = prev_x, y1 = prev_y, x2 = last_x, y2 = last_y;
    w2s.to_screen(x1, y1);
    w2s.to_screen(x2, y2);
    dc.setForeground(color);
    draw_segment(dc, x1, y1, x2, y2);
}

void coordinate_space::end_highlight() {
    if (segment_state != 2 || !image->id()) return;
    FXDCWindow dc(image);
    draw_head(dc, line_color);
}

// Draws one line between two points of the screen, as much of it as the image can show.
void coordinate_space::draw_segment(FXDC& dc, double x1, double y1, double x2, double y2) const {
    const bool whole = is_drawable(x1, y1) && is_drawable(x2, y2);
    if (!whole && !clip_to_image(x1, y1, x2, y2)) return;
    const FXPoint from = to_pixel(x1, y1);
    const FXPoint to = to_pixel(x2, y2);
    dc.drawLine(from.x, from.y, to.x, to.y);
}

// Cuts the line to the image (Liang and Barsky). Answers false where nothing of it is left, or
// where an end is no finite point, so that the line has no direction.
bool coordinate_space::clip_to_image(double& x1, double& y1, double& x2, double& y2) const {
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    if (!std::isfinite(dx) || !std::isfinite(dy)) return false;

    double enter = 0, leave = 1;
    const auto cut = [&](double start, double step, double limit) {
        const double low = -start, high = limit - start;
        if (step == 0) return low <= 0 && high >= 0;
        enter = std::max(enter, std::min(low / step, high / step));
        leave = std::min(leave, std::max(low / step, high / step));
        return enter <= leave;
    };
    if (!cut(x1, dx, image->getWidth()) || !cut(y1, dy, image->getHeight())) return false;

    x2 = x1 + leave * dx;
    y2 = y1 + leave * dy;
    x1 += enter * dx;
    y1 += enter * dy;
    return is_drawable(x1, y1) && is_drawable(x2, y2);
}

long coordinate_space::on_key(int key) {
    switch (key) {
    case ' ':
        main->poincare->iterate(); // which shows this canvas, too
        main->poincare->update();
        return 1;
    case 'b':
    case 'B':
        draw_boundary(false);
        break;
    case 'd':
    case 'D':
        draw_boundary(true);
        break;
    case 'l':
    case 'L':
        end_highlight();
        break;
    default:
        return FBufferedWindow::on_key(key);
    }
    update();
    return 1;
}

// clang-format off
FXDEFMAP(coordinate_space_win) coordinate_space_winMap[] = {
    FXMAPFUNC(SEL_CLOSE, 0, coordinate_space_win::onClose),
};
// clang-format on

FXIMPLEMENT(coordinate_space_win, companion_window, coordinate_space_winMap,
            ARRAYNUMBER(coordinate_space_winMap))

coordinate_space_win::coordinate_space_win(FXApp* app, FXint x, FXint y, FXint w, FXint h)
    : companion_window(app, "Billiard: Coordinate Space", x, y, w, h),
      canvas(new coordinate_space(this, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0)) {}

long coordinate_space_win::onClose(FXObject*, FXSelector, void*) {
    static_cast<FMain*>(main_base::instance())->show_billiard = false;
    hide();
    return 1;
}
