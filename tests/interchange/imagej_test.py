#!/usr/bin/env python3
"""imagej_test.py LIBRARY: a list of selections that the library exports, opened by ImageJ itself.

ImageJ opens the archive in its ROI Manager on the same image. What it measures of each selection, and the mask that
it makes of each area, are held against vostel_measure() and vostel_mask(). Skipped with status 77 where ImageJ, a Java
to run it or a display in memory is missing.
"""

import ctypes
import math
import os
import random
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

PROGRAM = Path("/usr/share/java/ij.jar")    # of Debian's package imagej
SCRIPT = Path(__file__).resolve().parent / "foreign/imagej/measure-selections.ijm"
WIDTH, HEIGHT = 160, 120
U16 = 2
(RECTANGLE, POLYGON, SPLINE, FREE_REGION, TEXT, FREE_STROKES, LENGTH, ANGLE, PROFILE, POINTS, POLYLINE,
 ARROW) = (0, 3, 4, 5, 6, 7, 8, 9, 16, 20, 21, 22)
ELLIPSE = 4
TYPES = {FREE_STROKES: "freeline", LENGTH: "line", PROFILE: "line", ANGLE: "angle", POINTS: "point",
         POLYLINE: "polyline", ARROW: "arrow", TEXT: "text"}


class Point(ctypes.Structure):
    _fields_ = [("x", ctypes.c_double), ("y", ctypes.c_double)]


class Measures(ctypes.Structure):
    _fields_ = ([("size", ctypes.c_uint32), ("valid", ctypes.c_uint32), ("pixels", ctypes.c_int64),
                 ("not_finite", ctypes.c_int64)] +
                [(name, ctypes.c_double) for name in
                 ("area", "perimeter", "length", "angle", "centroid_x", "centroid_y", "left", "top", "right", "bottom",
                  "mean", "sd", "min", "max", "sum", "median", "feret_max", "feret_min", "circularity")])


class Style(ctypes.Structure):
    _fields_ = [("size", ctypes.c_uint32), ("line_color", ctypes.c_uint32), ("selected_color", ctypes.c_uint32),
                ("handle_color", ctypes.c_uint32), ("fill_color", ctypes.c_uint32), ("line_width", ctypes.c_double),
                ("text_height", ctypes.c_double)]


class Canvas:
    """A canvas with an image of noise and one call for what the test needs."""

    def __init__(self, library, values):
        self.library = library
        self.number = ctypes.c_int32()
        self.call("vostel_canvas_create", 200, 200, ctypes.byref(self.number), own=False)
        data = (ctypes.c_uint16 * len(values))(*values)
        self.call("vostel_image_show", U16, data, WIDTH, HEIGHT, ctypes.c_ssize_t(0), 0)

    def call(self, name, *arguments, own=True):
        function = getattr(self.library, name)
        status = function(*([self.number] if own else []), *arguments)
        if status != 0:
            self.library.vostel_last_message.restype = ctypes.c_char_p
            raise RuntimeError(f"{name}: {status} {self.library.vostel_last_message().decode()}")

    def add(self, kind, points, name, flags=0, color=0x336699, fill=0):
        made = ctypes.c_uint64()
        array = (Point * len(points))(*[Point(x, y) for x, y in points])
        self.call("vostel_object_add", kind, array, ctypes.c_size_t(len(points)), ctypes.byref(made))
        if flags:
            self.call("vostel_object_set_flags", made, flags)
        if kind == TEXT:
            self.call("vostel_object_set_text", made, b"words")
        self.call("vostel_object_set_name", made, name.encode())
        style = Style(ctypes.sizeof(Style), color, color, color, fill, 1.0, 18.0)
        self.call("vostel_object_set_style", made, ctypes.byref(style))
        return made

    def measure(self, made):
        measures = Measures(ctypes.sizeof(Measures))
        self.call("vostel_measure", made, 0, ctypes.byref(measures))
        return measures

    def mask(self, made):
        mask = (ctypes.c_uint8 * (WIDTH * HEIGHT))()
        self.call("vostel_mask", made, mask, ctypes.c_ssize_t(0))
        return bytes(mask)


