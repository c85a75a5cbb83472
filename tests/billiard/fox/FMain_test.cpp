// SPDX-License-Identifier: MIT
// The main window's panel and commands, and what a change of curve keeps.
#include "tests/billiard/fox/main_window.h"
#include "tests/libfoxaux/services.h"

using namespace window_test;

using MainWindow = started;
using texts = std::vector<std::string>;

TEST_F(MainWindow, PanelAndMenuStandInTheirOrder) {
    texts panel;
    for (const FXLabel* label : all_of<FXLabel>(&window()))
        panel.emplace_back(label->getText().text());
    EXPECT_EQ(panel,
              (texts{"Show Billiard", "Iterate", "Show Position", "Zoom In", "Zoom Out", "Undo",
                     "Fixed Point", "Save Picture", "Loop", "Function", "Help", "About"}));
    EXPECT_EQ(texts_of<FXMenuCommand>(window().function_menu),
              (texts{"Ellipse", "Oval Type A", "Oval Type B", "Oval Type C", "Stadium",
                     "User Defined Formula", "Triangle"}));
}

TEST_F(MainWindow, TheColorWellSetsThePlotColor) {
    window().color_well->setRGBA(0xFF112233);
    command(FMain::ID_PLOT_COLOR);
    EXPECT_EQ(poincare().foreground, 0xFF112233u);
    EXPECT_TRUE(window().color_well->isOpaqueOnly());
}

TEST_F(MainWindow, EveryCommandGivesTheFocusToThePhaseCanvas) {
    for (FXuint id = FMain::ID_SHOW_BILLIARD; id <= FMain::ID_UNDO; ++id) {
        if (id == FMain::ID_SAVE_PICTURE || id == FMain::ID_HELP || id == FMain::ID_ABOUT ||
            id == FMain::ID_SPARE)
            continue; // these open a window, or none sends it
        window().loop_check->setFocus();
        command(id);
        EXPECT_TRUE(poincare().inFocusChain()) << id;
        poincare().cancel_mode();
    }
    for (FXWindow* widget : {static_cast<FXWindow*>(all_of<FXMenuButton>(&window()).at(0)),
                             static_cast<FXWindow*>(window().color_well)}) {
        poincare().take_focus();
        click(widget, 5, 5);
        send_key(widget, KEY_Escape); // out of the menu
        EXPECT_TRUE(poincare().inFocusChain()) << widget->getClassName();
    }
    window().loop_check->setFocus();
    command(FMain::ID_SPARE);
    EXPECT_FALSE(poincare().inFocusChain()) << "it does nothing";
}

TEST_F(MainWindow, F1OpensTheManualInBothWindows) {
    for (FBufferedWindow* canvas :
         {static_cast<FBufferedWindow*>(&poincare()), static_cast<FBufferedWindow*>(&plane())}) {
        send_key(canvas->getShell(), KEY_F1);
        const auto opened = text_windows();
        ASSERT_EQ(opened.size(), 1u);
        EXPECT_STREQ(opened[0]->getTitle().text(), "Help");
        close_by_manager(opened[0]);
    }
}

TEST_F(MainWindow, AScreenOf800PixelsShowsTheManualWithoutScrollingSideways) {
    command(FMain::ID_HELP);
    display_text* help = text_windows().at(0);
    help->hide(); // else the window manager has its say in the size
    help->resize(800 * 3 / 4, 600 * 3 / 4);
    help->layout();
    const FXint bar = help->text->verticalScrollBar()->getDefaultWidth();
    EXPECT_LE(help->text->getContentWidth() + bar, help->text->getWidth());
    close_by_manager(help);
}

TEST_F(MainWindow, ANewCurveWipesThePicturesAndKeepsTheRest) {
    poincare().foreground = red;
    poincare().w2s->set_world(0.25, -0.5, 0.75, 0.5);
    poincare().redraw();
    poincare().iterate();
    poincare().start_loop();
    EXPECT_GT(pixels(poincare().image).count(red), 100);
    const double phi = map().phi, alpha = map().alpha;

    map().setF(new TStadiumFunction(1.0));
    window().curve_changed();

    EXPECT_EQ(pixels(poincare().image).count(red), 0);
    EXPECT_EQ(pixels(poincare().backup).count(red), 0);
    EXPECT_TRUE(map().phi == phi && map().alpha == alpha);
    EXPECT_EQ(poincare().w2s->world.x1, 0.25);
    EXPECT_EQ(poincare().foreground, red);
    EXPECT_TRUE(poincare().loop_idle.is_active());
    EXPECT_NEAR(plane().full_view.x2, 2.04, 1e-3);
    EXPECT_NEAR(plane().full_view.y2, 1.02, 1e-3);
}
