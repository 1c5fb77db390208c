#include "vostel/CanvasImages.h"

#include "base/Truncate.h"
#include "canvas/exports/CanvasTable.h"
#include "foundation/ArrayLength.h"

using namespace vostel;

namespace {

// A host's flat buffer seen as a container for the length of one call. The engine walks it by its width
// alone, so it gets no row table. The buffer stays the host's, also when an exception passes through.
template <typename T>
class HostPlane {
public:
    ClassData2DIO<T> Data;

    HostPlane(T* buffer, int width, int height)
    {
        // A negative number of rows is refused as the allocator refuses it.
        if (height < 0)
            FailArrayLength();
        Data.Ptr1D = buffer;
        Data.Width = width;
        Data.Height = height;
        Data.Region.left = 0;
        Data.Region.top = 0;
        Data.Region.right = WrapSub(width, 1);
        Data.Region.bottom = WrapSub(height, 1);
    }
    ~HostPlane() { Data.Ptr1D = nullptr; }
    HostPlane(const HostPlane&) = delete;
    HostPlane& operator=(const HostPlane&) = delete;
};

}

void gCVSShowRawFloat(int canvas, ClassData2DIO<float>& data, bool keepOriginal, bool clearObjects)
{
    if (const CanvasCall image{canvas})
        image->ShowRaw(data, keepOriginal, clearObjects);
}

void gCVSShowUCGray(int canvas, ClassData2DIO<unsigned char>& gray, bool clearObjects)
{
    if (const CanvasCall image{canvas})
        image->ShowGray(gray, clearObjects);
}

void gCVSShowUCColor(int canvas, ClassData2DIO<unsigned char>& red, ClassData2DIO<unsigned char>& green,
                     ClassData2DIO<unsigned char>& blue, bool clearObjects)
{
    if (const CanvasCall image{canvas})
        image->ShowColor(red, green, blue, clearObjects);
}

void gCVSShowRawFloat(int canvas, float* data, int width, int height, bool keepOriginal, bool clearObjects)
{
    const CanvasCall image(canvas);
    if (!image)
        return;
    HostPlane<float> plane(data, width, height);
    image->ShowRaw(plane.Data, keepOriginal, clearObjects);
}

void gCVSShowUCGray(int canvas, unsigned char* gray, int width, int height, bool clearObjects)
{
    const CanvasCall image(canvas);
    if (!image)
        return;
    HostPlane<unsigned char> plane(gray, width, height);
    image->ShowGray(plane.Data, clearObjects);
}

void gCVSShowUCColor(int canvas, unsigned char* red, unsigned char* green, unsigned char* blue, int width,
                     int height, bool clearObjects)
{
    const CanvasCall image(canvas);
    if (!image)
        return;
    HostPlane<unsigned char> redPlane(red, width, height);
    HostPlane<unsigned char> greenPlane(green, width, height);
    HostPlane<unsigned char> bluePlane(blue, width, height);
    image->ShowColor(redPlane.Data, greenPlane.Data, bluePlane.Data, clearObjects);
}

bool gCVSReadFile(int canvas, CString& path, bool keepOriginal)
{
    if (const CanvasCall image{canvas})
        image->ReadImageFile(path, keepOriginal);
    return true;
}

void gCVSSetLutPara(int canvas, float low, float high)
{
    if (const CanvasCall image{canvas})
        image->SetLutPara(low, high);
}

float gCVSGetImaPixelValue(int canvas, CPoint point)
{
    return CanvasToRead(canvas).ReadPixelValue(point);
}

ClassData2DIO<float>& gCVSGetRaw(int canvas)
{
    return CanvasToRead(canvas).HandOutRaw();
}

float* gCVSGetRawPtr1D(int canvas)
{
    return CanvasToRead(canvas).HandOutRaw().Ptr1D;
}

float** gCVSGetRawPtr2D(int canvas)
{
    return CanvasToRead(canvas).HandOutRaw().Ptr2D;
}

ClassData2DIO<float>& gCVSGetRawOri(int canvas)
{
    return CanvasToRead(canvas).HandOutRawOri();
}

float* gCVSGetRawOriPtr1D(int canvas)
{
    return CanvasToRead(canvas).HandOutRawOri().Ptr1D;
}

float** gCVSGetRawOriPtr2D(int canvas)
{
    return CanvasToRead(canvas).HandOutRawOri().Ptr2D;
}

FileType gCVSGetFileType(int canvas)
{
    return CanvasToRead(canvas).CurrentFileType;
}

void gCVSSetFileType(int canvas, FileType type)
{
    if (const CanvasCall image{canvas})
        image->CurrentFileType = type;
}

int gCVSGetCanvasWidth(int canvas)
{
    return CanvasToRead(canvas).CanvasWidth;
}

int gCVSGetCanvasHeight(int canvas)
{
    return CanvasToRead(canvas).CanvasHeight;
}

int gCVSGenerateLabel(int canvas, bool selectedOnly)
{
    const CanvasCall image(canvas);
    return image ? image->GenerateLabel(selectedOnly) : 1;
}

ClassData2DIO<int>& gCVSGetLabelIma(int canvas)
{
    return CanvasToRead(canvas).HandOutLabels();
}

int* gCVSGetLabelImaPtr1D(int canvas)
{
    return CanvasToRead(canvas).HandOutLabels().Ptr1D;
}

int** gCVSGetLabelImaPtr2D(int canvas)
{
    return CanvasToRead(canvas).HandOutLabels().Ptr2D;
}
