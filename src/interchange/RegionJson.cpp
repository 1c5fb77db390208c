#include "interchange/RegionJson.h"

#include "base/Failure.h"
#include "document/KindRules.h"
#include "interchange/CanvasObjects.h"
#include "interchange/FileBytes.h"
#include "interchange/ObjectJson.h"

namespace vostel {

namespace {

constexpr const char* RegionsFormat = "vostel-regions";

const Json& ListOf(const Json& file)
{
    const Json* const list = Member(file, "objects");
    const bool ours = IsText(file, "format", RegionsFormat) || IsText(file, "format", "vostel-session");
    if (!ours || !list || !list->is_array())
        Fail(VOSTEL_BAD_FORMAT, "the file holds no objects of this library");
    return *list;
}

}

std::string RegionJsonOf(std::vector<FileObject> objects, Remarks& told)
{
    std::erase_if(objects, [&](const FileObject& object) {
        const bool lacksPoints = object.Points.size() < PointCountsOf(object.Kind).Least;
        if (lacksPoints)
            told.LeftOut(std::string("unfinished ") + KindName(object.Kind));
        return lacksPoints;
    });
    Json list = Json::array();
    for (const FileObject& object : objects)
        list.push_back(JsonOfObject(object));
    Json json;
    json["format"] = RegionsFormat;
    json["version"] = 1;
    json["objects"] = std::move(list);
    return JsonTextOf(json);
}

std::vector<FileObject> ObjectsOfRegionJson(const std::string& text, Remarks& told)
{
    const Json              file = ParseJson(text);
    const Json&             list = ListOf(file);
    std::vector<FileObject> objects;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const std::string place = "objects[" + std::to_string(i) + "]";
        const std::string word = KindOfJson(list[i], place);
        const int         kind = KindOfConstant(word);
        if (kind < 0) {
            told.LeftOut(word);
            continue;
        }
        FileObject object = ObjectOfJson(list[i], kind, place).Object;
        for (const std::string& name : NamesOfUnknown(UnknownOfObject(list[i]), word))
            told.Ignored(name);
        if (object.Points.empty())
            told.LeftOut("unfinished " + word);
        else
            objects.push_back(std::move(object));
    }
    return objects;
}

void ExportRegionJson(const RegionExport& file)
{
    WriteWholeFile(file.Path, RegionJsonOf(ObjectsOf(file.Canvas, file.Notes), file.Told));
}

std::vector<FileObject> ImportRegionJson(const char* utf8Path, ImageSize, Remarks& told)
{
    return ObjectsOfRegionJson(ReadWholeFile(utf8Path), told);
}

}
