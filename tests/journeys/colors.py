# SPDX-License-Identifier: MIT
"""The colour dialogs: what is plotted next, what is plotted anew, and sizes that are none."""
from journey import GREY, Picture, WHITE, check, run, until


def journey(program, model):
    # The middle button would paste a colour into the well, and the display has none to offer.
    program.click(10, 5, button=2, window=program.widget("color"))
    _, height = program.canvas_size()
    program.keys("space")
    orbit = model.pixels("iterate", 1000)
    program.wait_plotted(orbit, "an orbit")

    # Neither dialog changes a thing when it is cancelled; the first none when accepted untouched.
    before = Picture(program.main)
    for key, title in (("c", "Foreground Color"), ("C", "Change Colors")):
        program.keys(key)
        program.dialog(title)
        program.keys("Escape")
        program.gone(title)
    program.keys("c")
    program.dialog("Foreground Color")
    program.keys("Return")
    program.gone("Foreground Color")
    until(lambda: Picture(program.main) == before, "the picture after cancelled colour dialogs")

    # A larger axis font moves the axes: 5 + 8 + 24 + 5 pixels from the edge. The points go.
    program.keys("C")
    program.dialog("Change Colors")
    program.type("24")
    program.accept("Change Colors")
    until(lambda: Picture(program.main).at(42, height // 2) == GREY, "the axis moves with the font")
    check(Picture(program.main).at(60, height // 2) == WHITE, "the plot area is not white")

    # Sizes that are none: the plot lives and is mended by the next dialog.
    for size in ("0", "-7", "1000000000", "12"):
        program.keys("C")
        program.dialog("Change Colors")
        program.type(size)
        program.accept("Change Colors")
        program.keys("space")
    model.ask("iterate", 3000)
    program.wait_plotted(model.pixels("iterate", 1000), "the orbit after the size is mended")


run(journey)
