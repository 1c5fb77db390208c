#include "interchange/RegionReading.h"

#include "base/Failure.h"
#include "document/KindRules.h"

#include <set>

namespace vostel {

void ShareLabels(std::vector<FileObject>& objects, std::span<const PartRange> things)
{
    std::set<int> used;
    for (const FileObject& object : objects)
        used.insert(object.Label);
    int next = 1;
    for (const PartRange& thing : things) {
        if (thing.End < thing.First + 2 || objects[thing.First].Label != 0)
            continue;
        while (!used.insert(next).second)
            ++next;
        for (std::size_t i = thing.First; i < thing.End; ++i) {
            if (IsRegion(objects[i].Kind))
                objects[i].Label = next;
        }
    }
}

void CompareSize(const Json& said, ImageSize image, Remarks& remarks)
{
    const Json* const width = Member(said, "width");
    const Json* const height = Member(said, "height");
    if (image.Width > 0 && width && height && (*width != image.Width || *height != image.Height))
        remarks.Add("the file is of an image of another size");
}

Json FlatPoints(const std::vector<ImagePoint>& points)
{
    Json flat = Json::array();
    for (const ImagePoint& point : points) {
        flat.push_back(point.x);
        flat.push_back(point.y);
    }
    return flat;
}

std::vector<ImagePoint> PointsOfFlat(const Json& flat, const std::string& where)
{
    if (!flat.is_array() || flat.size() % 2 != 0)
        Fail(VOSTEL_BAD_FORMAT, where + "there is no array of pairs of coordinates");
    std::vector<ImagePoint> points;
    points.reserve(flat.size() / 2);
    for (std::size_t i = 0; i < flat.size(); i += 2)
        points.push_back({FiniteNumber(flat[i], where + "a coordinate"),
                          FiniteNumber(flat[i + 1], where + "a coordinate")});
    return points;
}

}
