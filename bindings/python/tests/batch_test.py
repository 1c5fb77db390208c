#!/usr/bin/env python3
"""python -m vostel batch: one table of many images, whatever happens meanwhile."""

import csv
import io
import os
import pathlib
import signal
import tempfile
import time
import unittest
from unittest import mock

import vostel
from batch_case import BatchCase
from vostel import _workers
from vostel._batch import Image, measure_chunk
from vostel._progress import Progress, clock_of


class Tables(BatchCase):
    def test_rows_say_what_a_canvas_measures(self):
        self.batch("part.vostel.json", *self.images, "--out", "table.csv")
        rows = list(csv.DictReader(io.StringIO(self.table().decode(), newline="")))
        self.assertEqual([row["image"] for row in rows], [name for name in self.images for _ in range(3)])
        self.assertEqual([row["object"] for row in rows[:6]], ["1", "2", "3"] * 2)
        with vostel.Canvas(20, 20) as canvas:
            canvas.open(self.folder / self.images[7])
            canvas.session_open(self.folder / "part.vostel.json", on_image=True)
            for told, measured in zip(rows[21:24], canvas.table()):
                for column, value in measured.items():
                    if column != "object":
                        self.assertEqual(told[column], "" if value is None else
                                         value if isinstance(value, str) else told[column])
                        if isinstance(value, (int, float)):
                            self.assertEqual(float(told[column]), value)

    def test_images_come_in_the_order_given_each_once_as_they_were_named(self):
        named = [self.images[3], "./" + self.images[0], str(self.folder / self.images[1]), self.images[3]]
        for more in ((), ("--workers", 3, "--chunk", 1)):
            self.batch("part.vostel.json", *named, "--out", "table.csv", *more)
            rows = list(csv.reader(io.StringIO(self.table().decode(), newline="")))[1:]
            self.assertEqual([row[0] for row in rows[::3]], named[:3])

    def test_workers_make_the_table_of_one(self):
        expected = self.expected()
        for more in (("--workers", 2), ("--workers", 3, "--chunk", 1), ("--workers", 1), ("--chunk", 100)):
            self.batch("part.vostel.json", *self.images, "--out", "table.csv", *more)
            self.assertEqual(self.table(), expected)

    def test_files_that_cannot_be_read_are_listed_at_the_end(self):
        (self.folder / "bad.png").write_bytes(b"no picture")
        named = [self.images[0], "bad.png", "none.png", self.images[1]]
        for more in ((), ("--workers", 2)):
            printed = self.batch("part.vostel.json", *named, "--out", "table.csv", *more, code=1)
            self.assertRegex(printed, r"(?s)2 of 4 images could not be read:\n  bad\.png: .*\n  none\.png: .*")
            self.assertEqual(self.table(), self.expected(self.images[:2]))

    def test_names_that_are_no_text_are_listed_too(self):
        name = os.fsdecode(b"bad \xff name.png")
        (self.folder / name).write_bytes((self.folder / self.images[0]).read_bytes())
        self.addCleanup((self.folder / name).unlink)
        printed = self.batch("part.vostel.json", name, self.images[0], "--out", "table.csv", code=1)
        self.assertIn("1 of 2 images", printed)
        self.assertEqual(self.table(), self.expected(self.images[:1]))


