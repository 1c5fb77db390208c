#include "docks/ObjectsPanel.h"

#include "docks/ColourMenu.h"
#include "docks/FlowLayout.h"
#include "docks/KindNames.h"
#include "docks/SelectionLink.h"

#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

namespace vostel::viewer {

namespace {

// Styles outline a box by a darker shade of the window, which cannot be told from a dark list.
class OutlinedBoxes : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->palette.color(QPalette::Base).lightness() < 128)
            option->palette.setColor(QPalette::Window, option->palette.color(QPalette::Text));
    }
};

}

ObjectsPanel::ObjectsPanel(QWidget* parent)
    : CanvasPanel(parent), List(new QTreeView), Link(nullptr), Order(new QLabel), Buttons(new QWidget),
      Menu(new QMenu(this)), Lines(new ColourMenu(tr("Line color"), ColourMenu::Kind::Lines, this)),
      Fills(new ColourMenu(tr("Fill color"), ColourMenu::Kind::Fills, this)), Line(nullptr), Fill(nullptr),
      Width(new QDoubleSpinBox)
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(4, 4, 4, 4);
    rows->addWidget(Order);
    rows->addWidget(List, 1);
    rows->addWidget(Buttons);
    Order->setWordWrap(true);
    Order->setObjectName(QStringLiteral("objectsOrder"));

    List->setObjectName(QStringLiteral("objects"));
    List->setAccessibleName(tr("Objects, topmost first"));
    List->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);    // it scrolls by itself
    List->setMinimumHeight(4 * fontMetrics().lineSpacing());
    List->setModel(&Model);
    List->setItemDelegate(new OutlinedBoxes(List));
    List->setRootIsDecorated(false);
    List->setUniformRowHeights(true);
    List->setAllColumnsShowFocus(true);
    List->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    List->setDragDropMode(QAbstractItemView::InternalMove);
    List->setContextMenuPolicy(Qt::CustomContextMenu);
    List->header()->setStretchLastSection(false);
    List->header()->setSectionResizeMode(ObjectsModel::Name, QHeaderView::Stretch);
    for (int column = ObjectsModel::Kind; column < ObjectsModel::ColumnCount; ++column)
        List->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    List->header()->setResizeContentsPrecision(40);
    List->header()->setMinimumSectionSize(fontMetrics().horizontalAdvance(QStringLiteral("MMMM")));
    List->installEventFilter(this);
    Link = new SelectionLink(*List, Model);

    auto* const flow = new FlowLayout(Buttons);
    Line = AddButton("lineColor", tr("Line"), tr("Line color of the selected objects"));
    Fill = AddButton("fillColor", tr("Fill"), tr("Fill color of the selected regions"));
    Width->setObjectName(QStringLiteral("lineWidth"));
    Width->setAccessibleName(tr("Line width of the selected objects"));
    Width->setToolTip(Width->accessibleName());
    Width->setRange(0.5, 50.0);
    Width->setDecimals(1);
    Width->setSingleStep(0.5);
    Width->setSuffix(tr(" px"));
    Width->setKeyboardTracking(false);
    flow->addWidget(Width);
    QToolButton* const up = AddButton("raise", tr("Up"), tr("Nearer to the top"));
    QToolButton* const down = AddButton("lower", tr("Down"), tr("Further to the bottom"));
    QToolButton* const hide =
        AddButton("hide", tr("Hide"), tr("Hide the selected objects or show them again"));
    QToolButton* const lock =
        AddButton("lock", tr("Lock"), tr("Lock the selected objects or free them again"));
    QToolButton* const remove = AddButton("remove", tr("Delete"), tr("Delete the selected objects"));

    const auto hideOrShow = [this] {
        Toggle(VOSTEL_HIDDEN, QT_TRANSLATE_NOOP("Steps", "Hide objects"),
               QT_TRANSLATE_NOOP("Steps", "Show objects"));
    };
    const auto lockOrFree = [this] {
        Toggle(VOSTEL_LOCKED, QT_TRANSLATE_NOOP("Steps", "Lock objects"),
               QT_TRANSLATE_NOOP("Steps", "Unlock objects"));
    };
    connect(Line, &QToolButton::clicked, Lines,
            [this] { Lines->popup(Line->mapToGlobal(QPoint(0, Line->height()))); });
    connect(Fill, &QToolButton::clicked, Fills,
            [this] { Fills->popup(Fill->mapToGlobal(QPoint(0, Fill->height()))); });
    connect(Lines, &ColourMenu::picked, this, &ObjectsPanel::SetLine);
    connect(Fills, &ColourMenu::picked, this, &ObjectsPanel::SetFill);
    connect(Width, &QDoubleSpinBox::valueChanged, this, &ObjectsPanel::SetWidth);
    connect(up, &QToolButton::clicked, this, [this] { Move(-1); });
    connect(down, &QToolButton::clicked, this, [this] { Move(1); });
    connect(hide, &QToolButton::clicked, this, hideOrShow);
    connect(lock, &QToolButton::clicked, this, lockOrFree);
    connect(remove, &QToolButton::clicked, this, &ObjectsPanel::Remove);
    connect(&Model, &ObjectsModel::changeWanted, this, &ObjectsPanel::TakeEdit);
    connect(List, &QTreeView::customContextMenuRequested, this, &ObjectsPanel::ShowMenu);
    connect(List, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() == ObjectsModel::Colour)
            Lines->popup(QCursor::pos());
    });
    MakeMenu();
    Refresh();
}

