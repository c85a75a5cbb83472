# SPDX-License-Identifier: MIT
"""The window comes up at its place with its panel, lives through sizes, and ends with status 1."""
from desktop import check
from journey import run
from picture import GREY, WHITE
from program import MARGIN, PANEL, PANEL_WIDGETS, PATH


def journey(program, model):
    _, _, screen_width, screen_height = program.geometry()
    seen = program.geometry(program.main)
    wanted = [round(screen_width * 0.05), round(screen_height * 0.05) + 16,
              round(screen_width * 0.9), round(screen_height * 0.9) - 16]
    check(max(abs(a - b) for a, b in zip(seen, wanted)) <= 1, f"the window is {seen}, not {wanted}")

    widths = [program.geometry(widget)[2] for widget in program.panel()]
    check(widths == len(PANEL_WIDGETS) * [PANEL - 4 - 8], "the widgets do not fill the panel")
    picture = program.picture()
    width, height = program.canvas_size()
    check(picture.at(width // 2, height // 2) == WHITE, "the plot area is not white")
    check(picture.at(width // 2, height - MARGIN) == GREY, "the x axis is not there")
    check(program.plotted() == set(), "something is plotted at start")
    check(program.find(PATH) is None, "the path window is shown at start")

    # From small to large the picture follows, with nothing of the orbit left.
    for size in ((400, 300), (150, 120), (640, 480)):
        program.keys("space")
        program.resize(*size)
        program.wait_empty(f"empty axes at {size}")
    model.section(program)
    model.ask("iterate", 3000)  # the three presses above
    program.keys("space")
    program.wait_plotted(model.pixels("iterate", 1000), "the orbit goes on after the resize")
    program.keys("u")
    program.wait_plotted([], "undo goes back to the whole new picture")


run(journey)
