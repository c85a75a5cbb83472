// SPDX-License-Identifier: MIT
// Places top-level windows on the screen, and sizes what stands in them.
#include "libfoxaux/fox-utils/layout.h"

#include "libfoxaux/fox_compat.h"
#include "mathkit/stderr_failed.h"

#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double room_of_frame = 0.95; // of a monitor: what title and border leave to a window

TRect area_at(int x, int y, int width, int height) {
    return {double(x), double(y), double(x) + width, double(y) + height};
}

bool tells_monitors(Display* display) {
    int event, error, major, minor;
    return XRRQueryExtension(display, &event, &error) && XRRQueryVersion(display, &major, &minor) &&
           (major > 1 || minor >= 5);
}

// The monitors that the display tells of; none where it can't.
std::vector<TRect> monitors() {
    std::vector<TRect> areas;
    auto* display = static_cast<Display*>(FXApp::instance()->getDisplay());
    if (!tells_monitors(display)) return areas;
    int count = 0;
    XRRMonitorInfo* list =
        XRRGetMonitors(display, FXApp::instance()->getRootWindow()->id(), True, &count);
    for (int i = 0; i < count; ++i)
        areas.push_back(area_at(list[i].x, list[i].y, list[i].width, list[i].height));
    if (list) XRRFreeMonitors(list);
    return areas;
}

bool holds(const TRect& area, FXint x, FXint y) {
    return area.x1 <= x && x < area.x2 && area.y1 <= y && y < area.y2;
}

FXint pixels(double length) {
    return static_cast<FXint>(std::rint(length));
}

// The new start of a side that is moved just so far that it lies inside.
FXint moved_inside(FXint start, FXint length, double low, double high) {
    return std::max(pixels(low), std::min(start, pixels(high) - length));
}

} // namespace

layout_root::layout_root() {
    FXApp* app = FXApp::instance();
    stderr_assert(app != nullptr, "FXApp::instance()!=0", "libfoxaux/fox-utils/layout",
                  "layout_root::layout_root()");
    FXint x = 0, y = 0;
    FXuint buttons;
    app->getRootWindow()->getCursorPosition(x, y, buttons);
    *this = layout_root(x, y);
}

layout_root::layout_root(FXint x, FXint y) {
    const FXWindow* root = FXApp::instance()->getRootWindow();
    const std::vector<TRect> all = monitors();
    const auto found =
        std::ranges::find_if(all, [&](const TRect& area) { return holds(area, x, y); });
    // A single monitor shows the whole root window.
    const bool several = all.size() > 1 && found != all.end();
    TRect::operator=(
        several ? *found
                : area_at(root->getX(), root->getY(), root->getWidth(), root->getHeight()));
}

void layout_root::lower_top(double pixels) {
    if (!(y1 + pixels > y2)) y1 += pixels;
}

FXint grown(FXint pixels) {
    constexpr double usual = 90.0 * 100; // tenths of a point times dots per inch
    constexpr double largest = 10;       // settings may name any number
    const double points = FXApp::instance()->getNormalFont()->getSize();
    const double letters = points * fox_compat::dots_per_inch();
    return static_cast<FXint>(pixels * std::clamp(letters / usual, 1.0, largest));
}

void place_on_monitor(FXTopWindow& window, FXuint placement) {
    window.place(placement);
    const FXint width = window.getWidth(), height = window.getHeight();
    layout_root area = placement == PLACEMENT_SCREEN
                           ? layout_root()
                           : layout_root(window.getX() + width / 2, window.getY() + height / 2);
    area.zoom(room_of_frame, room_of_frame);
    window.resize(std::min(width, pixels(area.width())), std::min(height, pixels(area.height())));
    if (placement == PLACEMENT_SCREEN)
        window.move(pixels((area.x1 + area.x2 - window.getWidth()) / 2),
                    pixels((area.y1 + area.y2 - window.getHeight()) / 2));
    else
        window.place(placement);
    window.move(moved_inside(window.getX(), window.getWidth(), area.x1, area.x2),
                moved_inside(window.getY(), window.getHeight(), area.y1, area.y2));
}
