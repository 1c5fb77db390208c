#include "documents/RawVolume.h"

#include "documents/FolderSettings.h"
#include "documents/RawLayoutDialog.h"

namespace vostel::viewer {

namespace {

const QString RawPurpose = QStringLiteral("RawLayout");

}

bool IsColor(VostelPixel type)
{
    return type == VOSTEL_RGB8 || type == VOSTEL_BGR8 || type == VOSTEL_BGRA8;
}

int BytesOfPixel(VostelPixel type)
{
    switch (type) {
    case VOSTEL_U8:
        return 1;
    case VOSTEL_U16:
    case VOSTEL_I16:
        return 2;
    case VOSTEL_RGB8:
    case VOSTEL_BGR8:
        return 3;
    case VOSTEL_F32:
    case VOSTEL_BGRA8:
        return 4;
    default:
        return 0;
    }
}

qint64 RawVolume::SliceBytes() const
{
    return qint64{Layout.width} * Layout.height * BytesOfPixel(Layout.type);
}

qint64 RawVolume::Bytes() const
{
    return Layout.offset + Slices * (SliceBytes() + Gap) - Gap;
}

RawLayout RawVolume::LayoutOf(int slice) const
{
    RawLayout layout = Layout;
    layout.offset += slice * (SliceBytes() + Gap);
    return layout;
}

QVariantMap ToMap(const RawVolume& volume)
{
    return {{QStringLiteral("Type"), volume.Layout.type},
            {QStringLiteral("Width"), volume.Layout.width},
            {QStringLiteral("Height"), volume.Layout.height},
            {QStringLiteral("Offset"), static_cast<qlonglong>(volume.Layout.offset)},
            {QStringLiteral("BigEndian"), volume.Layout.big_endian != 0},
            {QStringLiteral("Slices"), volume.Slices},
            {QStringLiteral("Gap"), volume.Gap}};
}

std::optional<RawVolume> RawVolumeOf(const QVariantMap& map)
{
    RawVolume volume;
    volume.Layout.type = map.value(QStringLiteral("Type")).toInt();
    volume.Layout.width = map.value(QStringLiteral("Width")).toInt();
    volume.Layout.height = map.value(QStringLiteral("Height")).toInt();
    volume.Layout.offset = map.value(QStringLiteral("Offset")).toLongLong();
    volume.Layout.big_endian = map.value(QStringLiteral("BigEndian")).toBool() ? 1 : 0;
    volume.Slices = map.value(QStringLiteral("Slices"), 1).toInt();
    volume.Gap = map.value(QStringLiteral("Gap")).toLongLong();
    if (BytesOfPixel(volume.Layout.type) == 0 || volume.Layout.width < 1 || volume.Layout.height < 1 ||
        volume.Layout.offset < 0 || volume.Slices < 1 || volume.Gap < 0)
        return std::nullopt;
    return volume;
}

std::optional<RawVolume> AskRawLayout(const QString& path, QWidget* parent)
{
    RawLayoutDialog dialog(path, parent);
    if (const auto last = RawVolumeOf(FolderSettings::Of(RawPurpose, FolderOf(path))))
        dialog.Begin(*last);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const RawVolume volume = dialog.Volume();
    FolderSettings::Keep(RawPurpose, FolderOf(path), ToMap(volume));
    return volume;
}

}
