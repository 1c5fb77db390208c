#include <VostelObj.h>

#include <doctest/doctest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

bool Is(const ClassRGB& c, int r, int g, int b)
{
    return c.r == r && c.g == g && c.b == b;
}

bool Is(const tagStructRGBA& c, int r, int g, int b, int a)
{
    return c.r == r && c.g == g && c.b == b && c.a == a;
}

tagStructRGBA Pixel(int r, int g, int b, int a)
{
    tagStructRGBA pixel;
    pixel.r = static_cast<std::uint8_t>(r);
    pixel.g = static_cast<std::uint8_t>(g);
    pixel.b = static_cast<std::uint8_t>(b);
    pixel.a = static_cast<std::uint8_t>(a);
    return pixel;
}

}

TEST_CASE("a pixel holds blue, green, red, alpha in memory")
{
    CHECK(sizeof(tagStructRGBA) == 4);
    CHECK(offsetof(tagStructRGBA, b) == 0);
    CHECK(offsetof(tagStructRGBA, g) == 1);
    CHECK(offsetof(tagStructRGBA, r) == 2);
    CHECK(offsetof(tagStructRGBA, a) == 3);
}

TEST_CASE("the helpers of a pixel never touch its fourth byte")
{
    tagStructRGBA c = Pixel(1, 2, 3, 99);
    StructRGBAAssign(c, 0x1234);
    CHECK(Is(c, 0x34, 0x34, 0x34, 99));
    StructRGBAAssign(c, -1);
    CHECK(Is(c, 255, 255, 255, 99));
    tagStructRGBA from = Pixel(7, 8, 9, 10);
    StructRGBAAssign(c, from);
    CHECK(Is(c, 7, 8, 9, 99));
    float half = 0.5f;
    StructRGBAMul(c, half);
    CHECK(Is(c, 3, 4, 4, 99));
    StructRGBAAdd(c, from);
    CHECK(Is(c, 10, 12, 13, 99));
    CHECK(Is(from, 7, 8, 9, 10));
}

TEST_CASE("multiplying a pixel truncates and keeps the low byte")
{
    const auto times = [](int channel, float f) {
        tagStructRGBA c = Pixel(channel, channel, channel, 0);
        StructRGBAMul(c, f);
        CHECK(c.r == c.g);
        CHECK(c.r == c.b);
        return static_cast<int>(c.r);
    };
    CHECK(times(200, 2.0f) == 144);
    CHECK(times(3, 0.9f) == 2);
    CHECK(times(1, -1.9f) == 255);
    CHECK(times(255, 0.0f) == 0);
    CHECK(times(255, 1e9f) == 0);    // beyond 32 bits: the lowest integer, whose low byte is 0
    CHECK(times(1, std::nanf("")) == 0);
    CHECK(times(0, std::numeric_limits<float>::infinity()) == 0);
}

TEST_CASE("adding pixels wraps in 8 bits")
{
    tagStructRGBA c = Pixel(200, 255, 0, 1);
    tagStructRGBA add = Pixel(100, 1, 0, 200);
    StructRGBAAdd(c, add);
    CHECK(Is(c, 44, 0, 0, 1));
    StructRGBAAdd(c, c);
    CHECK(Is(c, 88, 0, 0, 1));
}

TEST_CASE("a color holds blue first in memory and takes red first as arguments")
{
    CHECK(offsetof(ClassRGB, b) == 0);
    CHECK(offsetof(ClassRGB, g) == 1);
    CHECK(offsetof(ClassRGB, r) == 2);
    CHECK(offsetof(ClassRGB, RangeCount) == 4);
    CHECK(offsetof(ClassRGB, RangeStep) == 8);
    CHECK(offsetof(ClassRGB, StepR) == 12);
    CHECK(offsetof(ClassRGB, StepG) == 16);
    CHECK(offsetof(ClassRGB, StepB) == 20);
    CHECK(Is(ClassRGB(1, 2, 3), 1, 2, 3));
    ClassRGB c(0, 0, 0);
    c.SetColor(256 + 7, -1, 511);
    CHECK(Is(c, 7, 255, 255));
}

