# SPDX-License-Identifier: MIT
"""Every way to change the view shows the range that it must: an orbit tells, pixel by pixel."""
from journey import MARGIN, Picture, check, run, until


class View:
    """The range that the program must show, by its own rules."""

    def __init__(self):
        self.full()

    def full(self):
        self.x1, self.y1, self.x2, self.y2 = 0.0, -1.0, 1.0, 1.0

    def zoom(self, fx, fy):
        cx, cy = (self.x1 + self.x2) / 2, (self.y1 + self.y2) / 2
        w, h = (self.x2 - self.x1) / 2 * fx, (self.y2 - self.y1) / 2 * fy
        self.x1, self.x2, self.y1, self.y2 = cx - w, cx + w, cy - h, cy + h
        self.limit()

    def shift(self, dx, dy):
        w, h = self.x2 - self.x1, self.y2 - self.y1
        self.x1, self.x2 = self.x1 + dx * w, self.x2 + dx * w
        self.y1, self.y2 = self.y1 + dy * h, self.y2 + dy * h
        self.limit()

    def limit(self):
        if self.x2 - self.x1 > 1:
            self.x2 = self.x1 + 1
        if self.y2 - self.y1 > 2:
            self.y2 = self.y1 + 2
        dx = max(0, -self.x1) + min(0, 1 - self.x2)
        dy = max(0, -1 - self.y1) + min(0, 1 - self.y2)
        self.x1, self.x2, self.y1, self.y2 = (self.x1 + dx, self.x2 + dx, self.y1 + dy,
                                              self.y2 + dy)


def near(seen, wanted):
    """Whether the pixels are the same but for a rounding of one pixel in a few of them."""
    around = {(x + dx, y + dy) for x, y in wanted for dx in (-1, 0, 1) for dy in (-1, 0, 1)}
    return seen <= around and abs(len(seen) - len(wanted)) <= len(wanted) // 20 + 2


def shows(program, model, view, message):
    """Plots an orbit and compares it with that of the model in the same range."""
    width, height = program.canvas_size()
    model.ask("section", width, height, repr(view.x1), repr(view.y1), repr(view.x2),
              repr(view.y2))
    program.wait_plotted([], message + ": the change of view wipes the picture")
    orbit = set(model.pixels("iterate", 1000))
    program.keys("space")
    until(lambda: near(program.plotted(), orbit), message)
    check(orbit, message + ": the orbit does not come into this view")
    program.keys("d")


def journey(program, model):
    view = View()
    width, height = program.canvas_size()
    # An orbit that fills the section, so that points fall into every view.
    program.choose_curve(3)
    program.dialog("Boundary Curve")
    program.accept("Boundary Curve")
    model.ask("curve", "oval_c", 2, 3)
    for key, act in (
            ("asterisk", lambda: view.zoom(2 / 3, 2 / 3)),
            ("x", lambda: view.zoom(2 / 3, 1)),
            ("y", lambda: view.zoom(1, 2 / 3)),
            ("Left", lambda: view.shift(-0.1, 0)),
            ("Up", lambda: view.shift(0, 0.1)),
            ("Right", lambda: view.shift(0.1, 0)),
            ("Down", lambda: view.shift(0, -0.1)),
            ("X", lambda: view.zoom(1.5, 1)),
            ("Y", lambda: view.zoom(1, 1.5)),
            ("minus", lambda: view.zoom(1.5, 1.5)),
            ("KP_Multiply", lambda: view.zoom(2 / 3, 2 / 3)),
            ("slash", view.full)):
        program.keys("space", key)
        model.ask("iterate", 1000)
        act()
        shows(program, model, view, "the view after " + key)

    # The rubber band, dragged down and right and up and left.
    for corners in ((150, 100, 450, 350), (400, 300, 100, 60)):
        program.keys("slash", "plus")
        program.drag(*corners)
        (left, right), (top, bottom) = sorted(corners[::2]), sorted(corners[1::2])
        inner_width, inner_height = width - 1 - MARGIN, height - MARGIN
        view.x1, view.x2 = (left - MARGIN) / inner_width, (right - MARGIN) / inner_width
        view.y1, view.y2 = 1 - 2 * bottom / inner_height, 1 - 2 * top / inner_height
        shows(program, model, view, f"the rubber band {corners}")

    # A press and release without motion, and Esc, leave the armed zoom and the view.
    view_before = (view.x1, view.x2)
    program.press("Zoom In")
    program.click(200, 200)
    program.keys("plus", "Escape", "d")
    shows(program, model, view, "a click in the armed zoom changes nothing")
    check(view_before == (view.x1, view.x2), "the journey itself is wrong")
    program.press("Zoom Out")
    view.zoom(1.5, 1.5)
    shows(program, model, view, "the button Zoom Out")

    # The range by its corners.
    program.keys("p")
    program.dialog("Change Position")
    for number in ("0.125", "-0.5", "0.625", "0.75"):
        program.type(number)
        program.keys("Tab")
    program.accept("Change Position")
    view.x1, view.y1, view.x2, view.y2 = 0.125, -0.5, 0.625, 0.75
    shows(program, model, view, "the range typed in Change Position")

    # Isometric and nice values: whatever range comes out, the picture lives and full view returns.
    program.keys("space", "i", "g", "space", "slash")
    model.ask("iterate", 2000)
    view.full()
    shows(program, model, view, "full view after i and g")

    # The position bar stands while the right button is down and leaves the picture as it was.
    program.keys("space")
    program.wait_plotted(model.pixels("iterate", 1000), "an orbit under the bar")
    before = Picture(program.main)
    program.hold_right(300, 50)
    until(lambda: Picture(program.main).at(5, height - 10) == 0, "the bar at the bottom")
    program.release_right()
    until(lambda: Picture(program.main) == before, "the bar gone, the picture whole")


run(journey)
