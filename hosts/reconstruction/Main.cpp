// Projects a phantom, filters the projections with the library's ramp filter, puts the image together again
// by plain back-projection, and writes all steps as canvases show them onto one page.

#include "common/Sheet.h"
#include "reconstruction/Tomography.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int            Canvas = 0;
constexpr int            Size = 256;    // pixels of the image, each way
constexpr int            Angles = 400;
constexpr DetectorLayout Detector = {363, 2.0 / Size};    // covers the field's diagonal
constexpr int            TileWidth = 384;
constexpr int            TileHeight = 400;
constexpr int            Gap = 12;

struct Step {
    const wchar_t*              Name;
    const ClassData2DIO<float>* Image;
    float                       Low, High;          // contrast window, in values of the image
    bool                        Profile = false;    // needs a second column
};

// Shows the values between low and high from black to white.
void SetWindow(const ClassData2DIO<float>& image, float low, float high)
{
    ClassData2DIO<float> copy;
    float                smallest, largest;
    copy = image;
    copy.GetMinMax(smallest, largest);
    gCVSSetLutPara(Canvas, (low - smallest) / (largest - smallest), (high - smallest) / (largest - smallest));
}

void ShowStep(Sheet& sheet, const Step& step, int place)
{
    const int            width = step.Profile ? 2 * TileWidth + Gap : TileWidth;
    Host                 user(Canvas, width, TileHeight);
    ClassData2DIO<float> image;
    image = *step.Image;
    gCVSShowRawFloat(Canvas, image, true, true);
    if (step.Low < step.High)
        SetWindow(image, step.Low, step.High);
    user.Paint();
    if (step.Profile) {
        user.Drag(MK_CONTROL, CPoint(10, 10), CPoint(240, 10));    // beside the plot
        gCVSAddLineProfile(Canvas);
        user.Paint();
        const double row = 0.8025 * Size;    // through the three small ellipses
        user.Drag(MK_SHIFT, user.At(0.35 * Size, row), user.At(0.65 * Size, row));
    }
    user.Paint();
    const int column = place % 3;
    const int y = Gap + place / 3 * (TileHeight + Sheet::NameHeight + Gap);
    sheet.Place(user, Gap + column * (TileWidth + Gap), y, width, TileHeight, step.Name);
    gCVSDelAllElement(Canvas);
}

double MeanDifference(const ClassData2DIO<float>& a, const ClassData2DIO<float>& b)
{
    double sum = 0.0;
    for (int i = 0; i < Size * Size; ++i)
        sum += std::fabs(a.Ptr1D[i] - b.Ptr1D[i]);
    return sum / (Size * Size);
}

}

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: vostel-reconstruction SHEET.png\n");
        return EXIT_FAILURE;
    }
    ClassData2DIO<float> phantom, projections, filtered, reconstruction, blurred;
    DrawPhantom(HeadPhantom(), Size, phantom);
    Project(HeadPhantom(), Detector, Angles, projections);
    filtered = projections;
    FilterRows(Detector, filtered);
    BackProject(filtered, Detector, Size, reconstruction);
    BackProject(projections, Detector, Size, blurred);
    std::printf("mean difference from the phantom: %.4f of a largest density of 1\n",
                MeanDifference(phantom, reconstruction));

    const Step steps[] = {
        {L"Phantom", &phantom, 0.0f, 0.5f},
        {L"Projections, a row per angle", &projections, 0.0f, 0.0f},
        {L"Rows after the ramp filter", &filtered, -2.0f, 4.0f},
        {L"Back-projection without the filter", &blurred, 0.0f, 0.0f},
        {L"Back-projection of the filtered rows, and its values along a line", &reconstruction, 0.0f, 0.5f,
         true},
    };
    Sheet sheet(3 * TileWidth + 4 * Gap, 2 * (TileHeight + Sheet::NameHeight + Gap) + Gap);
    int   place = 0;
    for (const Step& step : steps)
        ShowStep(sheet, step, place++);
    if (!sheet.Save(argv[1])) {
        std::fprintf(stderr, "vostel-reconstruction: cannot write %s\n", argv[1]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
