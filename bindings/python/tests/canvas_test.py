#!/usr/bin/env python3
"""Canvases: image, contrast, view, pictures, numbers, history, files."""

import struct
import unittest
import zlib

import numpy as np

import vostel
from canvas_case import CanvasCase, ramp


class Images(CanvasCase):
    def test_a_canvas_tells_what_it_shows(self):
        self.assertEqual(self.canvas.info, (60, 40, "uint16", 0.0, 3959.0, 0))
        self.assertEqual(self.canvas.size, (60, 40))
        self.assertEqual(self.canvas.value(59.9, 39.0), 3959)
        self.assertEqual(repr(self.canvas), f"<vostel.Canvas {self.canvas.id}: image 60 x 40 uint16, 0 objects>")

    def test_a_picture_file_shows_by_its_path(self):
        path = self.folder / "图像 1.png"
        self.canvas.show(ramp(dtype=np.uint8))
        self.canvas.save(path, objects=False)
        other = vostel.Canvas(50, 50)
        other.open(path)
        self.assertEqual(other.size, (60, 40))
        self.assertEqual(vostel.pages(path), 1)
        with self.fails("NOT_FOUND"):
            other.open(path, page=1)

    def test_raw_samples_show_by_their_layout(self):
        image = ramp()
        path = self.folder / "part.raw"
        path.write_bytes(b"12345678" + image.astype(">u2").tobytes())
        for dtype, big_endian in ((np.uint16, True), ("uint16", True), (">u2", False)):
            self.canvas.open_raw(path, dtype, 60, 40, offset=8, big_endian=big_endian)
            self.assertTrue(np.array_equal(self.canvas.plane, image))
        path.write_bytes(np.arange(60 * 40 * 3, dtype=np.uint8).tobytes())
        self.canvas.open_raw(path, "rgb8", 60, 40)
        self.assertEqual(self.canvas.plane.shape, (40, 60, 3))

    def test_objects_go_with_their_image_unless_they_are_kept(self):
        self.canvas.add_rectangle(1, 1, 5, 5)
        self.canvas.show(ramp(), keep_objects=True)
        self.assertEqual(len(self.canvas.objects), 1)
        self.canvas.show(ramp())
        self.assertEqual(self.canvas.objects, ())

    def test_view_and_contrast_are_kept_on_demand(self):
        self.canvas.view, self.canvas.contrast = (2, 10, 20), (5, 50)
        self.canvas.show(ramp(), keep_view=True, keep_contrast=True)
        self.assertEqual(self.canvas.view, (2, 10, 20))
        self.assertEqual(self.canvas.contrast, (5, 50))
        self.canvas.show(ramp())
        self.assertEqual(self.canvas.contrast, (0, 3959))

    def test_the_five_canvases_are_borrowed(self):
        first = vostel.Canvas.number(3)
        self.assertIs(vostel.Canvas.number(3), first)
        first.resize(80, 60)
        first.show(ramp())
        first.close()
        again = vostel.Canvas.number(3)
        self.assertEqual(again.size, (60, 40))
        with self.fails("NOT_FOUND"):
            vostel.Canvas.number(1000000)


