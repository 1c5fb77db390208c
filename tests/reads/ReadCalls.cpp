#include "reads/ReadCalls.h"

#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string_view>

const char Refused[] = "refused";

namespace {

constexpr int         Width = 32, Height = 24;
constexpr std::size_t RawBytes = 4 * Width * Height;    // no more than one read of the system takes
const char* const     TreeNames[] = {"tree/a.raw", "tree/b.raw"};

std::string Digest(const void* bytes, std::size_t count)
{
    const std::string_view text(static_cast<const char*>(bytes), count);
    return std::to_string(count) + " bytes " + std::to_string(std::hash<std::string_view>()(text)) + "; ";
}

template <typename T>
std::string Digest(const ClassData2DIO<T>& plane)
{
    const std::size_t count = static_cast<std::size_t>(plane.Width) * static_cast<std::size_t>(plane.Height);
    return std::to_string(plane.Width) + " x " + std::to_string(plane.Height) + ": " +
           (plane.Ptr1D ? Digest(plane.Ptr1D, count * sizeof(T)) : "none; ");
}

std::string Digest(const Frame& frame)
{
    return std::to_string(frame.Width) + " x " + std::to_string(frame.Height) + ": " +
           Digest(frame.Pixels.data(), frame.Pixels.size() * sizeof frame.Pixels[0]);
}

std::string Digest(const std::vector<CString>& texts)
{
    std::string all;
    for (CString text : texts)
        all += CStringToString(text) + "\n";
    return all;
}

// Calls of the open interface.
template <typename Call>
std::string Ask(ReadScene& scene, Call call)
{
    const std::string  before = scene.Shown();
    const VostelStatus status = call(scene.Host.Number);
    const std::string  message = vostel_last_message();
    const std::string  after = scene.Shown();
    if (status == VOSTEL_OK)
        return message + "\n" + after;
    const bool told = status == VOSTEL_NOT_READ || status == VOSTEL_BAD_FORMAT ||
                      status == VOSTEL_NOT_SUPPORTED || status == VOSTEL_TOO_LARGE;
    return after == before && told && !message.empty() ? Refused : "refused in another way: " + message;
}

std::string OpenImage(ReadScene& scene, const std::string& path)
{
    return Ask(scene, [&](int canvas) { return vostel_image_open(canvas, path.c_str(), 0); });
}

std::string OpenPage(ReadScene& scene, const std::string& path)
{
    return Ask(scene, [&](int canvas) { return vostel_image_open_page(canvas, path.c_str(), 0, 0); });
}

std::string OpenRaw(ReadScene& scene, const std::string& path)
{
    const VostelRawLayout layout = {sizeof layout, VOSTEL_U8, Width, Height, 0, 0};
    return Ask(scene, [&](int canvas) { return vostel_image_open_raw(canvas, path.c_str(), &layout, 0); });
}

std::string ReadRaw(ReadScene& scene, const std::string& path)
{
    const VostelRawLayout     layout = {sizeof layout, VOSTEL_U8, Width, Height, 0, 0};
    std::vector<std::uint8_t> samples(static_cast<std::size_t>(Width) * Height);
    VostelPlane               plane = {sizeof plane, VOSTEL_U8, Width, Height, 0, samples.data()};
    std::string text = Ask(scene, [&](int) { return vostel_read_raw(path.c_str(), &layout, &plane); });
    return text == Refused ? text : text + std::string(samples.begin(), samples.end());
}

std::string CountPages(ReadScene& scene, const std::string& path)
{
    int32_t     pages = 0;
    std::string text = Ask(scene, [&](int) { return vostel_image_pages(path.c_str(), &pages); });
    return text == Refused ? text : text + std::to_string(pages);
}

std::string OpenSession(ReadScene& scene, const std::string& path)
{
    return Ask(scene, [&](int canvas) { return vostel_session_open(canvas, path.c_str(), 0); });
}

std::string ImportRegions(ReadScene& scene, const std::string& path)
{
    const char* const format = path.find("coco") == std::string::npos ? nullptr : "coco";
    return Ask(scene, [&](int canvas) {
        std::size_t count = 0;
        return vostel_regions_import(canvas, path.c_str(), format, &count);
    });
}

// Calls of the classic interface.
std::string LoadOnCanvas(ReadScene& scene, const std::string& path)
{
    CString name(path.c_str());
    scene.Host.Desktop.Messages.clear();
    gCVSReadFile(scene.Host.Number, name, true);
    return Digest(scene.Host.Desktop.Messages) + Digest(gCVSGetRaw(scene.Host.Number)) + scene.Shown();
}

template <int Type>
std::string LoadRawOnCanvas(ReadScene& scene, const std::string& path)
{
    scene.RawType = Type;
    return LoadOnCanvas(scene, path);
}

std::string LoadPicture(ReadScene&, const std::string& path)
{
    CImage     picture;
    const bool loaded = picture.Load(CString(path.c_str())) >= 0;
    if (picture.IsNull())
        return loaded ? "loaded and empty" : "not loaded";
    const int   height = picture.GetHeight();
    std::string text = std::to_string(picture.GetWidth()) + " x " + std::to_string(height) + ", ";
    for (int y = 0; y < height; ++y)
        text += Digest(picture.GetPixelAddress(0, y),
                       static_cast<std::size_t>(std::max(picture.GetPitch(), -picture.GetPitch())));
    return text;
}

std::string ReadColorBmp(ReadScene&, const std::string& path)
{
    ClassData2DIO<unsigned char> red, green, blue, gray;
    std::string                  name = path;
    const bool                   read = ZEKReadColorBmp(name.data(), &red, &green, &blue, &gray);
    return std::to_string(read) + Digest(red) + Digest(green) + Digest(blue) + Digest(gray);
}

std::string ReadGrayBmp(ReadScene&, const std::string& path)
{
    ClassData2DIO<unsigned char> gray;
    std::string                  name = path;
    const bool                   read = ZEKReadGrayBmp(name.data(), &gray);
    return std::to_string(read) + Digest(gray);
}

// Reads into a plane that is there.
template <typename T, typename Read>
std::string ReadInto(ReadScene& scene, const std::string& path, Read read)
{
    ClassData2DIO<T> plane;
    std::string      name = path;
    FillPlane(plane, 20, 15, [](int x, int y) { return x + y; });
    scene.Host.Desktop.Messages.clear();
    read(plane, name.data());
    return Digest(plane) + Digest(scene.Host.Desktop.Messages);
}

std::string ReadFloats(ReadScene& scene, const std::string& path)
{
    return ReadInto<float>(scene, path, [](auto& plane, const char* name) { plane.ReadFile(name, 3); });
}

std::string ReadShorts(ReadScene& scene, const std::string& path)
{
    return ReadInto<short>(scene, path, [](auto& plane, const char* name) { plane.ReadFile(name, 3); });
}

std::string ReadPlainBytes(ReadScene& scene, const std::string& path)
{
    return ReadInto<unsigned char>(scene, path, [](auto& plane, const char* name) { plane.ReadFile(name); });
}

std::string ReadWordsOfBytes(ReadScene& scene, const std::string& path)
{
    return ReadInto<unsigned short>(scene, path,
                                    [](auto& plane, char* name) { ReadUsDataChar(plane, name); });
}

std::string ReadWordsOfFloats(ReadScene& scene, const std::string& path)
{
    return ReadInto<unsigned short>(
        scene, path, [](auto& plane, char* name) { ReadUsDataFloat(plane, name, 0.0f, 1.0f); });
}

std::string ReadWordsOfShorts(ReadScene& scene, const std::string& path)
{
    return ReadInto<unsigned short>(scene, path,
                                    [](auto& plane, char* name) { ReadUsDataShort(plane, name); });
}

std::string ReadParameters(ReadScene&, const std::string& path)
{
    std::string name = path;
    std::string text;
    ZEKIODisk   disk;
    disk.OpenRead(name.data());
    disk.ReadMap();
    disk.CloseRead();
    for (const auto& entry : disk.ParaMap)
        text += entry.first + "=" + entry.second + "\n";
    return text;
}

std::string ReadLines(ReadScene&, const std::string& path)
{
    std::string          name = path;
    std::vector<CString> lines;
    const bool           failed = OSDIR().Read(name.data(), lines);
    return std::to_string(failed) + Digest(lines);
}

std::string AskSize(ReadScene&, const std::string& path)
{
    return std::to_string(cFileSize(path.c_str()));
}

std::string BareName(const std::string& path)
{
    return std::filesystem::path(path).filename().string();
}

std::string FolderOf(const std::string& path)
{
    return std::filesystem::path(path).parent_path().string();
}

std::string FindFiles(ReadScene&, const std::string& path)
{
    std::wstring         folder(CString(FolderOf(path).c_str())), pattern(L"*.*");
    std::vector<CString> found;
    OSDIR().FindFile(folder.data(), found, true, pattern.data());
    return Digest(found);
}

std::string ListFiles(ReadScene&, const std::string& path)
{
    std::vector<std::string> names;
    std::string              text = std::to_string(OSGetFileListFromDir(FolderOf(path) + "/*.*", names));
    for (const std::string& name : names)
        text += name + "\n";
    return text;
}

// Of a copy that ends early the files that are there are whole.
std::string CopyTree(ReadScene&, const std::string& path)
{
    const TempFolder target;
    const bool       copied = OSDIR().DirectoryOperate(CString((FolderOf(path) + "\\*.*").c_str()),
                                                       target.WidePath() + L"\\*.*", 0);
    std::string      text;
    std::size_t      whole = 0;
    for (const char* name : TreeNames) {
        const std::vector<unsigned char> bytes = ReadBytes(target.Path(BareName(name)));
        text += name + Digest(bytes.data(), bytes.size());
        whole += std::filesystem::exists(target.Path(BareName(name))) &&
                 (name == path.substr(path.size() - std::strlen(name)) ||
                  bytes.size() == RawBytes);    // the one that changes may come to any length
    }
    if (copied)
        return text;
    return whole == target.EntryCount() ? Refused : "refused in the middle of a file";
}

void WriteRaw(const std::string& path, int content)
{
    std::vector<unsigned char> bytes(RawBytes);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(content == 1 ? i * 7 : 63 + i % 3);
    REQUIRE(WriteBytes(path, bytes));
}

void WriteParameters(const std::string& path, int content)
{
    std::string text;
    for (int i = 0; i < 2000; ++i)
        text += "name" + std::string(1, static_cast<char>('a' + i % 26)) +
                std::string(1, static_cast<char>('a' + i / 26)) + " = " + std::to_string(i * content) + "\n";
    REQUIRE(WriteText(path, text));
}

void WriteCanvas(const TempFolder& folder, int content)
{
    const OpenCanvas canvas;
    const double     side = 8.0 * content;
    REQUIRE(vostel_image_open(canvas.Number, folder.Path("image.png").c_str(), 0) == VOSTEL_OK);
    const VostelObject region =
        Add(canvas.Number, VOSTEL_POLYGON, {{5, 5}, {5 + side, 6}, {9 + side, 9 + side}, {6, 5 + side}});
    REQUIRE(vostel_object_set_name(canvas.Number, region, content == 1 ? "first" : "second") == VOSTEL_OK);
    for (int i = 0; i < content; ++i)
        Add(canvas.Number, VOSTEL_POINTS, {{side, 20}, {30, side}});
    REQUIRE(vostel_session_save(canvas.Number, folder.Path("session.vostel.json").c_str(), 0) == VOSTEL_OK);
    for (const char* name : {"regions.json", "regions.geojson", "regions-coco.json", "regions.csv",
                             "regions.zip", "regions.png"})
        REQUIRE(vostel_regions_export(canvas.Number, folder.Path(name).c_str(),
                                      std::strstr(name, "coco") ? "coco" : nullptr) == VOSTEL_OK);
}

}

