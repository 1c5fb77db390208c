// WebP by libwebp, still pictures.

#include "platform/SampleCodecs.h"
#include "platform/portable/WebpReading.h"

#include <webp/decode.h>

namespace vostel::pictures {

PictureOutcome DecodeWebpSamples(const SampleFile& file, ImageSamples& samples)
{
    WebPBitstreamFeatures features;
    if (WebPGetFeatures(file.Bytes.data(), file.Bytes.size(), &features) != VP8_STATUS_OK)
        return PictureOutcome::BadFormat;
    if (features.has_animation)
        return PictureOutcome::NotSupported;
    const SampleType     type = features.has_alpha ? SampleType::Bgra8 : SampleType::Rgb8;
    const PictureOutcome made = MakeSamples(file, type, features.width, features.height, samples);
    if (made != PictureOutcome::Taken)
        return made;
    const WebpCodes codes = CodesOfWebp(file.Bytes, features.width, features.height);
    if (!codes.Valid)
        return PictureOutcome::BadFormat;
    if (codes.Bytes > MostBytesOfCodes(std::int64_t{features.width} * features.height))
        return PictureOutcome::TooLarge;
    // Blocks and pixels come once each, whatever the file holds; tables of codes are filled once.
    file.CountWork(static_cast<std::int64_t>(file.Bytes.size() + samples.Bytes()) + codes.Bytes);
    const auto decode = features.has_alpha ? WebPDecodeBGRAInto : WebPDecodeRGBInto;
    return decode(file.Bytes.data(), file.Bytes.size(), samples.Data(), samples.Bytes(),
                  static_cast<int>(samples.RowBytes()))
               ? PictureOutcome::Taken
               : PictureOutcome::BadFormat;
}

}
