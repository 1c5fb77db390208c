#pragma once

#include <QtGlobal>

#include <vector>

namespace vostel::widget {

// Sizes that a raw file may have, from its length alone.

// Bytes of one element of tagZEKImaLoadPara::DataType; 0 for other numbers.
int RawElementBytes(int dataType);

struct RawSize {
    int    Width = 0;
    int    Height = 0;
    qint64 HeaderBytes = 0;

    bool operator==(const RawSize&) const = default;
};

// What a file of that length and type may hold, the likeliest first and at most `most` of them: squares and
// sizes of common detectors and screens without a header, then with one, then other whole rectangles that are
// not too long. Empty when nothing fits. A type whose header is not skipped gets sizes without one only.
std::vector<RawSize> GuessRawSizes(qint64 fileBytes, int dataType, int most = 12);

// The same by the bytes of a pixel, with sizes behind a header or without.
std::vector<RawSize> GuessSizes(qint64 fileBytes, int pixelBytes, bool headers = true, int most = 12);

}
