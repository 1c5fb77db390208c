#pragma once

#include "canvas/CanvasModel.h"

#include <QAbstractListModel>

namespace vostel::viewer {

// The steps of a canvas from the oldest, behind a first row for the state before them. It belongs to the
// canvas and notes names as steps come, since the open interface tells only those next to the present state.
class StepList : public QAbstractListModel {
    Q_OBJECT

public:
    static StepList& Of(CanvasModel& canvas);    // the same one each time

    int  Current() const { return Done; }    // row of the present state
    bool GoTo(int row);

    int      rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    explicit StepList(CanvasModel& canvas);
    void Follow();

    CanvasModel&             Canvas;
    std::vector<std::string> Names;
    int                      Done = 0;
};

}
