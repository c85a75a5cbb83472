# SPDX-License-Identifier: MIT
"""The second window: the curve, the path in its colours, its own keys, hiding and showing."""
from desktop import check, output_of, until, xdotool
from journey import make_room, run
from picture import BLACK, PATH_BLUE, RED
from program import PATH


def path_is(program, corners, message, newest=RED):
    """Waits for the path through these corners, `newest` the colour of its last segment."""
    def right():
        picture = program.picture(program.path)
        ends = list(zip(corners, corners[1:]))
        for (x1, y1), (x2, y2) in ends:
            color = newest if (x2, y2) == corners[-1] else PATH_BLUE
            for part in (0.3, 0.45, 0.6):  # where no other segment crosses, as a rule
                x, y = round(x1 + part * (x2 - x1)), round(y1 + part * (y2 - y1))
                if color not in {picture.at(x + dx, y + dy)
                                 for dx in (-1, 0, 1) for dy in (-1, 0, 1)}:
                    return False
        # A thin line has as many pixels as its longer side; where two cross, one pixel counts once.
        lengths = [max(abs(x1 - x2), abs(y1 - y2)) for (x1, y1), (x2, y2) in ends]
        red = sum(lengths[-1:]) if newest == RED else 0
        return (abs(picture.count(RED) - red) <= 4
                and picture.count(PATH_BLUE) <= sum(lengths) - red + 4 * len(ends))
    until(right, message)


def is_shown(window):
    return b"IsViewable" in output_of("xwininfo", "-id", str(window))


def journey(program, model):
    make_room(program, model)
    program.show_path()
    model.ask("plane", 300, 300)
    outline = set(model.pixels("boundary"))
    until(lambda: program.picture(program.path).points(BLACK) == outline, "the start curve")
    check(program.focused() == program.main, "the path window takes the keys")

    def bounce(corners):
        program.keys("space")
        model.ask("iterate", 1)
        return corners + model.pixels("impact")

    # A start, then three bounces: three segments, the start the first corner.
    program.click(140, 140)
    model.ask("click", 140, 140)
    corners = model.pixels("impact")
    for _ in range(3):
        program.click(5, 5)  # off the section: no start
        corners = bounce(corners)
        path_is(program, corners, f"{len(corners) - 1} segments, the newest red")

    # Shown again in the middle of an orbit, the path begins with the next bounce.
    program.hide_path()
    program.show_path()
    corners = bounce(bounce([]))
    path_is(program, corners, "one segment after two bounces")

    # Keys of the window itself.
    program.focus(program.path)
    corners = bounce(corners)
    path_is(program, corners, "Space in the path window bounces, too")
    program.keys("l")
    path_is(program, corners, "l takes the highlight off", newest=PATH_BLUE)
    program.keys("b")
    until(lambda: outline <= program.picture(program.path).points(BLACK), "b draws the outline")
    path_is(program, corners, "b leaves the path", newest=PATH_BLUE)
    program.keys("d")
    path_is(program, [], "d wipes the path")
    path_is(program, bounce(corners[-2:]), "d keeps the last segment")

    # It stays above the main window, and goes with it.
    def place(window):
        return [w for w, _ in program.clients("_NET_CLIENT_LIST_STACKING")].index(window)
    program.focus(program.main)
    check(place(program.path) > place(program.main), "the main window covers the path window")
    xdotool("windowminimize", program.main)
    until(lambda: not is_shown(program.path), "the path window minimised with the main one")
    program.focus(program.main)
    until(lambda: is_shown(program.path), "the path window restored with the main one")

    # A dialog that it covers comes to the front when it is clicked.
    program.keys("p")
    dialog = program.dialog("Change Position")
    xdotool("windowraise", program.path)
    until(lambda: place(program.path) > place(dialog), "the path window over the dialog")
    program.click(150, 150, window=program.path)
    until(lambda: place(dialog) > place(program.path), "the dialog brought to the front")
    program.cancel("Change Position")

    # A dialog of the whole application takes the keys here as well, and gives them back.
    for key, title in [("F8", "Select Font"), ("F9", "Resize Hack"), ("F10", "Select Global Fonts")]:
        program.focus(program.path)
        program.keys(key)
        program.cancel(title)
        until(lambda: program.focused() == program.path, "the keys given back")

    # The window manager's close hides it; an iterate is 1000 bounces again.
    program.focus(program.path)
    program.keys("alt+F4")
    program.gone(PATH)
    program.focus(program.main)
    program.keys("d", "space")
    program.wait_plotted(model.pixels("iterate", 1000), "1000 bounces once it is closed")
    program.show_path()


run(journey)
