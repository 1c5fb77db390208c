"""Pictures in memory, for notebooks."""

from __future__ import annotations

import struct
import zlib
from typing import TYPE_CHECKING

import numpy as np

if TYPE_CHECKING:
    import numpy.typing as npt


def png_of(image: npt.NDArray[np.uint8]) -> bytes:
    """Height x width x 3 uint8 as a PNG file."""
    height, width, _ = image.shape
    rows = np.zeros((height, 1 + 3 * width), np.uint8)    # each row begins with its filter, 0
    rows[:, 1:] = image.reshape(height, 3 * width)

    def chunk(kind: bytes, data: bytes) -> bytes:
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows.tobytes(), 6)) + chunk(b"IEND", b""))
