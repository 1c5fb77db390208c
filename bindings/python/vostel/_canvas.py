"""Canvases: an image, a view, objects over it."""

from __future__ import annotations

import contextlib
import ctypes
import json
import os
import weakref
from typing import TYPE_CHECKING, Any, Dict, Iterable, Iterator, List, Optional, Tuple, Union

import numpy as np

from . import _declarations as c
from ._adding import Adding
from ._arrays import (TYPE_NAMES, Array, frame_of, image_of, layout_of, numbers_of, pointer, real, samples_of,
                      whole)
from ._handle import CanvasHandle, create
from ._library import ArgumentError, ArgumentTypeError, Error, encoded, encoded_path, last_note, library, text_of
from ._listening import Callback, Callbacks, Event, Subscription, canvases, new_key, trampoline
from ._object import Object, color_of
from ._png import png_of
from ._records import ALL, Contrast, Events, History, ImageInfo, Measures, Scale, View

if TYPE_CHECKING:
    import numpy.typing as npt

_MOST_PIXELS = 2**28    # of a picture
_COLUMNS = ("object", "name", "kind", "label", "unit", *Measures._fields)


def _keeps(objects: bool, view: bool, contrast: bool) -> int:
    return (c.KEEP_OBJECTS if objects else 0) | (c.KEEP_VIEW if view else 0) | (c.KEEP_CONTRAST if contrast else 0)


def _parts(objects: bool, captions: bool, handles: bool) -> int:
    return ((c.WITH_OBJECTS if objects else 0) | (c.WITH_CAPTIONS if captions else 0) |
            (c.WITH_HANDLES if handles else 0))


def _scaled(side: int, scale: float) -> int:
    """A side of a picture, px; of a scale that is none, anything."""
    return max(1, int(min(side * scale + 0.5, 2.0**30))) if scale > 0 else 1


def _buttons(shift: bool, control: bool, left: bool = False) -> int:
    return (c.SHIFT if shift else 0) | (c.CONTROL if control else 0) | (c.LEFT_BUTTON if left else 0)


def _forget_plane(event: Event) -> None:
    event.canvas._plane = None


