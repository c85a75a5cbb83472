// SPDX-License-Identifier: MIT
// Tests of the entry fields: histories, what a target hears while a person types, the menu.
#include "libfoxaux/fox-utils/FXTextFieldPopup.h"

#include "tests/libfoxaux/dialogs.h"

using namespace window_test;

namespace {

// A combo box over a variable, as a dialog builds it, shown.
template<class T>
struct entry {
    explicit entry(T initial)
        : value(initial),
          target(value),
          shell(&app(), "test"),
          box(new FXComboBoxPopup(&shell, 30, &target, FXDataTarget::ID_VALUE)) {
        shell.create();
        shell.show();
        pump();
    }

    // Offers the history that all entries of this test share.
    void open(bool set_text) { box->load_history("entry", 1, &app(), set_text); }
    void type(const char* text) { type_into(box->text_field(), text); }
    std::string text() const { return box->getText().text(); }
    std::vector<std::string> items() const {
        std::vector<std::string> all;
        all.reserve(static_cast<std::size_t>(box->getNumItems()));
        for (int i = 0; i < box->getNumItems(); ++i)
            all.emplace_back(box->getItemText(i).text());
        return all;
    }

    T value;
    FXDataTarget target;
    FXMainWindow shell;
    FXComboBoxPopup* box;
};

using texts = std::vector<std::string>;

TEST(FXComboBoxPopup, ADialogOffersWhatWasAcceptedBefore) {
    { // first use: the variable's value is shown and is the only item
        entry<double> c(5.0);
        c.open(true);
        EXPECT_EQ(c.text(), "5");
        EXPECT_EQ(c.items(), texts{"5"});
        c.type("7");
        c.box->save_history();
    }
    { // then the last accepted one, in the field and in the variable
        entry<double> c(5.0);
        c.open(true);
        EXPECT_EQ(c.text(), "7");
        EXPECT_EQ(c.value, 7);
        EXPECT_EQ(c.items(), (texts{"7", "5"}));
        c.type("9\r"); // committed, but the dialog is cancelled
        EXPECT_EQ(c.items(), (texts{"9", "7", "5"}));
    }
    {
        entry<double> c(2.5);
        c.open(false); // only offered
        pump();
        EXPECT_EQ(c.text(), "2.5");
        EXPECT_EQ(c.value, 2.5);
        c.type("7");
        c.box->save_history(); // the newest again: nothing is added
        c.type("5");
        c.box->save_history(); // stands further down: added again
    }
    entry<double> c(1);
    c.open(true);
    EXPECT_EQ(c.items(), (texts{"5", "7", "5"}));
}

// A text half typed stays as it is; one that is committed becomes the number's.
TEST(FXComboBoxPopup, TheVariableFollowsTheTyping) {
    const struct {
        const char* typed;
        double value;
        const char* text;
    } cases[] = {{"-1e-3", -0.001, "-1e-3"}, {"5.", 5, "5."},   {"5.\r", 5, "5"},
                 {"1.50\r", 1.5, "1.5"},     {"abc", 0, "abc"}, {"", 0, ""}};
    for (const auto& c : cases) {
        entry<double> field(3);
        field.type(c.typed);
        pump();
        EXPECT_EQ(field.value, c.value) << c.typed;
        EXPECT_EQ(field.text(), c.text);
    }
    EXPECT_EQ(entry<double>(-2e-7 / 3).text(), "-6.66666666666667e-08") << "fifteen digits";
}

TEST(FXTextFieldPopup, TheRightButtonOpensAMenuThatActsOnTheField) {
    entry<FXString> entered("orbit");
    auto* field = dynamic_cast<FXTextFieldPopup*>(entered.box->text_field());
    ASSERT_TRUE(field);
    field->setFocus();

    texts commands;
    for (FXMenuCommand* command : all_of<FXMenuCommand>(field->popup))
        commands.emplace_back((command->getText() + " " + command->getAccelText()).text());
    EXPECT_EQ(commands, (texts{"Cut Ctl-x", "Copy Ctl-c", "Paste Ctl-v", "Select All Ctl-a"}));

    menu_closer closer(field->popup, [&] {
        field->handle(field, FXSEL(SEL_COMMAND, FXTextField::ID_SELECT_ALL), nullptr);
    });
    EXPECT_EQ(send_mouse(field, SEL_RIGHTBUTTONPRESS, 10, 5), 1);
    EXPECT_TRUE(closer.was_shown);
    EXPECT_EQ(selected_text(field), "orbit");

    const menu_closer not_needed(field->popup);
    FXEvent dragged = mouse_event(field, 10, 5);
    dragged.moved = true;
    EXPECT_EQ(send(field, SEL_RIGHTBUTTONPRESS, dragged), 1);
    EXPECT_FALSE(not_needed.was_shown);
}

} // namespace
