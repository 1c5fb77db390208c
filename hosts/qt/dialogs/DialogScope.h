#pragma once

#include <QPointer>
#include <QSize>
#include <QString>
#include <QWidget>

// What the library's questions are about while a call that may ask is under way: its records tell neither the
// file that is being opened nor the size of the image. Scopes nest; the innermost counts.
class DialogScope {
public:
    explicit DialogScope(QWidget* parent, QSize image = QSize(), const QString& file = QString());
    ~DialogScope();
    DialogScope(const DialogScope&) = delete;
    DialogScope& operator=(const DialogScope&) = delete;

    static QWidget* Parent();    // of the scope, else the active window
    static QSize    Image();     // image px; empty without an image or a scope
    static QString  File();      // empty when none is being opened

private:
    QPointer<QWidget> ParentWidget;
    QSize             ImageSize;
    QString           FilePath;
    DialogScope*      Outer;
};
