# SPDX-License-Identifier: MIT
"""Clicks start orbits, Space adds what the model predicts, undo, colours, clear."""
from journey import BLACK, MARGIN, RED, check, run, until


def journey(program, model):
    width, height = program.canvas_size()

    # Before the first click Space goes on from the start point of the program.
    first = model.pixels("iterate", 1000)
    program.keys("space")
    program.wait_plotted(first, "Space plots 1000 bounces of the start orbit")
    program.keys("d")
    program.wait_plotted([], "d clears")

    # A click plots one point where it was made.
    program.click(200, 150)
    model.ask("click", 200, 150)
    program.wait_plotted([(200, 150)], "a click plots its point")
    orbit = model.pixels("iterate", 1000)
    program.keys("space")
    program.wait_plotted(orbit + [(200, 150)], "Space adds the orbit of the click")
    more = model.pixels("iterate", 1000)
    program.press("Iterate")
    before = orbit + more + [(200, 150)]
    program.wait_plotted(before, "the button Iterate adds more of it")

    # Another start; undo takes it away, once.
    program.click(300, 200)
    model.ask("click", 300, 200)
    program.keys("space")
    orbit = model.pixels("iterate", 1000)
    program.wait_plotted(before + orbit + [(300, 200)], "a second orbit joins the first")
    program.keys("u")
    program.wait_plotted(before, "u removes the second orbit and its start")
    program.press("Undo")
    program.keys("u", "U")

    # Clicks off the open section start nothing: the map goes on from where it was.
    for x, y in ((5, height // 2), (width // 2, height - 5), (MARGIN, 100), (width - 1, 100),
                 (width // 2, 0), (width // 2, height - MARGIN)):
        program.click(x, y)
    orbit = model.pixels("iterate", 1000)
    program.keys("space")
    program.wait_plotted(before + orbit, "clicks off the section leave orbit and undo as they were")

    # z takes the next colour, for what is plotted from now on: black, white, gray, red.
    program.keys("z", "z", "z", "z")
    until(lambda: program.color_shown() == RED, "the well follows z to red")
    program.click(100, 80)
    program.wait_plotted([(100, 80)], "the new start is red", RED)
    check(set(before) - {(100, 80)} <= program.plotted(BLACK), "older points changed colour")
    program.keys("d", "Z")
    program.click(100, 80)
    program.wait_plotted([], "d clears all colours", RED)


run(journey)
