#pragma once

#include <Tessik.h>

#include <QPointer>
#include <QSize>
#include <QString>
#include <QWidget>

#include <optional>

namespace vostel::widget {

// What the library's questions are about while a call that may ask is under way: its records tell neither the
// file that is opened or shown nor the size of the image. Scopes nest; the innermost counts.
class DialogScope {
public:
    explicit DialogScope(QWidget* parent, QSize image = QSize(), const QString& file = QString());
    ~DialogScope();
    DialogScope(const DialogScope&) = delete;
    DialogScope& operator=(const DialogScope&) = delete;

    static QWidget* Parent();    // of the scope, else the active window
    static QSize    Image();     // image px; empty without an image or a scope
    static QString  File();      // opened or shown; may be empty

    std::optional<tagZEKImaLoadPara> RawLayout;    // what the person has answered already

    static DialogScope* Current();    // null without one

private:
    QPointer<QWidget> ParentWidget;
    QSize             ImageSize;
    QString           FilePath;
    DialogScope*      Outer;
};

}
