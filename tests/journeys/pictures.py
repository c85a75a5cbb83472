# SPDX-License-Identifier: MIT
"""A picture is saved by key and name, asked about before it is overwritten, and never lost."""
import os

from journey import check, output_of, run, until

TITLE = "Save Poincare-Section as Picture"


def choose(program, name):
    """Presses s and types a name; the file is not there yet when this returns."""
    program.keys("s")
    program.dialog(TITLE)
    program.type(name)  # the field is ready, and what stands in it goes
    program.keys("Return")


def canvas_size(program):
    splitter = program.children(program.main)[0]
    return program.geometry(program.children(splitter)[0])[2:]


def pixels_of(path, width, height):
    """The pixels of a picture file as another program reads them, or None if it has another size."""
    size = output_of("identify", "-format", "%w %h", path).decode()
    if size != f"{width} {height}":
        return None
    data = output_of("convert", path, "-depth", "8", "rgb:-")
    return [data[i] << 16 | data[i + 1] << 8 | data[i + 2] for i in range(0, len(data), 3)]


def shown_pixels(program):
    picture = program.picture()
    width, height = program.canvas_size()
    return [pixel for y in range(height)
            for pixel in picture.words[y * picture.step:y * picture.step + width]]


def answer(program, key):
    program.dialog("Warning")
    program.keys(key)
    program.gone("Warning")


def content(path):
    with open(path, "rb") as file:
        return file.read()


def save_twice(program, path, name):
    """Goes through the answers to the overwrite question for a name that leads to `path`."""
    def put_old():
        with open(path, "wb") as file:
            file.write(b"old")

    for refusal in ("alt+c", "Escape", "alt+F4"):
        put_old()
        choose(program, name)
        answer(program, refusal)
        check(program.find(TITLE) is None, "the file dialog is open again after " + refusal)
        check(content(path) == b"old", "overwritten after " + refusal)
    choose(program, name)
    answer(program, "alt+n")
    program.dialog(TITLE)
    program.keys("Return")  # the name stands there still
    answer(program, "alt+y")
    until(lambda: content(path).startswith(b"\x89PNG"), "the picture over the old file")


def registry(folder):
    """Section names and keys of every registry file of the vendor."""
    for place, _, files in os.walk(os.path.join(folder, ".foxrc")):
        for name in files:
            with open(os.path.join(place, name), encoding="utf-8") as file:
                yield from (line.strip() for line in file if line.strip())


def journey(program, model):
    folder = program.folder.name
    path = os.path.join(folder, "orbit.png")
    width, height = program.canvas_size()
    program.click(300, 200)
    program.keys("space")
    until(lambda: len(program.plotted()) > 500, "an orbit")

    choose(program, "orbit")
    until(lambda: os.path.exists(path), "orbit.png")
    until(lambda: pixels_of(path, width, height) == shown_pixels(program), "the picture's pixels")
    save_twice(program, path, "orbit")
    save_twice(program, path, "orbit.png")
    check(os.listdir(folder) == ["orbit.png"], f"other files too: {os.listdir(folder)}")

    # A name that no file can have: the box, and the program goes on.
    choose(program, "100%s%n" + 250 * "x" + '".png')
    program.close_box("Error")
    check(os.listdir(folder) == ["orbit.png"], "a file of the impossible name")

    program.keys("F9")
    program.dialog("Resize Hack")
    program.keys("ctrl+a")
    program.type("123")
    program.keys("Tab", "ctrl+a")
    program.type("77")
    program.accept("Resize Hack")
    until(lambda: canvas_size(program) == [123, 77], "the forced size")
    choose(program, "small.pdf")
    small = os.path.join(folder, "small.pdf")
    until(lambda: b"%%EOF" in (content(small) if os.path.exists(small) else b""), "small.pdf")
    check(b"123" in output_of("pdfinfo", small), "the page is not as wide as the canvas")
    program.keys("F9")
    program.dialog("Resize Hack")
    program.keys("Escape")
    program.gone("Resize Hack")
    until(lambda: canvas_size(program) == [width, height], "the layout's size after Cancel")

    for _ in range(2):
        program.press("Help")
        program.dialog("Help")
        program.keys("Return")  # the focus is on "Close"
        program.gone("Help")
    program.press("About")
    program.dialog("About")
    program.keys("Return")
    program.gone("About")
    program.keys("space")  # and the keys go to the plot again
    check(program.close() == 1, "the exit status is not 1")

    lines = list(registry(os.environ["HOME"]))
    sections = [line for line in lines if line.startswith("[")]
    check("[SETTINGS]" not in sections, f"settings that nobody made: {lines}")


run(journey)
