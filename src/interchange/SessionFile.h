#pragma once

#include "interchange/Remarks.h"

#include <string>

namespace vostel {

class Document;
class VostelImage;

// The session's file at an absolute path: the same canvas gives the same bytes.
std::string SessionTextOf(VostelImage& canvas, const Document& notes, const std::string& path);

// Paths are UTF-8. Fails with VOSTEL_NOT_WRITTEN, and the file that was there stays.
void SaveSession(VostelImage& canvas, const Document& notes, const std::string& path);

// Puts what the file holds in the place of what the canvas shows, all of it or nothing. On an image that is
// shown, which stays, its objects and scale are taken; view and contrast too if it is the session's image.
// Fails with VOSTEL_NOT_READ, also for a missing image, VOSTEL_BAD_FORMAT, VOSTEL_TOO_LARGE, and
// VOSTEL_NO_IMAGE for a session that needs a shown image.
void OpenSession(VostelImage& canvas, Document& notes, const std::string& path, bool onImage, Remarks& told);

}
