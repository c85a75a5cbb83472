# SPDX-License-Identifier: MIT
"""Runs the loop for an hour and looks whether memory or the display's resources grow.

usage: soak.py PROGRAM SECONDS, on a display with a window manager.

One round is one curve, with the path window shown or hidden, and keys that change the view while
the loop runs; a turn is a round of each kind. The first turn warms up. It fails if a figure rises
through all quarters of the others, if an answer takes more than a second
beside waiting for a processor, or if the program ends.
"""
import os
import statistics
import subprocess
import sys
import time

from Xlib import X, XK, display
from Xlib.ext import res, xtest

from desktop import Failure, check, until
from program import MARGIN, PATH, Program

CURVES = 7
TURN = 2 * CURVES  # rounds: every curve with the path window and without
LOOK = 0.001  # seconds between two looks for an answer
SLOWEST = 1.0  # seconds until an answer, less those that the program waited for a processor
NOISE = {"memory in kB": 100, "pixmaps in kB": 100}  # what a quarter may rise by; counts: by none


class Server:
    """A connection beside the program's: its resources, keys, pixels."""

    def __init__(self, window):
        self.display = display.Display()
        self.window = self.display.create_resource_object("window", window)
        clients = self.display.res_query_clients().clients
        self.client = next(client.resource_base for client in clients
                           if window & ~client.resource_mask == client.resource_base)

    def resources(self):
        """How many of each kind the server keeps for the program, by name."""
        types = self.display.res_query_client_resources(self.client).types
        found = {self.display.get_atom_name(kind.resource_type): kind.count for kind in types}
        size = self.display.res_query_client_pixmap_bytes(self.client)
        found["pixmaps in kB"] = (size.bytes_overflow << 32 | size.bytes) // 1024
        return found

    def press(self, key):
        code = self.display.keysym_to_keycode(XK.string_to_keysym(key))
        xtest.fake_input(self.display, X.KeyPress, code)
        xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()

    def pixels(self, x, y, width, height):
        return self.window.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF).data


class Soak:
    def __init__(self, binary):
        self.program = Program(os.path.abspath(binary))
        self.program.resize(640, 480)  # the path window stands beside it
        until(self.program.axes_drawn, "the axes after the resize")
        self.server = Server(self.program.main)
        self.turns, self.answers, self.own = [], [], []

    # One round.

    def close_error(self):
        """An orbit that ends in a corner stops the loop with a message."""
        if self.program.find("Error"):
            self.program.close_box("Error")

    def show_path(self, wanted):
        shown = self.program.find(PATH) is not None
        if wanted and not shown:
            self.program.show_path()
        elif shown and not wanted:
            self.program.hide_path()

    def let_it_run(self):
        self.close_error()
        if not self.program.loop_checked():
            self.program.keys("l")
            until(lambda: self.program.loop_checked() or self.program.find("Error"), "the loop")

    def answer(self, key):
        """Lets the loop run a while, then waits until a key has changed the numbers of S."""
        strip = MARGIN, 480 - MARGIN + 4, 300, MARGIN - 4  # no orbit reaches it
        before = self.server.pixels(*strip)
        time.sleep(0.5)
        if self.program.find("Error"):
            return
        check(self.server.pixels(*strip) == before, "the numbers of S change without a key")
        start, idle = time.monotonic(), self.waited()
        self.server.press(key)
        until(lambda: self.server.pixels(*strip) != before, "an answer to " + key, LOOK)
        self.answers.append(time.monotonic() - start)
        self.own.append(self.answers[-1] - (self.waited() - idle))

    def waited(self):
        """Seconds that the program was ready to run and had no processor."""
        with open(f"/proc/{self.program.process.pid}/schedstat", encoding="ascii") as times:
            return int(times.read().split()[1]) / 1e9

    def sample(self):
        """The figures that must not grow."""
        number = self.program.process.pid
        with open(f"/proc/{number}/status", encoding="ascii") as status:
            words = dict(line.split(":", 1) for line in status)
        return {"memory in kB": int(words["VmRSS"].split()[0]),
                "open files": len(os.listdir(f"/proc/{number}/fd")), **self.server.resources()}

    def round(self, number, seconds):
        """One curve for some seconds; gives the sample at its end."""
        end = time.monotonic() + seconds
        self.close_error()
        self.show_path(number % 2 == 1)
        self.program.choose_curve(number % CURVES)
        self.program.fill_in("Boundary Curve")  # as it stands
        self.program.click(200, 150)
        while time.monotonic() < end:
            self.let_it_run()
            self.answer("x")
            self.answer("slash")
        check(self.program.process.poll() is None, "the program has ended")
        return self.sample()

    def run(self, seconds):
        """Whole turns until the time is over; of each the highest figures count."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            samples = [self.round(i, min(10, seconds / (6 * TURN))) for i in range(TURN)]
            self.turns.append({name: max(sample.get(name, 0) for sample in samples)
                               for name in samples[0].keys() | samples[-1].keys()})
            print(f"turn {len(self.turns)}:", dict(sorted(self.turns[-1].items())),
                  f"slowest answer {max(self.answers):.3f} s", flush=True)
        if self.program.loop_checked():
            self.program.keys("l")
        self.close_error()
        self.program.close_well()


def grows(values, noise):
    """Whether a figure rises in every quarter: what only has to find its size rises once."""
    part = len(values) // 4
    levels = [statistics.median(values[i * part:(i + 1) * part]) for i in range(4)]
    return all(b - a > noise for a, b in zip(levels, levels[1:]))


def report(soak):
    """Prints the figures; gives what is wrong."""
    wrong = []
    turns = soak.turns[1:]
    check(len(turns) >= 4, f"only {len(turns)} turns after the first: too short to see growth")
    for name in sorted(turns[0]):
        values = [turn.get(name, 0) for turn in turns]
        if grows(values, NOISE.get(name, 0)):
            wrong.append(f"{name} grows: {values}")
    print(f"{len(soak.answers)} keys answered: median {statistics.median(soak.answers) * 1e3:.1f} ms,"
          f" slowest {max(soak.answers) * 1e3:.1f} ms, {max(soak.own) * 1e3:.1f} ms with a processor")
    if max(soak.own) > SLOWEST:
        wrong.append(f"an answer took {max(soak.own):.3f} s with a processor")
    return wrong


def main():
    soak = Soak(sys.argv[1])
    try:
        soak.run(float(sys.argv[2]))
        wrong = report(soak)
    except (Failure, subprocess.TimeoutExpired) as failure:
        wrong = [str(failure), soak.program.stderr().decode(errors="replace")]
    finally:
        soak.program.end()
    for line in wrong:
        print("FAILED:", line)
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
