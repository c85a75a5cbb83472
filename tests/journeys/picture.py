# SPDX-License-Identifier: MIT
"""The pixels of a window."""
import struct

from desktop import check, output_of

WHITE = 0xFFFFFF
BLACK = 0x000000
RED = 0xFF0000
PATH_BLUE = 0x6772FF
GREY = 0x808080


class Picture:
    """The pixels of a window as 0xRRGGBB."""

    def __init__(self, window):
        data = b""
        while not data:  # a window that moves or hides meanwhile gives none
            data = output_of("xwd", "-silent", "-id", str(window))
        header = struct.unpack(">25I", data[:100])
        size, self.width, self.height, line, colors = (header[i] for i in (0, 4, 5, 12, 19))
        check(header[11] == 32 and header[7] == 0, "the display is not one of 24 bits")
        start = size + 12 * colors
        words = memoryview(data)[start:start + line * self.height].cast("I")
        self.step = line // 4
        self.words = [word & 0xFFFFFF for word in words]

    def at(self, x, y):
        return self.words[y * self.step + x]

    def points(self, color):
        """The set of the pixels (x, y) of a colour."""
        return {(i % self.step, i // self.step)
                for i, word in enumerate(self.words) if word == color}

    def count(self, color):
        return self.words.count(color)

    def __eq__(self, other):
        return self.words == other.words
