#pragma once

// Points as a table (RFC 4180), one a row; docs/formats.md names the columns.

#include "interchange/FileObject.h"
#include "interchange/Remarks.h"

#include <string>
#include <vector>

namespace vostel {

std::string PointTableOf(const std::vector<FileObject>& objects, Remarks& remarks);
// Also of any table with a header that names an x and a y: one object of marks.
std::vector<FileObject> ObjectsOfPointTable(const std::string& text, Remarks& remarks);

}
