#include "saves/SaveCalls.h"

#include "support/OpenShapes.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

namespace {

constexpr int Width = 64, Height = 48;

template <void (*Operation)(int)>
bool ByDialog(SaveScene& scene, const std::string& path)
{
    scene.Host.Desktop.ChooseFiles = [&](const VostelFileRequest&, std::vector<CString>& paths) {
        paths.assign(1, CString(path.c_str()));
        return true;
    };
    Operation(scene.Host.Number);
    return true;
}

// The image below a selected rectangle.
bool SavePart(SaveScene& scene, const std::string& path)
{
    gCVSAddMRectangle(scene.Host.Number);
    scene.Host.Drag(CPoint(10, 10), CPoint(40, 30), MK_LBUTTON | MK_SHIFT);
    scene.Host.Paint();
    scene.Host.Desktop.Messages.clear();    // how to draw it
    return ByDialog<gCVSSaveNowShowIma>(scene, path);
}

bool SavePicture(SaveScene& scene, const std::string& path)
{
    return scene.Picture.Save(CString(path.c_str())) >= 0;
}

bool SaveGrayBmp(SaveScene& scene, const std::string& path)
{
    std::string name = path;
    return ZEKSaveGrayBmp(name.data(), scene.Plane);
}

// Rows with padding, and more of them than one transfer takes.
bool SaveLargeBmp(SaveScene& scene, const std::string& path)
{
    ClassData2DIO<unsigned char> plane;
    FillPlane(plane, 701, 300, [&](int x, int y) { return x * y + scene.Content; });
    std::string name = path;
    return ZEKSaveGrayBmp(name.data(), plane);
}

bool SaveColorBmp(SaveScene& scene, const std::string& path)
{
    return ZEKSaveColorBmp(path.c_str(), &scene.Plane, &scene.Plane, &scene.Plane);
}

bool SavePlane(SaveScene& scene, const std::string& path)
{
    CString name(path.c_str());
    return gSaveUcData(&scene.Plane, name);
}

bool WriteList(SaveScene& scene, const std::string& path)
{
    std::string name = path;
    OSDIR().Write(name.data(), std::vector<CString>(20, scene.Content == 1 ? L"one" : L"two"));
    return true;
}

// Into the folder of the path, over what is there.
bool CopyTree(SaveScene& scene, const std::string& path)
{
    const std::string target = std::filesystem::path(path).parent_path().string();
    return OSDIR().DirectoryOperate(scene.Tree.WidePath() + L"\\*.*", CString((target + "\\*.*").c_str()), 0);
}

bool SaveCanvas(SaveScene& scene, const std::string& path)
{
    return vostel_picture_save(scene.Host.Number, path.c_str(), 1.0, VOSTEL_WITH_OBJECTS) == VOSTEL_OK;
}

bool SaveSession(SaveScene& scene, const std::string& path)
{
    return vostel_session_save(scene.Host.Number, path.c_str(), 0) == VOSTEL_OK;
}

bool ExportRegions(SaveScene& scene, const std::string& path)
{
    const char* const format = path.find("coco") == std::string::npos ? nullptr : "coco";
    return vostel_regions_export(scene.Host.Number, path.c_str(), format) == VOSTEL_OK;
}

}

