# SPDX-License-Identifier: MIT
"""Desks of many kinds: letters of many sizes, a display of high resolution, two monitors.

On each of them every label of the panel is whole and every dialog lies on one monitor.
"""
import contextlib
import os
import subprocess
import sys
import tempfile

from desktop import check, xdotool
from journey import run_cases
from picture import Picture
from program import PANEL, PANEL_WIDGETS, PATH, Program

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
        written = home + "/.foxrc/Iterra/Billiard"  # where file dialogs keep their size
        if os.path.exists(written):
            with open(written, encoding="utf-8") as file:
                check("screenres" not in file.read(), "the resolution has become a setting")


def check_labels(program):
    """No label reaches the edge of its button, where it would be cut."""
    for name, window in zip(PANEL_WIDGETS, program.panel()):
        if name in ("color", "Function"):  # all dark, a dark frame
            continue
        picture = Picture(window)
        edges = [picture.at(x, y) for x in (0, picture.width - 1) for y in range(picture.height)]
        check(all(word & 0x808080 for word in edges), f"the label {name} is cut")


def check_inside(program, window, area):
    """The window lies in an area of the screen, given as by geometry()."""
    x, y, width, height = program.geometry(window)
    check(x >= area[0] and y >= area[1] and x + width <= area[0] + area[2] and
          y + height <= area[1] + area[3], f"{width} x {height} at {x}, {y} is not in {area}")


def check_dialogs(program, area):
    for key, title in DIALOGS.items():
        program.keys(key)
        check_inside(program, program.dialog(title), area)
        program.cancel(title)


def panel_width(program):
    return program.geometry(program.widget("Help"))[2] + 8


def letters():
    """From the usual size to one that a hall can read."""
    for points, widest in ((9, USUAL), (10, 130), (20, 240)):
        with started(f"normalfont=Sans,{points}0\n") as program:
            check_labels(program)
            width = panel_width(program)
            check(USUAL <= width <= widest, f"at {points} points the panel is {width} wide")
            check_dialogs(program, program.geometry())


def resolution():
    """The letters follow what the desktop tells, unless the toolkit's settings say otherwise."""
    def tell(dots):
        subprocess.run(["xrdb", "-merge"], input=f"Xft.dpi: {dots}\n", text=True, check=True)
    tell("192")
    with started() as program:
        check(USUAL * 1.5 < panel_width(program) < USUAL * 2, "the panel does not follow")
        check_labels(program)
        check_dialogs(program, program.geometry())
        program.press("Show Billiard")
        size = program.geometry(program.window(PATH))[2:]
        check(size == [576, 576], f"the path window is {size}")
    with started("screenres=100\n") as program:
        check(panel_width(program) == USUAL, "the toolkit's setting has not won")
    for dots in ("96", "1e9", "many"):
        tell(dots)
        with started() as program:
            check(panel_width(program) == USUAL, f"the panel follows {dots} dots per inch")
    subprocess.run(["xrdb", "-remove"], check=True)


def monitors():
    """Of two monitors the program takes the one with the pointer, and stays on it."""
    with started() as program:
        _, _, width, height = program.geometry()
    half = width // 2
    for name, x, output in (("left", 0, "screen"), ("right", half, "none")):
        subprocess.run(["xrandr", "--setmonitor", name, f"{half}/200x{height}/300+{x}+0", output],
                       check=True, stdout=subprocess.DEVNULL)
    for x in (half, 0):
        xdotool("mousemove", x + 50, 400)
        area = [x, 0, half, height]
        with started() as program:
            seen = program.geometry(program.main)
            wanted = [x + half // 20, height // 20 + 16, half * 9 // 10, height * 9 // 10 - 16]
            check(max(abs(a - b) for a, b in zip(seen, wanted)) <= 1,
                  f"the window is {seen}, not {wanted}")
            check_dialogs(program, area)
            for button, title in (("About", "About"), ("Help", "Help"), ("Show Billiard", PATH)):
                program.press(button)
                check_inside(program, program.window(title), area)
                program.keys("Escape")
                program.focus(program.main)


run_cases(letters, resolution, monitors)
