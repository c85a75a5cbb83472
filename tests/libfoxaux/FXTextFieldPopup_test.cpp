// SPDX-License-Identifier: MIT
// Tests of the entry fields: histories, what a target hears while a person types, the menu.
#include "libfoxaux/fox-utils/FXTextFieldPopup.h"

#include "tests/libfoxaux/window_fixture.h"

using namespace window_test;

namespace {

/// A combo box over a variable, as a dialog builds it, opened and closed again at one site.
template<class T>
struct entry {
    entry(T initial, FXuint options = COMBOBOX_NORMAL)
        : value(initial),
          target(value),
          shell(&app(), "test"),
          box(new FXComboBoxPopup(&shell, 30, &target, FXDataTarget::ID_VALUE, options)) {}

    void open(int line, bool set_text) { box->load_history("entry", line, &app(), set_text); }
    void show() {
        shell.create();
        shell.show();
        pump();
    }
    std::vector<std::string> items() const {
        std::vector<std::string> all;
        all.reserve(static_cast<std::size_t>(box->getNumItems()));
        for (int i = 0; i < box->getNumItems(); ++i)
            all.push_back(box->getItemText(i).text());
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
        c.open(1, true);
        EXPECT_STREQ(c.box->getText().text(), "5");
        EXPECT_EQ(c.items(), texts{"5"});
        c.show();
        type_into(c.box->text_field(), "7");
        c.box->save_history();
    }
    { // then the last accepted one, in the field and in the variable
        entry<double> c(5.0);
        c.open(1, true);
        EXPECT_STREQ(c.box->getText().text(), "7");
        EXPECT_EQ(c.value, 7);
        EXPECT_EQ(c.items(), (texts{"7", "5"}));
        c.show();
        type_into(c.box->text_field(), "9\r"); // committed, but the dialog is cancelled
        EXPECT_EQ(c.items(), (texts{"9", "7", "5"}));
    }
    {
        entry<double> c(2.5);
        c.open(1, false); // only offered
        EXPECT_EQ(c.items(), (texts{"7", "5"}));
        c.show();
        EXPECT_STREQ(c.box->getText().text(), "2.5");
        EXPECT_EQ(c.value, 2.5);
        type_into(c.box->text_field(), "7");
        c.box->save_history(); // the newest again: nothing is added
        type_into(c.box->text_field(), "5");
        c.box->save_history(); // stands further down: added again
    }
    entry<double> c(1);
    c.open(1, true);
    EXPECT_EQ(c.items(), (texts{"5", "7", "5"}));
}

TEST(FXComboBoxPopup, ATargetIsOptional) {
    FXMainWindow shell(&app(), "test");
    FXString text;
    for (const int items : {1, 2}) { // at first the empty text alone
        auto* box = new FXComboBoxPopup(&shell, 30);
        box->load_history_key("no target", nullptr, true);
        EXPECT_EQ(box->getNumItems(), items);
        if (items == 1) box->setText("a");
        box->save_history();
        text = box->getText();
    }
    EXPECT_STREQ(text.text(), "a");
}

TEST(FXComboBoxPopup, TheVariableFollowsTheTyping) {
    const struct {
        const char* typed;
        double value;
        const char* text;
    } cases[] = {
        {"0.5", 0.5, "0.5"}, {"-1e-3", -0.001, "-1e-3"},   {"5.", 5, "5."},
        {"5.\r", 5, "5"},    {"1.50\r", 1.5, "1.5"},       {"abc", 0, "abc"},
        {"", 0, ""},         {"1e999\r", HUGE_VAL, "inf"},
    };
    for (const auto& c : cases) {
        entry<double> field(3);
        field.show();
        type_into(field.box->text_field(), c.typed);
        pump();
        EXPECT_EQ(field.value, c.value) << c.typed;
        EXPECT_STREQ(field.box->getText().text(), c.text);
    }
    entry<FXint> number(3);
    number.show();
    type_into(number.box->text_field(), "-12x");
    EXPECT_EQ(number.value, -12);
    entry<FXString> formula("5+sin(t)");
    formula.show();
    EXPECT_STREQ(formula.box->getText().text(), "5+sin(t)");
    type_into(formula.box->text_field(), "t^2");
    EXPECT_EQ(formula.value, "t^2");
    // Real numbers show fifteen digits.
    for (const auto& [value, text] : {std::pair{-2e-7 / 3, "-6.66666666666667e-08"},
                                      {1e15, "1e+15"},
                                      {123456789.125, "123456789.125"}}) {
        entry<double> field(value);
        field.show();
        EXPECT_STREQ(field.box->getText().text(), text);
    }
    entry<double> closed(1, COMBOBOX_STATIC);
    EXPECT_FALSE(closed.box->text_field()->isEditable());
}

TEST(FXComboBoxPopup, WrongOrderEndsTheProcess) {
    entry<double> field(1);
    EXPECT_DEATH(field.box->save_history(), "::save_history\\(\\).*history!=0");
    field.open(99, true);
    EXPECT_DEATH(field.open(99, true), "::load_history\\(.*history==0");
    EXPECT_DEATH(field.box->load_history_key("k", nullptr, true), "load_history_key.*history==0");
}

TEST(FXTextFieldPopup, TheRightButtonOpensAMenuThatActsOnTheField) {
    FXMainWindow shell(&app(), "test", nullptr, nullptr, DECOR_ALL, 20, 20, 300, 60);
    auto* field = new FXTextFieldPopup(&shell, 20);
    shell.create();
    shell.show();
    field->setText("orbit");
    field->setFocus();
    pump();

    std::vector<std::string> commands;
    for (FXMenuCommand* command : all_of<FXMenuCommand>(field->popup))
        commands.push_back((command->getText() + " " + command->getAccelText()).text());
    EXPECT_EQ(commands, (texts{"Cut Ctl-x", "Copy Ctl-c", "Paste Ctl-v", "Select All Ctl-a"}));

    menu_closer closer(field->popup, [&] {
        field->handle(field, FXSEL(SEL_COMMAND, FXTextField::ID_SELECT_ALL), nullptr);
    });
    EXPECT_EQ(send_mouse(field, SEL_RIGHTBUTTONPRESS, 10, 5), 1);
    EXPECT_TRUE(closer.was_shown);
    EXPECT_EQ(selected_text(field), "orbit");

    FXEvent dragged = mouse_event(field, 10, 5);
    dragged.moved = true;
    EXPECT_EQ(field->handle(nullptr, FXSEL(SEL_RIGHTBUTTONPRESS, 0), &dragged), 1);
    EXPECT_FALSE(field->popup->shown());
}

} // namespace
