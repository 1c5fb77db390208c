#include "interchange/ImageJRoi.h"

#include "base/Failure.h"
#include "base/Utf8.h"
#include "document/KindRules.h"
#include "document/ObjectLooks.h"
#include "interchange/ImageJLayout.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <memory>

namespace vostel {

namespace {

constexpr double ThinnestLine = 0.1;    // px
constexpr double WidestLine = 100.0;
constexpr double HighestText = 1000.0;

// Numbers of a file that may end anywhere.
class RoiBytes {
public:
    RoiBytes(std::string_view bytes, std::string source) : Source(std::move(source)), Bytes(bytes) {}

    const std::string Source;

    [[noreturn]] void FailDamaged(const std::string& what) const
    {
        Fail(VOSTEL_BAD_FORMAT, Source + " is damaged: " + what);
    }
    [[noreturn]] void FailUnsupported(const std::string& what) const
    {
        Fail(VOSTEL_NOT_SUPPORTED, Source + " is " + what + ", which is not supported");
    }

    std::size_t Size() const { return Bytes.size(); }
    void        Need(std::size_t place, std::size_t count) const
    {
        if (place > Bytes.size() || count > Bytes.size() - place)
            FailDamaged("it ends early");
    }
    int Byte(std::size_t place) const
    {
        Need(place, 1);
        return static_cast<unsigned char>(Bytes[place]);
    }
    int           Short(std::size_t place) const { return Byte(place) << 8 | Byte(place + 1); }
    std::uint32_t Number(std::size_t place) const
    {
        return static_cast<std::uint32_t>(Short(place)) << 16 | static_cast<std::uint32_t>(Short(place + 2));
    }
    // A whole coordinate, which is negative only down to a bound.
    int Whole(std::size_t place) const
    {
        const int value = Short(place) >= 0x8000 ? Short(place) - 0x10000 : Short(place);
        return value < imagej::LowestWhole ? value + 0x10000 : value;
    }
    double Float(std::size_t place) const
    {
        const double value = std::bit_cast<float>(Number(place));
        if (!std::isfinite(value))
            FailDamaged("a number is not finite");
        return value;
    }
    // Text of 16-bit units, up to a zero if there is one.
    std::string Text(std::size_t place, std::size_t units) const
    {
        if (units > Size() / 2)
            FailDamaged("a text is longer than the file");
        Need(place, 2 * units);
        std::string text;
        for (std::size_t i = 0; i < units; ++i) {
            std::uint32_t character = static_cast<std::uint32_t>(Short(place + 2 * i));
            if (character == 0)
                break;
            if (character >> 10 == 0xD800 >> 10 && i + 1 < units) {
                const auto second = static_cast<std::uint32_t>(Short(place + 2 * (i + 1)));
                if (second >> 10 == 0xDC00 >> 10) {
                    character = 0x10000 + ((character & 0x3FF) << 10) + (second & 0x3FF);
                    ++i;
                }
            }
            AppendUtf8(text, character);
        }
        return text;
    }

private:
    std::string_view Bytes;
};

class RoiReading {
public:
    RoiReading(const RoiBytes& file, Tally& ignored)
        : File(file), Ignored(ignored), Version(File.Short(imagej::at::Version)),
          Type(File.Byte(imagej::at::Type)), Subtype(File.Short(imagej::at::Subtype)),
          Options(File.Short(imagej::at::Options)), Second(File.Number(imagej::at::SecondHeader))
    {
        File.Need(0, imagej::at::HeaderSize);
        if (Version < imagej::FirstSecondHeader)
            Subtype = Options = 0;
        if (Second > 0)
            File.Need(Second, imagej::at2::LeastSize);
    }

    FileObject Read(const std::string& fallbackName)
    {
        RefuseUnsupported();
        TakeShape();
        TakeName(fallbackName);
        TakeStyle();
        TellPosition();
        return std::move(Object);
    }

private:
    const RoiBytes& File;
    Tally&          Ignored;
    int             Version;
    int             Type;
    int             Subtype;
    int             Options;
    std::size_t     Second;    // place of the second header, 0 for none
    FileObject      Object;
    double          TextHeight = 0.0;    // 0: no text

