# SPDX-License-Identifier: MIT
"""The running program: its process, its panel, its two windows and what they plot."""
import os
import subprocess
import tempfile

from desktop import PATIENCE, Desktop, Failure, check, until, xdotool
from picture import BLACK, GREY, WHITE, Picture

PANEL = 104  # pixels of the button panel and the splitter's bar
NOBODY = 65534  # the user who may do nothing
MARGIN = 30  # pixels of the axes, on the left and at the bottom of the phase canvas

PANEL_WIDGETS = ["Show Billiard", "Iterate", "Show Position", "Zoom In", "Zoom Out", "Undo",
                 "Fixed Point", "Save Picture", "Loop", "color", "Function", "Help", "About"]

MAIN = "Billiard: Phase Space(Poincare Section)"  # the titles of the program's two windows
PATH = "Billiard: Coordinate Space"


def as_nobody():
    """Options for subprocess.Popen: root, to whom everything is writable, starts it as nobody."""
    return {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.geteuid() == 0 else {}


class Program(Desktop):
    """The running program; `main` and `path` are its windows."""

    def __init__(self, binary, **options):
        """Starts it in a folder that is thrown away; options go to subprocess.Popen. Used in a
        "with", it ends with that."""
        self.folder = tempfile.TemporaryDirectory()
        self.out, self.err = tempfile.TemporaryFile(), tempfile.TemporaryFile()
        options.setdefault("cwd", self.folder.name)
        self.process = subprocess.Popen([binary], stdin=subprocess.DEVNULL, stdout=self.out,
                                        stderr=self.err, **options)
        self.path = None
        try:
            self.look()
        except Failure:
            self.end()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def look(self):
        """Waits for the main window and its first picture."""
        self.main = self.window(MAIN)
        until(lambda: self.picture().count(GREY) > 400, "the axes of the first picture")
        self.unchecked = Picture(self.widget("Loop")).count(BLACK)
        self.focus(self.main)

    def alive(self):
        status = self.process.poll()
        check(status is None, f"the program has ended with status {status}; on standard error: "
                              f"{self.stderr().decode(errors='replace')}")

    # The panel and what it opens.

    def panel(self):
        """The widgets of the button panel, from the top."""
        splitter = self.children(self.main)[0]
        return self.children(self.children(splitter)[1])

    def widget(self, name):
        return self.panel()[PANEL_WIDGETS.index(name)]

    def press(self, name):
        """Clicks a widget of the button panel in its middle."""
        window = self.widget(name)
        _, _, width, height = self.geometry(window)
        self.click(width // 2, height // 2, window=window)

    def color_shown(self):
        """The colour in the well of the panel."""
        well = Picture(self.widget("color"))
        return well.at(well.width // 2, well.height // 2)

    def loop_checked(self):
        """Whether the box of the button "Loop" holds its mark."""
        return Picture(self.widget("Loop")).count(BLACK) > self.unchecked

    def choose_curve(self, place):
        """Chooses an entry of the "Function" menu by its place, 0 for the first."""
        closed = Picture(self.widget("Function"))
        self.press("Function")
        until(lambda: Picture(self.widget("Function")) != closed, "the menu, open")
        self.keys(*["Down"] * (place + 1), "Return")

    def show_path(self, x=720, y=60):
        """Opens the path window beside the main one, which must have left room."""
        self.press("Show Billiard")
        self.path = self.window(PATH)
        xdotool("windowmove", self.path, x, y)
        until(lambda: abs(self.geometry(self.path)[0] - x) < 30, "the path window moved")

    def hide_path(self):
        self.press("Show Billiard")
        self.gone(PATH)

    # The phase canvas.

    def picture(self, window=None):
        return Picture(window or self.main)

    def canvas_size(self):
        _, _, width, height = self.geometry(self.main)
        return width - PANEL, height

    def axes_drawn(self):
        picture = self.picture()
        return picture.at(MARGIN, picture.height // 2) == GREY and \
            picture.at(MARGIN + 1, 10) == WHITE

    def plotted(self, color=BLACK):
        """The pixels of a colour in the plot area of the phase canvas."""
        width, height = self.canvas_size()
        return {(x, y) for x, y in self.picture().points(color)
                if MARGIN <= x < width and y <= height - MARGIN}

    def wait_empty(self, message):
        """Waits for empty axes."""
        until(lambda: self.axes_drawn() and not self.plotted(), message)

    def wait_plotted(self, wanted, message, color=BLACK):
        """Waits until exactly these pixels have the colour."""
        wanted = set(wanted)
        try:
            until(lambda: self.plotted(color) == wanted, message)
        except Failure:
            seen = self.plotted(color)
            raise Failure(f"{message}: {len(seen - wanted)} pixels too many, "
                          f"{len(wanted - seen)} missing of {len(wanted)}") from None

    # The end.

    def close(self):
        """Closes the main window as a user does; gives the exit status."""
        self.focus(self.main)
        self.keys("alt+F4")
        return self.process.wait(PATIENCE)

    def close_well(self, allowed=None):
        """Closes it: the status is 1, and each line on standard error, if any, holds `allowed`."""
        status = self.close()
        check(status == 1, f"the exit status is {status}, not 1")
        self.no_report(allowed)

    def no_report(self, allowed=None):
        for line in self.stderr().splitlines():
            check(allowed and allowed in line, f"on standard error: {line}")

    def stdout(self):
        self.out.seek(0)
        return self.out.read()

    def stderr(self):
        self.err.seek(0)
        return self.err.read()

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
