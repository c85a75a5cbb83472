# SPDX-License-Identifier: MIT
# What the rows hold: against reference data, and the same whoever works them.
import itertools
import math
import statistics
import struct
import subprocess
import tempfile
import unittest
import zlib

from program import curve_word, main, reference, rows, run


def pixels(name):
    """Size of a PNG file of 8-bit numbers, and its rows."""
    with open(name, "rb") as file:
        data = file.read()
    width, height = struct.unpack(">II", data[16:24])
    at, packed = 8, b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        packed += data[at + 8:at + 8 + length] if kind == b"IDAT" else b""
        at += length + 12
    lines = zlib.decompress(packed)
    picture = [lines[y * (width + 1):(y + 1) * (width + 1)] for y in range(height)]
    assert all(line[0] == 0 for line in picture)  # no filter, as is best for a palette
    return (width, height), [line[1:] for line in picture]


class Orbits(unittest.TestCase):
    def test_reference_orbits(self):
        by_orbit = itertools.groupby(reference("orbits.csv"), lambda row: row["orbit"])
        for orbit, wanted in by_orbit:
            wanted = list(wanted)
            first = wanted[0]
            got = rows(run("orbit", curve_word(first["kind"], first["params"]), "--angles",
                           first["phi0"] + "," + first["alpha0"], "-n", wanted[-1]["n"]))
            for row in (row for row in wanted if not row["flag"]):
                here = got[int(row["n"])]
                for column, period in (("phi", 2 * math.pi), ("alpha", 9), ("S", 1), ("P", 9)):
                    off = abs(float(here[column]) - float(row[column]))
                    self.assertLessEqual(min(off, period - off), abs(float(row["tol_" + column])),
                                         f"{orbit}, bounce {row['n']}, {column}")

    def test_columns_belong_together(self):
        for row, before in zip(*(lambda r: (r[1:], r))(rows(run("orbit", "oval-a:c=2", "-n", 2000)))):
            x, y, phi, alpha = (float(row[c]) for c in ("x", "y", "phi", "alpha"))
            self.assertAlmostEqual(math.hypot(x, y), 2 + math.cos(2 * phi), 12)
            self.assertAlmostEqual(math.atan2(y, x) % (2 * math.pi), phi, 12)
            self.assertAlmostEqual(float(row["P"]), math.cos(alpha), 14)
            way = math.hypot(x - float(before["x"]), y - float(before["y"]))
            self.assertAlmostEqual(float(row["length"]), way, 14)
            self.assertEqual(int(row["bounce"]), int(before["bounce"]) + 1)


class Starts(unittest.TestCase):
    """Where orbits start, as the rows of `map` tell it."""

    def starts(self, *words, **options):
        got = rows(run("map", "oval-a", "-n", 1, *words, **options))
        return [(float(row["S"]), float(row["P"])) for row in got]

    def test_without_any_the_middle(self):
        self.assertEqual(self.starts(), [(0.5, 0.5)])

    def test_each_source_in_its_order(self):
        table = '\ufeff# a comment\nn, P,"S"\n"1,2",-0.25,"0.125"\n\n2,1e-1 ,5e-1\r\n'
        got = self.starts("--start", "0.3,-0.2", "--angles", "0,1.5707963267948966", "--start",
                          "0.1,0.1", "--from", "-", "--cells", "2x2", "--window", "0,0,1,1",
                          input=table)
        self.assertEqual(got[0], (0.3, -0.2))
        self.assertAlmostEqual(got[1][1], 0, 15)
        self.assertEqual(got[2:5], [(0.1, 0.1), (0.125, -0.25), (0.5, 0.1)])
        self.assertEqual(got[5:], [(0.25, 0.75), (0.75, 0.75), (0.25, 0.25), (0.75, 0.25)])

    def test_random_starts_are_those_of_the_manual(self):
        def output(k, mask=2**64 - 1):
            z = (7 + (k + 1) * 0x9E3779B97F4A7C15) & mask
            z = ((z ^ (z >> 30)) * 0xBF58476D1CE4E5B9) & mask
            z = ((z ^ (z >> 27)) * 0x94D049BB133111EB) & mask
            return ((z ^ (z >> 31)) >> 12) * 2 + 1
        self.assertEqual(self.starts("--random", 50, "--seed", 7),
                         [(output(2 * i) * 2.0**-53, 2 * output(2 * i + 1) * 2.0**-53 - 1)
                          for i in range(50)])

    def test_angles_of_any_turn(self):
        near = run("orbit", "oval-a", "-n", 3, "--angles", "-1,1").splitlines()[3:]
        far = run("orbit", "oval-a", "-n", 3, "--angles", f"{2 * math.pi - 1!r},1").splitlines()[3:]
        self.assertEqual(near, far)

    def test_rows_of_an_orbit_are_starts_again(self):
        orbit = run("orbit", "stadium", "-n", 20)
        got = self.starts("--from", "-", input=orbit)
        self.assertEqual(got, [(float(row["S"]), float(row["P"])) for row in rows(orbit)])


