#include "docks/MeasuresPanel.h"

#include "docks/FlowLayout.h"
#include "docks/SelectionLink.h"
#include "documents/FileWriting.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vostel::viewer {

namespace {

const QString ColumnsKey = QStringLiteral("measures/columns");

std::vector<int> RememberedColumns()
{
    const QStringList usual = {"name",  "kind", "label", "area", "length",
                               "angle", "mean", "sd",    "min",  "max"};
    std::vector<int>  columns;
    for (const QString& key : QSettings().value(ColumnsKey, usual).toStringList())
        if (const int column = MeasureColumnOf(key); column >= 0)
            columns.push_back(column);
    return columns.empty() ? std::vector<int>{ObjectName} : columns;
}

}

MeasuresPanel::MeasuresPanel(QWidget* parent)
    : CanvasPanel(parent), Table(new QTreeView), Link(nullptr), Statistics(new QLabel),
      ColumnMenu(new QMenu(this)), RowMenu(new QMenu(this))
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(4, 4, 4, 4);
    auto* const buttons = new QWidget;
    auto* const flow = new FlowLayout(buttons);
    rows->addWidget(buttons);
    rows->addWidget(Table, 1);
    rows->addWidget(Statistics);

    QToolButton* const columns =
        AddButton(flow, "measureColumns", tr("Columns"), tr("Choose which measures are shown"));
    QToolButton* const copy =
        AddButton(flow, "copyMeasures", tr("Copy"), tr("Copy all rows, for a spreadsheet"));
    QToolButton* const save =
        AddButton(flow, "saveMeasures", tr("Save..."), tr("Save the table as CSV or JSON"));
    connect(columns, &QToolButton::clicked, ColumnMenu,
            [this, columns] { ColumnMenu->popup(columns->mapToGlobal(QPoint(0, columns->height()))); });
    connect(copy, &QToolButton::clicked, this, &MeasuresPanel::CopyAll);
    connect(save, &QToolButton::clicked, this, &MeasuresPanel::AskToSave);

    Model.Choose(RememberedColumns());
    Table->setObjectName(QStringLiteral("measures"));
    Table->setAccessibleName(tr("Measures of the objects"));
    Table->setModel(&Model);
    Table->setRootIsDecorated(false);
    Table->setUniformRowHeights(true);
    Table->setAlternatingRowColors(true);
    Table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    Table->setContextMenuPolicy(Qt::CustomContextMenu);
    Table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    Table->header()->setSortIndicatorClearable(true);
    Table->header()->setSortIndicator(-1, Qt::AscendingOrder);
    Table->setSortingEnabled(true);
    Table->header()->setStretchLastSection(false);
    Table->header()->setContextMenuPolicy(Qt::CustomContextMenu);
    Table->installEventFilter(this);
    Link = new SelectionLink(*Table, Model);
    Statistics->setObjectName(QStringLiteral("measureStatistics"));
    Statistics->setAccessibleName(tr("Statistics of the current column"));
    Statistics->setWordWrap(true);
    Statistics->setTextInteractionFlags(Qt::TextSelectableByMouse);

    RowMenu->setObjectName(QStringLiteral("measureRows"));
    RowMenu->addAction(tr("Copy selected rows"), this, &MeasuresPanel::CopySelected);
    RowMenu->addAction(tr("Copy all rows"), this, &MeasuresPanel::CopyAll);
    RowMenu->addAction(tr("Save..."), this, &MeasuresPanel::AskToSave);
    connect(Table, &QTreeView::customContextMenuRequested, this,
            [this](QPoint at) { RowMenu->popup(Table->viewport()->mapToGlobal(at)); });
    connect(Table->header(), &QHeaderView::customContextMenuRequested, this,
            [this](QPoint at) { ColumnMenu->popup(Table->header()->mapToGlobal(at)); });
    connect(Table->selectionModel(), &QItemSelectionModel::currentColumnChanged, this,
            &MeasuresPanel::ShowStatistics);
    connect(Table->header(), &QHeaderView::sortIndicatorChanged, this, [this](int column) {
        if (column >= 0)
            Table->selectionModel()->setCurrentIndex(
                Model.index(std::max(0, Table->currentIndex().row()), column), QItemSelectionModel::NoUpdate);
        ShowStatistics();
    });
    MakeColumnMenu();
    SizeColumns();
    Refresh();
}

QToolButton* MeasuresPanel::AddButton(QLayout* row, const char* name, const QString& text, const QString& tip)
{
    auto* const button = new QToolButton;
    button->setObjectName(QString::fromLatin1(name));
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    row->addWidget(button);
    return button;
}

