# SPDX-License-Identifier: MIT
"""Throws random keys, clicks, drags, sizes and dialog entries at the running program.

usage: monkey.py PROGRAM SEED SECONDS

Each step draws from its own generator, made of the seed and the step's number: a run is repeated by
its seed, as far as the program's own timing allows. It fails if the program ends, reports anything
but one harmless notice on standard error, or stops answering.

The program's HOME and working folder are thrown away. In a file dialog the monkey only types plain
names or leaves; and as root it starts the program as nobody, who can write nowhere else.
"""
import os
import random
import subprocess
import sys
import tempfile
import time

from desktop import Failure, check, until, xdotool
from program import MAIN, NOBODY, PANEL, PANEL_WIDGETS, PATH, Program, as_nobody

FILE_DIALOGS = ("Save", "Open", "Load", "Select", "Choose")  # how their titles begin

# No Return, Delete or BackSpace: a burst may find itself in a file dialog.
BURST = (list("abcdefghiklmnopqrtuvwxyzBCDFGILPTUXYZ0123456789") +
         ["plus", "minus", "asterisk", "slash", "KP_Add", "KP_Subtract", "space", "space", "space",
          "Left", "Right", "Up", "Down", "Escape", "F8", "F9", "F10", "Tab", "Home", "Prior"])
FILE_KEYS = ["s", "S", "F2"]
NUMBERS = ["0", "1", "-1", "0.5", "1e-9", "-0.25", "3", "30", "90", "360", "1e308", "1e999", "-0",
           "nan", "inf", "-inf", "0x10", "5e-324", "99999999999", "640", "12"]
GARBAGE = ["", "abc", "1,5", "--3", "%s%n%d", "\"'\\", "&File\tx", "1 2 3", "()", "\u00fc\u00df",
           "\u4e2d\u6587", "e", "1e", ".", "$(x)", "#" * 70]
FORMULAS = ["1+0.1*cos(3*t)", "2", "1/(t-1)", "sin(t)", "sqrt(-1)", "cos(t)^2+1", "t^t", "1+", "((",
            "exp(exp(t))", "log(t)", "1+0.3*cos(2*t)+0.1*sin(5*t)", "-1", "0", "t", "abs(cos(t))+0.5",
            "1+0.01*cos(40*t)", "1e300*cos(t)", "x", "-" * 300 + "1", "1+" * 400 + "1"]
HUGE = ["9" * 400, "a" * 3000, "(" * 1000, "1." + "3" * 2000]
# What the toolkit says of a press that was on its way while its widget was hidden: no harm done.
NOTICE = b"::grab: Window is not visible."
ENDINGS = ["", ".png", ".bmp", ".jpg", ".pdf", ".xyz", ".PNG"]


