#pragma once

#include "documents/Outcome.h"
#include "documents/RawVolume.h"

#include <QDateTime>
#include <QList>
#include <QLockFile>
#include <QObject>
#include <QThreadPool>

#include <map>
#include <memory>

class QTimer;

namespace vostel::viewer {

class Document;
class KeptDocument;

// A document of a program that has ended without closing it.
struct LostDocument {
    QString   Title;
    QString   SessionPath;    // where it was saved last; empty: never
    QDateTime Kept;
    QString   File;    // of the keeper
};

// Keeps what is not saved of the watched documents, some seconds after each change, in a folder of this
// program's run beside the user's data; a picture that is in no file is kept too, up to a size. What a
// document keeps goes when it is saved or closed. What a run leaves that has ended, by a crash or a power
// cut, can be recovered by another one.
class SessionKeeper : public QObject {
    Q_OBJECT

public:
    explicit SessionKeeper(QObject* parent = nullptr);
    SessionKeeper(const QString& folder, int delayMilliseconds, QObject* parent = nullptr);
    ~SessionKeeper() override;

    void Watch(Document& document);
    void KeepAll();    // now, without waiting

    // What ended runs have left. It belongs to this run then, and stays until it is recovered or dropped.
    QList<LostDocument> Lost();
    // Brings one back on a document, which is watched from then on.
    Outcome Recover(const LostDocument& lost, Document& document);
    void    Drop(const LostDocument& lost);

Q_SIGNALS:
    void failed(const QString& reason);    // of keeping, once for each document

private:
    void TakeOver(const QString& run);

    QString                                            Folder;    // of all runs
    QString                                            Run;       // the folder of this one
    int                                                Delay;
    std::unique_ptr<QLockFile>                         Lock;
    std::map<QString, std::unique_ptr<QLockFile>>      Taken;    // runs that have ended
    std::map<Document*, std::unique_ptr<KeptDocument>> Watched;
    QThreadPool                                        Writers;
    int                                                Count = 0;
};

}
