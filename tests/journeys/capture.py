# SPDX-License-Identifier: MIT
"""A circle about a periodic point finds it; one about nothing says so; both can be cancelled."""
from journey import MARGIN, check, run, until


def journey(program, model):
    width, height = program.canvas_size()

    # An elliptic periodic point of order 4.
    S, P = 0.143132664, -0.373658118
    x = MARGIN + round(S * (width - 1 - MARGIN))
    y = round((1 - P) / 2 * (height - MARGIN))
    program.keys("f")
    program.drag(x + 3, y + 2, x + 18, y + 12)
    program.close_box("Information")
    [(x, y)] = model.pixels("point", S, P)
    around = {(x + dx, y + dy) for dx in (-1, 0, 1) for dy in (-1, 0, 1)}  # found to rounding
    until(lambda: len(program.plotted()) == 1 and program.plotted() <= around,
          "the periodic point is the new start")
    program.keys("u")
    program.wait_plotted([], "undo takes it back")
    empty = program.picture()

    # A circle whose centre lies off the section finds none; the picture is as before.
    program.press("Fixed Point")
    program.drag(10, 100, 20, 110)
    program.close_box("Error")
    until(lambda: program.picture() == empty, "no mark is left after a search in vain")

    # Esc amid the drag; then the mouse is idle: a click is a start.
    program.keys("f")
    program.drag(200, 200, 260, 260, release=False)
    until(lambda: program.picture() != empty, "a circle while it is dragged")
    program.keys("Escape")
    program.release()
    until(lambda: program.picture() == empty, "Esc takes the circle off")
    check(program.find("Information") is None, "a cancelled capture shows a box")
    program.click(200, 150)
    program.wait_plotted(model.pixels("click", 200, 150), "a click is a start again")


run(journey)
