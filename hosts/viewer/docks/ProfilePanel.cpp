#include "docks/ProfilePanel.h"

#include "docks/FlowLayout.h"
#include "docks/KindNames.h"
#include "docks/MeasureColumns.h"
#include "documents/FileWriting.h"
#include "documents/RawVolume.h"
#include "plots/CurvePlot.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace vostel::viewer {

namespace {

bool IsLine(VostelKind kind)
{
    return kind == VOSTEL_LENGTH || kind == VOSTEL_PROFILE || kind == VOSTEL_POLYLINE || kind == VOSTEL_ARROW;
}

}

ProfilePanel::ProfilePanel(QWidget* parent)
    : CanvasPanel(parent), Plot(new CurvePlot), Source(new QLabel), Pointed(new QLabel), Width(new QSpinBox),
      Channel(new QComboBox), SaveButton(new QToolButton)
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(4, 4, 4, 4);
    rows->addWidget(Source);
    rows->addWidget(Plot, 1);
    auto* const controls = new QWidget;
    auto* const flow = new FlowLayout(controls);
    rows->addWidget(controls);
    Source->setObjectName(QStringLiteral("profileSource"));
    Source->setWordWrap(true);
    Plot->setObjectName(QStringLiteral("profile"));
    Plot->setAccessibleName(tr("Values along the selected line"));
    Pointed->setObjectName(QStringLiteral("profilePointed"));
    // Of one width, so that nothing moves under the pointer while it reads the curve.
    Pointed->setMinimumWidth(Pointed->fontMetrics().horizontalAdvance(
        QStringLiteral("0000.00 mm: value 00000.0 at x 0000.0, y 0000.0")));
    Width->setObjectName(QStringLiteral("profileWidth"));
    Width->setAccessibleName(tr("Width of the line over which values are averaged"));
    Width->setToolTip(Width->accessibleName());
    Width->setRange(1, 999);
    Width->setPrefix(tr("Width "));
    Width->setSuffix(tr(" px"));
    Channel->setObjectName(QStringLiteral("profileChannel"));
    Channel->setAccessibleName(tr("Channel of the profile"));
    Channel->addItems({tr("Luma"), tr("Red"), tr("Green"), tr("Blue")});
    SaveButton->setObjectName(QStringLiteral("saveProfile"));
    SaveButton->setText(tr("Save..."));
    SaveButton->setAccessibleName(tr("Save the profile as CSV or SVG"));
    SaveButton->setToolTip(SaveButton->accessibleName());
    flow->addWidget(Width);
    flow->addWidget(Channel);
    flow->addWidget(SaveButton);
    flow->addWidget(Pointed);
    connect(Width, &QSpinBox::valueChanged, this, &ProfilePanel::Later);
    connect(Channel, &QComboBox::currentIndexChanged, this, &ProfilePanel::Later);
    connect(Plot, &CurvePlot::pointed, this, &ProfilePanel::ShowPointed);
    connect(SaveButton, &QToolButton::clicked, this, &ProfilePanel::AskToSave);
    Refresh();
}

void ProfilePanel::Attach(CanvasModel* canvas)
{
    if (!canvas)
        return;
    const auto changed = [this](quint64 object) {
        if (object == Drawn)
            Later();
    };
    connect(canvas, &CanvasModel::objectChanging, this, changed);
    connect(canvas, &CanvasModel::objectChanged, this, changed);
    connect(canvas, &CanvasModel::objectRemoved, this, changed);
    connect(canvas, &CanvasModel::selectionChanged, this, &ProfilePanel::Later);
    connect(canvas, &CanvasModel::imageChanged, this, &ProfilePanel::Later);
    connect(canvas, &CanvasModel::historyChanged, this, &ProfilePanel::Later);    // the scale is part of it
}

std::optional<Object> ProfilePanel::Line() const
{
    const std::optional<Object> selected = Shown() ? Shown()->SelectedObject() : std::nullopt;
    return selected && IsLine(selected->kind()) ? selected : std::nullopt;
}

