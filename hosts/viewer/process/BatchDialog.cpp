#include "process/BatchDialog.h"

#include "documents/FileWriting.h"
#include "documents/Mnemonics.h"
#include "process/RoutineDialog.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QThreadPool>
#include <QToolButton>
#include <QVBoxLayout>

namespace vostel::viewer {

struct BatchDialog::Shared {
    RunState         State;
    std::atomic<int> Through = 0;    // pictures
    int              All = 0;
};

namespace {

constexpr int IndexRole = Qt::UserRole;    // in the table of all routines
constexpr int ValuesRole = Qt::UserRole + 1;

// "Smooth (Gaussian): Sigma (px) 1.5".
QString TextOf(const Routine& routine, const std::vector<double>& values)
{
    QStringList parts;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Parameter& parameter = routine.Parameters[i];
        parts << RoutineText(parameter.Name) + QLatin1Char(' ') +
                     (parameter.Choices.empty()
                          ? QLocale::c().toString(values[i], 'g', 7)
                          : RoutineText(parameter.Choices[static_cast<std::size_t>(values[i])]));
    }
    const QString title = TitleOf(RoutineText(routine.Title));
    return parts.isEmpty() ? title : title + QStringLiteral(": ") + parts.join(QStringLiteral(", "));
}

QByteArray FormatOf(const QString& path)
{
    const QByteArray ending = QFileInfo(path).suffix().toLower().toLatin1();
    return ending == "tsv" || ending == "json" ? ending : QByteArrayLiteral("csv");
}

}

BatchDialog::BatchDialog(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("Batch"));
    setWindowTitle(tr("Batch over a folder"));
    const auto folder = [this](const QString& now) {
        return QFileDialog::getExistingDirectory(this, windowTitle(), now);
    };
    auto* const form = new QFormLayout;
    form->addRow(tr("Folder of pictures:"),
                 MakePath(Source, "BatchSource", tr("Folder of pictures"), folder));
    Pattern = new QLineEdit(QStringLiteral("*"));
    Pattern->setObjectName(QStringLiteral("BatchPattern"));
    Pattern->setToolTip(tr("Which names, such as *.png;*.tif"));
    form->addRow(tr("Names:"), Pattern);
    form->addRow(tr("Routines:"), MakeChain());
    form->addRow(tr("Folder of results:"), MakePath(Target, "BatchTarget", tr("Folder of results"), folder));
    Target->setPlaceholderText(tr("None: results are measured only"));
    form->addRow(tr("Measure objects of:"),
                 MakePath(Session, "BatchSession", tr("Measure objects of"), [this](const QString& now) {
                     return QFileDialog::getOpenFileName(this, windowTitle(), now,
                                                         tr("Sessions (*.vostel.json)"));
                 }));
    Session->setPlaceholderText(tr("A session; none: nothing is measured"));
    form->addRow(tr("Table of measures:"),
                 MakePath(Table, "BatchTable", tr("Table of measures"), [this](const QString& now) {
                     return QFileDialog::getSaveFileName(
                         this, windowTitle(), now, QStringLiteral("CSV (*.csv);;TSV (*.tsv);;JSON (*.json)"),
                         nullptr, QFileDialog::DontConfirmOverwrite);
                 }));
    auto* const rule = new QLabel(
        tr("Results are gray. No file is written over: where a name is taken, a number is added."));
    rule->setWordWrap(true);
    form->addRow(rule);
    Bar = new QProgressBar;
    Told = new QLabel;
    Told->setObjectName(QStringLiteral("BatchTold"));
    Told->setWordWrap(true);
    Told->setTextFormat(Qt::PlainText);
    Failures = new QListWidget;
    Failures->setObjectName(QStringLiteral("BatchFailures"));
    Failures->setAccessibleName(tr("What failed"));
    Failures->setWordWrap(true);
    Failures->hide();
    StartButton = new QPushButton(tr("&Start"));
    PauseButton = new QPushButton(tr("&Pause"));
    PauseButton->setCheckable(true);
    StopButton = new QPushButton(tr("S&top"));
    auto* const close = new QPushButton(tr("&Close"));
    StartButton->setObjectName(QStringLiteral("BatchStart"));
    StartButton->setDefault(true);
    PauseButton->setObjectName(QStringLiteral("BatchPause"));
    StopButton->setObjectName(QStringLiteral("BatchStop"));
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* const button : {StartButton, PauseButton, StopButton, close})
        buttons->addWidget(button);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(Bar);
    column->addWidget(Told);
    column->addWidget(Failures);
    column->addLayout(buttons);
    resize(560, sizeHint().height());
    connect(StartButton, &QPushButton::clicked, this, &BatchDialog::Start);
    connect(PauseButton, &QPushButton::toggled, this, [this](bool paused) {
        if (Run)
            Run->State.Pause(paused);
        ShowProgress();
    });
    connect(StopButton, &QPushButton::clicked, this, &BatchDialog::reject);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    constexpr int Period = 50;    // ms
    Often.setInterval(Period);
    connect(&Often, &QTimer::timeout, this, &BatchDialog::ShowProgress);
    ShowState();
}

