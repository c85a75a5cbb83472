# SPDX-License-Identifier: MIT
# Wrong command lines: what each is told, the status 2, nothing on standard output, no file.
import os
import subprocess
import tempfile
import unittest

from program import PROGRAM, main, run

# A command line, cut at blanks ("~" stands for a blank inside a word, '' for no letter at all), and
# a part of the message.
WRONG = """
| give a verb and a curve
obit stadium | there is no verb 'obit'; did you mean 'orbit'?
xyzzy stadium | there is no verb 'xyzzy'; known are orbit, map, scan, periodic, curve
ORBIT stadium | there is no verb 'ORBIT'; known are
-n 5 orbit stadium | options follow the verb and the curve
--frobnicate | there is no option '--frobnicate'
orbit | orbit needs a curve
curve | curve needs a curve
orbit stadum | there is no curve 'stadum'; did you mean 'stadium'?
orbit ovala | there is no curve 'ovala'; did you mean 'oval-a'?
orbit OVAL-A | there is no curve 'OVAL-A'; known are ellipse, oval-a
orbit circle | there is no curve 'circle'; known are
orbit :c=5 | there is no curve ''
orbit stadium oval-a | 'oval-a' is one word too many
orbit stadium --stat 0.5,0.5 | orbit has no option '--stat'; did you mean --start?
orbit stadium --strat=0.5,0.5 | did you mean --start?
orbit stadium --cells 4x4 | --cells is an option of map periodic, not of orbit
curve stadium -n 5 | -n is an option of orbit map scan, not of curve
scan oval-a:c=2..3/2 --start 0.5,0.5 | --start is an option of orbit map, not of scan
periodic oval-a -n 7 | -n is an option of
orbit stadium --quite | see billiard-batch orbit --help
orbit stadium -x | orbit has no option '-x'
orbit stadium -n | -n
orbit stadium -n 5 -n 6 | -n is given twice
orbit stadium --resume --resume | --resume is given twice
orbit oval-a:d=5 | oval-a has no parameter 'd'; known are c
orbit triangle:alfa=60 | triangle has no parameter 'alfa'; did you mean 'alpha'?
orbit oval-a:c | oval-a: c has no value; give it as in c=5
orbit oval-a:c=5,c=6 | oval-a: c is given twice
orbit oval-a: | oval-a has no parameter ''
orbit oval-a:c=five | oval-a: c is 'five', which is no number
orbit oval-a:c=5x | oval-a: c is '5x', which is no number
orbit oval-a:c= | oval-a: c is '', which is no number
orbit oval-a:c=nan | oval-a: c is 'nan', which is no number
orbit oval-a:c=inf | oval-a: c is 'inf', which is no number
orbit oval-a:c=1e999 | oval-a: c is '1e999', which is no number
orbit oval-a:c=1 | oval-a refuses c = 1: its limit is c > 1
orbit oval-a:c=-3 | oval-a refuses c = -3: its limit is c > 1
orbit oval-b:e=1 | oval-b refuses e = 1: its limit is -1 < e < 1
orbit oval-c:c=0.5 | oval-c refuses c = 0.5, n = 3: its limit is c > 1, n a whole number
orbit oval-c:n=2.5 | oval-c: n takes whole numbers to 2147483647, not 2.5
orbit oval-c:n=1e10 | oval-c: n takes whole numbers to 2147483647, not 1e+10
orbit triangle:alpha=0 | triangle refuses alpha = 0, beta = 70: its limit is alpha > 0, beta > 0
orbit triangle:alpha=120,beta=60 | alpha + beta < 180
orbit ellipse:e=1e200 | ellipse: R must be positive all round, but R(0) = 0
orbit fourier | fourier: '' is no constant term; give terms as in fourier:4,0.3@0
orbit fourier:4@1 | fourier: '4@1' is no constant term
orbit fourier:4,0.3 | fourier: '0.3' is no amplitude@phase
orbit fourier:4,0.3@x | fourier: '0.3@x' is no amplitude@phase
orbit fourier:4,,0.3@0 | fourier: '' is no amplitude@phase
orbit fourier:1,2@0 | fourier: R must be positive all round
orbit formula: | formula: the formula is empty
orbit formula:5+sn(t) | formula: unknown name 'sn' at column 3
orbit formula:5+ | at column 3
orbit formula:(5+sin(t) | at column 10 for the '(' at column 1
orbit formula:5+x | unknown name 'x' at column 3; 't' is known
orbit formula:sin(t) | formula: R must be positive all round, but R(0) = 0
orbit formula:-1 | formula: R must be positive all round, but R(0) = -1
orbit formula:1/0 | formula: R must be positive all round, but R(0) = inf
orbit formula:0/0 | formula: R must be positive all round, but R(0) = nan
map oval-a:c=1e160 | oval-a: R must be between 1e-150 and 1e150 all round, but R(0) = 1e+160
curve formula:1e-160 | R must be between 1e-150 and 1e150 all round
orbit formula:5+a | unknown name 'a' at column 3
orbit formula:5+a --let a | --let 'a' is no NAME=VALUE
orbit formula:5+a --let =3 | --let '=3' is no NAME=VALUE
orbit formula:5+a --let 1a=3 | --let '1a=3' is no NAME=VALUE
orbit formula:5+a --let a= | --let a has no value
orbit formula:5+a --let a=2+* | --let a:
orbit formula:5+a --let a=b | --let a: unknown name 'b' at column 1
orbit formula:5+a --let a=1 --let a=2 | --let a is given twice
orbit formula:5+t --let t=1 | --let t: a formula's own name cannot be given anew
orbit formula:5+t --let sin=1 | --let sin: a formula's own name
orbit formula:5+e --let e=1 | --let e: a formula's own name
orbit stadium --let a=1 | --let is for a formula, and stadium has none
orbit oval-a:c=2..3/4 | orbit takes one curve: the range of 'c' is for scan
map formula:5+a --let a=0..1/3 | map takes one curve: the range of 'a' is for scan
orbit '' | orbit needs a curve
curve oval-a:c=2..3/4 | curve takes one curve
scan oval-a:c=2..3 | oval-a: c is '2..3', which is no range; one of 46 values is 1.5..6/46
scan oval-a:c=2..3/0 | which is no range
scan oval-a:c=2..3/x | which is no range
scan oval-a:c=2..3/1 | a range with two ends has 2 values
scan oval-a:c=0.5..6/46 | oval-a refuses c = 0.5: its limit is c > 1
scan oval-c:n=2..5/3 | oval-c: n takes whole numbers to 2147483647, not 3.5
scan oval-a:c=2..3/2 --random 0 | --random takes a whole number from 1 to
scan oval-a:c=2..3/2 --threshold x | --threshold takes a number, not 'x'
orbit stadium -n 0 | -n takes a whole number from 1 to 9007199254740992, not '0'
orbit stadium -n -5 | -n takes a whole number from 1 to 9007199254740992, not '-5'
orbit stadium -n 1.5 | not '1.5'
orbit stadium -n inf | not 'inf'
orbit stadium -n nan | not 'nan'
orbit stadium -n 1e300 | not '1e300'
orbit stadium -n ten | not 'ten'
orbit stadium -j 0 | -j takes a whole number from 1 to 1024, not '0'
orbit stadium -j many | not 'many'
orbit stadium --start 0,0 | the start 0,0 is outside the section, 0 < S < 1 and -1 < P < 1
orbit stadium --start 0.5,1 | the start 0.5,1 is outside the section
orbit stadium --start -0.5,0.5 | the start -0.5,0.5 is outside the section
orbit stadium --start 0.5 | --start takes two numbers S,P, not '0.5'
orbit stadium --start 0.5,0.5,0.5 | --start takes two numbers S,P
orbit stadium --start 0.5;0.5 | --start takes two numbers S,P
orbit stadium --angles 1,0 | the start 1,0 is outside the section, 0 < alpha < pi
orbit stadium --angles 1,3.2 | outside the section, 0 < alpha < pi
orbit stadium --angles 1,nan | --angles takes two numbers PHI,ALPHA, not '1,nan'
orbit stadium --random -1 | --random takes a whole number from 1
orbit stadium --random 5 --seed x | --seed takes a whole number from 0 to 18446744073709551615, not 'x'
orbit stadium --seed 5 | --seed is for --random, which is not given
orbit stadium --from missing.csv | missing.csv: No such file or directory
orbit stadium --from . | .: Is a directory
orbit stadium --from empty.csv | empty.csv is empty; it needs columns S and P
orbit stadium --from head.csv | head.csv has no starts
orbit stadium --from other.csv | other.csv has no column P in its line 'S,Q'
orbit stadium --from short.csv | short.csv: line 3 has 1 columns, not 2
orbit stadium --from word.csv | word.csv: line 2 has 'x' for a number
orbit stadium --from outside.csv | outside.csv: line 4 is a start outside the section
map stadium --cells 4 | --cells takes WxH, two whole numbers from 1, as 80x40, not '4'
map stadium --cells 0x4 | not '0x4'
map stadium --cells 4x4x4 | not '4x4x4'
map stadium --window 0,0,1,1 | --window is for --cells, which is not given
map stadium --cells 4x4 --window 0,0,1 | --window takes four numbers S1,P1,S2,P2, not '0,0,1'
map stadium --cells 4x4 --window 0.5,0,0.2,1 | 0 <= S1 < S2 <= 1
map stadium --cells 4x4 --window 0,-2,1,1 | -1 <= P1 < P2 <= 1
map stadium --show rotation | --show is for a picture, -o FILE.png
map stadium --cells 4x4 --random 5 -o x.png | a picture is made of --cells alone
map stadium --cells 4x4 -o x.png --show colour | --show has no value 'colour'; known are
map stadium --cells 4x4 -o x.png --show chrod | did you mean 'chord'?
map stadium --cells 4x4 -o x.png --range 1 | --range takes two numbers LO,HI with LO < HI, not '1'
map stadium --cells 4x4 -o x.png --range 1,1 | --range takes two numbers LO,HI with LO < HI
map stadium --cells 4x4 -o x.png --scale 0 | --scale takes a whole number from 1
map stadium --cells 4x4 -o x.png --scale 20000 | the picture has more than 65535 pixels on a side
map stadium --cells 4x4 -o x.png --shard 1/2 | a part of the rows is no picture
map stadium --random 4 -o x.png | a picture is made of --cells alone
map stadium -o x.png | a picture is made of --cells alone
orbit stadium -o x.png | a picture is made by map --cells
periodic stadium --order 0 | --order takes a whole number from 1 to
periodic stadium --order x | --order takes a whole number from 1 to
orbit stadium --shard 0/4 | --shard takes K/N with K from 1 to N, not '0/4'
orbit stadium --shard 5/4 | --shard takes K/N with K from 1 to N, not '5/4'
orbit stadium --shard 3 | --shard takes K/N with K from 1 to N, not '3'
orbit stadium --progress sometimes | --progress has no value 'sometimes'; known are always, never, auto
orbit stadium --progress alway | did you mean 'always'?
orbit stadium --resume | --resume goes on with a file, which -o names
orbit stadium -o missing/x.csv | missing/x.csv: No such file or directory
orbit stadium -o '' | -o has no value; it takes FILE
orbit stadium -o . | .: Is a directory
map stadium --cells 4x4 -o missing/x.png | missing/x.png
orbit stadium -o pipe --resume | pipe is no file that --resume could go on with
"""

