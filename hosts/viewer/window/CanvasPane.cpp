#include "window/CanvasPane.h"

#include "canvas/Ruler.h"
#include "window/StackBar.h"

#include <QGridLayout>
#include <QLabel>

namespace vostel::viewer {

CanvasPane::CanvasPane(QWidget* parent)
    : QFrame(parent), Canvas(new CanvasView(Content.Model())), Level(new Ruler(*Canvas, Qt::Horizontal)),
      Upright(new Ruler(*Canvas, Qt::Vertical)), Corner(new QWidget), Caption(new QLabel),
      Pages(new StackBar(Content))
{
    Caption->setContentsMargins(4, 1, 4, 1);
    Caption->setTextFormat(Qt::PlainText);
    Caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(Caption, 0, 0, 1, 2);
    grid->addWidget(Corner, 1, 0);
    grid->addWidget(Level, 1, 1);
    grid->addWidget(Upright, 2, 0);
    grid->addWidget(Canvas, 2, 1);
    grid->addWidget(Pages, 3, 0, 1, 2);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(1, 1);
    SetRulers(false);
    SetCaption(false);
    connect(&Content, &Document::titleChanged, this, &CanvasPane::ShowTitle);
    connect(&Content, &Document::readingChanged, this, [this] { Canvas->SetWaiting(Content.IsReading()); });
    connect(&Content, &Document::previewRead, Canvas, &CanvasView::ShowPreview);
    connect(&Content, &Document::modifiedChanged, this, &CanvasPane::ShowTitle);
    ShowTitle();
}

void CanvasPane::SetRulers(bool shown)
{
    for (QWidget* const part : {static_cast<QWidget*>(Level), static_cast<QWidget*>(Upright), Corner})
        part->setVisible(shown);
}

void CanvasPane::SetCaption(bool shown)
{
    Caption->setVisible(shown);
}

void CanvasPane::SetCurrent(bool current)
{
    setFrameStyle(current ? QFrame::Box | QFrame::Plain : QFrame::NoFrame);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, colors.color(QPalette::Highlight));
    setPalette(current ? colors : QPalette());
}

void CanvasPane::ShowTitle()
{
    Caption->setText(Content.Title() + (Content.IsModified() ? QStringLiteral(" *") : QString()));
    Q_EMIT titleChanged();
}

}
