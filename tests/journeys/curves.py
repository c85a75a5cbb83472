# SPDX-License-Identifier: MIT
"""Every curve of the menu gives its outline and its orbits; a refused one costs nothing."""
from journey import BLACK, check, make_room, run, until

TITLE = "Boundary Curve"

# The menu in its order: the curve, what is typed into its fields, and the model's values.
CURVES = [
    ("Ellipse", ["1.25"], "1.25"), ("OvalA", ["2"], "2"), ("OvalB", ["-0.6"], "-0.6"),
    ("OvalC", ["6", "-5"], "6 5"), ("Stadium", ["0.5"], "0.5"),
    ("Formula", ["3 + cos(2*t) * 0.4"], "3 + cos(2*t) * 0.4"), ("Triangle", [], "60 70"),
]


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

    # Refused, offered again with what was refused, and cancelled: the old curve goes on.
    for typed in (["1", "3"], []):
        program.choose_curve(3)
        program.fill_in(TITLE, *typed)
        program.close_box("Error")
    program.choose_curve(3)
    program.cancel(TITLE)
    program.keys("space")
    program.wait_plotted(start + orbit + model.pixels("iterate", 1000), "refused and cancelled")


run(journey)