TEST_CASE("colors compare by their channels only")
{
    ClassRGB a(1, 2, 3);
    ClassRGB b(1, 2, 3);
    a.SetColorHandle(5, a, b);
    b.SetColorHandle(9, b, a);
    CHECK(a == b);
    CHECK_FALSE(a == ClassRGB(0, 2, 3));
    CHECK_FALSE(a == ClassRGB(1, 0, 3));
    CHECK_FALSE(a == ClassRGB(1, 2, 0));
}

TEST_CASE("the difference of colors is the sum over the channels, whatever the order")
{
    const ClassRGB black(0, 0, 0);
    const ClassRGB white(255, 255, 255);
    CHECK(black.GetDif(white) == 765);
    CHECK(white.GetDif(black) == 765);
    CHECK(ClassRGB(10, 20, 30).GetDif(ClassRGB(13, 15, 30)) == 8);
}

TEST_CASE("assigning a color copies its ramp too")
{
    ClassRGB a(1, 2, 3);
    a.SetColorHandle(3, ClassRGB(0, 0, 0), ClassRGB(100, 50, 200));
    ClassRGB b(9, 9, 9);
    CHECK(&(b = a) == &b);
    CHECK(Is(b, 1, 2, 3));
    CHECK(b.RangeCount == 3);
    CHECK(b.RangeStep == 0.5f);
    CHECK(b.StepR == 50.0f);
    CHECK(b.StepG == 25.0f);
    CHECK(b.StepB == 100.0f);
}

TEST_CASE("every named color sets its three channels and nothing else")
{
    struct Named {
        const char* Name;
        void (ClassRGB::*Set)();
        int R, G, B;
    };
    const Named all[] = {
        {"SetBrown", &ClassRGB::SetBrown, 128, 42, 42},
        {"SetChocolate", &ClassRGB::SetChocolate, 210, 105, 30},
        {"SetOrange", &ClassRGB::SetOrange, 255, 128, 0},
        {"SetTurky", &ClassRGB::SetTurky, 0, 199, 140},
        {"WindowsGray", &ClassRGB::WindowsGray, 128, 128, 128},
        {"Violet", &ClassRGB::Violet, 160, 32, 240},
        {"GrassGreen", &ClassRGB::GrassGreen, 124, 252, 0},
        {"ForestGreen", &ClassRGB::ForestGreen, 34, 139, 34},
        {"Mentha", &ClassRGB::Mentha, 189, 252, 201},
        {"IndiaRed", &ClassRGB::IndiaRed, 176, 23, 31},
        {"BrickRed", &ClassRGB::BrickRed, 156, 102, 31},
        {"DeepRed", &ClassRGB::DeepRed, 255, 0, 255},
        {"OrangeRed", &ClassRGB::OrangeRed, 255, 69, 0},
        {"Banana", &ClassRGB::Banana, 227, 207, 87},
        {"Red", &ClassRGB::Red, 255, 0, 0},
        {"Green", &ClassRGB::Green, 0, 255, 0},
        {"Blue", &ClassRGB::Blue, 0, 0, 255},
        {"White", &ClassRGB::White, 255, 255, 255},
        {"Black", &ClassRGB::Black, 0, 0, 0},
    };
    for (const Named& named : all) {
        CAPTURE(named.Name);
        ClassRGB c(1, 2, 3);
        c.SetColorHandle(3, ClassRGB(0, 0, 0), ClassRGB(100, 50, 200));
        (c.*named.Set)();
        CHECK(Is(c, named.R, named.G, named.B));
        CHECK(c.RangeCount == 3);
        CHECK(c.RangeStep == 0.5f);
        CHECK(c.StepB == 100.0f);
    }
}

