"""The calls of a canvas that add objects."""

from __future__ import annotations

import ctypes
from typing import Any, Dict, Iterable, Optional

from . import _declarations as c
from ._arrays import numbers_of, pointer, points_of, real
from ._handle import CanvasHandle
from ._library import ArgumentError, ArgumentTypeError, Error, encoded, library
from ._object import Color, Object, color_of
from ._records import KIND_NUMBERS, KINDS

Point = Iterable[float]


class Adding(CanvasHandle):
    """Each call makes an object on top of all others, as one step, and returns it.

    Points are image px, n x 2 or a list of pairs, and are taken as they are, also beside the image. All take `name`,
    `label` (of regions, from 1), `color` of the lines (0xRRGGBB, "#RRGGBB" or three numbers) and `width` of the lines,
    px.
    """

    def _number_of(self, object: Any) -> int:
        if not isinstance(object, Object):
            raise ArgumentTypeError(f"{object!r} is not an object of a canvas")
        if object.canvas.id != self.id:
            raise Error(c.NOT_FOUND, f"object {object.id} is on canvas {object.canvas.id}, not on {self.id}")
        return object.id

    def _add(self, kind: int, points: Any, *, flags: int = 0, text: Optional[str] = None, name: Optional[str] = None,
             label: Optional[int] = None, color: Optional[Color] = None, width: Optional[float] = None) -> Object:
        array = points_of(points)
        style: Dict[str, Any] = {}
        if color is not None:
            style["line_color"] = color_of(color)
        if width is not None:
            style["line_width"] = real(width, "width")
        made = ctypes.c_uint64()
        with self._hold() as number:
            add = (number, kind, pointer(array, c.Point), len(array), made)
            object = Object(self, 0)    # type: ignore[arg-type]
            if not flags and text is None and name is None and label is None and not style:
                library.vostel_object_add(*add)
                object._id = made.value
                return object
            library.vostel_history_begin(number, f"Add {KINDS[kind].replace('_', ' ')}".encode())
            try:
                library.vostel_object_add(*add)
                object._id = made.value
                try:
                    if flags:
                        library.vostel_object_set_flags(number, made, flags)
                    if text is not None:
                        object.text = text
                    if name is not None:
                        object.name = name
                    if label is not None:
                        object.label = label
                    if style:
                        object._set_style(style)
                except Error:
                    library.vostel_object_remove(number, made)
                    raise
            finally:
                library.vostel_history_end(number)
        return object

    def add_rectangle(self, left: float, top: float, right: float, bottom: float, **more: Any) -> Object:
        """A rectangle by two opposite corners."""
        return self._add(c.RECTANGLE, [numbers_of((left, top), "left, top", 2),
                                       numbers_of((right, bottom), "right, bottom", 2)], **more)

    def add_ellipse(self, left: float, top: float, right: float, bottom: float, **more: Any) -> Object:
        """The ellipse in a box."""
        return self.add_rectangle(left, top, right, bottom, flags=c.ELLIPSE, **more)

    def add_polygon(self, points: Any, **more: Any) -> Object:
        """A polygon of 3 corners or more."""
        return self._add(c.POLYGON, points, **more)

    def add_spline(self, points: Any, **more: Any) -> Object:
        """A closed curve through 3 to 198 nodes."""
        return self._add(c.SPLINE, points, **more)

    def add_free_region(self, points: Any, **more: Any) -> Object:
        """A region of 3 points or more, as if drawn by hand."""
        return self._add(c.FREE_REGION, points, **more)

    def add_strokes(self, points: Any, **more: Any) -> Object:
        """A stroke of 2 points or more."""
        return self._add(c.FREE_STROKES, points, **more)

    def add_polyline(self, points: Any, **more: Any) -> Object:
        """A line through 2 points or more."""
        return self._add(c.POLYLINE, points, **more)

    def add_points(self, points: Any, **more: Any) -> Object:
        """Counted marks, 1 or more."""
        return self._add(c.POINTS, points, **more)

    def add_length(self, a: Point, b: Point, **more: Any) -> Object:
        """A length from a to b."""
        return self._add(c.LENGTH, _pairs(a=a, b=b), **more)

    def add_angle(self, a: Point, vertex: Point, b: Point, **more: Any) -> Object:
        """The angle between a and b at the vertex."""
        return self._add(c.ANGLE, _pairs(a=a, vertex=vertex, b=b), **more)

    def add_angle_lines(self, a: Point, b: Point, c_: Point, d: Point, **more: Any) -> Object:
        """The angle between the directions from the first to the second point and from the third to the fourth."""
        return self._add(c.ANGLE_LINES, _pairs(a=a, b=b, c=c_, d=d), **more)

    def add_profile(self, a: Point, b: Point, **more: Any) -> Object:
        """A line from a to b that shows the values along it."""
        return self._add(c.PROFILE, _pairs(a=a, b=b), **more)

    def add_arrow(self, tail: Point, head: Point, **more: Any) -> Object:
        """An arrow."""
        return self._add(c.ARROW, _pairs(tail=tail, head=head), **more)

    def add_text(self, x: float, y: float, text: str, **more: Any) -> Object:
        """A text by its upper left corner."""
        encoded(text, "text")
        return self._add(c.TEXT, [numbers_of((x, y), "x, y", 2)], text=text, **more)

    def draw_next(self, kind: str) -> Object:
        """Makes an empty, selected object that the next presses with Shift draw."""
        if kind not in KIND_NUMBERS:
            raise ArgumentError(f"kind is {kind!r}, not one of {', '.join(KIND_NUMBERS)}")
        made = ctypes.c_uint64()
        self._call(library.vostel_draw_next, KIND_NUMBERS[kind], made)
        return Object(self, made.value)    # type: ignore[arg-type]


def _pairs(**points: Point) -> Any:
    return [numbers_of(point, name, 2) for name, point in points.items()]
