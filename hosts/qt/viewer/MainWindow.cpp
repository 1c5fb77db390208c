#include "MainWindow.h"

#include "CanvasArea.h"
#include "CommandActions.h"
#include "GesturePage.h"
#include "NameFilters.h"
#include "QtText.h"
#include "RecentFilesMenu.h"
#include "RoutineDialog.h"
#include "StatusLine.h"
#include "Translations.h"
#include "dialogs/DialogScope.h"
#include "dialogs/ParameterDialogs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

#include <utility>

namespace vostel::viewer {

using namespace widget;

namespace {

const QString WindowKey = QStringLiteral("Window/Geometry");
const QString BarsKey = QStringLiteral("Window/Bars");
const QString TiledKey = QStringLiteral("Window/Tiled");
const QString RecentKey = QStringLiteral("RecentFiles");
const QString FolderKey = QStringLiteral("OpenFolder");

// The names of the routine and the parameter outlive their numbers.
QString ValueKey(const Routine& routine, const RoutineParameter& parameter)
{
    return QStringLiteral("Routines/%1/%2").arg(QLatin1String(routine.Title), QLatin1String(parameter.Name));
}

VostelWidget::KeyGroups KeysOf(const ViewerSession& session)
{
    VostelWidget::KeyGroups keys = VostelWidget::UsualKeys;
    keys.setFlag(VostelWidget::DeleteAllKey, session.ForwardsKey('C'));
    return keys.setFlag(VostelWidget::OverwriteKeys, session.ForwardsKey('I'));
}

constexpr int BarsVersion = 1;    // another arrangement of the bars gets another number

QString OpenFilters()
{
    QString filter = QString::fromLatin1(OpenFilter());
    for (const char* const text :
         {QT_TRANSLATE_NOOP("Commands", "Pictures and raw data"), QT_TRANSLATE_NOOP("Commands", "All files")})
        filter.replace(QLatin1String(text), CommandText(text));
    return NameFilters(filter).join(QStringLiteral(";;"));
}

}

MainWindow::MainWindow()
    : Session(Services(), Kept()), Canvases(new CanvasArea(Session, this)),
      Commands(new CommandActions(this)), Status(new StatusLine(statusBar()))
{
    setCentralWidget(Canvases);
    setAcceptDrops(true);
    BuildBars();
    for (int number = 0; number < CanvasCount; ++number)
        ConnectCanvas(number);
    connect(Commands, &CommandActions::wanted, this, &MainWindow::Carry);
    RestoreWindow();
    ShowState();
    Canvases->Canvas().setFocus();
}

MainWindow::~MainWindow()
{
    // The session ends before the canvases, whose last events must not reach it.
    for (int number = 0; number < CanvasCount; ++number) {
        Canvases->Tile(number).disconnect(this);
        Canvases->Tile(number).Canvas()->disconnect(this);
    }
}

ViewerWindow MainWindow::Services()
{
    ViewerWindow window;
    window.Post = [this](std::function<void()> call) {
        QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
    };
    window.Translate = [](const char* english) { return CommandText(english).toStdWString(); };
    window.Arrange = [this] { Canvases->Arrange(); };
    window.Repaint = [this](int canvas) { Canvases->Tile(canvas).Canvas()->refresh(); };
    window.ShowState = [this] { ShowState(); };
    window.ShowStatus = [this](const std::wstring& text) {
        statusBar()->showMessage(QString::fromStdWString(text));
    };
    window.Report = [this](const std::wstring& text) { Report(QString::fromStdWString(text)); };
    window.ShowHelp = [this] { ShowHelp(); };
    window.ShowAbout = [this] { ShowAbout(); };
    window.Close = [this] { close(); };
    window.AskFiles = [this] { return AskFiles(); };
    window.AskTextLines = [this](std::wstring& lines) { return AskTextLines(lines); };
    window.AskRoutine = [this](RoutineQuestion& question) { return AskRoutine(question); };
    window.ReadFile = [this](int canvas, const std::wstring& path, const std::function<void()>& read) {
        return ReadFile(canvas, path, read);
    };
    return window;
}

ViewerSettings MainWindow::Kept()
{
    ViewerSettings settings;
    settings.LoadRecentFiles = [] {
        std::vector<std::wstring> paths;
        for (const QString& path : QSettings().value(RecentKey).toStringList())
            paths.push_back(path.toStdWString());
        return paths;
    };
    settings.SaveRecentFiles = [this](const std::vector<std::wstring>& newest) {
        QStringList paths;
        for (const std::wstring& path : newest)
            paths << QString::fromStdWString(path);
        QSettings().setValue(RecentKey, paths);
        Recent->Update();
    };
    settings.LoadValue = [](const Routine& routine, const RoutineParameter& parameter) {
        bool         known = false;
        const double value = QSettings().value(ValueKey(routine, parameter)).toDouble(&known);
        return known ? std::optional(value) : std::nullopt;
    };
    settings.SaveValue = [](const Routine& routine, const RoutineParameter& parameter, double value) {
        QSettings().setValue(ValueKey(routine, parameter), value);
    };
    return settings;
}

void MainWindow::BuildBars()
{
    Commands->FillMenuBar(menuBar());
    Recent = new RecentFilesMenu(Commands->SubmenuOf(Command::RecentFiles), Session, this);

    const auto add = [this](const QString& title, const char* name, Qt::ToolBarArea area) {
        auto* const bar = new QToolBar(title, this);
        bar->setObjectName(QLatin1String(name));
        bar->setIconSize(QSize(24, 24));
        addToolBar(area, bar);
        return bar;
    };
    Commands->FillToolBar(add(tr("File, view and process"), "TopBar", Qt::TopToolBarArea),
                          {Menu::File, Menu::View, Menu::Process});
    Commands->FillToolBar(add(tr("Draw and measure"), "DrawBar", Qt::LeftToolBarArea),
                          {Menu::Draw, Menu::Measure});
}

void MainWindow::ConnectCanvas(int number)
{
    const CanvasTile&   tile = Canvases->Tile(number);
    VostelWidget* const canvas = tile.Canvas();
    const auto          isCurrent = [this, number] { return Session.Current() == number; };
    connect(&tile, &CanvasTile::areaChanged, this, [this, number] { Session.OnAreaChanged(number); });
    connect(canvas, &VostelWidget::activated, this, [this, number] { Session.SelectCanvas(number); });
    connect(canvas, &VostelWidget::viewDragged, this, [this, number] { Session.OnViewDragged(number); });
    connect(canvas, &VostelWidget::cursorMoved, Status, [this, number](QPointF image, float value) {
        Status->ShowCursor(image, GrayOr(value, number, image.x(), image.y()));
    });
    connect(canvas, &VostelWidget::cursorLeft, Status, &StatusLine::ShowNoCursor);
    connect(canvas, &VostelWidget::viewChanged, this, [this, isCurrent](double zoom) {
        if (isCurrent())
            Status->ShowZoom(zoom);
    });
    connect(canvas, &VostelWidget::imageChanged, this, [this, isCurrent] {
        if (isCurrent())
            ShowState();
    });
}

void MainWindow::RestoreWindow()
{
    const QSettings settings;
    Session.SetTiled(settings.value(TiledKey, false).toBool());
    if (!restoreGeometry(settings.value(WindowKey).toByteArray()))
        resize(1240, 820);
    restoreState(settings.value(BarsKey).toByteArray(), BarsVersion);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    QSettings settings;
    settings.setValue(WindowKey, saveGeometry());
    settings.setValue(BarsKey, saveState(BarsVersion));
    settings.setValue(TiledKey, Session.IsTiled());
    Session.CancelRoutine();    // its end is waited for when the window is gone from the screen
    if (Help)
        Help->close();
    event->accept();
}

void MainWindow::OpenFiles(const QStringList& paths)
{
    std::vector<std::wstring> names;
    for (const QString& path : paths)
        names.push_back(QDir::toNativeSeparators(path).toStdWString());
    Session.OpenFiles(names);
}

void MainWindow::Carry(Command id)
{
    const DialogScope scope(this, Canvases->Canvas().imageSize(), Canvases->Current().File());
    Session.Carry(id);
    Canvases->Canvas().setFocus();
}

std::vector<std::wstring> MainWindow::AskFiles()
{
    QSettings         settings;
    const QStringList chosen = QFileDialog::getOpenFileNames(
        this, tr("Open"), settings.value(FolderKey, QDir::homePath()).toString(), OpenFilters());
    std::vector<std::wstring> paths;
    for (const QString& path : chosen)
        paths.push_back(QDir::toNativeSeparators(path).toStdWString());
    if (!chosen.isEmpty())
        settings.setValue(FolderKey, QFileInfo(chosen.front()).absolutePath());
    return paths;
}

bool MainWindow::AskTextLines(std::wstring& lines)
{
    bool          accepted = false;
    const QString text =
        QInputDialog::getMultiLineText(this, tr("Text lines"), tr("Lines of the box:"), QString(), &accepted);
    lines = text.toStdWString();
    return accepted;
}

bool MainWindow::AskRoutine(RoutineQuestion& question)
{
    RoutineDialog dialog(question, this);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    question.Values = dialog.Values();
    question.Second = dialog.SecondCanvas();
    return true;
}

bool MainWindow::ReadFile(int canvas, const std::wstring& path, const std::function<void()>& read)
{
    DialogScope scope(this, Canvases->Tile(canvas).Canvas()->imageSize(), QString::fromStdWString(path));
    if (!AskRawLayoutBefore(scope))
        return false;
    read();
    return true;
}

void MainWindow::ShowHelp()
{
    if (!Help) {
        Help = new GesturePage(this);
        Help->setAttribute(Qt::WA_DeleteOnClose);
    }
    Help->show();
    Help->raise();
    Help->activateWindow();
}

void MainWindow::ShowAbout()
{
    QMessageBox::about(this, tr("About"),
                       tr("<h3>Vostel Viewer %1</h3><p>Shows pictures and raw data on five canvases, with "
                          "regions, measures and image routines.</p><p>Qt %2</p>")
                           .arg(QStringLiteral(VOSTEL_VERSION), QString::fromLatin1(qVersion())));
}

void MainWindow::ShowState()
{
    for (int number = 0; number < CanvasCount; ++number) {
        Canvases->Tile(number).SetFile(QString::fromStdWString(Session.FileOf(number)));
        Canvases->Tile(number).Canvas()->setKeys(KeysOf(Session));
    }
    const CanvasTile&   tile = Canvases->Current();
    const VostelWidget& canvas = *tile.Canvas();
    Commands->Update(Session);
    Status->ShowZoom(canvas.zoom());
    Status->ShowSize(canvas.imageSize());
    Status->ShowFile(tile.File(), canvas.canvas());
    setWindowTitle(tile.File().isEmpty()
                       ? QApplication::applicationDisplayName()
                       : QStringLiteral("%1 - %2").arg(QFileInfo(tile.File()).fileName(),
                                                       QApplication::applicationDisplayName()));
}

void MainWindow::Report(const QString& text)
{
    QMessageBox box(QMessageBox::Warning, QApplication::applicationDisplayName(), text, QMessageBox::Ok,
                    this);
    box.setTextFormat(Qt::PlainText);    // names of files are no markup
    box.exec();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) {
            event->acceptProposedAction();
            return;
        }
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
    Session.SelectCanvas(Canvases->NumberAt(Canvases->mapFrom(this, event->position().toPoint())));
    // The program that the files come from waits for the end of the drop; a dialog would hold it up.
    QMetaObject::invokeMethod(
        this, [this, paths] { OpenFiles(paths); }, Qt::QueuedConnection);
}

}
