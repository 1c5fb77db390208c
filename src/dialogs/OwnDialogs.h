#pragma once

// The dialogs that Tessik shows when no replacement is installed, one source folder per platform. Each
// returns true with the record filled, or false with the record as it was.

#include "vostel/Tessik.h"

namespace vostel::own {
bool AskLoadPara(tagZEKImaLoadPara& para);
bool AskRoiRect(tagZEKImaROIRectPara& para);
bool AskGeneralPara(tagZEKImaGeneralPara& para, const CString& section, const CString& file);
}
