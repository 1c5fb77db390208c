#!/usr/bin/env python3
"""Types are annotated, without and within: mypy has nothing to say, and every public name has words."""

import importlib.util
import inspect
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import vostel

PACKAGE = pathlib.Path(vostel.__file__).parent
PYTHON = str(PACKAGE.parent)

USE = """
import numpy as np
import vostel

with vostel.Canvas(100, 80) as canvas:
    canvas.show(np.zeros((8, 9), np.uint8))
    region = canvas.add_polygon([(1, 1), (5, 1), (3, 6)], name="bore")
    region.points += 5
    reveal_type(region.measure().mean)
    reveal_type(canvas.objects)
    reveal_type(canvas.labels())
    canvas.listen(lambda event: print(event.object), vostel.Events.OBJECT_ADDED)
"""


def mypy(*arguments):
    return subprocess.run([sys.executable, "-m", "mypy", "--strict", "--python-version", "3.9", *arguments],
                          capture_output=True, text=True, cwd=PYTHON)


class Types(unittest.TestCase):
    def test_the_package_is_clean(self):
        run = mypy(str(PACKAGE))
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)

    def test_users_see_the_types(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "use.py")
            path.write_text(USE)
            run = mypy(str(path))
            told = re.findall('Revealed type is "(.*)"', run.stdout)
            self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
            self.assertIn("float", told[0])
            self.assertIn("vostel._object.Object", told[1])
            self.assertIn("int", told[2])
            path.write_text("import vostel\nvostel.Canvas('wide', 80).no_such_call()\n")
            run = mypy(str(path))
            self.assertEqual(run.stdout.count("error:"), 2, run.stdout)
        self.assertTrue((PACKAGE / "py.typed").exists())


class Words(unittest.TestCase):
    def test_every_public_name_is_explained(self):
        silent = []
        for name in vostel.__all__:
            public = getattr(vostel, name)
            if not inspect.isclass(public) and not inspect.isfunction(public):
                continue
            members = [(name, public)]
            if inspect.isclass(public) and not issubclass(public, tuple):
                members += [(f"{name}.{member}", each) for member, each in vars(public).items()
                            if not member.startswith("_") and (callable(each) or isinstance(each, property))]
            silent += [of for of, each in members if not inspect.getdoc(each)]
        self.assertEqual(silent, [])


if __name__ == "__main__":
    if importlib.util.find_spec("mypy") is None:
        print("mypy is not installed")
        sys.exit(77)
    unittest.main()
