#pragma once

#include "canvas/VostelDC.h"
#include "canvas/view/ImageValues.h"
#include "output/ContrastRows.h"
#include "vostel/CanvasTypes.h"
#include "vostel/Containers.h"
#include "vostel/DisplayMapping.h"

namespace vostel {

// Image data on a canvas: how an image gets onto the canvas surface, how float data is redrawn when the
// contrast window changes, and what value lies under a client point.
//
// Byte images exist only as pixels of the surface. Float data is kept, stretched to 0..65535 (Raw) and on
// request as it came (RawOri). Hosts hold references to the containers and may change them, so their sizes
// are checked before each use.
class VostelImage final : public VostelDC, public ImageValues {
public:
    ZEKMAPIMA            Map;                   // from stretched values to gray
    double               MeasureScale = 1.0;    // length units per image px, for new measures
    ClassData2DIO<float> RawOri;
    ClassData2DIO<float> Raw;
    int                  CanvasWidth = 0;    // image px
    int                  CanvasHeight = 0;
    FileType             CurrentFileType = FileTypeNone;
    ClassData2DIO<int>   LabelIma;    // rows in surface order: row 0 is the bottom of the image

    VostelImage() = default;
    ~VostelImage() = default;

    // Replaces what is shown by a black surface of the given size, or one whose pixels are about to be
    // written.
    void PrepareImage(int width, int height, bool clearObjects, bool cleared = true);

    void ShowGray(ClassData2DIO<unsigned char>& src, bool clearObjects);
    void ShowColor(ClassData2DIO<unsigned char>& p1, ClassData2DIO<unsigned char>& p2,
                   ClassData2DIO<unsigned char>& p3, bool clearObjects);
    void ShowRaw(ClassData2DIO<float>& src, bool keepOriginal, bool clearObjects);

    void SetLutPara(float low, float high) override;

    FileType          ShownType() const override { return CurrentFileType; }
    int               ShownWidth() const override { return CanvasWidth; }
    int               ShownHeight() const override { return CanvasHeight; }
    const CanvasView& ShownView() const override { return View; }
    float             OriginalAt(int imageX, int imageY) const override;
    float             StretchedAt(int imageX, int imageY) const override;
    unsigned int      SurfacePixelAt(int imageX, int memoryRow) const override;
    float             ReadPixelValue(CPoint clientPoint) const override;

    // Rebuilds LabelIma; returns the label of the last region written, 1 if there was none.
    int GenerateLabel(bool selectedOnly);

    // Shows a file; CurrentFileType says whether it became an image.
    void ReadImageFile(CString& path, bool keepOriginal);
    void LoadRawImage(CString path, bool keepOriginal);
    void LoadCommonImage(CString path);

    // Saves; each asks for a name first.
    void SaveClient();
    void SaveImaWithOverlap();
    void SaveNowShowIma();
    void Save8bit();
    void SaveRaw();
    void SaveLabel();

private:
    ContrastTable Contrast;    // what redraws take from Map

    // The steps of ShowRaw, once the canvas has the size of the data: keeps the data as it came if asked to,
    // gives the rule that stretches it to Raw; takes the contrast window; stretches and draws.
    RemapRule KeepData(const float* data, std::size_t count, bool keepOriginal);
    void      ChooseWindow();
    void      DrawData(const float* data, std::size_t count, const RemapRule& rule, bool wholeImage);

    // The contrast window of SetLutPara, without the redraw.
    void StoreContrastWindow(float low, float high);
    // Whether a label image of the selected regions is all ones.
    bool LabelsWholeImage() const;
    // Writes the object's region, if its kind has one, into LabelIma with rows running down; true if it did,
    // and the label is then its number plus one.
    bool RasteriseObject(VostelObj& object);
    void RedrawRaw();
    bool HasSurfacePixels() const;
    // Throws bad_alloc above 2^26 pixels when there is no surface: such an image cannot be shown.
    void       RefuseGiantWithoutSurface() const;
    VostelObj* FirstSelectedRect();    // null for none
    void       SavePart(const CRect& box, const CString& name);
    void       BurnInLengths(HDC dc, const CRect& box) const;    // the measures of lengths
};

}
