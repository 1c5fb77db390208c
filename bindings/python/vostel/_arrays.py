"""From NumPy to the library and back, without a copy where rows are such as the library takes."""

from __future__ import annotations

import ctypes
import operator
from typing import TYPE_CHECKING, Any, Dict, NamedTuple, Optional, Tuple

import numpy as np

from . import _declarations as c
from ._library import ArgumentError, ArgumentTypeError

# An early NumPy has no types of its own.
if TYPE_CHECKING:
    import numpy.typing as npt
    Array = npt.NDArray[Any]    # its shape and type are those that the text tells
else:
    Array = Any

# Gray samples by their type.
TYPES: Dict[int, np.dtype[Any]] = {c.U8: np.dtype(np.uint8), c.U16: np.dtype(np.uint16), c.I16: np.dtype(np.int16),
                                   c.F32: np.dtype(np.float32)}
PIXELS = {dtype: pixel for pixel, dtype in TYPES.items()}
TYPE_NAMES = {c.U8: "uint8", c.U16: "uint16", c.I16: "int16", c.F32: "float32", c.RGB8: "rgb8", c.BGR8: "bgr8",
              c.BGRA8: "bgra8"}
TAKEN = "uint8, uint16, int16 or float32, or height x width x 3 of uint8"


def whole(value: Any, name: str, low: int = -2**31, high: int = 2**31 - 1) -> int:
    """A whole number in a range; ctypes would cut off what lies outside."""
    try:
        number = operator.index(value)
    except TypeError:
        raise ArgumentTypeError(f"{name} is {value!r}, not a whole number") from None
    if not low <= number <= high:
        raise ArgumentError(f"{name} is {number}, not within {low} and {high}")
    return number


def real(value: Any, name: str) -> float:
    try:
        return float(value)
    except (TypeError, ValueError, OverflowError):
        raise ArgumentTypeError(f"{name} is {value!r}, not a number") from None


def numbers_of(value: Any, name: str, count: int) -> Tuple[float, ...]:
    """So many numbers of a sequence."""
    try:
        numbers = tuple(value)
    except TypeError:
        raise ArgumentTypeError(f"{name} is {value!r}, not {count} numbers") from None
    if len(numbers) != count:
        raise ArgumentError(f"{name} has {len(numbers)} numbers, not {count}")
    return tuple(real(number, name) for number in numbers)


def pointer(array: Array, kind: Any) -> Any:
    """To the first element; the caller keeps the array."""
    return ctypes.cast(array.ctypes.data, ctypes.POINTER(kind))


def points_of(points: Any, name: str = "points") -> npt.NDArray[np.float64]:
    """Points as n x 2 float64 in a row."""
    try:
        array = np.asarray(points)
    except ValueError as problem:    # rows of several lengths
        raise ArgumentError(f"{name}: {problem}") from None
    if array.size == 0:
        return np.empty((0, 2))
    if array.dtype.kind not in "biuf":
        raise ArgumentTypeError(f"{name} are {array.dtype}, not numbers")
    if array.ndim != 2 or array.shape[1] != 2:
        raise ArgumentError(f"{name} have the shape {array.shape}, not n x 2")
    return np.ascontiguousarray(array, dtype=np.float64)


class Samples(NamedTuple):
    """Rows as the library takes them. The array keeps the memory while a call runs."""

    array: Array
    pixel: int
    width: int
    height: int
    row_bytes: int
    address: int

    def plane(self) -> c.Plane:
        return c.Plane(type=self.pixel, width=self.width, height=self.height, row_bytes=self.row_bytes,
                       data=self.address)


def as_array(value: Any, name: str) -> Array:
    array = np.asarray(value)
    if array.dtype.kind not in "biufc":
        raise ArgumentTypeError(f"{name} is {type(value).__name__} of {array.dtype}, not an array of numbers")
    return array


def rows_of(array: Array, pixel: int, name: str, copy: bool = True) -> Samples:
    """The rows of an array whose type is known. Samples that do not lie side by side are copied."""
    height, width = array.shape[:2]
    if max(width, height) > 2**31 - 1:
        raise ArgumentError(f"{name} has the shape {array.shape}, which is too large")
    steps = array.strides[1:]
    packed = (array.itemsize,) if array.ndim == 2 else (3, 1)
    offset = 0
    if array.ndim == 3 and steps == (3, -1):    # blue, green, red, looked at from behind
        pixel, offset, packed = c.BGR8, -2, steps
    row = width * (array.itemsize if array.ndim == 2 else 3)
    if array.size == 0 or not array.dtype.isnative or steps != packed or (height > 1 and abs(array.strides[0]) < row):
        if not copy:
            raise ArgumentError(f"{name} has rows that do not lie in one piece")
        array = np.ascontiguousarray(array, dtype=array.dtype.newbyteorder("="))
        if array.ndim == 3:
            pixel = c.RGB8
        offset = 0
    row_bytes = array.strides[0] if height > 1 else row
    return Samples(array, pixel, width, height, row_bytes, array.ctypes.data + offset)