void MeasuresPanel::MakeColumnMenu()
{
    ColumnMenu->setObjectName(QStringLiteral("measureColumnMenu"));
    const std::vector<MeasureColumn>& all = MeasureColumns();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const int      column = static_cast<int>(i);
        QAction* const action = ColumnMenu->addAction(TitleOf(all[i], tr("unit")));
        action->setCheckable(true);
        action->setChecked(std::count(Model.Chosen().begin(), Model.Chosen().end(), column) != 0);
        connect(action, &QAction::triggered, this,
                [this, column](bool shown) { ChooseColumn(column, shown); });
    }
}

void MeasuresPanel::ChooseColumn(int column, bool shown)
{
    std::vector<int> columns = Model.Chosen();
    columns.erase(std::remove(columns.begin(), columns.end(), column), columns.end());
    if (shown)
        columns.insert(std::upper_bound(columns.begin(), columns.end(), column), column);
    if (columns.empty())
        columns = {ObjectName};
    QStringList keys;
    for (const int chosen : columns)
        keys << QString::fromLatin1(MeasureColumns()[static_cast<std::size_t>(chosen)].Key);
    QSettings().setValue(ColumnsKey, keys);
    Table->header()->setSortIndicator(-1, Qt::AscendingOrder);
    Model.Choose(columns);
    SizeColumns();
    Refresh();
}

// Fixed until the user changes them: widths that follow the numbers would jump while something is dragged.
void MeasuresPanel::SizeColumns()
{
    const QFontMetrics metrics = Table->fontMetrics();
    const int          margin = 4 * Table->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, Table) +
                       Table->style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, Table);
    for (int column = 0; column < Model.columnCount(); ++column) {
        const int     which = Model.Chosen()[static_cast<std::size_t>(column)];
        const QString widest = which == ObjectName || which == ObjectKind  ? QStringLiteral("MMMMMMMM")
                               : which < static_cast<int>(ObjectLabel) + 1 ? QStringLiteral("00000")
                                                                           : QStringLiteral("-00000.00");
        const QString title = Model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        Table->header()->resizeSection(
            column, std::max(metrics.horizontalAdvance(widest), metrics.horizontalAdvance(title)) + margin);
    }
}

void MeasuresPanel::Attach(CanvasModel* canvas)
{
    Unit.clear();
    Model.SetHolding(false);
    Model.SetCanvas(canvas);
    if (!canvas)
        return;
    const auto note = [this](quint64 object) {
        Model.SetHolding(false);
        Model.NoteChange(object);
        Later();
    };
    connect(canvas, &CanvasModel::objectAdded, this, note);
    connect(canvas, &CanvasModel::objectChanged, this, note);
    connect(canvas, &CanvasModel::objectRemoved, this, note);
    connect(canvas, &CanvasModel::objectChanging, this, [this](quint64 object) {
        Model.SetHolding(true);
        Model.NoteChange(object);
        Later();
    });
    connect(canvas, &CanvasModel::imageChanged, this, [this] {
        Model.NoteAll();
        Later();
    });
    connect(canvas, &CanvasModel::selectionChanged, this, &MeasuresPanel::Later);
    connect(canvas, &CanvasModel::historyChanged, this, &MeasuresPanel::Later);    // the scale is part of it
}

void MeasuresPanel::Refresh()
{
    constexpr int Slice = 3;    // ms of measuring at once
    if (Shown()) {
        const auto [units, name] = Shown()->Open().scale();
        const QString unit = QString::fromStdString(name);
        if (unit != Unit || units != UnitsPerPixel) {
            Unit = unit;
            UnitsPerPixel = units;
            Model.NoteAll();
            Model.SetUnit(unit);
        }
    }
    Model.Update();
    Complete = Model.MeasureFor(Slice);
    if (Complete)
        Model.Update();    // to the sorted order
    else
        Later();
    Link->Take();
    ShowStatistics();
}