def quarters(chance, low, high):
    """A number whose pixels' centres are never on level or upright edges, and which a float holds."""
    return chance.randrange(64 * low, 64 * high, 2) / 64 + 1 / 64


def random_objects(chance):
    """Kind, points and flags."""
    def place():
        return quarters(chance, 2, WIDTH - 2), quarters(chance, 2, HEIGHT - 2)

    for _ in range(30):
        left, top = chance.randrange(0, 80), chance.randrange(0, 60)
        right, bottom = left + chance.randrange(1, 80), top + chance.randrange(1, 60)
        yield RECTANGLE, [(left, top), (right, bottom)], 0
        yield RECTANGLE, [(left, top), (right, bottom)], ELLIPSE
        yield RECTANGLE, [place(), place()], 0
        yield RECTANGLE, [place(), place()], ELLIPSE
        for kind in (POLYGON, FREE_REGION, SPLINE):
            yield kind, [place() for _ in range(chance.randrange(3, 12))], 0
        yield LENGTH, [place(), place()], 0
        yield PROFILE, [place(), place()], 0
        yield ARROW, [place(), place()], 0
        yield ANGLE, [place() for _ in range(3)], 0
        yield POLYLINE, [place() for _ in range(chance.randrange(2, 9))], 0
        yield FREE_STROKES, [place() for _ in range(chance.randrange(2, 9))], 0
        yield POINTS, [place() for _ in range(chance.randrange(2, 9))], 0
        yield POINTS, [(left + 0.5, top + 0.5)], 0
        yield TEXT, [place()], 0
    # More points than 16 bits count: a star whose rays meet in the middle.
    yield FREE_REGION, [(80 + radius * math.cos(turn), 60 + radius * math.sin(turn))
                        for turn, radius in ((i * math.tau / 70000, 20 + 35 * (i % 500) / 500) for i in range(70000))], 0


def type_of(kind, points, flags):
    if kind == RECTANGLE and all(x == int(x) and y == int(y) for x, y in points):
        return "oval" if flags else "rectangle"
    if kind == FREE_REGION or kind == RECTANGLE and flags:
        return "freehand"
    return TYPES.get(kind, "polygon")


