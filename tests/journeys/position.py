# SPDX-License-Identifier: MIT
"""The dialog "Current Position": both tabs, degrees, the orbit restarted, undo to that moment."""
from journey import run

TITLE = "Current Position"


def open_dialog(program):
    program.press("Show Position")
    return program.dialog(TITLE)


def fill(program, *values):
    for value in values:
        program.type(value)
        program.keys("Tab")


def journey(program, model):
    # S and P typed into the first tab start an orbit there.
    open_dialog(program)
    fill(program, "0.3", "-0.4")
    program.accept(TITLE)
    start = model.pixels("point", 0.3, -0.4)
    program.wait_plotted(start, "the start typed as S and P")
    orbit = model.pixels("iterate", 1000)
    program.keys("space")
    program.wait_plotted(start + orbit, "its orbit")

    # Unchanged values: a start where the orbit is, and undo goes back to this moment.
    open_dialog(program)
    program.accept(TITLE)
    model.ask("point", *model.ask("where").split())
    more = model.pixels("iterate", 1000)
    program.keys("space")
    program.wait_plotted(start + orbit + more, "the orbit goes on from the same point")
    program.keys("u")
    program.wait_plotted(start + orbit, "undo goes back to the moment of the dialog")

    # The second tab takes degrees.
    program.keys("d")
    tabs = program.page_tabs(open_dialog(program))
    rightmost = max(tabs, key=lambda tab: program.geometry(tab)[0])
    program.click(5, 5, window=rightmost)
    program.keys("Tab")
    fill(program, "75", "40")
    program.accept(TITLE)
    start = model.pixels("angles", 75, 40)
    orbit = model.pixels("iterate", 1000)
    program.keys("space")
    program.wait_plotted(start + orbit, "the start typed in degrees")

    # A point that is none plots the old one again; Cancel and Esc change nothing.
    program.keys("d")
    open_dialog(program)
    fill(program, "1.5", "nan")
    program.accept(TITLE)
    old = model.pixels("point", *model.ask("where").split())
    program.wait_plotted(old, "the old point stands for a refused one")
    for key in ("Escape", "alt+c"):
        open_dialog(program)
        fill(program, "0.9", "0.9")
        program.keys(key)
        program.gone(TITLE)
    program.keys("space")
    program.wait_plotted(old + model.pixels("iterate", 1000), "a cancelled dialog changes nothing")


run(journey)
