#include "allocations/ClassicCalls.h"

#include "vostel.h"

#include <fstream>

namespace {

constexpr int Width = 40, Height = 30;

void AddObject(VostelKind kind, const std::vector<VostelPoint>& points)
{
    VostelObject object = 0;
    REQUIRE(vostel_object_add(0, kind, points.data(), points.size(), &object) == VOSTEL_OK);
}

// Files to be read, and folders to be copied.
const TempFolder& FolderWithFiles()
{
    static TempFolder folder;
    if (folder.EntryCount() > 0)
        return folder;
    CImage picture;
    REQUIRE(picture.Create(20, 10, 24));
    for (const char* name : {"a.png", "a.bmp", "a.jpg", "a.gif", "a.tif"})
        REQUIRE(picture.Save(folder.WidePath(name)) >= 0);
    ClassData2DIO<unsigned char> plane;
    FillPlane(plane, 21, 13, [](int x, int y) { return x * y; });
    std::string gray = folder.Path("gray.bmp");
    REQUIRE(ZEKSaveGrayBmp(gray.data(), plane));
    REQUIRE(WriteBytes(folder.Path("a.raw"), std::vector<unsigned char>(Width * Height * 2, 65)));
    std::ofstream(folder.Path("a.ini")) << "a name that is longer than a short one = 7\nheight = 45\n";
    for (const char* name : {"from", "from/a folder in it", "to"})
        folder.MakeFolder(name);
    REQUIRE(WriteBytes(folder.Path("from/a folder in it/a file"), {1, 2, 3}));
    return folder;
}

}

ClassicWorld::ClassicWorld() : Dialogs(CancelledDialogs()), Folder(FolderWithFiles())
{
    gDlgSetDialogs([] {
        TessikDialogs dialogs = CancelledDialogs();
        dialogs.ImaLoadPara = [](tagZEKImaLoadPara& para) {
            para.Width = Width;
            para.Height = Height;
            para.DataType = 1;
            return true;
        };
        return dialogs;
    }());
    Host.Desktop.ChooseFiles = [this](const VostelFileRequest&, std::vector<CString>& paths) {
        paths.assign(1, Folder.WidePath("saved.png"));
        return true;
    };
    Host.Desktop.ChooseFolder = [this](const CString&, CString& folder) {
        folder = Folder.WidePath();
        return true;
    };
    FillPlane(Floats, 23, 17, [](int x, int y) { return x * y % 7 - 2.5; });
    FillPlane(Kernel, 5, 5, [](int x, int y) { return x + y; });
    FillPlane(Result, 11, 17, [](int x, int y) { return x - y; });
    FillPlane(Bytes, 21, 13, [](int x, int y) { return x * y; });
    FillPlane(Words, 9, 8, [](int x, int y) { return 100 * x + y; });
    FillPlane(Shorts, 9, 8, [](int x, int y) { return x - y; });
    FillPlane(Labels, 30, 30, [](int x, int y) { return x == y ? 1 : 0; });
    REQUIRE(Picture.Create(20, 10, 24));
    Transform.Init(16, true);
    Lines = {L"a line that is longer than a short one", L"a short one"};

    Host.ShowFloat(Width, Height, [](int x, int y) { return 3 * x + y; });
    AddObject(VOSTEL_POLYGON, {{5, 5}, {25, 6}, {14, 22}});
    AddObject(VOSTEL_SPLINE, {{20, 5}, {35, 6}, {34, 22}});
    AddObject(VOSTEL_LENGTH, {{3, 4}, {20, 9}});
    AddObject(VOSTEL_TEXT, {{3, 14}});
    AddObject(VOSTEL_PROFILE, {{3, 4}, {30, 4}});
    Host.Paint();
}

ClassicWorld::~ClassicWorld() = default;
