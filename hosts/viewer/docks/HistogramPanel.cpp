#include "docks/HistogramPanel.h"

#include "docks/ColourMenu.h"
#include "docks/FlowLayout.h"
#include "docks/KindNames.h"
#include "documents/RawVolume.h"
#include "plots/HistogramPlot.h"
#include "plots/MapColours.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vostel::viewer {

namespace {

bool IsByte(VostelPixel type)
{
    return type == VOSTEL_U8 || IsColor(type);
}

// Bytes are not looked at for their range, which large pictures take long for.
std::optional<ImageInfo> InfoOf(const Canvas& canvas)
{
    VostelPlane plane = {};
    plane.size = sizeof plane;
    if (vostel_image_plane(canvas.number(), &plane) != VOSTEL_OK)
        return std::nullopt;
    if (!IsByte(plane.type))
        return canvas.image_info();
    ImageInfo info = {};
    info.type = plane.type;
    info.width = plane.width;
    info.height = plane.height;
    info.max = 255.0;
    return info;
}

// Also of floats, as they come from whole numbers: some are looked at, all over the image.
bool HasWholeValues(const Canvas& canvas)
{
    constexpr int     Looks = 61;    // a side
    const VostelPlane plane = canvas.image_plane();
    if (plane.type != VOSTEL_F32)
        return true;
    const auto* const bytes = static_cast<const char*>(plane.data);
    const auto        row =
        plane.row_bytes != 0 ? plane.row_bytes : static_cast<std::ptrdiff_t>(sizeof(float)) * plane.width;
    for (int i = 0; i < Looks; ++i)
        for (int j = 0; j < Looks; ++j) {
            const std::ptrdiff_t y = std::ptrdiff_t(plane.height - 1) * i / (Looks - 1);
            const std::ptrdiff_t x = std::ptrdiff_t(plane.width - 1) * j / (Looks - 1);
            float                value = 0.0F;
            std::memcpy(&value, bytes + y * row + x * static_cast<std::ptrdiff_t>(sizeof value),
                        sizeof value);
            if (std::isfinite(value) && value != std::floor(value))
                return false;
        }
    return true;
}

QDoubleSpinBox* NewSpin(const char* name, const QString& accessible)
{
    auto* const spin = new QDoubleSpinBox;
    spin->setObjectName(QString::fromLatin1(name));
    spin->setAccessibleName(accessible);
    spin->setToolTip(accessible);
    spin->setKeyboardTracking(false);
    return spin;
}

QComboBox* NewChoice(const char* name, const QString& accessible)
{
    auto* const choice = new QComboBox;
    choice->setObjectName(QString::fromLatin1(name));
    choice->setAccessibleName(accessible);
    choice->setToolTip(accessible);
    return choice;
}

QToolButton* NewButton(const char* name, const QString& text, const QString& tip)
{
    auto* const button = new QToolButton;
    button->setObjectName(QString::fromLatin1(name));
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

// A control with its label, kept together when the rows break.
QWidget* Labelled(const QString& text, QWidget* control)
{
    auto* const both = new QWidget;
    auto* const row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    auto* const label = new QLabel(text);
    label->setBuddy(control);
    row->addWidget(label);
    row->addWidget(control);
    return both;
}

}

HistogramPanel::HistogramPanel(QWidget* parent) : CanvasPanel(parent), Controls(new QWidget)
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(4, 4, 4, 4);
    Source = new QLabel;
    Source->setObjectName(QStringLiteral("histogramSource"));
    Source->setWordWrap(true);
    rows->addWidget(Source);
    rows->addWidget(Controls, 1);
    auto* const inner = new QVBoxLayout(Controls);
    inner->setContentsMargins(0, 0, 0, 0);
    AddPlot(inner);
    AddWindow(inner);
    AddLooks(inner);
    Refresh();
}

HistogramPanel::~HistogramPanel() = default;

