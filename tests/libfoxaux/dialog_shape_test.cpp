// SPDX-License-Identifier: MIT
// Tests of the dialogs' shape: focus, keys, rows of a table, which page's field comes first.
#include "libfoxaux/fox-utils/dialog_shape.h"

#include "libfoxaux/fox-utils/page_book.h"
#include "tests/libfoxaux/window_fixture.h"

using namespace window_test;

namespace {

/// An owner on the screen, and a dialog of two rows over it.
struct dialog_shape_test : ::testing::Test {
    dialog_shape_test() : shell(&app(), "owner", nullptr, nullptr, DECOR_ALL, 50, 50, 400, 300) {
        shell.create();
        shell.show();
        pump();
    }

    /// Runs the dialog with a script; gives what run() gave.
    bool run(const dialog_driver::script& script) {
        bool accepted = false;
        with_dialogs(
            [&] {
                dialog_shape dialog(&shell, "Boundary Curve", nullptr);
                const auto fields =
                    dialog.add_rows(dialog.add_matrix(2), {"dialog_shape_test", this},
                                    {{"c", &c, 1, true}, {"n", &n, 2, true}});
                dialog.add_buttons();
                accepted = dialog.run();
                if (accepted) dialog_shape::save_histories(fields);
            },
            {script});
        return accepted;
    }

