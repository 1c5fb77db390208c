#pragma once

/// @file
/// Integer raster work on label images, and small numerical routines beside it. Pixels outside a plane are
/// skipped.

#include "vostel/Containers.h"
#include "vostel/Geometry.h"
#include "vostel/export.h"

#include <vector>

/// Fills the ellipse in the box of two corners by the midpoint rule; the spans leave out their right end.
/// fill false draws nothing: there is no outline mode. Boxes of more than a million pixels are filled by the
/// ellipse's equation, row by row.
VOSTEL_API void DrawEcllipse(ClassData2DIO<int>& plane, int x1, int y1, int x2, int y2, bool fill, int value);

/// Fills the closed polygon through the points, boundary included. The points are first clamped to the plane,
/// in the caller's vector: a polygon partly outside fills as the polygon of the clamped points, not the
/// clipped one.
///
/// The outline becomes a chain of eight directions; each boundary pixel is classified by the step that
/// reaches and the one that leaves it, and the kept pixels are filled between in pairs, row by row. The
/// classification is made for outlines that run clockwise on the screen: the other sense loses flat top and
/// bottom rows. Nothing happens for an empty vector or plane.
VOSTEL_API void FillPolygon(ClassData2DIO<int>& plane, std::vector<PointTemplateBase<int>>& points,
                            int value);

/// Fills the curve of mB3Line through the points, which stay. Nothing is filled where there is no curve.
VOSTEL_API void FillSpline(ClassData2DIO<int>& plane, std::vector<PointTemplateBase<int>>& points, int value);

/// Sets the inclusive box of a label. Without a pixel of the label left and top become 10000, right and
/// bottom -10000; in planes beyond that size left and top do not exceed 10000.
VOSTEL_API void GetBlobOutRect(ClassData2DIO<int>& plane, ZEKRECT& rect, int label);

/// Makes the matrix product c = a b, each sum in 32-bit float with k ascending; c is allocated. Nothing
/// happens unless a's width is b's height. c may be neither a nor b.
VOSTEL_API void MatrixMul(ClassData2DIO<float>& a, ClassData2DIO<float>& b, ClassData2DIO<float>& c);

/// Reflects a coordinate pair into the image, once. skipEdge: the edge sample is not repeated (-1 becomes 1,
/// width becomes width - 2); otherwise it is (-1 becomes 0, width becomes width - 1). No clamp follows.
VOSTEL_API void mMapXYOutOfIma(int& x, int& y, int width, int height, bool skipEdge);

/// Makes the curve through N points, 2 to 199; for other N the results stay untouched. controls receives the
/// N + 3 truncated control points of a uniform cubic B-spline whose curve passes through the points, curve
/// receives its samples: for each of the N - 1 segments 11 points at steps of 0.1, both ends included,
/// truncated. The first point stands twice and the end conditions are not mirror images; both are intended.
VOSTEL_API void mB3Line(const std::vector<PointTemplateBase<int>>& input,
                        std::vector<PointTemplateBase<int>>&       curve,
                        std::vector<PointTemplateBase<int>>&       controls);
