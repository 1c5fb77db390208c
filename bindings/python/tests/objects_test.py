#!/usr/bin/env python3
"""Objects: proxies that are equal by what they stand for, and know their points, names, styles and measures."""

import copy
import gc
import pickle
import unittest
import weakref

import numpy as np

import vostel
from canvas_case import CanvasCase, ramp


class Kinds(CanvasCase):
    def test_each_call_makes_its_kind_with_its_points(self):
        canvas, three = self.canvas, [(1, 1), (20, 2), (8, 30)]
        made = {
            "rectangle": canvas.add_rectangle(1, 1, 20, 20), "polygon": canvas.add_polygon(three),
            "spline": canvas.add_spline(three), "free_region": canvas.add_free_region(three),
            "free_strokes": canvas.add_strokes(three), "polyline": canvas.add_polyline(three),
            "points": canvas.add_points(three), "length": canvas.add_length(*three[:2]),
            "angle": canvas.add_angle(*three), "angle_lines": canvas.add_angle_lines(*three, (4, 4)),
            "profile": canvas.add_profile(*three[:2]), "arrow": canvas.add_arrow(*three[:2]),
            "text": canvas.add_text(3, 4, "bore"),
        }
        self.assertEqual([each.kind for each in made.values()], list(made))
        self.assertEqual(canvas.objects, tuple(made.values()))
        for kind in ("polygon", "spline", "polyline", "points", "angle"):
            self.assertEqual(made[kind].points.tolist(), [[1, 1], [20, 2], [8, 30]])
        self.assertEqual(made["text"].text, "bore")
        ellipse = canvas.add_ellipse(1, 1, 20, 20)
        self.assertEqual((ellipse.kind, ellipse.is_ellipse, made["rectangle"].is_ellipse), ("rectangle", True, False))

    def test_points_come_as_arrays_lists_and_tuples(self):
        three = [(1, 1), (20, 2), (8, 30)]
        for points in (three, tuple(three), np.array(three), np.array(three, np.float32),
                       np.array(three, float).T.copy().T, np.array(three, float)[::-1][::-1]):
            self.assertEqual(self.canvas.add_polygon(points).points.tolist(), [[1, 1], [20, 2], [8, 30]])


class Proxies(CanvasCase):
    def test_proxies_of_one_object_are_equal(self):
        made = self.canvas.add_rectangle(1, 1, 20, 20)
        found, = self.canvas.objects
        self.assertEqual(made, found)
        self.assertEqual(len({made, found}), 1)
        self.assertNotEqual(made, self.canvas.add_rectangle(1, 1, 20, 20))
        self.assertNotEqual(made, made.id)

    def test_a_proxy_keeps_its_canvas(self):
        canvas = vostel.Canvas(50, 50)
        canvas.show(ramp())
        region = canvas.add_rectangle(1, 1, 20, 20)
        known = weakref.ref(canvas)
        del canvas
        gc.collect()
        self.assertEqual(region.area, 361)
        del region
        self.assertIsNone(known())

    def test_nothing_that_lives_in_the_library_is_pickled_or_copied(self):
        region = self.canvas.add_rectangle(1, 1, 20, 20)
        for each in (self.canvas, region, self.canvas.listen(len)):
            for way in (pickle.dumps, copy.copy, copy.deepcopy):
                with self.assertRaises(TypeError):
                    way(each)

    def test_errors_and_records_are_pickled(self):
        region = self.canvas.add_rectangle(1, 1, 20, 20)
        for record in (region.measure(), region.style, region.bounds, self.canvas.history, self.canvas.info):
            self.assertEqual(pickle.loads(pickle.dumps(record)), record)
        for error in (vostel.Error(-2, "gone"), vostel.ArgumentError("bad"), vostel.ArgumentTypeError("worse")):
            again = pickle.loads(pickle.dumps(error))
            self.assertEqual((type(again), str(again)), (type(error), str(error)))

    def test_they_tell_what_they_are(self):
        region = self.canvas.add_polygon([(1, 1), (9, 1), (5, 8)], name="bore")
        self.assertEqual(repr(region), f"<vostel.Object {region.id}: polygon 'bore' on canvas {self.canvas.id}>")
        self.assertIn("area=28", repr(region.measure()))
        self.canvas.close()
        self.assertEqual(repr(region), f"<vostel.Object {region.id}, gone from canvas {self.canvas.id}>")
        self.assertEqual(repr(self.canvas), f"<vostel.Canvas {self.canvas.id}, closed>")


