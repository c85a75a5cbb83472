// SPDX-License-Identifier: MIT
// The dialogs of the curves and of the current position: what they offer, take, refuse and keep.
#include "tests/billiard/fox/main_window.h"

#include "billiard/fox/curve_table.h"
#include "libfoxaux/fox-utils/history_manager.h"

#include <numbers>

using namespace window_test;

namespace {

class FMainDialogs : public ::testing::Test {
protected:
    // The histories outlive a dialog; a test must not see those of another.
    void SetUp() override {
        reset();
        for (const curve_entry& entry : curve_table())
            for (const curve_parameter& parameter : entry.parameters)
                history(parameter.history_line).clear();
        for (const int line : {49, 58, 73, 82})
            history(line).clear();
    }

    static history_manager::history& history(int line) {
        return history_manager::instance()->lookup("billiard/fox/FMain_dialogs", line, &window());
    }
};

std::string family() {
    return map().F->instanceText().c_str();
}

std::vector<FXTextField*> fields_of(FXTopWindow* dialog) {
    return all_of<FXTextField>(dialog);
}

// Types the texts into the fields, an empty one leaves its field alone, and accepts the dialog.
dialog_driver::script fill_in(const std::vector<std::string>& texts) {
    return [=](FXTopWindow* dialog) {
        const auto fields = fields_of(dialog);
        ASSERT_GE(fields.size(), texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i)
            if (!texts[i].empty()) type_into(fields[i], texts[i].c_str());
        close_dialog(dialog, true);
    };
}

// The same with the second tab of the position in front, that of the angles.
dialog_driver::script fill_in_angles(const std::vector<std::string>& texts) {
    return [=](FXTopWindow* dialog) {
        all_of<FXTabBook>(dialog).front()->setCurrent(1);
        fill_in(texts)(dialog);
    };
}

void choose(FXuint id, const std::vector<dialog_driver::script>& scripts) {
    with_dialogs([id] { command(id); }, scripts);
}

// One point of the section is plotted, in red.
void expect_only_point(double S, double P) {
    const FXPoint at = pixel_of(S, P);
    const pixels picture(poincare().image);
    EXPECT_EQ(picture.at(at.x, at.y), red);
    EXPECT_EQ(picture.count(red), 1);
}

// No widget is cut off, nor the text of a label.
void expect_inside(FXWindow* top, FXWindow* part) {
    for (FXWindow* child = part->getFirst(); child; child = child->getNext()) {
        if (!child->shown()) continue;
        FXint x, y;
        child->translateCoordinatesTo(x, y, top, 0, 0);
        EXPECT_LE(x + child->getWidth(), top->getWidth()) << child->getClassName();
        EXPECT_LE(y + child->getHeight(), top->getHeight()) << child->getClassName();
        if (auto* label = dynamic_cast<FXLabel*>(child)) {
            EXPECT_LE(label->getDefaultWidth(), label->getWidth()) << label->getText().text();
            EXPECT_LE(label->getDefaultHeight(), label->getHeight()) << label->getText().text();
        }
        expect_inside(top, child);
    }
}

// All fields of a dialog reach from about the same line to the same.
void expect_in_line(FXTopWindow* dialog) {
    FXint first, x, y;
    const auto fields = all_of<FXComboBox>(dialog);
    fields.at(0)->translateCoordinatesTo(first, y, dialog, 0, 0);
    for (const FXComboBox* field : fields) {
        field->translateCoordinatesTo(x, y, dialog, 0, 0);
        EXPECT_NEAR(x, first, 2);
        EXPECT_EQ(x + field->getWidth(), first + fields.at(0)->getWidth());
    }
}

} // namespace

TEST_F(FMainDialogs, UntouchedDialogsGiveTheCurvesOfTheirDefaults) {
    const struct {
        FXuint id;
        const char *heading, *curve;
    } cases[] = {
        {FMain::ID_ELLIPSE, "R(phi)=1/sqrt(1+(e*cos(phi))^2)", "R(phi)=1/sqrt(1+(0.5*cos(phi))^2)"},
        {FMain::ID_OVAL_A, "R(phi)=c+cos(2*phi)", "R(phi)=5+cos(2*phi)"},
        {FMain::ID_OVAL_B, "R(phi)=1+e*cos(phi)", "R(phi)=1+0.3*cos(phi)"},
        {FMain::ID_OVAL_C, "R(phi)=c+cos(n*phi)", "R(phi)=2+cos(3*phi)"},
        {FMain::ID_STADIUM, "Stadium with ratio z", "Stadium with ratio 1"},
        {FMain::ID_TRIANGLE, "Triangle with angles alpha and beta (in degree)",
         "Triangle with angles alpha=60\xB0 and beta=70\xB0"},
        {FMain::ID_USER_FORMULA, "User Defined Formula\n\ndummy variable t\n", "R(t)=5+sin(t)"},
    };
    for (const auto& row : cases) {
        choose(row.id, {[&](FXTopWindow* dialog) {
                   EXPECT_STREQ(dialog->getTitle().text(), "Boundary Curve");
                   EXPECT_EQ(dialog->getIcon(), window().main_icon);
                   EXPECT_EQ(texts_of<FXLabel>(dialog).front().rfind(row.heading, 0), 0u);
                   EXPECT_EQ(focus_of(dialog), fields_of(dialog).front());
                   EXPECT_TRUE(fields_of(dialog).front()->isPosSelected(0)) << row.curve;
                   pump();
                   expect_inside(dialog, dialog);
                   expect_in_line(dialog);
                   close_dialog(dialog, true);
               }});
        EXPECT_EQ(family(), row.curve);
        EXPECT_TRUE(poincare().inFocusChain());
    }
}

