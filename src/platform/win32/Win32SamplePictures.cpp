// PNG, JPEG, TIFF and whatever else the system has codecs for, by the Windows Imaging Component. What it does
// not know is not supported: signed and whole 32-bit samples of TIFF, and WebP where its codec is missing.

#include "platform/PictureBuffer.h"
#include "platform/SampleCodecs.h"

#include <initguid.h>
#include <windows.h>

#include <wincodec.h>

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

// How the pixels of a frame become samples.
struct Plan {
    SampleType Type;
    GUID       Format;    // that they are asked for in
    // Unpacked here, where the system's own conversion is missing or rounds in its own way:
    int  Bits = 0;    // of indices or grays of up to 8 bits
    bool Indexed = false;
    int  Words = 0;    // of 16 bits a pixel, red first
};

Plan PlanFor(const GUID& format)
{
    const struct {
        GUID Format;
        int  Bits;
        bool Indexed;
    } packed[] = {{GUID_WICPixelFormat1bppIndexed, 1, true}, {GUID_WICPixelFormat2bppIndexed, 2, true},
                  {GUID_WICPixelFormat4bppIndexed, 4, true}, {GUID_WICPixelFormat8bppIndexed, 8, true},
                  {GUID_WICPixelFormatBlackWhite, 1, false}, {GUID_WICPixelFormat2bppGray, 2, false},
                  {GUID_WICPixelFormat4bppGray, 4, false}};
    for (const auto& kind : packed) {
        if (kind.Format == format)
            return {.Type = SampleType::U8, .Format = format, .Bits = kind.Bits, .Indexed = kind.Indexed};
    }
    if (format == GUID_WICPixelFormat48bppRGB)
        return {.Type = SampleType::Rgb8, .Format = format, .Words = 3};
    if (format == GUID_WICPixelFormat64bppRGBA)
        return {.Type = SampleType::Bgra8, .Format = format, .Words = 4};
    if (format == GUID_WICPixelFormat8bppGray)
        return {.Type = SampleType::U8, .Format = format};
    if (format == GUID_WICPixelFormat16bppGray)
        return {.Type = SampleType::U16, .Format = format};
    if (format == GUID_WICPixelFormat32bppGrayFloat || format == GUID_WICPixelFormat16bppGrayHalf)
        return {.Type = SampleType::F32, .Format = GUID_WICPixelFormat32bppGrayFloat};
    for (const GUID& alpha : {GUID_WICPixelFormat32bppBGRA, GUID_WICPixelFormat32bppPBGRA,
                              GUID_WICPixelFormat32bppRGBA, GUID_WICPixelFormat64bppPRGBA}) {
        if (alpha == format)
            return {.Type = SampleType::Bgra8, .Format = GUID_WICPixelFormat32bppBGRA};
    }
    return {.Type = SampleType::Bgr8, .Format = GUID_WICPixelFormat24bppBGR};
}

bool ReadPalette(Opened& opened, IWICBitmapFrameDecode& frame, std::vector<unsigned>& colors)
{
    Held<IWICPalette> palette;
    WICColor          entries[256] = {};
    UINT              count = 0;
    if (FAILED(opened.Factory->CreatePalette(palette.Out())) || FAILED(frame.CopyPalette(palette.Get())) ||
        FAILED(palette->GetColors(static_cast<UINT>(std::size(entries)), entries, &count)))
        return false;
    for (UINT i = 0; i < count; ++i)
        colors.push_back(entries[i] & 0xFFFFFFu);
    return true;
}

