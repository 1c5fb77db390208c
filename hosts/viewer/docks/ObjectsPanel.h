#pragma once

#include "docks/CanvasPanel.h"
#include "docks/ObjectsModel.h"

#include <functional>

class QDoubleSpinBox;
class QLabel;
class QMenu;
class QToolButton;
class QTreeView;

namespace vostel::viewer {

class ColourMenu;
class SelectionLink;

// The list of the objects: names, looks, order. It is also what a screen reader has of the canvas.
class ObjectsPanel : public CanvasPanel {
    Q_OBJECT

public:
    explicit ObjectsPanel(QWidget* parent = nullptr);

protected:
    void Attach(CanvasModel* canvas) override;
    void Refresh() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolButton* AddButton(const char* name, const QString& text, const QString& tip);
    void         MakeMenu();
    void         ShowMenu(QPoint position);
    void         TakeEdit(Object object, int column, const QVariant& value);

    // Changes of the selection, one step each, named in English as the library's own steps are.
    bool Change(const char* step, const std::function<void(Object&)>& change);
    void SetLine(const QColor& color);
    void SetFill(const QColor& color);
    void SetWidth(double width);
    void Toggle(std::uint32_t flag, const char* on, const char* off);
    void Move(int rows);
    void Remove();
    void Rename();

    std::vector<Object> Selected() const;
    void                ShowLook();

    ObjectsModel    Model;
    QTreeView*      List;
    SelectionLink*  Link;
    QLabel*         Order;
    QWidget*        Buttons;
    QMenu*          Menu;
    ColourMenu*     Lines;
    ColourMenu*     Fills;
    QToolButton*    Line;
    QToolButton*    Fill;
    QDoubleSpinBox* Width;
};

}
