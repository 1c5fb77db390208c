#pragma once

#include "docks/CanvasPanel.h"
#include "docks/MeasuresModel.h"

class QLabel;
class QMenu;
class QToolButton;
class QTreeView;

namespace vostel::viewer {

class SelectionLink;

// The table of all measures, with the statistics of one column below. It follows what is dragged.
class MeasuresPanel : public CanvasPanel {
    Q_OBJECT

public:
    explicit MeasuresPanel(QWidget* parent = nullptr);

    void CopySelected();    // as tab-separated text, all rows where none is selected
    void CopyAll();
    void AskToSave();

protected:
    void Attach(CanvasModel* canvas) override;
    void Refresh() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolButton*     AddButton(QLayout* row, const char* name, const QString& text, const QString& tip);
    void             MakeColumnMenu();
    void             ChooseColumn(int column, bool shown);
    void             SizeColumns();
    std::vector<int> SelectedRows() const;
    void             Copy(const std::vector<int>& rows);
    void             Save(const QString& path, const QString& format);
    void             ShowStatistics();

    MeasuresModel  Model;
    QTreeView*     Table;
    SelectionLink* Link;
    QLabel*        Statistics;
    QMenu*         ColumnMenu;
    QMenu*         RowMenu;
    QString        Unit;
    double         UnitsPerPixel = 0.0;
    bool           Complete = false;
};

}
