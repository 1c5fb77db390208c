#!/usr/bin/env python3
"""Routines on arrays give what their definitions say."""

import pathlib
import tempfile
import unittest

import numpy as np

import vostel
from canvas_case import ramp


class Routines(unittest.TestCase):
    def test_a_correlation_sums_products_inside(self):
        image = ramp(30, 20, np.float32)
        kernel = np.arange(9, dtype=np.float32).reshape(3, 3)
        result = vostel.correlate(image, kernel)
        self.assertEqual((result.shape, result.dtype), (image.shape, np.dtype(np.float32)))
        for y, x in ((1, 1), (7, 12), (18, 28)):
            self.assertEqual(result[y, x], (image[y - 1:y + 2, x - 1:x + 2] * kernel).sum())

    def test_results_have_the_type_of_the_image_or_the_one_asked_for(self):
        image = ramp(30, 20)
        self.assertEqual(vostel.gaussian(image, 3, 1.0).dtype, np.uint16)
        self.assertEqual(vostel.gaussian(image, 3, 1.0, dtype=np.float32).dtype, np.float32)
        self.assertEqual(vostel.gaussian(image.astype(float), 3, 1.0).dtype, np.float32)
        self.assertEqual(vostel.gaussian(image.tolist(), 3, 1.0).dtype, np.float32)
        clipped = vostel.correlate(image, np.full((1, 1), 100.0), dtype=np.uint8)
        self.assertEqual(clipped.max(), 255)

    def test_a_result_goes_into_the_caller_s_rows(self):
        image = ramp(30, 20, np.float32)
        memory = np.full((40, 60), -1, np.float32)
        out = memory[::2, 5:35]
        self.assertTrue(np.shares_memory(vostel.gaussian(image, 3, 1.0, out=out), memory))
        self.assertTrue(np.array_equal(out, vostel.gaussian(image, 3, 1.0)))
        self.assertTrue((memory[1::2] == -1).all() and (memory[:, :5] == -1).all() and (memory[:, 35:] == -1).all())

    def test_sizes_are_those_asked_for(self):
        image = ramp(30, 20, np.float32)
        self.assertEqual(vostel.resize(image, 15, 7).shape, (7, 15))
        self.assertEqual(vostel.stitch(image, image, 6).shape, (20, 54))
        self.assertEqual(vostel.ramp_filter(image, 59, 1.0).shape, (20, 30))

    def test_a_threshold_is_white_where_it_is_brighter_than_around(self):
        image = np.full((30, 30), 100, np.uint8)
        image[10:12, 10:12] = 200
        result = vostel.adaptive_threshold(image, 9, 1.2)
        self.assertEqual(result.dtype, np.uint8)
        self.assertEqual((result[10, 10], result[25, 25]), (255, 0))

    def test_a_transform_is_numpy_s_and_comes_back(self):
        values = np.random.default_rng(7).normal(size=64)
        transformed = vostel.fft(values)
        self.assertTrue(np.allclose(transformed, np.fft.fft(values), atol=1e-4))
        self.assertTrue(np.allclose(vostel.fft(transformed, inverse=True), values, atol=1e-5))

    def test_raw_samples_come_into_the_caller_s_rows(self):
        image = ramp(30, 20)
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "part.raw"
            path.write_bytes(b"1234" + image.astype(">u2").tobytes())
            self.assertTrue(np.array_equal(vostel.read_raw(path, ">u2", 30, 20, offset=4), image))
            out = np.zeros((20, 30), np.float32)
            self.assertIs(vostel.read_raw(path, np.uint16, 30, 20, 4, True, out=out), out)
            self.assertTrue(np.array_equal(out, image))
            self.assertEqual(vostel.read_raw(path, np.int16, 30, 20).dtype, np.float32)
            for wrong in ({"dtype": "rgb8"}, {"offset": 5}, {"width": -1}, {"out": np.zeros((5, 5), np.uint8)}):
                with self.assertRaises(vostel.Error):
                    vostel.read_raw(**{"path": path, "dtype": "uint16", "width": 30, "height": 20, **wrong})

    def test_limits_hold_and_go_back(self):
        defaults = vostel.limits()
        self.addCleanup(vostel.set_limits)
        vostel.set_limits(max_side=100)
        self.assertEqual(vostel.limits(), defaults._replace(max_side=100))
        with self.assertRaises(vostel.Error):
            vostel.Canvas(10, 10).show(np.zeros((200, 10), np.uint8))
        vostel.set_limits()
        self.assertEqual(vostel.limits(), defaults)


if __name__ == "__main__":
    unittest.main()
