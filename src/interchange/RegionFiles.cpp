#include "interchange/RegionFiles.h"

#include "base/Failure.h"
#include "canvas/VostelImage.h"
#include "document/KindRules.h"
#include "interchange/CanvasDrawing.h"
#include "interchange/CanvasObjects.h"
#include "interchange/Coco.h"
#include "interchange/FileBytes.h"
#include "interchange/GeoJson.h"
#include "interchange/PointTable.h"

namespace vostel {

namespace {

ImageSize SizeOf(const VostelImage& canvas)
{
    const PlaneView plane = canvas.ShownPlane();
    return plane.Data ? ImageSize{plane.Width, plane.Height} : ImageSize();
}

// Without its folder; empty for an image from memory.
std::string FileNameOf(const VostelImage& canvas)
{
    const std::string path = canvas.Source ? canvas.Source->Path : std::string();
    return path.substr(path.find_last_of("/\\") + 1);
}

}

void ExportGeoJson(const RegionExport& file)
{
    WriteWholeFile(file.Path, GeoJsonOf(ObjectsOf(file.Canvas, file.Notes), SizeOf(file.Canvas), file.Told));
}

void ExportCoco(const RegionExport& file)
{
    const ImageSize size = SizeOf(file.Canvas);
    if (size.Width == 0)
        Fail(VOSTEL_NO_IMAGE, "COCO names the size of the image, and there is none");
    WriteWholeFile(file.Path,
                   CocoOf(ObjectsOf(file.Canvas, file.Notes), size, FileNameOf(file.Canvas), file.Told));
}

void ExportPointTable(const RegionExport& file)
{
    WriteWholeFile(file.Path, PointTableOf(ObjectsOf(file.Canvas, file.Notes), file.Told));
}

void ExportSvg(const RegionExport& file)
{
    const ImageSize size = SizeOf(file.Canvas);
    if (size.Width == 0)
        Fail(VOSTEL_NO_IMAGE, "a drawing shows the image, and there is none");
    for (const VostelObj* const object : file.Canvas.Elements.AsTheyLie()) {
        if (object->TypeCode == VOSTEL_PANEL || object->TypeCode == VOSTEL_NEIGHBOURS)
            file.Told.LeftOut(KindName(object->TypeCode));
    }
    WriteWholeFile(file.Path, SvgOfCanvas(file.Canvas, file.Notes, 1.0, PictureParts(), size));
}

std::vector<FileObject> ImportGeoJson(const char* utf8Path, ImageSize image, Remarks& remarks)
{
    return ObjectsOfGeoJson(ReadWholeFile(utf8Path), image, remarks);
}

std::vector<FileObject> ImportCoco(const char* utf8Path, ImageSize image, Remarks& remarks)
{
    return ObjectsOfCoco(ReadWholeFile(utf8Path), image, remarks);
}

std::vector<FileObject> ImportPointTable(const char* utf8Path, ImageSize, Remarks& remarks)
{
    return ObjectsOfPointTable(ReadWholeFile(utf8Path), remarks);
}

}
