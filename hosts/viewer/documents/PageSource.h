#pragma once

#include "documents/RawVolume.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vostel::viewer {

// One page of a stack: a picture file, a page or frame of one, or a slice of raw data.
struct PageSource {
    QString                  Path;
    int                      Page = 0;
    std::optional<RawLayout> Layout;
};

// Shows a page on a canvas, with a contrast that lets it be seen unless the flags keep the old one. Fails by
// an Error. On any thread that has the canvas to itself.
void ShowPage(Canvas& canvas, const PageSource& source, std::uint32_t flags);

// Whether a page of so many in its file is read while nobody waits.
bool IsQuick(const PageSource& source, std::size_t pagesOfFile);

// The pages of a picture file, frames of a GIF.
std::vector<PageSource> PagesOfFile(const QString& path);

// The slices of raw data.
std::vector<PageSource> SlicesOf(const QString& path, const RawVolume& volume);

// The picture files of a folder in natural order: 2 before 10.
QStringList PicturesOfFolder(const QString& folder);

// The files of a folder that differ from this one in a number of their names alone, in the order of the
// number. The number is the last one of the name that tells files apart. Only the file itself if there is no
// other.
QStringList SeriesOfFile(const QString& path);

}
