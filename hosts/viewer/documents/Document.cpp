#include "documents/Document.h"

#include "documents/Calibration.h"
#include "documents/FileKinds.h"
#include "documents/FileReasons.h"
#include "documents/FileWriting.h"
#include "documents/Preview.h"
#include "documents/RawFiles.h"
#include "documents/ReadPicture.h"
#include "documents/RecentPaths.h"
#include "documents/SessionImage.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QScopedValueRollback>
#include <QThreadPool>

#include <algorithm>
#include <memory>
#include <utility>

namespace vostel::viewer {

namespace {

// A session whose picture was in no file takes the one that is shown.
void OpenSessionOn(Canvas& canvas, const std::string& path)
{
    try {
        canvas.session_open(path);
    } catch (const Error& error) {
        if (error.status() != VOSTEL_NO_IMAGE || !canvas.image_info())
            throw;
        canvas.session_open(path, VOSTEL_SESSION_ON_IMAGE);
    }
}

}

Document::Document(QObject* parent) : QObject(parent)
{
    Saved.Save(Shown.Open().history_info());
    connect(&PagesShown, &Stack::changed, this, [this] {
        Q_EMIT stackChanged();
        Q_EMIT titleChanged();
    });
    connect(&Shown, &CanvasModel::imageChanged, this, &Document::HearImage);
    connect(&Shown, &CanvasModel::historyChanged, this, &Document::HearHistory);
}

QString Document::Title() const
{
    const PageSource* const page = FromMemory ? nullptr : PagesShown.Current();
    if (!page && !Session.isEmpty())
        return QFileInfo(Session).fileName();
    if (!page)
        return Given.isEmpty() ? tr("Untitled") : Given;
    const QString name = QFileInfo(page->Path).fileName();
    if (PagesShown.Count() < 2)
        return name;
    return tr("%1, page %2 of %3").arg(name).arg(PagesShown.Index() + 1).arg(PagesShown.Count());
}

void Document::Name(const QString& title)
{
    Given = title;
    Q_EMIT titleChanged();
}

QString Document::PicturePath() const
{
    const PageSource* const page = FromMemory ? nullptr : PagesShown.Current();
    return page ? page->Path : QString();
}

bool Document::IsModified() const
{
    return !Saved.IsSaved();
}

bool Document::AddsToShown(const QString& path)
{
    return QFileInfo(path).isFile() && WhyUnreadable(path).isEmpty() &&
           KindOfFile(path).What == FileKind::Type::Regions;
}

Outcome Document::Open(const QString& path)
{
    if (QFileInfo(path).isDir()) {
        std::vector<PageSource> sources;
        for (const QString& picture : PicturesOfFolder(path))
            sources.push_back({picture, 0, std::nullopt});
        if (sources.empty())
            return Failed(tr("The folder \"%1\" holds no pictures.").arg(QDir::toNativeSeparators(path)));
        return OpenStack(std::move(sources), 0, path);
    }
    const QString unreadable = WhyUnreadable(path);
    if (!unreadable.isEmpty())
        return Failed(unreadable);
    const QString  file = QFileInfo(path).absoluteFilePath();
    const FileKind kind = KindOfFile(file);
    switch (kind.What) {
    case FileKind::Type::Picture:
        return OpenStack(PagesOfFile(file), 0, file);
    case FileKind::Type::Raw:
        return OpenRaw(file);
    case FileKind::Type::Session: {
        const Outcome outcome = OpenSession(file);
        if (outcome.IsDone())
            RecentPaths::AddSession(file);
        return outcome;
    }
    case FileKind::Type::Regions:
        return ImportRegions(file, kind);
    default:
        break;
    }
    const QString shown = QDir::toNativeSeparators(path);
    return Failed(
        kind.Name.isEmpty()
            ? tr("\"%1\" is no picture, in spite of its name.").arg(shown)
            : tr("\"%1\" is a %2 file. Files of this kind are not supported.").arg(shown, kind.Name));
}

void Document::OpenLater(const QString& path, std::function<void(const Outcome&)> ended)
{
    const bool isPicture = !QFileInfo(path).isDir() && WhyUnreadable(path).isEmpty() &&
                           KindOfFile(path).What == FileKind::Type::Picture;
    if (isPicture)
        ReadApart(QFileInfo(path).absoluteFilePath(), std::move(ended));
    else
        ended(Open(path));
}

void Document::ReadApart(const QString& file, std::function<void(const Outcome&)> ended)
{
    Reading = true;
    Q_EMIT                   readingChanged();
    const CanvasInfo         now = Shown.Open().info();
    const std::string        language = Shown.Open().language();
    const QPointer<Document> self = this;
    QThreadPool::globalInstance()->start([=] {
        const QImage preview = PreviewOf(file, QSize(now.width, now.height));
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [=] {
                if (self && self->Reading && !preview.isNull())
                    Q_EMIT self->previewRead(preview);
            },
            Qt::QueuedConnection);
    });
    QThreadPool::globalInstance()->start([=] {
        const auto read = std::make_shared<ReadPicture>(file, now, language);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [=] {
                if (self)
                    ended(self->TakeRead(*read, file));
            },
            Qt::QueuedConnection);
    });
}

