#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fits the factors of trig.h, with fifty digits, and prints them as they stand there.

Needs python3-mpmath; run it only to change them. What follows the first terms of a function is
met, as a polynomial in the square of its argument, at the outer Chebyshev nodes of the range in
use; at the inner ones the power before it keeps the error small.
"""
from mpmath import atan, cos, lu_solve, matrix, mp, mpf, nstr, pi, sin, tan

mp.dps = 50

# name; what follows the first terms, over the power of z = x^2 that it begins with; the power of x
# that it is multiplied by; how many factors; the largest x
FUNCTIONS = [
    ("sine", lambda x: (sin(x) / x - 1) / x**2, 3, 7, pi / 4),
    ("cosine", lambda x: (cos(x) - 1 + x**2 / 2) / x**4, 4, 6, pi / 4),
    ("arc tangent", lambda x: (atan(x) / x - 1) / x**2, 3, 11, tan(pi / 8)),
]


def fit(function, power, count, end):
    """The doubles k[0], k[1], ... for which k[0] + k[1] x^2 + ... is near function(x)."""
    nodes = [end * cos(pi * (i + mpf(1) / 2) / (2 * count + power)) for i in range(count)]
    powers = matrix([[x ** (2 * i) for i in range(count)] for x in nodes])
    return [float(k) for k in lu_solve(powers, matrix([function(x) for x in nodes]))]


def error(function, power, factors, end):
    """The largest that the rounded polynomial adds to the value of the function."""
    steps = (end * i / 2000 for i in range(1, 2001))
    return max(
        x**power * abs(function(x) - sum(k * x ** (2 * i) for i, k in enumerate(factors)))
        for x in steps
    )


for name, function, power, count, end in FUNCTIONS:
    factors = fit(function, power, count, end)
    print(f"{name}, to {nstr(error(function, power, factors, end), 2)}:")
    print("    " + ", ".join(f"{k:.17g}" for k in factors))

# The quarter turn in two parts: the first short enough for exact products with small quotients.
high = mpf(int(pi / 2 * 2**32)) / 2**32
print("pi / 2:", float(high).hex(), "and", float(pi / 2 - high).hex())
print("2 / pi:", float(2 / pi).hex())
