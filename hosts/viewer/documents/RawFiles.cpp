#include "documents/RawFiles.h"

#include "documents/FileWriting.h"

#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QJsonDocument>
#include <QJsonObject>

namespace vostel::viewer {

namespace {

const QString RawFormat = QStringLiteral("vostel-raw");

QString LayoutPath(const QString& path)
{
    return path + QStringLiteral(".json");
}

}

Outcome SaveRaw(const VostelPlane& plane, const QString& path)
{
    const qint64  rowBytes = static_cast<qint64>(plane.width) * BytesOfPixel(plane.type);
    const Outcome data = WriteFile(path, [&](QIODevice& file) {
        for (int row = 0; row < plane.height; ++row)
            if (file.write(static_cast<const char*>(plane.data) + row * plane.row_bytes, rowBytes) !=
                rowBytes)
                return false;
        return true;
    });
    if (!data.IsDone())
        return data;
    RawVolume volume;
    volume.Layout.type = plane.type;
    volume.Layout.width = plane.width;
    volume.Layout.height = plane.height;
    volume.Layout.big_endian = Q_BYTE_ORDER == Q_BIG_ENDIAN ? 1 : 0;
    QJsonObject layout = QJsonObject::fromVariantMap(ToMap(volume));
    layout.insert(QStringLiteral("Format"), RawFormat);
    const QByteArray text = QJsonDocument(layout).toJson();
    const Outcome    beside =
        WriteFile(LayoutPath(path), [&](QIODevice& file) { return file.write(text) == text.size(); });
    return beside.IsDone() ? data : beside;
}

std::optional<RawVolume> LayoutBeside(const QString& path)
{
    QFile file(LayoutPath(path));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject layout = QJsonDocument::fromJson(file.readAll()).object();
    const auto        volume = RawVolumeOf(layout.toVariantMap());
    if (layout.value(QLatin1String("Format")).toString() != RawFormat || !volume ||
        volume->Bytes() != QFileInfo(path).size())
        return std::nullopt;
    return volume;
}

}
