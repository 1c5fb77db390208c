#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QPalette>

namespace vostel::viewer {

enum class Theme { System, Light, Dark };

// The colors and the size of text of the whole program, kept in the settings. The system's choice is asked of
// the desktop's portal, and followed when it changes.
class ThemeKeeper : public QObject {
    Q_OBJECT

public:
    explicit ThemeKeeper(QObject* parent = nullptr);

    Theme Chosen() const { return Choice; }
    void  Choose(Theme theme);

    // In steps of about a tenth from the system's size; 0 is that.
    int  TextStep() const { return Step; }
    void SetTextStep(int step);

private Q_SLOTS:
    void OnPortalSetting(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void Apply();

    Theme    Choice;
    int      Step;
    bool     SystemIsDark;
    double   SystemSize;    // points
    QPalette SystemColors;
};

}
