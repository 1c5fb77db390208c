#include "CanvasKeys.h"

#include <QGuiApplication>
#include <QSet>

namespace vostel::widget {

namespace {

constexpr int ShiftKey = 0x10, ControlKey = 0x11, MenuKey = 0x12;

QSet<int>& Held()
{
    static QSet<int> keys;
    return keys;
}

}

int VirtualKey(int qtKey)
{
    // Letters and digits are their own capital character codes on both sides.
    if ((qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9))
        return qtKey;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12)
        return 0x70 + qtKey - Qt::Key_F1;
    switch (qtKey) {
    case Qt::Key_Backspace:
        return 0x08;
    case Qt::Key_Tab:
        return 0x09;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 0x0D;
    case Qt::Key_Escape:
        return 0x1B;
    case Qt::Key_Space:
        return 0x20;
    case Qt::Key_Left:
        return 0x25;
    case Qt::Key_Up:
        return 0x26;
    case Qt::Key_Right:
        return 0x27;
    case Qt::Key_Down:
        return 0x28;
    case Qt::Key_Delete:
        return 0x2E;
    default:
        return 0;
    }
}

void NoteKey(int virtualKey, bool down)
{
    if (virtualKey == 0)
        return;
    if (down)
        Held().insert(virtualKey);
    else
        Held().remove(virtualKey);
}

void ForgetKeys()
{
    Held().clear();
}

bool IsKeyHeld(int virtualKey)
{
    // The toolkit knows the modifiers also while no widget of ours has the focus.
    const Qt::KeyboardModifiers modifiers = QGuiApplication::queryKeyboardModifiers();
    switch (virtualKey) {
    case ShiftKey:
        return modifiers & Qt::ShiftModifier;
    case ControlKey:
        return modifiers & Qt::ControlModifier;
    case MenuKey:
        return modifiers & Qt::AltModifier;
    default:
        return Held().contains(virtualKey);
    }
}

}