BatchDialog::~BatchDialog()
{
    if (Run)
        Run->State.Stop();
}

QWidget* BatchDialog::MakePath(QLineEdit*& field, const char* name, const QString& title,
                               const std::function<QString(const QString& now)>& browse)
{
    field = new QLineEdit;
    field->setObjectName(QLatin1String(name));
    field->setAccessibleName(title);
    auto* const button = new QToolButton;
    button->setText(QStringLiteral("..."));
    button->setAccessibleName(tr("Choose: %1").arg(title));
    connect(button, &QToolButton::clicked, this, [field, browse] {
        const QString chosen = browse(field->text());
        if (!chosen.isEmpty())
            field->setText(QDir::toNativeSeparators(chosen));
    });
    auto* const both = new QWidget;
    auto* const row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(field, 1);
    row->addWidget(button);
    return both;
}

QWidget* BatchDialog::MakeChain()
{
    Chain = new QListWidget;
    Chain->setObjectName(QStringLiteral("BatchChain"));
    Chain->setAccessibleName(tr("Routines in their order"));
    Chain->setToolTip(tr("One after the other; a drag changes the order"));
    Chain->setDragDropMode(QAbstractItemView::InternalMove);
    Chain->setMaximumHeight(110);
    Chain->setWordWrap(true);
    Chain->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Chain->setResizeMode(QListView::Adjust);
    auto* const menu = new QMenu(this);
    for (const Routine& routine : AllRoutines())
        menu->addAction(RoutineText(routine.Title), this, [this, &routine] { AskStep(routine); });
    auto* const add = new QPushButton(tr("&Add"));
    add->setMenu(menu);
    auto* const remove = new QPushButton(tr("&Remove"));
    connect(remove, &QPushButton::clicked, this, [this] { delete Chain->takeItem(Chain->currentRow()); });
    auto* const both = new QWidget;
    auto* const grid = new QGridLayout(both);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(Chain, 0, 0, 3, 1);
    grid->addWidget(add, 0, 1);
    grid->addWidget(remove, 1, 1);
    return both;
}

void BatchDialog::AskStep(const Routine& routine)
{
    if (routine.Parameters.empty())
        return AddStep(routine, {});
    RoutineDialog dialog(routine, {}, this);
    if (dialog.exec() == QDialog::Accepted)
        AddStep(routine, dialog.Values());
}

void BatchDialog::AddStep(const Routine& routine, const std::vector<double>& values)
{
    auto* const item = new QListWidgetItem(TextOf(routine, values), Chain);
    item->setData(IndexRole, static_cast<int>(&routine - AllRoutines().data()));
    item->setData(ValuesRole, QVariantList(values.begin(), values.end()));
}