void HistogramPanel::AddPlot(QLayout* rows)
{
    auto* const choices = new QWidget;
    auto* const flow = new FlowLayout(choices);
    Scale = NewChoice("histogramScale", tr("How counts are drawn"));
    Scale->addItems({tr("Linear counts"), tr("Logarithmic counts")});
    Channel = NewChoice("histogramChannel", tr("Channel that is counted"));
    Channel->addItems({tr("Luma"), tr("Red"), tr("Green"), tr("Blue")});
    flow->addWidget(Scale);
    flow->addWidget(Channel);
    rows->addWidget(choices);
    Plot = new HistogramPlot;
    Plot->setObjectName(QStringLiteral("histogram"));
    Plot->setAccessibleName(tr("Histogram with the window of the contrast"));
    rows->addWidget(Plot);
    static_cast<QVBoxLayout*>(rows)->setStretchFactor(Plot, 1);
    Pointed = new QLabel;
    Pointed->setObjectName(QStringLiteral("histogramPointed"));
    rows->addWidget(Pointed);

    connect(Scale, &QComboBox::currentIndexChanged, Plot,
            [this](int index) { Plot->SetLogarithmic(index == 1); });
    connect(Channel, &QComboBox::currentIndexChanged, this, [this] {
        CountsStale = true;
        Later();
    });
    connect(Plot, &HistogramPlot::pointed, this,
            [this](const QString& text) { Pointed->setText(text.isEmpty() ? QStringLiteral(" ") : text); });
    connect(Plot, &HistogramPlot::dragBegun, this, [this] {
        if (Shown())
            DragStep.reset(new Step(Shown()->Open().step("Change contrast")));
    });
    connect(Plot, &HistogramPlot::windowDragged, this, &HistogramPanel::SetWindow);
    connect(Plot, &HistogramPlot::dragEnded, this, [this] { DragStep.reset(); });
}

void HistogramPanel::AddWindow(QLayout* rows)
{
    auto* const window = new QWidget;
    auto* const flow = new FlowLayout(window);
    Low = NewSpin("windowLow", tr("Value that becomes the darkest shade"));
    High = NewSpin("windowHigh", tr("Value that becomes the brightest shade"));
    flow->addWidget(Labelled(tr("Low"), Low));
    flow->addWidget(Labelled(tr("High"), High));
    connect(Low, &QDoubleSpinBox::valueChanged, this, [this](double low) {
        SetWindow(low, std::max(High->value(), low + std::pow(10.0, -Low->decimals())));
    });
    connect(High, &QDoubleSpinBox::valueChanged, this, [this](double high) {
        SetWindow(std::min(Low->value(), high - std::pow(10.0, -High->decimals())), high);
    });
    for (const double percent : {0.1, 0.5, 1.0}) {
        const QString      text = tr("%1 %").arg(percent);
        const QString      name = QStringLiteral("percent%1").arg(percent);
        QToolButton* const button = NewButton(name.toLatin1().constData(), text,
                                              tr("Leave out %1 % of the pixels at each end").arg(percent));
        connect(button, &QToolButton::clicked, this, [this, percent] { SetPercentiles(percent); });
        flow->addWidget(button);
    }
    QToolButton* const full =
        NewButton("fullRange", tr("Full range"), tr("From the lowest to the highest value of the image"));
    QToolButton* const reset =
        NewButton("resetContrast", tr("Reset"), tr("The contrast of a newly opened image"));
    flow->addWidget(full);
    flow->addWidget(reset);
    connect(full, &QToolButton::clicked, this, &HistogramPanel::SetFullRange);
    connect(reset, &QToolButton::clicked, this, &HistogramPanel::Reset);
    rows->addWidget(window);
}

void HistogramPanel::AddLooks(QLayout* rows)
{
    auto* const looks = new QWidget;
    auto* const flow = new FlowLayout(looks);
    Gamma = NewSpin("gamma", tr("Gamma: above 1 brightens the middle"));
    Gamma->setRange(0.1, 10.0);
    Gamma->setSingleStep(0.1);
    Map = NewChoice("colorMap", tr("Color map"));
    Map->setIconSize(QSize(4 * fontMetrics().height(), fontMetrics().height()));
    for (const std::string& name : MapNames())
        Map->addItem(QPixmap::fromImage(ShadesOf(name).scaled(3 * Map->iconSize())), MapText(name),
                     QString::fromStdString(name));
    flow->addWidget(Labelled(tr("Gamma"), Gamma));
    flow->addWidget(Labelled(tr("Colors"), Map));
    AddMark(flow, 0, "markBelow", tr("Below"), tr("Color of values below the window"));
    AddMark(flow, 1, "markAbove", tr("Above"), tr("Color of values above the window"));
    AddMark(flow, 2, "markNotFinite", tr("Not finite"), tr("Color of values that are not finite"));
    rows->addWidget(looks);
    connect(Gamma, &QDoubleSpinBox::valueChanged, this, [this](double gamma) {
        Change("Change contrast", [&](Canvas& canvas) { canvas.contrast_gamma(gamma); });
    });
    connect(Map, &QComboBox::currentIndexChanged, this, [this] {
        Change("Change contrast",
               [&](Canvas& canvas) { canvas.contrast_map(Map->currentData().toString().toStdString()); });
    });
}

