#pragma once

#include "docks/CanvasPanel.h"

namespace vostel::viewer {

class OverviewMap;

// The whole image, small, with a frame about the part that the canvas shows.
class OverviewPanel : public CanvasPanel {
    Q_OBJECT

public:
    explicit OverviewPanel(QWidget* parent = nullptr);

protected:
    void Attach(CanvasModel* canvas) override;
    void Refresh() override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    OverviewMap* Map;
    bool         PictureStale = true;
};

}
