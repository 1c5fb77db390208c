#pragma once

// Objects as GeoJSON (RFC 7946), in image px with y downwards; docs/formats.md says what becomes what.

#include "interchange/FileObject.h"
#include "interchange/Remarks.h"

#include <string>
#include <vector>

namespace vostel {

std::string             GeoJsonOf(const std::vector<FileObject>& objects, ImageSize image, Remarks& remarks);
std::vector<FileObject> ObjectsOfGeoJson(const std::string& text, ImageSize image, Remarks& remarks);

}
