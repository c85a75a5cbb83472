# SPDX-License-Identifier: MIT
"""Takes the pictures of README.md and docs/tutorial.md from the running program.

Started by script/pictures; the names of chapters behind it, as in "script/pictures mixed", take
theirs only. Every picture is made by the clicks, keys and values that the tutorial
tells; whoever changes one changes the other.
"""
import os
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "journeys"))
from desktop import check, until  # noqa: E402
from picture import Picture  # noqa: E402
from program import MARGIN, Program  # noqa: E402

MENU = ["Ellipse", "Oval Type A", "Oval Type B", "Oval Type C", "Stadium",
        "User Defined Formula", "Triangle"]

# The colours of the key z, in its order; those that white paper swallows are passed over.
CYCLE = ["black", "white", "gray", "red", "green", "blue", "yellow", "cyan", "magenta",
         "lightcyan", "indigo", "lightgreen", "darkblue", "gold", "darkred", "lightblue",
         "darkgreen", "deeppink", "olive", "springgreen", "darkslategray", "lightgray",
         "steelblue", "aquamarine", "teal", "wheat", "brown"]
DARK = ["red", "green", "blue", "magenta", "indigo", "darkred", "darkgreen", "deeppink", "teal",
        "brown", "steelblue", "olive"]

PATH_PLACE = (590, 380)  # of the path window, beside what is clicked in the main one


class Guide:
    """Leads the program as the tutorial leads its reader."""

    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.view = (0.0, -1.0, 1.0, 1.0)  # the range of S and P that is shown
        self.presses = 0  # of the key z

    # Where things are.

    def pixel(self, S, P):
        """The window position of a point of the section."""
        x1, y1, x2, y2 = self.view
        width, height = self.program.canvas_size()
        return (MARGIN + round((S - x1) / (x2 - x1) * (width - 1 - MARGIN)),
                round((y2 - P) / (y2 - y1) * (height - MARGIN)))

    # What the reader does.

    def curve(self, name, *values):
        self.program.choose_curve(MENU.index(name))
        self.program.fill_in("Boundary Curve", *values)
        self.settle()

    def color(self, name):
        while True:
            self.program.keys("z")
            self.presses += 1
            if CYCLE[(self.presses - 1) % len(CYCLE)] == name:
                return

    def start(self, S, P):
        self.program.click(*self.pixel(S, P))

    def iterate(self, times):
        self.program.keys(*["space"] * times)

    def orbits(self, starts, times):
        """Orbits from these points, each in the next dark colour."""
        for index, (S, P) in enumerate(starts):
            self.color(DARK[index % len(DARK)])
            self.start(S, P)
            self.iterate(times)

    def type_position(self, S, P):
        self.program.press("Show Position")
        self.program.fill_in("Current Position", S, P)

    def zoom(self, x1, y1, x2, y2):
        """Drags a rectangle between these points of the section."""
        self.program.keys("plus")
        self.program.drag(*self.pixel(x1, y2), *self.pixel(x2, y1))
        self.view = (x1, y1, x2, y2)
        self.settle()

    # Pictures.

    def settle(self):
        """Waits until the program has done all it was told: its events wait in one line."""
        program = self.program
        _, height = program.canvas_size()
        bar = (5, height - 10)  # the black bar of the coordinates while the right button is down
        program.hold_right(*self.pixel(sum(self.view[::2]) / 2, sum(self.view[1::2]) / 2))
        until(lambda: Picture(program.main).at(*bar) == 0, "the coordinates of the pointer")
        program.release_right()
        until(lambda: Picture(program.main).at(*bar) != 0, "the coordinates are gone")

    def take(self, name, window=None, crop=None):
        """Saves what the screen shows where a window stands; crop cuts its width and height."""
        x, y, width, height = self.program.geometry(window or self.program.main)
        if crop:
            width, height = crop
        path = os.path.join(self.folder, name + ".png")
        # No picture holds more than 256 colours, and none needs the time it was made at.
        subprocess.run(["import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}",
                        "+repage", "+dither", "-colors", "256", "-strip",
                        "-define", "png:exclude-chunks=date,time",
                        "-define", "png:compression-level=9", "PNG8:" + path], check=True)
        print("pictures:", path)

    def take_path(self, name):
        """The second window, once it has followed."""
        self.settle()
        path = self.program.path
        last = [None]

        self.program.focus(path)

        def still():
            before, last[0] = last[0], Picture(path)
            return before is not None and before == last[0]
        until(still, "the path stands still")
        self.take(name, path)
        self.program.focus(self.program.main)


