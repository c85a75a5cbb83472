# SPDX-License-Identifier: MIT
# What stands around the rows: help, version, manual page, completion, other engines.
import os
import re
import shutil
import subprocess
import tempfile
import unittest

from program import PROGRAM, REPOSITORY, main, rows, run

VERBS = ("orbit", "map", "scan", "periodic", "curve")


def options_of(verb):
    return re.findall(r"^  (--?\w[\w-]*)", run(verb, "--help"), re.MULTILINE)


class Texts(unittest.TestCase):
    def test_help(self):
        text = run("--help")
        self.assertEqual(text, run("-h"))
        for verb in VERBS:
            self.assertRegex(text, rf"\n  {verb} ")
            help_text = run(verb, "--help")
            self.assertEqual(help_text, run(verb, "oval-a:c=5", "-h"))
            self.assertLess(max(map(len, help_text.splitlines())), 90)
            # The example is a command that works, in a small form.
            example = re.search(r"Example:\n  billiard-batch (.*)\n", help_text)[1].split()
            self.assertEqual(example[0], verb)
            small = {"800x800": "4x4", "10000": "10", "1.5..6/46": "2..3/2", "500": "5", "40x40": "3x3"}
            with tempfile.TemporaryDirectory() as folder:
                subprocess.run([PROGRAM, *(small.get(w, w.replace("46", "2")) for w in example)],
                               check=True, cwd=folder, capture_output=True)

    def test_version(self):
        with open(f"{REPOSITORY}/CMakeLists.txt", encoding="ascii") as file:
            version = re.search(r"VERSION (\d+\.\d+\.\d+) ", file.read())[1]
        self.assertEqual(run("--version"), f"billiard-batch {version}\n")
        self.assertEqual(run("curve", "stadium").splitlines()[0], f"# billiard-batch {version}")
        for page in ("billiard", "billiard-batch"):
            with open(f"{REPOSITORY}/packaging/{page}.1", encoding="ascii") as file:
                self.assertIn(f'"Billiard {version}"', file.read())

    def test_manual_page_names_all_options_and_columns(self):
        with open(f"{REPOSITORY}/packaging/billiard-batch.1", encoding="ascii") as file:
            page = file.read().replace("\\-", "-")
        for verb in VERBS:
            self.assertIn(f"\n.B {verb}\n", page)
            for option in options_of(verb):
                self.assertRegex(page, rf"\n\.BI? \"?{option}\b|{option}\b", verb)
            columns = re.search(r"Columns:\n  (.*)\n", run(verb, "--help"))[1]
            for column in columns.split(","):
                self.assertIn(column, page)
        for curve in re.findall(r"^  ([a-z-]+):?\S*  +R? ?", run("--help"), re.MULTILINE):
            if curve not in VERBS and not curve.startswith("-"):
                self.assertIn(f"\n.B {curve}", page)

    def test_completion(self):
        script = run("--bash-completion")
        def complete(*words):
            line = (script + "COMP_WORDS=(" + " ".join(f"'{w}'" for w in ("billiard-batch", *words))
                    + f"); COMP_CWORD={len(words)}; _billiard_batch; printf '%s\\n' \"${{COMPREPLY[@]}}\"")
            done = subprocess.run(["bash", "-uc", line], capture_output=True, text=True, check=True)
            return done.stdout.split()
        self.assertEqual(complete("p"), ["periodic"])
        self.assertEqual(complete("map", "o"), ["oval-a", "oval-b", "oval-c"])
        self.assertEqual(complete("map", "oval-a", "--cells", "4x4", "--show", "r"), ["rotation"])
        self.assertEqual(complete("map", "oval-a", "-n", ""), [])
        for verb in VERBS:
            self.assertEqual(sorted(complete(verb, "oval-a", "-")), sorted(options_of(verb)))


class Engines(unittest.TestCase):
    @unittest.skipUnless(shutil.which("parallel"), "GNU parallel is not installed")
    def test_gnu_parallel(self):
        words = ("map", "oval-a:c=2", "--cells", "30x20", "-n", 100)
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["parallel", "--will-cite", PROGRAM, *map(str, words), "-j", "1", "--shard",
                            "{}/8", "-o", "part{}.csv", ":::", *"12345678"], cwd=folder, check=True,
                           env=os.environ | {"HOME": folder}, stderr=subprocess.DEVNULL)
            joined = ""
            for k in range(1, 9):
                with open(f"{folder}/part{k}.csv", encoding="ascii") as part:
                    joined += part.read()
            self.assertEqual(joined, run(*words))
            self.assertEqual(len(rows(joined)), 600)


if __name__ == "__main__":
    main()
