#pragma once

// The two passes over a row of the adaptive threshold, for squares whose sums fit in 31 bits.
//
// Where 20 times the products do so too, column sums are kept times 17, so that
//     20 * pixel * area > 17 * sum
// needs no product on the right. It decides as double(pixel * area) > double(sum) * 0.85 does: 17 sum / 20 is
// either a whole number, to which the product in double rounds (0.85 is below 17/20 by 2.7e-17 of itself,
// less than the quarter of a last place that would be lost), or at least 1/20 from one, where the product's
// error does not reach.

namespace vostel {

struct ThresholdVariant {
    // columns[x] += factor * (entering[x] - leaving[x])
    void (*Slide)(int* columns, int factor, const unsigned char* entering, const unsigned char* leaving,
                  int width);
    // The sum of pixel x is the one before it plus columns[x + side] - columns[x]; before is that of pixel
    // -1. target[x] = 255 where pixels[x] * scale > sum, else 0.
    void (*Decide)(const int* columns, int side, int before, int scale, const unsigned char* pixels,
                   unsigned char* target, int width);
    // target[x] = 255 where double(pixels[x] * scale) > double(sum) * 0.85, else 0.
    void (*DecideInDouble)(const int* columns, int side, int before, int scale, const unsigned char* pixels,
                           unsigned char* target, int width);
};

const ThresholdVariant& ActiveThresholdVariant();

extern const ThresholdVariant ThresholdPlain;
extern const ThresholdVariant ThresholdAvx2;
extern const ThresholdVariant ThresholdAvx512;

}
