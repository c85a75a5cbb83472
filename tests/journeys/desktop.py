# SPDX-License-Identifier: MIT
"""A display with a window manager, as a user drives it: windows, keys, mouse, dialogs.

Whoever uses it waits for what is shown, never for a time.
"""
import subprocess
import time

PATIENCE = 20  # seconds until a condition that never comes is a failure


class Failure(Exception):
    """What was shown was not what must be shown."""


def check(condition, message):
    if not condition:
        raise Failure(message)


def until(condition, message, pause=0.02):
    """Waits until the condition gives something true, and gives that; pauses between two looks."""
    deadline = time.monotonic() + PATIENCE
    while not (value := condition()):
        check(time.monotonic() < deadline, "never seen: " + message)
        time.sleep(pause)
    return value


def output_of(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    return done.stdout if done.returncode == 0 else b""


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


class Desktop:
    """The windows, and one user. A window's position is one of its inside; where no window is
    named, `main` is meant."""

    main = None

    def alive(self):
        """Fails if whose windows are waited for has ended."""

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
        """The same, waited for."""
        def found():
            self.alive()
            return self.find(title)
        try:
            return until(found, "a window titled " + title)
        except Failure as failure:
            raise Failure(f"{failure}; windows: {list(self.clients())}") from None

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

    # Keys and mouse.

    def keys(self, *names):
        for name in names:
            xdotool("key", name)

    def type(self, text):
        xdotool("type", "--delay", "4", "--", text)

    def move(self, window, x, y):
        xdotool("mousemove", "--sync", "--window", window, x, y)

    def click(self, x, y, button=1, window=None):
        xdotool("mousemove", "--window", window or self.main, x, y, "click", button)

    def drag(self, x1, y1, x2, y2):
        window = self.main
        xdotool("mousemove", "--window", window, x1, y1, "mousedown", 1,
                "mousemove", "--window", window, (x1 + x2) // 2, (y1 + y2) // 2,
                "mousemove", "--window", window, x2, y2, "mouseup", 1)

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

    def fill_in(self, title, *values):
        """Types the values into a dialog's fields, one after another, and accepts it."""
        self.dialog(title)
        for value in values:  # the first field has the focus, its text selected
            self.type(value)
            self.keys("Tab")
        self.close_box(title, "alt+a")

    def close_box(self, title, key="Return"):
        """Waits for a message box or a dialog, and for its end by a key."""
        self.dialog(title)
        self.keys(key)
        self.gone(title)

    def cancel(self, title):
        self.close_box(title, "Escape")
