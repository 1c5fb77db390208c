#include "support/HostCanvas.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <vector>

namespace {

// Fills every file dialog with one name and remembers what was asked.
struct AnsweringDesktop : TestDesktop {
    std::vector<VostelFileRequest> Requests;
    std::vector<CString>           Answer;
    bool                           Accept = true;

    AnsweringDesktop()
    {
        ChooseFiles = [this](const VostelFileRequest& request, std::vector<CString>& paths) {
            Requests.push_back(request);
            paths = Answer;
            return Accept;
        };
    }
};

}

TEST_CASE("every file dialog for one name is a save dialog with its own extension, flags and filter")
{
    const wchar_t* const all =
        L"所有文件(*.*)|*.*|(*.raw) |*.raw|(*.bmp) |*.bmp|(*.jpg) |*.jpg|(*.gif) |*.gif|(*.tif) |*.tif||";
    const wchar_t* const pictures =
        L"图像文件格式(*.bmp) |*.bmp|(*.jpg) |*.jpg|(*.gif) |*.gif|所有文件(*.*)|*.*||";
    const wchar_t* const raw = L"图像文件格式(*.raw) |*.raw|(*.hraw) |*.hraw|所有文件(*.*)|*.*||";
    const wchar_t* const picturesOrTiff =
        L"图像文件格式(*.bmp) |*.bmp|(*.jpg) |*.jpg|(*.gif) |*.gif|(*.tiff) |*.tiff||";
    struct Row {
        CString (OSDIR::*Member)();
        const wchar_t* Extension;
        unsigned       Flags;
        const wchar_t* Filter;
    };
    const Row rows[] = {
        {&OSDIR::GetFile, L"bmp", 12, all},
        {&OSDIR::GetBmpFile, L"bmp", 14, pictures},
        {&OSDIR::GetRawFile, L"raw", 14, raw},
        {&OSDIR::GetBmpFileNoOverWritePrompt, L"bmp", 12, picturesOrTiff},
        {&OSDIR::GetRawFileNoOverWritePrompt, L"raw", 12, raw},
    };
    for (const Row& row : rows) {
        AnsweringDesktop desktop;
        desktop.Answer = {L"chosen", L"second"};
        OSDIR dir;
        CHECK((dir.*row.Member)() == L"chosen");
        REQUIRE(desktop.Requests.size() == 1);
        const VostelFileRequest& request = desktop.Requests[0];
        CHECK(request.Save);
        CHECK(request.DefaultName == L"未命名");
        CHECK(request.DefaultExtension == row.Extension);
        CHECK(request.Flags == row.Flags);
        CHECK(request.Filter == row.Filter);
    }
}

TEST_CASE("a cancelled file dialog returns NULL, whatever the dialog had been given before")
{
    AnsweringDesktop desktop;
    desktop.Answer = {L"typed and then cancelled"};
    desktop.Accept = false;
    OSDIR dir;
    CHECK(dir.GetFile() == L"NULL");
    CHECK(dir.GetBmpFile() == L"NULL");
    CHECK(dir.GetRawFile() == L"NULL");
    CHECK(dir.GetBmpFileNoOverWritePrompt() == L"NULL");
    CHECK(dir.GetRawFileNoOverWritePrompt() == L"NULL");
    CHECK(desktop.Requests.size() == 5);
    CHECK(desktop.Messages.empty());
}

TEST_CASE("an accepted dialog without a path counts as cancelled")
{
    AnsweringDesktop desktop;
    CHECK(OSDIR().GetBmpFile() == L"NULL");
    CHECK(desktop.Requests.size() == 1);
}

TEST_CASE("the dialog for several files is an open dialog and appends what was chosen")
{
    AnsweringDesktop desktop;
    desktop.Answer = {L"one", L"two"};
    std::vector<CString> names = {L"before"};
    CHECK(OSDIR().GetMultiFile(names, 4096));
    CHECK(names == std::vector<CString>{L"before", L"one", L"two"});
    REQUIRE(desktop.Requests.size() == 1);
    CHECK_FALSE(desktop.Requests[0].Save);
    CHECK(desktop.Requests[0].DefaultExtension == L"*.*");
    CHECK(desktop.Requests[0].DefaultName == L"");
    CHECK(desktop.Requests[0].Flags == 516);
    CHECK(desktop.Requests[0].Filter == L"All files and folders(*.*)|*.*||");
}

TEST_CASE("the dialog for several files is false when cancelled and true when names came before")
{
    AnsweringDesktop     desktop;
    std::vector<CString> names = {L"before"};
    CHECK(OSDIR().GetMultiFile(names, 4096));    // nothing chosen, but the list is not empty
    names.clear();
    CHECK_FALSE(OSDIR().GetMultiFile(names, 4096));
    desktop.Accept = false;
    desktop.Answer = {L"typed"};
    names = {L"before"};
    CHECK_FALSE(OSDIR().GetMultiFile(names, 0));
    CHECK(names == std::vector<CString>{L"before"});
}

TEST_CASE("the folder dialog has its title and returns the folder, or NULL when cancelled")
{
    TestDesktop desktop;
    CString     title;
    bool        accept = true;
    desktop.ChooseFolder = [&](const CString& asked, CString& folder) {
        title = asked;
        folder = L"C:\\chosen";
        return accept;
    };
    CHECK(OSDIR().GetDir() == L"C:\\chosen");
    CHECK(title == L"选择待处理文件的文件夹");
    accept = false;
    CHECK(OSDIR().GetDir() == L"NULL");
}

TEST_CASE("an accepted folder dialog without a folder counts as cancelled")
{
    TestDesktop desktop;
    CString     answer;
    desktop.ChooseFolder = [&](const CString&, CString& folder) {
        folder = answer;
        return true;
    };
    CHECK(OSDIR().GetDir() == L"NULL");
    answer = L"C:\\chosen";
    CHECK(OSDIR().GetDir() == L"C:\\chosen");
}

TEST_CASE("no dialog touches the list of the object, which is copied as a value")
{
    AnsweringDesktop desktop;
    desktop.Answer = {L"chosen"};
    OSDIR dir;
    CHECK(dir.FileList.empty());
    dir.FileList = {L"mine"};
    dir.GetFile();
    std::vector<CString> names;
    dir.GetMultiFile(names, 100);
    OSDIR copy(dir);
    copy.FileList.push_back(L"copy's");
    CHECK(dir.FileList == std::vector<CString>{L"mine"});
    dir = copy;
    CHECK(dir.FileList.size() == 2);
}
