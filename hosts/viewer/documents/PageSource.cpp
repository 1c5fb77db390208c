#include "documents/PageSource.h"

#include "documents/FileKinds.h"
#include "documents/FirstContrast.h"
#include "documents/NaturalOrder.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace vostel::viewer {

namespace {

constexpr qint64 QuickFileBytes = 1 << 20;    // of a page of a compressed picture
constexpr qint64 QuickRawBytes = 8 << 20;
constexpr int    QuickFrame = 50;    // a frame takes those before it

}

void ShowPage(Canvas& canvas, const PageSource& source, std::uint32_t flags)
{
    const std::string path = source.Path.toStdString();
    if (source.Layout)
        canvas.image_open_raw(path, *source.Layout, flags);
    else
        canvas.image_open_page(path, source.Page, flags);
    if ((flags & VOSTEL_KEEP_CONTRAST) == 0)
        SetFirstContrast(canvas, (flags & VOSTEL_KEEP_OBJECTS) == 0);
}

bool IsQuick(const PageSource& source, std::size_t pagesOfFile)
{
    if (source.Layout)
        return qint64{source.Layout->width} * source.Layout->height * BytesOfPixel(source.Layout->type) <=
               QuickRawBytes;
    return source.Page < QuickFrame &&
           QFileInfo(source.Path).size() <= QuickFileBytes * static_cast<qint64>(pagesOfFile);
}

std::vector<PageSource> PagesOfFile(const QString& path)
{
    std::int32_t pages = 1;
    if (vostel_image_pages(path.toStdString().c_str(), &pages) != VOSTEL_OK)
        pages = 1;    // opening says why
    std::vector<PageSource> sources;
    for (std::int32_t page = 0; page < pages; ++page)
        sources.push_back({path, page, std::nullopt});
    return sources;
}

std::vector<PageSource> SlicesOf(const QString& path, const RawVolume& volume)
{
    std::vector<PageSource> sources;
    for (int slice = 0; slice < volume.Slices; ++slice)
        sources.push_back({path, 0, volume.LayoutOf(slice)});
    return sources;
}

QStringList PicturesOfFolder(const QString& folder)
{
    QStringList paths;
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files))
        if (HasPictureEnding(file.fileName()))
            paths << file.absoluteFilePath();
    std::sort(paths.begin(), paths.end(), NaturallyBefore);
    return paths;
}

QStringList SeriesOfFile(const QString& path)
{
    const QFileInfo                 file(path);
    const QString                   name = file.fileName();
    static const QRegularExpression Number(QStringLiteral("\\d+"));
    QList<QRegularExpressionMatch>  numbers;
    for (auto all = Number.globalMatch(name); all.hasNext();)
        numbers.prepend(all.next());
    const QStringList names = file.dir().entryList(QDir::Files);
    for (const QRegularExpressionMatch& number : numbers) {
        const QString            before = QRegularExpression::escape(name.left(number.capturedStart()));
        const QString            after = QRegularExpression::escape(name.mid(number.capturedEnd()));
        const QRegularExpression alike(QStringLiteral("^%1(\\d+)%2$").arg(before, after));
        std::vector<std::pair<qulonglong, QString>> found;
        for (const QString& one : names)
            if (const auto match = alike.match(one); match.hasMatch())
                found.emplace_back(match.captured(1).toULongLong(), file.dir().absoluteFilePath(one));
        if (found.size() < 2)
            continue;
        std::sort(found.begin(), found.end());
        QStringList paths;
        for (const auto& one : found)
            paths << one.second;
        return paths;
    }
    return {file.absoluteFilePath()};
}

}
