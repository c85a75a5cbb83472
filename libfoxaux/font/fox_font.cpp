// SPDX-License-Identifier: MIT
// The toolkit's fonts as a plot font: the cache, and the two images that rotate text.
#include "libfoxaux/font/fox_font.h"

#include "libfoxaux/fox_compat.h"
#include "mathkit/TError.h"
#include "mathkit/stderr_failed.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace {

constexpr int cached_fonts = 20; // what is held on the server
constexpr double pi = std::numbers::pi;
constexpr double angle_tolerance = 0.0001;

// The server refuses larger images; no readable label comes near it.
constexpr int largest_image_side = 16384;

const char* const source = "libfoxaux/font/fox_font";

FXushort usable_deci_points(double points) {
    return static_cast<FXushort>(std::lround(base_font::usable_size(points) * 10));
}

// A point is 1/72 inch: for plot fonts at 100 dots per inch, for the toolkit at its own resolution.
FXushort toolkit_deci_points(FXushort of_plot) {
    const double size = std::clamp(of_plot * 100 / fox_compat::dots_per_inch(), 1.0, 9999.0);
    return static_cast<FXushort>(std::lround(size));
}

long plot_deci_points(const FXFont* font) {
    return std::lround(font->getActualSize() * fox_compat::dots_per_inch() / 100);
}

kit::string key_of(const FXFontDesc& d) {
    kit::string key;
    key.sprintf("%s %d %d %d %d %d %d", d.face, d.size, d.weight, d.slant, d.setwidth, d.encoding,
                d.flags);
    return key;
}

enum class rotation { clockwise, anticlockwise };

// Fills `to` with `from` rotated by a right angle. The width of the one is the height of the other.
void fill_rotated(FXImage& to, const FXImage& from, rotation direction) {
    const int w = to.getWidth(), h = to.getHeight();
    for (int y = 0; y < h; y++) {
        for (int x = 0; x < w; x++)
            to.setPixel(x, y,
                        direction == rotation::clockwise ? from.getPixel(y, w - 1 - x)
                                                         : from.getPixel(h - 1 - y, x));
    }
}

} // namespace

fox_font::fox_font() {
    FXApp::instance()->getNormalFont()->getFontDesc(desc);
    setFont(desc);
}

fox_font::~fox_font() {
    for (const auto& entry : font_map)
        delete entry.second;
}

void fox_font::setFont(FXFont* font) {
    font->getFontDesc(desc);
    setFont(desc);
}

void fox_font::setFont(FXFontDesc& d) {
    if (&d != &desc) desc = d;
    desc.face[sizeof desc.face - 1] = '\0';
    desc.size = usable_deci_points(desc.size / 10.0);

    const kit::string key = key_of(desc);
    const auto found = font_map.find(key);
    if (found != font_map.end()) {
        current = found->second;
    } else if (FXFont* made = make_font()) {
        current = made;
        font_map[key] = made;
        allocated.push_back(key);
        allocated_count++;
        while (allocated_count > cached_fonts)
            evict_oldest();
    }
    size = plot_deci_points(current) / 10.0;
}

// A font for `desc`. If the display has none: null, and the font in use stays in use.
FXFont* fox_font::make_font() {
    FXFontDesc finer = desc;
    finer.size = toolkit_deci_points(desc.size);
    auto font = std::make_unique<FXFont>(FXApp::instance(), finer);
    try {
        font->create();
    } catch (const FXException& e) {
        if (!current) throw TError(e.what());
        return nullptr;
    }
    return font.release();
}

void fox_font::evict_oldest() {
    const char* const function = "void fox_font::setFont(FX::FXFontDesc&)";
    const auto i1 = allocated.begin();
    stderr_assert(i1 != allocated.end(), "i1!=allocated.end()", source, function);
    const auto zw = font_map.find(*i1);
    stderr_assert(zw != font_map.end(), "zw!=font_map.end()", source, function);
    allocated.erase(i1);
    delete zw->second;
    font_map.erase(zw);
    allocated_count--;
}

void fox_font::setsize(double points) {
    desc.size = usable_deci_points(points);
    setFont(desc);
}

void fox_font::setrot(double radians) {
    if (!std::isfinite(radians)) radians = 0;
    const double k = std::floor(radians / (2 * pi) + 0.5);
    rot = radians - 2 * k * pi;
    if (std::fabs(rot - pi / 2) < angle_tolerance) {
        rot = pi / 2;
    } else if (std::fabs(rot) < angle_tolerance) {
        rot = 0;
    }
}

void fox_font::setsizerot(double points, double radians) {
    setsize(points);
    setrot(radians);
}

void fox_font::drawText(int x, int y, const wchar_t* text, int length) {
    const FXString utf8 = fox_compat::utf8(text, length);
    if (utf8.empty()) return;
    const int width = current->getTextWidth(utf8);
    if (std::fabs(rot) < angle_tolerance) {
        move_to_base_line(x, y, width);
        if (!fox_compat::is_drawable_coordinate(x) || !fox_compat::is_drawable_coordinate(y))
            return;
        auto* target = static_cast<FXDCWindow*>(dc);
        target->setFont(current);
        target->drawText(x, y, utf8);
    } else if (std::fabs(rot - pi / 2) < angle_tolerance) {
        move_to_base_line(x, y, width);
        draw_upward(x, y, utf8, width);
    } else {
        stderr_fatal_error(nullptr, source, __LINE__,
                           "virtual void fox_font::drawText(int, int, const wchar_t*, int)");
    }
}

// The picture under the text is rotated into `lying`, the text drawn on it there, and all of it
// rotated back into `standing`. So the text stands on its own background.
void fox_font::draw_upward(int x, int y, const FXString& text, int width) {
    const int height = current->getFontHeight();
    const int lying_w = width + 10;
    const int lying_h = 2 * height + 5;
    if (lying_w > largest_image_side || lying_h > largest_image_side) return;
    const int x0 = x - height - 5;
    const int y0 = y - width - 5;
    if (!fox_compat::is_drawable_coordinate(x0) || !fox_compat::is_drawable_coordinate(y0)) return;

    auto* target = static_cast<FXDCWindow*>(dc);
    FXApp* app = FXApp::instance();
    FXImage lying(app, nullptr, IMAGE_KEEP | IMAGE_OWNED, lying_w, lying_h);
    FXImage standing(app, nullptr, IMAGE_KEEP, lying_h, lying_w);
    try {
        standing.create();
        {
            fox_compat::inner_dc inner(&standing, target);
            inner.dc.drawArea(fox_compat::drawable_of(target), x0, y0, lying_h, lying_w, 0, 0);
        }
        standing.restore();
        fill_rotated(lying, standing, rotation::clockwise);
        lying.create();
        {
            fox_compat::inner_dc inner(&lying, target);
            inner.dc.setForeground(target->getForeground());
            inner.dc.setFont(current);
            inner.dc.drawText(5, height + 5, text);
        }
        lying.restore();
        fill_rotated(standing, lying, rotation::anticlockwise);
        standing.render();
        target->drawImage(&standing, x0, y0);
    } catch (const FXException&) {
        // The server has no room for the images: this text is left out, the plot goes on.
    }
}
