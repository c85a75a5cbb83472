// SPDX-License-Identifier: MIT
// Tests of the plotter: the frame, every key of the view, the mouse, the position bar and dialog.
#include "libfoxaux/fox-utils/basic_plotter.h"

#include "tests/libfoxaux/window_fixture.h"

#include <cmath>
#include <limits>

using namespace window_test;

namespace {

constexpr FXColor white = 0xffffffff, black = 0xff000000, grey = 0xff808080;
constexpr double closer = 0.6666666666666666;

/// A plot of a frame of axes that counts its renderings; limited to `limit` where asked.
class plot : public basic_plotter {
public:
    plot(FXComposite* parent, FXuint opts, FXint x, FXint y, FXint w, FXint h)
        : basic_plotter(parent, opts, x, y, w, h) {
        w2s->set_world(0, -1, 1, 1);
    }

    void render() override {
        ++renders;
        draw_frame(L"S", L"P", false);
    }
    void constrain_view() override {
        if (limited) limit_rect(w2s->world, limit);
    }

    TRect& view() { return w2s->world; }

    int renders = 0;
    bool limited = false;
    TRect limit{0, -1, 1, 1};
};

void expect_view(plot& canvas, const TRect& wanted, const std::string& what) {
    const TRect& view = canvas.view();
    EXPECT_NEAR(view.x1, wanted.x1, 1e-12) << what;
    EXPECT_NEAR(view.y1, wanted.y1, 1e-12) << what;
    EXPECT_NEAR(view.x2, wanted.x2, 1e-12) << what;
    EXPECT_NEAR(view.y2, wanted.y2, 1e-12) << what;
}

void expect_same_view(plot& canvas, const TRect& wanted, const std::string& what) {
    const TRect& view = canvas.view();
    EXPECT_EQ(view.x1, wanted.x1) << what;
    EXPECT_EQ(view.y1, wanted.y1) << what;
    EXPECT_EQ(view.x2, wanted.x2) << what;
    EXPECT_EQ(view.y2, wanted.y2) << what;
}

TEST(basic_plotter, TheFrameLeavesRoomForTheAxes) {
    shown<plot> canvas(400, 300);
    const irect& area = canvas->w2s->screen;
    EXPECT_EQ(area.x1, 30);
    EXPECT_EQ(area.y1, 0);
    EXPECT_EQ(area.x2, 399);
    EXPECT_EQ(area.y2, 270);
    const pixels picture(canvas->image);
    EXPECT_EQ(picture.at(200, 270), grey); // the x axis
    EXPECT_EQ(picture.at(30, 100), grey);  // the y axis
    EXPECT_EQ(picture.at(200, 100), white);
    EXPECT_EQ(picture.at(0, 0), white);
    // The low end of the world is the left, lower corner of the area.
    EXPECT_NEAR(0 * canvas->w2s->ax + canvas->w2s->bx, 30, 1e-9);
    EXPECT_NEAR(-1 * canvas->w2s->ay + canvas->w2s->by, 270, 1e-9);
}

TEST(basic_plotter, EveryKeyOfTheView) {
    const TRect start(2, 10, 12, 30); // ten wide, twenty high, centre (7, 20)
    const struct {
        int key;
        TRect view;
        long answer;
    } cases[] = {
        {'*', {7 - 5 * closer, 20 - 10 * closer, 7 + 5 * closer, 20 + 10 * closer}, 0},
        {KEY_KP_Multiply, {7 - 5 * closer, 20 - 10 * closer, 7 + 5 * closer, 20 + 10 * closer}, 0},
        {'-', {-0.5, 5, 14.5, 35}, 0},
        {KEY_KP_Subtract, {-0.5, 5, 14.5, 35}, 0},
        {'/', {-0.5, 5, 14.5, 35}, 0}, // no range is known here: as '-'
        {KEY_KP_Divide, {-0.5, 5, 14.5, 35}, 0},
        {'x', {7 - 5 * closer, 10, 7 + 5 * closer, 30}, 0},
        {'X', {-0.5, 10, 14.5, 30}, 0},
        {'y', {2, 20 - 10 * closer, 12, 20 + 10 * closer}, 0},
        {'Y', {2, 5, 12, 35}, 0},
        {'d', start, 0},
        {'D', start, 0},
        {KEY_Left, {1, 10, 11, 30}, 1},
        {KEY_KP_Left, {1, 10, 11, 30}, 1},
        {KEY_Right, {3, 10, 13, 30}, 1},
        {KEY_KP_Right, {3, 10, 13, 30}, 1},
        {KEY_Up, {2, 12, 12, 32}, 1},
        {KEY_KP_Up, {2, 12, 12, 32}, 1},
        {KEY_Down, {2, 8, 12, 28}, 1},
        {KEY_KP_Down, {2, 8, 12, 28}, 1},
    };
    shown<plot> canvas(400, 300);
    for (const auto& c : cases) {
        canvas->view() = start;
        const int before = canvas->renders;
        EXPECT_EQ(canvas->on_key(c.key), c.answer) << std::hex << c.key;
        expect_view(*canvas, c.view, std::to_string(c.key));
        EXPECT_EQ(canvas->renders, before + 1) << std::hex << c.key;
    }
    EXPECT_EQ(canvas->on_key('q'), 0);
    EXPECT_EQ(canvas->renders, 1 + static_cast<int>(std::size(cases)));
}

TEST(basic_plotter, NiceValuesAndIsometricView) {
    shown<plot> canvas(400, 300);
    for (const char* key : {"g", "G"}) {
        canvas->view().set(0.1234567, -0.98765, 0.8765432, 0.4567891);
        type_keys(canvas.canvas, key);
        expect_view(*canvas, {0.12, -1, 0.88, 0.5}, key);
    }
    for (const char* key : {"i", "I"}) {
        canvas->view().set(0, -1, 1, 1);
        type_keys(canvas.canvas, key);
        EXPECT_NEAR(canvas->w2s->ax, -canvas->w2s->ay, 1e-9 * canvas->w2s->ax);
    }
}

TEST(basic_plotter, TheMouseMachine) {
    enum action { arm, cancel, left_down, left_up, right_down, right_up, move };
    struct step {
        action what;
        int mode;          // afterwards
        bool zoom_cursor;  // afterwards
        bool view_changed; // by this step
    };
    const std::vector<step> journeys[] = {
        {{left_down, 0, false, false}, {move, 0, false, false}, {left_up, 0, false, false}},
        {{arm, 1, true, false}, {arm, 1, true, false}, {cancel, 0, false, false}},
        {{arm, 1, true, false},
         {move, 1, true, false},
         {left_down, 2, true, false},
         {arm, 2, true, false},
         {right_down, 2, true, false}, // no bar during a drag
         {right_up, 2, true, false},
         {move, 2, true, false},
         {left_up, 0, false, true}},
        {{arm, 1, true, false}, {right_down, 1, true, false}, {right_up, 1, true, false}},
        {{arm, 1, true, false},
         {left_down, 2, true, false},
         {move, 2, true, false},
         {cancel, 0, false, false},
         {move, 0, false, false},
         {left_up, 0, false, false}},
        {{arm, 1, true, false}, {left_down, 2, true, false}, {left_up, 0, false, false}},
        {{right_down, 3, false, false},
         {arm, 3, false, false},
         {left_down, 3, false, false},
         {left_up, 3, false, false},
         {move, 3, false, false},
         {right_up, 0, false, false}},
    };
    shown<plot> canvas(400, 300);
    for (const auto& journey : journeys) {
        const std::ptrdiff_t number = &journey - journeys;
        canvas->cancel_mode();
        int x = 100, y = 90;
        for (const step& s : journey) {
            const std::string where =
                "journey " + std::to_string(number) + " step " + std::to_string(&s - &journey[0]);
            const TRect before = canvas->view();
            const int renders = canvas->renders;
            switch (s.what) {
            case arm:
                type_keys(canvas.canvas, "+");
                break;
            case cancel:
                send_key(canvas.canvas, KEY_Escape);
                break;
            case left_down:
                EXPECT_EQ(send_mouse(canvas.canvas, SEL_LEFTBUTTONPRESS, x, y), 0);
                break;
            case left_up:
                EXPECT_EQ(send_mouse(canvas.canvas, SEL_LEFTBUTTONRELEASE, x, y), 0);
                break;
            case right_down:
                send_mouse(canvas.canvas, SEL_RIGHTBUTTONPRESS, x, y);
                break;
            case right_up:
                send_mouse(canvas.canvas, SEL_RIGHTBUTTONRELEASE, x, y);
                break;
            case move:
                send_mouse(canvas.canvas, SEL_MOTION, x += 40, y += 30);
                break;
            }
            EXPECT_EQ(canvas->mode, s.mode) << where;
            EXPECT_EQ(canvas->getDefaultCursor() == canvas->zoom_cursor, s.zoom_cursor) << where;
            if (!s.zoom_cursor) {
                EXPECT_EQ(canvas->getDefaultCursor(), canvas->normal_cursor);
            }
            EXPECT_EQ(canvas->renders, renders + (s.view_changed ? 1 : 0)) << where;
            EXPECT_EQ(canvas->view().x1 != before.x1, s.view_changed) << where;
        }
    }
}

/// Drags a rubber band by real messages.
void drag_band(plot& canvas, int ax, int ay, int ex, int ey) {
    type_keys(&canvas, "+");
    send_mouse(&canvas, SEL_LEFTBUTTONPRESS, ax, ay);
    send_mouse(&canvas, SEL_MOTION, (ax + ex) / 2, (ay + ey) / 2);
    send_mouse(&canvas, SEL_MOTION, ex, ey);
    send_mouse(&canvas, SEL_LEFTBUTTONRELEASE, ex, ey);
}

TEST(basic_plotter, ABandIsTheSameInEveryDirection) {
    shown<plot> canvas(431, 330); // 400 x 300 pixels for 1 x 2 units
    const TRect wanted(0.25, 0.5, 0.75, 0.9);
    const int left = 130, right = 330, top = 15, bottom = 75;
    const int corners[][4] = {{left, top, right, bottom},
                              {right, bottom, left, top},
                              {left, bottom, right, top},
                              {right, top, left, bottom}};
    for (const auto& c : corners) {
        canvas->view().set(0, -1, 1, 1);
        canvas->redraw();
        drag_band(*canvas, c[0], c[1], c[2], c[3]);
        expect_view(*canvas, wanted, "band");
    }
}

TEST(basic_plotter, ABandWithoutAreaCancelsAndLeavesNoTrace) {
    shown<plot> canvas(400, 300);
    const pixels before(canvas->image);
    const int ends[][2] = {{100, 100}, {180, 100}, {100, 160}};
    for (const auto& end : ends) {
        drag_band(*canvas, 100, 100, end[0], end[1]);
        EXPECT_EQ(canvas->mode, 0);
        EXPECT_EQ(canvas->renders, 1);
        EXPECT_TRUE(screen_of(canvas.canvas) == before);
    }
}

TEST(basic_plotter, TheBandIsDrawnByXorOnTheWindowOnly) {
    shown<plot> canvas(400, 300);
    const pixels before(canvas->image);
    type_keys(canvas.canvas, "+");
    send_mouse(canvas.canvas, SEL_LEFTBUTTONPRESS, 100, 50);
    send_mouse(canvas.canvas, SEL_MOTION, 150, 90);
    send_mouse(canvas.canvas, SEL_MOTION, 200, 120);
    const pixels during = screen_of(canvas.canvas);
    EXPECT_EQ(during.at(150, 50), 0xffff0000u);  // yellow on white
    EXPECT_EQ(during.at(150, 121), 0xffff0000u); // three pixels wide
    EXPECT_EQ(during.at(150, 90), white);        // the first band is gone
    EXPECT_TRUE(pixels(canvas->image) == before);
    send_key(canvas.canvas, KEY_Escape);
    canvas->update();
    pump();
    EXPECT_TRUE(screen_of(canvas.canvas) == before);
}

TEST(basic_plotter, APointerOutsideTheWindowCountsAsOnItsEdge) {
    shown<plot> canvas(400, 300);
    drag_band(*canvas, 200, 100, -1, -32768); // -1 is also the mark of a band not drawn yet
    EXPECT_EQ(canvas->mode, 0);
    EXPECT_EQ(canvas->end_x, 0);
    EXPECT_EQ(canvas->end_y, 0);
    EXPECT_EQ(canvas->renders, 2);
    drag_band(*canvas, 200, 100, 32767, 32767);
    EXPECT_EQ(canvas->end_x, 399);
    EXPECT_EQ(canvas->end_y, 299);
}

TEST(basic_plotter, ThePositionBarKeepsAwayFromThePointer) {
    shown<plot> canvas(400, 301);
    const pixels before(canvas->image);
    const struct { int y, bar; } cases[] = {{10, 265}, {150, 265}, {151, 0}, {290, 0}};
    for (const auto& c : cases) {
        send_mouse(canvas.canvas, SEL_RIGHTBUTTONPRESS, 50, c.y);
        EXPECT_EQ(canvas->bar_y, c.bar) << c.y;
        send_mouse(canvas.canvas, SEL_MOTION, 60, 20); // the bar does not follow
        const pixels bar = screen_of(canvas.canvas);
        EXPECT_EQ(bar.at(399, c.bar), black);
        EXPECT_EQ(bar.at(0, c.bar + 35), black);
        EXPECT_NE(bar.at(399, c.bar == 0 ? 36 : 264), black);
        EXPECT_GT(bar.count(white), 0);
        send_mouse(canvas.canvas, SEL_RIGHTBUTTONRELEASE, 60, 20);
        pump();
        EXPECT_TRUE(screen_of(canvas.canvas) == before);
    }
    EXPECT_EQ(canvas->renders, 1);
}

TEST(basic_plotter, ThePositionTextTellsTheWorldPoint) {
    shown<plot> canvas(431, 330);
    kit::wstring text;
    FXEvent event = mouse_event(canvas.canvas, 130, 75);
    canvas->position_text(text, &event);
    EXPECT_EQ(std::wstring(text), L"         0.25               0.5");
}

TEST(basic_plotter, LimitRectKeepsTheSizeWhereItFits) {
    const TRect limit(0, -1, 1, 1);
    const struct {
        TRect rect, wanted;
    } cases[] = {
        {{0.2, -0.5, 0.4, 0.5}, {0.2, -0.5, 0.4, 0.5}},
        {{-0.5, 0.25, 0.25, 1.75}, {0, -0.5, 0.75, 1}},
        {{0.75, -3, 1.25, -2}, {0.5, -1, 1, 0}},
        {{-5, -5, 5, 5}, limit},
        {{0.5, -9, 7, 0}, limit},
        {{0.3, -0.5, 0.3, 4}, {0.3, -1, 0.3, 1}},
    };
    for (const auto& c : cases) {
        TRect rect = c.rect;
        basic_plotter::limit_rect(rect, limit);
        EXPECT_EQ(rect.x1, c.wanted.x1);
        EXPECT_EQ(rect.y1, c.wanted.y1);
        EXPECT_EQ(rect.x2, c.wanted.x2);
        EXPECT_EQ(rect.y2, c.wanted.y2);
    }
}

TEST(basic_plotter, DeepZoomEndsWhereZoomingOutStillWorks) {
    shown<plot> canvas(120, 90);
    canvas->limited = true;
    const double centers[][2] = {{0.5, 0}, {0.3, 0.7}, {1e-9, -0.999999}};
    for (const auto& c : centers) {
        canvas->view().set_mid(c[0], c[1], 1e-9, 1e-9);
        for (int i = 0; i < 300; ++i)
            type_keys(canvas.canvas, "*");
        for (int key : {KEY_Left, KEY_Up, KEY_Right, KEY_Right, KEY_Down, KEY_Down})
            canvas->on_key(key);
        type_keys(canvas.canvas, "gixyXY");
        const TRect& view = canvas->view();
        EXPECT_LT(view.x1, view.x2);
        EXPECT_LT(view.y1, view.y2);
        EXPECT_LT(view.width(), 1e-12);
        EXPECT_TRUE(std::isfinite(canvas->w2s->ax) && std::isfinite(canvas->w2s->by));
        for (int i = 0; i < 300; ++i)
            type_keys(canvas.canvas, "-");
        expect_same_view(*canvas, canvas->limit, "zoomed out");
    }
    // A plot without a limit never leaves the doubles either.
    canvas->limited = false;
    canvas->view().set(-1e290, -1e290, 1e290, 1e290);
    for (int i = 0; i < 100; ++i)
        canvas->zoom_out(i % 2);
    EXPECT_TRUE(std::isfinite(canvas->view().width()));
    canvas->view().set(-1e-280, -1e-280, 1e-280, 1e-280);
    for (int i = 0; i < 100; ++i)
        canvas->on_key('*');
    EXPECT_GT(canvas->view().width(), 0);
    EXPECT_TRUE(std::isfinite(canvas->w2s->ax));
    const double deepest = canvas->view().width();
    canvas->on_key('-');
    EXPECT_GT(canvas->view().width(), deepest);
}

TEST(basic_plotter, ABandAtTheDeepestZoomKeepsTheView) {
    shown<plot> canvas(400, 300);
    canvas->view().set_mid(0.5, 0.5, 0x1p-48, 0x1p-48);
    canvas->redraw();
    const TRect before = canvas->view();
    drag_band(*canvas, 100, 100, 101, 101);
    expect_same_view(*canvas, before, "band");
}

// What the fields of one page hold, and the view that they give.
struct typed_range {
    const char* texts[4];
    TRect view;
};

void enter_range(plot& canvas, int page, const typed_range& range, bool accept) {
    with_dialogs([&] { type_keys(&canvas, "p"); }, {[&](FXTopWindow* dialog) {
                     EXPECT_STREQ(dialog->getTitle().text(), "Change Position");
                     all_of<FXTabBook>(dialog).at(0)->setCurrent(page);
                     const auto fields = all_of<FXTextField>(dialog);
                     for (int i = 0; i < 4; ++i)
                         type_into(fields.at(4 * page + i), range.texts[i]);
                     close_dialog(dialog, accept);
                 }});
}

TEST(basic_plotter, TheRangeIsTypedByCornersOrByCenterAndSize) {
    const TRect start(0.25, -0.5, 0.5, 0.5);
    const typed_range corners[] = {
        {{"0.1", "-0.2", "0.3", "0.4"}, {0.1, -0.2, 0.3, 0.4}},
        {{"0.3", "0.4", "0.1", "-0.2"}, {0.1, -0.2, 0.3, 0.4}}, // reversed
        {{"-1e-3", "-0.2", "0.3", "0.4"}, {-0.001, -0.2, 0.3, 0.4}},
        {{"0.1", "-0.2", "0.1", "0.4"}, start}, // a range without extent is dropped
        {{"nan", "-0.2", "0.3", "0.4"}, start},
        {{"-inf", "-inf", "inf", "inf"}, start},
        {{"0.1", "1e999", "0.3", "0.4"}, start},
        {{"0.1", "-1e308", "0.3", "1e308"}, start},
        {{"", "", "", ""}, start},
    };
    const typed_range centers[] = {
        {{"0.5", "0", "0.25", "0.5"}, {0.375, -0.25, 0.625, 0.25}},
        {{"0.5", "0", "-0.25", "0.5"}, {0.375, -0.25, 0.625, 0.25}},
        {{"0.5", "0", "0", "0.5"}, start},
        {{"inf", "0", "1", "0.5"}, start},
        {{"0.5", "0", "nan", "0.5"}, start},
    };
    shown<plot> canvas(400, 300);
    const auto run = [&](int page, const typed_range& range) {
        for (bool accept : {true, false}) {
            canvas->view() = start;
            const int renders = canvas->renders;
            enter_range(*canvas, page, range, accept);
            expect_view(*canvas, accept ? range.view : start, range.texts[0]);
            EXPECT_EQ(canvas->renders, renders + accept) << range.texts[0];
        }
    };
    for (const auto& range : corners)
        run(0, range);
    for (const auto& range : centers)
        run(1, range);
}

// So far out the doubles are further apart than the limit is wide.
TEST(basic_plotter, ATypedRangeFarOutsideTheLimitLeavesAViewThatMoves) {
    shown<plot> canvas(400, 300);
    canvas->limited = true;
    const char* const ends[][2] = {
        {"1e16", "1e17"}, {"1e17", "1e18"}, {"-1e17", "1e17"}, {"1e200", "1e201"}};
    for (const auto& end : ends) {
        canvas->view() = {0.25, -0.5, 0.5, 0.5};
        enter_range(*canvas, 0, {{end[0], "-1", end[1], "1"}, {}}, true);
        expect_same_view(*canvas, canvas->limit, end[0]);
        type_keys(canvas.canvas, "*");
        EXPECT_NEAR(canvas->view().width(), closer, 1e-12) << end[0];
    }
}

TEST(basic_plotter, TheRangeDialogShowsTheViewAndOffersTheHistory) {
    shown<plot> canvas(400, 300);
    canvas->view().set(0.25, -0.5, 0.5, 1.0 / 3);
    enter_range(*canvas, 0, {{"0.125", "-0.25", "0.5", "1"}, {}}, true);
    canvas->view().set(0.25, -0.5, 0.5, 1.0 / 3);
    with_dialogs([&] { canvas->position_dialog(); }, {[&](FXTopWindow* dialog) {
                     const auto fields = all_of<FXTextField>(dialog);
                     const char* texts[] = {"0.25",  "-0.5",
                                            "0.5",   "0.333333333333333",
                                            "0.375", "-0.0833333333333333",
                                            "0.25",  "0.833333333333333"};
                     for (int i = 0; i < 8; ++i)
                         EXPECT_STREQ(fields.at(i)->getText().text(), texts[i]);
                     EXPECT_STREQ(all_of<FXComboBox>(dialog).at(0)->getItemText(0).text(), "0.125");
                     close_dialog(dialog, false);
                 }});
}

TEST(basic_plotter, WindowsAndFontsOfAnySizeLive) {
    shown<plot> canvas(400, 300);
    const int sizes[][2] = {{1, 1}, {5, 3}, {31, 31}, {29, 300}, {400, 12}, {400, 300}};
    const int fonts[] = {12, 0, -5, 1000000000, std::numeric_limits<int>::min()};
    for (const auto& size : sizes) {
        canvas.resize(size[0], size[1]);
        for (int font : fonts) {
            canvas->font_size = font;
            canvas->colors_changed();
            send_mouse(canvas.canvas, SEL_RIGHTBUTTONPRESS, size[0] / 2, size[1] / 2);
            send_mouse(canvas.canvas, SEL_MOTION, size[0], 0);
            send_mouse(canvas.canvas, SEL_RIGHTBUTTONRELEASE, 0, 0);
            drag_band(*canvas, 0, 0, size[0] - 1, size[1] - 1);
            type_keys(canvas.canvas, "*gi/");
            EXPECT_EQ(canvas->font_size, font);
        }
        canvas->view().set(0, -1, 1, 1);
    }
    canvas->font_size = 12;
    canvas->redraw();
    EXPECT_EQ(canvas->w2s->screen.x1, 30);
}

} // namespace
