#pragma once

#include "docks/CanvasPanel.h"

#include <array>
#include <memory>
#include <optional>

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QToolButton;

namespace vostel::viewer {

class ColourMenu;
class FlowLayout;
class HistogramPlot;

// The values of the image, or of the selected region, and how they become shades.
class HistogramPanel : public CanvasPanel {
    Q_OBJECT

public:
    explicit HistogramPanel(QWidget* parent = nullptr);
    ~HistogramPanel() override;

protected:
    void Attach(CanvasModel* canvas) override;
    void Refresh() override;

private:
    // A color for values that the window does not hold.
    struct Mark {
        QToolButton* Button = nullptr;
        ColourMenu*  Menu = nullptr;
        QColor       Color;
    };

    void AddPlot(QLayout* rows);
    void AddWindow(QLayout* rows);
    void AddLooks(QLayout* rows);
    void AddMark(FlowLayout* flow, std::size_t which, const char* name, const QString& text,
                 const QString& tip);

    void ReadImage();
    void Count();
    void ShowContrast();
    void ShowSource();

    void Change(const char* step, const std::function<void(Canvas&)>& change);
    void SetWindow(double low, double high);
    void SetPercentiles(double percent);
    void SetFullRange();
    void Reset();
    void SetMarks();

    std::optional<Object>     Region() const;
    std::pair<double, double> UsualWindow() const;    // of a new image

    HistogramPlot*           Plot = nullptr;
    QLabel*                  Source = nullptr;
    QLabel*                  Pointed = nullptr;
    QWidget*                 Controls = nullptr;
    QComboBox*               Channel = nullptr;
    QComboBox*               Scale = nullptr;
    QDoubleSpinBox*          Low = nullptr;
    QDoubleSpinBox*          High = nullptr;
    QDoubleSpinBox*          Gamma = nullptr;
    QComboBox*               Map = nullptr;
    std::array<Mark, 3>      Marks;    // below, above, not finite
    std::optional<ImageInfo> Image;
    VostelObject             Counted = 0;      // region whose values are shown; 0: the image
    bool                     Whole = false;    // values without fractions
    bool                     ImageStale = true;
    bool                     CountsStale = true;
    std::string              ShadesMap;
    double                   ShadesGamma = 0.0;
    std::unique_ptr<Step>    DragStep;
};

}
