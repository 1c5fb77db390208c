#include "MainWindow.h"

#include "CanvasArea.h"
#include "CommandActions.h"
#include "GesturePage.h"
#include "NameFilters.h"
#include "QtText.h"
#include "RecentFiles.h"
#include "RoutineDialog.h"
#include "RoutineRunner.h"
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

#include <new>

using namespace vostel::widget;

namespace {

const QString WindowKey = QStringLiteral("Window/Geometry");
const QString BarsKey = QStringLiteral("Window/Bars");
const QString TiledKey = QStringLiteral("Window/Tiled");
const QString FolderKey = QStringLiteral("OpenFolder");

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
    : Canvases(new CanvasArea(this)), Commands(new CommandActions(this)), Status(new StatusLine(statusBar())),
      Runner(new RoutineRunner(this))
{
    setCentralWidget(Canvases);
    setAcceptDrops(true);
    BuildBars();
    for (int number = 0; number < CanvasArea::Count; ++number)
        ConnectCanvas(number);
    connect(Canvases, &CanvasArea::currentChanged, this, &MainWindow::ShowState);
    connect(Commands, &CommandActions::wanted, this, &MainWindow::Carry);
    connect(Runner, &RoutineRunner::progressed, this, [this](int done, int total) {
        SetRoutineProgress(RoutineCanvas, done, total);
        Canvases->Tile(RoutineCanvas).Canvas()->refresh();
        statusBar()->showMessage(tr("%1: step %2 of %3").arg(RoutineTitle).arg(done).arg(total));
    });
    connect(Runner, &RoutineRunner::finished, this, &MainWindow::FinishRoutine);
    RestoreWindow();
    ShowState();
    Canvases->Canvas().setFocus();
}

MainWindow::~MainWindow() = default;

void MainWindow::BuildBars()
{
    Commands->FillMenuBar(menuBar());
    Recent = new RecentFiles(Commands->SubmenuOf(Command::RecentFiles), this);
    connect(Recent, &RecentFiles::chosen, this, [this](const QString& path) { OpenFiles({path}); });

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
    VostelWidget* const canvas = Canvases->Tile(number).Canvas();
    const auto          isCurrent = [this, number] { return Canvases->CurrentNumber() == number; };
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
    Canvases->SetTiled(settings.value(TiledKey, false).toBool());
    if (!restoreGeometry(settings.value(WindowKey).toByteArray()))
        resize(1240, 820);
    restoreState(settings.value(BarsKey).toByteArray(), BarsVersion);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    QSettings settings;
    settings.setValue(WindowKey, saveGeometry());
    settings.setValue(BarsKey, saveState(BarsVersion));
    settings.setValue(TiledKey, Canvases->IsTiled());
    Runner->Cancel();    // its end is waited for when the window is gone from the screen
    if (Help)
        Help->close();
    event->accept();
}

bool MainWindow::RoutineRuns() const
{
    return Runner->IsRunning();
}

void MainWindow::Carry(Command id)
{
    statusBar()->clearMessage();    // what was said of the command before
    try {
        CarryHere(id);
    } catch (const std::bad_alloc&) {
        Report(tr("There is not enough memory for this."));
    }
    Canvases->Canvas().refresh();
    ShowState();
}

void MainWindow::CarryHere(Command id)
{
    const int canvas = Canvases->CurrentNumber();
    switch (id) {
    case Command::Open:
        AskForFiles();
        return;
    case Command::Quit:
        close();
        return;
    case Command::OneCanvas:
    case Command::TileCanvases:
        Canvases->SetTiled(id == Command::TileCanvases);
        return;
    case Command::Canvas1:
    case Command::Canvas2:
    case Command::Canvas3:
    case Command::Canvas4:
    case Command::Canvas5:
        Canvases->SetCurrent(static_cast<int>(id) - static_cast<int>(Command::Canvas1));
        return;
    case Command::DrawTextLines:
        AskForTextLines();
        return;
    case Command::CancelRoutine:
        Runner->Cancel();
        return;
    case Command::HelpGestures:
        ShowHelp();
        return;
    case Command::About:
        ShowAbout();
        return;
    case Command::FitImage:
        Canvases->Current().FitFromNowOn(true);
        break;
    default:
        break;
    }
    if (const Routine* const routine = FindRoutine(id)) {
        StartRoutine(*routine);
        return;
    }
    const DialogScope scope(this, Canvases->Canvas().imageSize(), Canvases->Current().File());
    RunCommand(id, canvas);
    Canvases->Canvas().setFocus();
    // How the new object is drawn stays to be read while it is.
    const CommandEntry* const entry = FindCommand(id);
    if (entry && (entry->In == Menu::Draw || entry->In == Menu::Measure))
        statusBar()->showMessage(CommandText(entry->Hint));
}

void MainWindow::AskForFiles()
{
    QSettings         settings;
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, tr("Open"), settings.value(FolderKey, QDir::homePath()).toString(), OpenFilters());
    if (paths.isEmpty())
        return;
    settings.setValue(FolderKey, QFileInfo(paths.front()).absolutePath());
    OpenFiles(paths);
}