const std::vector<SaveCall>& SaveCalls()
{
    constexpr char Gray[] = "ZEKSaveGrayBmp(char*, ClassData2DIO<unsigned char>&)";
    constexpr char Image[] = "ATL::CImage::Save(wchar_t const*) const";
    constexpr char ColorBmp[] =
        "ZEKSaveColorBmp(char const*, ClassData2DIO<unsigned char>*, ClassData2DIO<unsigned char>*, "
        "ClassData2DIO<unsigned char>*)";
    constexpr char List[] = "OSDIR::Write(char*, std::vector<CString, std::allocator<CString> >)";
    static const std::vector<SaveCall> calls = {
        {Image, "image.bmp", Tells::Always, SavePicture},
        {Image, "image.png", Tells::Always, SavePicture},
        {Image, "image.gif", Tells::Always, SavePicture},
        {Image, "image.jpg", Tells::Always, SavePicture},
        {Image, "image.tif", Tells::Always, SavePicture},
        {Gray, "gray.bmp", Tells::WhenNothingIsMade, SaveGrayBmp},
        {Gray, "large.bmp", Tells::WhenNothingIsMade, SaveLargeBmp},
        {ColorBmp, "color.bmp", Tells::WhenNothingIsMade, SaveColorBmp},
        {"gSaveUcData(ClassData2DIO<unsigned char>*, CString&)", "plane.png", Tells::Never, SavePlane},
        {List, "list.txt", Tells::Never, WriteList},
        {"OSDIR::DirectoryOperate(CString, CString, unsigned int)", "copied.bin", Tells::Always, CopyTree},
        {"gCVSSaveClient(int)", "client.png", Tells::Always, ByDialog<gCVSSaveClient>},
        {"gCVSSaveImaWithOverlap(int)", "overlap.bmp", Tells::Always, ByDialog<gCVSSaveImaWithOverlap>},
        {"gCVSSaveNowShowIma(int)", "shown.tif", Tells::Never, ByDialog<gCVSSaveNowShowIma>},
        {"gCVSSaveNowShowIma(int)", "part.png", Tells::Never, SavePart},
        {"gCVSSave8bit(int)", "eight.bmp", Tells::Never, ByDialog<gCVSSave8bit>},
        {"gCVSSaveRaw(int)", "data.raw", Tells::Never, ByDialog<gCVSSaveRaw>},
        {"gCVSSaveLabel(int)", "labels.raw", Tells::Never, ByDialog<gCVSSaveLabel>},
        {"vostel_picture_save", "canvas.png", Tells::Always, SaveCanvas},
        {"vostel_picture_save", "canvas.bmp", Tells::Always, SaveCanvas},
        {"vostel_picture_save", "canvas.svg", Tells::Always, SaveCanvas},
        {"vostel_picture_save", "canvas.pdf", Tells::Always, SaveCanvas},
        {"vostel_session_save", "session.vostel.json", Tells::Always, SaveSession},
        {"vostel_regions_export", "regions.json", Tells::Always, ExportRegions},
        {"vostel_regions_export", "regions.geojson", Tells::Always, ExportRegions},
        {"vostel_regions_export", "regions-coco.json", Tells::Always, ExportRegions},
        {"vostel_regions_export", "regions.csv", Tells::Always, ExportRegions},
        {"vostel_regions_export", "regions.svg", Tells::Always, ExportRegions},
        {"vostel_regions_export", "regions.zip", Tells::Always, ExportRegions},
        {"vostel_regions_export", "regions.png", Tells::Always, ExportRegions},    // and its legend
    };
    return calls;
}

void SaveScene::Take(int content)
{
    Content = content;
    Host.ShowFloat(Width, Height, [&](int x, int y) { return content == 1 ? x * y % 71 : x + 2 * y; });
    const double       side = 10.0 * content;
    const VostelObject region =
        Add(Host.Number, VOSTEL_POLYGON, {{5, 5}, {5 + side, 6}, {9 + side, 9 + side}, {6, 5 + side}});
    REQUIRE(vostel_object_set_name(Host.Number, region, content == 1 ? "first" : "second") == VOSTEL_OK);
    Add(Host.Number, VOSTEL_POINTS, {{side, 20}, {30, side}});
    Host.Paint();
    FillPlane(Plane, Width, Height, [&](int x, int y) { return content == 1 ? x + y : x * y; });
    REQUIRE(Picture.Create(Width, Height, 24));
    for (int y = 0; y < Height; ++y)
        std::memset(Picture.GetPixelAddress(0, y), y * content, 3 * Width);
    for (const char* name : {"copied.bin", "other.bin"})
        REQUIRE(WriteBytes(Tree.Path(name),
                           std::vector<unsigned char>(10000, static_cast<unsigned char>(content))));
}

bool SaveScene::Save(const SaveCall& call, const std::string& path)
{
    Host.Desktop.Messages.clear();
    return call.Run(*this, path) && Host.Desktop.Messages.empty();
}

Files FilesBelow(const std::string& folder)
{
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file() && entry.path().filename().string()[0] != '~')
            files[entry.path().lexically_relative(folder).string()] = ReadBytes(entry.path().string());
    return files;
}

SavedFolder::SavedFolder(SaveScene& scene, const SaveCall& call) : Scene(scene), Call(call)
{
    scene.Take(2);
    REQUIRE(Save());
    After = Found();
    scene.Take(1);
    REQUIRE(Save());
    Before = Found();
    scene.Take(2);
    REQUIRE(Before.count(call.File) == 1);
    REQUIRE(Before.size() == After.size());
}

bool SavedFolder::IsWhole() const
{
    const Files found = Found();
    return found.size() == Before.size() &&
           std::all_of(found.begin(), found.end(), [&](const Files::value_type& file) {
               const auto isIn = [&](const Files& files) {
                   const auto same = files.find(file.first);
                   return same != files.end() && same->second == file.second;
               };
               return isIn(Before) || isIn(After);
           });
}

void SavedFolder::PutBack() const
{
    for (const auto& entry : std::filesystem::directory_iterator(Folder.Path()))
        std::filesystem::remove(entry.path());
    for (const auto& file : Before)
        REQUIRE(WriteBytes(Folder.Path(file.first), file.second));
}