    FXMainWindow shell;
    double c = 2;
    FXint n = 3;
};

TEST_F(dialog_shape_test, AValueCanBeTypedAtOnce) {
    EXPECT_TRUE(run([&](FXTopWindow* dialog) {
        const auto fields = all_of<FXTextField>(dialog);
        EXPECT_EQ(focus_of(dialog), fields.at(0));
        EXPECT_EQ(selected_text(fields.at(0)), "2");
        send_key(dialog, KEY_7, "7");
        EXPECT_STREQ(fields.at(0)->getText().text(), "7");
        send_key(dialog, KEY_Tab);
        EXPECT_EQ(focus_of(dialog), fields.at(1));
        send_key(dialog, KEY_4, "4");
        send_key(dialog, KEY_Return); // commits the text and leaves the dialog open
        EXPECT_TRUE(dialog->shown());
        const auto buttons = all_of<FXButton>(dialog);
        send_key(dialog, KEY_Tab);
        EXPECT_EQ(dynamic_cast<FXButton*>(focus_of(dialog))->getText(), "Accept");
        FXEvent space{};
        space.code = KEY_space;
        send(dialog, SEL_KEYPRESS, space);
        send(dialog, SEL_KEYRELEASE, space);
    }));
    EXPECT_EQ(c, 7);
    EXPECT_EQ(n, 4);
}

TEST_F(dialog_shape_test, EscapeCancelsAndTheHistoryStays) {
    EXPECT_TRUE(run([](FXTopWindow* dialog) { close_dialog(dialog, true); }));
    EXPECT_FALSE(run([](FXTopWindow* dialog) {
        send_key(dialog, KEY_9, "9");
        send_key(dialog, KEY_Escape);
    }));
    EXPECT_FALSE(run([](FXTopWindow* dialog) {
        EXPECT_EQ(all_of<FXComboBox>(dialog).at(0)->getNumItems(), 1);
        EXPECT_STREQ(all_of<FXComboBox>(dialog).at(0)->getText().text(), "2");
        dialog->handle(dialog, FXSEL(SEL_CLOSE, 0), nullptr); // the window's close button
    }));
}

TEST_F(dialog_shape_test, TheTextStaysSelectedWhenTheHistoryIsOnlyOffered) {
    for (double value : {2.5, 0.25}) {
        with_dialogs(
            [&] {
                dialog_shape dialog(&shell, "Offered", nullptr);
                const auto fields =
                    dialog.add_rows(dialog.add_matrix(2), {"dialog_shape_test", nullptr},
                                    {{"c", &value, 3, false}});
                dialog.add_buttons();
                ASSERT_TRUE(dialog.run());
                dialog_shape::save_histories(fields);
            },
            {[&](FXTopWindow* dialog) {
                app().forceRefresh();
                const FXTextField* field = all_of<FXTextField>(dialog).at(0);
                EXPECT_EQ(selected_text(field), value == 2.5 ? "2.5" : "0.25");
                close_dialog(dialog, true);
            }});
    }
}

TEST_F(dialog_shape_test, TheFirstFieldIsThatOfThePageInFront) {
    double x = 1, y = 2;
    for (int page : {0, 1}) {
        dialog_shape dialog(&shell, "Pages", nullptr, DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE,
                            300, 300);
        auto* book = new page_book(dialog.frame);
        dialog.add_row(dialog.add_matrix(2, dialog_shape::add_page(book, "one")),
                       {"dialog_shape_test", nullptr}, {"x", &x, 10 + page, false});
        dialog.add_row(dialog.add_matrix(2, dialog_shape::add_page(book, "two")),
                       {"dialog_shape_test", nullptr}, {"y", &y, 20 + page, false});
        dialog_shape::add_well(dialog.add_matrix(2), "Font Color", FXRGB(1, 2, 3));
        dialog.add_button_row(true);
        book->setCurrent(page);
        with_dialogs([&] { EXPECT_FALSE(dialog.run()); }, {[&](FXTopWindow* top) {
                         const auto fields = all_of<FXTextField>(top);
                         EXPECT_EQ(focus_of(top), fields.at(page));
                         // The fields fill the fixed width, and nothing is cut off.
                         const auto boxes = all_of<FXComboBox>(top);
                         FXint left, upper;
                         boxes.at(page)->translateCoordinatesTo(left, upper, top, 0, 0);
                         EXPECT_LE(left + boxes.at(page)->getWidth(), 300 - 10);
                         EXPECT_GT(boxes.at(page)->getWidth(), 180);
                         EXPECT_GT(all_of<FXColorWell>(top).at(0)->getWidth(), 150);
                         EXPECT_EQ(texts_of<FXButton>(top).back(), "Accept");
                         close_dialog(top, false);
                     }});
    }
}

// The Tab key goes round and round, and back by Shift; only a tab that is clicked turns the page.
TEST_F(dialog_shape_test, TheTabKeyStaysOnThePageThatIsOpen) {
    double values[4] = {1, 2, 3, 4};
    for (int page : {0, 1}) {
        dialog_shape dialog(&shell, "Pages", nullptr);
        auto* book = new page_book(dialog.frame);
        for (int i : {0, 2}) {
            dialog.add_rows(
                dialog.add_matrix(2, dialog_shape::add_page(book, "page")),
                {"dialog_shape_test", nullptr},
                {{"x", &values[i], 30 + i, false}, {"y", &values[i + 1], 31 + i, false}});
        }
        dialog.add_buttons();
        book->setCurrent(page);
        with_dialogs(
            [&] { EXPECT_FALSE(dialog.run()); }, {[&](FXTopWindow* top) {
                const auto fields = all_of<FXTextField>(top);
                const auto buttons = all_of<FXButton>(top);
                const std::size_t first = page == 0 ? 0 : 2;
                FXWindow* const circle[] = {fields.at(first), fields.at(first + 1),
                                            buttons.at(buttons.size() - 2), buttons.back()};
                int at = 0;
                const auto step = [&](int by, FXint key, FXuint state) {
                    FXEvent event{};
                    event.code = key;
                    event.state = state;
                    do
                        send(top, SEL_KEYPRESS, event);
                    while (dynamic_cast<FXMenuButton*>(focus_of(top))); // the arrow of a list
                    at = (at + by + 4) % 4;
                    EXPECT_EQ(focus_of(top), circle[at]) << "page " << page << " at " << at;
                };
                for (int i = 0; i < 9; ++i)
                    step(1, KEY_Tab, 0);
                for (int i = 0; i < 9; ++i)
                    step(-1, i % 2 ? KEY_ISO_Left_Tab : KEY_Tab, SHIFTMASK);
                EXPECT_EQ(book->getCurrent(), page);
                close_dialog(top, false);
            }});
    }
}

} // namespace
