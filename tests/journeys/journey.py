# SPDX-License-Identifier: MIT
"""What the journeys share: the program driven by real mouse and keys, its pictures, its model.

A journey runs on a display of its own with a window manager. It waits for what the program shows,
never for a time, and ends only the processes that it has started.
"""
import os
import struct
import subprocess
import sys
import tempfile
import time

PATIENCE = 20  # seconds until a condition that never comes is a failure
PANEL = 104  # pixels of the button panel and the splitter's bar
NOBODY = 65534  # the user who may do nothing
MARGIN = 30  # pixels of the axes, on the left and at the bottom of the phase canvas

PANEL_WIDGETS = ["Show Billiard", "Iterate", "Show Position", "Zoom In", "Zoom Out", "Undo",
                 "Fixed Point", "Save Picture", "Loop", "color", "Function", "Help", "About"]

WHITE = 0xFFFFFF
BLACK = 0x000000
RED = 0xFF0000
PATH_BLUE = 0x6772FF
GREY = 0x808080

MAIN = "Billiard: Phase Space(Poincare Section)"  # the titles of the program's two windows
PATH = "Billiard: Coordinate Space"


class Failure(Exception):
    """What the program showed was not what it must show."""


def check(condition, message):
    if not condition:
        raise Failure(message)


def until(condition, message, pause=0.02):
    """Waits until the condition gives something true, and gives that; pauses between two looks."""
    deadline = time.monotonic() + PATIENCE
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise Failure("never seen: " + message)
        time.sleep(pause)