void HistogramPanel::AddMark(FlowLayout* flow, std::size_t which, const char* name, const QString& text,
                             const QString& tip)
{
    Mark& mark = Marks[which];
    mark.Button = NewButton(name, text, tip);
    mark.Button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    mark.Menu = new ColourMenu(tip, ColourMenu::Kind::Marks, this);
    mark.Color = Qt::transparent;
    flow->addWidget(mark.Button);
    connect(mark.Button, &QToolButton::clicked, mark.Menu, [this, which] {
        QWidget* const button = Marks[which].Button;
        Marks[which].Menu->popup(button->mapToGlobal(QPoint(0, button->height())));
    });
    connect(mark.Menu, &ColourMenu::picked, this, [this, which](const QColor& color) {
        Marks[which].Color = color;
        SetMarks();
    });
}

void HistogramPanel::Attach(CanvasModel* canvas)
{
    DragStep.reset();
    ImageStale = CountsStale = true;
    if (!canvas)
        return;
    connect(canvas, &CanvasModel::imageChanged, this, [this] {
        ImageStale = CountsStale = true;
        Later();
    });
    const auto changed = [this](quint64 object) {
        if (object != Counted)
            return;
        CountsStale = true;
        Later();
    };
    connect(canvas, &CanvasModel::objectChanging, this, changed);
    connect(canvas, &CanvasModel::objectChanged, this, changed);
    connect(canvas, &CanvasModel::objectRemoved, this, changed);
    connect(canvas, &CanvasModel::selectionChanged, this, &HistogramPanel::Later);
    connect(canvas, &CanvasModel::contrastChanged, this, &HistogramPanel::Later);
}

std::optional<Object> HistogramPanel::Region() const
{
    const std::optional<Object> selected = Shown() ? Shown()->SelectedObject() : std::nullopt;
    return selected && IsRegion(selected->kind()) ? selected : std::nullopt;
}

void HistogramPanel::Refresh()
{
    if (ImageStale)
        ReadImage();
    Controls->setEnabled(Image.has_value());
    const std::optional<Object> region = Region();
    const VostelObject          wanted = region ? region->id() : 0;
    if (wanted != Counted)
        CountsStale = true;
    Counted = wanted;
    if (CountsStale)
        Count();
    ShowSource();
    if (Image)
        ShowContrast();
}

void HistogramPanel::ReadImage()
{
    ImageStale = false;
    Image = Shown() ? InfoOf(Shown()->Open()) : std::nullopt;
    if (!Image)
        return;
    const QSignalBlocker quietLow(Low), quietHigh(High);
    Whole = HasWholeValues(Shown()->Open()) && std::floor(Image->min) == Image->min &&
            std::floor(Image->max) == Image->max;
    const double range = std::max(Image->max - Image->min, Whole ? 1.0 : 1e-30);
    const int decimals = Whole ? 1 : std::clamp(4 - static_cast<int>(std::floor(std::log10(range))), 0, 12);
    const double step = Whole ? 1.0 : std::pow(10.0, std::floor(std::log10(range)) - 2.0);
    for (QDoubleSpinBox* const spin : {Low, High}) {
        spin->setDecimals(decimals);
        spin->setSingleStep(step);
        spin->setRange(std::min(0.0, Image->min) - 10.0 * range, std::max(0.0, Image->max) + 10.0 * range);
    }
    Channel->setVisible(IsColor(Image->type));
    Plot->SetLeastWidth(Whole ? 1.0 : 0.0);
}

// Bins of whole numbers are a whole number wide, so that none is counted twice as often as its neighbour.
void HistogramPanel::Count()
{
    constexpr double Most = 512.0;
    CountsStale = false;
    if (!Image) {
        Plot->SetCounts({}, 0.0, 1.0);
        return;
    }
    double low = Image->min, high = Image->max, bins = Most;
    if (IsByte(Image->type)) {
        low = 0.0;
        high = bins = 256.0;
    } else if (Whole) {
        const double width = std::max(1.0, std::ceil((high - low + 1.0) / Most));
        bins = std::ceil((high - low + 1.0) / width);
        high = low + bins * width;
    } else if (!(high > low)) {
        high = low + 1.0;
    }
    const int channel = IsColor(Image->type) ? Channel->currentIndex() : 0;
    try {
        Plot->SetCounts(Shown()->Open().histogram(low, high, static_cast<int>(bins), Region(), channel), low,
                        high);
    } catch (const Error&) {
        Plot->SetCounts({}, low, high);    // a region without points yet
    }
}

