#pragma once

#include "canvas/ImageSource.h"
#include "canvas/SampleRange.h"
#include "canvas/VostelDC.h"
#include "canvas/view/ImageValues.h"
#include "geometry/Outline.h"
#include "geometry/PlaneView.h"
#include "output/ContrastRows.h"
#include "output/ContrastState.h"
#include "platform/ImageSamples.h"
#include "vostel/CanvasTypes.h"
#include "vostel/Containers.h"
#include "vostel/DisplayMapping.h"

#include <optional>
#include <vector>

namespace vostel {

class SamplePainter;

// What stays when samples are shown.
struct ShowKeeps {
    bool Objects = false;
    bool View = false;    // if the size is the same
    bool Contrast = false;
    // Borrowed: the contrast to begin with, in the place of any that is kept; null for none.
    const ContrastState* Beginning = nullptr;
};

// A contrast window of its own inside a region.
struct RegionWindow {
    Outline Region;
    double  Low = 0.0;
    double  High = 0.0;
};

// Image data on a canvas: how an image gets onto the canvas surface, how float data is redrawn when the
// contrast window changes, and what value lies under a client point.
//
// Byte images exist only as pixels of the surface. Float data is kept, stretched to 0..65535 (Raw) and on
// request as it came (RawOri). Hosts hold references to the containers and may change them, so their sizes
// are checked before each use.
//
// Samples of any type, as ShowSamples takes them, are kept as they came; the surface is drawn from them and
// from nothing else. Where they have more than 8 bits they count as float data, whose containers are filled
// when a host asks for them.
class VostelImage final : public VostelDC, public ImageValues {
public:
    ZEKMAPIMA                  Map;                   // from stretched values to gray
    double                     MeasureScale = 1.0;    // length units per image px, for new measures
    ClassData2DIO<float>       RawOri;
    ClassData2DIO<float>       Raw;
    int                        CanvasWidth = 0;    // image px
    int                        CanvasHeight = 0;
    FileType                   CurrentFileType = FileTypeNone;
    ClassData2DIO<int>         LabelIma;    // rows in surface order: row 0 is the bottom of the image
    std::optional<ImageSource> Source;      // of what is shown; none for an image from memory

    VostelImage();
    ~VostelImage();

    // Replaces what is shown by a black surface of the given size, or one whose pixels are about to be
    // written.
    void PrepareImage(int width, int height, bool clearObjects, bool cleared = true);

    void ShowGray(ClassData2DIO<unsigned char>& src, bool clearObjects);
    void ShowColor(ClassData2DIO<unsigned char>& p1, ClassData2DIO<unsigned char>& p2,
                   ClassData2DIO<unsigned char>& p3, bool clearObjects);
    void ShowRaw(ClassData2DIO<float>& src, bool keepOriginal, bool clearObjects);

    // Shows samples in place of what is shown: all that can fail comes before anything changes. Rows of the
    // source need not be aligned.
    void ShowSamples(const PlaneView& source, ShowKeeps keeps);
    void ShowSamples(ImageSamples&& samples, ShowKeeps keeps);

    // The image's values as they came, borrowed until the next image; Data is null without an image. Float
    // data whose original was not kept gives Raw, colors of a byte image the pixels of the surface.
    PlaneView ShownPlane() const override;
    // The range of its values, kept until the next image where nobody else may change them.
    SampleRange ShownRange() const;

    // How the values of ShownPlane are shown. Without an image, what the next one starts with.
    ContrastState Contrast() const;
    void          ApplyContrast(const ContrastState& state);
    // Brings the windows of regions up to date; each paint does.
    void RedrawRegions();

    void SetLutPara(float low, float high) override;
    void PrepareSurface() override;

    // Containers and pixels as hosts get them: they may read and change them from then on.
    ClassData2DIO<float>& HandOutRaw();
    ClassData2DIO<float>& HandOutRawOri();
    ClassData2DIO<int>&   HandOutLabels();
    PixelSurface&         HandOutSurface();

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
    static constexpr float RawTop = 65535.0f;    // Raw holds 0..RawTop
    static constexpr float NoValue = -1.0f;      // read back where there is nothing

    ContrastTable ShownTable;      // what redraws take from Map
    int           ShownLow = 0;    // the range that it is of, none at first
    int           ShownHigh = -1;
    RemapRule     Stretch;      // from the data to Raw
    CopiedRange   DataRange;    // of the samples; of float data only Low and High

    // As they came, empty while surface and containers are all there is. Gray bytes that are on the surface
    // alone become samples when ShownPlane is asked for them.
    mutable ImageSamples               Samples;
    mutable std::optional<SampleRange> SamplesRange;    // none: not looked for yet
    bool                               GrayOnSurface = false;
    // What the surface shows of the samples. Without samples, of float data once a window was chosen in its
    // own values; until then, and from the next image on, Map counts.
    std::optional<ContrastState> Window;
    bool                         RawIsOld = false;    // the containers do not show the samples yet
    bool                         RawOriIsOld = false;
    bool                         LabelsAreOld = false;
    std::vector<RegionWindow>    DrawnRegions;
    std::vector<PixelRun>        DrawnRuns;    // what they cover

    bool ShowsSamples() const { return !Samples.IsEmpty() && CurrentFileType != FileTypeNone; }
    bool HasSurfaceFor(int width, int height) const;
    void ReplaceSamples(ImageSamples&& samples, const CopiedRange& range, ShowKeeps keeps);
    // The last step of a show, which cannot fail. Made holds the new surface, none if the present one fits.
    void FinishSamples(SamplePainter& painter, PixelSurface& made, const CopiedRange& range,
                       const ContrastState* kept, ShowKeeps keeps);
    void TakeSurfaceAsSamples() const;
    // Forgets the samples, which stay alive as long as the result: a host may be showing a part of them.
    ImageSamples              DropSamples();
    bool                      IsOnImage(int x, int y) const;    // of the samples
    float                     SampleAt(int x, int y) const;     // NoValue where there is none, and of 8 bits
    unsigned                  SampleColor(int x, int y) const;           // 0x00RRGGBB of one of 8 bits
    void                      SetWindowShares(float low, float high);    // of the range of the finite values
    ContrastState             ContrastOfMap() const;
    void                      DrawSamples(const PlaneView& plane, const ContrastState& state);
    std::vector<RegionWindow> WantedRegions() const;

    // The steps of ShowRaw, once the canvas has the size of the data: keeps the data as it came if asked to,
    // gives the rule that stretches it to Raw; takes the contrast window; stretches and draws.
    RemapRule KeepData(const float* data, std::size_t count, bool keepOriginal);
    void      ChooseWindow();
    void      DrawData(const float* data, std::size_t count, const RemapRule& rule, bool wholeImage);

    // The contrast window of SetLutPara, without the redraw.
    void StoreContrastWindow(float low, float high);
    void RenewShownTable();
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
