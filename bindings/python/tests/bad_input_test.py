#!/usr/bin/env python3
"""Whatever comes in is refused with words, and nothing has changed."""

import gc
import os
import subprocess
import sys
import unittest
from pathlib import Path

import numpy as np

import vostel
from canvas_case import CanvasCase, ramp

NAN, HUGE = float("nan"), 2**70


class Arrays(CanvasCase):
    def test_arrays_of_other_shapes_and_types_are_refused_and_named(self):
        image = ramp()
        for array, words in ((image.astype(float), "float64"), (image.astype(bool), "bool"),
                             (image.astype(np.int32), "int32"), (image.astype(complex), "complex128"),
                             (image[0], "(60,)"), (np.zeros((2, 3, 4, 5), np.uint8), "(2, 3, 4, 5)"),
                             (np.zeros((4, 5, 3), np.uint16), "uint16"), (np.zeros((4, 5, 4), np.uint8), "(4, 5, 4)"),
                             (np.zeros((0, 5), np.uint8), ""), (np.zeros((5, 0), np.uint8), ""),
                             (np.zeros((0, 0, 3), np.uint8), ""), ("part.png", "str"), (None, "None"),
                             (object(), "object"), (np.array(["a"]), "U1"), (7, "()")):
            with self.fails("INVALID_ARGUMENT", words):
                self.canvas.show(array)
        self.assertTrue(np.array_equal(self.canvas.plane, image))

    def test_a_wrong_type_is_a_type_error_and_a_wrong_value_a_value_error(self):
        with self.assertRaises(TypeError):
            self.canvas.show(ramp().astype(float))
        with self.assertRaises(ValueError):
            self.canvas.show(ramp()[0])
        with self.assertRaises(ValueError):
            vostel.Canvas(0, 10)

    def test_points_of_other_shapes_are_refused(self):
        polygon = self.canvas.add_polygon([(1, 1), (9, 1), (5, 8)])
        for points in ([(1, 1), (2, 2)], [], [(1, 2, 3)] * 3, [1, 2, 3], [(1, 1), (2, 2), (3,)], [("a", "b")] * 3,
                       [(1, 1), (2, 2), (NAN, 3)], [(1, 1), (2, 2), (float("inf"), 3)], np.ones((3, 2), complex),
                       None, "abc", 5):
            with self.fails("INVALID_ARGUMENT"):
                self.canvas.add_polygon(points)
            with self.fails("INVALID_ARGUMENT"):
                polygon.points = points
        self.assertEqual((len(self.canvas.objects), self.canvas.history.undo_count), (1, 1))

    def test_routines_refuse_what_they_cannot_work_on(self):
        image, kernel = ramp(), np.ones((3, 3))
        for wrong in (image[0], np.zeros((3, 4, 3)), image.astype(complex), "image", None, np.zeros((0, 4))):
            with self.fails("INVALID_ARGUMENT"):
                vostel.gaussian(wrong, 3, 1.0)
            with self.fails("INVALID_ARGUMENT"):
                vostel.correlate(image, wrong)
        for more in ({"dtype": np.float64}, {"dtype": "nonsense"}, {"out": np.zeros((3, 3), np.uint16)},
                     {"out": image.astype(float)}, {"out": [1]}, {"out": np.zeros((40, 120), np.uint16)[:, ::2]},
                     {"out": np.broadcast_to(np.uint16(0), image.shape)}):
            with self.fails("INVALID_ARGUMENT"):
                vostel.correlate(image, kernel, **more)
        for call in (lambda: vostel.gaussian(image, -3, 1.0), lambda: vostel.gaussian(image, 3, NAN),
                     lambda: vostel.resize(image, -1, 5), lambda: vostel.resize(image, 2**31 - 1, 2**31 - 1),
                     lambda: vostel.resize(image, 0, 5), lambda: vostel.stitch(image, image, 100),
                     lambda: vostel.stitch(image, image, 1), lambda: vostel.stitch(image, image, -1),
                     lambda: vostel.fft([1, 2, 3]), lambda: vostel.fft([[1, 2]]), lambda: vostel.fft([]),
                     lambda: vostel.fft(["a"]), lambda: vostel.correlate(image, kernel, 2.5)):
            with self.fails("INVALID_ARGUMENT"):
                call()


