#include "help/Tour.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include <iterator>

namespace vostel::viewer {

namespace {

const QString SeenKey = QStringLiteral("TourSeen");

struct TourStep {
    const char* Title;
    const char* Text;
};

constexpr TourStep Steps[] = {
    {QT_TRANSLATE_NOOP("vostel::viewer::Tour", "Open"),
     QT_TRANSLATE_NOOP(
         "vostel::viewer::Tour",
         "Drop pictures, stacks, raw data or sessions on the window, or press Ctrl+O. Each gets a "
         "tab; F4 shows all side by side.")},
    {QT_TRANSLATE_NOOP("vostel::viewer::Tour", "Look"),
     QT_TRANSLATE_NOOP("vostel::viewer::Tour",
                       "The wheel zooms, a drag on the background or with the middle button moves the image. "
                       "Ctrl+0 shows all of it, Ctrl+1 shows it at 100 %.")},
    {QT_TRANSLATE_NOOP("vostel::viewer::Tour", "Draw and measure"),
     QT_TRANSLATE_NOOP("vostel::viewer::Tour",
                       "Choose a tool at the left, then draw one object after another: drags for lengths and "
                       "rectangles, clicks and Enter for polygons. Esc puts the tool away. Ctrl+Z undoes.")},
    {QT_TRANSLATE_NOOP("vostel::viewer::Tour", "Numbers"),
     QT_TRANSLATE_NOOP("vostel::viewer::Tour",
                       "The docks list the objects with their measures, the histogram and the line profile. "
                       "Measures are in px until you calibrate by a length that you know.")},
    {QT_TRANSLATE_NOOP("vostel::viewer::Tour", "Keep"),
     QT_TRANSLATE_NOOP(
         "vostel::viewer::Tour",
         "Ctrl+S saves a session: objects, contrast, scale and view. Pictures, regions and tables "
         "leave by the File menu. Ctrl+Shift+P finds every command.")}};

}

Tour::Tour(QWidget* over)
    : QFrame(over), Title(new QLabel), Text(new QLabel), Back(new QPushButton(tr("Back"))),
      Next(new QPushButton)
{
    setObjectName(QStringLiteral("Tour"));
    setFrameStyle(QFrame::Panel | QFrame::Raised);
    setAutoFillBackground(true);
    setAttribute(Qt::WA_DeleteOnClose);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    large.setBold(true);
    Title->setFont(large);
    Text->setWordWrap(true);
    Text->setObjectName(QStringLiteral("Text"));
    Next->setObjectName(QStringLiteral("Next"));
    auto* const skip = new QPushButton(tr("Close"));
    skip->setObjectName(QStringLiteral("Close"));
    auto* const row = new QHBoxLayout;
    row->addWidget(skip);
    row->addStretch(1);
    row->addWidget(Back);
    row->addWidget(Next);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(Title);
    rows->addWidget(Text, 1);
    rows->addLayout(row);
    connect(skip, &QPushButton::clicked, this, &Tour::End);
    connect(Back, &QPushButton::clicked, this, [this] {
        --Step;
        ShowStep();
    });
    connect(Next, &QPushButton::clicked, this, [this] {
        if (++Step == int(std::size(Steps)))
            return End();
        ShowStep();
    });
    over->installEventFilter(this);
    ShowStep();
    Place();
    show();
    raise();
}

bool Tour::WasSeen()
{
    return QSettings().value(SeenKey, false).toBool();
}

void Tour::ShowStep()
{
    const int last = int(std::size(Steps)) - 1;
    Title->setText(QStringLiteral("%1 / %2  %3").arg(Step + 1).arg(last + 1).arg(tr(Steps[Step].Title)));
    Text->setText(tr(Steps[Step].Text));
    Back->setEnabled(Step > 0);
    Next->setText(Step == last ? tr("Done") : tr("Next"));
}

void Tour::Place()
{
    const QWidget& over = *parentWidget();
    const int      letter = fontMetrics().averageCharWidth();
    const int      wide = std::min(letter * 60, over.width() - 20);
    const int      high = std::min(fontMetrics().height() * 10, over.height() - 20);
    setGeometry((over.width() - wide) / 2, over.height() - high - 20, wide, high);
}

bool Tour::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        Place();
    return QFrame::eventFilter(watched, event);
}

void Tour::End()
{
    QSettings().setValue(SeenKey, true);
    close();
}

}
