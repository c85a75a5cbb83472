# SPDX-License-Identifier: MIT
"""What goes wrong around the program: its HOME, its settings, its display, signals, sizes.

usage: faults.py PROGRAM CASE, on a display with a window manager; CMakeLists.txt lists the cases.
"""
import os
import queue
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time

from desktop import Failure, check, output_of, until, xdotool
from journey import run_cases
from picture import Picture
from program import MAIN, PATH, Program, as_nobody


class Bare(Program):
    """The program on a display of any depth: nothing is read from its pictures' pixels."""

    def look(self):
        self.main = self.window(MAIN)
        self.focus(self.main)

    def colors(self):
        """How many colours the main window shows."""
        return int(output_of("sh", "-c", f"import -window {self.main} png:- | "
                                         "identify -format %k -") or 0)


class Unmanaged(Bare):
    """The program on a display without a window manager, who would list its windows."""

    def look(self):
        def found():
            return output_of("xdotool", "search", "--onlyvisible", "--name", "^Billiard: Phase")
        self.main = int(until(found, "the main window"))


class Second(Bare):
    """A copy beside another, whose windows are not looked at."""

    def __init__(self, binary, other):
        self.others = {window for window, _ in other.clients()}
        super().__init__(binary)

    def clients(self, *order):
        return (client for client in super().clients(*order) if client[0] not in self.others)


def environment(**changes):
    """This environment with changes; None takes a variable away."""
    changed = {**os.environ, **changes}
    return {name: value for name, value in changed.items() if value is not None}


def started(**options):
    return Bare(sys.argv[1], **options)


def use(program):
    """A few bounces, the second window, the dialog of the fonts, a view."""
    program.keys("space", "z", "space", "asterisk", "slash")
    program.press("Show Billiard")
    program.window(PATH)
    program.focus(program.main)
    program.keys("F10")
    program.cancel("Select Global Fonts")


def use_and_end(**options):
    with started(**options) as program:
        use(program)
        program.close_well(b"foxrc")


def no_home():
    use_and_end(env=environment(HOME=None))


def missing_home():
    use_and_end(env=environment(HOME="/nonexistent/home"))


def unwritable_home():
    with tempfile.TemporaryDirectory() as home:
        os.chmod(home, 0o555)
        use_and_end(env=environment(HOME=home), cwd="/", **as_nobody())


def with_settings(home):
    with started(env=environment(HOME=home)) as program:
        program.keys("space", "F10")
        program.cancel("Select Global Fonts")
        program.close_well(b"foxrc")  # the toolkit names the lines that it can't read


