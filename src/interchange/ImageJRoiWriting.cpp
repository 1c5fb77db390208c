#include "interchange/ImageJRoi.h"

#include "base/Utf8.h"
#include "document/KindRules.h"
#include "document/ObjectLooks.h"
#include "geometry/RoundedOutline.h"
#include "interchange/ImageJLayout.h"
#include "interchange/RegionKinds.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace vostel {

namespace {

// Within it floats hold halves of whole numbers.
constexpr double FarthestPlace = 0x1p23;    // image px

double ToFloat(double value)
{
    return static_cast<float>(value);
}

std::vector<std::uint16_t> Utf16Of(const std::string& text)
{
    std::vector<std::uint16_t> units;
    for (const wchar_t wide : WideOf(text).value_or(std::wstring())) {
        const auto character = static_cast<std::uint32_t>(wide);
        if (character < 0x10000) {
            units.push_back(static_cast<std::uint16_t>(character));
        } else {
            units.push_back(static_cast<std::uint16_t>(0xD800 + ((character - 0x10000) >> 10)));
            units.push_back(static_cast<std::uint16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
        }
    }
    return units;
}

bool IsWholePlace(double value)
{
    return value == std::floor(value) && value >= imagej::LowestWhole && value <= imagej::HighestWhole;
}

// A file under construction. Bytes that nobody sets are 0.
class RoiFile {
public:
    RoiFile(const FileObject& object, imagej::Type type) : Bytes(imagej::at::HeaderSize, '\0')
    {
        Bytes.replace(0, imagej::Signature.size(), imagej::Signature);
        PutShort(imagej::at::Version, imagej::WrittenVersion);
        Bytes[imagej::at::Type] = static_cast<char>(type);
        if (!object.Style)
            return;
        StrokeWidth = static_cast<float>(object.Style->line_width);
        if (type != imagej::Point)    // there it is the size of the marks
            PutShort(imagej::at::StrokeWidth, static_cast<int>(std::lround(object.Style->line_width)));
        Put(imagej::at::StrokeColor, Opaque | object.Style->line_color);
        if (IsRegion(object.Kind) && object.Style->fill_color >> 24 != 0)
            Put(imagej::at::FillColor, object.Style->fill_color);
    }

    void SetSubtype(imagej::Subtype subtype) { PutShort(imagej::at::Subtype, subtype); }
    void AddOption(int option)
    {
        Options |= option;
        PutShort(imagej::at::Options, Options);
    }
    void SetBox(double left, double top, double right, double bottom)
    {
        PutShort(imagej::at::Left, Short(std::floor(left)));
        PutShort(imagej::at::Top, Short(std::floor(top)));
        PutShort(imagej::at::Right, Short(std::ceil(right)));
        PutShort(imagej::at::Bottom, Short(std::ceil(bottom)));
    }
    void SetEnds(double a, double b, double c, double d)
    {
        std::size_t place = imagej::at::Ends;
        for (const double value : {a, b, c, d}) {
            PutFloat(place, value);
            place += 4;
        }
    }

    // In ImageJ's own coordinates: as 16 bits from the corner of the box, and where that is not enough, as
    // floats too.
    void AppendPoints(const std::vector<ImagePoint>& points)
    {
        const Bounds box = BoundsOf(points);
        SetBox(box.Left, box.Top, box.Right, box.Bottom);
        const std::size_t count = points.size();
        if (count <= 0xFFFF)
            PutShort(imagej::at::Count, static_cast<int>(count));
        else
            Put(imagej::at::LargeCount, static_cast<std::uint32_t>(count));
        const double left = Short(std::floor(box.Left));
        const double top = Short(std::floor(box.Top));
        for (const ImagePoint& point : points)
            AppendShort(Offset(point.x - left));
        for (const ImagePoint& point : points)
            AppendShort(Offset(point.y - top));
        const bool whole = count <= 0xFFFF && std::all_of(points.begin(), points.end(), [](ImagePoint p) {
                               return IsWholePlace(p.x) && IsWholePlace(p.y);
                           });
        if (whole)
            return;
        AddOption(imagej::SubPixel);
        for (const ImagePoint& point : points)
            AppendFloat(point.x);
        for (const ImagePoint& point : points)
            AppendFloat(point.y);
    }

    void AppendText(const std::string& text, double height)
    {
        const std::vector<std::uint16_t> font = Utf16Of("SansSerif");
        const std::vector<std::uint16_t> units = Utf16Of(text);
        Append(static_cast<std::uint32_t>(std::lround(height)));
        Append(0);    // plain, at the left
        Append(static_cast<std::uint32_t>(font.size()));
        Append(static_cast<std::uint32_t>(units.size()));
        AppendUnits(font);
        AppendUnits(units);
        Append(0);    // angle
    }

    std::string Finish(const std::string& name)
    {
        const std::vector<std::uint16_t> units = Utf16Of(name);
        const std::size_t                second = Bytes.size();
        Put(imagej::at::SecondHeader, static_cast<std::uint32_t>(second));
        Bytes.append(imagej::at2::HeaderSize, '\0');
        Put(second + imagej::at2::NamePlace, static_cast<std::uint32_t>(Bytes.size()));
        Put(second + imagej::at2::NameLength, static_cast<std::uint32_t>(units.size()));
        PutFloat(second + imagej::at2::StrokeWidth, StrokeWidth);
        AppendUnits(units);
        return std::move(Bytes);
    }

private:
    static constexpr std::uint32_t Opaque = 0xFF000000;

    std::string Bytes;
    int         Options = 0;
    double      StrokeWidth = 0.0;

    static int Short(double value)
    {
        return static_cast<int>(std::clamp(value, double(imagej::LowestWhole), double(imagej::HighestWhole)));
    }
    static int Offset(double value) { return static_cast<int>(std::clamp(value, 0.0, 65535.0)); }

    void PutShort(std::size_t place, int value)
    {
        Bytes[place] = static_cast<char>(value >> 8);
        Bytes[place + 1] = static_cast<char>(value);
    }
    void Put(std::size_t place, std::uint32_t value)
    {
        PutShort(place, static_cast<int>(value >> 16));
        PutShort(place + 2, static_cast<int>(value & 0xFFFF));
    }
    void PutFloat(std::size_t place, double value)
    {
        Put(place, std::bit_cast<std::uint32_t>(static_cast<float>(value)));
    }
    void AppendShort(int value)
    {
        Bytes.append(2, '\0');
        PutShort(Bytes.size() - 2, value);
    }
    void Append(std::uint32_t value)
    {
        Bytes.append(4, '\0');
        Put(Bytes.size() - 4, value);
    }
    void AppendFloat(double value) { Append(std::bit_cast<std::uint32_t>(static_cast<float>(value))); }
    void AppendUnits(const std::vector<std::uint16_t>& units)
    {
        for (const std::uint16_t unit : units)
            AppendShort(unit);
    }
};

std::string RoiOfBox(const FileObject& object, const Bounds& box)
{
    RoiFile file(object, (object.Flags & VOSTEL_ELLIPSE) != 0 ? imagej::Oval : imagej::Rectangle);
    file.SetBox(box.Left, box.Top, box.Right, box.Bottom);
    return file.Finish(object.Name);
}

std::string RoiOfRegion(const FileObject& object, imagej::Type type, ImageSize image, Tally& changed)
{
    const RoundedOutline rounded =
        RoundOutline(ExactOutline(object), OutlineTolerance, ToFloat, image.Width, image.Height);
    if (!rounded.CoversTheSame)
        ++changed["region with other pixels at its edge"];
    RoiFile file(object, type);
    file.AppendPoints(rounded.Corners);
    return file.Finish(object.Name);
}

bool IsBox(const Bounds& box)
{
    return IsWholePlace(box.Left) && IsWholePlace(box.Top) && IsWholePlace(box.Right) &&
           IsWholePlace(box.Bottom) && box.Left < box.Right && box.Top < box.Bottom;
}

// The box itself where ImageJ takes it for the same pixels, else a polygon of them.
std::string RoiOfRectangle(const FileObject& object, ImageSize image, Tally& changed)
{
    const Bounds box = BoundsOf(object.Points);
    if (IsBox(box))
        return RoiOfBox(object, box);
    const bool ellipse = (object.Flags & VOSTEL_ELLIPSE) != 0;
    ++changed[ellipse ? "ellipse as polygon" : "rectangle as polygon"];
    return RoiOfRegion(object, ellipse ? imagej::Freehand : imagej::Polygon, image, changed);
}

std::string RoiOfPoints(const FileObject& object, imagej::Type type, std::size_t begin, std::size_t end)
{
    std::vector<ImagePoint> points;
    for (std::size_t i = begin; i < end; ++i)
        points.emplace_back(ToFloat(object.Points[i].x - imagej::PixelCentre),
                            ToFloat(object.Points[i].y - imagej::PixelCentre));
    RoiFile file(object, type);
    file.AppendPoints(points);
    return file.Finish(object.Name);
}

std::string RoiOfLine(const FileObject& object)
{
    const ImagePoint a(object.Points[0].x - imagej::PixelCentre, object.Points[0].y - imagej::PixelCentre);
    const ImagePoint b(object.Points[1].x - imagej::PixelCentre, object.Points[1].y - imagej::PixelCentre);
    RoiFile          file(object, imagej::Line);
    if (object.Kind == OverlayArrow)
        file.SetSubtype(imagej::Arrow);
    file.AddOption(imagej::SubPixel);
    file.SetBox(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y));
    file.SetEnds(a.x, a.y, b.x, b.y);
    return file.Finish(object.Name);
}

std::string RoiOfText(const FileObject& object)
{
    const double     height = object.Style ? object.Style->text_height : 18.0;
    const ImagePoint corner = object.Points[0];
    RoiFile          file(object, imagej::Rectangle);
    file.SetSubtype(imagej::Text);
    file.SetBox(corner.x, corner.y, corner.x + height, corner.y + height);    // ImageJ measures the text anew
    if (!IsWholePlace(corner.x) || !IsWholePlace(corner.y)) {
        file.AddOption(imagej::SubPixel);
        file.SetEnds(corner.x, corner.y, height, height);
    }
    file.AppendText(object.Text, height);
    return file.Finish(object.Name);
}

std::vector<std::string> RoisOfStrokes(const FileObject& object, Tally& changed)
{
    std::vector<std::string> files;
    for (std::size_t i = 0; i < object.StrokeStarts.size() || i == 0; ++i) {
        const bool isLast = i + 1 >= object.StrokeStarts.size();
        const auto begin = object.StrokeStarts.empty() ? 0 : static_cast<std::size_t>(object.StrokeStarts[i]);
        const auto end = isLast ? object.Points.size() : static_cast<std::size_t>(object.StrokeStarts[i + 1]);
        if (end - begin >= 2)
            files.push_back(RoiOfPoints(object, imagej::FreeLine, begin, end));
    }
    if (files.size() > 1)
        ++changed["strokes as one line each"];
    return files;
}

bool IsHeld(const ImagePoint& point)
{
    return std::abs(point.x) <= FarthestPlace && std::abs(point.y) <= FarthestPlace;
}

// What of an object's kind and state ImageJ has nothing for; empty for nothing.
std::string MissingOf(const FileObject& object)
{
    if (object.Kind == OverlayAngle4Pts)
        return "angle of two lines";
    if (object.Kind == OverlayPanel || object.Kind == OverlayNeighbours)
        return "panel";
    if (!IsWhole(object))
        return "unfinished object";
    if (!std::all_of(object.Points.begin(), object.Points.end(), IsHeld))
        return "object beyond 8388608 px";
    return {};
}

}

