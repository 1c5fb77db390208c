#pragma once

/// @file
/// Stitching of two float images side by side.

#include "vostel/Containers.h"
#include "vostel/export.h"

/// Joins imageB to the right of imageA, in place in imageA, row by row; the height is imageA's.
///
/// overlap 0: the two are butted together, widths added; trim and equalise have no effect.
///
/// Otherwise overlap is the number of columns that the two have in common, trim the number of columns left
/// out of the cross-fade at each side of them, all in pixels. The new width is both widths minus overlap.
/// With
///
///     blend = overlap - 2 trim
///     left  = width of A - trim - blend
///     right = left + blend
///     k     = x - left + trim
///
///     x < left             a[x]
///     left <= x < right    b[k] * wB * gain + a[x] * wA
///     right <= x           gain * b[k]
///
/// where wB runs from 0 to 1 and wA from 1 to 0, both ends included; in 32-bit float in this order. The gain
/// of a row is 1 or, with equalise, the mean of a over the cross-fade by the mean of b there, unless b's is
/// less than 10 in magnitude: a dark row is not scaled. It holds for the whole right part of the row.
///
/// overlap has to exceed twice the trim plus one, else the message
/// "水平重合参数需要大于二倍的中间切边参数加一" says so and imageA stays as it is. Otherwise imageA gets new
/// buffers: row pointers from before are dead. Samples that an image does not have, because it is narrower
/// than overlap or trim ask for or imageB has fewer rows, read as zero. A negative new width fails by the
/// allocator's exception and leaves imageA as it was, as running out of memory does. Nothing happens if an
/// image is missing or imageA has no rows.
VOSTEL_API void gImaConcate(ClassData2DIO<float>* imageA, ClassData2DIO<float>* imageB, int overlap, int trim,
                            bool equalise);