TEST_CASE("a ramp runs from its start in equal steps")
{
    const ClassRGB start(10, 200, 0);
    const ClassRGB end(20, 100, 255);
    ClassRGB       c(1, 2, 3);
    c.SetColorHandle(11, start, end);
    CHECK(Is(c, 1, 2, 3));
    CHECK(c.RangeCount == 11);
    CHECK(c.RangeStep == 0.1f);
    CHECK(c.StepR == 10.0f * 0.1f);
    CHECK(c.StepG == -100.0f * 0.1f);
    CHECK(c.StepB == 255.0f * 0.1f);
    for (int i = 0; i < 11; ++i) {
        CAPTURE(i);
        volatile float red = static_cast<float>(i) * c.StepR;
        volatile float green = static_cast<float>(i) * c.StepG;
        volatile float blue = static_cast<float>(i) * c.StepB;
        red = red + 10.0f;
        green = green + 200.0f;
        blue = blue + 0.0f;
        CHECK(Is(c.GetRangeColor(i, start, end), static_cast<int>(red), static_cast<int>(green),
                 static_cast<int>(blue)));
    }
    CHECK(Is(c.GetRangeColor(0, start, end), 10, 200, 0));
}

TEST_CASE("the quotient of a ramp is formed in double and rounded to float")
{
    ClassRGB c(0, 0, 0);
    for (int count = 2; count < 3000; ++count) {
        c.SetColorHandle(count, ClassRGB(0, 0, 0), ClassRGB(255, 7, 1));
        REQUIRE(c.RangeStep == static_cast<float>(1.0 / (count - 1)));
        REQUIRE(c.StepG == 7.0f * c.RangeStep);
    }
}

TEST_CASE("a ramp index is clamped, and the last color can fall one short of the end")
{
    const ClassRGB start(5, 6, 7);
    ClassRGB       c(0, 0, 0);
    bool           fellShort = false;
    for (int count = 2; count <= 256; ++count) {
        CAPTURE(count);
        c.SetColorHandle(count, start, ClassRGB(255, 255, 255));
        CHECK(c.GetRangeColor(-5, start, start) == start);
        CHECK(c.GetRangeColor(INT_MIN, start, start) == start);
        const ClassRGB last = c.GetRangeColor(count - 1, start, start);
        CHECK(c.GetRangeColor(count + 10, start, start) == last);
        CHECK(c.GetRangeColor(INT_MAX, start, start) == last);
        CHECK(last.r >= 254);
        fellShort = fellShort || last.r == 254;
    }
    CHECK(fellShort);
}

TEST_CASE("the end given to a ramp's color is not used, the start is")
{
    ClassRGB c(0, 0, 0);
    c.SetColorHandle(3, ClassRGB(0, 0, 0), ClassRGB(100, 100, 100));
    CHECK(Is(c.GetRangeColor(1, ClassRGB(1, 2, 3), ClassRGB(9, 9, 9)), 51, 52, 53));
    CHECK(Is(c.GetRangeColor(2, ClassRGB(200, 200, 200), ClassRGB(9, 9, 9)), 44, 44, 44));    // wraps
}

TEST_CASE("a ramp of one color has steps that are not numbers, and asking it does no harm")
{
    const ClassRGB black(0, 0, 0);
    ClassRGB       c(0, 0, 0);
    c.SetColorHandle(1, black, ClassRGB(255, 0, 0));
    CHECK(std::isinf(c.RangeStep));
    CHECK(std::isinf(c.StepR));
    CHECK(std::isnan(c.StepG));
    c.GetRangeColor(0, black, black);
    c.GetRangeColor(5, black, black);
    c.SetColorHandle(INT_MIN, black, black);
    c.GetRangeColor(5, black, black);
    c.OutCanvas("nothing");
    c.OutCanvas(nullptr);
    CHECK(Is(c, 0, 0, 0));
}

TEST_CASE("a fresh table of colors has no list, although its count is 255")
{
    const ClassRGBArray table;
    CHECK(table.List == nullptr);
    CHECK(table.Count == 255);
    CHECK(offsetof(ClassRGBArray, List) == 0);
    CHECK(offsetof(ClassRGBArray, Count) == sizeof(void*));
}

