#pragma once

#include "interchange/FileObject.h"
#include "interchange/Remarks.h"

#include <string>
#include <vector>

namespace vostel {

class Document;
class VostelImage;

// A canvas whose objects leave for a file.
struct RegionExport {
    const char*     Path = "";    // UTF-8
    VostelImage&    Canvas;
    const Document& Notes;
    Remarks&        Told;
};

// A format of region files. What it cannot do is null.
struct RegionFormat {
    const char*              Name;
    std::vector<const char*> Endings;    // lower case
    void (*Export)(const RegionExport& file);
    std::vector<FileObject> (*Import)(const char* utf8Path, ImageSize image, Remarks& told);
};

// By its name, or for null by the ending of the path; VOSTEL_NOT_SUPPORTED for an unknown one.
const RegionFormat& FindRegionFormat(const char* format, const std::string& path);

}
