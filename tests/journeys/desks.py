# SPDX-License-Identifier: MIT
"""Desks of many kinds: the sizes of the interface's letters.

On each of them every label of the panel is whole and every dialog lies on the screen.
"""
import contextlib
import os
import sys
import tempfile

from journey import PANEL, PANEL_WIDGETS, Failure, Picture, Program, check

USUAL = PANEL - 4  # the width of the panel at the usual letters

# The dialogs that a key opens in the main window.
DIALOGS = {"p": "Change Position", "c": "Foreground Color", "C": "Change Colors",
           "s": "Save Poincare-Section as Picture", "F8": "Select Font", "F9": "Resize Hack",
           "F10": "Select Global Fonts"}


@contextlib.contextmanager
def started(settings=""):
    """The program under settings of the toolkit."""
    with tempfile.TemporaryDirectory() as home:
        os.makedirs(home + "/.foxrc")
        with open(home + "/.foxrc/Desktop", "w", encoding="ascii") as file:
            file.write("[SETTINGS]\n" + settings)
        with Program(sys.argv[1], env={**os.environ, "HOME": home}) as program:
            yield program
            program.close_well()


def check_labels(program):
    """No label reaches the edge of its button, where it would be cut."""
    for name, window in zip(PANEL_WIDGETS, program.panel()):
        if name in ("color", "Function"):  # all dark, a dark frame
            continue
        picture = Picture(window)
        edges = [picture.at(x, y) for x in (0, picture.width - 1) for y in range(picture.height)]
        check(all(word & 0x808080 for word in edges), f"the label {name} is cut")


def check_on_screen(program, title):
    _, _, screen_width, screen_height = program.geometry()
    x, y, width, height = program.geometry(program.dialog(title))
    check(x >= 0 and y >= 0 and x + width <= screen_width and y + height <= screen_height,
          f"{title}, {width} x {height} at {x}, {y}, is not all on the screen")
    program.cancel(title)


def panel_width(program):
    return program.geometry(program.widget("Help"))[2] + 8


def letters():
    """From the usual size to one that a hall can read."""
    for points, widest in ((9, USUAL), (10, 130), (16, 200), (20, 240)):
        with started(f"normalfont=Sans,{points}0\n") as program:
            check_labels(program)
            width = panel_width(program)
            check(USUAL <= width <= widest, f"at {points} points the panel is {width} wide")
            for key, title in DIALOGS.items():
                program.keys(key)
                check_on_screen(program, title)


def main():
    # By design the program deletes nothing on its way out: its windows are no leaks.
    os.environ["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
    for desk in (letters,):
        try:
            desk()
        except Failure as failure:
            print(f"FAILED: {desk.__name__}: {failure}")
            sys.exit(1)


if __name__ == "__main__":
    main()