ImageJRois ImageJRoisOf(const FileObject& object, ImageSize image, Tally& changed)
{
    if (std::string missing = MissingOf(object); !missing.empty())
        return {{}, std::move(missing)};
    if ((object.Flags & (VOSTEL_HIDDEN | VOSTEL_LOCKED | VOSTEL_NO_LABEL)) != 0)
        ++changed["flags of an object"];
    const std::size_t count = object.Points.size();
    switch (object.Kind) {
    case OverlayRect:
    case OverlayCustomRect:
        return {{RoiOfRectangle(object, image, changed)}, {}};
    case OverlayPolygon:
        return {{RoiOfRegion(object, imagej::Polygon, image, changed)}, {}};
    case OverlaySpline:
        ++changed["spline as polygon"];
        return {{RoiOfRegion(object, imagej::Polygon, image, changed)}, {}};
    case OverlayOneStroke:
        return {{RoiOfRegion(object, imagej::Freehand, image, changed)}, {}};
    case OverlayTextRect:
        return {{RoiOfText(object)}, {}};
    case OverlayMStroke:
        return {RoisOfStrokes(object, changed), {}};
    case OverlayAngle3Pts:
        return {{RoiOfPoints(object, imagej::Angle, 0, count)}, {}};
    case OverlayPoints:
        return {{RoiOfPoints(object, imagej::Point, 0, count)}, {}};
    case OverlayPolyline:
        return {{RoiOfPoints(object, imagej::Polyline, 0, count)}, {}};
    case OverlayLineProfile:
        ++changed["profile as line"];
        return {{RoiOfLine(object)}, {}};
    default:
        return {{RoiOfLine(object)}, {}};
    }
}

}
