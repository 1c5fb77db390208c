"""What the library's C header declares, in the words of ctypes: constants, records and functions.

A test holds every line against the header, so this page is changed together with it and in its order.
"""

from __future__ import annotations

import ctypes
from ctypes import (POINTER, c_char_p, c_double, c_int32, c_int64, c_size_t, c_ssize_t, c_uint8, c_uint32, c_uint64,
                    c_void_p)
from typing import Any, Dict, Tuple

OK = 0
INVALID_ARGUMENT = -1
NOT_FOUND = -2
NO_IMAGE = -3
OUT_OF_MEMORY = -4
NOT_READ = -5
NOT_WRITTEN = -6
BAD_FORMAT = -7
TOO_LARGE = -8
NOT_SUPPORTED = -9
BUFFER_TOO_SMALL = -10
INTERNAL = -11

U8 = 1
U16 = 2
I16 = 3
F32 = 4
RGB8 = 5
BGR8 = 6
BGRA8 = 7

RECTANGLE = 0
CUSTOM_RECTANGLE = 1
POLYGON = 3
SPLINE = 4
FREE_REGION = 5
TEXT = 6
FREE_STROKES = 7
LENGTH = 8
ANGLE = 9
ANGLE_LINES = 10
PANEL = 14
NEIGHBOURS = 15
PROFILE = 16
POINTS = 20
POLYLINE = 21
ARROW = 22

HIDDEN = 1
LOCKED = 2
ELLIPSE = 4
NO_LABEL = 8

KEEP_OBJECTS = 1
KEEP_VIEW = 2
KEEP_CONTRAST = 4

WITH_OBJECTS = 1
WITH_CAPTIONS = 2
WITH_HANDLES = 4

SESSION_ON_IMAGE = 1

LEFT_BUTTON = 1
SHIFT = 4
CONTROL = 8

OBJECT_ADDED = 1
OBJECT_CHANGING = 2
OBJECT_CHANGED = 4
OBJECT_REMOVED = 8
SELECTION_CHANGED = 16
VIEW_CHANGED = 32
IMAGE_CHANGED = 64
CONTRAST_CHANGED = 128
HISTORY_CHANGED = 256
FRAME_STALE = 512
CANVAS_DESTROYED = 1024

HAS_PIXELS = 1
HAS_AREA = 2
HAS_LENGTH = 4
HAS_ANGLE = 8
HAS_VALUES = 16
HAS_SHAPE = 32


class Point(ctypes.Structure):
    _fields_ = [("x", c_double), ("y", c_double)]


class Record(ctypes.Structure):
    """A record that begins with its own size."""

    def __init__(self, **fields: Any) -> None:
        super().__init__(size=ctypes.sizeof(type(self)), **fields)


class Limits(Record):
    _fields_ = [("size", c_uint32), ("max_side", c_int32), ("max_pixels", c_int64), ("max_file_bytes", c_int64),
                ("max_threads", c_int32), ("max_memory", c_int64)]


class RawLayout(Record):
    _fields_ = [("size", c_uint32), ("type", c_int32), ("width", c_int32), ("height", c_int32), ("offset", c_int64),
                ("big_endian", c_int32)]


class CanvasInfo(Record):
    _fields_ = [("size", c_uint32), ("width", c_int32), ("height", c_int32), ("smooth", c_int32),
                ("pixel_ratio", c_double)]


class ContrastInfo(Record):
    _fields_ = [("size", c_uint32), ("below", c_uint32), ("above", c_uint32), ("not_finite", c_uint32),
                ("low", c_double), ("high", c_double), ("gamma", c_double)]


class ImageInfo(Record):
    _fields_ = [("size", c_uint32), ("type", c_int32), ("width", c_int32), ("height", c_int32), ("min", c_double),
                ("max", c_double), ("not_finite", c_int64)]


class View(Record):
    _fields_ = [("size", c_uint32), ("scale", c_double), ("left", c_double), ("top", c_double)]


class Frame(Record):
    _fields_ = [("size", c_uint32), ("width", c_int32), ("height", c_int32), ("row_bytes", c_ssize_t),
                ("pixels", POINTER(c_uint32))]


class Style(Record):
    _fields_ = [("size", c_uint32), ("line_color", c_uint32), ("selected_color", c_uint32), ("handle_color", c_uint32),
                ("fill_color", c_uint32), ("line_width", c_double), ("text_height", c_double)]


class ObjectInfo(Record):
    _fields_ = [("size", c_uint32), ("kind", c_int32), ("flags", c_uint32), ("label", c_int32), ("selected", c_int32),
                ("index", c_uint64), ("point_count", c_uint64), ("left", c_double), ("top", c_double),
                ("right", c_double), ("bottom", c_double)]


