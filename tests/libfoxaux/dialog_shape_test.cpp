// SPDX-License-Identifier: MIT
// Tests of the dialogs' shape: focus, keys, rows of a table, which page's field comes first.
#include "libfoxaux/fox-utils/dialog_shape.h"

#include "libfoxaux/fox-utils/page_book.h"
#include "tests/libfoxaux/dialogs.h"

using namespace window_test;

namespace {

// An owner on the screen, and a dialog of two rows over it.
struct DialogShape : ::testing::Test {
    DialogShape() : shell(&app(), "owner", nullptr, nullptr, DECOR_ALL, 50, 50, 400, 300) {
        shell.create();
        shell.show();
        pump();
    }

    // Runs the dialog with a script; gives what run() gave.
    bool run(const std::vector<dialog_driver::script>& scripts, bool set_text = true) {
        bool accepted = false;
        with_dialogs(
            [&] {
                dialog_shape dialog(&shell, "Boundary Curve", nullptr);
                const auto fields =
                    dialog.add_rows(dialog.add_matrix(2), {"dialog_shape_test", nullptr},
                                    {{"c", &c, 1, set_text}, {"n", &n, 2, true}});
                dialog.add_buttons();
                accepted = dialog.run();
                if (accepted) dialog_shape::save_histories(fields);
            },
            scripts);
        return accepted;
    }