void HistogramPanel::ShowSource()
{
    const std::optional<Object> region = Region();
    if (!Image) {
        Source->setText(Shown() ? tr("No image") : tr("No canvas"));
        return;
    }
    QString text = region ? tr("Values in %1 %2")
                                .arg(KindName(region->kind(), region->flags()),
                                     NameOrNumber(region->name(), region->id()))
                          : tr("Values of the whole image");
    if (Image->not_finite > 0)
        text += tr(", %1 not finite in the image").arg(Image->not_finite);
    Source->setText(text);
}

void HistogramPanel::ShowContrast()
{
    const Canvas&        canvas = Shown()->Open();
    const ContrastInfo   contrast = canvas.contrast_info();
    const std::string    map = canvas.contrast_map_name();
    const QSignalBlocker quiet[] = {QSignalBlocker(Low), QSignalBlocker(High), QSignalBlocker(Gamma),
                                    QSignalBlocker(Map)};
    Low->setValue(contrast.low);
    High->setValue(contrast.high);
    Gamma->setValue(contrast.gamma);
    Map->setCurrentIndex(Map->findData(QString::fromStdString(map)));
    if (map != ShadesMap || contrast.gamma != ShadesGamma) {
        Plot->SetShades(ShadesOf(map, contrast.gamma));
        ShadesMap = map;
        ShadesGamma = contrast.gamma;
    }
    const std::uint32_t colors[] = {contrast.below, contrast.above, contrast.not_finite};
    for (std::size_t i = 0; i < Marks.size(); ++i) {
        const QColor color = QColor::fromRgba(colors[i]);
        if (color != Marks[i].Color || Marks[i].Button->icon().isNull())
            Marks[i].Button->setIcon(SwatchOf(color, Marks[i].Button->iconSize().width()));
        Marks[i].Color = color;
        Marks[i].Menu->SetCurrent(color);
    }
    Plot->SetMarks(Marks[0].Color, Marks[1].Color);
    Plot->SetWindow(contrast.low, contrast.high);
}

void HistogramPanel::Change(const char* step, const std::function<void(Canvas&)>& change)
{
    if (Shown() && Image)
        Shown()->Try([&](Canvas& canvas) {
            const Step one = canvas.step(step);
            change(canvas);
        });
}

void HistogramPanel::SetWindow(double low, double high)
{
    Change("Change contrast", [&](Canvas& canvas) { canvas.contrast_set(low, high); });
}

// Of an image with few values both percentiles may be the same one.
void HistogramPanel::SetPercentiles(double percent)
{
    Change("Change contrast", [&](Canvas& canvas) { canvas.contrast_percentiles(percent, 100.0 - percent); });
}

void HistogramPanel::SetFullRange()
{
    const auto info = Image ? Shown()->Open().image_info() : std::nullopt;
    if (info)
        SetWindow(info->min, info->max > info->min ? info->max : info->min + 1.0);
}

std::pair<double, double> HistogramPanel::UsualWindow() const
{
    if (IsByte(Image->type))
        return {0.0, 255.0};
    return {Image->min, Image->max > Image->min ? Image->max : Image->min + 1.0};
}

void HistogramPanel::Reset()
{
    Change(QT_TRANSLATE_NOOP("Steps", "Reset contrast"), [&](Canvas& canvas) {
        const auto [low, high] = UsualWindow();
        canvas.contrast_set(low, high);
        canvas.contrast_gamma(1.0);
        canvas.contrast_map("gray");
        canvas.contrast_marks(0, 0, 0);
    });
}

void HistogramPanel::SetMarks()
{
    const auto color = [](const Mark& mark) { return mark.Color.alpha() == 0 ? 0U : mark.Color.rgba(); };
    Change("Change contrast",
           [&](Canvas& canvas) { canvas.contrast_marks(color(Marks[0]), color(Marks[1]), color(Marks[2])); });
}

}