void MeasuresPanel::ShowStatistics()
{
    const int current = Table->currentIndex().column();
    int       column = current;
    for (int i = 0; i < Model.columnCount() && column < 0; ++i)
        if (Model.Chosen()[static_cast<std::size_t>(i)] > ObjectLabel)
            column = i;
    const int rows = Model.rowCount();
    if (rows == 0 || column < 0 || column >= Model.columnCount()) {
        Statistics->setText(!Shown() ? tr("No canvas") : tr("No objects yet"));
        return;
    }
    const QString title = Model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    if (!Complete) {
        Statistics->setText(tr("%1: measuring...").arg(title));
        return;
    }
    std::vector<int> chosen = SelectedRows();
    const bool       some = chosen.size() > 1;
    if (!some) {
        chosen.resize(static_cast<std::size_t>(rows));
        std::iota(chosen.begin(), chosen.end(), 0);
    }
    std::vector<double> values;
    for (const int row : chosen)
        if (const std::optional<double> value = Model.Value(row, column))
            values.push_back(*value);
    if (values.empty()) {
        Statistics->setText(tr("%1: no values").arg(title));
        return;
    }
    const double count = static_cast<double>(values.size());
    const double sum = std::accumulate(values.begin(), values.end(), 0.0);
    const double mean = sum / count;
    double       squares = 0.0;
    for (const double value : values)
        squares += (value - mean) * (value - mean);
    const double deviation = values.size() > 1 ? std::sqrt(squares / (count - 1.0)) : 0.0;
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    Statistics->setText(tr("%1, %2: mean %3, deviation %4, minimum %5, maximum %6, sum %7, count %8")
                            .arg(title, some ? tr("selected rows") : tr("all rows"), ShownNumber(mean),
                                 ShownNumber(deviation), ShownNumber(*low), ShownNumber(*high),
                                 ShownNumber(sum), QString::number(values.size())));
}

std::vector<int> MeasuresPanel::SelectedRows() const
{
    std::vector<int> rows;
    for (const QItemSelectionRange& range : Table->selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void MeasuresPanel::CopySelected()
{
    const std::vector<int> rows = SelectedRows();
    if (rows.empty())
        CopyAll();
    else
        Copy(rows);
}

void MeasuresPanel::CopyAll()
{
    std::vector<int> rows(static_cast<std::size_t>(Model.rowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    Copy(rows);
}

void MeasuresPanel::Copy(const std::vector<int>& rows)
{
    QApplication::clipboard()->setText(Model.Table(rows, QLatin1Char('\t')));
    Q_EMIT reported(Done(rows.size() == 1 ? tr("Copied 1 row") : tr("Copied %1 rows").arg(rows.size())));
}

void MeasuresPanel::AskToSave()
{
    if (!Shown())
        return;
    const QString allCsv = tr("All measures, CSV (*.csv)"), allJson = tr("All measures, JSON (*.json)");
    const QString shownCsv = tr("The columns shown, CSV (*.csv)");
    auto* const   dialog = new QFileDialog(this, tr("Save measures"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({allCsv, allJson, shownCsv});
    dialog->selectFile(tr("measures") + QStringLiteral(".csv"));
    connect(dialog, &QFileDialog::fileSelected, this, [=, this](const QString& path) {
        const QString filter = dialog->selectedNameFilter();
        const bool    json = path.endsWith(QLatin1String(".json"), Qt::CaseInsensitive) ||
                          (filter == allJson && QFileInfo(path).suffix().isEmpty());
        const QString ending = QFileInfo(path).suffix().isEmpty()
                                   ? (json ? QStringLiteral(".json") : QStringLiteral(".csv"))
                                   : QString();
        Save(path + ending, json                 ? QStringLiteral("json")
                            : filter == shownCsv ? QString()
                                                 : QStringLiteral("csv"));
    });
    dialog->open();
}

// In a format of vostel_table, or the columns shown as CSV where there is none.
void MeasuresPanel::Save(const QString& path, const QString& format)
{
    if (!Shown())
        return;
    QByteArray text;
    const bool made = Shown()->Try([&](Canvas& canvas) {
        if (!format.isEmpty()) {
            text = QByteArray::fromStdString(canvas.table(format.toStdString()));
            return;
        }
        std::vector<int> rows(static_cast<std::size_t>(Model.rowCount()));
        std::iota(rows.begin(), rows.end(), 0);
        text = Model.Table(rows, QLatin1Char(',')).replace(QLatin1Char('\n'), QLatin1String("\r\n")).toUtf8();
    });
    if (!made)
        return;
    const Outcome saved = WriteFile(path, [&](QIODevice& file) { return file.write(text) == text.size(); });
    Q_EMIT reported(saved);
}

bool MeasuresPanel::eventFilter(QObject* watched, QEvent* event)
{
    const bool press = event->type() == QEvent::KeyPress;
    if ((press || event->type() == QEvent::ShortcutOverride) &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        if (press)
            CopySelected();
        event->accept();
        return true;
    }
    return CanvasPanel::eventFilter(watched, event);
}

}
