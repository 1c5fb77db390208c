#pragma once

namespace vostel {

// Numbers of an object: on the canvas and within its kind.
struct ElementNumbers {
    int SerialNo = 0;
    int TypeSerial = 0;

    bool operator==(const ElementNumbers&) const = default;
};

// Objects made of each kind: the next TypeSerial. Region shapes take SerialNo from RegionSerial, all others
// from ElementSerial, which both bump.
struct ElementCounts {
    int RectCount = 0;
    int CustomRectCount = 0;
    int PolygonCount = 0;
    int SplineCount = 0;
    int OneStrokeCount = 0;
    int RegionSerial = 0;
    int MStrokeCount = 0;
    int TextCount = 0;
    int MeasureLineCount = 0;
    int Angle3Count = 0;
    int Angle4Count = 0;
    int SpareCount = 0;
    int ElementSerial = 0;

    bool operator==(const ElementCounts&) const = default;

    // The count of a kind, null for a kind that is not counted; and only of those that deletions count down.
    int* OfKind(int kind);
    int* OfRegions(int kind);

    // Counts one more of a kind and returns its numbers.
    ElementNumbers Next(int kind);
};

}