class Contrasts(CanvasCase):
    def test_window_gamma_and_map_read_back_and_undo(self):
        self.canvas.contrast = 100, 900
        self.canvas.gamma = 2.2
        self.canvas.colormap = "viridis"
        self.assertEqual((self.canvas.contrast, self.canvas.gamma, self.canvas.colormap), ((100, 900), 2.2, "viridis"))
        self.canvas.undo()
        self.canvas.undo()
        self.assertEqual((self.canvas.contrast, self.canvas.gamma, self.canvas.colormap), ((100, 900), 1.0, "gray"))
        self.assertIn("viridis", vostel.colormaps())

    def test_settings_of_the_canvas_read_back(self):
        self.canvas.resize(70, 50)
        self.canvas.set_pixel_ratio(1.5)
        self.canvas.set_language("en")
        self.canvas.set_smooth(False)
        self.canvas.marks(1, 2, 0xFF000003)
        found = (self.canvas.area, self.canvas.pixel_ratio, self.canvas.language, self.canvas.smooth,
                 self.canvas.mark_colors)
        self.assertEqual(found, ((70, 50), 1.5, "en", False, (1, 2, 0xFF000003)))

    def test_a_picture_is_the_one_that_is_saved(self):
        self.canvas.add_polygon([(5, 5), (50, 10), (20, 30)])
        path = self.folder / "saved.png"
        for scale in (1.0, 0.5, 2.75):
            self.canvas.save(path, scale)
            saved = vostel.Canvas(10, 10)
            saved.open(path)
            np.testing.assert_array_equal(self.canvas.picture(scale)[:, :, :3], saved.plane)
        self.assertTrue((self.canvas.picture(0.1)[:, :, 3] == 255).all())
        for scale, name in ((0, "INVALID_ARGUMENT"), (float("nan"), "INVALID_ARGUMENT"), (1e9, "TOO_LARGE")):
            with self.fails(name):
                self.canvas.picture(scale)

    def test_objects_go_to_another_canvas_as_text(self):
        polygon = self.canvas.add_polygon([(5, 5), (50, 10), (20, 30)])
        polygon.name = "孔 1"
        self.canvas.add_length((1, 1), (4, 5))
        other = vostel.Canvas(50, 50)
        self.assertEqual([each.kind for each in other.paste(self.canvas.objects_text())], ["polygon", "length"])
        pasted, = other.paste(self.canvas.objects_text([polygon]))
        self.assertEqual(pasted.name, "孔 1")
        np.testing.assert_array_equal(pasted.points, polygon.points)
        with self.fails("BAD_FORMAT"):
            other.paste("no objects")

    def test_percentiles_are_those_of_numpy(self):
        window = self.canvas.percentiles(1, 99.5)
        self.assertEqual(window, tuple(np.percentile(ramp().astype(float), [1, 99.5])))
        self.assertEqual(window, self.canvas.contrast)

    def test_marks_color_what_is_outside_the_window(self):
        self.canvas.actual()
        self.canvas.contrast = 1000, 2000
        self.canvas.marks(below=0xFF0000FF, above="#FFFF0000")
        x, y = (int(place) for place in self.canvas.to_client(5, 0))
        self.assertEqual(self.canvas.render()[y, x, :3].tolist(), [0, 0, 255])

    def test_histograms_are_those_of_numpy(self):
        counts = self.canvas.histogram(64)
        self.assertEqual((counts.dtype, counts.shape), (np.dtype(np.uint64), (64,)))
        self.assertEqual(counts.tolist(), np.histogram(ramp(), 64)[0].tolist())
        image = ramp(dtype=np.uint8)
        self.canvas.show(image)
        self.assertEqual(self.canvas.histogram().tolist(), np.bincount(image.ravel(), minlength=256).tolist())
        region = self.canvas.add_rectangle(10, 10, 20, 15)
        self.assertEqual(self.canvas.histogram(region=region).tolist(),
                         np.bincount(image[10:15, 10:20].ravel(), minlength=256).tolist())
        self.assertEqual(self.canvas.histogram(2, low=0, high=10).sum(), (image <= 10).sum())
        self.canvas.show(np.full((9, 9), 4, np.float32))
        self.assertEqual(self.canvas.histogram(3).tolist(), [0, 81, 0])


class Views(CanvasCase):
    def test_points_go_to_and_fro(self):
        self.canvas.view = 2, 10, 20
        self.assertEqual(self.canvas.to_client(5, 6), (20, 32))
        self.assertEqual(self.canvas.to_image(20, 32), (5, 6))
        self.canvas.zoom(2, 20, 32)
        self.assertEqual(self.canvas.view.scale, 4)
        self.assertEqual(self.canvas.to_image(20, 32), (5, 6))
        self.canvas.actual()
        self.assertEqual(self.canvas.view.scale, 1)
        self.canvas.fit()
        self.assertEqual(self.canvas.view.scale, 200 / 60)

    def test_linked_canvases_follow(self):
        others = [vostel.Canvas(200, 150) for _ in range(2)]
        for other in others:
            other.show(ramp())
            other.link(self.canvas)
        self.canvas.view = 3, 12, 7
        self.assertEqual([other.view for other in others], [self.canvas.view] * 2)
        others[0].link(None)
        self.canvas.actual()
        self.assertEqual([other.view.scale for other in others], [3, 1])
        del others, other
        self.canvas.fit()

    def test_the_area_has_another_size(self):
        self.canvas.resize(90, 70)
        self.assertEqual(self.canvas.render().shape, (70, 90, 4))

    def test_a_smooth_view_and_a_dense_screen_look_otherwise(self):
        self.canvas.add_rectangle(5, 5, 30, 30)
        self.canvas.view = 3.5, 0, 0
        frames = [self.canvas.render()]
        for change in (lambda: self.canvas.set_smooth(True), lambda: self.canvas.set_pixel_ratio(3)):
            change()
            frames.append(self.canvas.render())
            self.assertFalse(np.array_equal(frames[-1], frames[-2]))


