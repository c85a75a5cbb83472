# SPDX-License-Identifier: MIT
# The finished program as the tests run it. Called as SCRIPT PROGRAM DATA [unittest's options].
import csv
import os
import subprocess
import sys
import unittest

PROGRAM, DATA = sys.argv[1:3]
REPOSITORY = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")


def run(*words, status=0, told="", **options):
    """Standard output of a command, which must end with the status and tell this on standard error:
    nothing, or a text with this part."""
    options = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "text": True} | options
    done = subprocess.run([PROGRAM, *map(str, words)], **options)
    complaint = f"{' '.join(map(str, words))}: status {done.returncode}, {done.stderr}"
    assert done.returncode == status, complaint
    heard = done.stderr or ""
    assert told in heard and bool(told) == bool(heard), complaint
    return done.stdout


def rows(text):
    """The rows of an output as dictionaries of texts."""
    return list(csv.DictReader(line for line in text.splitlines() if not line.startswith("#")))


def reference(name):
    """The rows of a table of reference data."""
    with open(f"{DATA}/{name}", newline="") as table:
        return list(csv.DictReader(table))


NAMES = {"Ellipse": ("ellipse", "e"), "OvalA": ("oval-a", "c"), "OvalB": ("oval-b", "e"),
         "OvalC": ("oval-c", "c", "n"), "Stadium": ("stadium", "z"),
         "Triangle": ("triangle", "alpha", "beta")}


def curve_word(kind, params):
    """The word for a curve of the reference data."""
    if kind == "Formula":
        return "formula:" + params
    values = params.split()
    if kind == "Fourier":
        terms = [f"{a}@{phase}" for a, phase in zip(values[3::2], values[4::2])]
        return "fourier:" + ",".join([values[1], *terms])
    name, *parameters = NAMES[kind]
    return name + ":" + ",".join(f"{p}={v}" for p, v in zip(parameters, values))


def main():
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
