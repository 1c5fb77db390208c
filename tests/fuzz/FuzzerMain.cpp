// What the fuzzer calls.

#include "fuzz/Fuzzing.h"

#include <VostelObj.h>

#include <cstdint>

namespace {

// Nobody is there to read a message or to choose a file.
void LeaveTheDesktop()
{
    VostelHostServices services;
    services.ShowMessage = [](const CString&) {};
    services.InvalidateWindow = [](HWND) {};
    services.IsKeyDown = [](int) { return false; };
    services.ScreenToWindow = [](HWND, POINT screen) { return screen; };
    services.ChooseFiles = [](const VostelFileRequest&, std::vector<CString>&) { return false; };
    services.ChooseFolder = [](const CString&, CString&) { return false; };
    gSetHostServices(services);
    TessikDialogs dialogs;
    dialogs.ImaLoadPara = [](tagZEKImaLoadPara&) { return false; };
    dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara&) { return false; };
    dialogs.ImaGeneralPara = [](tagZEKImaGeneralPara&, CString&, CString&) { return false; };
    gDlgSetDialogs(dialogs);
}

// Pictures of sizes that take no time.
bool LimitPictures()
{
    VostelLimits limits = {};
    limits.size = sizeof limits;
    limits.max_side = 4096;
    limits.max_pixels = 1 << 20;
    limits.max_file_bytes = 1 << 24;
    return vostel_set_limits(&limits) == VOSTEL_OK;
}

}

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    StopAtFailedChecks();
    LeaveTheDesktop();
    return LimitPictures() ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzOne(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