class Measures(Record):
    _fields_ = [("size", c_uint32), ("valid", c_uint32), ("pixels", c_int64), ("not_finite", c_int64),
                ("area", c_double), ("perimeter", c_double), ("length", c_double), ("angle", c_double),
                ("centroid_x", c_double), ("centroid_y", c_double), ("left", c_double), ("top", c_double),
                ("right", c_double), ("bottom", c_double), ("mean", c_double), ("sd", c_double), ("min", c_double),
                ("max", c_double), ("sum", c_double), ("median", c_double), ("feret_max", c_double),
                ("feret_min", c_double), ("circularity", c_double)]


class Profile(Record):
    _fields_ = [("size", c_uint32), ("length", c_double), ("spacing", c_double), ("min", c_double), ("max", c_double),
                ("mean", c_double)]


class HistoryInfo(Record):
    _fields_ = [("size", c_uint32), ("undo_count", c_uint32), ("redo_count", c_uint32), ("bytes", c_uint64),
                ("limit", c_uint64)]


class Event(Record):
    _fields_ = [("size", c_uint32), ("type", c_uint32), ("canvas", c_int32), ("object", c_uint64)]


class Plane(Record):
    _fields_ = [("size", c_uint32), ("type", c_int32), ("width", c_int32), ("height", c_int32),
                ("row_bytes", c_ssize_t), ("data", c_void_p)]


Listener = ctypes.CFUNCTYPE(None, POINTER(Event), c_void_p)

_canvas = c_int32
_object = c_uint64
_numbers = POINTER(c_double)
_sizes = POINTER(c_size_t)
_text = (c_char_p, c_size_t, _sizes)    # buffer, capacity, length
_object_text = (_canvas, _object, *_text)
_object_points = (_canvas, _object, POINTER(Point), c_size_t, _sizes)
_planes = (POINTER(Plane), POINTER(Plane))

# The three that return text; all others return a status.
TEXTS: Dict[str, Tuple[Any, ...]] = {
    "vostel_version": (),
    "vostel_status_name": (c_int32,),
    "vostel_last_message": (),
}

