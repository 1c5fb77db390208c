#include "documents/FileKinds.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QtEndian>

namespace vostel::viewer {

namespace {

constexpr qint64 HeadBytes = 4096;
constexpr qint64 LongestText = qint64{64} << 20;    // of a file whose format is looked for in its text

struct Signature {
    int         At;
    const char* Bytes;
    int         Length;
    const char* Name;
    bool        IsRead;
};

constexpr Signature Signatures[] = {
    {0, "\x89PNG", 4, "PNG", true},
    {0, "\xFF\xD8\xFF", 3, "JPEG", true},
    {0, "II*\0", 4, "TIFF", true},
    {0, "MM\0*", 4, "TIFF", true},
    {0, "II+\0", 4, "TIFF", true},
    {0, "MM\0+", 4, "TIFF", true},
    {0, "BM", 2, "BMP", true},
    {0, "GIF8", 4, "GIF", true},
    {8, "WEBP", 4, "WebP", true},
    {0, "SIMPLE  =", 9, "FITS", false},
    {128, "DICM", 4, "DICOM", false},
    {0, "\0\0\0\x0CjP  ", 8, "JPEG 2000", false},
    {0, "\xFF\x4F\xFF\x51", 4, "JPEG 2000", false},
    {0, "\xFF\x0A", 2, "JPEG XL", false},
    {4, "JXL ", 4, "JPEG XL", false},
    {4, "ftypavi", 7, "AVIF", false},
    {4, "ftyphei", 7, "HEIF", false},
    {4, "ftypmif", 7, "HEIF", false},
    {0, "8BPS", 4, "PSD", false},
    {0, "\x76\x2F\x31\x01", 4, "OpenEXR", false},
    {0, "#?RADIANCE", 10, "Radiance HDR", false},
    {0, "\x89HDF", 4, "HDF5", false},
    {0, "%PDF", 4, "PDF", false},
    {0, "NRRD0", 5, "NRRD", false},
    {0, "\x0A\x05\x01\x08", 4, "PCX", false},
};
constexpr const char* PictureEndings[] = {"png", "jpg", "jpeg", "jpe", "tif", "tiff", "bmp", "dib",
                                          "gif", "pbm", "pgm",  "ppm", "pnm", "pfm",  "webp"};

QString KindText(const char* english)
{
    return QCoreApplication::translate("Files", english);
}

QByteArray HeadOf(const QString& path, qint64 bytes)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(bytes) : QByteArray();
}

QByteArray TailOf(const QString& path, qint64 bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(qMax<qint64>(0, file.size() - bytes)))
        return {};
    return file.read(bytes);
}

bool IsPnm(const QByteArray& head)
{
    return head.size() > 2 && head[0] == 'P' && (head[1] >= '1' && head[1] <= '6') &&
           QByteArrayView(" \t\r\n#").contains(head[2]);
}

// Of a text in JSON: a session, or the format of its regions.
FileKind KindOfJson(const QString& path)
{
    const QByteArray text = HeadOf(path, LongestText);
    if (text.contains("\"vostel-session\""))
        return {FileKind::Type::Session, KindText(QT_TRANSLATE_NOOP("Files", "session")), {}};
    if (text.contains("\"vostel-regions\""))
        return {FileKind::Type::Regions, QStringLiteral("JSON"), "json"};
    if (text.contains("\"annotations\""))
        return {FileKind::Type::Regions, QStringLiteral("COCO"), "coco"};
    if (text.contains("\"Feature") || text.contains("\"coordinates\"") || text.contains("\"geometries\""))
        return {FileKind::Type::Regions, QStringLiteral("GeoJSON"), "geojson"};
    return {FileKind::Type::Other, QStringLiteral("JSON"), {}};
}

}

FileKind KindOfFile(const QString& path)
{
    using Type = FileKind::Type;
    const QByteArray head = HeadOf(path, HeadBytes);
    const QString    name = path.toLower();
    for (const Signature& one : Signatures)
        if (head.mid(one.At, one.Length) == QByteArrayView(one.Bytes, one.Length))
            return {one.IsRead ? Type::Picture : Type::Other, QString::fromLatin1(one.Name), {}};
    if (name.endsWith(QStringLiteral(".labels.raw")) || name.endsWith(QStringLiteral(".labels.json")))
        return {Type::Regions, KindText(QT_TRANSLATE_NOOP("Files", "label image")), "labels"};
    if (name.endsWith(QStringLiteral(".roi")) || name.endsWith(QStringLiteral(".zip")))
        return {Type::Regions, QStringLiteral("ImageJ"), "imagej"};
    if (name.endsWith(QStringLiteral(".csv")) || name.endsWith(QStringLiteral(".tsv")))
        return {Type::Regions, QStringLiteral("CSV"), "csv"};
    if (name.endsWith(QStringLiteral("json")) || head.trimmed().startsWith('{'))
        return KindOfJson(path);
    if (IsPnm(head))
        return {Type::Picture, QStringLiteral("PNM"), {}};
    if (HasPictureEnding(path))
        return {Type::Other, {}, {}};    // what claims to be a picture is not asked about as raw data
    return {Type::Raw, QStringLiteral("raw"), {}};
}

QString WhyUnreadable(const QString& path)
{
    const QFileInfo file(path);
    const QString   shown = QDir::toNativeSeparators(path);
    if (!file.exists())
        return (file.isSymLink()
                    ? KindText(QT_TRANSLATE_NOOP("Files", "\"%1\" is a link to a file that does not exist."))
                    : KindText(QT_TRANSLATE_NOOP("Files", "\"%1\" does not exist.")))
            .arg(shown);
    if (!file.isFile())
        return KindText(QT_TRANSLATE_NOOP("Files", "\"%1\" is not a file but a pipe or a device."))
            .arg(shown);
    if (!file.isReadable())
        return KindText(QT_TRANSLATE_NOOP("Files", "\"%1\" may not be read: you have no permission."))
            .arg(shown);
    if (file.size() == 0)
        return KindText(QT_TRANSLATE_NOOP("Files", "\"%1\" is empty.")).arg(shown);
    QFile opened(path);
    if (!opened.open(QIODevice::ReadOnly))
        return KindText(QT_TRANSLATE_NOOP("Files", "\"%1\" cannot be read: %2."))
            .arg(shown, opened.errorString());
    return {};
}

bool IsCutShort(const QString& path, const QString& format)
{
    const QByteArray head = HeadOf(path, HeadBytes);
    const qint64     size = QFileInfo(path).size();
    if (format == QStringLiteral("PNG"))
        return !TailOf(path, 1024).contains("IEND");
    if (format == QStringLiteral("JPEG"))
        return !TailOf(path, 1024).contains("\xFF\xD9");
    if (format == QStringLiteral("GIF"))
        return !TailOf(path, 64).contains(';');
    if (format == QStringLiteral("BMP"))
        return size < 14 || size < qFromLittleEndian<quint32>(head.constData() + 2);
    if (format == QStringLiteral("WebP"))
        return size < qint64{8} + qFromLittleEndian<quint32>(head.constData() + 4);
    return false;
}

bool HasPictureEnding(const QString& name)
{
    const QString ending = QFileInfo(name).suffix().toLower();
    for (const char* const one : PictureEndings)
        if (ending == QLatin1String(one))
            return true;
    return false;
}

}
