#define DOCTEST_CONFIG_IMPLEMENT
#include "fuzz/Fuzzing.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

constexpr int Width = 64;
constexpr int Height = 48;

// Checks outside of test cases go here.
void Stop(const doctest::AssertData& data)
{
    if (!data.m_failed)
        return;
    std::fprintf(stderr, "%s:%d: CHECK( %s ) failed: %s\n", data.m_file, data.m_line, data.m_expr,
                 data.m_decomp.c_str());
    std::abort();
}

TempFolder& Folder()
{
    static TempFolder folder;
    return folder;
}

}

void StopAtFailedChecks()
{
    static doctest::Context context;
    context.setAsDefaultForAssertsOutOfTestCases();
    context.setAssertHandler(Stop);
}

std::string WriteInput(const std::string& name, std::string_view input)
{
    const std::string path = Folder().Path(name);
    std::ofstream(path, std::ios::binary).write(input.data(), static_cast<std::streamsize>(input.size()));
    return path;
}

std::string ReadBack(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

FuzzCanvas::FuzzCanvas() : OpenCanvas(160, 120)
{
    ShowImage(0);
}

void FuzzCanvas::ShowImage(std::uint32_t flags) const
{
    std::array<unsigned char, Width * Height> pixels{};
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<unsigned char>(i * 7);
    REQUIRE(vostel_image_show(Number, VOSTEL_U8, pixels.data(), Width, Height, 0, flags) == VOSTEL_OK);
}

VostelObject FuzzCanvas::AddRectangle() const
{
    const VostelPoint corners[] = {{3.0, 4.0}, {20.5, 17.25}};
    VostelObject      rectangle = 0;
    REQUIRE(vostel_object_add(Number, VOSTEL_RECTANGLE, corners, 2, &rectangle) == VOSTEL_OK);
    return rectangle;
}

std::string SaveFuzzImage()
{
    const FuzzCanvas  canvas;
    const std::string path = Folder().Path("image.png");
    REQUIRE(vostel_picture_save(canvas.Number, path.c_str(), 1.0, 0) == VOSTEL_OK);
    return path;
}

void CheckStatus(VostelStatus status)
{
    CHECK(status <= VOSTEL_OK);
    CHECK(status > VOSTEL_INTERNAL);
    CHECK(status != VOSTEL_INVALID_ARGUMENT);
}
