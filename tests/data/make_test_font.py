#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Writes plain.ttf, the font of the font tests: boxes and slants with known measures, drawn here.
#
# Needs python3-fonttools; run it only to change the font. The em has 1000 units, capitals 720.
import sys

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib.tables._k_e_r_n import KernTable_format_0, table__k_e_r_n

CONTOURS = {
    ".notdef": [[(50, 0), (50, 720), (550, 720), (550, 0)]],
    "space": [],
    "H": [[(80, 0), (80, 720), (160, 720), (160, 0)],
          [(160, 320), (160, 400), (520, 400), (520, 320)],
          [(520, 0), (520, 720), (600, 720), (600, 0)]],
    "A": [[(20, 0), (300, 720), (400, 720), (680, 0), (600, 0), (350, 640), (100, 0)]],
    "V": [[(20, 720), (100, 720), (350, 80), (600, 720), (680, 720), (400, 0), (300, 0)]],
    "p": [[(80, -240), (80, 540), (500, 540), (500, 0), (160, 0), (160, -240)]],
}
WIDTHS = {".notdef": 600, "space": 320, "H": 680, "A": 700, "V": 700, "p": 580}


def glyph(contours):
    pen = TTGlyphPen(None)
    for contour in contours:
        pen.moveTo(contour[0])
        for point in contour[1:]:
            pen.lineTo(point)
        pen.closePath()
    return pen.glyph()


names = list(CONTOURS)
builder = FontBuilder(1000, isTTF=True)
builder.setupGlyphOrder(names)
builder.setupCharacterMap({32: "space", 65: "A", 72: "H", 86: "V", 112: "p"})
builder.setupGlyf({name: glyph(contours) for name, contours in CONTOURS.items()})
builder.setupHorizontalMetrics({n: (WIDTHS[n], builder.font["glyf"][n].xMin if CONTOURS[n] else 0)
                                for n in names})
builder.setupHorizontalHeader(ascent=800, descent=-240)
builder.setupNameTable({"familyName": "Plain", "styleName": "Regular"})
builder.setupOS2(sTypoAscender=800, sTypoDescender=-240, usWinAscent=800, usWinDescent=240)
builder.setupPost(keepGlyphNames=False)

pairs = KernTable_format_0()
pairs.coverage, pairs.apple, pairs.version = 1, False, 0
pairs.kernTable = {("A", "V"): -240, ("V", "A"): -240}
kern = table__k_e_r_n()
kern.version, kern.kernTables = 0, [pairs]
builder.font["kern"] = kern
builder.font["head"].created = builder.font["head"].modified = 0
builder.font.recalcTimestamp = False
builder.save(sys.argv[1] if len(sys.argv) > 1 else "plain.ttf")
