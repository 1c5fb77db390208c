#!/usr/bin/env python3
"""Writes PeerFigures.h beside this file: what OpenCV and scikit-image find in the regions of PeerFiguresTest.cpp,
where their definitions are those of vostel.h. Needs python3-opencv and python3-skimage."""

import pathlib

import cv2
import numpy as np
import skimage
from skimage import draw, measure

WIDTH, HEIGHT = 120, 90
# No corner or edge meets a pixel centre.
POLYGON = [(10.375, 12.125), (70.625, 5.875), (110.125, 40.875), (60.875, 35.625), (85.375, 80.125), (20.125, 70.875)]
ELLIPSE = (60.25, 44.75, 41.5, 30.25)  # centre and half axes
LINE = ((14.25, 11.75), (62.25, 75.75))  # 48, 64: 80 px long
HISTOGRAM = (0.0, 252.25, 16)


def image():
    """The values of the test's image; quarters, which floats hold."""
    y, x = np.mgrid[0:HEIGHT, 0:WIDTH]
    return ((37 * x + 91 * y + 13 * x * y) % 1009 / 4.0).astype(np.float32)


def statistics(values):
    """Under a mask: of scikit-image what it has, of NumPy the rest."""
    mask, picture = values
    region = measure.regionprops(mask.astype(np.uint8), intensity_image=picture)[0]
    inside = picture[mask].astype(np.float64)
    return {
        "Pixels": int(region.area),
        "Mean": float(region.intensity_mean),
        "Sd": float(np.std(inside, ddof=1)),
        "Min": float(region.intensity_min),
        "Max": float(region.intensity_max),
        "Sum": float(np.sum(inside)),
        "Median": float(np.median(inside)),
    }


def polygon(picture):
    corners = np.array(POLYGON, dtype=np.float32)
    # Rows and columns count centres there, half a pixel from the corner of the first one.
    mask = draw.polygon2mask((HEIGHT, WIDTH), [(y - 0.5, x - 0.5) for x, y in POLYGON])
    moments = cv2.moments(corners)
    return statistics((mask, picture)) | {
        "Area": float(cv2.contourArea(corners)),
        "Perimeter": float(cv2.arcLength(corners, True)),
        "CentroidX": moments["m10"] / moments["m00"],
        "CentroidY": moments["m01"] / moments["m00"],
    }


def ellipse(picture):
    x, y, a, b = ELLIPSE
    mask = np.zeros((HEIGHT, WIDTH), dtype=bool)
    mask[draw.ellipse(y - 0.5, x - 0.5, b, a, shape=mask.shape)] = True
    return statistics((mask, picture))


def profile(picture, width):
    (x0, y0), (x1, y1) = LINE
    samples = measure.profile_line(picture.astype(np.float64), (y0 - 0.5, x0 - 0.5), (y1 - 0.5, x1 - 0.5),
                                   linewidth=width, order=1, mode="constant", cval=np.nan, reduce_func=np.mean)
    return [float(sample) for sample in samples]


def histogram(picture):
    low, high, bins = HISTOGRAM
    return [int(count) for count in cv2.calcHist([picture], [0], None, [bins], [low, high]).ravel()]


def percentiles(picture):
    return [float(value) for value in np.percentile(picture.astype(np.float64), [0.5, 37.5, 99.5])]


def record(name, kind, fields):
    values = ", ".join(f".{field} = {value!r}" for field, value in fields.items())
    return f"inline constexpr {kind} {name} = {{{values}}};\n"


def listing(name, kind, values):
    return f"inline constexpr {kind} {name}[] = {{{', '.join(repr(value) for value in values)}}};\n"


def main():
    picture = image()
    versions = f"OpenCV {cv2.__version__}, scikit-image {skimage.__version__} and NumPy {np.__version__}"
    text = f"""#pragma once

// Made by make-peer-figures.py with {versions}.

#include <cstdint>

// clang-format off
namespace peers {{

struct RegionFigures {{
    std::int64_t Pixels = 0;
    double       Mean = 0.0, Sd = 0.0, Min = 0.0, Max = 0.0, Sum = 0.0, Median = 0.0;
    double       Area = 0.0, Perimeter = 0.0, CentroidX = 0.0, CentroidY = 0.0;    // of the polygon
}};

"""
    text += record("Polygon", "RegionFigures", polygon(picture))
    text += record("Ellipse", "RegionFigures", ellipse(picture))
    text += listing("Profile", "double", profile(picture, 1))
    text += listing("WideProfile", "double", profile(picture, 3))
    text += listing("Histogram", "std::uint64_t", histogram(picture))
    text += listing("Percentiles", "double", percentiles(picture))
    text += "\n}\n// clang-format on\n"
    pathlib.Path(__file__).with_name("PeerFigures.h").write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
