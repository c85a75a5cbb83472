// SPDX-License-Identifier: MIT
// Tests of the plotter: the frame, every key of the view, the mouse, the position bar and dialog.
#include "libfoxaux/fox-utils/basic_plotter.h"

#include "tests/libfoxaux/dialogs.h"
#include "tests/libfoxaux/pixels.h"

#include <array>
#include <cmath>
#include <map>

using namespace window_test;

namespace {

constexpr double closer = 0.6666666666666666;

// A plot of a frame of axes that counts its renderings; limited to `limit` where asked.
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

using corners = std::array<double, 4>;

corners corners_of(const TRect& r) {
    return {r.x1, r.y1, r.x2, r.y2};
}

void expect_view(plot& canvas, const TRect& wanted, const std::string& what) {
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(corners_of(canvas.view())[i], corners_of(wanted)[i], 1e-12) << what;
}

TEST(BasicPlotter, EveryKeyOfTheView) {
    const TRect start(2, 10, 12, 30); // ten wide, twenty high, centre (7, 20)
    const struct {
        std::vector<int> keys;
        TRect view;
        long answer;
    } cases[] = {
        {{'*', KEY_KP_Multiply},
         {7 - 5 * closer, 20 - 10 * closer, 7 + 5 * closer, 20 + 10 * closer},
         0},
        // No range is known here: "/" is as "-".
        {{'-', KEY_KP_Subtract, '/', KEY_KP_Divide}, {-0.5, 5, 14.5, 35}, 0},
        {{'x'}, {7 - 5 * closer, 10, 7 + 5 * closer, 30}, 0},
        {{'X'}, {-0.5, 10, 14.5, 30}, 0},
        {{'y'}, {2, 20 - 10 * closer, 12, 20 + 10 * closer}, 0},
        {{'Y'}, {2, 5, 12, 35}, 0},
        {{'d', 'D'}, start, 0},
        {{KEY_Left, KEY_KP_Left}, {1, 10, 11, 30}, 1},
        {{KEY_Right, KEY_KP_Right}, {3, 10, 13, 30}, 1},
        {{KEY_Up, KEY_KP_Up}, {2, 12, 12, 32}, 1},
        {{KEY_Down, KEY_KP_Down}, {2, 8, 12, 28}, 1},
    };
    shown<plot> canvas(400, 300);
    for (const auto& c : cases) {
        for (const int key : c.keys) {
            canvas->view() = start;
            const int before = canvas->renders;
            EXPECT_EQ(canvas->on_key(key), c.answer) << key;
            expect_view(*canvas, c.view, std::to_string(key));
            EXPECT_EQ(canvas->renders, before + 1) << key;
        }
    }
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

TEST(BasicPlotter, AxesRunAlongBothEdgesOfThePlotArea) {
    shown<plot> canvas(400, 300);
    const irect area = canvas->w2s->screen;
    const pixels picture(canvas->image);
    for (int x = area.x1 + 1; x < area.x2; ++x)
        ASSERT_EQ(picture.at(x, area.y2), canvas->axis_color) << x;
    for (int y = area.y1 + 1; y < area.y2; ++y)
        ASSERT_EQ(picture.at(area.x1, y), canvas->axis_color) << y;
}

TEST(BasicPlotter, TheMouseMachine) {
    // + arms, e is Esc, l and r press a button, L and R release it, m moves, d is a dialog that
    // takes the release for itself; below, the modes after.
    const struct {
        const char *steps, *modes;
        int renders;
    } journeys[] = {
        {"lmL", "000", 0},       {"++e", "110", 0},     {"+ml+rRmL", "11222220", 1},
        {"+rR", "111", 0},       {"+lL", "120", 0},     {"+lmemL", "122000", 0},
        {"r+lLmR", "333330", 0}, {"+lmdm", "12220", 0}, {"+lmdlmL", "1222000", 0},
        {"rdm", "330", 0},       {"rdlL", "3300", 0},   {"rdrR", "3330", 0},
    };
    shown<plot> canvas(400, 300);
    for (const auto& journey : journeys) {
        canvas->cancel_mode();
        const int before = canvas->renders;
        int x = 100, y = 90;
        const std::map<char, std::function<void()>> actions{
            {'+', [&] { type_keys(canvas.canvas, "+"); }},
            {'e', [&] { send_key(canvas.canvas, KEY_Escape); }},
            {'l', [&] { EXPECT_EQ(send_mouse(canvas.canvas, SEL_LEFTBUTTONPRESS, x, y), 0); }},
            {'L', [&] { EXPECT_EQ(send_mouse(canvas.canvas, SEL_LEFTBUTTONRELEASE, x, y), 0); }},
            {'r', [&] { send_mouse(canvas.canvas, SEL_RIGHTBUTTONPRESS, x, y); }},
            {'R', [&] { send_mouse(canvas.canvas, SEL_RIGHTBUTTONRELEASE, x, y); }},
            {'m', [&] { send_mouse(canvas.canvas, SEL_MOTION, x += 40, y += 30); }},
            {'d', [] { buttons_down = 0; }}};
        for (int i = 0; journey.steps[i]; ++i) {
            SCOPED_TRACE(std::string(journey.steps, i + 1));
            EXPECT_EQ(canvas->renders, before);
            actions.at(journey.steps[i])();
            EXPECT_EQ(canvas->mode, journey.modes[i] - '0');
            const bool zoom = canvas->mode == 1 || canvas->mode == 2;
            EXPECT_EQ(canvas->getDefaultCursor(),
                      zoom ? canvas->zoom_cursor : canvas->normal_cursor);
        }
        EXPECT_EQ(canvas->renders, before + journey.renders) << journey.steps;
    }
}

// Drags a rubber band by real messages.
void drag_band(plot& canvas, int ax, int ay, int ex, int ey) {
    type_keys(&canvas, "+");
    send_mouse(&canvas, SEL_LEFTBUTTONPRESS, ax, ay);
    send_mouse(&canvas, SEL_MOTION, (ax + ex) / 2, (ay + ey) / 2);
    send_mouse(&canvas, SEL_MOTION, ex, ey);
    send_mouse(&canvas, SEL_LEFTBUTTONRELEASE, ex, ey);
}

TEST(BasicPlotter, ABandLeavesNoTrace) {
    shown<plot> canvas(400, 300);
    const pixels before(canvas->image);
    for (const auto& [x, y] : {std::pair{100, 100}, {180, 100}, {100, 160}}) { // without area
        drag_band(*canvas, 100, 100, x, y);
        EXPECT_TRUE(screen_of(canvas.canvas) == before);
    }
    EXPECT_EQ(canvas->renders, 1);
    type_keys(canvas.canvas, "+");
    send_mouse(canvas.canvas, SEL_LEFTBUTTONPRESS, 100, 50);
    send_mouse(canvas.canvas, SEL_MOTION, 150, 90);
    send_mouse(canvas.canvas, SEL_MOTION, 200, 120);
    const pixels during = screen_of(canvas.canvas);
    EXPECT_EQ(during.at(150, 50), 0xffff0000u);   // yellow on white
    EXPECT_EQ(during.at(150, 121), 0xffff0000u);  // three pixels wide
    EXPECT_EQ(during.at(150, 90), white);         // the first band is gone
    EXPECT_TRUE(pixels(canvas->image) == before); // it is on the window only
    send_key(canvas.canvas, KEY_Escape);
    pump();
    EXPECT_TRUE(screen_of(canvas.canvas) == before);
}

TEST(BasicPlotter, APointerOutsideTheWindowCountsAsOnItsEdge) {
    shown<plot> canvas(400, 300);
    drag_band(*canvas, 200, 100, -1, -32768);
    EXPECT_TRUE(canvas->mode == 0 && canvas->renders == 2);
    EXPECT_TRUE(canvas->drag_end->x == 0 && canvas->drag_end->y == 0);
    drag_band(*canvas, 200, 100, 32767, 32767);
    EXPECT_TRUE(canvas->drag_end->x == 399 && canvas->drag_end->y == 299);
}

TEST(BasicPlotter, ThePositionBarKeepsAwayFromThePointer) {
    shown<plot> canvas(400, 301);
    const pixels before(canvas->image);
    for (const auto& [y, bar_y] : {std::pair{10, 265}, {150, 265}, {151, 0}, {290, 0}}) {
        send_mouse(canvas.canvas, SEL_RIGHTBUTTONPRESS, 50, y);
        EXPECT_EQ(canvas->bar_y, bar_y) << y;
        send_mouse(canvas.canvas, SEL_MOTION, 60, 20); // the bar does not follow
        const pixels bar = screen_of(canvas.canvas);
        EXPECT_TRUE(bar.at(399, bar_y) == black && bar.at(0, bar_y + 35) == black);
        EXPECT_EQ(bar.box_of(white, 0, bar_y, 399, bar_y + 35),
                  (ink_box{21, bar_y + 12, 259, bar_y + 23}))
            << "the text";
        EXPECT_NE(bar.at(399, bar_y == 0 ? 36 : 264), black);
        if (bar_y == 0) send_key(canvas.canvas, KEY_Escape); // takes it away as the release does
        send_mouse(canvas.canvas, SEL_RIGHTBUTTONRELEASE, 60, 20);
        pump();
        EXPECT_TRUE(screen_of(canvas.canvas) == before);
    }
    EXPECT_EQ(canvas->renders, 1);
    kit::wstring text;
    FXEvent event = mouse_event(canvas.canvas, 215, 0); // of 369 pixels
    canvas->position_text(text, &event);
    EXPECT_EQ(std::wstring(text), L" 0.5013550136                 1");
}

TEST(BasicPlotter, LimitRectKeepsTheSizeWhereItFits) {
    const TRect limit(0, -1, 1, 1);
    const std::pair<TRect, corners> cases[] = {
        {{0.2, -0.5, 0.4, 0.5}, {0.2, -0.5, 0.4, 0.5}},
        {{-0.5, 0.25, 0.25, 1.75}, {0, -0.5, 0.75, 1}},
        {{0.75, -3, 1.25, -2}, {0.5, -1, 1, 0}},
        {{-5, -5, 5, 5}, {0, -1, 1, 1}},
        {{0.3, -0.5, 0.3, 4}, {0.3, -1, 0.3, 1}},
    };
    for (const auto& [given, wanted] : cases) {
        TRect rect = given;
        basic_plotter::limit_rect(rect, limit);
        EXPECT_EQ(corners_of(rect), wanted);
    }
}

TEST(BasicPlotter, DeepZoomEndsWhereZoomingOutStillWorks) {
    shown<plot> canvas(120, 90);
    canvas->limited = true;
    for (const auto& [x, y] : {std::pair{0.5, 0.0}, {0.3, 0.7}, {1e-9, -0.999999}}) {
        canvas->view().set_mid(x, y, 1e-9, 1e-9);
        for (int i = 0; i < 300; ++i)
            type_keys(canvas.canvas, "*");
        for (int key : {KEY_Left, KEY_Up, KEY_Right, KEY_Right, KEY_Down, KEY_Down})
            canvas->on_key(key);
        type_keys(canvas.canvas, "gixyXY");
        const TRect& view = canvas->view();
        EXPECT_TRUE(view.x1 < view.x2 && view.y1 < view.y2 && view.width() < 1e-12);
        EXPECT_TRUE(std::isfinite(canvas->w2s->ax) && std::isfinite(canvas->w2s->by));
        for (int i = 0; i < 300; ++i)
            type_keys(canvas.canvas, "-");
        EXPECT_EQ(corners_of(canvas->view()), corners_of(canvas->limit)) << "zoomed out";
    }
    // At the deepest zoom what goes deeper keeps the view and the picture.
    canvas->view().set_mid(0.5, 0.5, 1.2 * 0x1p-49, 1.2 * 0x1p-49);
    canvas->redraw();
    const corners deepest = corners_of(canvas->view());
    const int renders = canvas->renders;
    type_keys(canvas.canvas, "*xy");
    drag_band(*canvas, 50, 30, 51, 31);
    EXPECT_EQ(corners_of(canvas->view()), deepest);
    EXPECT_EQ(canvas->renders, renders);
}

TEST(BasicPlotter, AnIsometricViewThatIsRefusedKeepsTheScale) {
    shown<plot> canvas(400, 300);
    canvas->view().set(-1, -9e298, 1, 9e298); // as wide as this is high, it would be too wide
    canvas->redraw();
    const double scale = canvas->w2s->ax;
    const int renders = canvas->renders;
    type_keys(canvas.canvas, "i");
    EXPECT_TRUE(canvas->renders == renders && canvas->w2s->ax == scale);
}

// Types a range into the fields of one page of the dialog and ends it; a box tells a refusal.
using range = std::array<const char*, 4>;

void enter_range(plot& canvas, int page, const range& texts, bool refused = false) {
    const auto enter = [&](FXTopWindow* dialog) {
        EXPECT_STREQ(dialog->getTitle().text(), "Change Position");
        all_of<FXTabBook>(dialog).at(0)->setCurrent(page);
        const auto fields = all_of<FXTextField>(dialog);
        for (int i = 0; i < 4; ++i)
            type_into(fields.at(4 * page + i), texts[i]);
        close_dialog(dialog, true);
    };
    std::vector<dialog_driver::script> dialogs{enter};
    if (refused) dialogs.push_back(message_box("Error", "Parameters Wrong"));
    const int renders = canvas.renders;
    with_dialogs([&] { type_keys(&canvas, "p"); }, dialogs);
    EXPECT_EQ(canvas.renders, refused ? renders : renders + 1) << texts[0];
}

TEST(BasicPlotter, TheRangeIsTypedByCornersOrByCenterAndSize) {
    const TRect start(0.25, -0.5, 0.5, 0.5);
    const struct {
        int page;
        range texts;
        TRect view;
    } cases[] = {
        {0, {"0.1", "-0.2", "0.3", "0.4"}, {0.1, -0.2, 0.3, 0.4}},
        {0, {"0.3", "0.4", "0.1", "-0.2"}, {0.1, -0.2, 0.3, 0.4}}, // reversed
        {0, {"-1e-3", "-0.2", "0.3", "0.4"}, {-0.001, -0.2, 0.3, 0.4}},
        {0, {"0.1", "-0.2", "0.1", "0.4"}, start}, // a range without extent is dropped
        {0, {"nan", "-0.2", "0.3", "0.4"}, start},
        {0, {"0.1", "1e999", "0.3", "0.4"}, start},
        {0, {"0.1", "-1e308", "0.3", "1e308"}, start},
        {1, {"0.5", "0", "-0.25", "0.5"}, {0.375, -0.25, 0.625, 0.25}},
        {1, {"0.5", "0", "0", "0.5"}, start},
        {1, {"inf", "0", "1", "nan"}, start},
    };
    shown<plot> canvas(400, 300);
    for (const auto& c : cases) {
        canvas->view() = start;
        enter_range(*canvas, c.page, c.texts, corners_of(c.view) == corners_of(start));
        expect_view(*canvas, c.view, c.texts[0]);
    }
}

// So far out the doubles are further apart than the limit is wide.
TEST(BasicPlotter, ATypedRangeFarOutsideTheLimitLeavesAViewThatMoves) {
    shown<plot> canvas(400, 300);
    canvas->limited = true;
    for (const auto& [low, high] :
         {std::pair{"1e16", "1e17"}, {"1e17", "1e18"}, {"-1e17", "1e17"}, {"1e200", "1e201"}}) {
        canvas->view() = {0.25, -0.5, 0.5, 0.5};
        enter_range(*canvas, 0, {low, "-1", high, "1"});
        EXPECT_EQ(corners_of(canvas->view()), corners_of(canvas->limit)) << low;
        type_keys(canvas.canvas, "*");
        EXPECT_NEAR(canvas->view().width(), closer, 1e-12) << low;
    }
}

TEST(BasicPlotter, TheRangeDialogShowsTheViewAndOffersTheHistory) {
    shown<plot> canvas(400, 300);
    enter_range(*canvas, 0, {"0.125", "-0.25", "0.5", "1"});
    const TRect view(0.25, -0.5, 0.5, 1.0 / 3);
    canvas->view() = view;
    with_dialogs([&] { canvas->position_dialog(); }, {[&](FXTopWindow* dialog) {
                     EXPECT_EQ(texts_of<FXTextField>(dialog),
                               (std::vector<std::string>{"0.25", "-0.5", "0.5", "0.333333333333333",
                                                         "0.375", "-0.0833333333333333", "0.25",
                                                         "0.833333333333333"}));
                     EXPECT_STREQ(all_of<FXComboBox>(dialog).at(0)->getItemText(0).text(), "0.125");
                     type_into(all_of<FXTextField>(dialog).at(0), "0.3");
                     close_dialog(dialog, false);
                 }});
    expect_view(*canvas, view, "cancelled");
}

} // namespace