TEST_F(FMainDialogs, ALargeFontPushesNothingOutOfTheDialogs) {
    FXFont* usual = app().getNormalFont();
    FXFont large(&app(), "sans", 18);
    large.create();
    app().setNormalFont(&large);
    for (const FXuint id : {FMain::ID_USER_FORMULA, FMain::ID_TRIANGLE, FMain::ID_SHOW_POSITION}) {
        choose(id, {[](FXTopWindow* dialog) {
                   pump();
                   expect_inside(dialog, dialog);
                   close_dialog(dialog, false);
               }});
    }
    app().setNormalFont(usual);
}

TEST_F(FMainDialogs, RefusedOrCancelledNothingChangesAndTheTextIsRemembered) {
    const struct {
        FXuint id;
        int line;
        const char* message;
        std::vector<std::vector<std::string>> typed;
    } cases[] = {
        {FMain::ID_OVAL_A, 147, "parameter wrong", {{"0.5"}, {"1"}, {"nan"}, {"-inf"}}},
        {FMain::ID_OVAL_B, 201, "parameter wrong", {{"1.0"}, {"-1e999"}, {"nan"}}},
        {FMain::ID_OVAL_C, 348, "parameter wrong", {{"1", "2"}}},
        {FMain::ID_TRIANGLE, 469, "Parameters Wrong", {{"100", "90"}, {"nan", "60"}, {"-5", "60"}}},
        {FMain::ID_USER_FORMULA, 411, "column", {{"5+sn(t)"}, {"5+("}, {"5&t"}}},
    };
    poincare().iterate();
    const pixels before(poincare().image), path(plane().image);
    const TRadiusFunction* curve = map().F;
    for (const auto& row : cases) {
        for (const auto& typed : row.typed) {
            SCOPED_TRACE(typed.front());
            choose(row.id, {fill_in(typed), message_box("Error", row.message)});
            choose(row.id, {[](FXTopWindow* dialog) { close_dialog(dialog, false); }});
            EXPECT_EQ(map().F, curve);
            EXPECT_STREQ(history(row.line).front().c_str(), typed.front().c_str());
            EXPECT_TRUE(pixels(poincare().image) == before && pixels(plane().image) == path);
        }
    }
}

TEST_F(FMainDialogs, AnyNumberEndsInACurveOrABoxAndTheProgramGoesOn) {
    const struct {
        const char *real, *whole;
    } numbers[] = {{"nan", "0"},         {"-inf", "-0"},   {"1e999", "2147483647"},
                   {"1e300", "1"},       {"0", "-1"},      {"1e-320", "-2147483648"},
                   {"-2147483648", "2"}, {"-0", "1000000"}};
    for (const curve_entry& entry : curve_table()) {
        if (entry.id == FMain::ID_USER_FORMULA) continue;
        for (const auto& number : numbers) {
            SCOPED_TRACE(std::string(entry.name) + " " + number.real);
            std::vector<std::string> typed;
            for (const curve_parameter& parameter : entry.parameters)
                typed.emplace_back(std::holds_alternative<int>(parameter.first) ? number.whole
                                                                                : number.real);
            // How many boxes come up, a refusal's and that of a failed bounce, is the curve's.
            const auto box = message_box("Error", "");
            dialog_driver driver({fill_in(typed), box, box, box});
            for (const FXuint id :
                 {entry.id, FXuint{FMain::ID_ITERATE}, FXuint{FMain::ID_SHOW_BILLIARD},
                  FXuint{FMain::ID_ITERATE}, FXuint{FMain::ID_SHOW_BILLIARD}})
                command(id);
            EXPECT_GE(driver.next, 1u);
        }
    }
}