class Maps(unittest.TestCase):
    def test_mean_chords_of_ergodic_tables(self):
        """Within some standard errors, taken from the spread of the orbits, of pi A / L."""
        for curve in ("stadium:z=0.5", "stadium:z=1", "stadium:z=3", "oval-a:c=1.2",
                      "oval-c:c=1.1,n=3", "oval-c:c=1.5,n=5", "oval-b:e=-0.95", "formula:2+sin(3*t)",
                      "fourier:1,0.3@0,0.4@1", "triangle:alpha=53,beta=71"):
            chords = [float(row["chord"]) for row in
                      rows(run("map", curve, "--random", 100, "-n", 2000,
                               stderr=subprocess.DEVNULL))]  # one may run into the origin
            mean = statistics.fmean(chords)
            error = statistics.stdev(chords) / math.sqrt(len(chords))
            wanted = float(rows(run("curve", curve))[0]["mean_chord"])
            self.assertLess(abs(mean - wanted), 4 * error + 1e-9 * wanted, curve)

    def test_a_scan_is_the_sum_of_a_map(self):
        n = 1500
        for more, threshold in (((), 2 * math.log(n + 1) / n), (("--threshold", 0.3), 0.3)):
            starts = ("--random", 300, "--seed", 3, "-n", n)
            row = rows(run("scan", "oval-a:c=4..6/3", *starts, *more))[2]
            verdicts = rows(run("map", "oval-a:c=6", *starts))
            facts = rows(run("curve", "oval-a:c=6"))[0]
            share = sum(float(v["lyapunov"]) > threshold for v in verdicts) / len(verdicts)
            for column, wanted in {"c": 6, "circumference": float(facts["circumference"]),
                                   "area": float(facts["area"]), "chaotic": share,
                                   "chaotic_error": math.sqrt(share * (1 - share) / 300),
                                   "chord": statistics.fmean(float(v["chord"]) for v in verdicts),
                                   "lyapunov": statistics.fmean(float(v["lyapunov"])
                                                                for v in verdicts)}.items():
                self.assertAlmostEqual(float(row[column]), wanted, 12, column)
            self.assertTrue(0.1 < share < 0.99)

    def test_picture(self):
        with tempfile.TemporaryDirectory() as folder:
            name = f"{folder}/map.PNG"
            words = ("map", "oval-a:c=3", "--cells", "6x4", "-n", 50)
            run(*words, "-o", name, "--show", "chord", "--range", "2,5", "--scale", 3,
                told="billiard-batch: chord from 2 to 5\n")
            size, picture = pixels(name)
            self.assertEqual(size, (18, 12))
            chords = [float(row["chord"]) for row in rows(run(*words))]
            colours = {}
            for i, chord in enumerate(chords):
                x, y = 3 * (i % 6), 3 * (i // 6)
                cell = {picture[y + b][x + a] for a in range(3) for b in range(3)}
                self.assertEqual(len(cell), 1)
                colours[cell.pop()] = int(255 * (chord - 2) / 3)
            self.assertEqual(sorted(colours), sorted(colours, key=colours.get))
            least = repr(min(chords)).removesuffix(".0")
            run(*words, "-o", name, "--show", "chord", told=f"chord from {least} to")


class Formulas(unittest.TestCase):
    def test_names_stand_for_expressions(self):
        def orbit(*words):
            return run("orbit", *words, "-n", 20).splitlines()[3:]
        plain = orbit("formula:5+2*(1/8)*sin(2*t)")
        self.assertEqual(orbit("formula:5+2*a*sin(b)", "--let", "a=1/8", "--let", "b=2*t"), plain)
        self.assertEqual(orbit("formula:5+2*a*sin(u*t)", "--let", "u=1+1", "--let", "a=1/(4*u)"),
                         plain)
        self.assertEqual(orbit("formula"), orbit("formula:5+sin(t)"))


# Commands of every verb, with more rows than one block and rows that take their time.
COMMANDS = {
    "many short orbits": ("orbit", "stadium", "--random", 300, "-n", 7),
    "long orbits": ("orbit", "oval-a:c=3", "--random", 3, "--start", "0.25,0", "-n", 1500),
    "orbits that end early": ("orbit", "formula:1+t", "--random", 16, "-n", 1200),
    "map": ("map", "oval-c", "--cells", "20x30", "-n", 200),
    "map of a formula": ("map", "formula:4+a*sin(2*t)", "--let", "a=0.5", "--random", 99),
    "scan": ("scan", "oval-c:n=2..3/2,c=2..4/3", "--random", 40, "-n", 300),
    "curve": ("curve", "oval-c"),
    "periodic": ("periodic", "oval-a:c=3", "--order", 4, "--cells", "20x20"),
    "scan in slices": ("scan", "oval-a:c=2..3/2", "--random", 40, "-n", 20000),
}


class SameBytes(unittest.TestCase):
    def test_whatever_the_threads_and_the_parts(self):
        for name, words in COMMANDS.items():
            with self.subTest(name):
                stderr = subprocess.DEVNULL  # orbits may end early
                whole = run(*words, "-j", 1, stderr=stderr)
                for threads in (2, 8):
                    self.assertEqual(run(*words, "-j", threads, stderr=stderr), whole)
                for parts in (2, 7):
                    joined = [run(*words, "--shard", f"{k}/{parts}", stderr=stderr)
                              for k in range(1, parts + 1)]
                    self.assertEqual("".join(joined), whole)

    def test_orbits_that_end_early_are_told(self):
        for n in (100, 1000):  # rows of one block, and of several
            words = ("formula:1+t", "--random", 16, "-n", n)
            told = "of the orbits ended early"
            verdicts = [int(row["bounces"]) for row in rows(run("map", *words, told=told))]
            told = f": {sum(bounces < n for bounces in verdicts)} {told}"
            orbits = rows(run("orbit", *words, told=told))
            bounces = [max(int(row["bounce"]) for row in orbits if row["orbit"] == str(i))
                       for i in range(16)]
            self.assertEqual(verdicts, bounces)
            self.assertEqual((min(bounces) < n, max(bounces) == n), (True, n == 100))

    def test_the_head_tells_what_decides_the_rows(self):
        text = run("map", "formula:5+sin(t)", "--let", "a=1 +1", "-n", 5, "--start=0.25,0.5", "-j", 2,
                   "--progress", "never")
        self.assertEqual(text.splitlines()[1],
                         "# map 'formula:5+sin(t)' --let 'a=1 +1' -n 5 --start 0.25,0.5")


if __name__ == "__main__":
    main()
