#!/usr/bin/env python3
"""foreign_pictures_test.py LIBRARY [--list] [FOLDER]: pictures of conformance suites, opened and held against ImageMagick.

The pictures are those that the packages below install (under FOLDER, if they were only unpacked there). Each is opened
by vostel_image_open(); its size and its values have to be those that ImageMagick reads, or its name has to stand in
the table of docs/reliability.md, which says why not. With --list what differs is printed. Packages that are missing are
named; without ImageMagick, or with none of them, the test is skipped (status 77).
"""

import array
import ctypes
import fnmatch
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
# What each package installs its pictures under.
PACKAGES = {
    "golang-1.19-src": "usr/share/go-1.19/src/image",
    "golang-golang-x-image-dev": "usr/share/gocode/src/golang.org/x/image/testdata",
    "jbigkit-testdata": "usr/share/jbigkit-testdata",
    "libjxl-testdata": "usr/share/libjxl-testdata",
    "librust-jpeg-decoder-dev": "usr/share/cargo/registry/jpeg-decoder-0.2.6",
    "librust-tiff-dev": "usr/share/cargo/registry/tiff-0.7.3",
    "python3-skimage": "usr/lib/python3/dist-packages/skimage/data",
}
ENDINGS = {".bmp", ".gif", ".jpeg", ".jpg", ".pbm", ".pfm", ".pgm", ".png", ".pnm", ".ppm", ".tif", ".tiff", ".webp"}
U8, U16, I16, F32, RGB8 = 1, 2, 3, 4, 5
MAGICK = next((program for program in ("convert-im6.q16", "convert") if shutil.which(program)), None)


class Info(ctypes.Structure):
    _fields_ = [("size", ctypes.c_uint32), ("type", ctypes.c_int32), ("width", ctypes.c_int32),
                ("height", ctypes.c_int32), ("min", ctypes.c_double), ("max", ctypes.c_double),
                ("not_finite", ctypes.c_int64)]


def pictures_of(folder):
    found = {}
    for package, place in PACKAGES.items():
        top = folder / place
        for path in sorted(top.rglob("*")):
            if path.suffix.lower() in ENDINGS and path.is_file():
                found[f"{package}: {path.relative_to(top)}"] = path
    return found


def missing_packages(folder):
    return [package for package, place in PACKAGES.items() if not (folder / place).is_dir()]


def magick(path, *settings):
    """The samples, or nothing where ImageMagick refuses the file."""
    # The samples of a PNG as they are: gamma has no part in open images.
    plain = ["-set", "colorspace", "sRGB"] if path.suffix == ".png" else []
    command = [MAGICK, f"{path}[0]", "-auto-orient", "-alpha", "off", *plain, *settings]
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    return done.stdout if done.returncode == 0 and done.stdout else None


class Canvas:
    def __init__(self, library):
        self.library = ctypes.CDLL(str(library))
        self.library.vostel_last_message.restype = ctypes.c_char_p
        self.number = ctypes.c_int32()
        self.library.vostel_canvas_create(16, 16, ctypes.byref(self.number))

    def open(self, path):
        status = self.library.vostel_image_open(self.number, str(path).encode(), 0)
        return "" if status == 0 else self.library.vostel_last_message().decode()

    def info(self):
        info = Info(ctypes.sizeof(Info))
        self.library.vostel_image_info(self.number, ctypes.byref(info))
        return info

    def copy(self, kind, count):
        data = ((ctypes.c_float if kind == F32 else ctypes.c_uint8) * count)()
        self.library.vostel_image_copy(self.number, kind, data, ctypes.c_ssize_t(0))
        return data


def difference(canvas, path):
    """Nothing, or what is not the same."""
    refused = canvas.open(path)
    theirs = magick(path, "-depth", "16", "-endian", "LSB", "rgb:-")
    if refused:
        return "" if theirs is None else "refused: " + refused
    if theirs is None:
        return "refused by ImageMagick"
    info = canvas.info()
    pixels = info.width * info.height
    words = array.array("H", theirs)
    if len(words) != 3 * pixels:
        return f"{len(words) // 3} pixels, not {info.width} x {info.height}"
    if info.type not in (U16, I16, F32):
        ours = canvas.copy(RGB8, 3 * pixels)
        apart = [abs(a - (b * 255 + 32767) // 65535) for a, b in zip(ours, words)]
        return f"{sum(x > 0 for x in apart)} of {len(apart)} bytes differ, by {max(apart)} at most" if any(apart) else ""
    ours = canvas.copy(F32, pixels)
    words = words[::3]
    scale = 65535.0 if info.type == F32 else 1.0
    apart = max(abs(min(max(a * scale, 0.0), 65535.0) - b) for a, b in zip(ours, words))
    return "" if apart <= (1.0 if info.type == F32 else 0.0) else f"values differ by {apart} of 65535"


def known_differences():
    """Patterns of names in the first column of the table of foreign pictures."""
    page = (ROOT / "docs/reliability.md").read_text(encoding="utf-8")
    section = page.split("## Foreign files", 1)[1].split("\n## ", 1)[0]
    return re.findall(r"^\| (\S+: \S+) \|", section, re.MULTILINE)


class ForeignPictures(unittest.TestCase):
    library = None
    folder = Path("/")

    def test_pictures_are_those_that_imagemagick_reads_but_for_the_table(self):
        canvas = Canvas(self.library)
        patterns = known_differences()
        used, wrong = set(), []
        for name, path in pictures_of(self.folder).items():
            what = difference(canvas, path)
            known = [pattern for pattern in patterns if fnmatch.fnmatchcase(name, pattern)]
            used.update(known if what else ())
            if what and not known:
                wrong.append(f"{name}: {what}")
        self.assertEqual(wrong, [])
        missing = missing_packages(self.folder)
        stale = [pattern for pattern in patterns if pattern.split(":")[0] not in missing and pattern not in used]
        self.assertEqual(stale, [], "these of the table do not differ")


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--list"]
    ForeignPictures.library = arguments[0]
    ForeignPictures.folder = Path(arguments[1]) if len(arguments) > 1 else Path("/")
    pictures = pictures_of(ForeignPictures.folder)
    missing = missing_packages(ForeignPictures.folder) + ([] if MAGICK else ["imagemagick"])
    if missing:
        print("not installed:", ", ".join(missing))
    if not pictures or not MAGICK:
        print("skipped: without ImageMagick or any package of pictures nothing can be compared")
        sys.exit(77)
    if "--list" in sys.argv:
        canvas = Canvas(ForeignPictures.library)
        for name, path in pictures.items():
            what = difference(canvas, path)
            if what:
                print(f"{name}: {what}")
        print(len(pictures), "pictures")
        return
    unittest.main(argv=sys.argv[:1])


if __name__ == "__main__":
    main()
