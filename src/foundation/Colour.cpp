#include "vostel/Colour.h"

#include "base/Truncate.h"
#include "foundation/ArrayLength.h"

#include <cstdlib>

using namespace vostel;

namespace {

std::uint8_t LowByte(int v)
{
    return static_cast<std::uint8_t>(v);
}

int Distance(int a, int b)
{
    return a > b ? a - b : b - a;
}

}

void StructRGBAAssign(tagStructRGBA& c, int v)
{
    c.b = c.g = c.r = LowByte(v);
}

void StructRGBAAssign(tagStructRGBA& c, tagStructRGBA& from)
{
    c.b = from.b;
    c.g = from.g;
    c.r = from.r;
}

void StructRGBAMul(tagStructRGBA& c, float& f)
{
    c.b = TruncToByte(static_cast<float>(c.b) * f);
    c.g = TruncToByte(static_cast<float>(c.g) * f);
    c.r = TruncToByte(static_cast<float>(c.r) * f);
}

void StructRGBAAdd(tagStructRGBA& c, tagStructRGBA& add)
{
    c.b = LowByte(c.b + add.b);
    c.g = LowByte(c.g + add.g);
    c.r = LowByte(c.r + add.r);
}

ClassRGB::ClassRGB(int red, int green, int blue)
    : RangeCount(0), RangeStep(0.0f), StepR(0.0f), StepG(0.0f), StepB(0.0f)
{
    SetColor(red, green, blue);
}

ClassRGB& ClassRGB::operator=(ClassRGB other)
{
    b = other.b;
    g = other.g;
    r = other.r;
    RangeCount = other.RangeCount;
    RangeStep = other.RangeStep;
    StepR = other.StepR;
    StepG = other.StepG;
    StepB = other.StepB;
    return *this;
}

void ClassRGB::SetColor(int red, int green, int blue)
{
    r = LowByte(red);
    g = LowByte(green);
    b = LowByte(blue);
}

bool ClassRGB::operator==(ClassRGB other) const
{
    return r == other.r && g == other.g && b == other.b;
}

int ClassRGB::GetDif(ClassRGB other) const
{
    return Distance(r, other.r) + Distance(g, other.g) + Distance(b, other.b);
}

void ClassRGB::SetColorHandle(int count, ClassRGB start, ClassRGB end)
{
    RangeCount = count;
    RangeStep = static_cast<float>(1.0 / static_cast<double>(WrapSub(count, 1)));
    StepR = static_cast<float>(end.r - start.r) * RangeStep;
    StepG = static_cast<float>(end.g - start.g) * RangeStep;
    StepB = static_cast<float>(end.b - start.b) * RangeStep;
}

ClassRGB ClassRGB::GetRangeColor(int index, ClassRGB start, ClassRGB) const
{
    if (index < 0)
        index = 0;
    if (index > WrapSub(RangeCount, 1))
        index = WrapSub(RangeCount, 1);
    const float at = static_cast<float>(index);
    ClassRGB    color(0, 0, 0);
    color.r = TruncToByte(at * StepR + static_cast<float>(start.r));
    color.g = TruncToByte(at * StepG + static_cast<float>(start.g));
    color.b = TruncToByte(at * StepB + static_cast<float>(start.b));
    return color;
}

void ClassRGB::OutCanvas(const char*) const {}

void ClassRGB::SetBrown()
{
    SetColor(128, 42, 42);
}
void ClassRGB::SetChocolate()
{
    SetColor(210, 105, 30);
}
void ClassRGB::SetOrange()
{
    SetColor(255, 128, 0);
}
void ClassRGB::SetTurky()
{
    SetColor(0, 199, 140);
}
void ClassRGB::WindowsGray()
{
    SetColor(128, 128, 128);
}
void ClassRGB::Violet()
{
    SetColor(160, 32, 240);
}
void ClassRGB::GrassGreen()
{
    SetColor(124, 252, 0);
}
void ClassRGB::ForestGreen()
{
    SetColor(34, 139, 34);
}
void ClassRGB::Mentha()
{
    SetColor(189, 252, 201);
}
void ClassRGB::IndiaRed()
{
    SetColor(176, 23, 31);
}
void ClassRGB::BrickRed()
{
    SetColor(156, 102, 31);
}
void ClassRGB::DeepRed()
{
    SetColor(255, 0, 255);
}
void ClassRGB::OrangeRed()
{
    SetColor(255, 69, 0);
}
void ClassRGB::Banana()
{
    SetColor(227, 207, 87);
}
void ClassRGB::Red()
{
    SetColor(255, 0, 0);
}
void ClassRGB::Green()
{
    SetColor(0, 255, 0);
}
void ClassRGB::Blue()
{
    SetColor(0, 0, 255);
}
void ClassRGB::White()
{
    SetColor(255, 255, 255);
}
void ClassRGB::Black()
{
    SetColor(0, 0, 0);
}

ClassRGBArray::~ClassRGBArray()
{
    delete[] List;
}

void ClassRGBArray::GenerateRGBArray(int n)
{
    delete[] List;
    List = nullptr;
    Count = WrapAdd(n, 1);
    if (Count < 0)
        FailArrayLength();
    List = new ClassRGB[static_cast<std::size_t>(Count)];
    // The draws are dropped on purpose: hosts rely on how far the random sequence has moved.
    for (int i = 0; i < Count; ++i)
        ZEKrandom_rgb();
}

ClassRGB ClassRGBArray::ZEKrandom_rgb()
{
    // The factor belongs to a generator of 15 bits; a wider one only wraps in the byte.
    constexpr double Step = 3.0517578125e-5;
    ClassRGB         color(0, 0, 0);
    color.r = TruncToByte(std::rand() * 255.0 * Step);
    color.g = TruncToByte((std::rand() * 255.0 + 80.0) * Step);
    color.b = TruncToByte((std::rand() * 255.0 + 160.0) * Step);
    return color;
}

void ColorToGrayPixel(int r, int g, int b, int& gray)
{
    gray = TruncToInt(0.587 * g + 0.299 * r + 0.114 * b);
}
