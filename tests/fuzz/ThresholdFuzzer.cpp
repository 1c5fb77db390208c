// The threshold that follows the brightness around each pixel, against its definition.

#include "base/Reflect.h"
#include "fuzz/Fuzzing.h"
#include "fuzz/RoutineRuns.h"

using namespace vostel;

namespace {

unsigned char ValueAt(const BytePlane& image, int x, int y, int radius)
{
    long long sum = 0;
    for (int j = -radius; j <= radius; ++j)
        for (int i = -radius; i <= radius; ++i)
            sum += image.Ptr2D[ReflectRepeatingEdge(y + j, image.Height)]
                              [ReflectRepeatingEdge(x + i, image.Width)];
    const long long area = (2LL * radius + 1) * (2 * radius + 1);
    return static_cast<double>(image.Ptr2D[y][x] * area) > static_cast<double>(sum) * 0.85 ? 255 : 0;
}

}

void FuzzOne(std::string_view bytes)
{
    InputBytes      input(bytes);
    const int       width = SizeOf(input), height = SizeOf(input), size = SizeOf(input);
    const BytePlane image = BytesOf(input, width, height);
    const auto      result = CheckRuns([&] {
        BytePlane changed = image;
        LAT_Constant(changed, size);
        return LeftOf(changed);
    });
    REQUIRE(result.has_value());
    if (size > 9)
        return;
    for (int y = 0; y < image.Height; ++y) {
        for (int x = 0; x < image.Width; ++x) {
            const unsigned char expected = size < -1 ? image.Ptr2D[y][x] : ValueAt(image, x, y, size / 2);
            CHECK(result->Values[static_cast<std::size_t>(y * image.Width + x)] == expected);
        }
    }
}