class Resuming(BatchCase):
    def resumed(self, table, images=None, **more):
        (self.folder / "table.csv").write_bytes(table)
        return self.batch("part.vostel.json", *(images or self.images), "--out", "table.csv", "--resume", **more)

    def test_a_table_that_is_torn_anywhere_becomes_whole(self):
        expected = self.expected()
        for length in [*range(0, len(expected), 97), len(expected) - 1, len(expected)]:
            with self.subTest(length=length):
                _batch_here(self.folder, expected[:length], self.images)
                self.assertEqual(self.table(), expected)
        self.resumed(expected[:len(expected) // 2])
        self.assertEqual(self.table(), expected)

    def test_only_what_is_missing_is_measured(self):
        expected = self.expected()
        self.assertIn("12 of 12 images are in", self.resumed(expected))
        cut = expected[:expected.index(b"image 008") + 40]
        self.assertIn("8 of 12 images are in", self.resumed(cut))
        # What stands is not measured again.
        marked = expected.replace("000.png,2,长,length,,mm,,,,,5,".encode(), "000.png,2,长,length,,mm,,,,,6,".encode())
        self.assertNotEqual(marked, expected)
        self.resumed(marked[:len(marked) // 2])
        self.assertEqual(self.table(), marked)

    def test_bad_files_are_tried_again_and_come_in_their_place(self):
        late = self.folder / "late.png"
        named = [self.images[0], "late.png", *self.images[1:]]
        self.batch("part.vostel.json", *named, "--out", "table.csv", code=1)
        late.write_bytes((self.folder / self.images[5]).read_bytes())
        self.addCleanup(late.unlink)
        self.batch("part.vostel.json", *named, "--out", "table.csv", "--resume")
        self.assertEqual(self.table(), self.expected(named))

    def test_rows_of_images_that_are_not_named_stay(self):
        self.batch("part.vostel.json", *self.images[4:6], "--out", "table.csv")
        self.batch("part.vostel.json", *self.images[:2], "--out", "table.csv", "--resume")
        self.assertEqual(self.table(), self.expected([*self.images[4:6], *self.images[:2]]))

    def test_without_resume_the_table_starts_anew(self):
        self.batch("part.vostel.json", *self.images, "--out", "table.csv")
        self.batch("part.vostel.json", self.images[5], "--out", "table.csv")
        self.assertEqual(self.table(), self.expected([self.images[5]]))

    def test_tables_of_others_are_left_alone(self):
        for table in (b"a,b\r\n1,2\r\n", self.expected().replace(b",length,", b",arrow,"), b"\xff\xfe\0\r\n"):
            self.resumed(table, code=2)
            self.assertEqual(self.table(), table)


def _batch_here(folder, table, images):
    """A resumed run in this process, which spares the time of starting one."""
    from vostel.__main__ import main
    (folder / "table.csv").write_bytes(table)
    before = os.getcwd()
    os.chdir(folder)
    try:
        with mock.patch("sys.stderr", io.StringIO()):
            assert main(["batch", "part.vostel.json", *images, "--out", "table.csv", "--resume"]) == 0
    finally:
        os.chdir(before)


class WrongUse(BatchCase):
    def test_it_ends_with_two_and_leaves_the_table(self):
        self.batch("part.vostel.json", *self.images, "--out", "table.csv")
        before = self.table()
        (self.folder / "empty.vostel.json").write_text('{"format": "vostel-session", "version": 1, "objects": []}')
        image = self.images[0]
        for arguments in ((), ("part.vostel.json",), ("part.vostel.json", image),
                          ("part.vostel.json", "--out", "table.csv"),
                          ("none.json", image, "--out", "table.csv"), (image, image, "--out", "table.csv"),
                          ("empty.vostel.json", image, "--out", "table.csv"),
                          ("part.vostel.json", image, "--out", "no/table.csv"),
                          ("part.vostel.json", image, "--out", "part.vostel.json"),
                          ("part.vostel.json", image, "--out", image),
                          ("part.vostel.json", image, "--out", "table.csv", "--workers", "0"),
                          ("part.vostel.json", image, "--out", "table.csv", "--workers", "many"),
                          ("part.vostel.json", image, "--out", "table.csv", "--chunk", "-1"),
                          ("part.vostel.json", image, "--out", "table.csv", "--workers", "2", "--scheduler", "a:1"),
                          ("part.vostel.json", image, "--out", "table.csv", "--unknown")):
            printed = self.batch(*arguments, code=2)
            self.assertIn("vostel", printed)
            self.assertNotIn("Traceback", printed)
        self.assertEqual(self.table(), before)


class Killed(BatchCase):
    COUNT, SIZE = 300, (500, 400)

    def children(self, pid):
        """Worker processes, without the one of multiprocessing that keeps the books."""
        found = pathlib.Path(f"/proc/{pid}/task/{pid}/children").read_text().split()
        return [int(child) for child in found
                if b"spawn_main" in pathlib.Path(f"/proc/{child}/cmdline").read_bytes()]

    def test_a_worker_that_is_killed_costs_nothing(self):
        code, printed = self.killed_in_the_middle(
            ("part.vostel.json", *self.images, "--out", "table.csv", "--workers", 2, "--chunk", 8), self.children)
        self.assertEqual(code, 0, printed)
        self.assertEqual(self.table(), self.expected())

    def test_a_run_that_is_killed_goes_on_where_it_was(self):
        self.killed_in_the_middle(("part.vostel.json", *self.images, "--out", "table.csv"), lambda pid: [pid])
        printed = self.batch("part.vostel.json", *self.images, "--out", "table.csv", "--resume", "--workers", 2)
        self.assertRegex(printed, r"[1-9]\d* of 300 images are in table\.csv")
        self.assertEqual(self.table(), self.expected())

    def test_an_interrupt_ends_it_and_its_workers(self):
        workers = []

        def interrupt(pid):
            workers.extend(self.children(pid))
            os.kill(pid, signal.SIGINT)
            return workers

        code, printed = self.killed_in_the_middle(
            ("part.vostel.json", *self.images, "--out", "table.csv", "--workers", 2), interrupt)
        self.assertEqual(code, 130, printed)
        self.assertIn("--resume", printed)
        time.sleep(0.2)
        self.assertFalse([pid for pid in workers if os.path.exists(f"/proc/{pid}")])


def serve_or_die(connection, session):
    """A worker that dies of some images; of others the first time only."""
    while True:
        try:
            images = connection.recv()
        except EOFError:
            return
        for image in images:
            if "deadly" in image.name:
                os.kill(os.getpid(), 9)
            marker = pathlib.Path(image.path + ".died")
            if "once" in image.name and not marker.exists():
                marker.touch()
                os.kill(os.getpid(), 9)
        connection.send([_workers.Measured(image, [[image.name]]) for image in images])


class DyingWorkers(unittest.TestCase):
    def test_only_the_image_that_a_worker_dies_of_twice_is_given_up(self):
        with tempfile.TemporaryDirectory() as folder, mock.patch.object(_workers, "_serve", serve_or_die):
            names = [f"{index} deadly" if index == 5 else f"{index} once" if index in (2, 9) else str(index)
                     for index in range(12)]
            images = [Image(name, os.path.join(folder, name)) for name in names]
            results = list(_workers.measure_on_cores(b"", _workers.chunks_of(images, 4), 2))
        measured = sorted((each for chunk in results for each in chunk), key=lambda each: names.index(each.image.name))
        self.assertEqual([each.image.name for each in measured], names)
        self.assertEqual([each.image.name for each in measured if each.problem], ["5 deadly"])
        self.assertEqual(measured[5].problem, _workers.DIED)


class Parts(BatchCase):
    def test_a_chunk_needs_nothing_but_the_session_and_paths(self):
        session = (self.folder / "part.vostel.json").read_bytes()
        good, bad = measure_chunk(session, [Image("a", str(self.folder / self.images[0])), Image("b", "none.png")])
        self.assertEqual(([row[:2] for row in good.rows], good.problem), ([["a", "1"], ["a", "2"], ["a", "3"]], None))
        self.assertEqual((bad.rows, "NOT_READ" in bad.problem), ([], True))

    def test_progress_tells_rate_and_time_left(self):
        progress = Progress(40, io.StringIO())
        progress.done = 10
        self.assertEqual(progress.line(5.0), "[#######.......................] 10/40  2.0 images/s  0:15 left")
        progress.done = 0
        self.assertIn("0/40  0.0 images/s  ? left", progress.line(0.0))
        self.assertEqual([clock_of(seconds) for seconds in (0.4, 59.6, 3600, 36061)],
                         ["0:00", "1:00", "1:00:00", "10:01:01"])

    def test_a_terminal_shows_one_line_in_place(self):
        terminal = io.StringIO()
        terminal.isatty = lambda: True
        with mock.patch("time.monotonic", side_effect=[0, 1, 1.05, 2, 3]):
            progress = Progress(4, terminal)
            for _ in range(3):
                progress.advance(1)
            progress.end()
        self.assertEqual(terminal.getvalue().count("\r"), 2)
        self.assertEqual(terminal.getvalue().count("\n"), 1)


if __name__ == "__main__":
    unittest.main()