class ImageJ(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        chance = random.Random(11)
        values = [chance.randrange(65536) for _ in range(WIDTH * HEIGHT)]
        cls.canvas = Canvas(ctypes.CDLL(LIBRARY), values)
        cls.objects = []
        for i, (kind, points, flags) in enumerate(random_objects(chance)):
            name = f"{i:04} µm"
            cls.objects.append((kind, points, flags, cls.canvas.add(kind, points, name, flags), name))
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        (cls.folder / "image.pgm").write_bytes(
            b"P5 %d %d 65535\n" % (WIDTH, HEIGHT) + b"".join(value.to_bytes(2, "big") for value in values))
        cls.canvas.call("vostel_regions_export", os.fsencode(cls.folder / "list.zip"), None)
        cls.run_program(f"{cls.folder}/image.pgm;{cls.folder}/list.zip;{cls.folder}/")
        lines = (cls.folder / "measures.csv").read_text().splitlines()
        assert lines.pop() == "done"
        cls.measured = [line.split("\t") for line in lines]

    @classmethod
    def run_program(cls, argument):
        """ImageJ on a display of its own in memory."""
        screen = subprocess.Popen(["Xvfb", "-displayfd", "1", "-nolisten", "tcp"], stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL)
        try:
            display = screen.stdout.readline().decode().strip()
            subprocess.run(["java", "-Xmx512m", f"-Duser.home={cls.folder}", "-jar", str(PROGRAM), "-batch", str(SCRIPT),
                            argument], check=True, timeout=240, stdin=subprocess.DEVNULL,
                           env={**os.environ, "DISPLAY": f":{display}"})
        finally:
            screen.terminate()
            screen.wait()
            screen.stdout.close()

    def rows(self):
        """Each object with what ImageJ says of it."""
        self.assertEqual(len(self.measured), len(self.objects))
        for i, (kind, points, flags, made, name) in enumerate(self.objects):
            self.place = f"object {i} of kind {kind}: {points}"
            yield i, kind, points, flags, made, name, self.measured[i]

    def check(self, ours, theirs, what):
        self.assertLessEqual(abs(ours - float(theirs)), 1e-6 * max(1.0, abs(ours)),
                             f"{what} of {self.place[:200]}")

    def test_another_program_takes_the_archive_apart(self):
        with zipfile.ZipFile(self.folder / "list.zip") as archive:
            self.assertIsNone(archive.testzip())
            self.assertEqual([name[:4] for name in archive.namelist()], [f"{i:04}" for i in range(len(self.objects))])

    def test_names_types_and_colors_are_ours(self):
        for _, kind, points, flags, _, name, row in self.rows():
            self.assertEqual((row[0], row[1].lower(), row[15]), (name, type_of(kind, points, flags), "#336699"),
                             self.place)
            if kind not in (POINTS, TEXT):
                self.assertEqual(row[16], "1", self.place)

    def test_areas_have_the_same_pixels_values_and_bounds(self):
        for i, kind, points, flags, made, _, row in self.rows():
            if kind not in (RECTANGLE, POLYGON, FREE_REGION, SPLINE):
                continue
            self.assertTrue((self.folder / f"{i + 1}.raw").read_bytes() == self.canvas.mask(made), self.place)
            ours = self.canvas.measure(made)
            if ours.pixels == 0:
                continue
            self.check(ours.pixels, row[6], "area")
            # Not the median, which ImageJ takes from a histogram of 256 bins.
            for name, theirs in zip(("mean", "sd", "min", "max", "sum"), row[7:12]):
                self.check(getattr(ours, name), theirs, name)
            if kind == SPLINE or flags == ELLIPSE:    # curves are flattened
                continue
            for value, theirs in zip((ours.left, ours.top, ours.right - ours.left, ours.bottom - ours.top), row[2:6]):
                self.check(value, theirs, "bounds")

    def test_lines_have_the_same_lengths_and_lie_half_a_pixel_from_ours(self):
        for _, kind, points, _, made, _, row in self.rows():
            if kind not in (LENGTH, PROFILE, ARROW, POLYLINE):
                continue
            self.check(self.canvas.measure(made).length, row[13], "length")
            self.check(min(x for x, _ in points) - 0.5, row[2], "left")
            self.check(min(y for _, y in points) - 0.5, row[3], "top")

    def test_angles_are_the_same(self):
        for _, kind, _, _, made, _, row in self.rows():
            if kind == ANGLE:
                self.check(self.canvas.measure(made).angle, row[14], "angle")

    def test_points_lie_half_a_pixel_from_ours_and_mark_the_same_pixel(self):
        for _, kind, points, _, made, _, row in self.rows():
            if kind != POINTS:
                continue
            self.check(min(x for x, _ in points) - 0.5, row[2], "left")
            self.check(min(y for _, y in points) - 0.5, row[3], "top")
            if len(points) == 1:    # of several ImageJ tells one a row
                self.check(self.canvas.measure(made).mean, row[7], "mean")

    def test_texts_begin_at_their_corner(self):
        for _, kind, points, _, _, _, row in self.rows():
            if kind == TEXT:
                self.check(points[0][0], row[2], "left")
                self.check(points[0][1], row[3], "top")


if __name__ == "__main__":
    for need in ("java", "Xvfb"):
        if not shutil.which(need):
            print(f"{need} is not installed")
            sys.exit(77)
    if not PROGRAM.exists():
        print("ImageJ is not installed")
        sys.exit(77)
    LIBRARY = sys.argv.pop(1)
    unittest.main()
