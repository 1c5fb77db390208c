#include "documents/KeptDocument.h"

#include "documents/FileReasons.h"
#include "documents/FileWriting.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QIODevice>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThreadPool>

#include <algorithm>

namespace vostel::viewer {

namespace {

constexpr qint64 MostKeptBytes = qint64{256} << 20;    // of a picture that is in no file

// The rows of a plane without gaps.
QByteArray TightBytes(const VostelPlane& plane)
{
    const qint64 rowBytes = static_cast<qint64>(plane.width) * BytesOfPixel(plane.type);
    QByteArray   bytes;
    bytes.reserve(rowBytes * plane.height);
    for (int row = 0; row < plane.height; ++row)
        bytes.append(static_cast<const char*>(plane.data) + row * plane.row_bytes, rowBytes);
    return bytes;
}

}

KeptDocument::KeptDocument(Document& document, const QString& stem, int delay, QThreadPool& writers)
    : Content(document), Stem(stem), Delay(delay), Pause(delay), Writers(writers)
{
    Timer.setSingleShot(true);
    connect(&Timer, &QTimer::timeout, this, &KeptDocument::KeepAtRest);
    connect(&Content, &Document::changed, this, &KeptDocument::Follow);
    connect(&Content, &Document::modifiedChanged, this, &KeptDocument::Follow);
    connect(&Content, &Document::stackChanged, this, &KeptDocument::Follow);
    connect(&Content, &Document::closed, this, &KeptDocument::Forget);
    connect(&Content.Model(), &CanvasModel::imageChanged, this, [this] { ImageIsKept = false; });
    Follow();
}

void KeptDocument::Follow()
{
    if (!Content.IsModified())
        Forget();
    else if (!Timer.isActive())
        Timer.start(Pause);    // not again with each change, or somebody who never rests would keep nothing
}

// Keeping many objects stops the window for a moment: not in the middle of a drag.
void KeptDocument::KeepAtRest()
{
    constexpr int Look = 100;    // ms until the button is looked at again
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        Timer.start(Look);
    else
        Keep();
}

void KeptDocument::Keep()
{
    Timer.stop();
    if (!Content.IsModified())
        return;
    QElapsedTimer time;
    time.start();
    Outcome outcome;
    try {
        Content.WriteSession(SessionFile(Stem));
        KeepImage();
        outcome = KeepFacts();
    } catch (const Error& error) {
        outcome = Failed(WhyNotWritten(error, SessionFile(Stem)));
    }
    if (!outcome.IsDone() && !HasFailed)
        Q_EMIT failed(outcome.Text);
    HasFailed = !outcome.IsDone();
    constexpr int Rests = 50;    // of many objects less often, or the window would do little else
    Pause = std::max(Delay, static_cast<int>(time.elapsed()) * Rests);
}

void KeptDocument::KeepImage()
{
    const auto info = Content.Model().Open().image_info();
    if (!info || !Content.PicturePath().isEmpty() || ImageIsKept)
        return;
    const VostelPlane plane = Content.Model().Open().image_plane();
    if (qint64{plane.width} * plane.height * BytesOfPixel(plane.type) > MostKeptBytes)
        return;
    ImageIsKept = true;
    Writers.start([path = ImageFile(Stem), bytes = TightBytes(plane)] {
        WriteFile(path, [&](QIODevice& file) { return file.write(bytes) == bytes.size(); });
    });
}

Outcome KeptDocument::KeepFacts() const
{
    QJsonObject facts;
    facts.insert(QStringLiteral("Title"), Content.Title());
    facts.insert(QStringLiteral("Session"), Content.SessionPath());
    facts.insert(QStringLiteral("Time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate));
    if (ImageIsKept) {
        const VostelPlane plane = Content.Model().Open().image_plane();
        RawVolume         image;
        image.Layout.type = plane.type;
        image.Layout.width = plane.width;
        image.Layout.height = plane.height;
        facts.insert(QStringLiteral("Image"), QJsonObject::fromVariantMap(ToMap(image)));
    }
    const QByteArray text = QJsonDocument(facts).toJson();
    return WriteFile(FactsFile(Stem), [&](QIODevice& file) { return file.write(text) == text.size(); });
}

void KeptDocument::Forget()
{
    Timer.stop();
    Writers.waitForDone();    // or an image would come after it has been removed
    ImageIsKept = false;
    Remove(Stem);
}

void KeptDocument::Remove(const QString& stem)
{
    for (const QString& file : {FactsFile(stem), SessionFile(stem), ImageFile(stem)})
        QFile::remove(file);
}

}
