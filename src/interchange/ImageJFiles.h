#pragma once

// Selections of ImageJ: one in a .roi file, a list of them in a zip archive.

#include "interchange/RegionFormats.h"

#include <string>
#include <string_view>
#include <vector>

namespace vostel {

// A list; the names of its entries are made of those of the objects.
std::string ImageJZipOf(const std::vector<FileObject>& objects, ImageSize image, Remarks& told);
// One selection. Fails with VOSTEL_NOT_SUPPORTED if the objects are none or several for ImageJ.
std::string ImageJFileOf(const std::vector<FileObject>& objects, ImageSize image, Remarks& told);

// Of either, told by the content. The name is that of the file without its ending.
std::vector<FileObject> ObjectsOfImageJ(std::string_view bytes, const std::string& name, Remarks& told);

void                    ExportImageJ(const RegionExport& file);
std::vector<FileObject> ImportImageJ(const char* utf8Path, ImageSize image, Remarks& told);

}
