#pragma once

#include <QByteArray>
#include <QString>

namespace vostel::viewer {

// What a file holds, told by its first bytes; only data without a header are told by the ending.
struct FileKind {
    enum class Type { Picture, Raw, Session, Regions, Other };

    Type       What = Type::Other;
    QString    Name;       // of its format, "PNG"; empty if nobody knows
    QByteArray Regions;    // the format of vostel_regions_import(); empty: by the ending
};

// Of a plain file that can be read.
FileKind KindOfFile(const QString& path);

// Why a path cannot be opened as a file, with the path: missing, no permission, a pipe, empty; empty if it
// can.
QString WhyUnreadable(const QString& path);

// Whether a file that is no picture after all ends before its format says that it does.
bool IsCutShort(const QString& path, const QString& format);

// Files that a folder is looked through for.
bool HasPictureEnding(const QString& name);

}
