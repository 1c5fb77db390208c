// Bitmaps as planes of bytes: in gray they are what their colors make, and what is saved reads back.

#include "fuzz/Fuzzing.h"

#include <VostelObj.h>

#include <cstring>

namespace {

using BytePlane = ClassData2DIO<unsigned char>;

bool SamePlanes(const BytePlane& a, const BytePlane& b)
{
    if (a.Width != b.Width || a.Height != b.Height || !a.Ptr1D || !b.Ptr1D)
        return a.Width == b.Width && a.Height == b.Height && !a.Ptr1D == !b.Ptr1D;
    const std::size_t bytes = static_cast<std::size_t>(a.Width) * static_cast<std::size_t>(a.Height);
    return std::memcmp(a.Ptr1D, b.Ptr1D, bytes) == 0;
}

struct Planes {
    BytePlane Red, Green, Blue, Alpha;

    bool Read(std::string path) { return ZEKReadColorBmp(path.data(), &Red, &Green, &Blue, &Alpha); }
};

void CheckGray(std::string path, Planes& colors)
{
    BytePlane expected, gray;
    ZEKColorToGray(&colors.Red, &colors.Green, &colors.Blue, &expected);
    CHECK(ZEKReadGrayBmp(path.data(), &gray));
    CHECK(SamePlanes(gray, expected));
}

void CheckSaved(Planes& colors)
{
    std::string path = WriteInput("saved.bmp", "");
    Planes      again;
    REQUIRE(ZEKSaveColorBmp(path.c_str(), &colors.Red, &colors.Green, &colors.Blue));
    REQUIRE(again.Read(path));
    CHECK(SamePlanes(again.Red, colors.Red));
    CHECK(SamePlanes(again.Green, colors.Green));
    CHECK(SamePlanes(again.Blue, colors.Blue));
    REQUIRE(ZEKSaveGrayBmp(path.data(), colors.Green));
    REQUIRE(again.Read(path));
    CHECK(SamePlanes(again.Red, colors.Green));
}

}

void FuzzOne(std::string_view input)
{
    // Its sizes count whatever the file's length, so that a few bytes can mean much work.
    if (input.size() < 26 || input[20] != 0 || input[21] != 0 || input[24] != 0 || input[25] != 0)
        return;
    const std::string path = WriteInput("picture.bmp", input);
    Planes            colors;
    if (!colors.Read(path))
        return;
    CheckGray(path, colors);
    if (colors.Red.Width > 0 && colors.Red.Height > 0)
        CheckSaved(colors);
}
