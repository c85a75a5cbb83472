// SPDX-License-Identifier: MIT
// Where a plot's pointer and its view are: the position bar and the dialog "Change Position".
#include "libfoxaux/fox-utils/basic_plotter.h"

#include "libfoxaux/font/fox_hfont.h"
#include "libfoxaux/fox-utils/dialog_shape.h"
#include "libfoxaux/fox-utils/icons.h"
#include "libfoxaux/fox-utils/label_text.h"
#include "libfoxaux/fox-utils/page_book.h"

namespace {

constexpr FXColor bar_color = 0xff000000;
constexpr FXColor bar_text_color = 0xffffffff;
constexpr int bar_indent = 20; // pixels left of the text

} // namespace

void basic_plotter::position_text(kit::wstring& text, FXEvent* event) {
    const world_point at = screen_to_world(event->win_x, event->win_y);
    text.sprintf(L"%13.10g     %13.10g", at.x, at.y);
}

void basic_plotter::draw_position_bar(FXEvent* event) {
    position_text(bar_text, event);
    draw_bar();
}

void basic_plotter::draw_bar() {
    if (!id()) return;
    const int size = text_size();
    FXDCWindow dc(this);
    ensure_hfont();
    hfont->set_dc(&dc);
    hfont->setsizerot(size, 0);
    hfont->align = 0;
    dc.setForeground(bar_color);
    dc.fillRectangle(0, bar_y, getWidth(), 3 * size);
    dc.setForeground(bar_text_color);
    hfont->drawText(bar_indent, bar_y + 2 * size, bar_text, -1);
}

void basic_plotter::position_dialog() {
    const TRect& view = w2s->world;
    TRect corners = view;
    double center_x = (view.x2 + view.x1) * 0.5, center_y = (view.y2 + view.y1) * 0.5;
    double width = view.width(), height = view.height();

    const history_site site{"libfoxaux/fox-utils/basic_plotter", this};
    FXICOIcon icon(getApp(), icons::range_ico);
    dialog_shape dialog(this, "Change Position", &icon);
    auto* book = new page_book(dialog.frame);
    const auto add_page = [&](const char* title, const std::vector<entry_row>& rows) {
        return dialog.add_rows(dialog.add_matrix(2, dialog_shape::add_page(book, title)), site,
                               rows);
    };
    // A field's number tells its history from the others'.
    const auto corner_fields = add_page("x1,y1/x2,y2", {{"x1", &corners.x1, 506, false},
                                                        {"y1", &corners.y1, 517, false},
                                                        {"x2", &corners.x2, 528, false},
                                                        {"y2", &corners.y2, 539, false}});
    const auto center_fields = add_page("center/size", {{"center x", &center_x, 555, false},
                                                        {"center y", &center_y, 566, false},
                                                        {"width", &width, 577, false},
                                                        {"height", &height, 588, false}});
    dialog.add_buttons();
    if (!dialog.run()) return;

    // Only the page that is open counts.
    if (book->getCurrent() == 1) {
        dialog_shape::save_histories(center_fields);
        corners.set_mid(center_x, center_y, width, height);
    } else {
        dialog_shape::save_histories(corner_fields);
    }
    if (!set_view(corners)) show_error(this, "Parameters Wrong");
}
