#include "interchange/GeoJson.h"

#include "base/Failure.h"
#include "document/KindRules.h"
#include "geometry/Keyhole.h"
#include "interchange/RegionKinds.h"
#include "interchange/RegionReading.h"
#include "interchange/StyleProperties.h"

#include <algorithm>
#include <array>
#include <set>

namespace vostel {

namespace {

using Positions = std::vector<ImagePoint>;

constexpr const char* PixelRule = "image pixels, y downwards, pixel (0,0) covers 0..1";

struct NamedFlag {
    const char*   Name;
    std::uint32_t Flag;
};
constexpr std::array FlagProperties = {NamedFlag{"hidden", VOSTEL_HIDDEN}, NamedFlag{"locked", VOSTEL_LOCKED},
                                       NamedFlag{"no-label", VOSTEL_NO_LABEL}};

Json PositionOf(ImagePoint point)
{
    return Json::array({point.x, point.y});
}

Json PositionsOf(const Positions& points)
{
    Json list = Json::array();
    for (const ImagePoint& point : points)
        list.push_back(PositionOf(point));
    return list;
}

Json GeometryOf(const char* type, Json coordinates)
{
    return JsonObject({{"type", type}, {"coordinates", std::move(coordinates)}});
}

// The first position stands at the end once more. With y upwards rings of polygons go counterclockwise and
// those of holes clockwise.
Json ClosedRing(Ring ring, bool hole)
{
    const double area = SignedArea(ring);
    if (hole ? area > 0.0 : area < 0.0)
        std::reverse(ring.begin() + 1, ring.end());
    ring.push_back(ring.front());
    return PositionsOf(ring);
}

bool IsCurved(const FileObject& object)
{
    return object.Kind == VOSTEL_SPLINE || (object.Flags & VOSTEL_ELLIPSE) != 0;
}

Json PolygonOf(const FileObject& region)
{
    Json rings = Json::array();
    for (Ring& ring : IsCurved(region) ? std::vector<Ring>{region.Outline} : SplitRings(region.Outline))
        rings.push_back(ClosedRing(std::move(ring), !rings.empty()));
    return GeometryOf("Polygon", std::move(rings));
}

Json StrokesOf(const FileObject& object)
{
    Json        lines = Json::array();
    std::size_t begin = 0;
    for (std::size_t stroke = 1; begin < object.Points.size(); ++stroke) {
        const std::size_t end = stroke < object.StrokeStarts.size()
                                    ? static_cast<std::size_t>(object.StrokeStarts[stroke])
                                    : object.Points.size();
        Json              line = Json::array();
        for (std::size_t i = begin; i < end; ++i)
            line.push_back(PositionOf(object.Points[i]));
        if (line.size() == 1)    // a dot: a line has two positions or more
            line.push_back(line[0]);
        lines.push_back(std::move(line));
        begin = end;
    }
    return GeometryOf("MultiLineString", std::move(lines));
}

Json GeometryOf(const FileObject& object)
{
    if (IsRegion(object.Kind))
        return PolygonOf(object);
    switch (object.Kind) {
    case VOSTEL_FREE_STROKES:
        return StrokesOf(object);
    case VOSTEL_ANGLE_LINES: {
        const Positions& p = object.Points;
        return GeometryOf("MultiLineString",
                          Json::array({PositionsOf({p[0], p[1]}), PositionsOf({p[2], p[3]})}));
    }
    case VOSTEL_TEXT:
        return GeometryOf("Point", PositionOf(object.Points[0]));
    case VOSTEL_POINTS:
        if (object.Points.size() == 1)
            return GeometryOf("Point", PositionOf(object.Points[0]));
        return GeometryOf("MultiPoint", PositionsOf(object.Points));
    default:
        return GeometryOf("LineString", PositionsOf(object.Points));
    }
}

Json PropertiesOf(const FileObject& object)
{
    Json properties = JsonObject({{"name", object.Name}, {"kind", KindWord(object)}});
    if (IsRegion(object.Kind))
        properties["label"] = object.Label;
    if (object.Kind == VOSTEL_TEXT)
        properties["text"] = object.Text;
    if (IsCurved(object))
        properties["points"] = FlatPoints(object.Points);    // flat, which other programs keep
    for (const NamedFlag& flag : FlagProperties) {
        if ((object.Flags & flag.Flag) != 0)
            properties[flag.Name] = true;
    }
    if (object.Style)
        PutStyle(*object.Style, properties);
    return properties;
}

// Reads one file. Names of what is wrong are those of the RFC, with the number of the feature.
class Reader {
public:
    Reader(ImageSize image, Remarks& remarks) : Image(image), Told(remarks) {}

