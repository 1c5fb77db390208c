#include "canvas/VostelImage.h"

#include "base/Truncate.h"
#include "base/Utf8.h"
#include "fileio/FilePaths.h"
#include "output/FloatRange.h"
#include "platform/FileReading.h"
#include "platform/Files.h"
#include "platform/HostServices.h"
#include "vostel/BmpFiles.h"
#include "vostel/PathStrings.h"
#include "vostel/Tessik.h"

#include <algorithm>
#include <cstdint>
#include <memory>

namespace vostel {

namespace {

enum RawElement : int { RawUShort = 0, RawFloat = 1, RawShort = 2, RawByte = 3 };

bool IsRawElement(int dataType)
{
    return dataType >= RawUShort && dataType <= RawByte;
}

std::size_t BytesOf(int dataType)
{
    switch (dataType) {
    case RawUShort:
    case RawShort:
        return 2;
    case RawFloat:
        return 4;
    default:
        return 1;
    }
}

// What a file holds behind the bytes that are skipped; 0 if there is no such file.
std::uint64_t DataBytes(const char* path, std::uint64_t skipped)
{
    const OwnedFile file = OpenFile(path, "rb");
    const long long length = file ? FileLength(file.get()) : 0;
    return length > 0 && static_cast<std::uint64_t>(length) > skipped
               ? static_cast<std::uint64_t>(length) - skipped
               : 0;
}

// A short file leaves zeros behind what it holds, and so does a missing one. A size that the file does not
// remotely fill is treated as a typing error and refused above this many pixels.
constexpr std::uint64_t FreePixels = std::uint64_t(1) << 24;

bool IsPlausible(const tagZEKImaLoadPara& layout, const char* path)
{
    if (layout.Width < 0 || layout.Height < 0)
        return false;
    const std::uint64_t pixels =
        static_cast<std::uint64_t>(layout.Width) * static_cast<std::uint64_t>(layout.Height);
    const std::uint64_t skipped = layout.DataType == RawByte ? 0 : layout.HeaderBytes;
    // Rows without columns have no pixels, but each still has a place in a row table.
    const std::uint64_t size = std::max(pixels, static_cast<std::uint64_t>(layout.Height));
    return pixels <= INT32_MAX &&
           (size <= FreePixels || size / 4 <= DataBytes(path, skipped) / BytesOf(layout.DataType));
}

template <typename T>
void AllocateZeroed(ClassData2DIO<T>& plane, int width, int height)
{
    plane.Allocate(width, height);
    std::fill_n(plane.Ptr1D, static_cast<std::size_t>(width) * static_cast<std::size_t>(height), T());
}

void ReadUShorts(ClassData2DIO<unsigned short>& plane, const char* path, std::uint32_t skipped)
{
    const OwnedFile file = OpenOrTell(path);
    if (!file)
        return;
    const long half = static_cast<long>(skipped / 2);    // long may hold 31 bits only
    if (std::fseek(file.get(), half, SEEK_SET) == 0 &&
        std::fseek(file.get(), half + static_cast<long>(skipped % 2), SEEK_CUR) == 0) {
        [[maybe_unused]] const std::size_t read = std::fread(
            plane.Ptr1D, sizeof *plane.Ptr1D,
            static_cast<std::size_t>(plane.Width) * static_cast<std::size_t>(plane.Height), file.get());
    }
}

// The file's elements as floats; false for an unknown element type.
bool ReadRawPlane(ClassData2DIO<float>& plane, const tagZEKImaLoadPara& layout, const char* path)
{
    switch (layout.DataType) {
    case RawUShort: {
        ClassData2DIO<unsigned short> elements;
        AllocateZeroed(elements, layout.Width, layout.Height);
        ReadUShorts(elements, path, layout.HeaderBytes);
        plane.ConvertFrom(elements, 0.0f);
        return true;
    }
    case RawFloat:
        AllocateZeroed(plane, layout.Width, layout.Height);
        plane.ReadFile(path, layout.HeaderBytes);
        return true;
    case RawShort: {
        ClassData2DIO<short> elements;
        AllocateZeroed(elements, layout.Width, layout.Height);
        elements.ReadFile(path, layout.HeaderBytes);
        plane.ConvertFrom(elements, 0.0f);
        return true;
    }
    case RawByte: {
        ClassData2DIO<unsigned char> elements;
        AllocateZeroed(elements, layout.Width, layout.Height);
        elements.ReadFile(path);
        plane.ConvertFrom(elements, 0.0f);
        return true;
    }
    default:
        return false;
    }
}

std::string AbsoluteUtf8(const CString& path)
{
    return AbsolutePath(Utf8Of(std::wstring_view(path, static_cast<std::size_t>(path.GetLength()))));
}

// The same layout as the open interface takes it; nothing for what the file does not hold in full.
std::optional<RawLayout> LayoutInFull(const tagZEKImaLoadPara& layout, const char* path)
{
    constexpr SampleType Types[] = {SampleType::U16, SampleType::F32, SampleType::I16, SampleType::U8};
    if (!IsRawElement(layout.DataType) || layout.Width < 1 || layout.Height < 1)
        return std::nullopt;
    const SampleType    type = Types[layout.DataType];
    const std::uint64_t skipped = layout.DataType == RawByte ? 0 : layout.HeaderBytes;
    const std::uint64_t bytes = PixelBytes(type) * static_cast<std::uint64_t>(layout.Width) *
                                static_cast<std::uint64_t>(layout.Height);
    if (DataBytes(path, skipped) < bytes)
        return std::nullopt;
    return RawLayout{type, layout.Width, layout.Height, static_cast<std::int64_t>(skipped), false};
}

void TruncateToBytes(const ClassData2DIO<float>& plane, ClassData2DIO<unsigned char>& bytes)
{
    bytes.Allocate(plane.Width, plane.Height);
    const std::size_t count = static_cast<std::size_t>(plane.Width) * static_cast<std::size_t>(plane.Height);
    for (std::size_t i = 0; i < count; ++i)
        bytes.Ptr1D[i] = TruncToByte(plane.Ptr1D[i]);
}

}

void VostelImage::ReadImageFile(CString& path, bool keepOriginal)
{
    // Before any dialog: a load that is cancelled has already cleared the objects.
    DeleteAll();
    CurrentFileType = FileTypeNone;
    OSCString     strings;
    const CString extension = strings.GetExt(path);
    if (extension == L"raw" || extension == L"hraw" || extension == L"his" || extension == L"nul")
        LoadRawImage(path, keepOriginal);
    else
        LoadCommonImage(path);
}

void VostelImage::LoadRawImage(CString path, bool keepOriginal)
{
    tagZEKImaLoadPara layout;
    if (!gDlgGetImaLoadPara(layout))
        return;
    const OSCString   narrow(path);
    const char* const name = narrow.GetChar();
    if (!IsPlausible(layout, name)) {
        // The readers report a missing file, but a refused size never reaches them.
        if (IsRawElement(layout.DataType) && !PathExists(name))
            ShowMessage(L"文件不存在");
        RawOri.Release();
        Raw.Release();
        return;
    }
    // The canvas keeps the sizes of what it shows until the data is there: hosts go by them to its rows, also
    // while a message about a missing file is up.
    ClassData2DIO<float> plane;
    if (!ReadRawPlane(plane, layout, name))
        return;
    if (layout.MapToByte == 0) {
        ShowRaw(plane, keepOriginal, true);
        // Without the original the values are not those of the file any more.
        const std::optional<RawLayout> raw = keepOriginal ? LayoutInFull(layout, name) : std::nullopt;
        if (raw)
            Source = ImageSource{AbsoluteUtf8(path), 0, raw, true};
        return;
    }
    const float lowest = layout.OutLow < 0.0f ? 0.0f : layout.OutLow;
    const float highest = layout.OutHigh < 255.0f ? layout.OutHigh : 255.0f;
    RemapRange(plane, plane, layout.InLow, layout.InHigh, lowest, highest, layout.MapToByte);
    ClassData2DIO<unsigned char> gray;
    TruncateToBytes(plane, gray);
    ShowGray(gray, true);
}

void VostelImage::LoadCommonImage(CString path)
{
    ATL::CImage picture;
    if (picture.Load(path) < 0 || picture.IsNull())
        return;
    const int  width = picture.GetWidth();
    const int  height = picture.GetHeight();
    const int  depth = picture.GetBPP();
    const bool shown = depth == 8 || depth == 24 || depth == 32;
    // Before anything changes: without memory for it the load fails as one without memory for the pixels
    // does.
    const std::unique_ptr<unsigned char*, void (*)(unsigned char**)> rows(Create2DList(&picture),
                                                                          Release2DList);
    if (!rows)
        return;

    RawOri.Release();
    Raw.Release();
    PrepareImage(width, height, true, !shown);
    CurrentFileType = shown ? FileTypeByte : FileTypeNone;
    if (!shown)
        return;
    // A palette picture's bytes count as gray as they stand.
    const RowFormat format = depth == 8 ? GrayRows : depth == 24 ? TripleRows : QuadRows;
    CanvasSurface.UploadRows(rows.get(), width, height, format);
    GrayOnSurface = depth == 8;
    Source = ImageSource{AbsoluteUtf8(path), 0, std::nullopt, true};
}

}
