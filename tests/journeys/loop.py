# SPDX-License-Identifier: MIT
"""The loop runs and stops by key and button, and whatever arms the mouse stops it."""
from journey import PATH_BLUE, check, make_room, run, until


def running(program):
    """Whether the wiped picture gains points; the loop shows them about once a second.

    Without the wipe an orbit may have filled all of its pixels already.
    """
    program.keys("d")
    until(lambda: len(program.plotted()) > 0, "the loop adds points")


def stopped(program):
    until(lambda: not program.loop_checked(), "the check button clears")
    program.keys("d")
    program.wait_plotted([], "nothing is plotted once the loop is stopped")


def journey(program, model):
    make_room(program, model)
    check(not program.loop_checked(), "the loop button is checked at start")
    for start, stop in (("l", "L"), (None, "l"), ("l", None), ("l", "plus"), ("l", "f")):
        program.click(200, 150)
        program.keys(start) if start else program.press("Loop")
        until(program.loop_checked, "the check button follows")
        running(program)
        program.keys(stop) if stop else program.press("Loop")
        stopped(program)
        program.keys("Escape")

    # A view key leaves it running, on empty axes; so does undo.
    program.keys("l", "asterisk")
    running(program)
    program.keys("u")
    check(program.loop_checked(), "undo has stopped the loop")
    running(program)
    program.keys("l")
    stopped(program)

    # With the path window each pass is one bounce in both windows.
    path = program.show_path()
    program.keys("l")
    until(lambda: program.picture(path).count(PATH_BLUE) > 3000, "the loop fills the path window")
    program.keys("l")
    stopped(program)


run(journey)
