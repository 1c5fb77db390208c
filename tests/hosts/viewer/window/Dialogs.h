#pragma once

#include "hosts/viewer/window/ShownWindow.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QWindow>

#include <functional>

// A dialog that is on the screen; null when there is none.
inline QDialog* ShownDialog()
{
    for (QWidget* const top : QApplication::topLevelWidgets())
        if (auto* const dialog = qobject_cast<QDialog*>(top); dialog && dialog->isVisible())
            return dialog;
    return nullptr;
}

// Opens every dialog that a command of the menus announces by its dots, one after the other, acts in it and
// closes it again, and returns how many these were. The window wants a picture with a selected line, so that
// all of them apply.
inline int EachDialog(ShownWindow& at, const std::function<void(QDialog&)>& act)
{
    int opened = 0;
    for (QAction* const command : at.Window.Commands().All()) {
        if (!command->text().endsWith(QStringLiteral("...")))
            continue;
        CAPTURE(command->objectName().toStdString());
        CHECK(command->isEnabled());
        bool   seen = false;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            QDialog* const dialog = ShownDialog();
            if (!dialog)
                return;
            look.stop();
            seen = true;
            hand::Wait([&] { return dialog->windowHandle()->isExposed(); });
            act(*dialog);
            dialog->close();
        });
        look.start(20);
        command->trigger();
        CHECK(hand::Wait([&] { return seen && !ShownDialog(); }));
        hand::Settle();
        opened += seen;
    }
    return opened;
}

// A window with two pictures, on the second one a region and a line that is selected, and rulers.
struct FullWindow : ShownWindow {
    explicit FullWindow(const QStringList& files = {Sample(), Sample()}) : ShownWindow(files)
    {
        Open().add_rectangle(40, 20, 90, 60);
        Open().add_length({24, 258}, {86, 258});
        Open().select({Open().object_list()[1]});
        Window.Area().SetRulers(true);
        hand::Settle();
    }
};
