// PNG, JPEG, TIFF and whatever else the system has codecs for, by the Windows Imaging Component. What it does
// not know is not supported: signed and whole 32-bit samples of TIFF, and WebP where its codec is missing.

#include "platform/PictureBuffer.h"
#include "platform/SampleCodecs.h"

#include <initguid.h>
#include <windows.h>

#include <wincodec.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vostel::pictures {
namespace {

// The calling thread in an apartment for as long as it needs one.
class Apartment {
public:
    Apartment() : Entered(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
    ~Apartment()
    {
        if (Entered)
            CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    bool Entered;
};

template <typename Interface>
class Held {
public:
    Held() = default;
    ~Held()
    {
        if (Object)
            Object->Release();
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    Interface** Out() { return &Object; }
    Interface*  Get() const { return Object; }
    Interface*  operator->() const { return Object; }

private:
    Interface* Object = nullptr;
};

struct Opened {
    Apartment                Com;
    Held<IWICImagingFactory> Factory;
    Held<IWICStream>         Stream;
    Held<IWICBitmapDecoder>  Decoder;
    UINT                     Frames = 0;
};

PictureOutcome Open(const SampleFile& file, Opened& opened)
{
    if (file.Bytes.size() > MAXDWORD)
        return PictureOutcome::TooLarge;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IWICImagingFactory, reinterpret_cast<void**>(opened.Factory.Out()))))
        return PictureOutcome::NotSupported;
    BYTE* const bytes = const_cast<BYTE*>(file.Bytes.data());    // read only
    if (FAILED(opened.Factory->CreateStream(opened.Stream.Out())) ||
        FAILED(opened.Stream->InitializeFromMemory(bytes, static_cast<DWORD>(file.Bytes.size()))))
        return PictureOutcome::NotSupported;
    const HRESULT made = opened.Factory->CreateDecoderFromStream(
        opened.Stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand, opened.Decoder.Out());
    if (made == WINCODEC_ERR_COMPONENTNOTFOUND)
        return PictureOutcome::NotSupported;
    if (FAILED(made) || FAILED(opened.Decoder->GetFrameCount(&opened.Frames)) || opened.Frames == 0)
        return PictureOutcome::BadFormat;
    return PictureOutcome::Taken;
}

bool IsOneOf(const GUID& format, std::initializer_list<GUID> formats)
{
    return std::find(formats.begin(), formats.end(), format) != formats.end();
}

// What a frame is converted to.
struct Plan {
    SampleType Type;
    GUID       Format;
    bool       Indexed = false;
};

Plan PlanFor(const GUID& format)
{
    if (IsOneOf(format, {GUID_WICPixelFormat1bppIndexed, GUID_WICPixelFormat2bppIndexed,
                         GUID_WICPixelFormat4bppIndexed, GUID_WICPixelFormat8bppIndexed}))
        return {SampleType::Bgr8, GUID_WICPixelFormat24bppBGR, true};
    if (IsOneOf(format, {GUID_WICPixelFormatBlackWhite, GUID_WICPixelFormat2bppGray,
                         GUID_WICPixelFormat4bppGray, GUID_WICPixelFormat8bppGray}))
        return {SampleType::U8, GUID_WICPixelFormat8bppGray};
    if (format == GUID_WICPixelFormat16bppGray)
        return {SampleType::U16, format};
    if (IsOneOf(format, {GUID_WICPixelFormat32bppGrayFloat, GUID_WICPixelFormat16bppGrayHalf}))
        return {SampleType::F32, GUID_WICPixelFormat32bppGrayFloat};
    if (IsOneOf(format,
                {GUID_WICPixelFormat32bppBGRA, GUID_WICPixelFormat32bppPBGRA, GUID_WICPixelFormat32bppRGBA,
                 GUID_WICPixelFormat64bppRGBA, GUID_WICPixelFormat64bppPRGBA}))
        return {SampleType::Bgra8, GUID_WICPixelFormat32bppBGRA};
    return {SampleType::Bgr8, GUID_WICPixelFormat24bppBGR};
}

bool HasGrayPalette(Opened& opened, IWICBitmapFrameDecode& frame)
{
    Held<IWICPalette> palette;
    WICColor          colors[256] = {};
    UINT              count = 0;
    if (FAILED(opened.Factory->CreatePalette(palette.Out())) || FAILED(frame.CopyPalette(palette.Get())) ||
        FAILED(palette->GetColors(static_cast<UINT>(std::size(colors)), colors, &count)))
        return false;
    return std::all_of(colors, colors + count,
                       [](WICColor color) { return (color & 0xFFFFFFu) == (color & 0xFFu) * 0x010101u; });
}

ImageSamples FirstChannel(const ImageSamples& triples)
{
    ImageSamples         gray(SampleType::U8, triples.Width, triples.Height);
    const unsigned char* source = triples.Data();
    for (std::size_t i = 0; i < gray.Bytes(); ++i)
        gray.Data()[i] = source[3 * i];
    return gray;
}

int OrientationOfTiff(IWICBitmapFrameDecode& frame)
{
    Held<IWICMetadataQueryReader> metadata;
    PROPVARIANT                   value;
    PropVariantInit(&value);
    if (FAILED(frame.GetMetadataQueryReader(metadata.Out())) ||
        FAILED(metadata->GetMetadataByName(L"/ifd/{ushort=274}", &value)))
        return 1;
    const int orientation = value.vt == VT_UI2 ? value.uiVal : 1;
    PropVariantClear(&value);
    return orientation;
}

PictureOutcome CopyPixels(Opened& opened, IWICBitmapFrameDecode& frame, const Plan& plan, const GUID& format,
                          ImageSamples& samples)
{
    const UINT stride = static_cast<UINT>(samples.RowBytes());
    if (samples.Bytes() > UINT32_MAX)
        return PictureOutcome::TooLarge;
    const UINT bytes = static_cast<UINT>(samples.Bytes());
    if (plan.Format == format)
        return SUCCEEDED(frame.CopyPixels(nullptr, stride, bytes, samples.Data()))
                   ? PictureOutcome::Taken
                   : PictureOutcome::BadFormat;
    Held<IWICFormatConverter> converter;
    if (FAILED(opened.Factory->CreateFormatConverter(converter.Out())) ||
        FAILED(converter->Initialize(&frame, plan.Format, WICBitmapDitherTypeNone, nullptr, 0.0,
                                     WICBitmapPaletteTypeCustom)))
        return PictureOutcome::NotSupported;
    return SUCCEEDED(converter->CopyPixels(nullptr, stride, bytes, samples.Data()))
               ? PictureOutcome::Taken
               : PictureOutcome::BadFormat;
}

PictureOutcome Decode(const SampleFile& file, bool isTiff, ImageSamples& samples)
{
    Opened               opened;
    const PictureOutcome open = Open(file, opened);
    if (open != PictureOutcome::Taken)
        return open;
    if (static_cast<UINT>(file.Page) >= opened.Frames)
        return PictureOutcome::NoSuchPage;
    Held<IWICBitmapFrameDecode> frame;
    UINT                        width = 0, height = 0;
    GUID                        format = {};
    if (FAILED(opened.Decoder->GetFrame(static_cast<UINT>(file.Page), frame.Out())) ||
        FAILED(frame->GetSize(&width, &height)) || FAILED(frame->GetPixelFormat(&format)))
        return PictureOutcome::BadFormat;
    const Plan           plan = PlanFor(format);
    const PictureOutcome made = MakeSamples(file.Limits, plan.Type, width, height, samples);
    if (made != PictureOutcome::Taken)
        return made;
    const PictureOutcome copied = CopyPixels(opened, *frame.Get(), plan, format, samples);
    if (copied != PictureOutcome::Taken)
        return copied;
    if (plan.Indexed && HasGrayPalette(opened, *frame.Get()))
        samples = FirstChannel(samples);
    if (isTiff)
        samples = Oriented(std::move(samples), OrientationOfTiff(*frame.Get()));
    return PictureOutcome::Taken;
}

}

PictureOutcome DecodePngSamples(const SampleFile& file, ImageSamples& samples)
{
    return Decode(file, false, samples);
}

PictureOutcome DecodeJpegSamples(const SampleFile& file, ImageSamples& samples)
{
    const PictureOutcome outcome = Decode(file, false, samples);
    if (outcome == PictureOutcome::Taken)
        samples = Oriented(std::move(samples), OrientationOfJpeg(file.Bytes));
    return outcome;
}

PictureOutcome DecodeTiffSamples(const SampleFile& file, ImageSamples& samples)
{
    return Decode(file, true, samples);
}

PictureOutcome DecodeWebpSamples(const SampleFile& file, ImageSamples& samples)
{
    return Decode(file, false, samples);
}

PictureOutcome CountTiffPages(const SampleFile& file, int& pages)
{
    Opened               opened;
    const PictureOutcome open = Open(file, opened);
    if (open == PictureOutcome::Taken)
        pages = static_cast<int>(opened.Frames);
    return open;
}

}
