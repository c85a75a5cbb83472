# SPDX-License-Identifier: MIT
"""The second window: the curve, the path in its colours, its own keys, hiding and showing."""
from journey import BLACK, PATH_BLUE, RED, WHITE, Picture, check, make_room, run, until


def segments_drawn(program, corners, old, newest):
    """Whether the path runs through these corners, `newest` the colour of the last segment."""
    picture = Picture(program.path)
    for i in range(len(corners) - 1):
        (x1, y1), (x2, y2) = corners[i], corners[i + 1]
        color = newest if i == len(corners) - 2 else old
        for part in (0.3, 0.45, 0.6):  # where no other segment crosses, as a rule
            x, y = x1 + part * (x2 - x1), y1 + part * (y2 - y1)
            near = {picture.at(round(x) + dx, round(y) + dy)
                    for dx in (-1, 0, 1) for dy in (-1, 0, 1)}
            if color not in near:
                return False
    return True


def length(corners):
    """Pixels of the thin lines between the corners."""
    return sum(max(abs(x1 - x2), abs(y1 - y2))
               for (x1, y1), (x2, y2) in zip(corners, corners[1:]))


def path_is(program, corners, message, newest=RED):
    def right():
        picture = Picture(program.path)
        red = picture.count(RED)
        wanted = length(corners[-2:]) if newest == RED and len(corners) > 1 else 0
        return abs(red - wanted) <= 4 and segments_drawn(program, corners, PATH_BLUE, newest)
    until(right, message)
    if len(corners) < 2:
        check(Picture(program.path).count(PATH_BLUE) == 0, message + ": an old path is left")


def journey(program, model):
    make_room(program, model)
    program.show_path()
    check(program.geometry(program.path)[2:] == [300, 300], "the path window is not 300 x 300")
    model.ask("plane", 300, 300)
    outline = set(model.pixels("boundary"))
    until(lambda: outline <= Picture(program.path).points(BLACK), "the outline of the start curve")
    check(Picture(program.path).count(WHITE) + Picture(program.path).count(BLACK) == 300 * 300,
          "more than the outline in a fresh path window")

    # A start, then three bounces: three segments, the start the first corner.
    program.click(140, 140)
    model.ask("click", 140, 140)
    corners = model.pixels("impact")
    for _ in range(3):
        program.keys("space")
        model.ask("iterate", 1)
        corners += model.pixels("impact")
        path_is(program, corners, f"{len(corners) - 1} segments, the newest red")

    # Shown again in the middle of an orbit, the path begins with the next bounce.
    program.press("Show Billiard")
    program.gone("Billiard: Coordinate Space")
    program.show_path()
    corners = []
    for _ in range(3):
        program.keys("space")
        model.ask("iterate", 1)
        corners += model.pixels("impact")
    path_is(program, corners, "two segments after three bounces")

    # Keys of the window itself.
    program.focus(program.path)
    program.keys("space")
    model.ask("iterate", 1)
    corners += model.pixels("impact")
    path_is(program, corners, "Space in the path window bounces, too")
    program.keys("l")
    path_is(program, corners, "l takes the highlight off", newest=PATH_BLUE)
    program.keys("b")
    until(lambda: outline <= Picture(program.path).points(BLACK), "b draws the outline on top")
    check(segments_drawn(program, corners, PATH_BLUE, PATH_BLUE), "b has wiped the path")
    program.keys("d")
    path_is(program, [], "d wipes the path")
    program.keys("space")  # the two bounces are kept: the old segment comes back
    model.ask("iterate", 1)
    path_is(program, corners[-2:] + model.pixels("impact"), "d keeps the last segment")

    # A dialog of the whole application takes the keys here as well, and gives them back.
    for key, title in [("F8", "Select Font"), ("F9", "Resize Hack"), ("F10", "Select Global Fonts")]:
        program.focus(program.path)
        program.keys(key)
        program.dialog(title)
        program.keys("Escape")
        program.gone(title)
        until(lambda: program.focused() in (program.path, program.main), "the keys given back")

    # The window manager's close hides it; an iterate is 1000 bounces again.
    program.focus(program.path)
    program.keys("alt+F4")
    program.gone("Billiard: Coordinate Space")
    program.focus(program.main)
    program.keys("d", "space")
    program.wait_plotted(model.pixels("iterate", 1000), "1000 bounces once it is closed")
    program.show_path()


run(journey)