class Values(CanvasCase):
    def test_numbers_outside_their_range_are_refused_and_not_cut(self):
        region = self.canvas.add_rectangle(1, 1, 9, 9)
        for call in (lambda: vostel.Canvas(2**32 + 5, 10), lambda: vostel.Canvas(HUGE, 10),
                     lambda: vostel.Canvas(1.5, 10), lambda: vostel.Canvas("10", 10),
                     lambda: self.canvas.value("x", 1), lambda: self.canvas.value(1, 1, channel=2**32),
                     lambda: self.canvas.value(1, 1, channel=9), lambda: self.canvas.histogram(0),
                     lambda: self.canvas.histogram(2**30), lambda: self.canvas.histogram(-5),
                     lambda: self.canvas.histogram(4, low=5, high=5), lambda: self.canvas.histogram(4, NAN, 5),
                     lambda: self.canvas.histogram(region=7), lambda: region.profile(),
                     lambda: self.canvas.zoom(0, 1, 1), lambda: self.canvas.save(self.folder / "a.png", scale=NAN),
                     lambda: self.canvas.press(NAN, 1), lambda: self.canvas.key("ab"), lambda: self.canvas.key(-1),
                     lambda: self.canvas.percentiles(5, 500), lambda: self.canvas.set_history_limit(-1),
                     lambda: self.canvas.draw_next("circle"), lambda: vostel.set_limits(max_side=-1),
                     lambda: self.canvas.listen(5), lambda: self.canvas.listen(print, 0),
                     lambda: self.canvas.listen(print, HUGE), lambda: self.canvas.link(5),
                     lambda: self.canvas.open(5), lambda: self.canvas.open("a\0b"),
                     lambda: self.canvas.open_raw("a", "int64", 5, 5), lambda: self.canvas.open_raw("a", object(), 5, 5),
                     lambda: self.canvas.add_text(1, 1, 5), lambda: self.canvas.add_length((1, 2), (3,)),
                     lambda: self.canvas.add_length(1, 2), lambda: self.canvas.add_rectangle(1, 2, 3, NAN),
                     lambda: region.measure(channel=2**40)):
            with self.fails("INVALID_ARGUMENT"):
                call()
        self.assertEqual(self.canvas.objects, (region,))

    def test_properties_refuse_what_they_cannot_be(self):
        region = self.canvas.add_rectangle(1, 1, 9, 9)
        state = self.canvas.table(), region.style, self.canvas.contrast, self.canvas.view, self.canvas.history
        for each, name, values in (
                (self.canvas, "contrast", (5, (5, 5), (5, 1), (1, 2, 3), (NAN, 5), None)),
                (self.canvas, "view", ((0, 1, 1), (1, 2), "abc", (NAN, 1, 1))),
                (self.canvas, "scale", (5, (0, "mm"), (1, 5), (NAN, "mm"), (1, "a\0"))),
                (self.canvas, "gamma", (0, -1, NAN, "a", None)),
                (self.canvas, "selection", ([5], [None])),
                (region, "name", (5, None, b"bore", "a\0b", "\udc80")),
                (region, "label", (0, -1, 2**31, 1.5, "a")),
                (region, "index", (-1, 99, "a")),
                (region, "style", (5, {"color": 5}, {"line_color": -1}, {"line_color": "red"}, {"line_width": 0},
                                   {"line_width": NAN}, {"line_color": (1, 2, 300)}, {"text_height": "a"}))):
            for value in values:
                with self.fails("INVALID_ARGUMENT"):
                    setattr(each, name, value)
        with self.fails("NOT_FOUND", "unknown"):
            self.canvas.colormap = "unknown"
        with self.fails("NOT_FOUND"):
            self.canvas.set_language("xx")
        self.assertEqual(state, (self.canvas.table(), region.style, self.canvas.contrast, self.canvas.view,
                                 self.canvas.history))

    def test_an_object_that_cannot_be_dressed_does_not_stay(self):
        for more in ({"label": 0}, {"name": 5}, {"width": -1}, {"color": "red"}, {"label": 2**40}):
            with self.fails("INVALID_ARGUMENT"):
                self.canvas.add_rectangle(1, 1, 9, 9, **more)
        with self.fails("INVALID_ARGUMENT"):
            self.canvas.add_length((1, 1), (2, 2), name="a", label=5)
        self.assertEqual((self.canvas.objects, self.canvas.history.undo_count), ((), 0))
        with self.assertRaises(TypeError):
            self.canvas.add_rectangle(1, 1, 9, 9, colour=5)

    def test_files_that_are_not_there_or_not_what_they_claim(self):
        (self.folder / "a.png").write_bytes(b"\x89PNG\r\n\x1a\nnonsense")
        (self.folder / "a.vostel.json").write_text('{"format": 5}')
        for status, call in (("NOT_READ", lambda: self.canvas.open(self.folder / "none.png")),
                             ("BAD_FORMAT", lambda: self.canvas.open(self.folder / "a.png")),
                             ("NOT_READ", lambda: vostel.pages("none.tif")),
                             ("NOT_READ", lambda: self.canvas.session_open(self.folder / "none.json")),
                             ("BAD_FORMAT", lambda: self.canvas.session_open(self.folder / "a.vostel.json")),
                             ("NOT_READ", lambda: self.canvas.import_(self.folder / "none.json")),
                             ("NOT_WRITTEN", lambda: self.canvas.save(self.folder / "no" / "a.png")),
                             ("NOT_WRITTEN", lambda: self.canvas.session_save(self.folder / "no" / "a.json"))):
            with self.fails(status):
                call()
        self.assertEqual(self.canvas.size, (60, 40))


