# SPDX-License-Identifier: MIT
"""Real keys in the dialogs: position, font size, picture, help; what they leave behind."""
import os

from desktop import check, until
from journey import run
from picture import GREY, WHITE


def content(path):
    if not os.path.exists(path):
        return b""
    with open(path, "rb") as file:
        return file.read()


def save_picture(program):
    program.press("Save Picture")
    program.dialog("Save Poincare-Section as Picture")
    program.type("orbit")  # the field is ready, and what stands in it goes
    program.keys("Return")
    path = os.path.join(program.folder.name, "orbit.png")
    until(lambda: content(path).startswith(b"\x89PNG"), "orbit.png")


def read_help(program):
    """Opens Help twice; when one window is closed the other can still be read."""
    program.press("Help")
    first = program.dialog("Help")
    program.focus(program.main)  # Help may cover the button
    program.press("Help")
    until(lambda: [w for w, title in program.clients()
                   if title == "Help" and w != first and w == program.focused()], "a second Help")
    program.keys("Return")  # the focus is on "Close"
    until(lambda: [title for _, title in program.clients()].count("Help") == 1, "one Help closed")
    program.focus(first)
    page = program.picture(first)
    program.click(200, 200, button=5, window=first)
    until(lambda: program.picture(first) != page, "the other Help scrolls")
    program.close_box("Help")


def settings(folder):
    """The lines of every registry file of the vendor."""
    return [line for place, _, files in os.walk(os.path.join(folder, ".foxrc"))
            for name in files for line in content(os.path.join(place, name)).decode().split("\n")]


def journey(program, model):
    # The middle button would paste a colour into the well, and the display has none to offer.
    program.click(10, 5, button=2, window=program.widget("color"))
    # Two clicks on the pipette pick a colour from the screen, and leave it the keys.
    program.keys("c")
    dialog = program.dialog("Foreground Color")
    for _ in range(2):
        program.click(30, 25, window=dialog)
    program.move(dialog, 200, 80)
    program.keys("space")
    program.cancel("Foreground Color")
    _, height = program.canvas_size()
    # S and P typed into the first tab start an orbit there.
    program.press("Show Position")
    program.fill_in("Current Position", "0.3", "-0.4")
    orbit = model.pixels("point", 0.3, -0.4) + model.pixels("iterate", 1000)
    program.keys("space")
    program.wait_plotted(orbit, "the orbit of the start typed as S and P")
    save_picture(program)

    # A larger axis font moves the axes, 5 + 8 + 24 + 5 pixels from the edge, and mends a bad one.
    for size in ("-7", "24"):
        program.keys("C")
        program.fill_in("Change Colors", size)
    until(lambda: program.picture().at(42, height // 2) == GREY, "the axis moves with the font")
    check(program.picture().at(60, height // 2) == WHITE, "the plot area is not white")
    read_help(program)
    program.press("About")
    program.close_box("About")
    program.keys("space")  # and the keys go to the plot again
    until(program.plotted, "points by a key after the dialogs")
    program.close_well()
    lines = settings(os.environ["HOME"])
    check("[SETTINGS]" not in lines, f"settings that nobody made: {lines}")


run(journey)
