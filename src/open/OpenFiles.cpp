#include "interchange/CanvasObjects.h"
#include "interchange/RegionFormats.h"
#include "interchange/RegionJson.h"
#include "interchange/SessionFile.h"
#include "open/OpenCall.h"

#include <algorithm>
#include <iterator>
#include <set>

using namespace vostel;
using namespace vostel::open;

namespace {

// What is done stays done, whether there is memory to tell of it or not.
void Tell(const Remarks& told) noexcept
{
    try {
        SetMessage(told.Text());
    } catch (...) {
        SetMessage(std::string());
    }
}

}

VostelStatus vostel_session_save(int32_t canvas, const char* path, uint32_t flags)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const std::string name = TextFrom(path, "path");
        NeedFlags(flags, 0);
        SaveSession(image, notes, name);
        Tell(Remarks());
    });
}

VostelStatus vostel_session_open(int32_t canvas, const char* path, uint32_t flags)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const std::string name = TextFrom(path, "path");
        NeedFlags(flags, VOSTEL_SESSION_ON_IMAGE);
        Remarks told;
        OpenSession(image, notes, name, (flags & VOSTEL_SESSION_ON_IMAGE) != 0, told);
        Tell(told);
    });
}

VostelStatus vostel_regions_export(int32_t canvas, const char* path, const char* format)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const std::string   name = TextFrom(path, "path");
        const RegionFormat& chosen = FindRegionFormat(format, name);
        if (!chosen.Export)
            Fail(VOSTEL_NOT_SUPPORTED, "the format is for import alone");
        Remarks told;
        chosen.Export({name.c_str(), image, notes, told});
        Tell(told);
    });
}

VostelStatus vostel_regions_import(int32_t canvas, const char* path, const char* format, size_t* count)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const std::string   name = TextFrom(path, "path");
        const RegionFormat& chosen = FindRegionFormat(format, name);
        if (!chosen.Import)
            Fail(VOSTEL_NOT_SUPPORTED, "the format is for export alone");
        Remarks                       told;
        const PlaneView               plane = image.ShownPlane();
        const std::vector<FileObject> objects =
            chosen.Import(name.c_str(), {plane.Width, plane.Height}, told);
        AddObjects(image, notes, objects, "Import");
        if (count)
            Give(count, objects.size());
        Tell(told);
    });
}

VostelStatus vostel_regions_text(int32_t canvas, const VostelObject* objects, size_t count, char* buffer,
                                 size_t capacity, size_t* length)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        const std::vector<VostelObj*> given = ObjectsFrom(image, notes, objects, count);
        const std::set<VostelObj*>    chosen(given.begin(), given.end());
        std::vector<VostelObj*>       inOrder;
        std::copy_if(image.Elements.begin(), image.Elements.end(), std::back_inserter(inOrder),
                     [&](VostelObj* object) { return chosen.count(object) > 0; });
        Remarks told;
        GiveText(RegionJsonOf(ObjectsOf(inOrder, notes), told), buffer, capacity, length);
        Tell(told);
    });
}

VostelStatus vostel_regions_add_text(int32_t canvas, const char* text, size_t* count)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document& notes) {
        Remarks                       told;
        const std::vector<FileObject> objects = ObjectsOfRegionJson(TextFrom(text, "text"), told);
        AddObjects(image, notes, objects, "Paste");
        if (count)
            Give(count, objects.size());
        Tell(told);
    });
}
