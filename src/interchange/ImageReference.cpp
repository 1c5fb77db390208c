#include "interchange/ImageReference.h"

#include "base/Failure.h"
#include "base/Utf8.h"
#include "canvas/SampleRange.h"
#include "canvas/VostelImage.h"
#include "fileio/FilePaths.h"
#include "interchange/ObjectJson.h"
#include "interchange/SampleHash.h"

#include <algorithm>
#include <iterator>

namespace vostel {

namespace {

constexpr const char* TypeWords[] = {"u8", "u16", "i16", "f32", "rgb8", "bgr8", "bgra8"};

const char* TypeWord(SampleType type)
{
    return TypeWords[static_cast<std::size_t>(type)];
}

SampleType TypeOfJson(const Json& value, const std::string& name)
{
    const std::string text = TextValue(value, name);
    const auto* const found = std::find(std::begin(TypeWords), std::end(TypeWords), text);
    if (found == std::end(TypeWords))
        Fail(VOSTEL_BAD_FORMAT, name + " is \"" + text + "\", which is no type of samples");
    return static_cast<SampleType>(found - std::begin(TypeWords));
}

const Json& Needed(const Json& object, const char* member, const std::string& place)
{
    const Json* const value = Member(object, member);
    if (!value)
        Fail(VOSTEL_BAD_FORMAT, place + " has no " + member);
    return *value;
}

int Side(const Json& object, const char* member, const std::string& place)
{
    return static_cast<int>(WholeNumber(Needed(object, member, place), 1, INT32_MAX, place + "." + member));
}

Json JsonOfRaw(const RawLayout& raw)
{
    Json json;
    json["type"] = TypeWord(raw.Type);
    json["width"] = raw.Width;
    json["height"] = raw.Height;
    json["offset"] = raw.Offset;
    json["big_endian"] = raw.BigEndian;
    return json;
}

RawLayout RawOfJson(const Json& json)
{
    const std::string place = "image.raw";
    RawLayout         raw;
    raw.Type = TypeOfJson(Needed(json, "type", place), place + ".type");
    raw.Width = Side(json, "width", place);
    raw.Height = Side(json, "height", place);
    if (const Json* const offset = Member(json, "offset"))
        raw.Offset = WholeNumber(*offset, 0, INT64_MAX, place + ".offset");
    raw.BigEndian = TruthOf(json, "big_endian", place);
    return raw;
}

ImageSource SourceOfJson(const Json& image, const std::string& named, const std::string& session)
{
    ImageSource source;
    source.Path = PathFromFile(named, session);
    if (const Json* const page = Member(image, "page"))
        source.Page = static_cast<int>(WholeNumber(*page, 0, INT32_MAX, "image.page"));
    if (const Json* const raw = ObjectMember(image, "raw", "image"))
        source.Raw = RawOfJson(*raw);
    source.Classic = TruthOf(image, "classic", "image");
    return source;
}

ImageSamples CopyOf(const PlaneView& plane)
{
    ImageSamples copy(plane.Type, plane.Width, plane.Height);
    CopySamples(plane, copy);
    return copy;
}

template <typename Sample>
ImageSamples Widened(ImageSamples& samples)
{
    ImageSamples floats(SampleType::F32, samples.Width, samples.Height);
    for (int y = 0; y < samples.Height; ++y)
        std::copy_n(samples.Row<Sample>(y), samples.Width, floats.Row<float>(y));
    return floats;
}

ImageSamples AsFloats(ImageSamples samples)
{
    switch (samples.Type) {
    case SampleType::U8:
        return Widened<std::uint8_t>(samples);
    case SampleType::U16:
        return Widened<std::uint16_t>(samples);
    case SampleType::I16:
        return Widened<std::int16_t>(samples);
    default:
        return samples;
    }
}

// A picture as the canvas calls read it.
ImageSamples ReadClassic(const std::string& path)
{
    const std::optional<std::wstring> wide = WideOf(path);
    VostelImage                       reader;
    reader.LoadCommonImage(wide.value_or(std::wstring()).c_str());
    const PlaneView plane = reader.ShownPlane();
    if (!plane.Data)
        Fail(VOSTEL_NOT_READ, "\"" + path + "\" cannot be read");
    return CopyOf(plane);
}

ImageSamples ReadAsBefore(const ImageSource& source)
{
    if (!source.Raw)
        return source.Classic ? ReadClassic(source.Path) : ReadImagePage(source.Path, source.Page);
    ImageSamples samples = ReadRawImage(source.Path, *source.Raw);
    return source.Classic ? AsFloats(std::move(samples)) : std::move(samples);
}

}

Json JsonOfImage(const PlaneView& plane, const std::optional<ImageSource>& source, const std::string& session)
{
    Json json;
    if (source) {
        json["path"] = PathInFile(source->Path, session);
        if (source->Page > 0)
            json["page"] = source->Page;
        if (source->Raw)
            json["raw"] = JsonOfRaw(*source->Raw);
        if (source->Classic)
            json["classic"] = true;
    }
    json["width"] = plane.Width;
    json["height"] = plane.Height;
    json["type"] = TypeWord(plane.Type);
    json["hash"] = HashOfSamples(plane);
    return json;
}

ImageReference ReferenceOfJson(const Json& image, const std::string& session)
{
    ImageReference reference;
    if (const Json* const path = Member(image, "path")) {
        const std::string named = TextValue(*path, "image.path");
        if (named.empty() || named.find('\0') != std::string::npos)
            Fail(VOSTEL_BAD_FORMAT, "image.path is no path");
        reference.Source = SourceOfJson(image, named, session);
    }
    reference.Width = Side(image, "width", "image");
    reference.Height = Side(image, "height", "image");
    reference.Type = TypeOfJson(Needed(image, "type", "image"), "image.type");
    reference.Hash = TextValue(Needed(image, "hash", "image"), "image.hash");
    return reference;
}

Json UnknownOfImage(const Json& image)
{
    Json unknown =
        UnknownMembers(image, {"path", "page", "raw", "classic", "width", "height", "type", "hash"});
    if (const Json* const raw = Member(image, "raw")) {
        Json rest = UnknownMembers(*raw, {"type", "width", "height", "offset", "big_endian"});
        if (!rest.empty())
            unknown["raw"] = std::move(rest);
    }
    return unknown;
}

ImageSamples ReadReferred(const ImageSource& source)
{
    try {
        return ReadAsBefore(source);
    } catch (const Failure& failure) {
        Fail(failure.Status == VOSTEL_TOO_LARGE ? VOSTEL_TOO_LARGE : VOSTEL_NOT_READ,
             "the session's image: " + failure.Message);
    }
}

bool IsReferred(const PlaneView& plane, const ImageReference& reference)
{
    return plane.Type == reference.Type && plane.Width == reference.Width &&
           plane.Height == reference.Height && HashOfSamples(plane) == reference.Hash;
}

}
