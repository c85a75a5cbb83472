# SPDX-License-Identifier: MIT
"""A circle about a periodic point finds it, as a start that undo takes back."""
from desktop import until
from journey import run
from program import MARGIN


def journey(program, model):
    width, height = program.canvas_size()

    # An elliptic periodic point of order 4.
    S, P = 0.143132664, -0.373658118
    x = MARGIN + round(S * (width - 1 - MARGIN))
    y = round((1 - P) / 2 * (height - MARGIN))
    program.press("Fixed Point")
    program.drag(x + 3, y + 2, x + 18, y + 12)
    program.close_box("Information")
    [(x, y)] = model.pixels("point", S, P)
    around = {(x + dx, y + dy) for dx in (-1, 0, 1) for dy in (-1, 0, 1)}  # found to rounding
    until(lambda: len(program.plotted()) == 1 and program.plotted() <= around,
          "the periodic point is the new start")
    program.keys("u")
    program.wait_plotted([], "undo takes it back")



run(journey)