// Indices or grays of up to 8 bits, the left pixel in the high bits.
PictureOutcome UnpackBits(Opened& opened, IWICBitmapFrameDecode& frame, const Plan& plan, PaletteUse palettes,
                          ImageSamples& samples)
{
    const unsigned    top = (1u << plan.Bits) - 1;
    const std::size_t stride =
        (static_cast<std::size_t>(samples.Width) * static_cast<std::size_t>(plan.Bits) + 7) / 8;
    std::vector<unsigned char> packed(stride * static_cast<std::size_t>(samples.Height));
    if (FAILED(frame.CopyPixels(nullptr, static_cast<UINT>(stride), static_cast<UINT>(packed.size()),
                                packed.data())))
        return PictureOutcome::BadFormat;
    for (int y = 0; y < samples.Height; ++y) {
        const unsigned char* const row = packed.data() + stride * static_cast<std::size_t>(y);
        unsigned char* const       target = samples.Row<unsigned char>(y);
        for (int x = 0; x < samples.Width; ++x) {
            const int      bit = x * plan.Bits;
            const unsigned value = row[bit / 8] >> (8 - plan.Bits - bit % 8) & top;
            target[x] = plan.Indexed ? static_cast<unsigned char>(value) : ScaledByte(value, top);
        }
    }
    if (!plan.Indexed || palettes == PaletteUse::Indices)
        return PictureOutcome::Taken;
    std::vector<unsigned> colors;
    if (!ReadPalette(opened, frame, colors))
        return PictureOutcome::BadFormat;
    samples = ColorsOfIndices(std::move(samples), colors);
    return PictureOutcome::Taken;
}

// Colors of 16 bits, row by row.
PictureOutcome UnpackWords(IWICBitmapFrameDecode& frame, const Plan& plan, ImageSamples& samples)
{
    const bool                 alpha = plan.Words == 4;
    std::vector<std::uint16_t> words(static_cast<std::size_t>(samples.Width) *
                                     static_cast<std::size_t>(plan.Words));
    const UINT                 stride = static_cast<UINT>(words.size() * sizeof words[0]);
    for (int y = 0; y < samples.Height; ++y) {
        const WICRect row = {0, y, samples.Width, 1};
        if (FAILED(frame.CopyPixels(&row, stride, stride, reinterpret_cast<BYTE*>(words.data()))))
            return PictureOutcome::BadFormat;
        unsigned char* target = samples.Row<unsigned char>(y);
        for (std::size_t at = 0; at < words.size();
             at += static_cast<std::size_t>(plan.Words), target += plan.Words) {
            const unsigned char red = ScaledByte(words[at], 65535);
            const unsigned char blue = ScaledByte(words[at + 2], 65535);
            target[0] = alpha ? blue : red;
            target[1] = ScaledByte(words[at + 1], 65535);
            target[2] = alpha ? red : blue;
            if (alpha)
                target[3] = ScaledByte(words[at + 3], 65535);
        }
    }
    return PictureOutcome::Taken;
}

PictureOutcome CopyPixels(Opened& opened, IWICBitmapFrameDecode& frame, const Plan& plan, const GUID& format,
                          PaletteUse palettes, ImageSamples& samples)
{
    const UINT stride = static_cast<UINT>(samples.RowBytes());
    if (samples.Bytes() > UINT32_MAX)
        return PictureOutcome::TooLarge;
    const UINT bytes = static_cast<UINT>(samples.Bytes());
    if (plan.Bits > 0)
        return UnpackBits(opened, frame, plan, palettes, samples);
    if (plan.Words > 0)
        return UnpackWords(frame, plan, samples);
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
    const PictureOutcome made = MakeSamples(file, plan.Type, width, height, samples);
    if (made != PictureOutcome::Taken)
        return made;
    const PictureOutcome copied = CopyPixels(opened, *frame.Get(), plan, format, file.Palettes, samples);
    if (copied != PictureOutcome::Taken)
        return copied;
    if (isTiff)
        samples = Oriented(std::move(samples), OrientationOfTiff(file.Bytes, file.Page));
    return PictureOutcome::Taken;
}

}

PictureOutcome DecodePngSamples(const SampleFile& file, ImageSamples& samples)
{
    return Decode(file, false, samples);
}

PictureOutcome DecodeJpegSamples(const SampleFile& file, ImageSamples& samples)
{
    return Decode(file, false, samples);
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
