#pragma once

#include "canvas/CanvasModel.h"

#include <QAbstractTableModel>
#include <QItemSelection>

#include <unordered_set>
#include <vector>

namespace vostel::viewer {

// Objects of a canvas as rows of a table. What changes is noted and taken by Update(), which asks for the
// order of the rows and tells the views no more than what is new.
class ObjectTable : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void         SetCanvas(CanvasModel* canvas);    // null: no rows
    CanvasModel* Shown() const { return Model; }

    void NoteChange(VostelObject object) { Changed.insert(object); }
    void NoteAll() { AllChanged = true; }
    void Update();
    bool IsUpdating() const { return Updating; }

    Object              At(int row) const;
    std::vector<Object> At(const QModelIndexList& rows) const;
    int                 RowOf(VostelObject object) const;    // -1: none
    QItemSelection      RowsOf(const std::vector<Object>& objects) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;

protected:
    virtual std::vector<VostelObject> Order() = 0;
    virtual void                      Forget(VostelObject object) = 0;    // what was read of it
    virtual void                      ForgetAll() = 0;

    std::vector<VostelObject> Rows;

private:
    void Take(std::vector<VostelObject> order);
    void TellChanges();

    CanvasModel*                     Model = nullptr;    // borrowed
    std::unordered_set<VostelObject> Changed;
    bool                             AllChanged = false;
    bool                             Updating = false;
};

}