QToolButton* ObjectsPanel::AddButton(const char* name, const QString& text, const QString& tip)
{
    auto* const button = new QToolButton;
    button->setObjectName(QString::fromLatin1(name));
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Buttons->layout()->addWidget(button);
    return button;
}

void ObjectsPanel::MakeMenu()
{
    Menu->setObjectName(QStringLiteral("objectsMenu"));
    Menu->addAction(tr("Rename"), this, &ObjectsPanel::Rename);
    Menu->addMenu(Lines);
    Menu->addMenu(Fills);
    Menu->addSeparator();
    Menu->addAction(tr("Hide or show"), this, [this] {
        Toggle(VOSTEL_HIDDEN, QT_TRANSLATE_NOOP("Steps", "Hide objects"),
               QT_TRANSLATE_NOOP("Steps", "Show objects"));
    });
    Menu->addAction(tr("Lock or unlock"), this, [this] {
        Toggle(VOSTEL_LOCKED, QT_TRANSLATE_NOOP("Steps", "Lock objects"),
               QT_TRANSLATE_NOOP("Steps", "Unlock objects"));
    });
    Menu->addSeparator();
    Menu->addAction(tr("To the top"), this, [this] { Model.PutBefore(Selected(), 0); });
    Menu->addAction(tr("To the bottom"), this, [this] { Model.PutBefore(Selected(), Model.rowCount()); });
    Menu->addSeparator();
    Menu->addAction(tr("Delete"), this, &ObjectsPanel::Remove);
}

void ObjectsPanel::ShowMenu(QPoint position)
{
    if (!Selected().empty())
        Menu->popup(List->viewport()->mapToGlobal(position));
}

void ObjectsPanel::Attach(CanvasModel* canvas)
{
    Model.SetCanvas(canvas);
    if (!canvas)
        return;
    const auto note = [this](quint64 object) {
        Model.NoteChange(object);
        Later();
    };
    connect(canvas, &CanvasModel::objectAdded, this, note);
    connect(canvas, &CanvasModel::objectChanged, this, note);
    connect(canvas, &CanvasModel::objectRemoved, this, note);
    connect(canvas, &CanvasModel::selectionChanged, this, &ObjectsPanel::Later);
}

void ObjectsPanel::Refresh()
{
    Model.Update();
    Link->Take();
    const int count = Model.rowCount();
    Order->setText(!Shown()     ? tr("No canvas")
                   : count == 0 ? tr("No objects yet")
                   : count == 1 ? tr("1 object")
                                : tr("%1 objects, topmost first").arg(count));
    ShowLook();
}

void ObjectsPanel::ShowLook()
{
    const std::vector<Object> selected = Selected();
    Buttons->setEnabled(!selected.empty());
    if (selected.empty())
        return;
    const QSignalBlocker quiet(Width);
    const Style          look = selected.front().style();
    const int            side = Line->iconSize().width();
    const QColor         line = QColor::fromRgb(static_cast<QRgb>(look.line_color));
    const QColor         fill = QColor::fromRgba(static_cast<QRgb>(look.fill_color));
    Line->setIcon(SwatchOf(line, side));
    Fill->setIcon(SwatchOf(fill, side));
    Lines->SetCurrent(line);
    Fills->SetCurrent(fill);
    Width->setValue(look.line_width);
    Fill->setEnabled(std::any_of(selected.begin(), selected.end(),
                                 [](const Object& object) { return IsRegion(object.kind()); }));
}