BatchPlan BatchDialog::Plan() const
{
    BatchPlan plan;
    if (QFileInfo(Source->text()).isDir())
        plan.Pictures = BatchPictures(Source->text(), Pattern->text());
    for (int i = 0; i < Chain->count(); ++i) {
        const QListWidgetItem& item = *Chain->item(i);
        ChainStep step{&AllRoutines()[static_cast<std::size_t>(item.data(IndexRole).toInt())], {}};
        for (const QVariant& value : item.data(ValuesRole).toList())
            step.Values.push_back(value.toDouble());
        plan.Chain.push_back(std::move(step));
    }
    plan.Folder = Target->text();
    plan.Session = Session->text();
    plan.Format = FormatOf(Table->text());
    return plan;
}

QString BatchDialog::WhyNot(const BatchPlan& plan) const
{
    if (plan.Pictures.isEmpty())
        return tr("The folder holds no pictures of such names.");
    if (!plan.Folder.isEmpty() && !QFileInfo(plan.Folder).isDir())
        return tr("The folder of results is missing.");
    if (!plan.Folder.isEmpty() && plan.Chain.empty())
        return tr("No routine is chosen that makes results.");
    if (plan.Folder.isEmpty() && plan.Session.isEmpty())
        return tr("Neither a folder of results nor a session to measure is chosen.");
    if (!plan.Session.isEmpty() && !QFileInfo(plan.Session).isFile())
        return tr("The session is missing.");
    if (plan.Session.isEmpty() != Table->text().isEmpty())
        return tr("Measures want both a session and a table.");
    return {};
}

void BatchDialog::Start()
{
    const BatchPlan plan = Plan();
    const QString   why = WhyNot(plan);
    Failures->clear();
    Failures->hide();
    if (!why.isEmpty() || Run)
        return Told->setText(why);
    TablePath = Table->text();
    Run = std::make_shared<Shared>();
    Run->All = static_cast<int>(plan.Pictures.size());
    Bar->setRange(0, 1000 * Run->All);
    Often.start();
    ShowState();
    ShowProgress();
    const QPointer<BatchDialog> self = this;
    QThreadPool::globalInstance()->start([self, plan, shared = Run] {
        const auto result = std::make_shared<BatchResult>(
            RunBatch(plan, shared->State, [&](int through) { shared->Through = through; }));
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [self, result] {
                if (self)
                    self->ShowEnd(*result);
            },
            Qt::QueuedConnection);
    });
}

void BatchDialog::ShowProgress()
{
    if (!Run)
        return;
    const int through = Run->Through;
    Bar->setValue(1000 * through + Run->State.Permille);
    const QString at = tr("Picture %1 of %2").arg(through + 1).arg(Run->All);
    Told->setText(Run->State.StopWanted      ? tr("Stopping ...")
                  : PauseButton->isChecked() ? tr("%1, paused").arg(at)
                                             : at);
}

void BatchDialog::ShowEnd(BatchResult& result)
{
    const int all = Run->All;
    Run.reset();
    Often.stop();
    Bar->setValue(result.IsStopped ? Bar->value() : Bar->maximum());
    QStringList told{tr("%1 of %2 pictures done").arg(result.Done).arg(all)};
    if (result.IsStopped)
        told.prepend(tr("Stopped"));
    if (!result.Table.isEmpty()) {
        const Outcome saved = WriteFile(FreePath(TablePath), [&](QIODevice& file) {
            return file.write(result.Table) == result.Table.size();
        });
        if (saved.IsDone())
            told << saved.Text;
        else
            result.Failures << saved.Text;
    }
    if (!result.Failures.isEmpty())
        told << tr("failures: %1").arg(result.Failures.size());
    Told->setText(told.join(QStringLiteral("; ")));
    Failures->addItems(result.Failures);
    Failures->setVisible(!result.Failures.isEmpty());
    ShowState();
}

void BatchDialog::ShowState()
{
    StartButton->setEnabled(!Run);
    PauseButton->setEnabled(Run != nullptr);
    StopButton->setEnabled(Run != nullptr);
    if (!Run)
        PauseButton->setChecked(false);
}

void BatchDialog::reject()
{
    if (!Run)
        return QDialog::reject();
    Run->State.Stop();
    ShowProgress();
}

}
