#pragma once

#include "geometry/PlaneView.h"
#include "vostel/CanvasTypes.h"
#include "vostel/platform.h"

namespace vostel {

class CanvasView;

// What read-outs and line profiles ask of the image that they lie on. A canvas implements it; the data may
// change between two calls.
class ImageValues {
public:
    virtual FileType          ShownType() const = 0;
    virtual int               ShownWidth() const = 0;    // image px
    virtual int               ShownHeight() const = 0;
    virtual const CanvasView& ShownView() const = 0;

    // The samples as they came; without data where there is no image.
    virtual PlaneView ShownPlane() const = 0;

    // Elements of the float data as it came, and stretched to 0..65535. -1 outside the data, and where it was
    // not kept.
    virtual float OriginalAt(int imageX, int imageY) const = 0;
    virtual float StretchedAt(int imageX, int imageY) const = 0;
    // 0x00RRGGBB of the surface, whose row 0 is the bottom one.
    virtual unsigned int SurfacePixelAt(int imageX, int memoryRow) const = 0;
    // The value under a client point.
    virtual float ReadPixelValue(CPoint clientPoint) const = 0;

protected:
    ~ImageValues() = default;
};

}