def garbage_settings():
    """Every file of settings that the toolkit reads, full of what nobody has written."""
    noise = bytes((i * 7919 + i // 251) % 256 for i in range(20000))
    contents = [
        noise,
        b"[SETTINGS",
        b"[SETTINGS]\nnormalfont=\nfixedfont=\n",
        b"[SETTINGS]\nnormalfont=no such font,90\nfixedfont=,,,,,,,,\n",
        b"[SETTINGS]\nnormalfont=Sans,-90,9999,77\nfixedfont=Sans,0\n",
        b"[SETTINGS]\nnormalfont=Sans,99999\n",
        b"[SETTINGS]\nscreenres=-1\n",
        b"[SETTINGS]\nnormalfont=" + b"x" * 5000 + b"\n",
        b"[SETTINGS]\nforecolor=nocolor\nbackcolor=#zzz\nscrollspeed=-1\nblinkspeed=-5\n",
        b"[File Dialog]\nwidth=-5\nheight=999999\nstyle=77\n" * 1000,
        b"=\n]\n[]\n[[[\n\\\"\\\n" + b"a=" + b"\\xff" * 1000,
        b"",
    ]
    for content in contents:
        with tempfile.TemporaryDirectory() as home:
            os.makedirs(home + "/.foxrc/Iterra")
            for name in ("Desktop", "Iterra/Iterra", "Iterra/Billiard"):
                with open(f"{home}/.foxrc/{name}", "wb") as file:
                    file.write(content)
            try:
                with_settings(home)
            except Failure as failure:
                raise Failure(f"with the settings {content[:70]}: {failure}") from None


def shallow_display():
    """On a display of few colours the picture still has axes and points."""
    with started() as program:
        until(lambda: program.colors() > 2, "a picture")
        use(program)
        program.close_well()


def ends_with_message(message, **options):
    """The program gives up with a message before it has a window."""
    done = subprocess.run([sys.argv[1]], stdin=subprocess.DEVNULL, capture_output=True, timeout=60,
                          check=False, **options)
    check(done.returncode not in (0, -signal.SIGSEGV), f"the status is {done.returncode}")
    check(message in done.stderr, f"no word of {message} in {done.stderr}")
    check(b"Sanitizer" not in done.stderr and b"terminate called" not in done.stderr,
          f"a crash: {done.stderr}")


def few_colors():
    """On a display of 8 bits, which the window manager refuses, the picture still has points."""
    with Unmanaged(sys.argv[1]) as program:
        until(lambda: program.colors() > 2, "a picture")
        for _ in range(3):
            program.click(300, 300)
            program.keys("space")
        time.sleep(0.5)
        check(program.process.poll() is None, "the program has ended")
        program.no_report()


def no_display():
    # Not without DISPLAY: that means :0, and another test's display may have that number.
    for name in (":nonsense", ":65000", "nowhere.invalid:0"):
        ends_with_message(b"display", env=environment(DISPLAY=name))
        for option, start in (("--help", b"usage: billiard"), ("--version", b"Billiard 1.")):
            answer = output_of("env", "DISPLAY=" + name, sys.argv[1], "-sync", option)
            check(answer.startswith(start), f"{option} without a display answers {answer}")
    with open("/dev/full", "wb") as full:
        done = subprocess.run([sys.argv[1], "--help"], stdout=full, timeout=60, check=False)
        check(done.returncode == 1, f"on a full disk the status of --help is {done.returncode}")


def no_fonts():
    with tempfile.TemporaryDirectory() as folder:
        with open(folder + "/fonts.conf", "w", encoding="ascii") as file:
            file.write(f"<fontconfig><cachedir>{folder}</cachedir></fontconfig>")
        ends_with_message(b"font", env=environment(FONTCONFIG_FILE=folder + "/fonts.conf"))


def lost_display():
    """The display closes under the program: it ends at once and says why."""
    reader, writer = os.pipe()
    server = subprocess.Popen(["timeout", "60", "Xvfb", "-displayfd", str(writer), "-nolisten",
                               "tcp"], pass_fds=[writer], stderr=subprocess.DEVNULL)
    try:
        display = environment(DISPLAY=":" + os.read(reader, 20).decode().strip())
        program = subprocess.Popen([sys.argv[1]], env=display, stdin=subprocess.DEVNULL,
                                   stderr=subprocess.PIPE)
        until(lambda: b"Billiard" in subprocess.run(
            ["xwininfo", "-root", "-tree"], env=display, stdout=subprocess.PIPE, check=False).stdout,
            "the window")
        server.terminate()
        errors = program.communicate(timeout=20)[1]
        check(program.returncode == 1, f"the status is {program.returncode}, not 1")
        check(b"display" in errors and b"Sanitizer" not in errors, f"standard error: {errors}")
    finally:
        server.terminate()
        server.wait()
        program.kill()
        program.wait()


def signals():
    """A signal ends the program at once, in its loop too."""
    for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
        for keys in ([], ["l"], ["F9"]):
            with started() as program:
                program.keys(*keys)
                program.process.send_signal(number)
                status = program.process.wait(20)
                check(status in (1, -number), f"{number.name} after {keys}: the status is {status}")
                program.no_report()


def killed_while_saving():
    """A signal while an old picture is overwritten: the old one is still there, and whole."""
    for name, number in (("orbit.png", signal.SIGTERM), ("orbit.pdf", signal.SIGHUP)):
        with started() as program:
            place = program.folder.name
            path = os.path.join(place, name)
            program.keys("F9")
            program.fill_in("Resize Hack", "3000", "3000")  # large enough to be met half-way
            program.keys("s")
            program.dialog("Save Poincare-Section as Picture")
            program.type(path)
            with open(path, "wb") as file:
                file.write(b"old")
            program.keys("Return")
            program.dialog("Warning")
            xdotool("key", "alt+y")
            until(lambda: os.listdir(place) != [name] or os.path.getsize(path) != 3,
                  "a file being written", pause=0)
            program.process.send_signal(number)
            program.process.wait(20)
            with open(path, "rb") as file:
                check(file.read() == b"old", f"{name} is lost by {number.name}")


class SlowDisplay:
    """A road to this display of so many bytes a second. Like a network it takes in at once all that
    is sent, and who sends faster than it delivers waits long for an answer."""

    def __init__(self, rate):
        self.rate = rate
        self.server = socket.create_server(("127.0.0.1", 0))  # a port beyond 6000
        self.name = f"127.0.0.1:{self.server.getsockname()[1] - 6000}"
        threading.Thread(target=self.accept, daemon=True).start()

    def accept(self):
        client = self.server.accept()[0]
        display = socket.socket(socket.AF_UNIX)
        display.connect("/tmp/.X11-unix/X" + os.environ["DISPLAY"].strip(":"))
        for ends in ((client, display), (display, client)):
            waiting = queue.Queue()
            threading.Thread(target=self.take, args=(ends[0], waiting), daemon=True).start()
            threading.Thread(target=self.deliver, args=(waiting, ends[1]), daemon=True).start()

    def take(self, source, waiting):
        while data := source.recv(4096):
            waiting.put(data)
        waiting.put(None)

    def deliver(self, waiting, target):
        while data := waiting.get():
            time.sleep(0.01 + len(data) / self.rate)
            target.sendall(data)
        target.shutdown(socket.SHUT_WR)


def numbers(program):
    """The pixels below the plot: no orbit reaches them."""
    picture = Picture(program.main)
    return picture.words[(picture.height - 20) * picture.step:]


def slow_display():
    """Over a slow network the loop does not draw ahead so far that keys wait for their answer."""
    with started(env=environment(DISPLAY=SlowDisplay(200000).name)) as program:
        use(program)
        program.keys("l")
        for key in ("asterisk", "slash", "asterisk"):
            time.sleep(3)  # for the loop to run ahead
            before = numbers(program)
            program.keys(key)
            until(lambda: numbers(program) != before, "an answer to " + key)
        program.close_well()


def sizes():
    """Both windows, 100 times from small to large, with an orbit running."""
    with started() as program:
        use(program)
        program.keys("l")
        windows = program.main, program.find(PATH)
        for turn in range(100):
            for window in windows:
                for size in ((1, 1), (300 + turn, 250)):
                    xdotool("windowsize", window, *size)
        for window in windows:
            until(lambda: program.geometry(window)[2:] == [399, 250], "the last size")
        until(lambda: program.colors() > 2, "a picture at the last size")
        program.close_well()


def two_copies():
    """Two copies on one display with one HOME: each has its own orbit and its own end."""
    with started() as first:
        use(first)
        with Second(sys.argv[1], first) as second:
            first.close_well()
            second.focus(second.main)
            second.keys("space")
            second.close_well()


run_cases(globals()[sys.argv[2]])
