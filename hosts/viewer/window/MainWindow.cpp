#include "window/MainWindow.h"

#include "documents/Document.h"
#include "documents/SessionKeeper.h"
#include "window/CanvasPane.h"
#include "window/CommandList.h"
#include "window/DockSet.h"
#include "window/Processing.h"
#include "window/StatusLine.h"
#include "window/StyleDialog.h"
#include "window/Theme.h"
#include "window/ViewChoices.h"
#include "window/Workspace.h"
#include "window/commands/CommandGroups.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

namespace vostel::viewer {

namespace {

const QString WindowKey = QStringLiteral("Window/Geometry");
const QString BarsKey = QStringLiteral("Window/Bars");
const QString ClassicKey = QStringLiteral("ClassicGestures");

constexpr int BarsVersion = 3;    // another arrangement of the bars gets another number

// The button of the toolkit that brings what a narrow bar has no room for says nothing by itself.
void NameButtons(QWidget& bar, const QString& name)
{
    for (QToolButton* const button : bar.findChildren<QToolButton*>())
        if (!button->defaultAction()) {
            button->setAccessibleName(name);
            button->setToolTip(name);
        }
}

}

MainWindow::MainWindow()
    : Keeper(new SessionKeeper(this)), Look(new ThemeKeeper(this)), Panes(new Workspace(this)),
      Entries(new CommandList(this)), Line(new StatusLine(*statusBar())), Panels(new DockSet(*this)),
      Routines(new Processing(*this))
{
    setObjectName(QStringLiteral("MainWindow"));
    setCentralWidget(Panes);
    setAcceptDrops(true);
    connect(Panes, &Workspace::paneAdded, this, &MainWindow::ConnectPane);
    connect(Panes, &Workspace::currentChanged, this, &MainWindow::ShowCurrent);
    connect(Panes, &Workspace::closeWanted, this, &MainWindow::CloseDocument);
    ViewChoices::Restore(*Panes);
    Panes->AddPane();
    AddFileCommands(*this);
    AddEditCommands(*this);
    AddViewCommands(*this);
    Panels->AddCommands();
    AddDrawCommands(*this);
    AddMeasureCommands(*this);
    AddCalibrationCommands(*this);
    AddImageCommands(*this);
    AddProcessCommands(*this);
    AddWindowCommands(*this);
    AddHelpCommands(*this);
    BuildBars();
    const QSettings settings;
    if (!restoreGeometry(settings.value(WindowKey).toByteArray())) {
        const QSize room = screen()->availableSize();
        resize(std::min(1240, room.width() * 9 / 10), std::min(820, room.height() * 9 / 10));
    }
    restoreState(settings.value(BarsKey).toByteArray(), BarsVersion);
    ShowCurrent();
}

MainWindow::~MainWindow()
{
    // Canvases end after the window, and what they tell then must not reach it.
    Panels->Detach();
    Panes->disconnect(this);
    for (CanvasPane* const pane : Panes->All()) {
        pane->disconnect(this);
        pane->View().disconnect(this);
        pane->Shown().Model().disconnect(this);
    }
}

Document& MainWindow::Shown() const
{
    return Panes->Current().Shown();
}

CanvasView& MainWindow::View() const
{
    return Panes->Current().View();
}

void MainWindow::BuildBars()
{
    Entries->FillMenuBar(*menuBar());
    NameButtons(*menuBar(), tr("More menus"));
    const auto add = [this](const QString& title, const char* name, Qt::ToolBarArea area,
                            const std::vector<const char*>& ids) {
        auto* const bar = new QToolBar(title, this);
        bar->setObjectName(QLatin1String(name));
        addToolBar(area, bar);
        Entries->FillToolBar(*bar, ids);
        NameButtons(*bar, tr("More of: %1").arg(title));
    };
    add(tr("File, edit and view"), "TopBar", Qt::TopToolBarArea,
        {"file.open", "file.save", nullptr, "edit.undo", "edit.redo", nullptr, "view.fit", "view.actual",
         "view.zoomIn", "view.zoomOut", nullptr, "view.zoomBox"});
    add(tr("Draw and measure"), "DrawBar", Qt::LeftToolBarArea,
        {"draw.select", nullptr, "measure.length", "measure.angle", "measure.profile", "measure.points",
         nullptr, "draw.rectangle", "draw.ellipse", "draw.polygon", "draw.spline", "draw.freeRegion", nullptr,
         "draw.polyline", "draw.arrow", "draw.text"});
}

void MainWindow::ConnectPane(CanvasPane& pane)
{
    Keeper->Watch(pane.Shown());
    CanvasView&  view = pane.View();
    CanvasModel& model = pane.Shown().Model();
    view.SetDrawingStyle(StyleDialog::Kept());
    ViewChoices::Restore(view);
    view.SetEscapeFirst([this] { return Routines->Stop(); });
    view.SetClassic(QSettings().value(ClassicKey, false).toBool());
    model.Open().set_language(QLocale().language() == QLocale::Chinese ? "zh" : "en");
    const auto isCurrent = [this, &pane] { return &Panes->Current() == &pane; };
    const auto ifCurrent = [isCurrent](auto act) {
        return [isCurrent, act] {
            if (isCurrent())
                act();
        };
    };
    connect(&view, &CanvasView::cursorMoved, this,
            [this, &model](QPointF image) { Line->ShowCursor(model, image); });
    connect(&view, &CanvasView::cursorLeft, Line, &StatusLine::ShowNoCursor);
    connect(&view, &CanvasView::hintChanged, this, [this, isCurrent](const QString& hint) {
        if (isCurrent())
            Line->ShowHint(hint);
    });
    connect(&view, &CanvasView::toolChanged, this, ifCurrent([this] { Entries->Update(); }));
    connect(&view, &CanvasView::menuWanted, this, [this](QPoint at) {
        QMenu menu(this);
        for (const char* const id : {"edit.cut", "edit.copy", "edit.paste", "edit.duplicate", "edit.delete"})
            menu.addAction(&Entries->Of(id));
        menu.addSeparator();
        for (const char* const id : {"view.fit", "view.actual", "view.selection"})
            menu.addAction(&Entries->Of(id));
        Entries->Update();
        menu.exec(at);
    });
    for (auto change : {&CanvasModel::viewChanged, &CanvasModel::imageChanged, &CanvasModel::historyChanged})
        connect(&model, change, this, ifCurrent([this] {
            Line->ShowCanvas(Shown().Model());
            ShowCursor();
        }));
    for (auto change :
         {&CanvasModel::selectionChanged, &CanvasModel::historyChanged, &CanvasModel::imageChanged})
        connect(&model, change, this, ifCurrent([this] { Entries->Update(); }), Qt::QueuedConnection);
    connect(&model, &CanvasModel::failed, this, [this](const QString& reason) {
        Report({Outcome::Kind::Failed, reason});
    });
    connect(&pane, &CanvasPane::titleChanged, this, ifCurrent([this] { ShowTitle(); }));
    connect(&pane.Shown(), &Document::stackChanged, this, ifCurrent([this] { Entries->Update(); }),
            Qt::QueuedConnection);
}

void MainWindow::ShowCurrent()
{
    Panels->ShowCurrent();
    Line->ShowCanvas(Shown().Model());
    Line->ShowNoCursor();
    View().TellHint();
    Entries->Update();
    ShowTitle();
    Q_EMIT currentChanged();
}

// Of a pointer that rests while another page comes or the view moves under it.
void MainWindow::ShowCursor()
{
    const CanvasView& view = View();
    if (view.underMouse())
        Line->ShowCursor(view.Model(), view.ImageAt(view.mapFromGlobal(QCursor::pos(screen()))));
}

void MainWindow::ShowTitle()
{
    const Document& shown = Shown();
    setWindowModified(shown.IsModified());
    setWindowTitle(QStringLiteral("%1[*] - %2").arg(shown.Title(), QApplication::applicationDisplayName()));
}

void MainWindow::OpenFiles(const QStringList& paths)
{
    for (const QString& path : paths) {
        const qsizetype      count = Panes->All().size();
        CanvasPane&          pane = Document::AddsToShown(path) ? Panes->Current() : Panes->PaneForOpening();
        const bool           isNew = Panes->All().size() > count;
        QPointer<CanvasPane> opened = &pane;
        pane.Shown().OpenLater(path, [this, opened, isNew](const Outcome& outcome) {
            if (opened && outcome.IsDone() && !opened->Shown().SessionPath().isEmpty())
                opened->View().SetFitted(false);    // a session has its view
            else if (opened && outcome.IsDone())
                opened->View().Fit();
            if (opened && !outcome.IsDone() && isNew)
                Panes->Remove(int(Panes->All().indexOf(opened)));    // the one that was made for it
            if (opened == &Panes->Current())
                opened->View().setFocus();
            ShowCurrent();
            Report(outcome);
        });
    }
}

void MainWindow::OpenAs(const QString& path, Outcome (Document::*open)(const QString&))
{
    const qsizetype count = Panes->All().size();
    CanvasPane&     pane = Panes->PaneForOpening();
    const Outcome   outcome = (pane.Shown().*open)(path);
    if (outcome.IsDone())
        pane.View().Fit();
    else if (Panes->All().size() > count)
        Panes->Remove(Panes->CurrentIndex());
    ShowCurrent();
    Report(outcome);
}

void MainWindow::Report(const Outcome& outcome)
{
    if (outcome.IsDone() && !outcome.Text.isEmpty())
        Line->ShowResult(outcome.Text);
    if (outcome.Result != Outcome::Kind::Failed)
        return;
    auto* const box = new QMessageBox(QMessageBox::Warning, QApplication::applicationDisplayName(),
                                      outcome.Text, QMessageBox::Ok, this);
    box->setObjectName(QStringLiteral("Failure"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);    // names of files are no markup
    box->open();
}

void MainWindow::OfferRecovery()
{
    const QList<LostDocument> lost = Keeper->Lost();
    if (lost.isEmpty())
        return;
    QStringList names;
    for (const LostDocument& one : lost)
        names << QStringLiteral("%1, %2").arg(one.Title, QLocale().toString(one.Kept, QLocale::ShortFormat));
    auto* const box = new QMessageBox(QMessageBox::Question, QApplication::applicationDisplayName(),
                                      tr("The viewer ended without saving:") + QStringLiteral("\n\n") +
                                          names.join(QLatin1Char('\n')),
                                      QMessageBox::NoButton, this);
    box->setObjectName(QStringLiteral("Recovery"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    QPushButton* const recover = box->addButton(tr("Recover"), QMessageBox::AcceptRole);
    QPushButton* const drop = box->addButton(tr("Drop"), QMessageBox::DestructiveRole);
    box->addButton(tr("Ask again later"), QMessageBox::RejectRole);
    connect(box, &QMessageBox::buttonClicked, this, [this, lost, recover, drop](QAbstractButton* pressed) {
        for (const LostDocument& one : lost) {
            if (pressed == drop)
                Keeper->Drop(one);
            if (pressed != recover)
                continue;
            CanvasPane& pane = Panes->PaneForOpening();
            pane.View().SetFitted(false);    // it has its view
            Report(Keeper->Recover(one, pane.Shown()));
        }
        ShowCurrent();
    });
    box->open();
}

bool MainWindow::MayDrop(Document& document)
{
    if (!document.IsModified())
        return true;
    QMessageBox box(QMessageBox::Question, QApplication::applicationDisplayName(),
                    tr("Objects or settings of \"%1\" are not saved.").arg(document.Title()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setObjectName(QStringLiteral("NotSaved"));
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return SaveSession(*this, document, false);
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

bool MainWindow::CloseDocument(int index)
{
    if (!MayDrop(Panes->All()[index]->Shown()))
        return false;
    Panes->All()[index]->Shown().Close();
    Panes->Remove(index);
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    for (int i = 0; i < Panes->All().size(); ++i) {
        if (Panes->All()[i]->Shown().IsModified())
            Panes->SetCurrent(i);    // the one that is asked about is seen
        if (!MayDrop(Panes->All()[i]->Shown()))
            return event->ignore();
    }
    for (CanvasPane* const pane : Panes->All())
        pane->Shown().Close();
    QSettings settings;
    settings.setValue(WindowKey, saveGeometry());
    settings.setValue(BarsKey, saveState(BarsVersion));
    event->accept();
}

void MainWindow::childEvent(QChildEvent* event)
{
    QMainWindow::childEvent(event);
    auto* const tabs = event->polished() ? qobject_cast<QTabBar*>(event->child()) : nullptr;
    if (tabs)    // of docks that lie on one another
        tabs->setAccessibleName(tr("Panels"));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            return event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths << url.toLocalFile();
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    // The program that the files come from waits for the end of the drop; a dialog would hold it up.
    QMetaObject::invokeMethod(
        this, [this, paths] { OpenFiles(paths); }, Qt::QueuedConnection);
}

}
