#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Turns the pictures NAME.xpm of this folder into the icon files that the program embeds.

Run it after a picture was edited. XPM is the source because it is a text: one letter a pixel,
32 x 32, at most 15 colours beside "None" in those that become an ICO or a GIF.

The toolkit decides what is transparent in its own way for each format:
  ICO  the pixels of the AND mask, whatever their colour;
  GIF  the background index, also where the file does not flag it, so None is that index;
  PNG  nothing: an RGB picture is opaque, so its source has no None.
"""
import ast
import os
import re
import struct
import zlib

SIDE = 32


def read_xpm(path):
    """The rows of pixels, each an (r, g, b) or None."""
    with open(path, encoding="ascii") as file:
        strings = [ast.literal_eval(s) for s in re.findall(r'"[^"]*"', file.read())]
    width, height, count, letters = map(int, strings[0].split())
    assert (width, height, letters) == (SIDE, SIDE, 1), path
    colours = {}
    for line in strings[1 : 1 + count]:
        value = line[1:].split()[1]
        colours[line[0]] = None if value == "None" else tuple(bytes.fromhex(value[1:]))
    return [[colours[letter] for letter in row] for row in strings[1 + count :]]


def indexed(rows):
    """A palette of 16 colours whose entry 0 stands for None, and the rows as indices."""
    colours = sorted({pixel for row in rows for pixel in row if pixel})
    assert len(colours) <= 15
    index = {colour: number for number, colour in enumerate(colours, 1)}
    index[None] = 0
    palette = [(0, 0, 0)] + colours + [(0, 0, 0)] * (15 - len(colours))
    return palette, [[index[pixel] for pixel in row] for row in rows]


def ico(rows):
    palette, indices = indexed(rows)
    pixels = mask = b""
    for row in reversed(indices):
        pixels += bytes(a << 4 | b for a, b in zip(row[::2], row[1::2]))
        mask += int("".join("01"[number == 0] for number in row), 2).to_bytes(SIDE // 8, "big")
    colours = b"".join(bytes((b, g, r, 0)) for r, g, b in palette)
    header = struct.pack("<IiiHHIIiiII", 40, SIDE, 2 * SIDE, 1, 4, 0, len(pixels + mask), 0, 0, 16, 0)
    image = header + colours + pixels + mask
    entry = struct.pack("<BBBBHHII", SIDE, SIDE, 16, 0, 1, 4, len(image), 22)
    return struct.pack("<HHH", 0, 1, 1) + entry + image


def lzw(indices, bits):
    """The codes of GIF's compression, packed into bytes from the low end."""
    clear, end = 1 << bits, (1 << bits) + 1
    table = {(number,): number for number in range(clear)}
    following, width = end + 1, bits + 1
    codes, word = [(clear, width)], ()
    for index in indices:
        if word + (index,) in table:
            word += (index,)
            continue
        codes.append((table[word], width))
        table[word + (index,)] = following
        if following == 1 << width:
            width += 1
        following += 1
        assert following < 4096  # a picture of this size never fills the table
        word = (index,)
    codes += [(table[word], width), (end, width)]
    stream = shift = 0
    for code, width in codes:
        stream |= code << shift
        shift += width
    return stream.to_bytes((shift + 7) // 8, "little")


def gif(rows):
    palette, indices = indexed(rows)
    data = lzw([index for row in indices for index in row], 4)
    blocks = [data[start : start + 255] for start in range(0, len(data), 255)]
    return (
        b"GIF89a"
        + struct.pack("<HHBBB", SIDE, SIDE, 0xB3, 0, 0)  # 16 colours; background is index 0
        + b"".join(map(bytes, palette))
        + struct.pack("<BBBBHBB", 0x21, 0xF9, 4, 1, 0, 0, 0)  # index 0 is transparent
        + struct.pack("<BHHHHB", 0x2C, 0, 0, SIDE, SIDE, 0)
        + b"\x04"
        + b"".join(bytes([len(block)]) + block for block in blocks)
        + b"\0;"
    )


def png(rows):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    lines = b"".join(b"\0" + b"".join(map(bytes, row)) for row in rows)
    header = struct.pack(">IIBBBBB", SIDE, SIDE, 8, 2, 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(lines, 9))
        + chunk(b"IEND", b"")
    )


def main():
    folder = os.path.dirname(os.path.abspath(__file__))
    for name, write in (("main", ico), ("help", ico), ("range", ico), ("file", gif), ("color", png)):
        rows = read_xpm(os.path.join(folder, name + ".xpm"))
        with open(os.path.join(folder, f"{name}.{write.__name__}"), "wb") as file:
            file.write(write(rows))


main()
