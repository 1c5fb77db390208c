#pragma once

#include "documents/Outcome.h"

#include <QMainWindow>
#include <QStringList>

namespace vostel::viewer {

class CanvasPane;
class CanvasView;
class CommandList;
class DockSet;
class Document;
class Processing;
class SessionKeeper;
class StatusLine;
class ThemeKeeper;
class Workspace;

// The viewer's window: documents in tabs or tiles, docks, menus, tool bars and a status bar.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    void OpenFiles(const QStringList& paths);    // each in a document of its own
    // One file in a document of its own, in a way that is not told by the file.
    void OpenAs(const QString& path, Outcome (Document::*open)(const QString&));

    Workspace&   Area() const { return *Panes; }
    CommandList& Commands() const { return *Entries; }
    ThemeKeeper& Themes() const { return *Look; }
    DockSet&     Docks() const { return *Panels; }
    Processing&  Runs() const { return *Routines; }
    StatusLine&  Status() const { return *Line; }
    Document&    Shown() const;    // the current document
    CanvasView&  View() const;     // its canvas

    // Done: in the status bar. Failed: in a box. Cancelled: nothing.
    void Report(const Outcome& outcome);

    // Asks what is to become of documents that a run before has left, and brings them back if wanted.
    void OfferRecovery();

    bool CloseDocument(int index);    // asks about what is not saved; false when the person stays

Q_SIGNALS:
    void currentChanged();

protected:
    void childEvent(QChildEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildBars();
    void ConnectPane(CanvasPane& pane);
    void ShowCurrent();
    void ShowCursor();
    void ShowTitle();
    bool MayDrop(Document& document);    // asks whether to save

    SessionKeeper* Keeper;
    ThemeKeeper*   Look;
    Workspace*     Panes;
    CommandList*   Entries;
    StatusLine*    Line;
    DockSet*       Panels;
    Processing*    Routines;
};

}