def circle(guide):
    guide.curve("Ellipse", "0")
    guide.orbits([(0.3, P) for P in (0.9, 0.75, 0.6, 0.4, 0.2, -0.2, -0.4, -0.6, -0.75, -0.9)], 3)
    guide.settle()
    guide.take("step-01")

    guide.program.show_path(*PATH_PLACE)
    guide.start(0.3, 0.6)
    guide.iterate(40)
    guide.take_path("step-02")
    guide.program.hide_path()


ELLIPSE = [(0.5, P) for P in (0.95, 0.88, 0.8, 0.73, 0.68, 0.6, 0.5, 0.35, 0.2, 0.08,
                              -0.73, -0.8, -0.88, -0.95)]


def ellipse(guide):
    guide.curve("Ellipse", "1")
    guide.orbits(ELLIPSE, 3)
    guide.settle()
    guide.take("step-03")

    guide.program.show_path(*PATH_PLACE)
    guide.start(0.5, 0.5)
    guide.iterate(40)
    guide.take_path("step-04")
    guide.program.hide_path()


def islands(guide):
    guide.curve("Oval Type A", "30")
    guide.orbits([(0.25, P / 20) for P in range(-18, 20)], 4)
    guide.orbits([(0.5, P) for P in (0.03, 0.66, 0.68, 0.7, -0.66, -0.68, -0.7)], 4)
    guide.settle()
    guide.take("step-05")


MIXED = [(0.25, P) for P in (0.05, 0.12, 0.19, 0.26, 0.33, 0.38)]
MIXED += [(0.5, P) for P in (0.6, 0.63, 0.66, 0.69, -0.6, -0.63, -0.66, -0.69)]
MIXED += [(0.25, P) for P in (0.97, 0.94, 0.92, 0.9, -0.97, -0.94, -0.92, -0.9)]
MIXED += [(0.115, 0.0), (0.095, 0.0), (0.17, 0.38), (0.17, -0.38)]


def mixed_section(guide, sea=40):
    guide.color("black")
    guide.start(0.5, 0.02)
    guide.iterate(sea)
    guide.orbits(MIXED, 4)
    guide.settle()


def mixed(guide):
    guide.curve("Oval Type A", "10")
    mixed_section(guide)
    guide.take("step-06")

    program = guide.program
    program.keys("f")
    x, y = guide.pixel(0.5, 0.65)
    program.drag(x, y, x + 12, y + 9)
    program.dialog("Information")
    guide.take("step-07")
    program.keys("Return")
    program.gone("Information")

    guide.zoom(0.44, 0.5, 0.56, 0.8)
    guide.color("black")
    guide.start(0.55, 0.52)
    guide.iterate(100)
    guide.orbits([(0.5, 0.638 + 0.005 * i) for i in range(18)], 20)
    guide.settle()
    guide.take("step-08")
    program.keys("slash")
    guide.view = (0.0, -1.0, 1.0, 1.0)


def stadium(guide):
    guide.curve("Stadium", "1")
    guide.color("black")
    guide.start(0.3, 0.4)
    guide.iterate(40)
    guide.settle()
    guide.take("step-09")
    guide.program.show_path(*PATH_PLACE)
    for name, S in (("step-10-a", 0.3), ("step-10-b", 0.3001)):
        guide.type_position(S, 0.4)
        guide.iterate(14)
        guide.take_path(name)
    guide.program.hide_path()


def gallery(guide):
    """What README.md shows: smaller windows, the last three without the panel."""
    program = guide.program

    def resize(width, height):
        program.resize(width, height)
        until(program.axes_drawn, "the axes in the new size")
        guide.settle()
        return program.canvas_size()

    guide.curve("Oval Type A", "10")
    resize(560, 420)
    mixed_section(guide)
    guide.take("section")
    program.show_path(590, 40)
    guide.start(0.5, 0.68)
    guide.iterate(80)
    guide.take_path("path")
    guide.program.hide_path()

    canvas = resize(404, 300)
    guide.curve("Ellipse", "1")
    guide.orbits(ELLIPSE, 3)
    guide.settle()
    guide.take("regular", crop=canvas)

    guide.curve("Oval Type A", "10")
    mixed_section(guide, 15)
    guide.take("mixed", crop=canvas)

    guide.curve("Stadium", "1")
    guide.color("black")
    guide.start(0.3, 0.4)
    guide.iterate(20)
    guide.settle()
    guide.take("chaotic", crop=canvas)


def main():
    program_path, folder = map(os.path.abspath, sys.argv[1:3])
    program = Program(program_path)
    try:
        guide = Guide(program, folder)
        only = sys.argv[3:]
        for chapter in (circle, ellipse, islands, mixed, stadium, gallery):
            if not only or chapter.__name__ in only:
                chapter(guide)
        check(program.close() == 1, "the exit status is not 1")
    finally:
        program.end()


main()
