# SPDX-License-Identifier: MIT
# What the rows hold: against reference data, and the same whoever works them.
import itertools
import math
import unittest

from program import curve_word, main, reference, rows, run


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


if __name__ == "__main__":
    main()
