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
    auto* first = new FXComboBoxPopup(&shell, 30);
    first->load_history_key("no target", nullptr, true);
    EXPECT_EQ(first->getNumItems(), 1); // the empty text
    first->setText("a");
    first->save_history();
    auto* second = new FXComboBoxPopup(&shell, 30);
    second->load_history_key("no target", nullptr, true);
    EXPECT_STREQ(second->getText().text(), "a");
    EXPECT_EQ(second->getNumItems(), 2);
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
}

TEST(FXComboBoxPopup, RealNumbersShowFifteenDigits) {
    const struct {
        double value;
        const char* text;
    } cases[] = {{0.1, "0.1"},
                 {1.0 / 3, "0.333333333333333"},
                 {-2e-7 / 3, "-6.66666666666667e-08"},
                 {1e15, "1e+15"},
                 {123456789.125, "123456789.125"}};
    for (const auto& c : cases) {
        entry<double> field(c.value);
        field.show();
        EXPECT_STREQ(field.box->getText().text(), c.text);
    }
}

TEST(FXComboBoxPopup, AStaticOneIsNotEditable) {
    entry<double> field(1, COMBOBOX_STATIC);
    EXPECT_FALSE(field.box->text_field()->isEditable());
    EXPECT_TRUE(entry<double>(1).box->text_field()->isEditable());
    EXPECT_EQ(field.box->getNumVisible(), 10);
    EXPECT_TRUE(field.box->getComboStyle() & COMBOBOX_INSERT_FIRST);
}

TEST(FXComboBoxPopup, WrongOrderEndsTheProcess) {
    entry<double> field(1);
    EXPECT_DEATH(field.box->save_history(), "void FXComboBoxPopup::save_history\\(\\).*history!=0");
    field.open(99, true);
    EXPECT_DEATH(
        field.open(99, true),
        "void FXComboBoxPopup::load_history\\(const char\\*, int, void\\*, bool\\).*history==0");
    EXPECT_DEATH(
        field.box->load_history_key("k", nullptr, true),
        "void FXComboBoxPopup::load_history_key\\(const char\\*, void\\*, bool\\).*history==0");
}

TEST(FXTextFieldPopup, TheRightButtonOpensAMenuThatActsOnTheField) {
    FXMainWindow shell(&app(), "test", nullptr, nullptr, DECOR_ALL, 20, 20, 300, 60);
    auto* field = new FXTextFieldPopup(&shell, 20);
    shell.create();
    shell.show();
    field->setText("orbit");
    field->setFocus();
    pump();

    const auto commands = all_of<FXMenuCommand>(field->popup);
    const struct {
        const char *text, *accelerator;
    } labels[] = {{"Cut", "Ctl-x"}, {"Copy", "Ctl-c"}, {"Paste", "Ctl-v"}, {"Select All", "Ctl-a"}};
    ASSERT_EQ(commands.size(), 4u);
    for (int i = 0; i < 4; ++i) {
        EXPECT_STREQ(commands[i]->getText().text(), labels[i].text);
        EXPECT_STREQ(commands[i]->getAccelText().text(), labels[i].accelerator);
    }

    // The menu is modal; a timer looks at it, chooses "Select All" and closes it.
    struct closer : FXObject {
        long handle(FXObject*, FXSelector, void*) override {
            was_shown = field->popup->shown();
            field->handle(field, FXSEL(SEL_COMMAND, FXTextField::ID_SELECT_ALL), nullptr);
            field->popup->popdown();
            return 1;
        }
        FXTextFieldPopup* field = nullptr;
        bool was_shown = false;
    } timer;
    timer.field = field;
    app().addTimeout(&timer, 1, 20);
    EXPECT_EQ(send_mouse(field, SEL_RIGHTBUTTONPRESS, 10, 5), 1);
    EXPECT_TRUE(timer.was_shown);
    EXPECT_EQ(selected_text(field), "orbit");

    FXEvent dragged = mouse_event(field, 10, 5);
    dragged.moved = true;
    EXPECT_EQ(field->handle(nullptr, FXSEL(SEL_RIGHTBUTTONPRESS, 0), &dragged), 1);
    EXPECT_FALSE(field->popup->shown());
}

} // namespace
