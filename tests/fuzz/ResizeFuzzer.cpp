// Bilinear scaling: on one thread and on several, of floats and of 16 bits.

#include "fuzz/Fuzzing.h"
#include "fuzz/RoutineRuns.h"
#include "support/ResizeOwned.h"

#include <vector>

using namespace vostel;

namespace {

using WordPlane = ClassData2DIO<unsigned short>;

using Scale = void (*)(FloatPlane*, FloatPlane*);

std::optional<Left<float>> CheckScaled(Scale scale, const FloatPlane& source, int width, int height)
{
    return CheckRuns([&] {
        FloatPlane from = source;
        FloatPlane target;
        target.Allocate(width, height);
        if (width > 0 && height > 0)
            std::fill_n(target.Ptr1D, width * height, -7.0f);
        scale(&from, &target);
        return LeftOf(target);
    });
}

}

void FuzzOne(std::string_view bytes)
{
    InputBytes       input(bytes);
    const int        width = SizeOf(input), height = SizeOf(input);
    const int        toWidth = SizeOf(input), toHeight = SizeOf(input);
    const FloatPlane source = FloatsOf(input, width, height);
    if (IsLong(toWidth, toHeight))
        return;
    const auto result = CheckScaled(ResizeMC, source, toWidth, toHeight);
    CHECK(SameLeft(CheckScaled(ResizeSC, source, toWidth, toHeight), result));
    const auto inPlace = CheckRuns([&] {
        FloatPlane image = source;
        Resize(image, toWidth, toHeight);
        return LeftOf(image);
    });
    if (source.Width > 0 && source.Height > 0)
        CHECK(SameLeft(inPlace, result));
    CheckRuns([&] {
        WordPlane image;
        image.Allocate(std::max(source.Width, 0), std::max(source.Height, 0));
        for (int i = 0; i < image.Width * image.Height; ++i)
            image.Ptr1D[i] = static_cast<unsigned short>(i * 511);
        ResizeOwned(image, toWidth, toHeight);
        return LeftOf(image);
    });
}
