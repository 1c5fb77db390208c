#pragma once

// The two steps of bilinear scaling, row by row: a source row at the target's spacing, and a target row
// between two of those.

namespace vostel {

// Where the target's columns lie in the source. Columns ascend.
struct ResizeColumns {
    const int*   Index;       // left sample; Index[x] + 1 is a column of the source too
    const float* Fraction;    // of the way to the right one
    int          Count;
    int          SourceWidth;
    int          WholeStep;    // samples from column to column where all fractions are 0; else 0
};

struct ResizeVariant {
    // spread[x] = double(s[i]) * (1.0 - double(t)) + double(float(t * s[i + 1]))
    void (*Spread)(const float* source, const ResizeColumns& columns, double* spread);
    // target[x] = float(top[x] * (1.0 - double(t)) + bottom[x] * double(t))
    void (*Blend)(const double* top, const double* bottom, float fraction, float* target, int count);
    // Both at once, for rows whose spread is not needed again. Where all fractions are 0 the values are
    // samples and float takes every step exactly: (a + 0 b) + 0 (c + 0 d) differs from a only by infinite
    // samples, not-a-numbers and the sign of a zero.
    void (*SpreadAndBlend)(const float* topSource, const float* bottomSource, const ResizeColumns& columns,
                           float fraction, float* target);
};

const ResizeVariant& ActiveResizeVariant();

extern const ResizeVariant ResizePlain;
extern const ResizeVariant ResizeAvx2;
extern const ResizeVariant ResizeAvx512;

}