    std::vector<FileObject> Read(const Json& top)
    {
        const std::string type = TypeOf(top);
        if (type == "FeatureCollection") {
            if (const Json* const size = Member(top, "image"))
                CompareSize(*size, Image, Told);
            for (const Json& feature : ArrayIn(top, "features")) {
                Where = "feature " + std::to_string(++Number) + ": ";
                if (TypeOf(feature) != "Feature")
                    Fail(VOSTEL_BAD_FORMAT, Where + "it is not of the type Feature");
                TakeFeature(feature);
            }
        } else if (type == "Feature") {
            TakeFeature(top);
        } else {
            TakeThing(top, Json::object());
        }
        ShareLabels(Objects, Things);
        TellIgnored();
        return std::move(Objects);
    }

private:
    // What the properties of a feature say of its objects.
    struct Saying {
        std::string Kind;
        Positions   Points;
        Json        Properties;
        FileObject  Model;
    };

    ImageSize               Image;
    Remarks&                Told;
    std::vector<FileObject> Objects;
    std::string             Where;
    std::size_t             Number = 0;
    std::set<std::string>   Ignored;
    bool                    HasHeights = false;
    std::vector<PartRange>  Things;    // of each feature

    std::string TypeOf(const Json& value) const
    {
        const Json* const type = Member(value, "type");
        if (!type)
            Fail(VOSTEL_BAD_FORMAT, Where + "an object has no type");
        return TextValue(*type, Where + "type");
    }
    const Json& ArrayIn(const Json& value, const char* name) const
    {
        const Json* const found = Member(value, name);
        if (!found || !found->is_array())
            Fail(VOSTEL_BAD_FORMAT, Where + name + " is not an array");
        return *found;
    }

    void TakeFeature(const Json& feature)
    {
        const Json* const geometry = Member(feature, "geometry");
        const Json* const properties = Member(feature, "properties");
        if (!geometry || geometry->is_null())
            Told.LeftOut("empty feature");
        else
            TakeThing(*geometry, properties && properties->is_object() ? *properties : Json::object());
    }

    void TakeThing(const Json& geometry, const Json& properties)
    {
        const Saying      said = SayingOf(properties);
        const std::size_t first = Objects.size();
        TakeGeometry(geometry, said);
        Things.push_back({first, Objects.size()});
        if (Objects.size() == first)
            Told.LeftOut("empty feature");
    }

    Saying SayingOf(const Json& properties)
    {
        Saying said;
        said.Properties = properties;
        for (const auto& [name, value] : properties.items()) {
            if (!value.is_null() && !TakeProperty(name, value, said))
                Ignored.insert(name);
        }
        return said;
    }

    // False for what means nothing here.
    static bool TakeProperty(const std::string& name, const Json& value, Saying& said)
    {
        if (name == "name" && value.is_string())
            said.Model.Name = value.get<std::string>();
        else if (name == "text" && value.is_string())
            said.Model.Text = value.get<std::string>();
        else if (name == "kind" && value.is_string())
            said.Kind = value.get<std::string>();
        else if (name == "label" && value.is_number_integer() && value > 0 && value <= INT32_MAX)
            said.Model.Label = value.get<int>();
        else if (name == "points")
            return TakePoints(value, said.Points);
        else
            return TakeFlag(name, value, said.Model.Flags) || IsStyleProperty(name);
        return true;
    }

