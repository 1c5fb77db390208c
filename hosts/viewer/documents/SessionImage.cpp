#include "documents/SessionImage.h"

#include "documents/FileWriting.h"
#include "documents/FolderSettings.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace vostel::viewer {

namespace {

constexpr const char* TypeWords[] = {"u8", "u16", "i16", "f32", "rgb8", "bgr8", "bgra8"};    // from VOSTEL_U8

RawLayout LayoutOfJson(const QJsonObject& raw)
{
    RawLayout     layout = {};
    const QString word = raw.value(QLatin1String("type")).toString();
    for (std::size_t i = 0; i < std::size(TypeWords); ++i)
        if (word == QLatin1String(TypeWords[i]))
            layout.type = VOSTEL_U8 + static_cast<VostelPixel>(i);
    layout.width = raw.value(QLatin1String("width")).toInt();
    layout.height = raw.value(QLatin1String("height")).toInt();
    layout.offset = raw.value(QLatin1String("offset")).toInteger();
    layout.big_endian = raw.value(QLatin1String("big_endian")).toBool() ? 1 : 0;
    return layout;
}

QJsonObject JsonOfLayout(const RawLayout& layout)
{
    return {{QStringLiteral("type"), QLatin1String(TypeWords[layout.type - VOSTEL_U8])},
            {QStringLiteral("width"), layout.width},
            {QStringLiteral("height"), layout.height},
            {QStringLiteral("offset"), static_cast<qint64>(layout.offset)},
            {QStringLiteral("big_endian"), layout.big_endian != 0}};
}

// What a session says of the file of its image, as text between the braces.
QByteArray MembersOf(const PageSource& page, const QString& folder)
{
    QJsonObject members{{QStringLiteral("path"), QDir(folder).relativeFilePath(page.Path)}};
    if (page.Page > 0)
        members.insert(QStringLiteral("page"), page.Page);
    if (page.Layout)
        members.insert(QStringLiteral("raw"), JsonOfLayout(*page.Layout));
    const QByteArray object = QJsonDocument(members).toJson(QJsonDocument::Compact);
    return object.mid(1, object.size() - 2);
}

}

void SaveSessionNaming(const Canvas& canvas, const QString& path, const PageSource* page)
{
    if (!page)
        return canvas.session_save(path.toStdString());
    const QString unnamed = path + QStringLiteral(".part");
    canvas.session_save(unnamed.toStdString());
    QFile      file(unnamed);
    QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    file.remove();
    const qsizetype image = text.indexOf('{', text.indexOf("\"image\":"));
    if (image > 0)
        text.insert(image + 1, MembersOf(*page, FolderOf(path)) + ", ");
    const Outcome outcome =
        WriteFile(path, [&](QIODevice& target) { return target.write(text) == text.size(); });
    if (!outcome.IsDone())
        throw Error(VOSTEL_NOT_WRITTEN, outcome.Text.toStdString());
}

std::optional<PageSource> ImageOfSession(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject image =
        QJsonDocument::fromJson(file.readAll()).object().value(QLatin1String("image")).toObject();
    const QString named = image.value(QLatin1String("path")).toString();
    if (named.isEmpty())
        return std::nullopt;
    PageSource source;
    source.Path = QDir::cleanPath(QDir(FolderOf(path)).absoluteFilePath(named));
    source.Page = image.value(QLatin1String("page")).toInt();
    if (image.contains(QLatin1String("raw")))
        source.Layout = LayoutOfJson(image.value(QLatin1String("raw")).toObject());
    return source;
}

}
