# SPDX-License-Identifier: MIT
"""Every curve of the menu gives its outline and its orbits; a long formula shows that it works."""
import ctypes

from desktop import check, until
from journey import make_room, run
from picture import BLACK

TITLE = "Boundary Curve"

# The menu in its order: the curve, what is typed into its fields, and the model's values.
CURVES = [
    ("Ellipse", ["1.25"], "1.25"), ("OvalA", ["2"], "2"), ("OvalB", ["-0.6"], "-0.6"),
    ("OvalC", ["6", "-5"], "6 5"), ("Stadium", ["0.5"], "0.5"),
    ("Formula", ["3 + cos(2*t) * 0.4"], "3 + cos(2*t) * 0.4"), ("Triangle", [], "60 70"),
]

# Long enough for seconds of work.
SLOW = "5+fabs(sin(t" + 200 * "+sin(9*t)" + "))"


class Cursor:
    """The cursor that the display shows."""

    class Image(ctypes.Structure):
        _fields_ = [(name, ctypes.c_short) for name in ("x", "y", "width", "height", "x0", "y0")]

    def __init__(self):
        xlib, self.xfixes = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXfixes.so.3")
        xlib.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(xlib.XOpenDisplay(None))
        self.xfixes.XFixesQueryExtension(self.display, *2 * [ctypes.byref(ctypes.c_int())])
        self.xfixes.XFixesGetCursorImage.restype = ctypes.POINTER(self.Image)

    def shape(self):
        """Its size and the place of its point: what tells an arrow from a watch."""
        image = self.xfixes.XFixesGetCursorImage(self.display).contents
        return image.width, image.height, image.x0, image.y0


def journey(program, model):
    make_room(program, model)
    program.show_path()
    for place, (name, typed, values) in enumerate(CURVES):
        program.keys("space")
        program.choose_curve(place)
        program.fill_in(TITLE, *typed)
        model.ask("curve", name, values)
        model.ask("plane", 300, 300)
        outline = set(model.pixels("boundary"))
        until(lambda: outline <= program.picture(program.path).points(BLACK), name + ": outline")
        program.wait_plotted([], name + ": empty axes")

        program.hide_path()  # an iterate is 1000 bounces
        program.click(170, 160)
        start = model.pixels("click", 170, 160)
        orbit = model.pixels("iterate", 1000)
        check(len(set(orbit)) > 100, name + ": the orbit is no test")
        program.keys("space")
        program.wait_plotted(start + orbit, name + ": the orbit")
        program.show_path()
    program.hide_path()

    # What takes long shows the wait cursor as long as it takes.
    program.choose_curve(5)
    program.dialog(TITLE)
    program.type(SLOW)
    program.move(program.main, 60, 60)
    cursor = Cursor()
    usual = cursor.shape()
    program.keys("alt+a")
    until(lambda: cursor.shape() != usual, "the wait cursor", pause=0)
    until(lambda: cursor.shape() == usual, "the usual cursor")


run(journey)
