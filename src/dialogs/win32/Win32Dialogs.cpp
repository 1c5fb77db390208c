#include "dialogs/OwnDialogs.h"
#include "dialogs/win32/GeneralParaDialog.h"
#include "dialogs/win32/LoadParaDialog.h"
#include "dialogs/win32/RoiRectDialog.h"

// Modal dialogs of the desktop. Each starts with the values confirmed last: the file's, which other
// processes see too, and where that cannot be read or written, this process's own.

namespace vostel::own {

namespace {
const wchar_t* const OwnFile = L"Tessik.ini";

template <typename Dialog, typename Para>
bool AskAndKeep(Para& para, Para& last, bool& answered, const wchar_t* section)
{
    const ParameterFile file(OwnFile, section);
    Dialog              dialog(answered ? last : para);
    dialog.Recall(file);
    if (!dialog.Ask())
        return false;
    para = last = dialog.Para;
    answered = true;
    dialog.Keep(file);
    return true;
}
}

bool AskLoadPara(tagZEKImaLoadPara& para)
{
    static tagZEKImaLoadPara last;
    static bool              answered = false;
    return AskAndKeep<LoadParaDialog>(para, last, answered, L"ImaLoadPara");
}

bool AskRoiRect(tagZEKImaROIRectPara& para)
{
    static tagZEKImaROIRectPara last;
    static bool                 answered = false;
    return AskAndKeep<RoiRectDialog>(para, last, answered, L"ImaROIRectPara");
}

bool AskGeneralPara(tagZEKImaGeneralPara& para, const CString& section, const CString& file)
{
    const wchar_t* const key = L"Value";
    const ParameterFile  kept(file, section);
    std::wstring         start = para.Value.GetString();
    kept.Read(key, start);
    GeneralParaDialog dialog(section.GetString(), start);
    if (!dialog.Ask())
        return false;
    para.Value = dialog.Value.c_str();
    kept.Write(key, dialog.Value);
    return true;
}

}