def samples_of(value: Any, name: str = "array") -> Samples:
    """An image as it is, of a type that the library knows."""
    array = as_array(value, name)
    pixel = PIXELS.get(array.dtype.newbyteorder("="))
    if array.ndim == 3:
        if pixel != c.U8 or array.shape[2] != 3:
            raise ArgumentTypeError(f"{name} is {array.dtype} of the shape {array.shape}; taken are {TAKEN}")
        return rows_of(array, c.RGB8, name)
    if array.ndim != 2:
        raise ArgumentError(f"{name} has the shape {array.shape}; taken are height x width and height x width x 3")
    if pixel is None:
        raise ArgumentTypeError(f"{name} is {array.dtype}; taken are {TAKEN}: convert it with array.astype()")
    return rows_of(array, pixel, name)


def layout_of(dtype: Any, width: int, height: int, offset: int, big_endian: bool) -> c.RawLayout:
    """Samples of a file without a header; `dtype` may be one of NumPy's or a name."""
    names = {name: pixel for pixel, name in TYPE_NAMES.items()}
    pixel = names.get(dtype) if isinstance(dtype, str) else None
    if pixel is None:
        try:
            wanted = np.dtype(dtype)
        except TypeError:
            raise ArgumentTypeError(f"dtype is {dtype!r}, not a type of samples") from None
        big_endian = big_endian or wanted.str.startswith(">")
        pixel = names.get(wanted.newbyteorder("=").name)
        if pixel is None:
            raise ArgumentTypeError(f"dtype is {wanted}; taken are {', '.join(names)}")
    return c.RawLayout(type=pixel, width=whole(width, "width"), height=whole(height, "height"),
                       offset=whole(offset, "offset", -2**63, 2**63 - 1), big_endian=bool(big_endian))


def plane_of(value: Any, name: str) -> Samples:
    """An image for a routine: other real numbers become float32."""
    array = as_array(value, name)
    if array.ndim != 2:
        raise ArgumentError(f"{name} has the shape {array.shape}, not height x width")
    if array.dtype.kind == "c":
        raise ArgumentTypeError(f"{name} is {array.dtype}, not real")
    pixel = PIXELS.get(array.dtype.newbyteorder("="))
    if pixel is None:
        array, pixel = array.astype(np.float32), c.F32
    return rows_of(array, pixel, name)


def result_of(shape: Tuple[int, ...], dtype: Any, out: Optional[Array]) -> Samples:
    """Memory for the result of a routine: a new array of a type, or the caller's."""
    if min(shape) < 1 or shape[0] * shape[1] > 2**40:
        raise ArgumentError(f"a result of the shape {shape} cannot be")
    if out is None:
        try:
            wanted = np.dtype(dtype)
        except TypeError:
            raise ArgumentTypeError(f"dtype is {dtype!r}, not a type of samples") from None
        if wanted not in PIXELS:
            raise ArgumentTypeError(f"dtype is {wanted}; results are uint8, uint16 or float32")
        return rows_of(np.empty(shape, wanted), PIXELS[wanted], "result")
    if not isinstance(out, np.ndarray):
        raise ArgumentTypeError(f"out is {type(out).__name__}, not an array")
    if out.dtype not in PIXELS or not out.flags.writeable:
        raise ArgumentTypeError(f"out is {out.dtype}{'' if out.flags.writeable else ', read only'}; "
                                "results are uint8, uint16 or float32")
    if out.shape != tuple(shape):
        raise ArgumentError(f"out has the shape {out.shape}, not {tuple(shape)}")
    return rows_of(out, PIXELS[out.dtype], "out", copy=False)


def image_of(plane: c.Plane) -> Array:
    """A read-only copy of samples that the library lends; of colors x 3 (x 4) red, green, blue (alpha)."""
    channels = {c.RGB8: 3, c.BGR8: 3, c.BGRA8: 4}.get(plane.type, 1)
    dtype = TYPES.get(plane.type, np.dtype(np.uint8))
    row = plane.width * channels * dtype.itemsize
    step = plane.row_bytes or row
    shape = (plane.height, plane.width, channels)
    image: Array = np.empty(shape, dtype)
    rows = image.view(np.uint8).reshape(plane.height, row)
    if step == row:
        ctypes.memmove(rows.ctypes.data, plane.data, row * plane.height)
    else:
        for y in range(plane.height):
            ctypes.memmove(rows[y].ctypes.data, plane.data + y * step, row)
    if plane.type == c.BGR8:
        image = image[:, :, ::-1]
    elif plane.type == c.BGRA8:
        image = image[:, :, [2, 1, 0, 3]]
    elif channels == 1:
        image = image[:, :, 0]
    image.flags.writeable = False
    return image


def frame_of(frame: c.Frame) -> npt.NDArray[np.uint8]:
    """A rendered frame as height x width x 4 uint8: red, green, blue, 255."""
    image = np.empty((frame.height, frame.width, 4), np.uint8)
    step = frame.row_bytes
    address = ctypes.addressof(frame.pixels.contents)
    # The rows from the lowest address up; from the highest, if the frame lies bottom up.
    first = address if step > 0 else address + (frame.height - 1) * step
    size = abs(step) * (frame.height - 1) + frame.width * 4
    memory = np.frombuffer((ctypes.c_uint8 * size).from_address(first), np.uint8)
    rows = np.lib.stride_tricks.as_strided(memory[address - first:], (frame.height, frame.width, 4), (step, 4, 1))
    image[:, :, :3] = rows[:, :, 2::-1]
    image[:, :, 3] = 255
    return image
