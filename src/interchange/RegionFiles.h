#pragma once

// The rows of GeoJSON, COCO, point tables and drawings in the table of formats: what reads and writes their
// files.

#include "interchange/RegionFormats.h"

namespace vostel {

void ExportGeoJson(const RegionExport& file);
void ExportCoco(const RegionExport& file);
void ExportPointTable(const RegionExport& file);
void ExportSvg(
    const RegionExport& file);    // what vostel_picture_save() makes of objects and captions at scale 1

std::vector<FileObject> ImportGeoJson(const char* utf8Path, ImageSize image, Remarks& remarks);
std::vector<FileObject> ImportCoco(const char* utf8Path, ImageSize image, Remarks& remarks);
std::vector<FileObject> ImportPointTable(const char* utf8Path, ImageSize image, Remarks& remarks);

}
