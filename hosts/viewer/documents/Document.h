#pragma once

#include "canvas/CanvasModel.h"
#include "documents/Outcome.h"
#include "documents/SavedState.h"
#include "documents/Stack.h"

#include <QImage>
#include <QObject>
#include <QString>

#include <functional>

namespace vostel::viewer {

struct FileKind;
struct ReadPicture;

// One canvas with what it shows: a picture, a page of a stack, a session.
class Document : public QObject {
    Q_OBJECT

public:
    explicit Document(QObject* parent = nullptr);

    CanvasModel&       Model() { return Shown; }
    const CanvasModel& Model() const { return Shown; }
    Stack&             Pages() { return PagesShown; }
    const Stack&       Pages() const { return PagesShown; }

    // Name of the file, with the page of a stack; of what has no file the name that it was given, or
    // "Untitled".
    QString Title() const;
    void    Name(const QString& title);
    QString PicturePath() const;                       // empty: from memory or none
    QString SessionPath() const { return Session; }    // empty: never saved
    bool    IsModified() const;    // objects, contrast, scale or a picture from memory are in no session

    // Shows a picture, raw data (whose layout is asked for), the pictures of a folder as a stack or a
    // session, in the place of what was there; of a region file it adds the objects. A refused file leaves
    // everything.
    Outcome Open(const QString& path);
    // The same for a document that is empty, without keeping the window waiting: a picture is read by a
    // thread and comes when it is there; everything else at once. Called when it has ended, unless the
    // document is gone by then.
    void OpenLater(const QString& path, std::function<void(const Outcome&)> ended);
    bool IsReading() const { return Reading; }    // by such a thread

    // Shows a picture file with all files of its folder that are numbered like it, as a stack.
    Outcome OpenSeries(const QString& path);
    // Shows any file as data without a header, whose layout is asked for.
    Outcome OpenRaw(const QString& path);
    // Shows a picture from memory, of the clipboard, in the place of what was there.
    Outcome ShowPicture(const QImage& picture);
    // Whether a file adds to what is shown, as region files do.
    static bool AddsToShown(const QString& path);

    Outcome SaveSession(const QString& path);
    void    WriteSession(const QString& path) const;    // without taking it for the document's; throws Error

    // Shows a session that was kept of a program that has ended, with the picture that was kept of one that
    // was in no file. It counts as not saved in the session that it was saved in last.
    Outcome Recover(const QString& kept, const QString& session, const QString& imageFile,
                    const std::optional<RawVolume>& image);

    // Before the document goes: nothing is to be recovered of it.
    void Close();

Q_SIGNALS:
    void titleChanged();
    void modifiedChanged();
    void stackChanged();
    void readingChanged();
    void previewRead(const QImage& picture);    // of what is being read
    void changed();                             // anything that a session holds beside the view
    void sessionSaved();
    void closed();

private:
    Outcome OpenStack(std::vector<PageSource> sources, int first, const QString& opened);
    void    ReadApart(const QString& file, std::function<void(const Outcome&)> ended);
    Outcome TakeRead(ReadPicture& read, const QString& file);
    Outcome OpenSession(const QString& path);
    bool    ShowKeptImage(const QString& file, const RawVolume& image);
    Outcome ImportRegions(const QString& path, const FileKind& kind);
    void    TakeOpened(const QString& session);
    void    HearImage();
    void    HearHistory();
    void    TellState(bool modifiedBefore);

    CanvasModel Shown;
    Stack       PagesShown{Shown};
    QString     Session;
    QString     Given;    // name of what is in no file
    SavedState  Saved;
    bool        Reading = false;
    bool        IsOpening = false;     // what comes meanwhile is not an image of somebody else
    bool        FromMemory = false;    // somebody showed values that are in no file
};

}
