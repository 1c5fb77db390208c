#include "documents/SessionKeeper.h"

#include "documents/FileReasons.h"
#include "documents/KeptDocument.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QUuid>

namespace vostel::viewer {

namespace {

constexpr int KeepDelay = 3000;    // ms

const QString LockName = QStringLiteral("lock");
const QString FactsEnding = QStringLiteral(".json");

QString DefaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recovery");
}

std::unique_ptr<QLockFile> LockOf(const QString& run)
{
    auto lock = std::make_unique<QLockFile>(run + QLatin1Char('/') + LockName);
    lock->setStaleLockTime(0);    // however old: only a program that has ended loses it
    return lock->tryLock() ? std::move(lock) : nullptr;
}

QJsonObject FactsIn(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

QStringList FactsFiles(const QString& run)
{
    QStringList files;
    for (const QFileInfo& file : QDir(run).entryInfoList({QStringLiteral("*.json")}, QDir::Files, QDir::Name))
        if (!file.fileName().endsWith(QStringLiteral(".vostel.json")))
            files << file.absoluteFilePath();
    return files;
}

QString StemOf(const LostDocument& lost)
{
    return lost.File.chopped(FactsEnding.size());
}

}

SessionKeeper::SessionKeeper(QObject* parent) : SessionKeeper(DefaultFolder(), KeepDelay, parent) {}

SessionKeeper::SessionKeeper(const QString& folder, int delayMilliseconds, QObject* parent)
    : QObject(parent), Folder(folder),
      Run(folder + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces)),
      Delay(delayMilliseconds)
{
    Writers.setMaxThreadCount(1);
    if (QDir().mkpath(Run))
        Lock = LockOf(Run);
}

SessionKeeper::~SessionKeeper()
{
    Watched.clear();
    Writers.waitForDone();
    Lock.reset();
    QDir().rmdir(Run);    // goes if nothing is kept in it
    for (auto& [run, lock] : Taken) {
        lock.reset();
        QDir().rmdir(run);
    }
}

void SessionKeeper::Watch(Document& document)
{
    std::unique_ptr<KeptDocument>& kept = Watched[&document];
    kept = std::make_unique<KeptDocument>(document, QStringLiteral("%1/%2").arg(Run).arg(++Count), Delay,
                                          Writers);
    connect(kept.get(), &KeptDocument::failed, this, &SessionKeeper::failed);
    connect(&document, &QObject::destroyed, this, [this, gone = &document] { Watched.erase(gone); });
}

void SessionKeeper::KeepAll()
{
    for (auto& [document, kept] : Watched)
        kept->Keep();
    Writers.waitForDone();
}

QList<LostDocument> SessionKeeper::Lost()
{
    for (const QFileInfo& run : QDir(Folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
        TakeOver(run.absoluteFilePath());
    QList<LostDocument> all;
    for (const auto& [run, lock] : Taken)
        for (const QString& file : FactsFiles(run)) {
            const QJsonObject facts = FactsIn(file);
            all.append({facts.value(QLatin1String("Title")).toString(),
                        facts.value(QLatin1String("Session")).toString(),
                        QDateTime::fromString(facts.value(QLatin1String("Time")).toString(), Qt::ISODate),
                        file});
        }
    std::sort(all.begin(), all.end(),
              [](const LostDocument& a, const LostDocument& b) { return a.Kept > b.Kept; });
    return all;
}

void SessionKeeper::TakeOver(const QString& run)
{
    if (run == QFileInfo(Run).absoluteFilePath() || Taken.contains(run))
        return;
    std::unique_ptr<QLockFile> lock = LockOf(run);
    if (!lock)
        return;    // a program that runs
    if (FactsFiles(run).isEmpty()) {
        lock.reset();
        QDir(run).removeRecursively();
        return;
    }
    Taken[run] = std::move(lock);
}

Outcome SessionKeeper::Recover(const LostDocument& lost, Document& document)
{
    const QString     stem = StemOf(lost);
    const QJsonObject image = FactsIn(lost.File).value(QLatin1String("Image")).toObject();
    const Outcome     outcome =
        document.Recover(KeptDocument::SessionFile(stem), lost.SessionPath, KeptDocument::ImageFile(stem),
                         RawVolumeOf(image.toVariantMap()));
    if (!outcome.IsDone())
        return outcome;
    if (!Watched.contains(&document))
        Watch(document);
    Watched[&document]->Keep();    // before the other copy goes
    Writers.waitForDone();
    Drop(lost);
    return outcome;
}

void SessionKeeper::Drop(const LostDocument& lost)
{
    KeptDocument::Remove(StemOf(lost));
}

}
