"""Image canvases with objects to draw and to measure, without a window.

    canvas = vostel.Canvas(1200, 800)
    canvas.open("part.tif")                          # or canvas.show(array)
    region = canvas.add_polygon([(10, 10), (90, 12), (50, 80)], name="bore")
    print(region.measure().mean, region.area)
    canvas.save("part.png", scale=2.0)

Points are image px in double: pixel (i, j) covers [i, i+1) x [j, j+1), y grows downwards. Arrays are height x width,
row 0 on top. Failures are `vostel.Error` and have changed nothing.
"""

from ._canvas import Canvas, colormaps, pages
from ._library import ArgumentError, ArgumentTypeError, Error, version
from ._listening import Event, Subscription
from ._object import Object
from ._records import ALL, Bounds, Contrast, Events, History, ImageInfo, Limits, Measures, Scale, Style, View
from ._routines import (adaptive_threshold, correlate, fft, gaussian, limits, ramp_filter, read_raw, resize,
                        set_limits, stitch)

__version__ = version

__all__ = [
    "ALL", "ArgumentError", "ArgumentTypeError", "Bounds", "Canvas", "Contrast", "Error", "Event", "Events", "History",
    "ImageInfo", "Limits", "Measures", "Object", "Scale", "Style", "Subscription", "View", "adaptive_threshold",
    "colormaps", "correlate", "fft", "gaussian", "limits", "pages", "ramp_filter", "read_raw", "resize", "set_limits",
    "stitch", "version",
]
