# SPDX-License-Identifier: MIT
# What goes wrong around a run: kills, full disks, closed pipes, signals, files of other commands.
import os
import random
import re
import resource
import signal
import subprocess
import tempfile
import time
import unittest

from program import PROGRAM, main, run

# A second's work or so, for kills to fall into.
LONG = {
    "orbit": ("orbit", "stadium", "--random", 3, "-n", 60000),
    "short orbits": ("orbit", "oval-a:c=2", "--random", 4000, "-n", 40),
    "map": ("map", "oval-a:c=2", "--cells", "60x60", "-n", 500),
    "scan": ("scan", "oval-a:c=1.5..6/40", "--random", 50, "-n", 500),
    "periodic": ("periodic", "oval-a:c=3", "--cells", "20x20"),
    "part": ("map", "oval-a:c=2", "--random", 4000, "-n", 500, "--shard", "2/2"),
}
SEED = 5


class Files(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.file = f"{folder.name}/rows.csv"

    def content(self):
        with open(self.file, encoding="ascii") as file:
            return file.read()


class Resume(Files):
    def test_killed_at_ten_moments(self):
        moments = random.Random(SEED)
        for name, words in LONG.items():
            whole = run(*words)
            for i in range(10):
                with self.subTest(f"{name}, kill {i}"):
                    if i == 0 and os.path.exists(self.file):
                        os.remove(self.file)
                    process = subprocess.Popen([PROGRAM, *map(str, words), "-o", self.file,
                                                *(["--resume"] if i else [])])
                    time.sleep(moments.uniform(0, 0.3))
                    process.kill()
                    process.wait()
            run(*words, "-o", self.file, "--resume")
            self.assertEqual(self.content(), whole, name)

    def test_cut_anywhere(self):
        for words in (("orbit", "oval-a", "-n", 3), ("orbit", "oval-a", "-n", 1, "--random", 3),
                      ("map", "oval-a", "--random", 3), ("scan", "oval-a:c=2..3/3", "-n", 10),
                      ("curve", "oval-a")):
            whole = run(*words)
            for end in range(len(whole) + 1):
                with open(self.file, "w", encoding="ascii") as file:
                    file.write(whole[:end])
                run(*words, "-o", self.file, "--resume")
                self.assertEqual(self.content(), whole, f"{words} cut at {end}")

    def test_other_files_are_refused(self):
        mine = ("map", "oval-a", "--random", 3, "-n", 10)
        text = run(*mine)
        others = {
            "another command": run("map", "oval-a", "--random", 4, "-n", 10),
            "another version": text.replace("batch 1", "batch 9", 1),
            "more rows": text + text.splitlines()[-1] + "\n",
            "no rows": "precious\n",
        }
        for name, other in others.items():
            with self.subTest(name):
                with open(self.file, "w", encoding="ascii") as file:
                    file.write(other)
                told = "more rows" if name == "more rows" else "made by another command or version"
                run(*mine, "-o", self.file, "--resume", status=2, told=told)
                self.assertEqual(self.content(), other)
        part = (*mine, "--shard", "2/3")
        run(*mine, "--shard", "3/3", "-o", self.file)
        run(*part, "-o", self.file, "--resume", status=2, told="made by another command or version")


class Disk(Files):
    def test_full(self):
        told = "No space left on device"
        for words in (("orbit", "stadium"), ("curve", "stadium"), ("--help",)):
            with open("/dev/full", "w", encoding="ascii") as full:
                run(*words, stdout=full, status=1, told=told)
        run("orbit", "stadium", "-o", "/dev/full", status=1, told=told)

    def test_limit_of_a_file(self):
        limit = 100_000
        whole = run(*LONG["orbit"])
        def limited():
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))
        for redirected in (False, True):
            with open(self.file, "w", encoding="ascii") as file:
                run(*LONG["orbit"], *(() if redirected else ("-o", self.file)), preexec_fn=limited,
                    **({"stdout": file} if redirected else {}), status=1, told="File too large")
            rest = self.content()
            self.assertTrue(whole.startswith(rest) and rest.endswith("\n"))
            self.assertGreater(len(rest), limit - 300)
        run(*LONG["orbit"], "-o", self.file, "--resume")
        self.assertEqual(self.content(), whole)

    def test_limit_of_a_picture(self):
        picture = f"{self.folder}/x.png"
        words = ("map", "oval-a:c=2", "--cells", "50x50", "-n", 20, "-o", picture)
        def limited():
            resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))
        run(*words, "--scale", 40, preexec_fn=limited, status=1, told="File too large")
        self.assertEqual(os.listdir(self.folder), ["x.png.rows"])
        run(*words, "--resume", told="lyapunov from")
        self.assertEqual(os.listdir(self.folder), ["x.png"])


