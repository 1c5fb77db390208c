#pragma once

#include <QColor>
#include <QIcon>
#include <QMenu>

namespace vostel::viewer {

// A square of a color as an icon; crossed out for none.
QIcon SwatchOf(const QColor& color, int side);

// Colors to pick from, and any other one in a dialog.
class ColourMenu : public QMenu {
    Q_OBJECT

public:
    enum class Kind { Lines, Fills, Marks };    // fills are translucent; of fills and marks there may be none

    ColourMenu(const QString& title, Kind kind, QWidget* parent);

    void SetCurrent(const QColor& color) { Current = color; }    // that the dialog starts with

Q_SIGNALS:
    void picked(const QColor& color);    // alpha 0: none

private:
    void AskForOther();

    Kind   Colours;
    QColor Current;
};

}