    static bool TakeFlag(const std::string& name, const Json& value, std::uint32_t& flags)
    {
        for (const NamedFlag& flag : FlagProperties) {
            if (name != flag.Name || !value.is_boolean())
                continue;
            if (value.get<bool>())
                flags |= flag.Flag;
            return true;
        }
        return false;
    }

    static bool TakePoints(const Json& value, Positions& points)
    {
        if (!value.is_array() || value.size() % 2 != 0 ||
            !std::all_of(value.begin(), value.end(), [](const Json& number) { return number.is_number(); }))
            return false;
        for (std::size_t i = 0; i < value.size(); i += 2)
            points.push_back({value[i].get<double>(), value[i + 1].get<double>()});
        return true;
    }

    void TakeGeometry(const Json& geometry, const Saying& said)
    {
        const std::string type = TypeOf(geometry);
        if (type == "GeometryCollection") {
            for (const Json& member : ArrayIn(geometry, "geometries"))
                TakeGeometry(member, said);
            return;
        }
        const bool known = type == "Point" || type == "MultiPoint" || type == "LineString" ||
                           type == "MultiLineString" || type == "Polygon" || type == "MultiPolygon";
        if (!known)
            Fail(VOSTEL_BAD_FORMAT, Where + "there is no type \"" + type + "\" of geometries");
        const Json& coordinates = ArrayIn(geometry, "coordinates");
        if (coordinates.empty())
            return;
        if (type == "Point")
            TakeMarks({PositionAt(coordinates)}, said);
        else if (type == "MultiPoint")
            TakeMarks(PositionsAt(coordinates), said);
        else if (type == "LineString")
            TakeLines({PositionsAt(coordinates)}, said);
        else if (type == "MultiLineString")
            TakeLines(ListsAt(coordinates), said);
        else if (type == "Polygon")
            TakePolygon(ListsAt(coordinates), said);
        else
            for (const Json& polygon : coordinates)
                TakePolygon(ListsAt(polygon), said);
    }

    ImagePoint PositionAt(const Json& position)
    {
        if (!position.is_array() || position.size() < 2)
            Fail(VOSTEL_BAD_FORMAT, Where + "a position is not an array of two numbers");
        HasHeights = HasHeights || position.size() > 2;
        return {FiniteNumber(position[0], Where + "a coordinate"),
                FiniteNumber(position[1], Where + "a coordinate")};
    }

    Positions PositionsAt(const Json& list)
    {
        if (!list.is_array())
            Fail(VOSTEL_BAD_FORMAT, Where + "coordinates are not arrays of positions");
        Positions positions;
        for (const Json& position : list)
            positions.push_back(PositionAt(position));
        return positions;
    }

    std::vector<Positions> ListsAt(const Json& lists)
    {
        if (!lists.is_array())
            Fail(VOSTEL_BAD_FORMAT, Where + "coordinates are not arrays of arrays of positions");
        std::vector<Positions> all;
        for (const Json& list : lists)
            all.push_back(PositionsAt(list));
        return all;
    }

    void Add(int kind, Positions points, const Saying& said)
    {
        FileObject object = said.Model;
        object.Kind = kind;
        object.Points = std::move(points);
        Keep(std::move(object), said);
    }

    void Keep(FileObject object, const Saying& said)
    {
        if (!IsRegion(object.Kind)) {
            object.Label = 0;
            object.Flags &= ~std::uint32_t{VOSTEL_NO_LABEL};
        }
        if (object.Kind != VOSTEL_TEXT)
            object.Text.clear();
        object.Style = StyleOfProperties(said.Properties, object.Kind);
        Objects.push_back(std::move(object));
    }

    void TakeMarks(Positions points, const Saying& said)
    {
        const bool text = said.Kind == KindName(VOSTEL_TEXT) && points.size() == 1;
        Add(text ? VOSTEL_TEXT : VOSTEL_POINTS, std::move(points), said);
    }

