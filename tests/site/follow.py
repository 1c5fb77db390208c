#!/usr/bin/env python3
"""follow.py PAGE FOLDER [--picture PICTURE] [--window]: does what a page says, in a folder with samples/coins.png.

A block after a line that ends in "`NAME`:" is written as that file, a block of sh or of Python without such a line is
run, and a block of text is what the run before it prints. With --picture the page leaves measured.png, which looks like that picture. With --window the last command opens a window, and
keeps it open for some seconds.
"""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.DOTALL | re.MULTILINE)
NAME = re.compile(r"`([\w.]+)`[:：]\s*\Z")


def blocks(page):
    """(language, code, file name or None) of each block."""
    text = page.read_text(encoding="utf-8")
    for block in BLOCK.finditer(text):
        name = NAME.search(text[:block.start()])
        yield block[1], block[2], name and name[1]


def stays_open(command, folder):
    with subprocess.Popen(["bash", "-euc", "exec " + command], cwd=folder) as program:
        try:
            program.wait(3)
        except subprocess.TimeoutExpired:
            program.kill()
            return True
    print(f"{command} ended by itself with {program.returncode}")
    return False


def follow(page, folder, window):
    """Prints what goes wrong; the number of runs, and whether all went well."""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    shutil.copy(ROOT / "samples/coins.png", folder)
    printed, runs = None, 0
    for language, code, name in blocks(page):
        if name:
            (folder / name).write_text(code, encoding="utf-8")
        elif language == "sh":
            *before, last = code.strip().split("\n")
            for command in before:
                subprocess.run(["bash", "-euc", command], cwd=folder, check=True, stdout=subprocess.DEVNULL)
            if window:
                return 1, stays_open(last, folder)
            printed = subprocess.run(["bash", "-euc", last], cwd=folder, check=True, stdout=subprocess.PIPE,
                                     text=True).stdout
            runs += 1
        elif language == "python":
            printed = subprocess.run([sys.executable, "-c", code], cwd=folder, check=True, stdout=subprocess.PIPE,
                                     text=True).stdout
            runs += 1
        elif language == "text" and runs and printed != code:
            print(f"{page} promises\n{code}\nand the program prints\n{printed}")
            return runs, False
    return runs, True


def alike(made, expected):
    """Whether two pictures have the same size and differ in few pixels, as other fonts make them differ."""
    import vostel

    planes = []
    for path in made, expected:
        canvas = vostel.Canvas(8, 8)
        canvas.open(str(path))
        planes.append(canvas.plane)
    return planes[0].shape == planes[1].shape and (planes[0] != planes[1]).mean() < 0.02


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("page", type=pathlib.Path)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--picture", type=pathlib.Path)
    parser.add_argument("--window", action="store_true")
    arguments = parser.parse_args()
    os.environ["PATH"] = os.pathsep.join([os.path.dirname(sys.executable), os.environ["PATH"]])    # this very Python
    runs, well = follow(arguments.page, arguments.folder, arguments.window)
    if not runs:
        print(f"{arguments.page} runs nothing")
    if well and arguments.picture and not alike(arguments.folder / "measured.png", arguments.picture):
        print(f"measured.png is not {arguments.picture}")
        well = False
    return 0 if well and runs else 1


if __name__ == "__main__":
    sys.exit(main())
