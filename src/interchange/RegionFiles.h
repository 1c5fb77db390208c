#pragma once

// The rows of GeoJSON, COCO and point tables in the table of formats: what reads and writes their files.

#include "interchange/RegionFormats.h"

namespace vostel {

void ExportGeoJson(const RegionExport& file);
void ExportCoco(const RegionExport& file);
void ExportPointTable(const RegionExport& file);

std::vector<FileObject> ImportGeoJson(const char* utf8Path, ImageSize image, Remarks& remarks);
std::vector<FileObject> ImportCoco(const char* utf8Path, ImageSize image, Remarks& remarks);
std::vector<FileObject> ImportPointTable(const char* utf8Path, ImageSize image, Remarks& remarks);

}
