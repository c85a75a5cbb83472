# SPDX-License-Identifier: MIT
"""The loop runs and stops by key and button, and whatever arms the mouse stops it."""
from desktop import until
from journey import make_room, run
from picture import PATH_BLUE


def running(program):
    """Whether the wiped picture gains points: an orbit may have filled all of its pixels before."""
    program.keys("d")
    until(lambda: program.loop_checked() and program.plotted(), "the loop adds points")


def stopped(program):
    until(lambda: not program.loop_checked(), "the check button clears")
    program.keys("d")
    program.wait_plotted([], "nothing is plotted once the loop is stopped")


def journey(program, model):
    make_room(program, model)
    stopped(program)
    for start, stop in (("l", "L"), (None, None), ("l", "plus"), ("l", "f")):
        program.keys(start) if start else program.press("Loop")
        running(program)
        program.keys("u", "asterisk")  # neither undo nor a view key stops it
        running(program)
        program.keys(stop) if stop else program.press("Loop")
        stopped(program)
        program.keys("Escape", "slash")

    # With the path window each pass is one bounce in both windows.
    program.show_path()
    program.keys("l")
    until(lambda: program.picture(program.path).count(PATH_BLUE) > 3000, "the loop fills the path window")
    program.keys("l")
    stopped(program)


run(journey)