TEST_CASE("a table of n colors has one more")
{
    ClassRGBArray table;
    table.GenerateRGBArray(0);
    CHECK(table.Count == 1);
    REQUIRE(table.List != nullptr);
    table.List[0].SetColor(1, 2, 3);
    table.GenerateRGBArray(9);    // in place of the one before
    CHECK(table.Count == 10);
    table.List[9].SetColor(1, 2, 3);
    CHECK(Is(table.List[9], 1, 2, 3));
    table.GenerateRGBArray(-1);
    CHECK(table.Count == 0);
    CHECK(table.List != nullptr);
}

TEST_CASE("a table of a negative count fails by the allocator's exception and has no list")
{
    for (const int n : {-2, INT_MIN, INT_MAX}) {
        CAPTURE(n);
        ClassRGBArray table;
        table.GenerateRGBArray(3);
        CHECK_THROWS_AS(table.GenerateRGBArray(n), std::bad_alloc);
        CHECK(table.List == nullptr);
        table.GenerateRGBArray(1);
        CHECK(table.Count == 2);
    }
}

TEST_CASE("assigning a table shares its list")
{
    ClassRGBArray table;
    table.GenerateRGBArray(2);
    ClassRGBArray other;
    other = table;
    CHECK(other.List == table.List);
    CHECK(other.Count == 3);
    other.List = nullptr;    // one of the two may be destroyed with it
}

TEST_CASE("a random color is three draws, red first, the later channels raised a little")
{
    ClassRGBArray table;
    for (unsigned seed = 1; seed < 300; ++seed) {
        CAPTURE(seed);
        std::srand(seed);
        const double red = std::rand();
        const double green = std::rand();
        const double blue = std::rand();
        std::srand(seed);
        const ClassRGB color = table.ZEKrandom_rgb();
        const auto     low = [](double v) { return static_cast<int>(static_cast<long long>(v) & 255); };
        REQUIRE(Is(color, low(red * 255.0 / 32768.0), low((green * 255.0 + 80.0) / 32768.0),
                   low((blue * 255.0 + 160.0) / 32768.0)));
    }
}

TEST_CASE("making a table moves the random sequence by three draws a color")
{
    ClassRGBArray table;
    for (const int n : {0, 1, 20}) {
        CAPTURE(n);
        std::srand(77);
        for (int i = 0; i < 3 * (n + 1); ++i)
            std::rand();
        const int expected = std::rand();
        std::srand(77);
        table.GenerateRGBArray(n);
        CHECK(std::rand() == expected);
    }
}

TEST_CASE("gray is the truncated sum of 0.587 g, 0.299 r and 0.114 b in this order")
{
    int  gray = -1;
    int  lower = 0;
    bool orderMatters = false;
    for (int v = 0; v < 256; ++v) {
        ColorToGrayPixel(v, v, v, gray);
        CHECK((gray == v || gray == v - 1));
        lower += gray == v - 1 ? 1 : 0;
    }
    CHECK(lower == 65);    // the three products do not always add up to the level itself
    for (int r = 0; r < 256; r += 3) {
        for (int g = 0; g < 256; g += 5) {
            for (int b = 0; b < 256; ++b) {
                volatile double sum = 0.587 * g;
                sum = sum + 0.299 * r;
                sum = sum + 0.114 * b;
                ColorToGrayPixel(r, g, b, gray);
                REQUIRE(gray == static_cast<int>(sum));
                volatile double other = 0.299 * r;
                other = other + 0.587 * g;
                other = other + 0.114 * b;
                volatile double third = 0.114 * b;
                third = third + 0.299 * r;
                third = third + 0.587 * g;
                orderMatters =
                    orderMatters || static_cast<int>(third) != gray || static_cast<int>(other) != gray;
            }
        }
    }
    CHECK(orderMatters);
    ColorToGrayPixel(INT_MAX, INT_MAX, INT_MAX, gray);
    CHECK(gray >= INT_MAX - 1);
    ColorToGrayPixel(-1, -1, -1, gray);
    CHECK(gray == 0);
}