void ProfilePanel::Refresh()
{
    const std::optional<Object> line = Line();
    Drawn = line ? line->id() : 0;
    std::vector<double> values;
    QString             text = !Shown() ? tr("No canvas") : tr("Select a line, a profile or a length.");
    bool                colored = false;
    if (line) {
        try {
            const VostelPixel type = Shown()->Open().image_plane().type;
            const auto [units, name] = Shown()->Open().scale();
            const std::vector<Point> points = line->points();
            colored = IsColor(type);
            const Profile profile = line->profile(Width->value(), colored ? Channel->currentIndex() : 0);
            From = points.front();
            To = points.back();
            Spacing = (profile.spacing > 0.0 ? profile.spacing : 1.0) * units;
            Unit = QString::fromStdString(name);
            values = profile.values;
            text = tr("%1 %2: minimum %3, maximum %4, mean %5")
                       .arg(KindName(line->kind(), line->flags()), NameOrNumber(line->name(), line->id()),
                            ShownNumber(profile.min), ShownNumber(profile.max), ShownNumber(profile.mean));
            if (line->kind() == VOSTEL_POLYLINE && points.size() > 2)
                text += tr(" (straight from the first to the last point)");
        } catch (const Error&) {
            text = tr("There is no image under the line.");
        }
    }
    Source->setText(text);
    SaveButton->setEnabled(!values.empty());
    Width->setEnabled(!values.empty());
    Channel->setVisible(colored);
    Plot->SetCurve(std::move(values), Spacing, Unit);
    ShowPointed(std::nullopt);
}

void ProfilePanel::ShowPointed(std::optional<std::size_t> sample)
{
    const std::vector<double>& values = Plot->Values();
    if (!sample || *sample >= values.size()) {
        Pointed->setText(QStringLiteral(" "));
        Q_EMIT pointed(std::nullopt);
        return;
    }
    const double part =
        values.size() > 1 ? static_cast<double>(*sample) / static_cast<double>(values.size() - 1) : 0.0;
    const QPointF place(From.x + part * (To.x - From.x), From.y + part * (To.y - From.y));
    Pointed->setText(tr("%1 %2: value %3 at x %4, y %5")
                         .arg(ShownNumber(Spacing * static_cast<double>(*sample)), Unit,
                              ShownNumber(values[*sample]), ShownNumber(place.x()), ShownNumber(place.y())));
    Q_EMIT pointed(place);
}

void ProfilePanel::AskToSave()
{
    auto* const dialog = new QFileDialog(this, tr("Save profile"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({tr("Table, CSV (*.csv)"), tr("Drawing, SVG (*.svg)")});
    dialog->selectFile(tr("profile") + QStringLiteral(".csv"));
    connect(dialog, &QFileDialog::fileSelected, this, [this, dialog](const QString& path) {
        const bool drawing = dialog->selectedNameFilter().contains(QLatin1String("*.svg"));
        Save(QFileInfo(path).suffix().isEmpty()
                 ? path + (drawing ? QStringLiteral(".svg") : QStringLiteral(".csv"))
                 : path);
    });
    dialog->open();
}

void ProfilePanel::Save(const QString& path)
{
    const bool    drawing = path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive);
    const QString title = Source->text();
    const Outcome saved = WriteFile(path, [&](QIODevice& file) {
        return drawing ? Plot->WriteSvg(file, QSize(720, 420), title) : WriteTable(file);
    });
    Q_EMIT reported(saved);
}

// Columns as in the tables of measures: their titles, CR LF, all digits.
bool ProfilePanel::WriteTable(QIODevice& file) const
{
    const std::vector<double>& values = Plot->Values();
    QByteArray text = QStringLiteral("length (%1),x (px),y (px),value\r\n").arg(Unit).toUtf8();
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double part =
            values.size() > 1 ? static_cast<double>(i) / static_cast<double>(values.size() - 1) : 0.0;
        const QStringList cells = {ExactNumber(Spacing * static_cast<double>(i)),
                                   ExactNumber(From.x + part * (To.x - From.x)),
                                   ExactNumber(From.y + part * (To.y - From.y)),
                                   std::isfinite(values[i]) ? ExactNumber(values[i]) : QString()};
        text += cells.join(QLatin1Char(',')).toUtf8() + "\r\n";
    }
    return file.write(text) == text.size();
}

}
