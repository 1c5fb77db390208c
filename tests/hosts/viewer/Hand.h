#pragma once

#include "hosts/screen/XScreen.h"

#include <QDialog>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

// The person before the screen: moves mouse and keys through the window system while the program goes on, and
// returns when it has nothing left to do. Points are of a widget, in its own layout px.
namespace hand {

void Show(QWidget& window, QRect place);    // until it has the keys
void Settle();                              // until no event is waiting

// Runs input on the screen in the back while the program handles it.
void Do(const std::function<void(XScreen&)>& input);

void Click(QWidget& on, QPoint at);
void Click(QWidget& on);    // its middle
void DoubleClick(QWidget& on, QPoint at);
void Drag(QWidget& on, QPoint from, QPoint to);
void DragAlong(QWidget& on, const std::vector<QPoint>& path);
void DragMiddle(QWidget& on, QPoint from, QPoint to);    // with the middle button
void RightClick(QWidget& on, QPoint at);
void Move(QWidget& on, QPoint to);
void Press(QWidget& on, QPoint at);    // holds the button down
void Lift();
void Wheel(QWidget& on, QPoint at, int steps);
void Key(const char* chord);    // "ctrl+shift+s", "Return"
void Type(const char* text);
bool Drop(QWidget&       on,
          const QString& path);    // a file of another program, in the middle; whether it is taken
void With(const char* key, const std::function<void()>& act);    // while it is held

// Waits until it is so; false when it takes too long.
bool Wait(const std::function<bool()>& condition, int milliseconds = 10000);

// Does something in the dialog that comes up while it keeps the program waiting, however long it takes to
// come.
void InDialog(const std::function<void(QDialog&)>& act);

// A part of a window by the name of its object.
template <typename Part>
Part& Of(const QWidget& window, const char* name)
{
    Part* const part = window.findChild<Part*>(QString::fromLatin1(name));
    if (!part)
        throw std::runtime_error(std::string("no part of the window is named ") + name);
    return *part;
}

// A picture of a window under the folder that VOSTEL_TEST_PICTURES names, to be looked at; else none.
void Keep(QWidget& window, const char* name);

}
