#include "interchange/Coco.h"

#include "base/Failure.h"
#include "document/KindRules.h"
#include "geometry/Outline.h"
#include "geometry/ShapeMeasures.h"
#include "interchange/RegionKinds.h"
#include "interchange/RegionReading.h"

#include <map>
#include <optional>

namespace vostel {

namespace {

constexpr const char* Unnamed = "region";    // the category of regions without a name

// Numbers of the categories, in the order of their first use.
class Categories {
public:
    int NumberOf(const std::string& name)
    {
        const auto [found, isNew] = Numbers.try_emplace(name, static_cast<int>(Numbers.size()) + 1);
        if (isNew)
            List.push_back(JsonObject({{"id", found->second}, {"name", name}, {"supercategory", ""}}));
        return found->second;
    }

    Json List = Json::array();

private:
    std::map<std::string, int> Numbers;
};

// Beside what COCO knows: what the region was, under a name where annotation programs keep their own.
Json AttributesOf(const FileObject& region)
{
    Json attributes = JsonObject({{"kind", KindWord(region)}, {"label", region.Label}});
    if (region.Name.empty())
        attributes["unnamed"] = true;
    if (region.Kind == VOSTEL_SPLINE || (region.Flags & VOSTEL_ELLIPSE) != 0)
        attributes["points"] = FlatPoints(region.Points);
    return attributes;
}

Json AnnotationOf(const FileObject& region, int number, int category)
{
    const ShapeMeasures shape = MeasureShape(ExactOutline(region));
    const Bounds&       box = shape.Box;
    return JsonObject({{"id", number},
                       {"image_id", 1},
                       {"category_id", category},
                       {"segmentation", Json::array({FlatPoints(region.Outline)})},
                       {"area", shape.Area},
                       {"bbox", Json::array({box.Left, box.Top, box.Right - box.Left, box.Bottom - box.Top})},
                       {"iscrowd", 0},
                       {"attributes", AttributesOf(region)}});
}

class Reader {
public:
    Reader(ImageSize image, Remarks& remarks) : Image(image), Told(remarks) {}

    std::vector<FileObject> Read(const Json& top)
    {
        if (!top.is_object())
            Fail(VOSTEL_BAD_FORMAT, "the file is not an object with annotations");
        TakeImage(ListIn(top, "images"));
        const Json& annotations = ListIn(top, "annotations");
        TakeCategories(ListIn(top, "categories"));
        for (const Json& annotation : annotations) {
            Where = "annotation " + std::to_string(++Number) + ": ";
            TakeAnnotation(annotation);
        }
        ShareLabels(Objects, Parts);
        return std::move(Objects);
    }

private:
    ImageSize                           Image;
    Remarks&                            Told;
    std::optional<Json>                 ImageId;
    std::map<std::int64_t, std::string> Names;
    std::vector<FileObject>             Objects;
    std::string                         Where;
    std::size_t                         Number = 0;
    std::vector<PartRange>              Parts;    // of each annotation

    // An empty list where there is none.
    static const Json& ListIn(const Json& value, const char* name)
    {
        static const Json none = Json::array();
        const Json* const found = Member(value, name);
        if (found && !found->is_array())
            Fail(VOSTEL_BAD_FORMAT, std::string(name) + " is not an array");
        if (!found && name == std::string("annotations"))
            Fail(VOSTEL_BAD_FORMAT, "there are no annotations");
        return found ? *found : none;
    }

    void TakeImage(const Json& images)
    {
        if (images.size() > 1)
            Fail(VOSTEL_NOT_SUPPORTED,
                 "the file has " + std::to_string(images.size()) + " images; one is taken");
        if (images.empty())
            return;
        if (const Json* const id = Member(images[0], "id"))
            ImageId = *id;
        CompareSize(images[0], Image, Told);
    }

    void TakeCategories(const Json& categories)
    {
        std::size_t count = 0;
        for (const Json& category : categories) {
            Where = "category " + std::to_string(++count) + ": ";
            const Json* const id = Member(category, "id");
            const Json* const name = Member(category, "name");
            if (!id || !name)
                Fail(VOSTEL_BAD_FORMAT, Where + "it has no id or no name");
            Names[WholeNumber(*id, INT64_MIN, INT64_MAX, Where + "id")] = TextValue(*name, Where + "name");
        }
    }

    void CheckImage(const Json& annotation)
    {
        const Json* const id = Member(annotation, "image_id");
        if (!id)
            return;
        if (!ImageId)
            ImageId = *id;
        if (*id != *ImageId)
            Fail(VOSTEL_NOT_SUPPORTED, Where + "it belongs to another image than those before");
    }

