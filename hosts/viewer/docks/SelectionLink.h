#pragma once

#include "docks/ObjectTable.h"

class QAbstractItemView;

namespace vostel::viewer {

// Keeps the selected rows of a view and the selection of the canvas the same, both ways.
class SelectionLink : public QObject {
    Q_OBJECT

public:
    // The view has the model already.
    SelectionLink(QAbstractItemView& view, ObjectTable& table);

    void Take();    // from the canvas to the view

private:
    void Give();

    QAbstractItemView& View;
    ObjectTable&       Table;
    bool               Taking = false;
};

}
