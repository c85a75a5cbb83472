# SPDX-License-Identifier: MIT
"""The window comes up at its place with its panel, lives through sizes, and ends with status 1."""
from journey import BLACK, GREY, MARGIN, PANEL, PANEL_WIDGETS, WHITE, check, run


def journey(program, model):
    _, _, screen_width, screen_height = program.geometry()
    x, y, width, height = program.geometry(program.main)
    wanted = [round(screen_width * 0.05), round(screen_height * 0.05) + 16,
              round(screen_width * 0.9), round(screen_height * 0.9) - 16]
    for seen, want in zip((x, y, width, height), wanted):
        check(abs(seen - want) <= 1, f"the window lies at {(x, y, width, height)}, not {wanted}")

    check(len(program.panel()) == len(PANEL_WIDGETS), "widgets are missing in the panel")
    for widget in program.panel():
        check(program.geometry(widget)[2] == PANEL - 4 - 8, "a widget does not fill the panel")
    picture = program.picture()
    canvas = (width - PANEL, height)
    check(picture.at(canvas[0] // 2, canvas[1] // 2) == WHITE, "the plot area is not white")
    check(picture.at(canvas[0] // 2, canvas[1] - MARGIN) == GREY, "the x axis is not there")
    check(picture.at(MARGIN, canvas[1] // 2) == GREY, "the y axis is not there")
    check(program.plotted(BLACK) == set(), "something is plotted at start")
    check(program.path_window() is None, "the path window is shown at start")

    # From small to large the picture follows, with nothing of the orbit left.
    for size in ((400, 300), (150, 120), (640, 480)):
        program.keys("space")
        program.resize(*size)
        program.wait_empty(f"empty axes at {size}")
    width, height = program.canvas_size()
    check((width + PANEL, height) == (640, 480), "the window has not the size asked for")
    model.ask("section", width, height, 0, -1, 1, 1)
    model.ask("point", 0.5, 0.5)
    model.ask("iterate", 3000)  # the three presses above
    program.keys("space")
    program.wait_plotted(model.pixels("iterate", 1000), "the orbit goes on after the resize")


run(journey)
