# SPDX-License-Identifier: MIT
"""Clicks start orbits, Space adds what the model predicts, undo, colours, clear."""
from desktop import check, until
from journey import run
from picture import BLACK, RED
from program import MARGIN


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
    before = [(200, 150)] + model.pixels("iterate", 1000) + model.pixels("iterate", 1000)
    program.keys("space")
    program.press("Iterate")
    program.wait_plotted(before, "Space and the button Iterate add the orbit of the click")

    # Another start; undo takes it away, once.
    program.click(300, 200)
    model.ask("click", 300, 200)
    program.keys("space")
    orbit = model.pixels("iterate", 1000)
    program.wait_plotted(before + orbit + [(300, 200)], "a second orbit joins the first")
    program.keys("u")
    program.wait_plotted(before, "u removes the second orbit and its start")
    program.press("Undo")
    program.keys("U")

    # Clicks off the open section start nothing: map, picture and undo are what they were.
    program.keys("space")
    for x, y in ((5, height // 2), (MARGIN, 100), (width - 1, 100), (width // 2, 0),
                 (width // 2, height - MARGIN), (width // 2, height - MARGIN + 10)):
        program.click(x, y)
    program.keys("space")
    program.wait_plotted(before + model.pixels("iterate", 2000), "clicks off the section")
    program.keys("u")
    program.wait_plotted(before, "u goes back to the last start")

    # z takes the next colour, for what is plotted from now on: black, white, gray, red.
    program.keys("z", "z", "z", "z")
    until(lambda: program.color_shown() == RED, "the well follows z to red")
    program.click(100, 80)
    program.wait_plotted([(100, 80)], "the new start is red", RED)
    check(set(before) - {(100, 80)} <= program.plotted(BLACK), "older points changed colour")


run(journey)