    void RefuseUnsupported() const
    {
        if (Type == imagej::Rectangle && File.Number(imagej::at::ShapeSize) != 0)
            File.FailUnsupported("a composite shape");
        if (Subtype == imagej::Image)
            File.FailUnsupported("an image");
        if ((Options & imagej::SplineFit) != 0 && Type != imagej::Rectangle && Type != imagej::Oval)
            File.FailUnsupported("a fitted spline");
    }

    bool HasFractions() const
    {
        return (Options & imagej::SubPixel) != 0 && Version >= imagej::FirstSubPixel;
    }

    void TakeShape()
    {
        switch (Type) {
        case imagej::Rectangle:
            if (Subtype == imagej::Text)
                TakeText();
            else
                TakeBox();
            return;
        case imagej::Oval:
            TakeBox();
            Object.Flags = VOSTEL_ELLIPSE;
            return;
        case imagej::Line:
            Object.Kind = Subtype == imagej::Arrow ? VOSTEL_ARROW : VOSTEL_LENGTH;
            TakeEnds();
            return;
        case imagej::Polygon:
            Object.Kind = VOSTEL_POLYGON;
            return TakePoints(0.0);
        case imagej::Freehand:
            Object.Kind = Subtype == imagej::RotatedRectangle ? VOSTEL_POLYGON : VOSTEL_FREE_REGION;
            return TakePoints(0.0);
        case imagej::Traced:
            Object.Kind = VOSTEL_FREE_REGION;
            return TakePoints(0.0);
        case imagej::FreeLine:
            Object.Kind = VOSTEL_FREE_STROKES;
            return TakePoints(imagej::PixelCentre);
        case imagej::Polyline:
            Object.Kind = VOSTEL_POLYLINE;
            return TakePoints(imagej::PixelCentre);
        case imagej::Angle:
            Object.Kind = VOSTEL_ANGLE;
            return TakePoints(imagej::PixelCentre);
        case imagej::Point:
            Object.Kind = VOSTEL_POINTS;
            return TakePoints(imagej::PixelCentre);
        default:
            File.FailDamaged("there is no type " + std::to_string(Type));
        }
    }

    // A box with fractions stands for the whole pixels that it touches.
    void TakeBox()
    {
        Object.Kind = VOSTEL_RECTANGLE;
        Object.Points = {Corner(imagej::at::Left, imagej::at::Top),
                         Corner(imagej::at::Right, imagej::at::Bottom)};
        if (Subtype != imagej::Text && File.Short(imagej::at::ArcSize) > 0)
            File.FailUnsupported("a rounded rectangle");
    }
    ImagePoint Corner(std::size_t x, std::size_t y) const
    {
        return {static_cast<double>(File.Whole(x)), static_cast<double>(File.Whole(y))};
    }

    void TakeEnds()
    {
        for (const std::size_t place : {imagej::at::Ends, imagej::at::Ends + 8})
            Object.Points.emplace_back(File.Float(place) + imagej::PixelCentre,
                                       File.Float(place + 4) + imagej::PixelCentre);
        if (Subtype == imagej::Arrow && (Options & imagej::DoubleHeaded) != 0)
            ++Ignored["second head of an arrow ignored"];
    }