void MainWindow::OpenFiles(const QStringList& paths)
{
    const int   first = Canvases->CurrentNumber();
    QStringList problems;
    if (paths.size() > 1)
        Canvases->SetTiled(true);    // before, so that each canvas has its size when its image comes
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const qsizetype number = first + i;
        QString         problem;
        if (number < CanvasArea::Count)
            problem = OpenOn(static_cast<int>(number), QFileInfo(paths[i]).absoluteFilePath());
        else
            problem = tr("There are no more than five canvases.");
        if (!problem.isEmpty())
            problems << QStringLiteral("%1\n%2").arg(QDir::toNativeSeparators(paths[i]), problem);
    }
    ShowState();
    if (!problems.isEmpty())
        Report(problems.join(QStringLiteral("\n\n")));
}

QString MainWindow::OpenOn(int number, const QString& path)
{
    CanvasTile&   tile = Canvases->Tile(number);
    VostelWidget& canvas = *tile.Canvas();
    const char*   problem = nullptr;
    if (Runner->IsRunning() && number == RoutineCanvas)
        return tr("A routine works on this canvas. Press Esc to stop it first.");
    try {
        DialogScope scope(this, canvas.imageSize(), path);
        if (!AskRawLayoutBefore(scope))
            return QString();
        problem = OpenFile(number, FromQt(path));
    } catch (const std::bad_alloc&) {
        problem = QT_TR_NOOP("There is not enough memory for this image.");
    }
    const bool shown = !problem && canvas.hasImage();
    if (shown)
        tile.FitFromNowOn(canvas.zoom() < 0.99);    // it was zoomed out to fit
    if (shown || !canvas.hasImage())
        tile.SetFile(shown ? path : QString());
    canvas.refresh();
    if (shown)
        Recent->Add(path);
    else if (problem)
        Recent->Remove(path);
    if (!problem)
        return QString();
    const QString text = CommandText(problem);
    return text == QLatin1String(problem) ? tr(problem) : text;
}

void MainWindow::AskForTextLines()
{
    bool          accepted = false;
    const QString text =
        QInputDialog::getMultiLineText(this, tr("Text lines"), tr("Lines of the box:"), QString(), &accepted);
    if (accepted)
        AddTextLines(Canvases->CurrentNumber(), FromQt(text));
    Canvases->Canvas().setFocus();
}

void MainWindow::StartRoutine(const Routine& routine)
{
    if (Runner->IsRunning())
        return;
    const int           canvas = Canvases->CurrentNumber();
    std::vector<double> values;
    int                 second = -1;
    if (RoutineDialog::Asks(routine)) {
        QStringList names;
        for (int number = 0; number < CanvasArea::Count; ++number) {
            const CanvasTile& tile = Canvases->Tile(number);
            names << (tile.Canvas()->hasImage()
                          ? tr("Canvas %1  %2").arg(number + 1).arg(QFileInfo(tile.File()).fileName())
                          : QString());
        }
        RoutineDialog dialog(routine, Canvases->Canvas().imageSize(), names, canvas, this);
        if (dialog.exec() != QDialog::Accepted)
            return;
        dialog.Remember();
        values = dialog.Values();
        second = dialog.SecondCanvas();
    }
    RoutineCanvas = canvas;
    RoutineTitle = CommandText(routine.Title);
    ShowRoutineProgress(canvas, true);
    statusBar()->showMessage(tr("%1 …").arg(RoutineTitle));
    Runner->Start(routine, TakeInputs(routine, canvas, second), std::move(values));
}

void MainWindow::FinishRoutine(const RoutineResult& result)
{
    CanvasTile& tile = Canvases->Tile(RoutineCanvas);
    ShowRoutineProgress(RoutineCanvas, false);
    QString problem = result.Problem ? CommandText(result.Problem) : QString();
    if (result.Result) {
        try {
            const bool  before = tile.Canvas()->hasImage();
            const QSize size = tile.Canvas()->imageSize();
            ShowResult(RoutineCanvas, result.Result);
            if (!before || size != tile.Canvas()->imageSize()) {
                RunCommand(Command::FitImage, RoutineCanvas);
                tile.FitFromNowOn(true);
            }
        } catch (const std::bad_alloc&) {
            problem = tr("There is not enough memory for this image.");
        }
    }
    tile.Canvas()->refresh();
    statusBar()->showMessage(result.Cancelled ? tr("%1: cancelled").arg(RoutineTitle)
                             : result.Result  ? tr("%1: done").arg(RoutineTitle)
                                              : QString());
    ShowState();
    if (!problem.isEmpty())
        Report(problem);
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
    const CanvasTile&   tile = Canvases->Current();
    const VostelWidget& canvas = *tile.Canvas();
    Commands->Update(canvas.canvas(), Canvases->IsTiled() ? Command::TileCanvases : Command::OneCanvas,
                     Runner->IsRunning());
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
    Canvases->SetCurrent(Canvases->NumberAt(Canvases->mapFrom(this, event->position().toPoint())));
    // The program that the files come from waits for the end of the drop; a dialog would hold it up.
    QMetaObject::invokeMethod(
        this, [this, paths] { OpenFiles(paths); }, Qt::QueuedConnection);
}