def as_nobody():
    """Options for subprocess.Popen: root, to whom everything is writable, starts it as nobody."""
    return {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.geteuid() == 0 else {}


def output_of(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    return done.stdout if done.returncode == 0 else b""


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


class Picture:
    """The pixels of a window as 0xRRGGBB."""

    def __init__(self, window):
        data = b""
        while not data:  # a window that moves or hides meanwhile gives none
            data = output_of("xwd", "-silent", "-id", str(window))
        header = struct.unpack(">25I", data[:100])
        size, self.width, self.height, line, colors = (header[i] for i in (0, 4, 5, 12, 19))
        check(header[11] == 32 and header[7] == 0, "the display is not one of 24 bits")
        start = size + 12 * colors
        words = memoryview(data)[start:start + line * self.height].cast("I")
        self.step = line // 4
        self.words = [word & 0xFFFFFF for word in words]

    def at(self, x, y):
        return self.words[y * self.step + x]

    def points(self, color):
        """The set of the pixels (x, y) of a colour."""
        return {(i % self.step, i // self.step)
                for i, word in enumerate(self.words) if word == color}

    def count(self, color):
        return self.words.count(color)

    def __eq__(self, other):
        return self.words == other.words


class Program:
    """The running program; `main` and `path` are its windows."""

    def __init__(self, binary, **options):
        """Starts it in a folder that is thrown away; options go to subprocess.Popen. Used in a
        "with", it ends with that."""
        self.folder = tempfile.TemporaryDirectory()
        self.out = tempfile.TemporaryFile()
        self.err = tempfile.TemporaryFile()
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
        until(self.axes_drawn, "the axes of the first picture")
        self.unchecked = Picture(self.widget("Loop")).count(BLACK)
        self.focus(self.main)

    # Windows.

    def clients(self, order="_NET_CLIENT_LIST"):
        """The visible windows in one of the window manager's orders, as pairs of id and title."""
        # The manager's own list: a search through all windows would visit every widget.
        listed = output_of("xprop", "-root", order).decode().partition("#")[2]
        for client in listed.replace(",", " ").split():
            name = output_of("xprop", "-id", client, "-notype", "WM_NAME").decode(errors="replace")
            yield int(client, 16), name.partition(" = ")[2].strip().strip('"')

    def find(self, title):
        """The visible window of that title, or None."""
        return next((window for window, name in self.clients() if name == title), None)

    def window(self, title):
        def found():
            status = self.process.poll()
            check(status is None, f"no window {title}: the program has ended with status {status}")
            return self.find(title)
        try:
            return until(found, "a window titled " + title)
        except Failure as failure:
            raise Failure(f"{failure}; windows: {list(self.clients())}, on standard error: "
                          f"{self.stderr().decode(errors='replace')}") from None

    def gone(self, title):
        until(lambda: self.find(title) is None, title + " closed")

    def focus(self, window):
        def focused():
            xdotool("windowactivate", window)
            return self.focused() == window
        until(focused, "a window that takes the keys")  # the path window does once it is shown

    def focused(self):
        return int(output_of("xdotool", "getwindowfocus") or 0)

    def geometry(self, window=None):
        """x, y, width, height of a window's inside, or of the screen, in pixels."""
        which = ["-id", str(window)] if window else ["-root"]
        text = output_of("xwininfo", *which).decode()
        words = ["Absolute upper-left X:", "Absolute upper-left Y:", "Width:", "Height:"]
        return [int(text.split(word)[1].split()[0]) for word in words]

    def resize(self, width, height):
        xdotool("windowsize", self.main, width, height)
        until(lambda: self.geometry(self.main)[2:] == [width, height], "the window's new size")

    def canvas_size(self):
        _, _, width, height = self.geometry(self.main)
        return width - PANEL, height

    def axes_drawn(self):
        picture = Picture(self.main)
        x = MARGIN
        return picture.at(x, picture.height // 2) == GREY and picture.at(x + 1, 10) == WHITE

    # Keys and mouse; a window's position is one of its inside.

    def keys(self, *names):
        for name in names:
            xdotool("key", name)

    def type(self, text):
        xdotool("type", "--delay", "4", "--", text)

    def move(self, window, x, y):
        xdotool("mousemove", "--sync", "--window", window, x, y)

    def click(self, x, y, button=1, window=None):
        xdotool("mousemove", "--window", window or self.main, x, y, "click", button)

    def drag(self, x1, y1, x2, y2, release=True):
        window = self.main
        xdotool("mousemove", "--window", window, x1, y1, "mousedown", 1,
                "mousemove", "--window", window, (x1 + x2) // 2, (y1 + y2) // 2,
                "mousemove", "--window", window, x2, y2)
        if release:
            self.release()

    def release(self):
        xdotool("mouseup", 1)

    def children(self, window):
        """The windows inside a window, from the top left to the bottom right."""
        found = []
        for line in output_of("xwininfo", "-children", "-id", str(window)).decode().splitlines():
            words = line.split()
            if not words or not words[0].startswith("0x") or "+" not in words[-1]:
                continue
            x, y = map(int, words[-2].replace("x", "+").replace("-", "+-").split("+")[-2:])
            found.append((y, x, int(words[0], 16)))
        return [child for _, _, child in sorted(found)]

    def panel(self):
        """The widgets of the button panel, from the top."""
        splitter = self.children(self.main)[0]
        return self.children(self.children(splitter)[1])

    def widget(self, name):
        return self.panel()[PANEL_WIDGETS.index(name)]

    def path_window(self):
        return self.find(PATH)

    def show_path(self, x=720, y=60):
        """Opens the path window beside the main one, which must have left room; gives it."""
        self.press("Show Billiard")
        self.path = self.window(PATH)
        xdotool("windowmove", self.path, x, y)
        until(lambda: abs(self.geometry(self.path)[0] - x) < 30, "the path window moved")
        return self.path

    def hide_path(self):
        self.press("Show Billiard")
        self.gone(PATH)

    def press(self, name):
        """Clicks a widget of the button panel in its middle."""
        window = self.widget(name)
        _, _, width, height = self.geometry(window)
        self.click(width // 2, height // 2, window=window)

    def choose_curve(self, place):
        """Chooses an entry of the "Function" menu by its place, 0 for the first."""
        self.press("Function")
        self.keys(*["Down"] * (place + 1), "Return")

    def hold_right(self, x, y):
        xdotool("mousemove", "--window", self.main, x, y, "mousedown", 3)

    def release_right(self):
        xdotool("mouseup", 3)

    # Dialogs.

    def dialog(self, title):
        """Waits until a dialog is there and takes the keys; gives its window."""
        window = self.window(title)
        until(lambda: self.focused() == window, f"the dialog {title} takes the keys")
        return window

    def accept(self, title):
        """Presses "&Accept" of a dialog by its hot key."""
        self.close_box(title, "alt+a")

    def fill_in(self, title, *values):
        """Types the values into a dialog's fields, one after another, and accepts it."""
        self.dialog(title)
        for value in values:  # the first field has the focus, its text selected
            self.type(value)
            self.keys("Tab")
        self.accept(title)

    def close_box(self, title, key="Return"):
        """Waits for a message box or a dialog, and for its end by a key."""
        self.dialog(title)
        self.keys(key)
        self.gone(title)

    def cancel(self, title):
        self.close_box(title, "Escape")

    # Pictures.

    def color_shown(self):
        """The colour in the well of the panel."""
        well = Picture(self.widget("color"))
        return well.at(well.width // 2, well.height // 2)

    def loop_checked(self):
        """Whether the box of the button "Loop" holds its mark."""
        return Picture(self.widget("Loop")).count(BLACK) > self.unchecked

    def picture(self, window=None):
        return Picture(window or self.main)

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


class Model:
    """The billiard beside the program; see model.cpp for its commands."""

    def __init__(self, binary):
        self.process = subprocess.Popen([binary], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True)

    def ask(self, *words):
        self.process.stdin.write(" ".join(map(str, words)) + "\n")
        self.process.stdin.flush()
        return self.process.stdout.readline().strip()

    def pixels(self, *words):
        """The answer as a list of (x, y)."""
        answer = self.ask(*words)
        check(answer != "refused", f"the model refuses {words}")
        numbers = list(map(int, answer.split()))
        return list(zip(numbers[::2], numbers[1::2]))

    def end(self):
        self.process.stdin.close()
        self.process.wait()


def make_room(program, model):
    """Shrinks the main window so that the path window has room beside it."""
    program.resize(640, 480)
    program.wait_empty("empty axes after the resize")
    width, height = program.canvas_size()
    model.ask("section", width, height, 0, -1, 1, 1)


def run(journey):
    """Runs journey(program, model) and ends the process with the verdict."""
    program_path, model_path = map(os.path.abspath, sys.argv[1:3])
    program, model = Program(program_path), Model(model_path)
    try:
        width, height = program.canvas_size()
        model.ask("section", width, height, 0, -1, 1, 1)
        journey(program, model)
        if program.process.poll() is None:
            program.close_well()
        program.no_report()
        check(program.stdout() == b"", "something on standard output")
    except Failure as failure:
        subprocess.run(["import", "-window", "root", "failure.png"], check=False)
        print(f"FAILED: {failure}\nthe screen then: {os.path.abspath('failure.png')}")
        print(program.stderr().decode(errors="replace"))
        sys.exit(1)
    finally:
        program.end()
        model.end()