    FXMainWindow shell;
    double c = 2;
    FXint n = 3;
};

TEST_F(DialogShape, AValueCanBeTypedAtOnce) {
    EXPECT_TRUE(run({[&](FXTopWindow* dialog) {
        const auto fields = all_of<FXTextField>(dialog);
        EXPECT_EQ(focus_of(dialog), fields.at(0));
        EXPECT_EQ(selected_text(fields.at(0)), "2");
        type_keys(dialog, "7");
        EXPECT_STREQ(fields.at(0)->getText().text(), "7");
        send_key(dialog, KEY_Tab);
        EXPECT_EQ(focus_of(dialog), fields.at(1));
        type_keys(dialog, "4\r"); // Enter commits the text and leaves the dialog open
        EXPECT_TRUE(dialog->shown());
        send_key(dialog, KEY_Tab);
        EXPECT_EQ(dynamic_cast<FXButton*>(focus_of(dialog))->getText(), "Accept");
        FXEvent space{};
        space.code = KEY_space;
        for (const FXuint type : {SEL_KEYPRESS, SEL_KEYRELEASE}) // it acts when let go
            send(dialog, type, space);
    }}));
    EXPECT_EQ(c, 7);
    EXPECT_EQ(n, 4);
}

TEST_F(DialogShape, TheTextStaysSelectedWhenTheHistoryIsOnlyOffered) {
    for (const char* text : {"2.5", "0.25"}) {
        c = std::stod(text);
        const auto accept_selected = [&](FXTopWindow* dialog) {
            app().forceRefresh();
            EXPECT_EQ(selected_text(all_of<FXTextField>(dialog).at(0)), text);
            close_dialog(dialog, true);
        };
        EXPECT_TRUE(run({accept_selected}, false));
    }
}

// What is typed is accepted once it is a number. A text that is none stays, whatever it counts as.
TEST_F(DialogShape, ATextThatIsNoNumberIsToldAndSelected) {
    const char* const real = "c: a number is meant, with a decimal point, as in 0.5.\n";
    const char* const whole = "n: a whole number is meant";
    const struct {
        const char *c, *n;
        std::size_t bad; // field
        const char* told;
    } cases[] = {
        {"0,5", "3", 0, real},    {"1/2", "3", 0, real},
        {"", "3", 0, real},       {"abc", "3", 0, real},
        {"0.5.", "3", 0, real},   {"1 000", "3", 0, real},
        {"-", "0,5", 0, real},    {"0.5", "", 1, whole},
        {"0.5", "2.5", 1, whole}, {"0.5", "x", 1, whole},
        {"0.5", "1e3", 1, whole}, {"0.5", "2147483648", 1, "n: a number closer to 0"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(std::string(row.c) + "|" + row.n);
        const auto type_and_click = [&](FXTopWindow* dialog) {
            const auto fields = all_of<FXTextField>(dialog);
            type_into(fields.at(0), row.c);
            type_into(fields.at(1), row.n);
            all_of<FXButton>(dialog).back()->setFocus(); // a click on it would, before it acts
            pump();
            close_dialog(dialog, true);
        };
        const auto type_again = [&](FXTopWindow* dialog) {
            const auto fields = all_of<FXTextField>(dialog);
            const char* const texts[] = {row.c, row.n};
            EXPECT_EQ(focus_of(dialog), fields.at(row.bad));
            EXPECT_EQ(fields.at(row.bad)->getText().text(), std::string(texts[row.bad]));
            EXPECT_EQ(selected_text(fields.at(row.bad)), texts[row.bad]);
            type_into(fields.at(0), " -5e-1 ");
            char end_of_line[] = "\r\n"; // as it comes with what is pasted
            fields.at(0)->handle(fields.at(0), FXSEL(SEL_COMMAND, FXTextField::ID_INSERT_STRING),
                                 end_of_line);
            type_into(fields.at(1), "-2147483648");
            close_dialog(dialog, true);
        };
        EXPECT_TRUE(run({type_and_click, message_box("Error", row.told), type_again}));
        EXPECT_EQ(c, -0.5);
        EXPECT_EQ(n, -2147483647 - 1);
    }
}

// A dialog of two pages with two fields each, one page in front.
struct paged_dialog : dialog_shape {
    paged_dialog(FXWindow* owner, int page)
        : dialog_shape(owner, "Pages", nullptr, DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE, 300,
                       400),
          book(new page_book(frame)) {
        for (const int i : {0, 2})
            add_rows(add_matrix(2, add_page(book, "page")), {"paged_dialog", this},
                     {{"x", &values[i], i, false}, {"y", &values[i + 1], i + 1, false}});
        add_well(add_matrix(2), "Font Color", FXRGB(1, 2, 3));
        add_buttons(true);
        book->setCurrent(page);
    }
    // Which of all fields is the first of the page in front.
    std::size_t first() const { return book->getCurrent() == 0 ? 0 : 2; }

    double values[4] = {1, 2, 3, 4};
    page_book* book;
};

TEST_F(DialogShape, TheFirstFieldIsThatOfThePageInFront) {
    for (const int page : {0, 1}) {
        paged_dialog dialog(&shell, page);
        with_dialogs([&] { EXPECT_FALSE(dialog.run()); }, {[&](FXTopWindow* top) {
                         EXPECT_EQ(focus_of(top), all_of<FXTextField>(top).at(dialog.first()));
                         // The fields fill the fixed width, and nothing is cut off.
                         const FXComboBox* box = all_of<FXComboBox>(top).at(dialog.first());
                         FXint left, upper;
                         box->translateCoordinatesTo(left, upper, top, 0, 0);
                         EXPECT_LE(left + box->getWidth(), 300 - 10);
                         EXPECT_GT(box->getWidth(), 180);
                         EXPECT_GT(all_of<FXColorWell>(top).at(0)->getWidth(), 150);
                         EXPECT_EQ(texts_of<FXButton>(top).back(), "Accept");
                         close_dialog(top, false);
                     }});
    }
}

TEST_F(DialogShape, OnlyThePageInFrontMustHoldNumbers) {
    paged_dialog dialog(&shell, 0);
    const auto accept_after_bad_text = [&](std::size_t field) {
        return [&dialog, field](FXTopWindow* top) {
            type_into(all_of<FXTextField>(top).at(field), "0,5");
            dialog.book->setCurrent(1);
            close_dialog(top, true);
        };
    };
    with_dialogs([&] { EXPECT_TRUE(dialog.run()); },
                 {accept_after_bad_text(2), message_box("Error", "x: "), [](FXTopWindow* top) {
                      type_into(all_of<FXTextField>(top).at(2), "0.5");
                      type_into(all_of<FXTextField>(top).at(0), "0,5");
                      close_dialog(top, true);
                  }});
    EXPECT_EQ(dialog.values[2], 0.5);
}

// The Tab key goes round and round, and back by Shift; only a tab that is clicked turns the page.
TEST_F(DialogShape, TheTabKeyStaysOnThePageThatIsOpen) {
    for (const int page : {0, 1}) {
        paged_dialog dialog(&shell, page);
        with_dialogs(
            [&] { EXPECT_FALSE(dialog.run()); }, {[&](FXTopWindow* top) {
                const auto fields = all_of<FXTextField>(top);
                const auto buttons = all_of<FXButton>(top);
                FXWindow* const circle[] = {
                    fields.at(dialog.first()), fields.at(dialog.first() + 1),
                    all_of<FXColorWell>(top).at(0), buttons.at(buttons.size() - 2), buttons.back()};
                const int length = std::size(circle);
                for (int at = 1; at <= 2 * length; ++at) {
                    const bool back = at > length;
                    FXEvent tab{};
                    tab.code = back && at % 2 ? KEY_ISO_Left_Tab : KEY_Tab;
                    tab.state = back ? SHIFTMASK : 0;
                    send(top, SEL_KEYPRESS, tab);
                    const int wanted = back ? 2 * length - at : at % length;
                    EXPECT_EQ(focus_of(top), circle[wanted]) << "page " << page << " at " << at;
                }
                EXPECT_EQ(dialog.book->getCurrent(), page);
                close_dialog(top, false);
            }});
    }
}

} // namespace