    void TakeAnnotation(const Json& annotation)
    {
        if (!annotation.is_object())
            Fail(VOSTEL_BAD_FORMAT, Where + "it is not an object");
        CheckImage(annotation);
        const Json* const crowd = Member(annotation, "iscrowd");
        const Json* const segments = Member(annotation, "segmentation");
        if ((crowd && *crowd == 1) || (segments && segments->is_object()))
            Fail(VOSTEL_NOT_SUPPORTED, Where + "it is a run-length mask");
        FileObject model;
        model.Name = NameOf(annotation);
        const std::size_t first = Objects.size();
        if (segments && segments->is_array() && !segments->empty())
            TakeSegments(annotation, *segments, model);
        else if (const Json* const box = Member(annotation, "bbox"))
            TakeBox(*box, model);
        else
            Told.LeftOut("annotation without a shape");
        Parts.push_back({first, Objects.size()});
        const Json* const points = Member(annotation, "keypoints");
        if (points && points->is_array() && !points->empty())
            Told.LeftOut("list of keypoints");
    }

    std::string NameOf(const Json& annotation)
    {
        const Json* const attributes = Member(annotation, "attributes");
        if (attributes && Member(*attributes, "unnamed"))
            return std::string();
        const Json* const id = Member(annotation, "category_id");
        const auto        name =
            id ? Names.find(WholeNumber(*id, INT64_MIN, INT64_MAX, Where + "category_id")) : Names.end();
        return name == Names.end() ? std::string() : name->second;
    }

    void TakeSegments(const Json& annotation, const Json& segments, const FileObject& model)
    {
        for (const Json& segment : segments) {
            FileObject polygon = model;
            polygon.Points = PointsOfFlat(segment, Where);
            if (polygon.Points.size() < 3)
                Fail(VOSTEL_BAD_FORMAT, Where + "a segment has fewer than three points");
            if (const Json* const attributes = Member(annotation, "attributes"))
                TakeAttributes(*attributes, polygon);
            Objects.push_back(std::move(polygon));
        }
    }

    void TakeAttributes(const Json& attributes, FileObject& polygon)
    {
        const Json* const label = Member(attributes, "label");
        if (label && label->is_number_integer() && *label > 0 && *label <= INT32_MAX)
            polygon.Label = label->get<int>();
        const Json* const       word = Member(attributes, "kind");
        const Json* const       flat = Member(attributes, "points");
        std::vector<ImagePoint> points;
        if (flat)
            points = PointsOfFlat(*flat, Where);
        if (!word || !word->is_string())
            return;
        const std::string name = word->get<std::string>();
        const std::size_t count = points.empty() ? polygon.Points.size() : points.size();
        if (const auto kind = KindOfWord(name, name == "rectangle" ? 2 : count))
            RestoreRegion(polygon, *kind, points);
    }

    void TakeBox(const Json& box, const FileObject& model)
    {
        const std::vector<ImagePoint> corners = PointsOfFlat(box, Where);
        if (corners.size() != 2)
            Fail(VOSTEL_BAD_FORMAT, Where + "bbox is not four numbers");
        const ImagePoint corner = corners[0];
        const ImagePoint size = corners[1];
        if (size.x < 0.0 || size.y < 0.0)
            Fail(VOSTEL_BAD_FORMAT, Where + "bbox has a negative size");
        FileObject rectangle = model;
        rectangle.Kind = VOSTEL_RECTANGLE;
        rectangle.Points = {corner, {corner.x + size.x, corner.y + size.y}};
        Objects.push_back(std::move(rectangle));
    }
};

}

std::string CocoOf(const std::vector<FileObject>& objects, ImageSize image, const std::string& imageName,
                   Remarks& remarks)
{
    Json       annotations = Json::array();
    Categories categories;
    int        number = 0;
    for (const FileObject& object : objects) {
        if (!IsRegion(object.Kind)) {
            remarks.LeftOut(KindName(object.Kind));
        } else if (!IsWhole(object)) {
            remarks.LeftOut("unfinished object");
        } else {
            const int category = categories.NumberOf(object.Name.empty() ? Unnamed : object.Name);
            annotations.push_back(AnnotationOf(object, ++number, category));
        }
    }
    Json images = Json::array();
    images.push_back(
        JsonObject({{"id", 1}, {"file_name", imageName}, {"width", image.Width}, {"height", image.Height}}));
    return JsonTextOf(JsonObject(
        {{"info",
          JsonObject({{"description", "coordinates: image pixels, y downwards, pixel (0,0) covers 0..1"}})},
         {"images", std::move(images)},
         {"categories", categories.List},
         {"annotations", std::move(annotations)}}));
}

std::vector<FileObject> ObjectsOfCoco(const std::string& text, ImageSize image, Remarks& remarks)
{
    return Reader(image, remarks).Read(ParseJson(text));
}

}
