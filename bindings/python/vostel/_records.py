"""What calls return beside numbers and arrays. Records are tuples with names; `_replace` makes others of them."""

from __future__ import annotations

import enum
from typing import Any, Dict, NamedTuple, Optional

from . import _declarations as c

KINDS = {c.RECTANGLE: "rectangle", c.CUSTOM_RECTANGLE: "custom_rectangle", c.POLYGON: "polygon", c.SPLINE: "spline",
         c.FREE_REGION: "free_region", c.TEXT: "text", c.FREE_STROKES: "free_strokes", c.LENGTH: "length",
         c.ANGLE: "angle", c.ANGLE_LINES: "angle_lines", c.PANEL: "panel", c.NEIGHBOURS: "neighbours",
         c.PROFILE: "profile", c.POINTS: "points", c.POLYLINE: "polyline", c.ARROW: "arrow"}
KIND_NUMBERS = {name: number for number, name in KINDS.items()}


class Events(enum.IntFlag):
    """What listeners can hear of."""

    OBJECT_ADDED = c.OBJECT_ADDED
    OBJECT_CHANGING = c.OBJECT_CHANGING
    OBJECT_CHANGED = c.OBJECT_CHANGED
    OBJECT_REMOVED = c.OBJECT_REMOVED
    SELECTION_CHANGED = c.SELECTION_CHANGED
    VIEW_CHANGED = c.VIEW_CHANGED
    IMAGE_CHANGED = c.IMAGE_CHANGED
    CONTRAST_CHANGED = c.CONTRAST_CHANGED
    HISTORY_CHANGED = c.HISTORY_CHANGED
    FRAME_STALE = c.FRAME_STALE
    CANVAS_DESTROYED = c.CANVAS_DESTROYED


ALL = Events(2047)


class Contrast(NamedTuple):
    """The window of the contrast, in values of the image."""

    low: float
    high: float


class View(NamedTuple):
    """Where the image lies: client px per image px, and the client point of image point 0,0."""

    scale: float
    left: float
    top: float


class Scale(NamedTuple):
    """The scale of all measures."""

    units: float    # per image px
    unit: str


class Bounds(NamedTuple):
    """A box in image px."""

    left: float
    top: float
    right: float
    bottom: float


class Style(NamedTuple):
    """How an object is drawn: colors 0xRRGGBB, the fill 0xAARRGGBB, width and height in px."""

    line_color: int
    selected_color: int
    handle_color: int
    fill_color: int
    line_width: float
    text_height: float


class History(NamedTuple):
    """What can be undone and redone; names are None where there is no such step."""

    undo_count: int
    redo_count: int
    bytes: int
    limit: int
    undo_name: Optional[str]
    redo_name: Optional[str]


class ImageInfo(NamedTuple):
    """What is shown: size in px, type such as "uint16" or "rgb8", the finite range of channel 0."""

    width: int
    height: int
    type: str
    min: float
    max: float
    not_finite: int


class Measures(NamedTuple):
    """What can be measured of an object; None where a field has no meaning for it.

    Lengths and areas are in units of the canvas's scale, places in image px, the angle in degrees.
    """

    pixels: Optional[int] = None
    not_finite: Optional[int] = None
    area: Optional[float] = None
    perimeter: Optional[float] = None
    length: Optional[float] = None
    angle: Optional[float] = None
    centroid_x: Optional[float] = None
    centroid_y: Optional[float] = None
    left: Optional[float] = None
    top: Optional[float] = None
    right: Optional[float] = None
    bottom: Optional[float] = None
    mean: Optional[float] = None
    sd: Optional[float] = None
    min: Optional[float] = None
    max: Optional[float] = None
    sum: Optional[float] = None
    median: Optional[float] = None
    feret_max: Optional[float] = None
    feret_min: Optional[float] = None
    circularity: Optional[float] = None

    def __repr__(self) -> str:
        told = ", ".join(f"{name}={value:.6g}" for name, value in self._asdict().items() if value is not None)
        return f"Measures({told})"


class Limits(NamedTuple):
    """What is taken from files and callers, for the whole process."""

    max_side: int    # px
    max_pixels: int
    max_file_bytes: int
    max_threads: int
    max_memory: int    # bytes for reading a picture


_VALID = {"pixels": c.HAS_PIXELS, "not_finite": c.HAS_PIXELS, "area": c.HAS_AREA, "perimeter": c.HAS_AREA,
          "length": c.HAS_LENGTH, "angle": c.HAS_ANGLE, "centroid_x": c.HAS_SHAPE, "centroid_y": c.HAS_SHAPE,
          "left": c.HAS_SHAPE, "top": c.HAS_SHAPE, "right": c.HAS_SHAPE, "bottom": c.HAS_SHAPE, "mean": c.HAS_VALUES,
          "sd": c.HAS_VALUES, "min": c.HAS_VALUES, "max": c.HAS_VALUES, "sum": c.HAS_VALUES, "median": c.HAS_VALUES,
          "feret_max": c.HAS_SHAPE, "feret_min": c.HAS_SHAPE, "circularity": c.HAS_AREA}


def measures_of(record: c.Measures) -> Measures:
    told: Dict[str, Any] = {name: getattr(record, name) for name, bit in _VALID.items() if record.valid & bit}
    return Measures(**told)