class Monkey:
    def __init__(self, binary, seed):
        self.seed, self.step, self.log = seed, 0, []
        self.home = tempfile.TemporaryDirectory()
        if as_nobody():
            os.chown(self.home.name, NOBODY, NOBODY)
        self.program = Program(binary, cwd=self.home.name,
                               env=dict(os.environ, HOME=self.home.name), **as_nobody())
        self.random = random.Random(seed)

    # What it sees.

    def clients(self):
        """The windows from the bottom to the top, as pairs of id and title."""
        return list(self.program.clients("_NET_CLIENT_LIST_STACKING"))

    def top(self):
        """Id, title and size of the uppermost window. One that has closed is waited for until the
        window manager knows: it may keep the pointer for good if its frame is clicked before."""
        def uppermost():
            self.alive()
            try:
                window, title = self.clients()[-1]
                return window, title, *self.program.geometry(window)[2:]
            except IndexError:
                return None
        return until(uppermost, "a window that stays")

    def alive(self):
        check(self.program.process.poll() is None,
              f"the program has ended with status {self.program.process.poll()}")

    def tell(self, *words):
        self.log.append(f"{self.step}: " + " ".join(map(str, words)))

    def do(self, *arguments):
        """xdotool; a window that closes meanwhile is no fault."""
        self.tell(*arguments)
        subprocess.run(["xdotool", *map(str, arguments)], check=False, timeout=120,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    # What it does. Each takes the uppermost window.

    def place(self, width, height):
        """A place inside a window: outside, the click would be the window manager's."""
        choose = self.random
        if choose.random() < 0.1:
            return choose.choice([0, width - 1]), choose.choice([0, height - 1])
        return choose.randrange(max(1, width)), choose.randrange(max(1, height))

    def burst(self, window, title, width, height):
        keys = [self.random.choice(BURST) for _ in range(self.random.randint(1, 10))]
        self.do("key", "--delay", "5", *keys)

    def click(self, window, title, width, height):
        x, y = self.place(width, height)
        button = self.random.choice([1, 1, 1, 1, 2, 3, 4, 5])
        self.do("mousemove", "--window", window, x, y, "click", "--repeat",
                self.random.choice([1, 1, 2]), "--delay", "20", button)

    def drag(self, window, title, width, height):
        button, steps = self.random.choice([1, 1, 3]), []
        for _ in range(self.random.randint(1, 4)):
            steps += ["mousemove", "--window", window, *self.place(width, height)]
        self.do("mousemove", "--window", window, *self.place(width, height), "mousedown", button,
                *steps, "mouseup", button)

    def resize(self, window, title, width, height):
        if self.random.random() < 0.3:
            size = self.random.choice([(1, 1), (1, 400), (500, 1), (30, 30), (PANEL, 60)])
        else:
            size = self.random.randint(50, 1000), self.random.randint(50, 700)
        self.do("windowsize", window, *size)

    def command(self, window, title, width, height):
        if title != MAIN:
            return
        name = self.random.choice(PANEL_WIDGETS)
        self.tell("press", name)
        try:
            widget = self.program.widget(name)
            _, _, width, height = self.program.geometry(widget)
        except IndexError:
            return  # a dialog or a small window stands in the way
        self.do("mousemove", "--window", widget, width // 2, min(height // 2, 12), "click", 1)
        if name == "Function":
            self.do("key", *["Down"] * self.random.randint(1, 7), "Return")

    def text(self):
        kind = self.random.random()
        source = NUMBERS if kind < 0.5 else FORMULAS if kind < 0.75 else GARBAGE
        return self.random.choice(source if kind < 0.97 else HUGE)

    def fill(self, window, title, width, height):
        """Fields of a dialog, left to right; then its end or none."""
        if title in (MAIN, PATH):
            self.do("key", self.random.choice(["p", "F8", "F9", "F10", "C", "p"]))
            return
        for _ in range(self.random.randint(1, 5)):
            self.do("key", *["Tab"] * self.random.randint(1, 2))
            self.do("type", "--delay", "1", "--", self.text())
        if self.random.random() < 0.8:
            self.do("key", self.random.choice(["alt+a", "alt+a", "Return", "alt+c", "Escape"]))

    def save(self, window, title, width, height):
        if title in (MAIN, PATH):
            self.do("key", self.random.choice(FILE_KEYS))

    def name_file(self):
        """In a file dialog: a plain name, or leave."""
        name = self.random.choice(["a", "orbit", "a b", "x" * 300]) + self.random.choice(ENDINGS)
        if self.random.random() < 0.3:
            self.do("key", "Escape")
        else:
            self.do("key", "alt+f", "ctrl+a")
            self.do("type", "--delay", "1", "--", name)
            self.do("key", "Return")

    def one_step(self):
        self.step += 1
        self.random = random.Random(f"{self.seed}/{self.step}")
        actions = [self.burst] * 6 + [self.click] * 4 + [self.drag] * 3 + [self.command] * 5 + \
                  [self.fill] * 6 + [self.resize, self.save]
        action = self.random.choice(actions)
        window, title, width, height = self.top()
        if title.startswith(FILE_DIALOGS):
            self.name_file()
        else:
            if title == PATH and self.random.random() < 0.8:  # it never lies below the other
                window, title = self.program.main, MAIN
                width, height = self.program.geometry(window)[2:]
                self.do("windowactivate", window)
            action(window, title, width, height)
        self.alive()

    def recover(self):
        """Leaves every dialog, box and menu."""
        def closed():
            self.alive()
            dialogs = [window for window, title in self.clients() if title not in (MAIN, PATH)]
            if dialogs:
                self.do("windowactivate", dialogs[-1])
            self.do("key", "--delay", "20", "Escape")
            return not dialogs
        until(closed, "all dialogs closed by Escape")

    def answers(self):
        """F1 must open the manual, and Esc close it. A dialog that opens or closes late may take the
        key for itself."""
        self.tell("does it answer?")
        for tries_left in (2, 1, 0):
            self.recover()
            self.do("windowsize", self.program.main, 700, 500)
            try:
                self.program.focus(self.program.main)
                self.program.keys("F1")
                self.program.cancel("Help")
                break
            except Failure:
                self.alive()
                if not tries_left:
                    raise
        self.program.no_report(NOTICE)

    def scene(self):
        """What is on the screen and what the program does, for whoever reads a failure."""
        if self.program.process.poll() is not None:
            return "The program has ended."
        picture = os.path.join(tempfile.gettempdir(), f"monkey-{self.seed}.png")
        subprocess.run(["import", "-window", "root", picture], check=False, timeout=60)
        return f"The screen: {picture}; the windows, from the bottom: {self.clients()}"

    def run(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.one_step()
            if self.step % 25 == 0:
                self.answers()
        self.answers()
        self.program.close_well(NOTICE)


def main():
    binary, seed, seconds = os.path.abspath(sys.argv[1]), int(sys.argv[2]), float(sys.argv[3])
    print(f"monkey: seed {seed}", flush=True)
    monkey = Monkey(binary, seed)
    try:
        monkey.run(seconds)
    except (Failure, subprocess.TimeoutExpired) as failure:
        print(f"FAILED with seed {seed}: {failure}\nThe last steps:")
        print("\n".join(line[:200] for line in monkey.log[-40:]))
        print(monkey.scene())
        print(monkey.program.stderr().decode(errors="replace")[:20000])
        sys.exit(1)
    finally:
        xdotool("mouseup", 1)
        monkey.program.end()
    print(f"monkey: {monkey.step} steps")


if __name__ == "__main__":
    main()
