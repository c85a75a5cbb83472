# SPDX-License-Identifier: MIT
"""Every way to change the view shows the range that it must: an orbit tells, pixel by pixel."""
from desktop import check, until
from journey import run
from program import MARGIN, PANEL_WIDGETS

# The key or button that is pressed, and the range that must be shown then. The view stays in the section.
VIEWS = [
    ("asterisk", (1 / 6, -2 / 3, 5 / 6, 2 / 3)),
    ("x", (5 / 18, -2 / 3, 13 / 18, 2 / 3)),
    ("Up", (5 / 18, -8 / 15, 13 / 18, 12 / 15)),
    ("Zoom Out", (1 / 6, -13 / 15 - 2 / 15, 5 / 6, 1)),
    ("KP_Multiply", (5 / 18, -2 / 3, 13 / 18, 2 / 3)),
    ("slash", (0, -1, 1, 1)),
]


def near(seen, wanted):
    """Whether the pixels are the same but for a rounding of one pixel in a few of them."""
    around = {(x + dx, y + dy) for x, y in wanted for dx in (-1, 0, 1) for dy in (-1, 0, 1)}
    return seen <= around and abs(len(seen) - len(wanted)) <= len(wanted) // 20 + 2


def shows(program, model, view, message):
    """Plots an orbit and compares it with that of the model in the same range."""
    model.section(program, view)
    program.wait_plotted([], message + ": the change of view wipes the picture")
    orbit = set(model.pixels("iterate", 1000))
    check(orbit, message + ": the orbit does not come into this view")
    program.keys("space")
    until(lambda: near(program.plotted(), orbit), message)
    program.keys("d")


def journey(program, model):
    width, height = program.canvas_size()
    # An orbit that fills the section, so that points fall into every view.
    program.choose_curve(3)
    program.fill_in("Boundary Curve")
    model.ask("curve", "OvalC", 2, 3)
    for step, view in VIEWS:
        program.keys("space")
        program.press(step) if step in PANEL_WIDGETS else program.keys(step)
        model.ask("iterate", 1000)
        shows(program, model, view, "the view after " + step)

    # The rubber band, dragged down and right and up and left.
    for corners in ((150, 100, 450, 350), (400, 300, 100, 60)):
        program.keys("slash")
        program.press("Zoom In")
        program.drag(*corners)
        (left, right), (top, bottom) = sorted(corners[::2]), sorted(corners[1::2])
        inner_width, inner_height = width - 1 - MARGIN, height - MARGIN
        view = ((left - MARGIN) / inner_width, 1 - 2 * bottom / inner_height,
                (right - MARGIN) / inner_width, 1 - 2 * top / inner_height)
        shows(program, model, view, f"the rubber band {corners}")


run(journey)