class Properties(CanvasCase):
    def setUp(self):
        super().setUp()
        self.region = self.canvas.add_rectangle(10, 10, 20, 15)

    def test_names_texts_and_labels(self):
        self.region.name, self.region.label = "孔", 9
        self.assertEqual((self.region.name, self.region.label), ("孔", 9))
        text = self.canvas.add_text(1, 1, "a")
        text.text = "two\nlines"
        self.assertEqual(text.text, "two\nlines")
        with self.fails("NOT_SUPPORTED"):
            self.region.text = "a"
        self.canvas.set_language("en")
        self.assertIn("5.000", self.canvas.add_length((0, 0), (3, 4)).text)

    def test_points_move_in_place(self):
        self.region.points += (5, 7)
        self.assertEqual(self.region.bounds, (15, 17, 25, 22))

    def test_styles_change_whole_and_in_part(self):
        self.region.style = {"line_color": "#102030", "line_width": 4, "fill_color": 0x80FF0000}
        style = self.region.style
        self.assertEqual((style.line_color, style.line_width, style.fill_color), (0x102030, 4, 0x80FF0000))
        self.region.style = style._replace(handle_color=0xABCDEF)
        self.assertEqual(self.region.style, style._replace(handle_color=0xABCDEF))
        other = self.canvas.add_rectangle(1, 1, 5, 5, color=(1, 2, 3), width=2.5)
        self.assertEqual((other.style.line_color, other.style.line_width), (0x010203, 2.5))

    def test_flags_change_one_by_one(self):
        self.region.hidden = True
        self.region.locked = True
        self.assertEqual((self.region.hidden, self.region.locked, self.region.in_labels), (True, True, True))
        self.assertEqual(self.canvas.labels().max(), 0)
        self.region.hidden = False
        self.assertEqual((self.region.hidden, self.region.locked), (False, True))
        self.region.in_labels = False
        self.assertEqual(self.canvas.labels().max(), 0)

    def test_order_and_selection(self):
        other = self.canvas.add_rectangle(1, 1, 5, 5)
        other.index = 0
        self.assertEqual(self.canvas.objects, (other, self.region))
        self.assertEqual(self.region.index, 1)
        self.canvas.selection = [self.region]
        self.assertEqual((self.region.selected, other.selected), (True, False))
        self.canvas.selection = ()
        self.assertEqual(self.canvas.selection, ())

    def test_the_outline_of_an_ellipse_closes_around_its_area(self):
        x, y = self.canvas.add_ellipse(0, 0, 20, 10).outline.T
        area = abs(np.dot(x, np.roll(y, 1)) - np.dot(y, np.roll(x, 1))) / 2
        self.assertAlmostEqual(area, np.pi * 50, delta=0.3)

    def test_objects_are_found_and_removed(self):
        self.assertEqual(self.canvas.at(*self.canvas.to_client(10, 12)), self.region)
        self.assertIsNone(self.canvas.at(*self.canvas.to_client(50, 35)))
        self.region.remove()
        with self.fails("NOT_FOUND"):
            self.region.name
        self.canvas.remove(self.canvas.add_rectangle(1, 1, 5, 5))
        self.assertEqual(self.canvas.objects, ())

    def test_a_region_has_a_contrast_of_its_own(self):
        before = self.canvas.render()
        self.assertIsNone(self.region.contrast)
        self.region.set_contrast(0, 100)
        self.assertEqual(self.region.contrast, (0, 100))
        self.assertFalse(np.array_equal(before, self.canvas.render()))


class MeasuresOfObjects(CanvasCase):
    def test_a_region_has_no_length_and_a_length_no_area(self):
        region, line = self.canvas.add_rectangle(10, 10, 20, 15), self.canvas.add_length((0, 0), (30, 40))
        inside = ramp()[10:15, 10:20]
        self.assertEqual((region.area, region.pixels, region.perimeter, region.length), (50, 50, 30, None))
        self.assertEqual((region.mean, region.min, region.max, region.sum, region.median),
                         (inside.mean(), inside.min(), inside.max(), inside.sum(), np.median(inside)))
        self.assertAlmostEqual(region.sd, inside.std(ddof=1), delta=1e-9)
        self.assertEqual((region.centroid, region.feret_min), ((15, 12.5), 5))
        self.assertEqual((line.length, line.area, line.mean, line.angle), (50, None, None, None))
        self.assertEqual(line.measure()._asdict().keys(), set(self.canvas.table()[0]) - {
            "object", "name", "kind", "label", "unit"})

    def test_angles_and_channels(self):
        self.assertEqual(self.canvas.add_angle((10, 0), (0, 0), (0, 10)).angle, 90)
        self.canvas.show(np.full((40, 60, 3), (200, 100, 50), np.uint8))
        region = self.canvas.add_rectangle(10, 10, 20, 15)
        self.assertEqual([region.measure(channel).mean for channel in (1, 2, 3)], [200, 100, 50])
        self.assertAlmostEqual(region.mean, 124.2, delta=0.9)

    def test_a_profile_samples_a_pixel_each(self):
        line = self.canvas.add_profile((0.5, 2.5), (10.5, 2.5))
        self.assertEqual(line.profile().tolist(), [200 + x for x in range(11)])
        self.assertEqual(line.profile(width=3).tolist(), [200 + x for x in range(11)])
        outside = self.canvas.add_profile((-5, 2.5), (5, 2.5)).profile()
        self.assertTrue(np.isnan(outside[0]))


if __name__ == "__main__":
    unittest.main()