class Canvas(Adding, CanvasHandle):
    """An image with a view and objects over it, drawn without a window.

    `width` and `height` are those of its area, which `render` shows, in px. Points are image px: pixel (i, j) covers
    [i, i+1) x [j, j+1), y grows downwards; client points are px of the area. A canvas ends with `close`, as a context
    manager, or when nobody knows it or an object of it any more. Calls from several threads take turns.
    """

    def __init__(self, width: int, height: int) -> None:
        self._begin(create(whole(width, "width"), whole(height, "height")), True)

    def _begin(self, number: int, owned: bool) -> None:
        super().__init__(number, owned)
        self._callbacks: Callbacks = {}
        self._plane: Optional[weakref.ref[Array]] = None
        self._hears_of_images = False
        self._notes = ""
        canvases[number] = self

    @classmethod
    def number(cls, number: int) -> Canvas:
        """One of the five canvases that always stand, or one that a host in this program made; not ended by `close`."""
        number = whole(number, "number")
        known = canvases.get(number)
        if known is not None and not known.closed:
            return known
        library.vostel_history_info(number, c.HistoryInfo())
        canvas = cls.__new__(cls)
        canvas._begin(number, False)
        return canvas

    def close(self) -> None:
        """Ends the canvas with all that is on it. A second time does nothing."""
        self._close()

    def __enter__(self) -> Canvas:
        return self

    def __exit__(self, *_: Any) -> None:
        self.close()

    def __repr__(self) -> str:
        try:
            with self._hold():
                try:
                    info = self.info
                    image = f"image {info.width} x {info.height} {info.type}"
                except Error:
                    image = "no image"
                return f"<vostel.Canvas {self.id}: {image}, {len(self.objects)} objects>"
        except Error:
            return f"<vostel.Canvas {self.id}, closed>"

    def _repr_png_(self) -> Optional[bytes]:
        return None if self.closed else png_of(self.render()[:, :, :3])

    def resize(self, width: int, height: int) -> None:
        """Gives the area another size, px; scale and the image point in the middle stay."""
        self._call(library.vostel_canvas_resize, whole(width, "width"), whole(height, "height"))

    def set_pixel_ratio(self, ratio: float) -> None:
        """Device px per unit of a layout, 0.25 to 16, 1 at first: pens, handles and fonts grow with it."""
        self._call(library.vostel_canvas_set_pixel_ratio, real(ratio, "ratio"))

    def set_language(self, language: str) -> None:
        """Language of captions and read-outs: "zh", as at first, or "en"."""
        self._call(library.vostel_canvas_set_language, encoded(language, "language"))

    def _canvas_info(self) -> c.CanvasInfo:
        info = c.CanvasInfo()
        self._call(library.vostel_canvas_get, info)
        return info

    @property
    def area(self) -> Tuple[int, int]:
        """Width and height of the area, device px; `resize` sets it."""
        info = self._canvas_info()
        return info.width, info.height

    @property
    def pixel_ratio(self) -> float:
        """What `set_pixel_ratio` set."""
        return float(self._canvas_info().pixel_ratio)

    @property
    def language(self) -> str:
        """What `set_language` set."""
        return self._text(library.vostel_canvas_language)

    # Image

    def show(self, array: Any, keep_objects: bool = False, keep_view: bool = False,
             keep_contrast: bool = False) -> None:
        """Shows height x width uint8, uint16, int16 or float32, or height x width x 3 uint8: red, green, blue.

        The library takes a copy, directly from the array's memory if its rows lie in one piece each (they may be apart
        or upside down, and the colors turned around); else NumPy copies it before. Without `keep_objects` the objects
        go and the history is empty.
        """
        samples = samples_of(array)
        self._call(library.vostel_image_show, samples.pixel, samples.address, samples.width, samples.height,
                   samples.row_bytes, _keeps(keep_objects, keep_view, keep_contrast))

    def open(self, path: Union[str, os.PathLike[str]], page: int = 0, keep_objects: bool = False,
             keep_view: bool = False, keep_contrast: bool = False) -> None:
        """Shows a picture file, told by its content, or one page of it, from 0."""
        self._call(library.vostel_image_open_page, encoded_path(path), whole(page, "page"),
                   _keeps(keep_objects, keep_view, keep_contrast))

    def open_raw(self, path: Union[str, os.PathLike[str]], dtype: Any, width: int, height: int, offset: int = 0,
                 big_endian: bool = False, keep_objects: bool = False, keep_view: bool = False,
                 keep_contrast: bool = False) -> None:
        """Shows samples of a file without a header, `offset` bytes after its beginning.

        `dtype` is uint8, uint16, int16, float32 or "rgb8"; of ">u2" and its like the higher byte comes first too.
        """
        layout = layout_of(dtype, width, height, offset, big_endian)
        self._call(library.vostel_image_open_raw, encoded_path(path), layout,
                   _keeps(keep_objects, keep_view, keep_contrast))

    @property
    def info(self) -> ImageInfo:
        """Size, type and finite range of the image."""
        info = c.ImageInfo()
        self._call(library.vostel_image_info, info)
        return ImageInfo(info.width, info.height, TYPE_NAMES[info.type], info.min, info.max, info.not_finite)

    @property
    def size(self) -> Tuple[int, int]:
        """Width and height of the image, px."""
        info = self.info
        return info.width, info.height

    @property
    def plane(self) -> Array:
        """The samples as they came, read only: height x width, or with x 3 (x 4) red, green, blue (alpha) of colors.

        An array keeps its samples when the canvas goes or shows another image: it is one copy, made when it is first
        asked for and shared by all who ask while somebody has it.
        """
        with self._hold() as number:
            known = self._plane() if self._plane is not None else None
            if known is not None:
                return known
            if not self._hears_of_images:
                self._listen(_forget_plane, Events.IMAGE_CHANGED)
                self._hears_of_images = True
            plane = c.Plane()
            library.vostel_image_plane(number, plane)
            array = image_of(plane)
            self._plane = weakref.ref(array)
            return array

    def value(self, x: float, y: float, channel: int = 0) -> float:
        """The value of the pixel that covers an image point; channel 1, 2, 3 are red, green, blue."""
        value = ctypes.c_double()
        self._call(library.vostel_image_value, whole(channel, "channel"), real(x, "x"), real(y, "y"), value)
        return value.value

    # Contrast

    @property
    def contrast(self) -> Contrast:
        """The window, in values of the image: low becomes the darkest, high the brightest shade. Settable."""
        low, high = ctypes.c_double(), ctypes.c_double()
        self._call(library.vostel_contrast_get, low, high)
        return Contrast(low.value, high.value)

    @contrast.setter
    def contrast(self, window: Iterable[float]) -> None:
        self._call(library.vostel_contrast_set, *numbers_of(window, "contrast", 2))

    def percentiles(self, low: float, high: float) -> Contrast:
        """Sets the window to two percentiles of the finite values, as numpy.percentile, and returns it."""
        with self._hold():
            self._call(library.vostel_contrast_percentiles, real(low, "low"), real(high, "high"))
            return self.contrast

    @property
    def colormap(self) -> str:
        """The color map, one of `vostel.colormaps()`; "gray" at first. Settable."""
        return self._text(library.vostel_contrast_map_name)

    @colormap.setter
    def colormap(self, name: str) -> None:
        self._call(library.vostel_contrast_map, encoded(name, "colormap"))

    @property
    def gamma(self) -> float:
        """shown = ((v - low) / (high - low))^(1 / gamma). Settable, above 0."""
        return float(self._contrast_info().gamma)

    @gamma.setter
    def gamma(self, gamma: float) -> None:
        self._call(library.vostel_contrast_gamma, real(gamma, "gamma"))

    def _contrast_info(self) -> c.ContrastInfo:
        info = c.ContrastInfo()
        self._call(library.vostel_contrast_info, info)
        return info

    @property
    def mark_colors(self) -> Tuple[int, int, int]:
        """What `marks` set: below, above, not_finite as 0xAARRGGBB."""
        info = self._contrast_info()
        return info.below, info.above, info.not_finite

    def marks(self, below: Any = 0, above: Any = 0, not_finite: Any = 0) -> None:
        """Colors of values below and above the window and of those that are not finite, 0xAARRGGBB; alpha 0: none."""
        self._call(library.vostel_contrast_marks, *(color_of(color, name, 0xFFFFFFFF) for color, name in (
            (below, "below"), (above, "above"), (not_finite, "not_finite"))))

    def histogram(self, bins: int = 256, low: Optional[float] = None, high: Optional[float] = None,
                  region: Optional[Object] = None, channel: int = 0) -> npt.NDArray[np.uint64]:
        """Counts of values, `bins` x uint64, of the image or of a region.

        With w = (high - low) / bins, bin k counts low + k w <= v < low + (k + 1) w, and v equal to high falls into the
        last. What is left out is 0 to 256 for samples of 8 bits and the finite range of the image for others.
        """
        count = whole(bins, "bins")
        with self._hold() as number:
            of = self._number_of(region) if region is not None else 0
            if low is None or high is None:
                info = self.info
                first, last = (info.min, info.max) if info.type in ("uint16", "int16", "float32") else (0.0, 256.0)
                if first == last:
                    first, last = first - 0.5, last + 0.5    # as numpy.histogram
                low, high = first if low is None else low, last if high is None else high
            counts = np.zeros(max(0, min(count, 2**24)), np.uint64)
            library.vostel_histogram(number, of, whole(channel, "channel"), real(low, "low"), real(high, "high"), count,
                                     pointer(counts, ctypes.c_uint64))
        return counts

    # View

    @property
    def view(self) -> View:
        """Scale (client px per image px) and the client point of image point 0,0. Settable; the place is whole."""
        view = c.View()
        self._call(library.vostel_view_get, view)
        return View(view.scale, view.left, view.top)

    @view.setter
    def view(self, view: Iterable[float]) -> None:
        scale, left, top = numbers_of(view, "view", 3)
        self._call(library.vostel_view_set, c.View(scale=scale, left=left, top=top))

    def fit(self) -> None:
        """Shows the whole image, centred, as large as the area allows."""
        self._call(library.vostel_view_fit)

    def actual(self) -> None:
        """Scale 1, centred."""
        self._call(library.vostel_view_actual)

    def zoom(self, factor: float, x: float, y: float) -> None:
        """Multiplies the scale; the client point x, y keeps its image point."""
        self._call(library.vostel_view_zoom, real(factor, "factor"), real(x, "x"), real(y, "y"))

    def _converted(self, function: Any, x: float, y: float) -> Tuple[float, float]:
        to_x, to_y = ctypes.c_double(), ctypes.c_double()
        self._call(function, real(x, "x"), real(y, "y"), to_x, to_y)
        return to_x.value, to_y.value

    def to_image(self, x: float, y: float) -> Tuple[float, float]:
        """The image point under a client point."""
        return self._converted(library.vostel_view_to_image, x, y)

    def to_client(self, x: float, y: float) -> Tuple[float, float]:
        """The client point of an image point."""
        return self._converted(library.vostel_view_to_client, x, y)

    def set_smooth(self, smooth: bool) -> None:
        """Whether pixels are averaged and interpolated, or the nearest one is shown."""
        self._call(library.vostel_view_set_smooth, bool(smooth))

    @property
    def smooth(self) -> bool:
        """What `set_smooth` set."""
        return bool(self._canvas_info().smooth)

    def link(self, other: Optional[Canvas]) -> None:
        """Keeps scale and middle the same as those of another canvas and its group; with None it leaves its group."""
        if other is not None and not isinstance(other, Canvas):
            raise ArgumentTypeError(f"other is {type(other).__name__}, not a canvas")
        self._link(self if other is None else other)

    # Pictures

    def render(self) -> npt.NDArray[np.uint8]:
        """What the area shows: height x width x 4 uint8, red, green, blue, 255."""
        with self._hold() as number:
            frame = c.Frame()
            library.vostel_frame_render(number, frame)
            return frame_of(frame)

    def save(self, path: Union[str, os.PathLike[str]], scale: float = 1.0, objects: bool = True, captions: bool = True,
             handles: bool = False) -> None:
        """Writes the whole image at a scale: png, bmp, jpg, tif, svg or pdf, by the ending."""
        self._call(library.vostel_picture_save, encoded_path(path), real(scale, "scale"),
                   _parts(objects, captions, handles))

    def picture(self, scale: float = 1.0, objects: bool = True, captions: bool = True,
                handles: bool = False) -> npt.NDArray[np.uint8]:
        """What `save` writes, as an array: height x width x 4 uint8, red, green, blue, 255."""
        times = real(scale, "scale")
        with self._hold() as number:
            width, height = (_scaled(side, times) for side in self.size)
            # The library refuses what would be too large before it draws.
            image = np.empty((height, width, 4) if width * height <= _MOST_PIXELS else (1, 1, 4), np.uint8)
            plane = c.Plane(type=c.BGRA8, width=width, height=height, data=image.ctypes.data)
            library.vostel_picture_render_to(number, times, _parts(objects, captions, handles), plane)
        image[:, :, :3] = image[:, :, 2::-1].copy()
        return image

    # Objects; those that add are in Adding

    def _objects(self, function: Any) -> Tuple[Object, ...]:
        with self._hold() as number:
            count = ctypes.c_size_t()
            function(number, None, 0, count)
            numbers = (ctypes.c_uint64 * count.value)()
            function(number, numbers, count.value, None)
        return tuple(Object(self, found) for found in numbers)

    @property
    def objects(self) -> Tuple[Object, ...]:
        """All objects, in drawing order: the last lies on top."""
        return self._objects(library.vostel_object_list)

    @property
    def selection(self) -> Tuple[Object, ...]:
        """The selected objects, in drawing order. Settable."""
        return self._objects(library.vostel_selection)

    @selection.setter
    def selection(self, objects: Iterable[Object]) -> None:
        numbers = [self._number_of(each) for each in objects]
        self._call(library.vostel_select, (ctypes.c_uint64 * len(numbers))(*numbers), len(numbers))

    def at(self, x: float, y: float) -> Optional[Object]:
        """The object that a press at a client point would find."""
        found = ctypes.c_uint64()
        self._call(library.vostel_object_at, real(x, "x"), real(y, "y"), found)
        return Object(self, found.value) if found.value else None

    def remove(self, object: Object) -> None:
        """Takes an object away; undo brings it back."""
        self._call(library.vostel_object_remove, self._number_of(object))

    # Numbers

    def labels(self) -> npt.NDArray[np.int32]:
        """Labels of all regions: height x width int32, 0 is background, later objects lie over earlier ones."""
        with self._hold() as number:
            info = self.info
            labels = np.empty((info.height, info.width), np.int32)
            library.vostel_labels(number, pointer(labels, ctypes.c_int32), 0)
        return labels

    def table(self) -> List[Dict[str, Any]]:
        """Every object with every measure of channel 0; None where a field has no meaning."""
        rows: List[Dict[str, Any]] = json.loads(self._text(library.vostel_table, b"json"))
        return rows

    def dataframe(self) -> Any:
        """The table as a pandas.DataFrame; needs pandas."""
        table = self.table()
        import pandas    # type: ignore[import]
        return pandas.DataFrame(table, columns=list(_COLUMNS))

    @property
    def scale(self) -> Scale:
        """Units per image px and their name, of all measures; 1 and "px" at first. Settable."""
        units = ctypes.c_double()
        unit = self._text(library.vostel_get_scale, units)
        return Scale(units.value, unit)

    @scale.setter
    def scale(self, scale: Tuple[float, str]) -> None:
        try:
            units, unit = scale
        except (TypeError, ValueError):
            raise ArgumentTypeError(f"scale is {scale!r}, not units per px and their name") from None
        self._call(library.vostel_set_scale, real(units, "units"), encoded(unit, "unit"))

    # History

    def undo(self) -> None:
        """Takes the last step back."""
        self._call(library.vostel_undo)

    def redo(self) -> None:
        """Brings again what undo took back."""
        self._call(library.vostel_redo)

    @contextlib.contextmanager
    def step(self, name: str) -> Iterator[Canvas]:
        """Makes one step of what happens in the block, also if it fails; of blocks in blocks the outermost."""
        self._call(library.vostel_history_begin, encoded(name, "name"))
        try:
            yield self
        finally:
            if not self.closed:
                self._call(library.vostel_history_end)

    @property
    def history(self) -> History:
        """What can be undone and redone."""
        with self._hold():
            info = c.HistoryInfo()
            self._call(library.vostel_history_info, info)
            undo, redo = (self._text(library.vostel_history_name, step) if count else None
                          for step, count in ((-1, info.undo_count), (1, info.redo_count)))
        return History(info.undo_count, info.redo_count, info.bytes, info.limit, undo, redo)

    def set_history_limit(self, bytes: int) -> None:
        """What the steps may hold, 64 MiB at first; 0 keeps no history."""
        self._call(library.vostel_history_limit, whole(bytes, "bytes", 0, 2**63 - 1))

    # Files

    @property
    def notes(self) -> str:
        """What the last successful session or export had to say, such as what a format could not hold; or nothing."""
        return self._notes

    def _noted(self, function: Any, *arguments: Any) -> None:
        with self._hold() as number:
            function(number, *arguments)
            self._notes = last_note()

    def session_save(self, path: Union[str, os.PathLike[str]]) -> None:
        """Saves objects, scale, view, contrast and the path of the image, by convention NAME.vostel.json."""
        self._noted(library.vostel_session_save, encoded_path(path), 0)

    def session_open(self, path: Union[str, os.PathLike[str]], on_image: bool = False) -> None:
        """Puts a session in the place of what is there; with `on_image` the shown image stays."""
        self._noted(library.vostel_session_open, encoded_path(path), c.SESSION_ON_IMAGE if on_image else 0)

    def export(self, path: Union[str, os.PathLike[str]], format: Optional[str] = None) -> None:
        """Writes the objects: "json", "geojson", "imagej", "coco", "labels", "svg", "csv", or by the ending.

        What a format cannot hold is left out; `notes` names it.
        """
        self._noted(library.vostel_regions_export, encoded_path(path),
                    None if format is None else encoded(format, "format"))

    def import_(self, path: Union[str, os.PathLike[str]], format: Optional[str] = None) -> List[Object]:
        """Adds the objects of a file on top, as one step, and returns them."""
        with self._hold():
            count = ctypes.c_size_t()
            self._noted(library.vostel_regions_import, encoded_path(path),
                        None if format is None else encoded(format, "format"), count)
            objects = self.objects
        return list(objects[len(objects) - count.value:])

    def objects_text(self, objects: Optional[Iterable[Object]] = None) -> str:
        """Some objects, or all, as the text that `export` writes as "json": for a clipboard."""
        with self._hold():
            numbers = [self._number_of(each) for each in (self.objects if objects is None else objects)]
            return self._text(library.vostel_regions_text, (ctypes.c_uint64 * len(numbers))(*numbers), len(numbers))

    def paste(self, text: str) -> List[Object]:
        """Adds the objects of such a text on top, as one step, and returns them."""
        with self._hold():
            count = ctypes.c_size_t()
            self._noted(library.vostel_regions_add_text, encoded(text, "text"), count)
            objects = self.objects
        return list(objects[len(objects) - count.value:])

    # Listeners

    def listen(self, callback: Callback, events: Events = ALL) -> Subscription:
        """Has a callback called with an `Event` when a call on the canvas is about to return, on the call's thread.

        It may call anything. What it raises goes to `sys.unraisablehook`, and the call goes on.
        """
        if not callable(callback):
            raise ArgumentTypeError(f"callback is {type(callback).__name__}, which cannot be called")
        return self._listen(callback, events)

    def _listen(self, callback: Callback, events: Events) -> Subscription:
        key, token = new_key(), ctypes.c_int64()
        wanted = whole(events, "events", 0, 2**32 - 1)
        with self._hold() as number:
            self._callbacks[key] = callback
            try:
                library.vostel_listen(number, wanted, trampoline, key, token)
            except Error:
                del self._callbacks[key]
                raise
        return Subscription(self, key, token.value)

    # Events from a window system; client points

    def press(self, x: float, y: float, shift: bool = False, control: bool = False) -> None:
        """The left button goes down at a client point."""
        self._call(library.vostel_event_press, real(x, "x"), real(y, "y"), _buttons(shift, control))

    def release(self, x: float, y: float, shift: bool = False, control: bool = False) -> None:
        """The left button goes up."""
        self._call(library.vostel_event_release, real(x, "x"), real(y, "y"), _buttons(shift, control))

    def move(self, x: float, y: float, shift: bool = False, control: bool = False, left: bool = False) -> None:
        """The pointer moves; `left` while the button is down."""
        self._call(library.vostel_event_move, real(x, "x"), real(y, "y"), _buttons(shift, control, left))

    def wheel(self, x: float, y: float, steps: float, shift: bool = False, control: bool = False) -> None:
        """The wheel turns, forwards for positive steps."""
        self._call(library.vostel_event_wheel, real(x, "x"), real(y, "y"), real(steps, "steps"),
                   _buttons(shift, control))

    def key(self, key: Union[int, str], shift: bool = False, control: bool = False) -> None:
        """A key goes down: a letter, or the code of a key."""
        if isinstance(key, str):
            if len(key) != 1 or not key.isascii():
                raise ArgumentError(f"key is {key!r}, not one letter")
            key = ord(key.upper())
        self._call(library.vostel_event_key, whole(key, "key", 0, 2**32 - 1), _buttons(shift, control))

    def set_keys(self, letters: str) -> None:
        """Which letter keys act: "ACDERS" at first."""
        self._call(library.vostel_event_keys, encoded(letters, "letters"))


def colormaps() -> Tuple[str, ...]:
    """The names of the color maps."""
    return tuple(text_of(library.vostel_contrast_map_names).split("\n"))


def pages(path: Union[str, os.PathLike[str]]) -> int:
    """Number of pages of a TIFF or frames of a GIF; 1 of other pictures."""
    count = ctypes.c_int32()
    library.vostel_image_pages(encoded_path(path), count)
    return count.value