Outcome Document::TakeRead(ReadPicture& read, const QString& file)
{
    Reading = false;
    if (read.Made) {
        const bool                       modifiedBefore = IsModified();
        const QScopedValueRollback<bool> opening(IsOpening, true);
        // The window may have taken another size meanwhile.
        const CanvasInfo now = Shown.Open().info();
        read.Made->set_pixel_ratio(now.pixel_ratio);
        read.Made->resize(std::max(now.width, 1), std::max(now.height, 1));
        Shown.Adopt(std::move(*read.Made));
        PagesShown.Take(std::move(read.Sources), 0);
        FromMemory = false;
        Calibration::Begin(Shown, file);
        TakeOpened(QString());
        TellState(modifiedBefore);
        RecentPaths::AddFile(file);
    }
    Q_EMIT readingChanged();
    return read.Ended;
}

Outcome Document::OpenSeries(const QString& path)
{
    std::vector<PageSource> sources;
    const QString           file = QFileInfo(path).absoluteFilePath();
    int                     first = 0;
    for (const QString& one : SeriesOfFile(file)) {
        if (one == file)
            first = static_cast<int>(sources.size());
        sources.push_back({one, 0, std::nullopt});
    }
    return OpenStack(std::move(sources), first, file);
}

Outcome Document::ShowPicture(const QImage& picture)
{
    const bool        deep = picture.format() == QImage::Format_Grayscale16;
    const QImage      shown = deep                ? picture
                              : picture.allGray() ? picture.convertToFormat(QImage::Format_Grayscale8)
                                                  : picture.convertToFormat(QImage::Format_RGB888);
    const VostelPixel type = deep ? VOSTEL_U16 : picture.allGray() ? VOSTEL_U8 : VOSTEL_RGB8;
    try {
        Shown.Open().image_show(type, shown.constBits(), shown.width(), shown.height(), shown.bytesPerLine());
    } catch (const Error& error) {
        return Failed(QString::fromStdString(error.message()));
    }
    Session.clear();
    PagesShown.Clear();
    return Done(tr("Pasted a picture of %1 × %2 px").arg(shown.width()).arg(shown.height()));
}

Outcome Document::OpenStack(std::vector<PageSource> sources, int first, const QString& opened)
{
    const bool                       modifiedBefore = IsModified();
    const QScopedValueRollback<bool> opening(IsOpening, true);
    const Outcome                    outcome = PagesShown.Start(std::move(sources), first);
    if (!outcome.IsDone())
        return outcome;
    FromMemory = false;
    Calibration::Begin(Shown, PicturePath());
    RecentPaths::AddFile(QFileInfo(opened).absoluteFilePath());
    TakeOpened(QString());
    TellState(modifiedBefore);
    return Done(tr("Opened %1").arg(QFileInfo(opened).fileName()));
}

Outcome Document::OpenRaw(const QString& path)
{
    const QString unreadable = WhyUnreadable(path);
    if (!unreadable.isEmpty())
        return Failed(unreadable);
    std::optional<RawVolume> volume = LayoutBeside(path);
    if (!volume)
        volume = AskRawLayout(path, QApplication::activeWindow());
    return volume ? OpenStack(SlicesOf(path, *volume), 0, path) : Cancelled();
}