class Lives(CanvasCase):
    def test_everything_of_a_closed_canvas_raises(self):
        region = self.canvas.add_rectangle(1, 1, 9, 9)
        self.canvas.close()
        self.canvas.close()
        given = {"show": (ramp(),), "open": ("a",), "open_raw": ("a", "uint8", 1, 1), "value": (1, 1), "zoom": (2, 1, 1),
                 "percentiles": (1, 2), "save": ("a.png",), "to_image": (1, 1), "to_client": (1, 1), "at": (1, 1),
                 "remove": (region,), "session_save": ("a",), "session_open": ("a",), "export": ("a.json",),
                 "import_": ("a",), "paste": ("a",), "listen": (print,), "press": (1, 1), "release": (1, 1), "move": (1, 1),
                 "wheel": (1, 1, 1), "key": ("a",), "resize": (5, 5), "link": (None,), "set_keys": ("",),
                 "set_language": ("en",), "set_smooth": (True,), "set_pixel_ratio": (2,), "set_history_limit": (5,),
                 "draw_next": ("length",), "add_rectangle": (1, 1, 2, 2), "add_ellipse": (1, 1, 2, 2),
                 "add_text": (1, 1, "a"), "add_angle": ((1, 1), (2, 2), (3, 3)), "mask": (), "set_contrast": (1, 2),
                 "add_angle_lines": ((1, 1), (2, 2), (3, 3), (4, 4))}
        two, many = ("add_length", "add_profile", "add_arrow"), [(1, 1), (2, 2), (3, 1)]
        alive = {"id", "closed", "close", "number", "notes", "canvas", "step"}
        for each in (self.canvas, region):
            if each is region:
                given["remove"] = ()
            for name in [name for name in dir(type(each)) if not name.startswith("_") and name not in alive]:
                with self.fails("NOT_FOUND", "closed"):
                    found = getattr(each, name)
                    if callable(found):
                        found(*given.get(name, many[:2] if name in two else (many,) if "add_" in name else ()))
        with self.fails("NOT_FOUND", "closed"):
            with self.canvas.step("a"):
                self.fail("a step began")

    def test_objects_of_other_canvases_are_not_found(self):
        other = vostel.Canvas(50, 50)
        other.show(ramp())
        region = other.add_rectangle(1, 1, 9, 9)
        for call in (lambda: self.canvas.remove(region), lambda: self.canvas.histogram(region=region),
                     lambda: setattr(self.canvas, "selection", [region])):
            with self.fails("NOT_FOUND", str(other.id)):
                call()

    def test_a_canvas_without_an_image_says_so(self):
        canvas = vostel.Canvas(50, 50)
        region = canvas.add_rectangle(1, 1, 9, 9)
        for call in (lambda: canvas.info, lambda: canvas.plane, lambda: canvas.value(1, 1), canvas.labels,
                     region.mask, canvas.histogram, canvas.picture, lambda: canvas.percentiles(1, 2),
                     lambda: canvas.gamma, lambda: canvas.colormap, lambda: canvas.mark_colors):
            with self.fails("NO_IMAGE"):
                call()
        self.assertEqual(canvas.render().shape, (50, 50, 4))
        self.assertEqual(canvas.scale, (1, "px"))

    def test_canvases_that_nobody_knows_are_destroyed(self):
        ended = []
        for _ in range(3):
            canvas = vostel.Canvas(50, 50)
            canvas.show(ramp())
            ended.append(canvas.id)
            canvas.listen(lambda event, keeps=canvas: None)    # only the collector can tell
        other = vostel.Canvas(50, 50)
        other.show(ramp())
        other.link(canvas)
        del canvas
        gc.collect()
        for number in ended:
            with self.fails("NOT_FOUND"):
                vostel.Canvas.number(number)
        other.fit()

    def test_a_program_may_end_with_canvases_listeners_and_threads(self):
        script = ("import threading, vostel, numpy\n"
                  "canvas = vostel.Canvas(50, 50); canvas.show(numpy.zeros((9, 9), 'u1'))\n"
                  "canvas.listen(print); other = vostel.Canvas(9, 9); other.link(canvas); keep = canvas.plane\n"
                  "def work():\n    while True: canvas.render()\n"
                  "threading.Thread(target=work, daemon=True).start()\n"
                  "region = canvas.add_rectangle(1, 1, 5, 5)\n")
        for _ in range(3):
            run = subprocess.run([sys.executable, "-c", script], capture_output=True, text=True, timeout=60)
            self.assertEqual((run.returncode, run.stderr), (0, ""))

    def test_a_library_that_is_not_there_is_told(self):
        run = subprocess.run([sys.executable, "-c", "import vostel"], capture_output=True, text=True, timeout=60,
                             env={**os.environ, "VOSTEL_LIBRARY": str(Path(self.folder, "libNone.so"))})
        self.assertEqual(run.returncode, 1)
        self.assertIn("libNone.so", run.stderr)
        self.assertIn("VOSTEL_LIBRARY", run.stderr)


if __name__ == "__main__":
    unittest.main()
