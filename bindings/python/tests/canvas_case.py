"""What tests of canvases share."""

import pathlib
import tempfile
import unittest

import numpy as np

import vostel


def ramp(width=60, height=40, dtype=np.uint16):
    """Values that tell their place: 100 y + x."""
    y, x = np.mgrid[:height, :width]
    return (100 * y + x).astype(dtype)


class CanvasCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.canvas = vostel.Canvas(200, 150)
        self.addCleanup(self.canvas.close)
        self.canvas.show(ramp())

    def fails(self, status, *arguments):
        """A context in which a call fails with a status, such as "NOT_FOUND", and with a message that says why."""
        case = self

        class Failure:
            def __enter__(self):
                return self

            def __exit__(self, kind, error, trace):
                case.assertIsInstance(error, vostel.Error, "the call did not fail")
                case.assertEqual(error.status_name, "VOSTEL_" + status, str(error))
                case.assertTrue(error.message)
                for words in arguments:
                    case.assertIn(words, str(error))
                return True

        return Failure()