    void TakeLines(std::vector<Positions> lines, const Saying& said)
    {
        for (const Positions& line : lines) {
            if (line.size() < 2)
                Fail(VOSTEL_BAD_FORMAT, Where + "a line has fewer than two positions");
        }
        if (said.Kind == KindName(VOSTEL_FREE_STROKES)) {
            TakeStrokes(lines, said);
            return;
        }
        if (said.Kind == KindName(VOSTEL_ANGLE_LINES) && lines.size() == 2 && lines[0].size() == 2 &&
            lines[1].size() == 2) {
            Add(VOSTEL_ANGLE_LINES, {lines[0][0], lines[0][1], lines[1][0], lines[1][1]}, said);
            return;
        }
        for (Positions& line : lines) {
            const int kind = LineKind(said.Kind, line.size());
            Add(kind, std::move(line), said);
        }
    }

    static int LineKind(const std::string& word, std::size_t points)
    {
        const std::optional<NamedKind> named = KindOfWord(word, points);
        for (const int kind : {VOSTEL_LENGTH, VOSTEL_PROFILE, VOSTEL_ARROW, VOSTEL_ANGLE}) {
            if (named && named->Kind == kind)
                return kind;
        }
        return VOSTEL_POLYLINE;
    }

    void TakeStrokes(const std::vector<Positions>& lines, const Saying& said)
    {
        FileObject object = said.Model;
        object.Kind = VOSTEL_FREE_STROKES;
        for (const Positions& line : lines) {
            object.StrokeStarts.push_back(static_cast<int>(object.Points.size()));
            object.Points.insert(object.Points.end(), line.begin(), line.end());
        }
        Keep(std::move(object), said);
    }

    void TakePolygon(std::vector<Ring> rings, const Saying& said)
    {
        if (rings.empty())
            return;
        for (Ring& ring : rings) {
            if (ring.size() > 1 && SamePlace(ring.front(), ring.back()))
                ring.pop_back();
            if (ring.size() < 3)
                Fail(VOSTEL_BAD_FORMAT, Where + "a ring has fewer than three different positions");
        }
        FileObject polygon = said.Model;
        polygon.Points = JoinRings(rings);
        const std::size_t count = said.Points.empty() ? polygon.Points.size() : said.Points.size();
        const auto        kind = KindOfWord(said.Kind, said.Kind == "rectangle" ? 2 : count);
        if (kind && rings.size() == 1)
            RestoreRegion(polygon, *kind, said.Points);
        else if (kind && kind->Kind == VOSTEL_FREE_REGION)
            polygon.Kind = VOSTEL_FREE_REGION;
        Keep(std::move(polygon), said);
    }

    void TellIgnored()
    {
        constexpr std::size_t MostNames = 8;
        if (HasHeights)
            Told.Add("ignored: third coordinates");
        if (Ignored.empty())
            return;
        std::string names;
        std::size_t count = 0;
        for (const std::string& name : Ignored) {
            if (++count > MostNames)
                break;
            names += (names.empty() ? "" : ", ") + name;
        }
        Told.Add("ignored: the properties " + names + (count > MostNames ? ", ..." : ""));
    }
};

}

std::string GeoJsonOf(const std::vector<FileObject>& objects, ImageSize image, Remarks& remarks)
{
    Json features = Json::array();
    for (const FileObject& object : objects) {
        if (object.Kind == VOSTEL_PANEL || object.Kind == VOSTEL_NEIGHBOURS) {
            remarks.LeftOut("panel");
        } else if (!IsWhole(object)) {
            remarks.LeftOut("unfinished object");
        } else {
            features.push_back(JsonObject({{"type", "Feature"},
                                           {"properties", PropertiesOf(object)},
                                           {"geometry", GeometryOf(object)}}));
        }
    }
    Json top = JsonObject({{"type", "FeatureCollection"}, {"coordinate-rule", PixelRule}});
    if (image.Width > 0)
        top["image"] = JsonObject({{"width", image.Width}, {"height", image.Height}});
    top["features"] = std::move(features);
    return JsonTextOf(top);
}

std::vector<FileObject> ObjectsOfGeoJson(const std::string& text, ImageSize image, Remarks& remarks)
{
    return Reader(image, remarks).Read(ParseJson(text));
}

}
