#!/usr/bin/env python3
"""Arrays go in and out as they are, without a copy where their rows allow, and never dangle."""

import ctypes
import gc
import unittest
import weakref
from unittest import mock

import numpy as np

import vostel
from canvas_case import CanvasCase, ramp
from vostel import _canvas
from vostel import _declarations as declared
from vostel._arrays import frame_of, image_of, samples_of

COLORS = np.arange(60 * 40 * 3).reshape(40, 60, 3).astype(np.uint8)


class ArraysIn(CanvasCase):
    def test_every_type_comes_back_as_it_was_shown(self):
        for dtype in (np.uint8, np.uint16, np.int16, np.float32):
            image = ramp(dtype=dtype)
            image[3, 4] = 7
            self.canvas.show(image)
            plane = self.canvas.plane
            self.assertEqual(plane.dtype, image.dtype)
            self.assertTrue(np.array_equal(plane, image))
        self.canvas.show(COLORS)
        self.assertTrue(np.array_equal(self.canvas.plane, COLORS))

    def address_shown(self, image):
        """The memory that the library is given."""
        with mock.patch.object(_canvas.library, "vostel_image_show",
                               wraps=_canvas.library.vostel_image_show) as show:
            self.canvas.show(image)
        self.assertTrue(np.array_equal(self.canvas.plane, image))
        return show.call_args[0][2]

    def test_rows_in_one_piece_are_not_copied(self):
        whole = ramp(80, 50)
        for image in (whole, whole[::2], whole[5:20, 3:40], whole[::-1], whole[:1], whole[:, :1][:7]):
            self.assertEqual(self.address_shown(image), image.ctypes.data)
        self.assertEqual(self.address_shown(COLORS[::-3, 2:50]), COLORS[::-3, 2:50].ctypes.data)

    def test_blue_green_red_looked_at_from_behind_is_not_copied(self):
        memory = COLORS.copy()
        image = memory[:, :, ::-1]
        self.assertEqual(self.address_shown(image), memory.ctypes.data)

    def test_what_lies_otherwise_is_copied_and_shows_the_same(self):
        whole = ramp(80, 50)
        others = [whole[:, ::2], whole[:, ::-1], whole.T, np.asfortranarray(whole), whole.astype(">u2"),
                  np.broadcast_to(whole[0], (20, 80)), np.lib.stride_tricks.as_strided(whole[0], (51, 30), whole.strides[1:] * 2),
                  COLORS[:, ::2], COLORS.transpose(1, 0, 2), np.dstack([COLORS, COLORS])[:, :, :3],
                  np.broadcast_to(COLORS[:, :, :1], COLORS.shape)]
        for image in others:
            self.assertNotEqual(self.address_shown(image), image.ctypes.data)

    def test_the_canvas_keeps_its_own_copy(self):
        image = ramp()
        self.canvas.show(image)
        image[:] = 0
        self.assertEqual(self.canvas.value(2.5, 1.5), 102)

    def test_lists_of_numbers_and_read_only_arrays_are_taken(self):
        image = ramp()
        image.flags.writeable = False
        self.canvas.show(image)
        self.assertEqual(self.canvas.size, (60, 40))

    def test_routines_take_rows_that_lie_apart_without_a_copy(self):
        whole = ramp(80, 50, np.float32)
        samples = samples_of(whole[4:30:2, 5:50])
        self.assertEqual((samples.address, samples.row_bytes), (whole[4:, 5:].ctypes.data, 2 * 80 * 4))


class ArraysOut(CanvasCase):
    def test_a_plane_keeps_its_samples_whatever_becomes_of_the_canvas(self):
        image = ramp(500, 400)
        for end in (lambda canvas: canvas.show(np.zeros((400, 500), np.uint16)), vostel.Canvas.close,
                    lambda canvas: canvas.show(ramp(9, 9, np.uint8))):
            canvas = vostel.Canvas(50, 50)
            canvas.show(image)
            plane = canvas.plane
            end(canvas)
            del canvas
            gc.collect()
            others = [np.full(image.size, 7, np.uint16) for _ in range(8)]
            self.assertTrue(np.array_equal(plane, image))
            del others

    def test_all_who_ask_for_the_plane_share_one_array(self):
        first = self.canvas.plane
        self.assertEqual(first.ctypes.data, self.canvas.plane.ctypes.data)
        self.canvas.add_rectangle(1, 1, 5, 5)
        self.assertIs(self.canvas.plane, first)
        self.canvas.show(ramp() + np.uint16(1), keep_objects=True)
        self.assertEqual(self.canvas.plane[0, 0], 1)
        self.assertEqual(first[0, 0], 0)

    def test_nobody_writes_into_the_plane(self):
        for image in (ramp(), COLORS):
            self.canvas.show(image)
            with self.assertRaises(ValueError):
                self.canvas.plane[0, 0] = 1

    def test_a_plane_does_not_keep_its_canvas(self):
        canvas = vostel.Canvas(50, 50)
        canvas.show(ramp())
        plane, known = canvas.plane, weakref.ref(canvas)
        del canvas
        self.assertIsNone(known())
        self.assertEqual(plane[1, 1], 101)

    def test_bottom_up_and_padded_memory_is_read_in_its_order(self):
        memory = np.arange(4 * 16, dtype=np.uint8).reshape(4, 16)
        plane = declared.Plane(type=declared.U8, width=5, height=4, row_bytes=-16, data=memory[3].ctypes.data)
        self.assertTrue(np.array_equal(image_of(plane), memory[::-1, :5]))
        plane = declared.Plane(type=declared.BGRA8, width=4, height=4, row_bytes=0, data=memory.ctypes.data)
        self.assertEqual(image_of(plane)[0, 1].tolist(), [6, 5, 4, 7])
        plane.type, plane.width = declared.BGR8, 3
        plane.row_bytes = 16
        self.assertEqual(image_of(plane)[1, 2].tolist(), [24, 23, 22])

    def test_frames_are_read_in_either_order_of_rows(self):
        words = (np.arange(12, dtype=np.uint32) * 0x010203).reshape(3, 4)
        for rows in (words, words[::-1]):
            frame = declared.Frame(width=4, height=3, row_bytes=rows.strides[0], pixels=ctypes.cast(
                rows.ctypes.data, ctypes.POINTER(ctypes.c_uint32)))
            image = frame_of(frame)
            self.assertTrue(np.array_equal(image[:, :, 0], rows >> 16 & 255))
            self.assertTrue(np.array_equal(image[:, :, 2], rows & 255))

    def test_a_rendered_frame_is_the_caller_s(self):
        frame = self.canvas.render()
        self.assertEqual((frame.shape, frame.dtype), ((150, 200, 4), np.dtype(np.uint8)))
        before = frame.copy()
        self.canvas.show(COLORS)
        self.canvas.render()
        self.assertTrue(np.array_equal(frame, before))
        self.assertTrue((frame[:, :, 3] == 255).all())

    def test_a_frame_shows_red_as_red(self):
        self.canvas.show(np.full((40, 60, 3), (200, 100, 50), np.uint8))
        x, y = (int(place) for place in self.canvas.to_client(30, 20))
        self.assertEqual(self.canvas.render()[y, x].tolist(), [200, 100, 50, 255])

    def test_points_are_the_caller_s(self):
        region = self.canvas.add_polygon([(1, 1), (9, 1), (5, 8)])
        points = region.points
        points += 100
        self.assertEqual(region.points[0].tolist(), [1, 1])


if __name__ == "__main__":
    unittest.main()