Outcome Document::OpenSession(const QString& path)
{
    const bool                       modifiedBefore = IsModified();
    const QScopedValueRollback<bool> opening(IsOpening, true);
    const std::string                language = Shown.Open().language();
    QString                          text;
    try {
        OpenSessionOn(Shown.Open(), path.toStdString());
        text = WithRemarks(tr("Opened %1").arg(QFileInfo(path).fileName()));
        Shown.Open().set_language(language);    // captions are of this interface, not of the one that saved
    } catch (const Error& error) {
        return Failed(WhyNotOpened(error, path));
    }
    if (const auto image = ImageOfSession(path)) {
        std::vector<PageSource> pages =
            image->Layout ? std::vector<PageSource>{*image} : PagesOfFile(image->Path);
        PagesShown.Take(std::move(pages), image->Layout ? 0 : image->Page);
        FromMemory = false;
    }
    TakeOpened(path);
    TellState(modifiedBefore);
    return Done(text);
}

Outcome Document::ImportRegions(const QString& path, const FileKind& kind)
{
    try {
        const std::size_t count = Shown.Open().regions_import(path.toStdString(), kind.Regions.toStdString());
        return Done(WithRemarks(
            tr("Added %n objects of %1", nullptr, static_cast<int>(count)).arg(QFileInfo(path).fileName())));
    } catch (const Error& error) {
        return Failed(WhyNotOpened(error, path));
    }
}

Outcome Document::SaveSession(const QString& path)
{
    const bool modifiedBefore = IsModified();
    QString    text;
    try {
        WriteSession(path);
        text = WithRemarks(SavedText(path));
    } catch (const Error& error) {
        return Failed(WhyNotWritten(error, path));
    }
    if (FromMemory)
        text += tr(" - without the picture, which is in no file: save it too");
    Session = QFileInfo(path).absoluteFilePath();
    Saved.Save(Shown.Open().history_info());
    Q_EMIT titleChanged();
    TellState(modifiedBefore);
    RecentPaths::AddSession(Session);
    Q_EMIT sessionSaved();
    return Done(text);
}

void Document::WriteSession(const QString& path) const
{
    SaveSessionNaming(Shown.Open(), path,
                      FromMemory || PagesShown.IsNamed() ? nullptr : PagesShown.Current());
}

Outcome Document::Recover(const QString& kept, const QString& session, const QString& imageFile,
                          const std::optional<RawVolume>& image)
{
    const QString title = session.isEmpty() ? tr("Untitled") : QFileInfo(session).fileName();
    if (image && !ShowKeptImage(imageFile, *image))
        return Failed(tr("The picture that was kept of \"%1\" cannot be read.").arg(title));
    const Outcome outcome = OpenSession(kept);
    if (!outcome.IsDone())
        return outcome;
    const bool modifiedBefore = IsModified();
    Session = session;
    Saved.Lose();
    Q_EMIT titleChanged();
    TellState(modifiedBefore);
    return Done(tr("Recovered %1").arg(Title()));
}

bool Document::ShowKeptImage(const QString& file, const RawVolume& image)
{
    QFile      bytes(file);
    QByteArray samples = bytes.open(QIODevice::ReadOnly) ? bytes.readAll() : QByteArray();
    if (samples.size() != image.Bytes())
        return false;
    const QScopedValueRollback<bool> opening(IsOpening, true);
    if (!Shown.Try([&](Canvas& canvas) {
            canvas.image_show(image.Layout.type, samples.constData(), image.Layout.width,
                              image.Layout.height);
        }))
        return false;
    PagesShown.Clear();
    FromMemory = true;
    return true;
}

void Document::Close()
{
    Q_EMIT closed();
}

void Document::TakeOpened(const QString& session)
{
    Session = session;
    Saved.Save(Shown.Open().history_info());
    Q_EMIT titleChanged();
}

// An image that nobody opened here comes from a routine or from the clipboard.
void Document::HearImage()
{
    if (PagesShown.IsGoing())
        FromMemory = false;
    if (IsOpening || PagesShown.IsGoing())
        return;
    const bool modifiedBefore = IsModified();
    FromMemory = true;
    Saved.Lose();
    Q_EMIT titleChanged();
    TellState(modifiedBefore);
    Q_EMIT changed();
}

void Document::HearHistory()
{
    if (IsOpening)
        return;
    const bool modifiedBefore = IsModified();
    Saved.Hear(Shown.Open().history_info());
    TellState(modifiedBefore);
    Q_EMIT changed();
}

void Document::TellState(bool modifiedBefore)
{
    if (IsModified() != modifiedBefore)
        Q_EMIT modifiedChanged();
}

}
