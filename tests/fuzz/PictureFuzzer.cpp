// Pictures, each format apart; the build names its ending. The open interface and CImage agree on the size,
// pages open one by one, and what CImage saves without loss reads back.

#include "fuzz/Fuzzing.h"
#include "fuzz/PngSums.h"

#include <VostelObj.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

struct Size {
    int Width = 0;
    int Height = 0;
};

// All values lie within what the image tells, and the last one read by itself is the same.
Size CheckValues(std::int32_t canvas)
{
    VostelImageInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_image_info(canvas, &info) == VOSTEL_OK);
    REQUIRE(info.width > 0);
    REQUIRE(info.height > 0);
    std::vector<float> values(static_cast<std::size_t>(info.width) * static_cast<std::size_t>(info.height));
    REQUIRE(vostel_image_copy(canvas, VOSTEL_F32, values.data(), 0) == VOSTEL_OK);
    std::int64_t notFinite = 0;
    for (const float value : values) {
        if (!std::isfinite(value))
            ++notFinite;
        else
            CHECK((value >= static_cast<float>(info.min) && value <= static_cast<float>(info.max)));
    }
    CHECK(notFinite == info.not_finite);
    double last = 0.0;
    REQUIRE(vostel_image_value(canvas, 0, info.width - 0.5, info.height - 0.5, &last) == VOSTEL_OK);
    const float end = values.back();
    CHECK((end == static_cast<float>(last) || (std::isnan(end) && std::isnan(last))));
    return {info.width, info.height};
}

int IndexAt(const CImage& picture, int x, int y)
{
    const int at = x * picture.GetBPP() % 8;
    const int byte = *static_cast<const unsigned char*>(picture.GetPixelAddress(x, y));
    return byte >> (8 - picture.GetBPP() - at) & ((1 << picture.GetBPP()) - 1);
}

// Indices to the bit; colors without the fourth byte, which a file need not keep.
bool SamePicture(const CImage& a, const CImage& b)
{
    const bool colors = a.GetBPP() >= 24;
    if (a.GetWidth() != b.GetWidth() || a.GetHeight() != b.GetHeight() || colors != (b.GetBPP() >= 24) ||
        (!colors && a.GetBPP() != b.GetBPP()))
        return false;
    for (int y = 0; y < a.GetHeight(); ++y) {
        for (int x = 0; x < a.GetWidth(); ++x)
            if (colors ? std::memcmp(a.GetPixelAddress(x, y), b.GetPixelAddress(x, y), 3) != 0
                       : IndexAt(a, x, y) != IndexAt(b, x, y))
                return false;
    }
    return true;
}

void CheckSaved(const CImage& picture, const wchar_t* ending)
{
    const CString path = CString(WriteInput("saved", "").c_str()) + ending;
    CImage        again;
    REQUIRE(picture.Save(path) >= 0);
    REQUIRE(again.Load(path) >= 0);
    CHECK(SamePicture(picture, again));
}

// What the picture shows does not depend on who reads it: turned by its tag or not.
void CheckClassic(const std::string& path, bool taken, Size size)
{
    CImage picture;
    if (picture.Load(CString(path.c_str())) < 0)
        return;
    if (taken)
        CHECK(std::minmax(picture.GetWidth(), picture.GetHeight()) == std::minmax(size.Width, size.Height));
    // Five bits a channel are saved as eight.
    if (picture.GetBPP() == 16 || static_cast<long long>(picture.GetWidth()) * picture.GetHeight() > 1 << 16)
        return;
    for (const wchar_t* const ending : {L".png", L".bmp", L".tif"})
        CheckSaved(picture, ending);
}

void CheckPages(std::int32_t canvas, const std::string& path, int pages)
{
    for (int page = 0; page < std::min(pages, 3); ++page)
        CheckStatus(vostel_image_open_page(canvas, path.c_str(), page, 0));
    CHECK(vostel_image_open_page(canvas, path.c_str(), pages, 0) != VOSTEL_OK);
}

}

void FuzzOne(std::string_view input)
{
    const std::string       path = WriteInput("picture." VOSTEL_FUZZ_ENDING, WithPngSums(input));
    static const FuzzCanvas canvas;    // making one takes longer than most pictures
    canvas.ShowImage(0);
    canvas.AddRectangle();
    const std::string before = StateOf(canvas.Number);
    std::int32_t      pages = 0;
    CheckStatus(vostel_image_pages(path.c_str(), &pages));
    const VostelStatus status = vostel_image_open(canvas.Number, path.c_str(), 0);
    CheckStatus(status);
    Size size;
    if (status == VOSTEL_OK) {
        CHECK(pages >= 1);
        size = CheckValues(canvas.Number);
        FrameOf(canvas.Number);
        CheckPages(canvas.Number, path, pages);
    } else {
        CHECK(StateOf(canvas.Number) == before);
    }
    CheckClassic(path, status == VOSTEL_OK, size);
}
