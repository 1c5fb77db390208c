#pragma once

#include "documents/Document.h"

#include <QObject>
#include <QTimer>

class QThreadPool;

namespace vostel::viewer {

// Keeps one document under a name in the folder of a run: NAME.vostel.json, NAME.json with what is known of
// it and, of a picture that is in no file, NAME.raw.
class KeptDocument : public QObject {
    Q_OBJECT

public:
    KeptDocument(Document& document, const QString& stem, int delay, QThreadPool& writers);

    void Keep();
    void Forget();

    static QString SessionFile(const QString& stem) { return stem + QStringLiteral(".vostel.json"); }
    static QString FactsFile(const QString& stem) { return stem + QStringLiteral(".json"); }
    static QString ImageFile(const QString& stem) { return stem + QStringLiteral(".raw"); }
    static void    Remove(const QString& stem);

Q_SIGNALS:
    void failed(const QString& reason);

private:
    void    Follow();
    void    KeepAtRest();
    void    KeepImage();
    Outcome KeepFacts() const;

    Document&    Content;
    QString      Stem;
    int          Delay;    // ms from a change, at least
    int          Pause;    // ms until what changes now is kept
    QTimer       Timer;
    QThreadPool& Writers;
    bool         ImageIsKept = false;    // of a picture that is in no file
    bool         HasFailed = false;
};

}