class Ends(Files):
    def test_closed_pipe(self):
        for ignored in (False, True):
            with subprocess.Popen([PROGRAM, "orbit", "stadium", "-n", "1000000"],
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  restore_signals=not ignored) as process:
                process.stdout.readline()
                process.stdout.close()
                self.assertEqual(process.stderr.read(), b"")
            self.assertIn(process.returncode, (-signal.SIGPIPE, 128 + signal.SIGPIPE))

    def test_signals(self):
        endless = {"orbit": ("orbit", "stadium", "-n", "1e12"),
                   "one verdict": ("map", "stadium", "-n", "1e12"),
                   "verdicts": ("map", "stadium", "-n", "1e4", "--random", "1e9"),
                   "scan": ("scan", "stadium:z=0..1/1000000"),
                   "search": ("periodic", "oval-a:c=3", "--cells", "1000x1000")}
        for number, status in ((signal.SIGINT, 130), (signal.SIGTERM, 143)):
            for name, words in endless.items():
                with self.subTest(f"{name}, {number}"):
                    with subprocess.Popen([PROGRAM, *words, "-o", self.file],
                                          stderr=subprocess.PIPE) as process:
                        while not os.path.exists(self.file) or os.path.getsize(self.file) == 0:
                            time.sleep(0.01)
                        time.sleep(0.3)
                        process.send_signal(number)
                        self.assertEqual(process.wait(timeout=30), status)
                        self.assertEqual(process.stderr.read(), b"")
                    self.assertTrue(self.content().endswith("\n"))
                    os.remove(self.file)

    def test_signal_while_nobody_reads(self):
        with subprocess.Popen([PROGRAM, "orbit", "stadium", "-n", "1000000"],
                              stdout=subprocess.PIPE) as process:
            process.stdout.read(1)
            time.sleep(0.3)
            process.terminate()
            self.assertEqual(process.wait(timeout=30), 143)

    @unittest.skipIf("SANITIZED" in os.environ, "sanitizers keep what is freed")
    def test_memory_does_not_grow(self):
        def peak(read, *words):
            """The most kilobytes of a command that has stopped as so much of its rows is read. What
            the system tells of an ended process counts in Python, which started it."""
            with subprocess.Popen([PROGRAM, *map(str, words)], stdout=subprocess.PIPE) as process:
                process.stdout.read(read)
                time.sleep(0.3)
                with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
                    most = re.search(r"VmHWM:\s+(\d+)", status.read())[1]
                process.kill()
            return int(most)
        small, wide, long = 2048, 8192, 20_000_000
        for threads in (2, 64):
            words = ("orbit", "stadium", "-j", threads, "-n")
            self.assertLess(peak(long, *words, 300000), peak(0, *words, 1000) + small)
        words = ("map", "stadium", "-n", 1)
        base = peak(0, *words, "--random", 3000)
        self.assertLess(peak(long, *words, "--random", 400000), base + small)
        with open(self.file, "w", encoding="ascii") as file:
            file.write("S,P\n" + "0.25,0.5\n" * 600000)
        self.assertLess(peak(long, *words, "--from", self.file), base + wide)

    def test_progress_and_dry_run(self):
        run("orbit", "stadium", "--progress", "always", told="100.0 % done,")
        run("orbit", "stadium", "--progress", "never")
        text = run("map", "stadium", "--cells", "1000x1000", "-n", "1e6", "--dry-run", "-j", 3)
        self.assertRegex(text, r"\Arows: 1000000\nbounces: 1000000000000\n"
                               r"time: about \d+:\d\d:\d\d with 3 threads\n\Z")


if __name__ == "__main__":
    main()