    void TakePoints(double shift)
    {
        std::size_t count = static_cast<std::size_t>(File.Short(imagej::at::Count));
        if (count == 0)
            count = File.Number(imagej::at::LargeCount);
        constexpr std::size_t place = imagej::at::HeaderSize;
        if (count > (File.Size() - place) / 4)
            File.FailDamaged("it has fewer points than it says");
        const bool fractions = HasFractions();
        if (fractions)
            File.Need(place, 12 * count);
        const PointCounts counts = PointCountsOf(Object.Kind);
        if (count < counts.Least || count > counts.Most)
            File.FailDamaged("a selection of its type has another number of points than " +
                             std::to_string(count));
        const ImagePoint corner = Corner(imagej::at::Left, imagej::at::Top);
        Object.Points.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t x = place + (fractions ? 4 * count + 4 * i : 2 * i);
            const std::size_t y = place + (fractions ? 8 * count + 4 * i : 2 * count + 2 * i);
            const ImagePoint  point = fractions
                                          ? ImagePoint(File.Float(x), File.Float(y))
                                          : ImagePoint(corner.x + File.Short(x), corner.y + File.Short(y));
            Object.Points.emplace_back(point.x + shift, point.y + shift);
        }
    }

    void TakeText()
    {
        constexpr std::size_t place = imagej::at::HeaderSize;
        Object.Kind = VOSTEL_TEXT;
        Object.Points = {Corner(imagej::at::Left, imagej::at::Top)};
        if (HasFractions() && Version >= imagej::FirstSubPixelBox)
            Object.Points = {{File.Float(imagej::at::Ends), File.Float(imagej::at::Ends + 4)}};
        const std::size_t fontLength = File.Number(place + 8);
        const std::size_t length = File.Number(place + 12);
        if (fontLength > File.Size() / 2)
            File.FailDamaged("the name of a font is longer than the file");
        TextHeight = File.Number(place);
        Object.Text = File.Text(place + 16 + 2 * fontLength, length);
        if (Object.Text.ends_with('\n'))
            Object.Text.pop_back();
    }

    void TakeName(const std::string& fallbackName)
    {
        if (Second == 0) {
            Object.Name = fallbackName;
            return;
        }
        const std::size_t length = File.Number(Second + imagej::at2::NameLength);
        if (length > 0)
            Object.Name = File.Text(File.Number(Second + imagej::at2::NamePlace), length);
    }

    double StrokeWidth() const
    {
        if (Second > 0 && File.Size() - Second >= imagej::at2::StrokeWidth + 4) {
            if (const double width = File.Float(Second + imagej::at2::StrokeWidth); width > 0.0)
                return width;
        }
        return Type == imagej::Point ? 0.0 : File.Short(imagej::at::StrokeWidth);
    }

    // Where the file says nothing, as a new object looks.
    void TakeStyle()
    {
        const std::uint32_t line = File.Number(imagej::at::StrokeColor);
        const std::uint32_t fill = File.Number(imagej::at::FillColor);
        const double        width = Version >= imagej::FirstSecondHeader ? StrokeWidth() : 0.0;
        if (line == 0 && fill >> 24 == 0 && width <= 0.0 && TextHeight <= 0.0)
            return;
        VostelStyle style = StyleOf(*MakeObject(AddedClass(Object.Kind)));
        if (line != 0)
            style.line_color = line & 0xFFFFFF;
        if (IsRegion(Object.Kind))
            style.fill_color = fill;
        if (width > 0.0)
            style.line_width = std::clamp(width, ThinnestLine, WidestLine);
        if (TextHeight > 0.0)
            style.text_height = std::clamp(TextHeight, 1.0, HighestText);
        Object.Style = style;
    }

    void TellPosition()
    {
        bool placed = File.Number(imagej::at::Position) != 0;
        if (Second > 0) {
            for (const std::size_t part : {imagej::at2::Channel, imagej::at2::Slice, imagej::at2::Frame})
                placed = placed || File.Number(Second + part) != 0;
        }
        if (placed)
            ++Ignored["position in a stack ignored"];
    }
};

}

bool IsImageJRoi(std::string_view bytes)
{
    return bytes.starts_with(imagej::Signature);
}

FileObject ObjectOfImageJRoi(std::string_view bytes, const std::string& source,
                             const std::string& fallbackName, Tally& ignored)
{
    const RoiBytes file(bytes, source);
    if (!IsImageJRoi(bytes))
        file.FailDamaged("it does not begin as a selection of ImageJ does");
    return RoiReading(file, ignored).Read(fallbackName);
}

}
