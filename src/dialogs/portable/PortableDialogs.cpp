#include "dialogs/OwnDialogs.h"

// There is no desktop to ask on, so each question counts as cancelled until a host installs its own dialogs.

namespace vostel::own {

bool AskLoadPara(tagZEKImaLoadPara&)
{
    return false;
}

bool AskRoiRect(tagZEKImaROIRectPara&)
{
    return false;
}

bool AskGeneralPara(tagZEKImaGeneralPara&, const CString&, const CString&)
{
    return false;
}

}
