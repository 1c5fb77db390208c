#pragma once

#include <VostelObj.h>

class QWidget;

namespace vostel::widget {

// What the library asks of a person, a keyboard or a window, answered with the toolkit's dialogs.
void InstallHostServices();

// Widgets that the window services may name.
HWND WindowHandle(const QWidget* widget);
void RememberWindow(QWidget* widget);
void ForgetWindow(QWidget* widget);

// While one lives, messages wait: a dialog must not open in the middle of a paint.
class PaintScope {
public:
    PaintScope();
    ~PaintScope();
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
};

}
