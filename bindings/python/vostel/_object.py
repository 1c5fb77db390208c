"""Objects of a canvas, as small proxies."""

from __future__ import annotations

import ctypes
import re
from typing import TYPE_CHECKING, Any, Mapping, NoReturn, Optional, Tuple, Union

import numpy as np

from . import _declarations as c
from ._arrays import Array, pointer, points_of, real, whole
from ._library import ArgumentError, ArgumentTypeError, Error, encoded, library
from ._records import KINDS, Bounds, Contrast, Measures, Style, measures_of

if TYPE_CHECKING:
    import numpy.typing as npt

    from ._canvas import Canvas

Color = Union[int, str, Tuple[int, int, int]]


def color_of(color: Any, name: str = "color", high: int = 0xFFFFFF) -> int:
    """0xRRGGBB of such a number, of "#RRGGBB" or of three numbers within 0 and 255; up to `high` also 0xAARRGGBB."""
    if isinstance(color, str):
        digits = 6 if high == 0xFFFFFF else 8
        if not re.fullmatch("#[0-9a-fA-F]{%d}" % digits, color):
            raise ArgumentError(f"{name} is {color!r}, not # and {digits} digits")
        return int(color[1:], 16)
    if isinstance(color, tuple) and len(color) == 3:
        red, green, blue = (whole(part, name, 0, 255) for part in color)
        return red << 16 | green << 8 | blue
    return whole(color, name, 0, high)


