#include "process/Batch.h"

#include "documents/FileKinds.h"
#include "documents/FileReasons.h"
#include "documents/FileWriting.h"
#include "documents/PageSource.h"
#include "documents/TiffWriting.h"
#include "process/BatchTable.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <new>

namespace vostel::viewer {

namespace {

// Runs the chain on what the canvas shows, and shows the result there.
void RunChain(Canvas& canvas, const std::vector<ChainStep>& chain, RunState& state)
{
    ImageOf<float> copy = canvas.image_copy<float>();
    Samples        image;
    image.Width = copy.width;
    image.Height = copy.height;
    image.Values = std::move(copy.values);
    for (const ChainStep& step : chain)
        image = step.What->Run(image, step.Values, state);
    if (chain.back().What->IsMask) {
        const std::vector<std::uint8_t> bytes(image.Values.begin(), image.Values.end());
        canvas.image_show(VOSTEL_U8, bytes.data(), image.Width, image.Height);
    } else
        canvas.image_show(VOSTEL_F32, image.Values.data(), image.Width, image.Height);
}

Outcome SaveResult(const Canvas& canvas, const QString& path)
{
    VostelPlane plane = {};
    plane.size = sizeof plane;
    if (vostel_image_plane(canvas.number(), &plane) != VOSTEL_OK || !FitsTiff(plane))
        return Failed(QCoreApplication::translate("Batch", "The result for %1 is too large for a TIFF.")
                          .arg(QDir::toNativeSeparators(path)));
    return WriteFile(path, [&](QIODevice& file) { return WriteTiff(file, plane, 0.0); });
}

// Fails by Error, bad_alloc or Stopped, or by what it returns.
Outcome RunPicture(const BatchPlan& plan, const QString& path, RunState& state, BatchTable& table,
                   BatchResult& result)
{
    Canvas canvas(1, 1);
    try {
        ShowPage(canvas, {path, 0, std::nullopt}, 0);
    } catch (const Error& error) {
        return Failed(WhyNotOpened(error, path));
    }
    if (!plan.Chain.empty())
        RunChain(canvas, plan.Chain, state);
    if (!plan.Chain.empty() && !plan.Folder.isEmpty()) {
        const QString target =
            FreePath(QDir(plan.Folder).filePath(QFileInfo(path).completeBaseName() + QStringLiteral(".tif")));
        const Outcome saved = SaveResult(canvas, target);
        if (!saved.IsDone())
            return saved;
        result.Saved << target;
    }
    if (!plan.Session.isEmpty()) {
        try {
            canvas.session_open(plan.Session.toStdString(), VOSTEL_SESSION_ON_IMAGE);
        } catch (const Error& error) {
            return Failed(WhyNotOpened(error, plan.Session));
        }
        table.Add(QFileInfo(path).fileName(),
                  QByteArray::fromStdString(canvas.table(plan.Format.constData())));
    }
    return Done();
}

Outcome TryPicture(const BatchPlan& plan, const QString& path, RunState& state, BatchTable& table,
                   BatchResult& result)
{
    const QString unreadable = WhyUnreadable(path);
    if (!unreadable.isEmpty())
        return Failed(unreadable);
    try {
        return RunPicture(plan, path, state, table, result);
    } catch (const Error& error) {
        return Failed(QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path),
                                                   QString::fromStdString(error.message())));
    } catch (const std::bad_alloc&) {
        return Failed(QCoreApplication::translate("Batch", "There is not enough memory for %1.")
                          .arg(QDir::toNativeSeparators(path)));
    }
}

}

QStringList BatchPictures(const QString& folder, const QString& pattern)
{
    QStringList fitting;
    for (const QString& path : PicturesOfFolder(folder))
        if (QDir::match(pattern.isEmpty() ? QStringLiteral("*") : pattern, QFileInfo(path).fileName()))
            fitting << path;
    return fitting;
}

BatchResult RunBatch(const BatchPlan& plan, RunState& state, const std::function<void(int)>& tell)
{
    BatchResult result;
    BatchTable  table(plan.Format);
    try {
        for (qsizetype i = 0; i < plan.Pictures.size(); ++i) {
            tell(static_cast<int>(i));
            state.Reach(0, 1);
            const Outcome outcome = TryPicture(plan, plan.Pictures[i], state, table, result);
            if (outcome.IsDone())
                ++result.Done;
            else
                result.Failures << outcome.Text;
        }
    } catch (const Stopped&) {
        result.IsStopped = true;
    }
    if (!plan.Session.isEmpty())
        result.Table = table.Whole();
    return result;
}

QString FreePath(const QString& path)
{
    const QFileInfo wanted(path);
    QString         free = path;
    for (int i = 2; QFileInfo::exists(free) || QFileInfo(free).isSymLink(); ++i)
        free = wanted.dir().filePath(
            QStringLiteral("%1-%2.%3").arg(wanted.completeBaseName()).arg(i).arg(wanted.suffix()));
    return free;
}

}
