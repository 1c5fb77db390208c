#pragma once

// Label images: the pixels of the regions as vostel_labels() gives them, as a gray PNG of 16 bits or, where
// labels lie beyond 65535, as raw numbers of 32 bits, with a legend beside; docs/formats.md says how they are
// held and what is read.

#include "interchange/RegionFormats.h"

namespace vostel {

void                    ExportLabels(const RegionExport& file);
std::vector<FileObject> ImportLabels(const char* utf8Path, ImageSize image, Remarks& remarks);

}
