#include "documents/Saves.h"

#include "documents/Document.h"
#include "documents/FileReasons.h"
#include "documents/FileWriting.h"
#include "documents/RawFiles.h"
#include "documents/TiffWriting.h"
#include "documents/Units.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>

#include <cstring>

namespace vostel::viewer {

namespace {

QString SavesText(const char* english)
{
    return QCoreApplication::translate("Saves", english);
}

Outcome SavePicture(Document& document, const SaveRequest& request, std::uint32_t flags)
{
    document.Model().Open().picture_save(request.Path.toStdString(), request.Scale, flags);
    return Done(SavedText(request.Path));
}

Outcome SaveWithObjects(Document& document, const SaveRequest& request)
{
    return SavePicture(document, request, VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS);
}

Outcome SaveShown(Document& document, const SaveRequest& request)
{
    return SavePicture(document, request, 0);
}

Outcome SaveData(Document& document, const SaveRequest& request)
{
    const Canvas&     canvas = document.Model().Open();
    const VostelPlane plane = canvas.image_plane();
    if (std::strcmp(request.Format, "raw") == 0)
        return SaveRaw(plane, request.Path);
    if (!FitsTiff(plane))
        return Failed(
            SavesText(
                QT_TRANSLATE_NOOP(
                    "Saves", "\"%1\" cannot be written: a TIFF holds at most 4 GiB. Save raw data instead."))
                .arg(QDir::toNativeSeparators(request.Path)));
    const auto scale = canvas.scale();
    return WriteFile(request.Path, [&](QIODevice& file) {
        return WriteTiff(file, plane, PixelsPerCentimetre(scale.first, QString::fromStdString(scale.second)));
    });
}

Outcome SaveRegions(Document& document, const SaveRequest& request)
{
    document.Model().Open().regions_export(request.Path.toStdString(), request.Format);
    return Done(WithRemarks(SavedText(request.Path)));
}

// 255 inside the selected regions, or inside all of them if none is selected.
QImage MaskOf(const Canvas& canvas)
{
    const auto          isRegion = [](const Object& object) { return object.kind() <= VOSTEL_FREE_REGION; };
    std::vector<Object> regions;
    for (const std::vector<Object>& objects : {canvas.selection(), canvas.object_list()})
        if (regions.empty())
            std::copy_if(objects.begin(), objects.end(), std::back_inserter(regions), isRegion);
    const auto info = canvas.image_info();
    if (!info || regions.empty())
        return {};
    QImage mask(info->width, info->height, QImage::Format_Grayscale8);
    mask.fill(0);
    for (const Object& region : regions) {
        const ImageOf<std::uint8_t> inside = canvas.mask(region);
        for (int y = 0; y < info->height; ++y) {
            const std::uint8_t* const from = inside.values.data() + std::size_t(y) * std::size_t(info->width);
            uchar* const              row = mask.scanLine(y);
            for (int x = 0; x < info->width; ++x)
                row[x] |= from[x];
        }
    }
    return mask;
}

Outcome SaveMask(Document& document, const SaveRequest& request)
{
    const QImage mask = MaskOf(document.Model().Open());
    if (mask.isNull())
        return Failed(SavesText(QT_TRANSLATE_NOOP(
                                    "Saves", "\"%1\" is not written: there is no region to make a mask of."))
                          .arg(QDir::toNativeSeparators(request.Path)));
    return WriteFile(request.Path, [&](QIODevice& file) {
        if (std::strcmp(request.Format, "png") == 0)
            return QImageWriter(&file, "png").write(mask);
        VostelPlane plane = {};
        plane.type = VOSTEL_U8;
        plane.width = mask.width();
        plane.height = mask.height();
        plane.row_bytes = mask.bytesPerLine();
        plane.data = const_cast<uchar*>(mask.constBits());
        return WriteTiff(file, plane, 0.0);
    });
}

Outcome SaveTable(Document& document, const SaveRequest& request)
{
    const std::string table = document.Model().Open().table(request.Format);
    const auto        bytes = static_cast<qint64>(table.size());
    return WriteFile(request.Path, [&](QIODevice& file) { return file.write(table.data(), bytes) == bytes; });
}

bool ShowsImage(const Document& document)
{
    return document.Model().HasImage();
}

bool ShowsObjects(const Document& document)
{
    return !document.Model().Open().object_list().empty();
}

bool ShowsRegions(const Document& document)
{
    if (!document.Model().HasImage())
        return false;
    const std::vector<Object> objects = document.Model().Open().object_list();
    return std::any_of(objects.begin(), objects.end(),
                       [](const Object& object) { return object.kind() <= VOSTEL_FREE_REGION; });
}

QStringList EndingsOf(const SaveFormat& format)
{
    return QString::fromLatin1(format.Ending).split(QLatin1Char(' '));
}

QString FilterOf(const SaveFormat& format)
{
    QStringList patterns;
    for (const QString& ending : EndingsOf(format))
        patterns << QStringLiteral("*.") + ending;
    return QStringLiteral("%1 (%2)").arg(SavesText(format.Filter), patterns.join(QLatin1Char(' ')));
}

bool HasEnding(const QString& path, const SaveFormat& format)
{
    for (const QString& ending : EndingsOf(format))
        if (path.endsWith(QLatin1Char('.') + ending, Qt::CaseInsensitive))
            return true;
    return false;
}

const SaveFormat& ChosenBy(const SaveKind& kind, const QString& filter)
{
    for (const SaveFormat& format : kind.Formats)
        if (FilterOf(format) == filter)
            return format;
    return kind.Formats.front();
}

std::vector<SaveKind> MakeKinds()
{
    const std::vector<SaveFormat> pictures = {{QT_TRANSLATE_NOOP("Saves", "PNG"), "png", "png"},
                                              {QT_TRANSLATE_NOOP("Saves", "TIFF"), "tif tiff", "tif"},
                                              {QT_TRANSLATE_NOOP("Saves", "JPEG"), "jpg jpeg", "jpg"},
                                              {QT_TRANSLATE_NOOP("Saves", "Bitmap"), "bmp", "bmp"},
                                              {QT_TRANSLATE_NOOP("Saves", "SVG drawing"), "svg", "svg"},
                                              {QT_TRANSLATE_NOOP("Saves", "PDF page"), "pdf", "pdf"}};
    return {{"picture", QT_TRANSLATE_NOOP("Saves", "&Picture with objects..."), "-objects", true, pictures,
             ShowsImage, SaveWithObjects},
            {"shown", QT_TRANSLATE_NOOP("Saves", "Picture as show&n, without objects..."), "-shown", true,
             pictures, ShowsImage, SaveShown},
            {"data",
             QT_TRANSLATE_NOOP("Saves", "&Data, unscaled..."),
             "-data",
             false,
             {{QT_TRANSLATE_NOOP("Saves", "TIFF"), "tif tiff", "tif"},
              {QT_TRANSLATE_NOOP("Saves", "Raw data"), "raw", "raw"}},
             ShowsImage,
             SaveData},
            {"labels",
             QT_TRANSLATE_NOOP("Saves", "&Label image..."),
             "",
             false,
             {{QT_TRANSLATE_NOOP("Saves", "Label image, PNG of 16 bits"), "labels.png png", "labels"}},
             ShowsRegions,
             SaveRegions},
            {"mask",
             QT_TRANSLATE_NOOP("Saves", "Mask of the re&gions..."),
             "-mask",
             false,
             {{QT_TRANSLATE_NOOP("Saves", "PNG"), "png", "png"},
              {QT_TRANSLATE_NOOP("Saves", "TIFF"), "tif tiff", "tif"}},
             ShowsRegions,
             SaveMask},
            {"regions",
             QT_TRANSLATE_NOOP("Saves", "O&bjects and regions..."),
             "-regions",
             false,
             {{QT_TRANSLATE_NOOP("Saves", "Objects"), "json", "json"},
              {QT_TRANSLATE_NOOP("Saves", "GeoJSON"), "geojson", "geojson"},
              {QT_TRANSLATE_NOOP("Saves", "COCO annotations"), "coco.json json", "coco"},
              {QT_TRANSLATE_NOOP("Saves", "ImageJ selections"), "zip", "imagej"},
              {QT_TRANSLATE_NOOP("Saves", "ImageJ selection"), "roi", "imagej"},
              {QT_TRANSLATE_NOOP("Saves", "Table of points"), "csv", "csv"}},
             ShowsObjects,
             SaveRegions},
            {"measures",
             QT_TRANSLATE_NOOP("Saves", "&Table of measures..."),
             "-measures",
             false,
             {{QT_TRANSLATE_NOOP("Saves", "CSV"), "csv", "csv"},
              {QT_TRANSLATE_NOOP("Saves", "Table with tabs"), "tsv txt", "tsv"},
              {QT_TRANSLATE_NOOP("Saves", "JSON"), "json", "json"}},
             ShowsObjects,
             SaveTable}};
}

}

const std::vector<SaveKind>& Saves::All()
{
    static const std::vector<SaveKind> Kinds = MakeKinds();
    return Kinds;
}

const SaveKind& Saves::Of(const char* id)
{
    for (const SaveKind& kind : All())
        if (std::strcmp(kind.Id, id) == 0)
            return kind;
    return All().front();
}

QStringList Saves::Filters(const SaveKind& kind)
{
    QStringList filters;
    for (const SaveFormat& format : kind.Formats)
        filters << FilterOf(format);
    return filters;
}

QString Saves::SuggestedPath(const Document& document, const SaveKind& kind)
{
    const QString beside = document.PicturePath().isEmpty() ? document.SessionPath() : document.PicturePath();
    const QFileInfo file(beside);
    const QString   name = beside.isEmpty() ? document.Title() : file.completeBaseName();
    const QString   folder = beside.isEmpty() ? QDir::homePath() : file.absolutePath();
    return QDir(folder).filePath(name + QString::fromLatin1(kind.Suffix) + QLatin1Char('.') +
                                 EndingsOf(kind.Formats.front()).front());
}

QString Saves::WholePath(const SaveKind& kind, const QString& path, const QString& filter)
{
    for (const SaveFormat& format : kind.Formats)
        if (HasEnding(path, format))
            return path;
    return path + QLatin1Char('.') + EndingsOf(ChosenBy(kind, filter)).front();
}

Outcome Saves::Run(const SaveKind& kind, Document& document, const QString& path, const QString& filter,
                   double scale)
{
    SaveRequest       request{WholePath(kind, path, filter), "", scale};
    const SaveFormat* used = &ChosenBy(kind, filter);    // endings that several formats have leave the choice
    for (const SaveFormat& format : kind.Formats)
        if (!HasEnding(request.Path, *used) && HasEnding(request.Path, format))
            used = &format;
    request.Format = used->Id;
    try {
        return kind.Save(document, request);
    } catch (const Error& error) {
        return Failed(WhyNotWritten(error, request.Path));
    }
}

}