class Pictures(CanvasCase):
    def test_pictures_are_saved_by_the_ending(self):
        self.canvas.add_rectangle(5, 5, 30, 30)
        for name, begin in (("a.png", b"\x89PNG"), ("a.svg", b"<?xml"), ("a.pdf", b"%PDF"), ("a.jpg", b"\xff\xd8")):
            self.canvas.save(self.folder / name, scale=2.0)
            self.assertTrue((self.folder / name).read_bytes().startswith(begin))
        other = vostel.Canvas(9, 9)
        other.open(self.folder / "a.png")
        self.assertEqual(other.size, (120, 80))

    def test_a_notebook_shows_what_the_area_shows(self):
        data = self.canvas._repr_png_()
        self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
        path = self.folder / "frame.png"
        path.write_bytes(data)
        other = vostel.Canvas(9, 9)
        other.open(path)
        self.assertTrue(np.array_equal(other.plane, self.canvas.render()[:, :, :3]))
        place, kinds = 8, []
        while place < len(data):
            size, kind = struct.unpack(">I4s", data[place:place + 8])
            checksum, = struct.unpack(">I", data[place + 8 + size:place + 12 + size])
            self.assertEqual(checksum, zlib.crc32(data[place + 4:place + 8 + size]))
            kinds.append(kind)
            place += 12 + size
        self.assertEqual(kinds, [b"IHDR", b"IDAT", b"IEND"])

    def test_a_closed_canvas_shows_nothing_in_a_notebook(self):
        self.canvas.close()
        self.assertIsNone(self.canvas._repr_png_())


class Numbers(CanvasCase):
    def test_a_region_is_told_by_mask_labels_and_table(self):
        first = self.canvas.add_rectangle(10, 10, 20, 15, name="left")
        second = self.canvas.add_ellipse(30, 5, 50, 35, label=7)
        mask = first.mask()
        self.assertEqual((mask.shape, mask.dtype), ((40, 60), np.dtype(np.uint8)))
        self.assertEqual(np.unique(mask).tolist(), [0, 255])
        self.assertTrue((mask[10:15, 10:20] == 255).all())
        self.assertEqual(np.count_nonzero(mask), 50)
        self.assertEqual(ramp()[first.mask(bool)].sum(), first.sum)
        labels = self.canvas.labels()
        self.assertEqual((labels.shape, labels.dtype), ((40, 60), np.dtype(np.int32)))
        self.assertTrue(np.array_equal(labels == 1, first.mask(bool)))
        self.assertTrue(np.array_equal(labels == 7, second.mask(bool)))
        table = self.canvas.table()
        self.assertEqual([row["name"] for row in table], ["left", ""])
        self.assertEqual([row["object"] for row in table], [first.id, second.id])
        self.assertEqual(table[0]["mean"], ramp()[10:15, 10:20].mean())
        self.assertIsNone(table[0]["length"])

    def test_a_table_of_pandas_has_the_same_cells(self):
        try:
            import pandas
        except ImportError:
            self.skipTest("pandas is not installed")
        self.assertEqual(len(self.canvas.dataframe().columns), 26)
        self.canvas.add_rectangle(10, 10, 20, 15, name="左")
        self.canvas.add_length((0, 0), (3, 4))
        frame = self.canvas.dataframe()
        self.assertEqual(list(frame.columns), list(self.canvas.table()[0]))
        self.assertEqual(frame["name"][0], "左")
        self.assertEqual(frame["length"][1], 5)
        self.assertTrue(pandas.isna(frame["area"][1]))

    def test_the_scale_is_one_of_all_measures_and_undoes(self):
        line = self.canvas.add_length((0, 0), (30, 40))
        self.assertEqual(self.canvas.scale, (1, "px"))
        self.canvas.scale = 0.02, "µm"
        self.assertEqual(self.canvas.scale, vostel.Scale(0.02, "µm"))
        self.assertEqual(line.length, 1)
        self.canvas.undo()
        self.assertEqual(self.canvas.scale, (1, "px"))


