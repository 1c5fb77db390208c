#!/usr/bin/env python3
"""batch_bench.py [IMAGES]: a batch of 2048 x 2048 images of 16 bits, 1000 at first, by one worker and by two.

Compares the tables, then tells images per second and the quotient: median of three runs each, in turns. Wants a quiet
machine of two cores or more. Needs the package on the path: PYTHONPATH=bindings/python.
"""

import os
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import numpy as np

import vostel

SIDE, FILES = 2048, 8


def make(folder, count):
    """Images by count names, links to a few files; and a session."""
    y, x = np.mgrid[:SIDE, :SIDE]
    part = np.hypot(x - 1000, y - 900) * 20
    for index in range(FILES):
        noise = np.random.default_rng(index).integers(0, 2000, (SIDE, SIDE))
        header = b"P5 %d %d 65535\n" % (SIDE, SIDE)
        (folder / f"file{index}.pgm").write_bytes(header + (part + noise).astype(">u2").tobytes())
    for index in range(count):
        os.link(folder / f"file{index % FILES}.pgm", folder / f"image{index:05}.pgm")
    with vostel.Canvas(20, 20) as canvas:
        canvas.add_ellipse(100, 100, 900, 900)
        canvas.add_polygon([(1000, 100), (1900, 300), (1500, 1500)])
        canvas.add_spline([(200, 1200), (900, 1300), (800, 1900), (300, 1800)])
        canvas.add_length((0, 0), (300, 400))
        canvas.add_profile((100, 100), (1900, 1900))
        canvas.session_save(folder / "bench.vostel.json")


def seconds_of(folder, images, workers):
    begin = time.perf_counter()
    subprocess.run([sys.executable, "-m", "vostel", "batch", "bench.vostel.json", *images, "--out", f"{workers}.csv",
                    "--workers", str(workers)], cwd=folder, check=True, stderr=subprocess.DEVNULL)
    return time.perf_counter() - begin


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 1000
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        make(folder, count)
        images = sorted(path.name for path in folder.glob("image*.pgm"))
        seconds = {1: [], 2: []}
        for _ in range(3):
            for workers in seconds:
                seconds[workers].append(seconds_of(folder, images, workers))
        if (folder / "1.csv").read_bytes() != (folder / "2.csv").read_bytes():
            sys.exit("the tables differ")
    one, two = (statistics.median(seconds[workers]) for workers in (1, 2))
    for workers, median in ((1, one), (2, two)):
        spread = 100 * (max(seconds[workers]) - min(seconds[workers])) / median
        print(f"batch   {count} of {SIDE} x {SIDE}   workers {workers}   {count / median:6.1f} images/s   "
              f"spread {spread:.0f} %   (median of 3)")
    print(f"two workers are {one / two:.2f} times as fast as one")


if __name__ == "__main__":
    main()
