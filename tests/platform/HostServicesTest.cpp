#include "platform/HostServices.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <memory>

using namespace vostel;

namespace {

// Brings the platform's own services back.
struct Restore {
    ~Restore() { gSetHostServices(VostelHostServices()); }
};

}

TEST_CASE("a replaced service gets the request and gives the result")
{
    const Restore      restore;
    VostelHostServices services;
    CString            told;
    HWND               invalidated = nullptr;
    HWND const         window = reinterpret_cast<HWND>(static_cast<std::uintptr_t>(0x1234));
    services.ShowMessage = [&](const CString& text) { told = text; };
    services.ChooseFiles = [](const VostelFileRequest& request, std::vector<CString>& paths) {
        paths.push_back(request.DefaultName + L"." + request.DefaultExtension);
        return request.Save;
    };
    services.ChooseFolder = [](const CString& title, CString& folder) {
        folder = title + L"!";
        return true;
    };
    services.IsKeyDown = [](int key) { return key == 'S'; };
    services.InvalidateWindow = [&](HWND of) { invalidated = of; };
    services.ScreenToWindow = [](HWND, POINT screen) { return POINT{screen.x - 3, screen.y - 4}; };
    gSetHostServices(services);

    ShowMessage(L"文件不存在");
    CHECK(told == L"文件不存在");
    VostelFileRequest request;
    request.Save = true;
    request.DefaultName = L"未命名";
    request.DefaultExtension = L"bmp";
    std::vector<CString> paths;
    CHECK(ChooseFiles(request, paths));
    REQUIRE(paths.size() == 1);
    CHECK(paths[0] == L"未命名.bmp");
    request.Save = false;
    CHECK_FALSE(ChooseFiles(request, paths));
    CString folder;
    CHECK(ChooseFolder(L"where", folder));
    CHECK(folder == L"where!");
    CHECK(IsKeyDown('S'));
    CHECK_FALSE(IsKeyDown('D'));
    InvalidateHostWindow(window);
    CHECK(invalidated == window);
    const POINT point = ScreenToHostWindow(window, POINT{10, 20});
    CHECK(point.x == 7);
    CHECK(point.y == 16);
}

TEST_CASE("a service may replace the services while it runs")
{
    const Restore      restore;
    VostelHostServices services;
    CString            told;
    const CString      words = L"a text long enough to live on the heap, which the first service owns";
    services.ShowMessage = [words, &told](const CString& text) {
        VostelHostServices others;
        others.ShowMessage = [&told](const CString& second) { told += L"second:" + second; };
        gSetHostServices(others);
        told += words + text;    // what this service holds has to be alive still
    };
    gSetHostServices(services);
    services = VostelHostServices();
    ShowMessage(L"1 ");
    CHECK(told == words + L"1 ");
    told.Empty();
    ShowMessage(L"2");
    CHECK(told == L"second:2");
}

TEST_CASE("what a service holds may ask for services when it dies")
{
    const Restore restore;
    struct Last {
        ~Last() { IsKeyDown('A'); }
    };
    int                asked = 0;
    VostelHostServices services;
    services.InvalidateWindow = [last = std::make_shared<Last>()](HWND) {};
    gSetHostServices(services);
    services = VostelHostServices();
    services.IsKeyDown = [&](int) {
        ++asked;
        return true;
    };
    gSetHostServices(services);
    CHECK(asked == 1);
}

TEST_CASE("without a window the window services do nothing")
{
    const Restore restore;
    gSetHostServices(VostelHostServices());
    InvalidateHostWindow(nullptr);
    const POINT point = ScreenToHostWindow(nullptr, POINT{10, 20});
    CHECK(point.x == 10);
    CHECK(point.y == 20);
}

#if !defined(_WIN32)
TEST_CASE("without a desktop dialogs count as cancelled and no key is down")
{
    const Restore restore;
    gSetHostServices(VostelHostServices());
    std::vector<CString> paths;
    CString              folder = L"as before";
    CHECK_FALSE(ChooseFiles(VostelFileRequest(), paths));
    CHECK(paths.empty());
    CHECK_FALSE(ChooseFolder(L"where", folder));
    CHECK(folder == L"as before");
    for (int key = 0; key < 256; ++key)
        CHECK_FALSE(IsKeyDown(key));
}
#endif