class Histories(CanvasCase):
    def test_a_block_is_one_step(self):
        region = self.canvas.add_polygon([(1, 1), (9, 1), (5, 8)], name="bore", label=4, color=0x123456, width=3)
        self.assertEqual(self.canvas.history.undo_count, 1)
        with self.canvas.step("move"):
            region.points += 5
            with self.canvas.step("inner"):
                region.name = "moved"
        self.assertEqual(self.canvas.history.undo_name, "move")
        self.canvas.undo()
        self.assertEqual((region.points[0].tolist(), region.name), ([1, 1], "bore"))
        self.assertEqual(self.canvas.history.redo_name, "move")
        self.canvas.redo()
        self.assertEqual(region.name, "moved")
        self.canvas.undo()
        self.canvas.undo()
        self.assertEqual(self.canvas.objects, ())
        self.assertIn("gone", repr(region))
        self.canvas.redo()
        self.assertEqual(self.canvas.objects, (region,))

    def test_a_block_that_fails_leaves_one_step(self):
        with self.assertRaises(ZeroDivisionError):
            with self.canvas.step("half"):
                self.canvas.add_rectangle(1, 1, 5, 5)
                raise ZeroDivisionError
        self.assertEqual(self.canvas.history.undo_name, "half")
        self.canvas.undo()
        self.assertEqual(self.canvas.objects, ())

    def test_a_canvas_may_be_closed_in_a_step(self):
        with self.canvas.step("last"):
            self.canvas.close()

    def test_there_is_an_end_of_undoing(self):
        with self.fails("NOT_FOUND"):
            self.canvas.undo()
        self.canvas.set_history_limit(0)
        self.canvas.add_rectangle(1, 1, 5, 5)
        self.assertEqual(self.canvas.history, (0, 0, 0, 0, None, None))


class Files(CanvasCase):
    def test_a_session_brings_everything_back(self):
        path = self.folder / "part.png"
        self.canvas.show(ramp(dtype=np.uint8))
        self.canvas.save(path)
        self.canvas.open(path)
        self.canvas.add_rectangle(1, 2, 30, 20, name="bore", label=3)
        self.canvas.scale = 0.5, "mm"
        self.canvas.session_save(self.folder / "part.vostel.json")
        other = vostel.Canvas(200, 150)
        other.session_open(self.folder / "part.vostel.json")
        self.assertEqual(other.notes, "")
        self.assertEqual(other.size, (60, 40))
        self.assertEqual([(each.name, each.label) for each in other.objects], [("bore", 3)])
        self.assertEqual(other.scale, (0.5, "mm"))

    def test_a_session_of_an_image_from_memory_opens_on_an_image(self):
        path = self.folder / "part.vostel.json"
        self.canvas.add_rectangle(1, 2, 30, 20)
        self.canvas.session_save(path)
        other = vostel.Canvas(200, 150)
        with self.fails("NO_IMAGE"):
            other.session_open(path)
        other.show(ramp(90, 80))
        other.session_open(path, on_image=True)
        self.assertEqual((other.size, len(other.objects)), ((90, 80), 1))

    def test_regions_leave_and_return_as_objects(self):
        self.canvas.add_rectangle(1, 2, 30, 20, name="bore")
        self.canvas.add_polygon([(1, 1), (9, 1), (5, 8)])
        for name, format in (("a.json", None), ("a.geojson", None), ("a.zip", "imagej"), ("a.txt", "json")):
            self.canvas.export(self.folder / name, format)
            other = vostel.Canvas(200, 150)
            other.show(ramp())
            kept = other.add_arrow((1, 1), (5, 5))
            added = other.import_(self.folder / name, format)
            self.assertEqual(other.objects, (kept, *added))
            self.assertEqual([each.name for each in added][0], "bore")
            self.assertEqual(other.history.undo_count, 2)

    def test_what_a_format_cannot_hold_is_noted(self):
        self.canvas.add_rectangle(1, 2, 30, 20)
        self.canvas.add_length((1, 1), (5, 5))
        self.canvas.export(self.folder / "a.json", "coco")
        self.assertIn("length", self.canvas.notes)
        with self.fails("NOT_SUPPORTED"):
            self.canvas.export(self.folder / "a.unknown")


class Gestures(CanvasCase):
    def test_a_person_draws_and_drags(self):
        self.canvas.view = 2, 0, 0
        drawn = self.canvas.draw_next("rectangle")
        self.canvas.press(20, 20, shift=True)
        self.canvas.move(60, 40, shift=True, left=True)
        self.canvas.release(60, 40, shift=True)
        self.assertEqual(drawn.bounds, (10, 10, 30, 20))
        self.assertEqual(self.canvas.selection, (drawn,))
        self.canvas.key("r")
        self.assertEqual(self.canvas.objects, ())

    def test_the_wheel_zooms_and_keys_can_be_silenced(self):
        before = self.canvas.view.scale
        self.canvas.wheel(100, 75, 1, control=True)
        self.assertGreater(self.canvas.view.scale, before)
        self.canvas.set_keys("")
        self.canvas.selection = [self.canvas.add_rectangle(1, 1, 9, 9)]
        self.canvas.key(ord("R"))
        self.assertEqual(len(self.canvas.objects), 1)


if __name__ == "__main__":
    unittest.main()
