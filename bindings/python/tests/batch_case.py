"""What tests of batches share: images, a session, and the command."""

import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

import numpy as np

import vostel


class BatchCase(unittest.TestCase):
    """Images of the class are in `folder`, where the command runs."""

    COUNT, SIZE = 12, (60, 40)

    @classmethod
    def setUpClass(cls):
        made = tempfile.TemporaryDirectory()
        cls.addClassCleanup(made.cleanup)
        cls.folder = pathlib.Path(made.name)
        cls.images = [f"image {index:03}.png" for index in range(cls.COUNT)]
        width, height = cls.SIZE
        with vostel.Canvas(20, 20) as canvas:
            for index, name in enumerate(cls.images):
                noise = np.random.default_rng(index % 10).integers(0, 200, (height, width), np.uint8)
                canvas.show(noise + np.uint8(index % 50))
                canvas.save(cls.folder / name)
            canvas.add_ellipse(5, 5, 30, 25, name='bore, "left"\r\nsecond line')
            canvas.add_length((0, 0), (30, 40), name="长")
            canvas.add_polygon([(10, 10), (40, 12), (20, 38)])
            canvas.scale = 0.1, "mm"
            canvas.session_save(cls.folder / "part.vostel.json")

    def setUp(self):
        for table in self.folder.glob("*.csv*"):
            table.unlink()

    def command(self, *arguments):
        return [sys.executable, "-m", "vostel", "batch", *map(str, arguments)]

    def batch(self, *arguments, code=0, **more):
        run = subprocess.run(self.command(*arguments), cwd=self.folder, text=True, capture_output=True, timeout=250,
                             **more)
        self.assertEqual(run.returncode, code, run.stderr)
        return run.stderr

    def table(self, name="table.csv"):
        return (self.folder / name).read_bytes()

    def expected(self, images=None):
        """The table of a run on one core."""
        self.batch("part.vostel.json", *(images or self.images), "--out", "expected.csv")
        return self.table("expected.csv")

    def killed_in_the_middle(self, arguments, victims):
        """Runs a batch and kills a worker once rows have come; returns exit code and what it printed."""
        path = self.folder / "table.csv"
        with subprocess.Popen(self.command(*arguments), cwd=self.folder, text=True, stderr=subprocess.PIPE) as run:
            begin = time.monotonic()
            while not path.exists() or path.read_bytes().count(b"\r\nimage") < 10:
                self.assertIsNone(run.poll(), "ended before its worker could be killed")
                self.assertLess(time.monotonic() - begin, 120, "no rows come")
                time.sleep(0.005)
            rows = path.read_bytes().count(b"\r\nimage")
            os.kill(victims(run.pid)[0], 9)
            printed = run.communicate(timeout=250)[1]
        self.assertLess(rows, 3 * self.COUNT, "all was done when the worker was killed")
        return run.returncode, printed
