#include "platform/HostServices.h"

#include <mutex>

namespace {

struct Installed {
    std::mutex         Guard;
    VostelHostServices Services;
};

Installed& Replacements()
{
    static Installed installed;
    return installed;
}

// A copy: the host may replace the services from inside one of them, and the one that runs has to live on.
template <typename Service>
Service Replacement(Service VostelHostServices::*member)
{
    Installed&            installed = Replacements();
    const std::lock_guard lock(installed.Guard);
    return installed.Services.*member;
}

}

void gSetHostServices(const VostelHostServices& services)
{
    // What was installed goes away outside the lock: it may hold host objects that call back when they die.
    VostelHostServices before = services;
    Installed&         installed = Replacements();
    {
        const std::lock_guard lock(installed.Guard);
        std::swap(installed.Services, before);
    }
}

namespace vostel {

void ShowMessage(const CString& text)
{
    const auto service = Replacement(&VostelHostServices::ShowMessage);
    return service ? service(text) : desktop::ShowMessage(text);
}

bool ChooseFiles(const VostelFileRequest& request, std::vector<CString>& paths)
{
    const auto service = Replacement(&VostelHostServices::ChooseFiles);
    return service ? service(request, paths) : desktop::ChooseFiles(request, paths);
}

bool ChooseFolder(const CString& title, CString& folder)
{
    const auto service = Replacement(&VostelHostServices::ChooseFolder);
    return service ? service(title, folder) : desktop::ChooseFolder(title, folder);
}

bool IsKeyDown(int virtualKey)
{
    const auto service = Replacement(&VostelHostServices::IsKeyDown);
    return service ? service(virtualKey) : desktop::IsKeyDown(virtualKey);
}

void InvalidateHostWindow(HWND window)
{
    const auto service = Replacement(&VostelHostServices::InvalidateWindow);
    return service ? service(window) : desktop::InvalidateWindow(window);
}

POINT ScreenToHostWindow(HWND window, POINT screen)
{
    const auto service = Replacement(&VostelHostServices::ScreenToWindow);
    return service ? service(window, screen) : desktop::ScreenToWindow(window, screen);
}

}
