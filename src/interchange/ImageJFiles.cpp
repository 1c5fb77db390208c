#include "interchange/ImageJFiles.h"

#include "base/Failure.h"
#include "canvas/VostelImage.h"
#include "document/KindRules.h"
#include "interchange/CanvasObjects.h"
#include "interchange/FileBytes.h"
#include "interchange/ImageJRoi.h"
#include "interchange/ZipArchive.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace vostel {

namespace {

constexpr std::string_view Ending = ".roi";
constexpr std::string_view ZipSignature = "PK";
constexpr std::size_t      LongestName = 200;    // bytes of an entry; the selection has the whole name

// Of ASCII letters, as file systems compare that know no others.
std::string InLowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; });
    return text;
}

bool IsRoiName(const std::string& name)
{
    return InLowerCase(name).ends_with(Ending);
}

// The last part of a path, without the ending of selections.
std::string BareName(const std::string& path)
{
    const std::size_t slash = path.find_last_of("/\\");
    std::string       name = slash == std::string::npos ? path : path.substr(slash + 1);
    if (IsRoiName(name))
        name.resize(name.size() - Ending.size());
    return name;
}

void TellTally(const Tally& tally, Remarks& told)
{
    for (const auto& [what, count] : tally)
        told.Add(count > 1 ? what + " (" + std::to_string(count) + " times)" : what);
}

// A name that every file system takes.
std::string EntryName(const FileObject& object)
{
    std::string name;
    for (const char c : object.Name) {
        const bool illegal = static_cast<unsigned char>(c) < 0x20 || c == 0x7F ||
                             std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos;
        name += illegal ? '_' : c;
    }
    if (name.size() > LongestName) {
        std::size_t end = LongestName;
        while ((static_cast<unsigned char>(name[end]) & 0xC0) == 0x80)    // within a character
            --end;
        name.resize(end);
    }
    while (name.ends_with('.') || name.ends_with(' '))
        name.pop_back();
    return name.empty() ? KindName(object.Kind) : name;
}

// Entry names that are not given twice, as ImageJ numbers them.
class EntryNames {
public:
    std::string Next(const std::string& wanted)
    {
        std::string name = wanted;
        for (int& number = Numbers[InLowerCase(wanted)]; !Given.insert(InLowerCase(name)).second;)
            name = wanted + "-" + std::to_string(++number);
        return name + std::string(Ending);
    }

private:
    std::set<std::string>      Given;
    std::map<std::string, int> Numbers;    // the last one behind each name
};

}

std::string ImageJZipOf(const std::vector<FileObject>& objects, ImageSize image, Remarks& told)
{
    ZipWriter  zip;
    EntryNames names;
    Tally      changed;
    for (const FileObject& object : objects) {
        const ImageJRois rois = ImageJRoisOf(object, image, changed);
        if (rois.Files.empty())
            told.LeftOut(rois.Missing);
        for (const std::string& file : rois.Files)
            zip.Add(names.Next(EntryName(object)), file);
    }
    TellTally(changed, told);
    return zip.Finish();
}

std::string ImageJFileOf(const std::vector<FileObject>& objects, ImageSize image, Remarks& told)
{
    std::vector<std::string> files;
    Tally                    changed;
    for (const FileObject& object : objects) {
        ImageJRois rois = ImageJRoisOf(object, image, changed);
        if (rois.Files.empty())
            told.LeftOut(rois.Missing);
        std::move(rois.Files.begin(), rois.Files.end(), std::back_inserter(files));
    }
    if (files.size() != 1)
        Fail(VOSTEL_NOT_SUPPORTED, "a .roi file holds one selection, and the canvas has " +
                                       std::to_string(files.size()) +
                                       (files.empty() ? " for it" : "; a .zip file holds them all"));
    TellTally(changed, told);
    return std::move(files[0]);
}

std::vector<FileObject> ObjectsOfImageJ(std::string_view bytes, const std::string& name, Remarks& told)
{
    std::vector<FileObject> objects;
    Tally                   ignored;
    if (!bytes.starts_with(ZipSignature)) {
        if (!IsImageJRoi(bytes))
            Fail(VOSTEL_BAD_FORMAT, "the file is neither a selection of ImageJ nor a zip archive of them");
        objects.push_back(ObjectOfImageJRoi(bytes, "the file", name, ignored));
        TellTally(ignored, told);
        return objects;
    }
    const ZipReader zip(bytes);
    for (const ZipReader::Entry& entry : zip.Entries()) {
        if (entry.Name.ends_with('/'))
            continue;
        if (IsRoiName(entry.Name))
            objects.push_back(ObjectOfImageJRoi(zip.BytesOf(entry), "entry \"" + entry.Name + "\"",
                                                BareName(entry.Name), ignored));
        else
            ++ignored["entry that is no selection ignored"];
    }
    TellTally(ignored, told);
    return objects;
}

void ExportImageJ(const RegionExport& file)
{
    const std::vector<FileObject> objects = ObjectsOf(file.Canvas, file.Notes);
    const PlaneView               plane = file.Canvas.ShownPlane();
    const ImageSize               image{plane.Width, plane.Height};
    WriteWholeFile(file.Path, IsRoiName(file.Path) ? ImageJFileOf(objects, image, file.Told)
                                                   : ImageJZipOf(objects, image, file.Told));
}

std::vector<FileObject> ImportImageJ(const char* utf8Path, ImageSize, Remarks& told)
{
    return ObjectsOfImageJ(ReadWholeFile(utf8Path), BareName(utf8Path), told);
}

}
