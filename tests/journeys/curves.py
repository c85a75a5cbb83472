# SPDX-License-Identifier: MIT
"""Every curve of the menu gives its outline and its orbits; a refused one costs nothing."""
from journey import BLACK, Picture, check, make_room, run, until

MENU = ["ellipse", "oval_a", "oval_b", "oval_c", "stadium", "formula", "triangle"]

# The curve, what is typed into its fields (nothing: the values offered), and the model's values.
CURVES = [
    ("ellipse", [], "0.5 0"), ("ellipse", ["1.25"], "1.25 0"),
    ("oval_a", [], "5 0"), ("oval_a", ["2"], "2 0"),
    ("oval_b", [], "0.3 0"), ("oval_b", ["-0.6"], "-0.6 0"),
    ("oval_c", [], "2 3"), ("oval_c", ["6", "-5"], "6 5"),
    ("stadium", [], "1 0"), ("stadium", ["0.5"], "0.5 0"),
    ("triangle", [], "60 70"), ("triangle", ["90", "45"], "90 45"),
    ("formula", [], "5+sin(t)"), ("formula", ["3 + cos(2*t) * 0.4"], "3 + cos(2*t) * 0.4"),
]

REFUSED = [
    ("oval_a", ["0.5"]), ("oval_a", ["nan"]), ("oval_b", ["1.0"]), ("oval_b", ["1e999"]),
    ("oval_c", ["1", "3"]), ("triangle", ["100", "90"]), ("triangle", ["nan", "60"]),
    ("formula", ["5+sn(t)"]), ("formula", ["5+(t"]),
]


def enter(program, name, typed):
    """Fills the dialog of a curve in and accepts it."""
    program.choose_curve(MENU.index(name))
    program.dialog("Boundary Curve")
    for text in typed:  # the first field has the focus, its text selected
        program.type(text)
        program.keys("Tab")
    program.accept("Boundary Curve")


def journey(program, model):
    make_room(program, model)
    program.show_path()
    for name, typed, values in CURVES:
        what = f"{name} {values}"
        program.keys("space")
        enter(program, name, typed)
        model.ask("curve", name, values)
        model.ask("plane", 300, 300)
        outline = set(model.pixels("boundary"))
        until(lambda: outline == Picture(program.path).points(BLACK) & outline,
              what + ": the outline")
        program.wait_plotted([], what + ": empty axes")

        program.press("Show Billiard")  # off: an iterate is 1000 bounces
        program.gone("Billiard: Coordinate Space")
        program.click(170, 160)
        start = model.pixels("click", 170, 160)
        orbit = model.pixels("iterate", 1000)
        check(len(set(orbit)) > 100, what + ": the orbit is no test")
        program.keys("space")
        program.wait_plotted(start + orbit, what + ": the orbit")
        program.show_path()

    picture = Picture(program.main)
    for name, typed in REFUSED:
        enter(program, name, typed)
        program.close_box("Error")
        # What was refused is offered again.
        program.choose_curve(MENU.index(name))
        program.dialog("Boundary Curve")
        program.accept("Boundary Curve")
        program.close_box("Error")
    for name in MENU:
        program.choose_curve(MENU.index(name))
        program.dialog("Boundary Curve")
        program.keys("Escape")
        program.gone("Boundary Curve")
    until(lambda: Picture(program.main) == picture, "refused and cancelled curves change nothing")
    program.press("Show Billiard")
    program.gone("Billiard: Coordinate Space")
    program.keys("d", "space")
    program.wait_plotted(model.pixels("iterate", 1000), "the old curve goes on after refusals")


run(journey)
