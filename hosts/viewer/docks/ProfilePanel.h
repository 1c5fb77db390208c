#pragma once

#include "docks/CanvasPanel.h"

#include <QPointF>

#include <optional>

class QComboBox;
class QLabel;
class QSpinBox;
class QToolButton;

namespace vostel::viewer {

class CurvePlot;

// The values along the selected line.
class ProfilePanel : public CanvasPanel {
    Q_OBJECT

public:
    explicit ProfilePanel(QWidget* parent = nullptr);

Q_SIGNALS:
    void pointed(std::optional<QPointF> image);    // the place under the cursor of the plot, in image px

protected:
    void Attach(CanvasModel* canvas) override;
    void Refresh() override;

private:
    std::optional<Object> Line() const;
    void                  ShowPointed(std::optional<std::size_t> sample);
    void                  AskToSave();
    void                  Save(const QString& path);
    bool                  WriteTable(QIODevice& file) const;

    CurvePlot*   Plot;
    QLabel*      Source;
    QLabel*      Pointed;
    QSpinBox*    Width;
    QComboBox*   Channel;
    QToolButton* SaveButton;
    VostelObject Drawn = 0;
    Point        From = {}, To = {};    // image px
    double       Spacing = 1.0;         // units of the scale
    QString      Unit;
};

}
