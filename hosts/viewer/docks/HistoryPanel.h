#pragma once

#include "docks/CanvasPanel.h"

class QLabel;
class QListView;

namespace vostel::viewer {

// The steps of history by name, the present one marked. A click goes to a step.
class HistoryPanel : public CanvasPanel {
    Q_OBJECT

public:
    explicit HistoryPanel(QWidget* parent = nullptr);

protected:
    void Attach(CanvasModel* canvas) override;
    void Refresh() override;

private:
    QListView* List;
    QLabel*    Memory;
};

}
