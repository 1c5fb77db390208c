#pragma once

#include "interchange/RegionFormats.h"

#include <string>
#include <vector>

namespace vostel {

// Objects of all kinds as the library's own JSON: a session's objects without what belongs to one canvas
// alone. Unfinished ones are left out.
std::string             RegionJsonOf(std::vector<FileObject> objects, Remarks& told);
std::vector<FileObject> ObjectsOfRegionJson(const std::string& text, Remarks& told);    // also of a session

void                    ExportRegionJson(const RegionExport& file);
std::vector<FileObject> ImportRegionJson(const char* utf8Path, ImageSize image, Remarks& told);

}
