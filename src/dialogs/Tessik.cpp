#include "vostel/Tessik.h"

#include "dialogs/OwnDialogs.h"

using namespace vostel;

namespace {
// Made on first use: a host may install its dialogs from a static initialiser of its own.
TessikDialogs& Replacements()
{
    static TessikDialogs replacements;
    return replacements;
}
}

// A replacement is called through a copy, because it may install another one while it runs.

bool gDlgGetImaLoadPara(tagZEKImaLoadPara& para)
{
    const auto replacement = Replacements().ImaLoadPara;
    return replacement ? replacement(para) : own::AskLoadPara(para);
}

bool gDlgGetImaROIRectPara(tagZEKImaROIRectPara& para)
{
    const auto replacement = Replacements().ImaROIRectPara;
    return replacement ? replacement(para) : own::AskRoiRect(para);
}

bool gDlgGetImaGeneralParaV2(tagZEKImaGeneralPara& para, CString& section, CString& file)
{
    const auto replacement = Replacements().ImaGeneralPara;
    return replacement ? replacement(para, section, file) : own::AskGeneralPara(para, section, file);
}

void gDlgSetDialogs(const TessikDialogs& dialogs)
{
    Replacements() = dialogs;
}