class Object:
    """An object on a canvas: a polygon, a length, a text. A proxy that holds nothing but its identity.

    It keeps its canvas alive. Once the object is removed or the canvas closed, everything but `id` and `canvas`
    raises `Error`; undo brings an object back under its own identity. Points and places are in image px: pixel
    (i, j) covers [i, i+1) x [j, j+1), y grows downwards.
    """

    __slots__ = ("_canvas", "_id")

    def __init__(self, canvas: Canvas, id: int) -> None:
        self._canvas = canvas
        self._id = id

    @property
    def canvas(self) -> Canvas:
        """The canvas that the object is on."""
        return self._canvas

    @property
    def id(self) -> int:
        """The number of the object, which is never used twice."""
        return self._id

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Object) and self._id == other._id and self._canvas.id == other._canvas.id

    def __hash__(self) -> int:
        return hash((self._canvas.id, self._id))

    def __repr__(self) -> str:
        try:
            name = f" {self.name!r}" if self.name else ""
            return f"<vostel.Object {self._id}: {self.kind}{name} on canvas {self._canvas.id}>"
        except Error:
            return f"<vostel.Object {self._id}, gone from canvas {self._canvas.id}>"

    def __reduce__(self) -> NoReturn:
        raise TypeError("an object lives on its canvas and cannot be pickled")

    def _call(self, function: Any, *arguments: Any) -> None:
        self._canvas._call(function, self._id, *arguments)

    def _info(self) -> c.ObjectInfo:
        info = c.ObjectInfo()
        self._call(library.vostel_object_get, info)
        return info

    def _points(self, function: Any) -> npt.NDArray[np.float64]:
        with self._canvas._hold() as number:    # nothing comes between the two calls
            count = ctypes.c_size_t()
            function(number, self._id, None, 0, count)
            points = np.empty((count.value, 2))
            function(number, self._id, pointer(points, c.Point), count.value, None)
        return points

    def _set_flag(self, flag: int, on: bool) -> None:
        with self._canvas._hold() as number:
            flags = self._info().flags
            library.vostel_object_set_flags(number, self._id, flags | flag if on else flags & ~flag)

    @property
    def kind(self) -> str:
        """ "rectangle" (also of ellipses), "polygon", "length" and so on."""
        kind: int = self._info().kind
        return KINDS.get(kind, f"kind {kind}")

    @property
    def is_ellipse(self) -> bool:
        """Whether a rectangle shows the ellipse in its box."""
        return bool(self._info().flags & c.ELLIPSE)

    @property
    def name(self) -> str:
        """The name, empty at first. Settable."""
        return self._canvas._text(library.vostel_object_name, self._id)

    @name.setter
    def name(self, name: str) -> None:
        self._call(library.vostel_object_set_name, encoded(name, "name"))

    @property
    def text(self) -> str:
        """The text of a text object, which is settable, or the caption of a measure."""
        return self._canvas._text(library.vostel_object_text, self._id)

    @text.setter
    def text(self, text: str) -> None:
        self._call(library.vostel_object_set_text, encoded(text, "text"))

    @property
    def label(self) -> int:
        """The number of a region in `Canvas.labels`, from 1; 0 of other kinds. Settable."""
        label: int = self._info().label
        return label

    @label.setter
    def label(self, label: int) -> None:
        self._call(library.vostel_object_set_label, whole(label, "label"))

    @property
    def points(self) -> npt.NDArray[np.float64]:
        """The points, n x 2 float64, image px; a copy. Settable, with as many points as the kind takes."""
        return self._points(library.vostel_object_points)

    @points.setter
    def points(self, points: Any) -> None:
        array = points_of(points)
        self._call(library.vostel_object_set_points, pointer(array, c.Point), len(array))

    @property
    def outline(self) -> npt.NDArray[np.float64]:
        """The closed outline of a region, n x 2 float64, image px; curves are flattened to 0.01 px."""
        return self._points(library.vostel_object_outline)

    @property
    def bounds(self) -> Bounds:
        """The box around the exact outline, image px."""
        info = self._info()
        return Bounds(info.left, info.top, info.right, info.bottom)

    @property
    def style(self) -> Style:
        """Colors, widths and heights. Settable by such a record, or by a dictionary of those fields that change."""
        style = c.Style()
        self._call(library.vostel_object_style, style)
        return Style(*(getattr(style, name) for name in Style._fields))

    @style.setter
    def style(self, style: Union[Style, Mapping[str, Any]]) -> None:
        self._set_style(style)

    def _set_style(self, style: Union[Style, Mapping[str, Any]]) -> None:
        fields = style._asdict() if isinstance(style, Style) else style
        if not isinstance(fields, Mapping):
            raise ArgumentTypeError(f"style is {type(style).__name__}, neither a Style nor a dictionary")
        with self._canvas._hold() as number:
            record = c.Style()
            library.vostel_object_style(number, self._id, record)
            for name, value in fields.items():
                if name not in Style._fields:
                    raise ArgumentError(f"style has no field {name!r}")
                if name.endswith("color"):
                    value = color_of(value, name, 0xFFFFFFFF if name == "fill_color" else 0xFFFFFF)
                else:
                    value = real(value, name)
                setattr(record, name, value)
            library.vostel_object_set_style(number, self._id, record)

    @property
    def hidden(self) -> bool:
        """Not drawn, not hit and not in `Canvas.labels`; still measured. Settable."""
        return bool(self._info().flags & c.HIDDEN)

    @hidden.setter
    def hidden(self, hidden: bool) -> None:
        self._set_flag(c.HIDDEN, hidden)

    @property
    def locked(self) -> bool:
        """Not hit by gestures and not changed by keys; calls change it. Settable."""
        return bool(self._info().flags & c.LOCKED)

    @locked.setter
    def locked(self, locked: bool) -> None:
        self._set_flag(c.LOCKED, locked)

    @property
    def in_labels(self) -> bool:
        """Whether `Canvas.labels` takes a region in. Settable."""
        return not self._info().flags & c.NO_LABEL

    @in_labels.setter
    def in_labels(self, in_labels: bool) -> None:
        self._set_flag(c.NO_LABEL, not in_labels)

    @property
    def selected(self) -> bool:
        """Whether it is; `Canvas.selection` is settable."""
        return bool(self._info().selected)

    @property
    def index(self) -> int:
        """The place in the drawing order, from 0; the last lies on top. Settable."""
        index: int = self._info().index
        return index

    @index.setter
    def index(self, index: int) -> None:
        self._call(library.vostel_object_move_to, whole(index, "index", 0, 2**63))

    def set_contrast(self, low: float, high: float) -> None:
        """A window of the contrast that holds inside the region alone; low equal to high ends it."""
        self._call(library.vostel_contrast_of_object, real(low, "low"), real(high, "high"))

    @property
    def contrast(self) -> Optional[Contrast]:
        """The window that holds inside the region alone; None where there is none."""
        low, high = ctypes.c_double(), ctypes.c_double()
        self._call(library.vostel_contrast_window_of_object, low, high)
        return Contrast(low.value, high.value) if low.value < high.value else None

    def mask(self, dtype: Any = np.uint8) -> Array:
        """The pixels of a region in the whole image: height x width uint8, 255 inside and 0 outside.

        With `dtype=bool` True and False, to index images with.
        """
        with self._canvas._hold() as number:
            info = self._canvas.info
            mask = np.empty((info.height, info.width), np.uint8)
            library.vostel_mask(number, self._id, pointer(mask, ctypes.c_uint8), 0)
        return mask if np.dtype(dtype) == np.uint8 else mask.astype(dtype)

    def measure(self, channel: int = 0) -> Measures:
        """All measures; channel 0 is the value or the luma, 1, 2, 3 are red, green, blue."""
        measures = c.Measures()
        self._call(library.vostel_measure, whole(channel, "channel"), measures)
        return measures_of(measures)

    def profile(self, width: float = 1.0, channel: int = 0) -> npt.NDArray[np.float64]:
        """Samples along a line, one a pixel of its length, float64; not a number outside the image.

        `width` lines, one pixel apart, are averaged.
        """
        wanted = (whole(channel, "channel"), real(width, "width"))
        with self._canvas._hold() as number:
            count = ctypes.c_size_t()
            library.vostel_profile(number, self._id, *wanted, None, None, 0, count)
            values = np.empty(count.value)
            library.vostel_profile(number, self._id, *wanted, None, pointer(values, ctypes.c_double), len(values), None)
        return values

    def remove(self) -> None:
        """Takes the object away; undo brings it back."""
        self._call(library.vostel_object_remove)

    @property
    def pixels(self) -> Optional[int]:
        """Number of pixels of a region, or of marks."""
        return self.measure().pixels

    @property
    def area(self) -> Optional[float]:
        """Area of the exact outline, in square units of the scale; None of what has none."""
        return self.measure().area

    @property
    def perimeter(self) -> Optional[float]:
        """Length of the exact outline, in units of the scale."""
        return self.measure().perimeter

    @property
    def length(self) -> Optional[float]:
        """Length of a line, in units of the scale."""
        return self.measure().length

    @property
    def angle(self) -> Optional[float]:
        """Degrees, 0 to 180."""
        return self.measure().angle

    @property
    def centroid(self) -> Optional[Tuple[float, float]]:
        """Image px: x, y."""
        measures = self.measure()
        if measures.centroid_x is None or measures.centroid_y is None:
            return None
        return measures.centroid_x, measures.centroid_y

    @property
    def mean(self) -> Optional[float]:
        """Of the finite values of channel 0 at the pixels inside."""
        return self.measure().mean

    @property
    def sd(self) -> Optional[float]:
        """Standard deviation of those values, with n - 1 in the denominator."""
        return self.measure().sd

    @property
    def min(self) -> Optional[float]:
        """Lowest of those values."""
        return self.measure().min

    @property
    def max(self) -> Optional[float]:
        """Highest of those values."""
        return self.measure().max

    @property
    def sum(self) -> Optional[float]:
        """Sum of those values."""
        return self.measure().sum

    @property
    def median(self) -> Optional[float]:
        """Middle one of those values, or the mean of the middle two."""
        return self.measure().median

    @property
    def feret_max(self) -> Optional[float]:
        """Widest caliper, in units of the scale."""
        return self.measure().feret_max

    @property
    def feret_min(self) -> Optional[float]:
        """Narrowest caliper, in units of the scale."""
        return self.measure().feret_min

    @property
    def circularity(self) -> Optional[float]:
        """4 pi area / perimeter^2."""
        return self.measure().circularity