std::vector<Object> ObjectsPanel::Selected() const
{
    return Shown() ? Shown()->Open().selection() : std::vector<Object>();
}

bool ObjectsPanel::Change(const char* step, const std::function<void(Object&)>& change)
{
    return Shown() && Shown()->Try([&](Canvas& canvas) {
        const Step one = canvas.step(step);
        for (Object& object : canvas.selection())
            change(object);
    });
}

void ObjectsPanel::TakeEdit(Object object, int column, const QVariant& value)
{
    const auto change = [&](const char* step, const std::function<void()>& act) {
        Shown()->Try([&](Canvas& canvas) {
            const Step one = canvas.step(step);
            act();
        });
    };
    const auto flag = [&](std::uint32_t bit, bool set) {
        object.set_flags(set ? object.flags() | bit : object.flags() & ~bit);
    };
    const bool checked = value.toInt() == Qt::Checked;
    switch (column) {
    case ObjectsModel::Name:
        return change(QT_TRANSLATE_NOOP("Steps", "Rename object"),
                      [&] { object.set_name(value.toString().toStdString()); });
    case ObjectsModel::Label:
        return change(QT_TRANSLATE_NOOP("Steps", "Change label"), [&] { object.set_label(value.toInt()); });
    case ObjectsModel::Visible:
        return change(checked ? QT_TRANSLATE_NOOP("Steps", "Show object")
                              : QT_TRANSLATE_NOOP("Steps", "Hide object"),
                      [&] { flag(VOSTEL_HIDDEN, !checked); });
    case ObjectsModel::Locked:
        return change(checked ? QT_TRANSLATE_NOOP("Steps", "Lock object")
                              : QT_TRANSLATE_NOOP("Steps", "Unlock object"),
                      [&] { flag(VOSTEL_LOCKED, checked); });
    default:
        return;
    }
}

void ObjectsPanel::SetLine(const QColor& color)
{
    Change(QT_TRANSLATE_NOOP("Steps", "Change line color"), [&](Object& object) {
        Style look = object.style();
        look.line_color = color.rgb() & 0xFFFFFF;
        object.set_style(look);
    });
}

void ObjectsPanel::SetFill(const QColor& color)
{
    Change(QT_TRANSLATE_NOOP("Steps", "Change fill color"), [&](Object& object) {
        if (!IsRegion(object.kind()))
            return;
        Style look = object.style();
        look.fill_color = color.rgba();
        object.set_style(look);
    });
}

void ObjectsPanel::SetWidth(double width)
{
    Change(QT_TRANSLATE_NOOP("Steps", "Change line width"), [&](Object& object) {
        Style look = object.style();
        look.line_width = width;
        object.set_style(look);
    });
}

// All get the flag, unless all have it.
void ObjectsPanel::Toggle(std::uint32_t flag, const char* on, const char* off)
{
    const std::vector<Object> selected = Selected();
    const bool                set = std::any_of(selected.begin(), selected.end(),
                                                [&](const Object& object) { return (object.flags() & flag) == 0; });
    Change(set ? on : off,
           [&](Object& object) { object.set_flags(set ? object.flags() | flag : object.flags() & ~flag); });
}

void ObjectsPanel::Move(int rows)
{
    const std::vector<Object> selected = Selected();    // in drawing order
    if (selected.empty())
        return;
    const int first = Model.RowOf(selected.back().id()), last = Model.RowOf(selected.front().id());
    Model.PutBefore(selected, rows < 0 ? std::max(0, first - 1) : std::min(Model.rowCount(), last + 2));
}

void ObjectsPanel::Remove()
{
    int locked = 0;
    Change(QT_TRANSLATE_NOOP("Steps", "Delete objects"), [&](Object& object) {
        if ((object.flags() & VOSTEL_LOCKED) != 0)
            ++locked;
        else
            object.remove();
    });
    if (locked > 0)
        Q_EMIT reported(
            Done(locked == 1 ? tr("1 locked object stays") : tr("%1 locked objects stay").arg(locked)));
}

void ObjectsPanel::Rename()
{
    const QModelIndex current = List->currentIndex();
    if (current.isValid())
        List->edit(current.siblingAtColumn(ObjectsModel::Name));
}

bool ObjectsPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        Remove();
        return true;
    }
    return CanvasPanel::eventFilter(watched, event);
}

}
