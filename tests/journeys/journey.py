# SPDX-License-Identifier: MIT
"""What every journey needs: the program on a display of its own, and the model beside it."""
import os
import subprocess
import sys

from desktop import Failure, check
from program import Program


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

    def section(self, program, view=(0, -1, 1, 1)):
        """Takes the size of the program's phase canvas, showing a range."""
        self.ask("section", *program.canvas_size(), *map(repr, view))

    def end(self):
        self.process.stdin.close()
        self.process.wait()


def make_room(program, model):
    """Shrinks the main window so that the path window has room beside it."""
    program.resize(640, 480)
    program.wait_empty("empty axes after the resize")
    model.section(program)


def run_cases(*cases):
    """Runs cases that start the program themselves, and ends the process with the verdict."""
    # By design the program deletes nothing on its way out: its windows are no leaks.
    os.environ["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
    for case in cases:
        try:
            case()
        except (Failure, subprocess.TimeoutExpired) as failure:
            print(f"FAILED: {case.__name__}: {failure}")
            sys.exit(1)


def run(journey):
    """Runs journey(program, model) and ends the process with the verdict."""
    program_path, model_path = map(os.path.abspath, sys.argv[1:3])
    program, model = Program(program_path), Model(model_path)
    try:
        model.section(program)
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