FILES = {
    "empty.csv": "# nothing\n",
    "head.csv": "S,P\n",
    "other.csv": "S,Q\n0.5,0.5\n",
    "short.csv": "S,P\n0.5,0.5\n0.5\n",
    "word.csv": "S,P\nx,0.5\n",
    "outside.csv": "# a comment\nP,S\n0.5,0.5\n0.5,1.5\n",
}


class WrongCommands(unittest.TestCase):
    def test_each_is_told_and_writes_nothing(self):
        cases = [line.split("| ") for line in WRONG.strip().splitlines()]
        self.assertGreater(len(cases), 100)
        with tempfile.TemporaryDirectory() as folder:
            for name, text in FILES.items():
                with open(f"{folder}/{name}", "w", encoding="ascii") as file:
                    file.write(text)
            os.mkfifo(f"{folder}/pipe")
            before = sorted(os.listdir(folder))
            for line, message in cases:
                words = [word.replace("~", " ").replace("''", "") for word in line.split()]
                with self.subTest(line):
                    done = subprocess.run([PROGRAM, *words], capture_output=True, text=True,
                                          cwd=folder, timeout=60, stdin=subprocess.DEVNULL)
                    self.assertIn(message, done.stderr)
                    self.assertTrue(done.stderr.startswith("billiard-batch: "), done.stderr)
                    self.assertIn(done.stderr.count("\n"), (1, 2), done.stderr)
                    self.assertEqual((done.returncode, done.stdout), (2, ""))
            self.assertEqual(sorted(os.listdir(folder)), before)

    def test_a_refused_command_leaves_the_old_file(self):
        with tempfile.TemporaryDirectory() as folder:
            name = f"{folder}/old.csv"
            with open(name, "w", encoding="ascii") as file:
                file.write("precious\n")
            run("orbit", "stadium", "-n", 0, "-o", name, status=2, told="-n takes")
            run("orbit", "stadium", "-o", name, "--resume", status=2, told="another command")
            with open(name, encoding="ascii") as file:
                self.assertEqual(file.read(), "precious\n")


if __name__ == "__main__":
    main()