ReadScene::ReadScene() : Dialogs(CancelledDialogs())
{
    gDlgSetDialogs([this] {
        TessikDialogs dialogs = CancelledDialogs();
        dialogs.ImaLoadPara = [this](tagZEKImaLoadPara& para) {
            para.Width = Width;
            para.Height = Height;
            para.DataType = RawType;
            return true;
        };
        return dialogs;
    }());
    Host.ShowFloat(Width, Height, [](int x, int y) { return 3 * x + y; });
    Add(Host.Number, VOSTEL_POLYGON, {{5, 5}, {25, 6}, {14, 22}});
    Host.Paint();
}

std::string ReadScene::Shown() const
{
    const VostelHistoryInfo history = HistoryOf(Host.Number);
    VostelImageInfo         image = {};
    image.size = sizeof image;
    const bool has = vostel_image_info(Host.Number, &image) == VOSTEL_OK;
    return StateOf(Host.Number) + std::to_string(has ? image.type : -1) + ", steps " +
           std::to_string(history.undo_count) + ", " + Digest(Host.Surface());
}

const std::vector<ReadCall>& ReadCalls()
{
    constexpr char Load[] = "ATL::CImage::Load(wchar_t const*)";
    constexpr char OnCanvas[] = "gCVSReadFile(int, CString&, bool)";
    constexpr char ColorBmp[] =
        "ZEKReadColorBmp(char*, ClassData2DIO<unsigned char>*, ClassData2DIO<unsigned char>*, "
        "ClassData2DIO<unsigned char>*, ClassData2DIO<unsigned char>*)";
    constexpr char GrayBmp[] = "ZEKReadGrayBmp(char*, ClassData2DIO<unsigned char>*)";
    constexpr char Find[] =
        "OSDIR::FindFile(wchar_t*, std::vector<CString, std::allocator<CString> >&, bool, wchar_t*)";
    constexpr char List[] =
        "OSGetFileListFromDir(std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> "
        ">, std::vector<std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >, "
        "std::allocator<std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> > > "
        ">&)";
    static const std::vector<ReadCall> calls = {
        {Load, "image.png", "", false, LoadPicture},
        {Load, "image.jpg", "", false, LoadPicture},
        {Load, "image.gif", "", false, LoadPicture},
        {Load, "image.tif", "", false, LoadPicture},
        {Load, "image.bmp", "", false, LoadPicture},
        {OnCanvas, "image.png", "", false, LoadOnCanvas},
        {OnCanvas, "image.bmp", "", false, LoadOnCanvas},
        {OnCanvas, "data.raw", "", false, LoadRawOnCanvas<0>},
        {OnCanvas, "data.raw", "", false, LoadRawOnCanvas<1>},
        {OnCanvas, "data.raw", "", false, LoadRawOnCanvas<2>},
        {OnCanvas, "data.raw", "", false, LoadRawOnCanvas<3>},
        {ColorBmp, "image.bmp", "", true, ReadColorBmp},
        {GrayBmp, "gray.bmp", "", true, ReadGrayBmp},
        {GrayBmp, "large.bmp", "", true, ReadGrayBmp},
        {"ClassData2DIO<float>::ReadFile(char const*, unsigned int)", "data.raw", "", false, ReadFloats},
        {"ClassData2DIO<short>::ReadFile(char const*, unsigned int)", "data.raw", "", false, ReadShorts},
        {"ClassData2DIO<unsigned char>::ReadFile(char const*)", "data.raw", "", false, ReadPlainBytes},
        {"ReadUsDataChar(ClassData2DIO<unsigned short>&, char*)", "data.raw", "", false, ReadWordsOfBytes},
        {"ReadUsDataFloat(ClassData2DIO<unsigned short>&, char*, float, float)", "data.raw", "", false,
         ReadWordsOfFloats},
        {"ReadUsDataShort(ClassData2DIO<unsigned short>&, char*)", "data.raw", "", false, ReadWordsOfShorts},
        {"ZEKIODisk::ReadMap()", "para.ini", "", true, ReadParameters},
        {"OSDIR::Read(char*, std::vector<CString, std::allocator<CString> >&)", "para.ini", "", true,
         ReadLines},
        {"cFileSize(char const*)", "data.raw", "", false, AskSize},
        {Find, "tree/a.raw", "", false, FindFiles},
        {List, "tree/a.raw", "", false, ListFiles},
        {"OSDIR::DirectoryOperate(CString, CString, unsigned int)", "tree/a.raw", "", false, CopyTree},
        {"vostel_image_open", "image.png", "", false, OpenImage},
        {"vostel_image_open", "image.jpg", "", false, OpenImage},
        {"vostel_image_open", "image.tif", "", false, OpenImage},
        {"vostel_image_open", "image.gif", "", false, OpenImage},
        {"vostel_image_open", "image.bmp", "", false, OpenImage},
        {"vostel_image_open", "image.pgm", "", false, OpenImage},
        {"vostel_image_open_page", "image.tif", "", false, OpenPage},
        {"vostel_image_pages", "image.tif", "", false, CountPages},
        {"vostel_image_open_raw", "data.raw", "", false, OpenRaw},
        {"vostel_read_raw", "data.raw", "", false, ReadRaw},
        {"vostel_session_open", "session.vostel.json", "", false, OpenSession},
        {"vostel_session_open", "session.vostel.json", "image.png", false, OpenSession},
        {"vostel_regions_import", "regions.json", "", false, ImportRegions},
        {"vostel_regions_import", "regions.geojson", "", false, ImportRegions},
        {"vostel_regions_import", "regions-coco.json", "", false, ImportRegions},
        {"vostel_regions_import", "regions.csv", "", false, ImportRegions},
        {"vostel_regions_import", "regions.zip", "", false, ImportRegions},
        {"vostel_regions_import", "regions.png", "", false, ImportRegions},
        {"vostel_regions_import", "regions.png", "regions.labels.json", false, ImportRegions},
    };
    return calls;
}

