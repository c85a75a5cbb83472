# SPDX-License-Identifier: MIT
"""A circle about a periodic point finds it; one about nothing says so; both can be cancelled."""
from journey import MARGIN, Picture, check, run, until


def journey(program, model):
    width, height = program.canvas_size()
    inner_width, inner_height = width - 1 - MARGIN, height - MARGIN

    # An elliptic periodic point of order 4.
    S, P = 0.143132664, -0.373658118
    center = MARGIN + round(S * inner_width), round((1 - P) / 2 * inner_height)
    program.keys("f")
    program.drag(center[0] + 3, center[1] + 2, center[0] + 18, center[1] + 12)
    program.close_box("Information")
    [(x, y)] = model.pixels("point", S, P)
    around = {(x + dx, y + dy) for dx in (-1, 0, 1) for dy in (-1, 0, 1)}  # found to rounding
    until(lambda: len(program.plotted()) == 1 and program.plotted() <= around,
          "the periodic point is the new start")
    program.keys("u")
    program.wait_plotted([], "undo takes it back")
    empty = Picture(program.main)

    # A circle whose centre lies off the section finds none; the picture is as before.
    program.press("Fixed Point")
    program.drag(10, 100, 20, 110)
    program.close_box("Error")
    until(lambda: Picture(program.main) == empty, "no mark is left after a search in vain")

    # Cancelled captures: a click without motion, Esc before and Esc amid the drag.
    program.keys("f")
    program.click(200, 200)
    program.keys("F", "Escape")
    program.keys("f")
    program.half_drag(200, 200, 260, 260)
    until(lambda: Picture(program.main) != empty, "a circle while it is dragged")
    program.keys("Escape")
    program.end_drag()
    program.keys("d")  # wipes the marks that Esc leaves
    until(lambda: Picture(program.main) == empty, "cancelled captures leave nothing")
    check(program.find("Information") is None and program.find("Error") is None,
          "a cancelled capture shows a box")

    # The mouse is idle again: a click is a start.
    program.click(200, 150)
    start = model.pixels("click", 200, 150)
    program.keys("space")
    program.wait_plotted(start + model.pixels("iterate", 1000), "a click is a start again")


run(journey)
