#pragma once

#include "hosts/viewer/Hand.h"
#include "hosts/viewer/window/ShownWindow.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

// What a person does at the viewer's window beyond the canvas: menus, dialogs, messages.
namespace hand {

// Opens the menu of a command by a click on its title, and clicks on the command.
inline void Choose(vostel::viewer::MainWindow& window, const char* command)
{
    QAction&  wanted = window.Commands().Of(command);
    QMenuBar& bar = *window.menuBar();
    for (QAction* const title : bar.actions()) {
        QMenu& menu = *title->menu();
        if (!menu.actions().contains(&wanted))
            continue;
        Click(bar, bar.actionGeometry(title).center());
        REQUIRE(Wait([&] { return menu.isVisible(); }));
        Click(menu, menu.actionGeometry(&wanted).center());
        return;
    }
    throw std::runtime_error(std::string("no menu holds ") + command);
}

inline QMessageBox* MessageBox(const char* name)
{
    for (QWidget* const top : QApplication::topLevelWidgets())
        if (top->isVisible() && top->objectName() == QLatin1String(name))
            return qobject_cast<QMessageBox*>(top);
    return nullptr;
}

// The message that something failed, which a press of Enter closes; empty when there is none.
inline QString TakeFailure()
{
    Settle();
    QMessageBox* const box = MessageBox("Failure");
    if (!box)
        return {};
    const QString text = box->text();
    Key("Return");
    Wait([] { return MessageBox("Failure") == nullptr; });
    return text;
}

// Whether a text can be read by who reads English only.
inline bool IsEnglish(const QString& text)
{
    return std::none_of(text.begin(), text.end(), [](QChar letter) { return letter.unicode() >= 0x2E80; });
}

}