void WriteFiles(const TempFolder& folder, int content)
{
    CImage picture;
    REQUIRE(picture.Create(Width, Height, 24));
    for (int y = 0; y < Height; ++y)
        std::memset(picture.GetPixelAddress(0, y), 3 * y * content, 3 * Width);
    for (const char* name : {"image.png", "image.jpg", "image.gif", "image.tif", "image.bmp"})
        REQUIRE(picture.Save(folder.WidePath(name)) >= 0);
    for (const char* name : {"gray.bmp", "large.bmp"}) {
        ClassData2DIO<unsigned char> plane;
        const int                    scale = name[0] == 'l' ? 20 : 1;
        FillPlane(plane, scale * Width - 3, scale * Height, [=](int x, int y) { return x * y + content; });
        std::string path = folder.Path(name);
        REQUIRE(ZEKSaveGrayBmp(path.data(), plane));
    }
    REQUIRE(WriteText(folder.Path("image.pgm"),
                      "P5 20 15 255\n" + std::string(20 * 15, static_cast<char>(40 * content))));
    WriteRaw(folder.Path("data.raw"), content);
    folder.MakeFolder("tree");
    for (const char* name : TreeNames)
        WriteRaw(folder.Path(name), content);
    WriteParameters(folder.Path("para.ini"), content);
    WriteCanvas(folder, content);
}
