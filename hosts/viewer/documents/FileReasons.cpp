#include "documents/FileReasons.h"

#include "documents/FileKinds.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

namespace vostel::viewer {

namespace {

constexpr qint64 LittleRoom = 64 << 10;    // bytes; what is left of a disk that a save has filled

QString FilesText(const char* english)
{
    return QCoreApplication::translate("Files", english);
}

// Empty if folder and disk take files.
QString WhyNotWritable(const QString& path)
{
    const QFileInfo file(path), folder(file.absolutePath());
    const QString   shown = QDir::toNativeSeparators(path);
    if (file.isDir())
        return FilesText(QT_TRANSLATE_NOOP("Files", "\"%1\" cannot be written: it is a folder.")).arg(shown);
    if (!folder.exists())
        return FilesText(QT_TRANSLATE_NOOP("Files", "\"%1\" cannot be written: there is no such folder."))
            .arg(shown);
    const QStorageInfo disk(folder.absoluteFilePath());
    if (disk.isReadOnly())
        return FilesText(QT_TRANSLATE_NOOP("Files", "\"%1\" cannot be written: the disk is read-only."))
            .arg(shown);
    if (!folder.isWritable())
        return FilesText(QT_TRANSLATE_NOOP(
                             "Files", "\"%1\" cannot be written: you have no permission in this folder."))
            .arg(shown);
    if (disk.isValid() && disk.bytesAvailable() < LittleRoom)
        return FilesText(QT_TRANSLATE_NOOP("Files", "\"%1\" cannot be written: the disk is full."))
            .arg(shown);
    return {};
}

}

QString WhyNotOpened(const Error& error, const QString& path)
{
    const QString unreadable = WhyUnreadable(path);
    if (!unreadable.isEmpty())
        return unreadable;
    const FileKind kind = KindOfFile(path);
    const QString  shown = QDir::toNativeSeparators(path);
    if (kind.What == FileKind::Type::Picture) {
        if (error.status() == VOSTEL_BAD_FORMAT)
            return (IsCutShort(path, kind.Name)
                        ? FilesText(QT_TRANSLATE_NOOP("Files", "\"%1\" is a %2 file that is cut short."))
                        : FilesText(QT_TRANSLATE_NOOP("Files", "\"%1\" is a %2 file that is damaged.")))
                .arg(shown, kind.Name);
        if (error.status() == VOSTEL_NOT_SUPPORTED)
            return FilesText(
                       QT_TRANSLATE_NOOP("Files", "\"%1\" is a %2 file of a kind that is not supported."))
                .arg(shown, kind.Name);
    }
    if (error.status() == VOSTEL_TOO_LARGE)
        return FilesText(QT_TRANSLATE_NOOP("Files", "\"%1\" holds a picture that is too large to be shown."))
            .arg(shown);
    if (error.status() == VOSTEL_OUT_OF_MEMORY)
        return FilesText(QT_TRANSLATE_NOOP("Files", "There is not enough memory for \"%1\".")).arg(shown);
    const QString reason = QString::fromStdString(error.message());
    return reason.contains(path) ? reason : QStringLiteral("\"%1\": %2").arg(shown, reason);
}

QString WhyNotWritten(const Error& error, const QString& path)
{
    const QString shown = QDir::toNativeSeparators(path);
    if (error.status() == VOSTEL_OUT_OF_MEMORY)
        return FilesText(QT_TRANSLATE_NOOP("Files", "There is not enough memory to write \"%1\"."))
            .arg(shown);
    if (error.status() == VOSTEL_NOT_WRITTEN)
        return WhyNotWritten(
            FilesText(QT_TRANSLATE_NOOP(
                "Files", "the disk has too little room, or another program holds the file open")),
            path);
    return FilesText(QT_TRANSLATE_NOOP("Files", "\"%1\" cannot be written: %2."))
        .arg(shown, QString::fromStdString(error.message()));
}

QString WhyNotWritten(const QString& said, const QString& path)
{
    const QString reason = WhyNotWritable(path);
    return reason.isEmpty() ? FilesText(QT_TRANSLATE_NOOP("Files", "\"%1\" cannot be written: %2."))
                                  .arg(QDir::toNativeSeparators(path), said)
                            : reason;
}

QString WithRemarks(const QString& text)
{
    const QString remarks = QString::fromUtf8(vostel_last_message());
    return remarks.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, remarks);
}

}
