#include "interchange/CanvasObjects.h"
#include "interchange/RegionFormats.h"
#include "interchange/SessionFile.h"
#include "open/OpenCall.h"

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