FUNCTIONS: Dict[str, Tuple[Any, ...]] = {
    "vostel_set_limits": (POINTER(Limits),),
    "vostel_get_limits": (POINTER(Limits),),
    "vostel_canvas_create": (c_int32, c_int32, POINTER(c_int32)),
    "vostel_canvas_destroy": (_canvas,),
    "vostel_canvas_resize": (_canvas, c_int32, c_int32),
    "vostel_canvas_set_pixel_ratio": (_canvas, c_double),
    "vostel_canvas_set_language": (_canvas, c_char_p),
    "vostel_canvas_get": (_canvas, POINTER(CanvasInfo)),
    "vostel_canvas_language": (_canvas, *_text),
    "vostel_image_show": (_canvas, c_int32, c_void_p, c_int32, c_int32, c_ssize_t, c_uint32),
    "vostel_image_open": (_canvas, c_char_p, c_uint32),
    "vostel_image_pages": (c_char_p, POINTER(c_int32)),
    "vostel_image_open_page": (_canvas, c_char_p, c_int32, c_uint32),
    "vostel_image_open_raw": (_canvas, c_char_p, POINTER(RawLayout), c_uint32),
    "vostel_image_info": (_canvas, POINTER(ImageInfo)),
    "vostel_image_value": (_canvas, c_int32, c_double, c_double, _numbers),
    "vostel_image_plane": (_canvas, POINTER(Plane)),
    "vostel_image_copy": (_canvas, c_int32, c_void_p, c_ssize_t),
    "vostel_contrast_set": (_canvas, c_double, c_double),
    "vostel_contrast_get": (_canvas, _numbers, _numbers),
    "vostel_contrast_percentiles": (_canvas, c_double, c_double),
    "vostel_contrast_gamma": (_canvas, c_double),
    "vostel_contrast_map": (_canvas, c_char_p),
    "vostel_contrast_map_names": _text,
    "vostel_contrast_marks": (_canvas, c_uint32, c_uint32, c_uint32),
    "vostel_contrast_of_object": (_canvas, _object, c_double, c_double),
    "vostel_contrast_info": (_canvas, POINTER(ContrastInfo)),
    "vostel_contrast_map_name": (_canvas, *_text),
    "vostel_contrast_window_of_object": (_canvas, _object, _numbers, _numbers),
    "vostel_histogram": (_canvas, _object, c_int32, c_double, c_double, c_int32, POINTER(c_uint64)),
    "vostel_view_get": (_canvas, POINTER(View)),
    "vostel_view_set": (_canvas, POINTER(View)),
    "vostel_view_fit": (_canvas,),
    "vostel_view_actual": (_canvas,),
    "vostel_view_zoom": (_canvas, c_double, c_double, c_double),
    "vostel_view_to_image": (_canvas, c_double, c_double, _numbers, _numbers),
    "vostel_view_to_client": (_canvas, c_double, c_double, _numbers, _numbers),
    "vostel_view_set_smooth": (_canvas, c_int32),
    "vostel_view_link": (_canvas, c_int32),
    "vostel_frame_render": (_canvas, POINTER(Frame)),
    "vostel_frame_render_to": (_canvas, POINTER(Plane)),
    "vostel_picture_save": (_canvas, c_char_p, c_double, c_uint32),
    "vostel_picture_render_to": (_canvas, c_double, c_uint32, POINTER(Plane)),
    "vostel_event_press": (_canvas, c_double, c_double, c_uint32),
    "vostel_event_release": (_canvas, c_double, c_double, c_uint32),
    "vostel_event_move": (_canvas, c_double, c_double, c_uint32),
    "vostel_event_wheel": (_canvas, c_double, c_double, c_double, c_uint32),
    "vostel_event_key": (_canvas, c_uint32, c_uint32),
    "vostel_event_keys": (_canvas, c_char_p),
    "vostel_object_add": (_canvas, c_int32, POINTER(Point), c_size_t, POINTER(c_uint64)),
    "vostel_object_remove": (_canvas, _object),
    "vostel_object_list": (_canvas, POINTER(c_uint64), c_size_t, _sizes),
    "vostel_object_get": (_canvas, _object, POINTER(ObjectInfo)),
    "vostel_object_set_flags": (_canvas, _object, c_uint32),
    "vostel_object_points": _object_points,
    "vostel_object_set_points": (_canvas, _object, POINTER(Point), c_size_t),
    "vostel_object_outline": _object_points,
    "vostel_object_name": _object_text,
    "vostel_object_set_name": (_canvas, _object, c_char_p),
    "vostel_object_text": _object_text,
    "vostel_object_set_text": (_canvas, _object, c_char_p),
    "vostel_object_style": (_canvas, _object, POINTER(Style)),
    "vostel_object_set_style": (_canvas, _object, POINTER(Style)),
    "vostel_object_set_label": (_canvas, _object, c_int32),
    "vostel_object_move_to": (_canvas, _object, c_size_t),
    "vostel_object_at": (_canvas, c_double, c_double, POINTER(c_uint64)),
    "vostel_select": (_canvas, POINTER(c_uint64), c_size_t),
    "vostel_selection": (_canvas, POINTER(c_uint64), c_size_t, _sizes),
    "vostel_draw_next": (_canvas, c_int32, POINTER(c_uint64)),
    "vostel_set_scale": (_canvas, c_double, c_char_p),
    "vostel_get_scale": (_canvas, _numbers, *_text),
    "vostel_measure": (_canvas, _object, c_int32, POINTER(Measures)),
    "vostel_profile": (_canvas, _object, c_int32, c_double, POINTER(Profile), _numbers, c_size_t, _sizes),
    "vostel_mask": (_canvas, _object, POINTER(c_uint8), c_ssize_t),
    "vostel_labels": (_canvas, POINTER(c_int32), c_ssize_t),
    "vostel_table": (_canvas, c_char_p, *_text),
    "vostel_session_save": (_canvas, c_char_p, c_uint32),
    "vostel_session_open": (_canvas, c_char_p, c_uint32),
    "vostel_regions_export": (_canvas, c_char_p, c_char_p),
    "vostel_regions_import": (_canvas, c_char_p, c_char_p, _sizes),
    "vostel_regions_text": (_canvas, POINTER(c_uint64), c_size_t, *_text),
    "vostel_regions_add_text": (_canvas, c_char_p, _sizes),
    "vostel_history_limit": (_canvas, c_size_t),
    "vostel_history_info": (_canvas, POINTER(HistoryInfo)),
    "vostel_history_name": (_canvas, c_int32, *_text),
    "vostel_undo": (_canvas,),
    "vostel_redo": (_canvas,),
    "vostel_history_begin": (_canvas, c_char_p),
    "vostel_history_end": (_canvas,),
    "vostel_listen": (_canvas, c_uint32, Listener, c_void_p, POINTER(c_int64)),
    "vostel_unlisten": (c_int64,),
    "vostel_correlate": (*_planes, POINTER(Plane)),
    "vostel_gaussian": (POINTER(Plane), c_int32, c_double, POINTER(Plane)),
    "vostel_resize": _planes,
    "vostel_adaptive_threshold": (POINTER(Plane), c_int32, c_double, POINTER(Plane)),
    "vostel_stitch": (*_planes, c_int32, POINTER(Plane)),
    "vostel_ramp_filter": (POINTER(Plane), c_int32, c_double, POINTER(Plane)),
    "vostel_read_raw": (c_char_p, POINTER(RawLayout), POINTER(Plane)),
    "vostel_fft": (_numbers, _numbers, c_size_t, c_int32),
}
