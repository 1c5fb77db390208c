"""Routines on planes. They run on any thread, without the interpreter's lock.

Images are height x width of uint8, uint16 or float32; other real numbers are converted to float32. Results have the
type of the image, truncated and held within its range, unless `dtype` names another of these; `out` takes an array of
the caller's instead.
"""

from __future__ import annotations

import ctypes
import os
from typing import TYPE_CHECKING, Any, Optional, Tuple, Union

import numpy as np

from . import _declarations as c
from ._arrays import TYPES, Array, Samples, as_array, layout_of, plane_of, pointer, real, result_of, whole
from ._library import ArgumentError, encoded_path, library
from ._records import Limits

if TYPE_CHECKING:
    import numpy.typing as npt


def _result(source: Samples, shape: Tuple[int, ...], dtype: Any, out: Optional[Array]) -> Samples:
    if dtype is None:
        dtype = source.array.dtype if source.pixel in (c.U8, c.U16, c.F32) else np.float32
    return result_of(shape, dtype, out)


def correlate(image: Any, kernel: Any, dtype: Any = None, out: Optional[Array] = None) -> Array:
    """Correlates an image with a kernel of odd sides; the result has the image's size."""
    source, taps = plane_of(image, "image"), plane_of(kernel, "kernel")
    result = _result(source, source.array.shape, dtype, out)
    library.vostel_correlate(source.plane(), taps.plane(), result.plane())
    return result.array


def gaussian(image: Any, size: int, sigma: float, dtype: Any = None, out: Optional[Array] = None) -> Array:
    """Smooths by a Gaussian kernel of size x size px."""
    source = plane_of(image, "image")
    result = _result(source, source.array.shape, dtype, out)
    library.vostel_gaussian(source.plane(), whole(size, "size"), real(sigma, "sigma"), result.plane())
    return result.array


def resize(image: Any, width: int, height: int, dtype: Any = None, out: Optional[Array] = None) -> Array:
    """Scales an image to height x width px."""
    source = plane_of(image, "image")
    result = _result(source, (whole(height, "height"), whole(width, "width")), dtype, out)
    library.vostel_resize(source.plane(), result.plane())
    return result.array


def adaptive_threshold(image: Any, size: int, constant: float, dtype: Any = np.uint8,
                       out: Optional[Array] = None) -> Array:
    """255 where a pixel is brighter than `constant` times the mean of the size x size around it, else 0."""
    source = plane_of(image, "image")
    result = _result(source, source.array.shape, dtype, out)
    library.vostel_adaptive_threshold(source.plane(), whole(size, "size"), real(constant, "constant"), result.plane())
    return result.array


def stitch(left: Any, right: Any, overlap: int, dtype: Any = None, out: Optional[Array] = None) -> Array:
    """Joins two images of one height that overlap by so many columns, equalised there; 0, or 2 and more."""
    a, b = plane_of(left, "left"), plane_of(right, "right")
    columns = whole(overlap, "overlap")
    width = a.width + b.width - columns
    if columns < 0 or width < 1:
        raise ArgumentError(f"overlap is {columns}, which leaves {width} columns of {a.width} and {b.width}")
    result = _result(a, (a.height, width), dtype, out)
    library.vostel_stitch(a.plane(), b.plane(), columns, result.plane())
    return result.array


def ramp_filter(rows: Any, kernel_length: int, spacing: float, dtype: Any = np.float32,
                out: Optional[Array] = None) -> Array:
    """Filters each row by the ramp of a reconstruction, cut to so many taps; twice the width less 1 are all."""
    source = plane_of(rows, "rows")
    result = _result(source, source.array.shape, dtype, out)
    library.vostel_ramp_filter(source.plane(), whole(kernel_length, "kernel_length"), real(spacing, "spacing"),
                               result.plane())
    return result.array


def read_raw(path: Union[str, os.PathLike[str]], dtype: Any, width: int, height: int, offset: int = 0,
             big_endian: bool = False, out: Optional[Array] = None) -> Array:
    """The gray samples of a file without a header, `offset` bytes after its beginning.

    `dtype` is uint8, uint16, int16 or float32, or ">u2" and its like; int16 become float32. `out` takes an array of the
    caller's, which may serve for the next file too: values are then truncated and held within its range.
    """
    layout = layout_of(dtype, width, height, offset, big_endian)
    own = TYPES[layout.type] if layout.type in (c.U8, c.U16) else np.float32
    result = result_of((layout.height, layout.width), own, out)
    library.vostel_read_raw(encoded_path(path), layout, result.plane())
    return result.array


def fft(values: Any, inverse: bool = False) -> npt.NDArray[np.complex128]:
    """The transform of n numbers, complex128; n is a power of two. Backwards it is scaled by 1 / n.

    It runs in single precision.
    """
    array = as_array(values, "values")
    if array.ndim != 1:
        raise ArgumentError(f"values have the shape {array.shape}, not n")
    real_part = np.array(array.real, dtype=np.float64)
    imaginary = np.array(array.imag, dtype=np.float64)
    library.vostel_fft(pointer(real_part, ctypes.c_double), pointer(imaginary, ctypes.c_double), len(array),
                       bool(inverse))
    return real_part + 1j * imaginary


def set_limits(max_side: int = 0, max_pixels: int = 0, max_file_bytes: int = 0, max_threads: int = 0,
               max_memory: int = 0) -> None:
    """Sets what is taken from files and callers, for the whole process; 0 is the default."""
    library.vostel_set_limits(c.Limits(
        max_side=whole(max_side, "max_side"), max_pixels=whole(max_pixels, "max_pixels", -2**63, 2**63 - 1),
        max_file_bytes=whole(max_file_bytes, "max_file_bytes", -2**63, 2**63 - 1),
        max_threads=whole(max_threads, "max_threads"), max_memory=whole(max_memory, "max_memory", -2**63, 2**63 - 1)))


def limits() -> Limits:
    """The limits in force."""
    record = c.Limits()
    library.vostel_get_limits(record)
    return Limits(*(getattr(record, name) for name in Limits._fields))