TEST_F(FMainDialogs, PositionTabsShowTheOrbitInTheirUnits) {
    map().setPhiAlpha(std::numbers::pi / 4, std::numbers::pi / 3);
    choose(FMain::ID_SHOW_POSITION, {[](FXTopWindow* dialog) {
               EXPECT_STREQ(dialog->getTitle().text(), "Current Position");
               const auto fields = fields_of(dialog);
               ASSERT_EQ(fields.size(), 4u);
               pump();
               EXPECT_NEAR(std::stod(fields[0]->getText().text()), point().first, 1e-14);
               EXPECT_NEAR(std::stod(fields[1]->getText().text()), 0.5, 1e-14);
               EXPECT_STREQ(fields[2]->getText().text(), "45");
               EXPECT_NEAR(std::stod(fields[3]->getText().text()), 60, 1e-12);
               expect_inside(dialog, dialog);
               EXPECT_EQ(texts_of<FXLabel>(dialog).front(), "R(phi)=5+cos(2*phi)");
               type_into(fields[0], "0.1");
               close_dialog(dialog, false);
           }});
    EXPECT_EQ(pixels(poincare().image).count(black), 0) << "cancelled, it starts nothing";
}

TEST_F(FMainDialogs, AcceptedPositionsStartANewOrbit) {
    poincare().foreground = red;
    const auto expect_start = [](double S, double P) {
        EXPECT_NEAR(point().first, S, 1e-9);
        EXPECT_NEAR(point().second, P, 1e-9);
        expect_only_point(point().first, point().second);
    };

    // Unchanged: a start at the same point, and undo comes back to this moment.
    poincare().iterate();
    const pixels orbit(poincare().image);
    choose(FMain::ID_SHOW_POSITION, {fill_in({})});
    poincare().iterate();
    EXPECT_FALSE(pixels(poincare().image) == orbit);
    poincare().undo();
    EXPECT_EQ(pixels(poincare().image), orbit);

    poincare().redraw();
    choose(FMain::ID_SHOW_POSITION, {fill_in({"0.25", "-0.4", "10", "20"})}); // the angles are idle
    expect_start(0.25, -0.4);

    for (const char* phi : {"180", "-180", "1980"}) { // any turns away
        poincare().redraw();
        choose(FMain::ID_SHOW_POSITION, {fill_in_angles({"0.7", "0.7", phi, "45"})});
        expect_start(0.5, std::sqrt(0.5));
    }

    // Angles on the section's edge are stored and plot nothing; the old path ends with them.
    poincare().redraw();
    map().iterate();
    plane().add_bounce();
    EXPECT_GT(pixels(plane().image).count(red), 20);
    choose(FMain::ID_SHOW_POSITION, {fill_in_angles({"", "", "0", "45"})});
    EXPECT_EQ(map().phi, 0);
    EXPECT_NEAR(map().alpha, std::numbers::pi / 4, 1e-15);
    EXPECT_EQ(pixels(poincare().image).count(red), 0);
    EXPECT_EQ(pixels(plane().image).count(red) + pixels(plane().image).count(path_color), 0);
    EXPECT_EQ(plane().segment_state, 1);
}

TEST_F(FMainDialogs, RefusedPositionsPlotTheOldPointAgain) {
    poincare().foreground = red;
    for (const char* S : {"0", "1", "-3", "nan", "inf", "1e999"}) {
        SCOPED_TRACE(S);
        map().setPoint(0.5, 0.5);
        poincare().redraw();
        choose(FMain::ID_SHOW_POSITION, {fill_in({S, "0.1"})});
        EXPECT_NEAR(map().alpha, std::acos(0.5), 1e-12);
        expect_only_point(0.5, 0.5);
    }
}

TEST_F(FMainDialogs, AnglesThatAreNoDirectionsFailInTheBounce) {
    for (const char* angle : {"nan", "inf", "-inf", "1e999", "1e300"}) {
        SCOPED_TRACE(angle);
        reset();
        choose(FMain::ID_SHOW_POSITION, {fill_in_angles({"", "", angle, angle})});
        choose(FMain::ID_ITERATE, {message_box("Error", "")});
        EXPECT_TRUE(std::isfinite(map().phi) && std::isfinite(map().alpha));
    }
}

TEST_F(FMainDialogs, LongTextsOfCurvesAreWholeOrShortenedInThePositionDialog) {
    const std::string formula = "5+sin(t)+0." + std::string(300, '0');
    const struct {
        FXuint id;
        std::vector<std::string> typed;
        const char* ending;
    } cases[] = {{FMain::ID_TRIANGLE, {"60.1234", "70.5678"}, "and\nbeta=70.5678\u00B0"},
                 {FMain::ID_USER_FORMULA, {formula}, "..."}};
    for (const auto& row : cases) {
        choose(row.id, {fill_in(row.typed)});
        choose(FMain::ID_SHOW_POSITION, {[&](FXTopWindow* dialog) {
                   pump();
                   EXPECT_TRUE(dialog->getWidth() == 300 && dialog->getHeight() == 300);
                   expect_inside(dialog, dialog);
                   EXPECT_TRUE(texts_of<FXLabel>(dialog).front().ends_with(row.ending));
                   close_dialog(dialog, false);
               }});
    }
    EXPECT_EQ(family(), "R(t)=" + formula);
}
