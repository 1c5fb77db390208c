// Loads and saves of CImage by the codecs of this folder. Covered: BMP, PNG, JPEG, GIF and TIFF, each in the
// depths that files of that kind have. Left out: other formats, all images of a file but the first.

#include "platform/FileReading.h"
#include "platform/FileSaving.h"
#include "platform/Files.h"
#include "platform/HeldPicture.h"
#include "platform/PictureLimits.h"
#include "platform/PictureSaving.h"
#include "platform/portable/PictureCodecs.h"

#include <algorithm>
#include <new>
#include <string>

using namespace vostel;

namespace {

constexpr int LargestSideOfAny = 65500;    // px that every format can count

bool ReadWholeFile(const std::string& path, pictures::Bytes& bytes)
{
    const OwnedFile file = OpenFile(path.c_str(), "rb");
    const long long length = file ? FileLength(file.get()) : -1;
    if (length <= 0 || length > LimitsOfCImage().MaxFileBytes)
        return false;
    bytes.resize(static_cast<std::size_t>(length));
    return ReadToEnd(file.get(), bytes.data(), bytes.size());
}

// The format is recognised by the contents; extensions are often wrong.
bool Decode(const pictures::Bytes& file, PictureBuffer& picture)
{
    return pictures::DecodePng(file, picture) || pictures::DecodeJpeg(file, picture) ||
           pictures::DecodeBmp(file, picture) || pictures::DecodeGif(file, picture) ||
           pictures::DecodeTiff(file, picture);
}

// Only one of the formats stores five bits per channel; all are given 24 bits.
bool CopyAsTriples(const PictureBuffer& picture, PictureBuffer& copy)
{
    if (!copy.Allocate(picture.Width, picture.Height, 24))
        return false;
    for (int y = 0; y < picture.Height; ++y)
        pictures::ColorRow(picture, y, copy.Row(y));
    return true;
}

using Encoder = bool (*)(const PictureBuffer&, pictures::Bytes&);

Encoder EncoderOf(const wchar_t* path)
{
    CString   extension(path);
    const int dot = extension.ReverseFind(L'.');
    if (dot < 0)
        return nullptr;
    extension = extension.Mid(dot + 1);
    extension.MakeLower();
    const struct {
        const wchar_t* Extension;
        Encoder        Encode;
    } encoders[] = {{L"bmp", pictures::EncodeBmp},   {L"dib", pictures::EncodeBmp},
                    {L"png", pictures::EncodePng},   {L"jpg", pictures::EncodeJpeg},
                    {L"jpeg", pictures::EncodeJpeg}, {L"gif", pictures::EncodeGif},
                    {L"tif", pictures::EncodeTiff},  {L"tiff", pictures::EncodeTiff}};
    for (const auto& encoder : encoders)
        if (extension == encoder.Extension)
            return encoder.Encode;
    return nullptr;
}

}

namespace ATL {

CImage::CImage() = default;
CImage::~CImage() = default;

HRESULT CImage::Load(const wchar_t* path)
{
    Destroy();
    if (!path)
        return E_FAIL;
    try {
        pictures::Bytes file;
        auto            loaded = std::make_unique<Picture>();
        if (!ReadWholeFile(NarrowAnsi(path, -1), file) || !Decode(file, *loaded))
            return E_FAIL;
        Held = std::move(loaded);
    } catch (const std::bad_alloc&) {
        return E_FAIL;
    }
    return S_OK;
}

HRESULT CImage::Save(const wchar_t* path) const
{
    if (!path || IsNull())
        return E_FAIL;
    try {
        const Encoder encode = EncoderOf(path);
        if (!encode)
            return E_FAIL;
        pictures::Bytes file;
        PictureBuffer   triples;
        if (Held->BitsPerPixel == 16 && !CopyAsTriples(*Held, triples))
            return NoMemoryForPicture;
        const PictureBuffer& picture = Held->BitsPerPixel == 16 ? triples : *Held;
        const unsigned char* rows = nullptr;
        std::size_t          rowBytes = 0;
        if (encode == pictures::EncodeBmp && picture.BottomUp) {
            // Rows that lie in memory as in the file need no second buffer.
            pictures::EncodeBmpHead(picture, file);
            rows = picture.Row(picture.Height - 1);
            rowBytes = static_cast<std::size_t>(picture.RowBytes) * static_cast<std::size_t>(picture.Height);
        } else if (!encode(picture, file)) {
            // What every format can hold is not encoded for one reason alone.
            const bool holds = std::max(picture.Width, picture.Height) <= LargestSideOfAny;
            return holds ? NoMemoryForPicture : E_FAIL;
        }
        FileReplacement target(path);
        if (!target.Stream())
            return E_FAIL;
        std::fwrite(file.data(), 1, file.size(), target.Stream());
        if (rowBytes > 0)
            std::fwrite(rows, 1, rowBytes, target.Stream());
        if (!target.Keep())
            return E_FAIL;
    } catch (const std::bad_alloc&) {
        return NoMemoryForPicture;
    }
    return S_OK;
}

}
