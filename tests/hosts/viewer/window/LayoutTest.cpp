// Nothing is cut off, on small screens and large ones and in both languages. Tests.cmake runs it at several
// densities of the screen as well.

#include "hosts/viewer/window/Dialogs.h"
#include "hosts/viewer/window/Speaking.h"

#include "window/DockSet.h"
#include "window/StatusLine.h"

#include <doctest/doctest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QScrollArea>
#include <QToolBar>

using namespace vostel::viewer;

namespace {

// What a text needs, or an icon alone; a label that breaks its lines needs the height of them all.
QSize Needed(const QWidget& part)
{
    const auto* const label = qobject_cast<const QLabel*>(&part);
    if (label && label->wordWrap())
        return {0, label->heightForWidth(label->width())};
    const auto* const button = qobject_cast<const QAbstractButton*>(&part);
    if (button && button->text().isEmpty())
        return button->iconSize();
    return label || button ? part.sizeHint() : part.minimumSizeHint();
}

// The titles of docks and what brings the rest of a bar are drawn by the style, and the field of a spin box
// is a part of that. The path of a folder is as long as it is.
bool IsDrawnByAnother(const QWidget& part)
{
    return part.inherits("QToolBarExtension") || part.objectName() == QLatin1String("lookInCombo") ||
           part.parentWidget()->inherits("QDockWidget") ||
           part.parentWidget()->inherits("QAbstractSpinBox") || part.parentWidget()->inherits("QComboBox");
}

// Panels behind another tab have no place; they are looked at when they are in front.
bool IsInFront(const QWidget& part)
{
    for (const QWidget* at = &part; at; at = at->parentWidget())
        if (const auto* const dock = qobject_cast<const QDockWidget*>(at))
            return !dock->visibleRegion().isEmpty();
    return true;
}

bool ShowsText(const QWidget& part)
{
    const auto* const label = qobject_cast<const QLabel*>(&part);
    return (label && !label->text().isEmpty() && !qobject_cast<const ShortLabel*>(label)) ||
           qobject_cast<const QAbstractButton*>(&part) || qobject_cast<const QComboBox*>(&part) ||
           part.inherits("QAbstractSpinBox") || part.inherits("QLineEdit");
}

// The area of scrolling that a part lies in, whose bars bring what is not seen.
const QWidget* ScrolledWithin(const QWidget& part)
{
    for (const QWidget* at = part.parentWidget(); at && !at->isWindow(); at = at->parentWidget())
        if (at->inherits("QScrollArea"))
            return at;
    return nullptr;
}

QString Described(const QWidget& part, const char* what)
{
    const auto* const label = qobject_cast<const QLabel*>(&part);
    const auto* const button = qobject_cast<const QAbstractButton*>(&part);
    const QString     text = label ? label->text() : button ? button->text() : part.accessibleName();
    return QStringLiteral("%1 %2 '%3' in %4: %5, %6x%7 of %8x%9")
        .arg(QLatin1String(part.metaObject()->className()), part.objectName(), text,
             QLatin1String(part.parent()->metaObject()->className()), QLatin1String(what))
        .arg(part.width())
        .arg(part.height())
        .arg(Needed(part).width())
        .arg(Needed(part).height());
}

// Every visible part with a text that has less room than this needs, or that lies beyond what holds it.
QString CutOff(const QWidget& window)
{
    QStringList cut;
    for (const QWidget* const part : window.findChildren<QWidget*>()) {
        if (!part->isVisible() || part->window() != &window || !ShowsText(*part) || IsDrawnByAnother(*part) ||
            !IsInFront(*part))
            continue;
        if (part->width() < Needed(*part).width() || part->height() < Needed(*part).height())
            cut << Described(*part, "too small");
        if (ScrolledWithin(*part))
            continue;
        for (const QWidget* at = part; !at->isWindow(); at = at->parentWidget())
            if (!at->parentWidget()->rect().contains(at->geometry())) {
                cut << Described(*part, "beyond what holds it");
                break;
            }
    }
    return cut.join(QLatin1Char('\n'));
}

void CheckWhole(const QWidget& window)
{
    CAPTURE(window.metaObject()->className());
    CHECK(CutOff(window).toStdString() == "");
}

// Sizes of screens, in px of the screen; those that this density leaves less than 800 x 600 layout px of are
// left out.
QList<QSize> Screens(const QWidget& window)
{
    QList<QSize> fitting;
    for (const QSize screen : {QSize(800, 600), QSize(1366, 768), QSize(1920, 1080), QSize(2560, 1440)})
        if (const QSize layout = screen / window.devicePixelRatioF();
            layout.width() >= 800 && layout.height() >= 480)
            fitting << layout;
    return fitting;
}

}

TEST_CASE("the window shows its parts whole on screens of 800 x 600 to 2560 x 1440, in both languages")
{
    for (const char* const language : {"en", "zh_CN"}) {
        CAPTURE(language);
        const Speaking speaking(language);
        FullWindow     at({ShownWindow::Sample(), ShownWindow::Sample()});
        for (const QSize size : Screens(at.Window)) {
            CAPTURE(size.width());
            CAPTURE(size.height());
            at.Window.setGeometry(QRect(QPoint(0, 0), size));
            at.Window.Commands().Of("dock.standard").trigger();
            hand::Settle();
            CHECK(at.Window.size() == size);    // not forced to be larger
            CHECK(at.View().width() >= 250);
            CHECK(at.View().height() >= 110);
            for (const char* const name :
                 {"Histogram", "Objects", "Measures", "Profile", "History", "Overview"}) {
                CAPTURE(name);
                QDockWidget& dock = at.Window.Docks().Of(name);
                dock.raise();
                hand::Settle();
                CHECK_FALSE(dock.visibleRegion().isEmpty());
                CheckWhole(at.Window);
            }
            hand::Keep(at.Window,
                       ("layout-" + std::string(language) + "-" + std::to_string(size.width())).c_str());
        }
    }
}

TEST_CASE("dialogs show their parts whole and lie on a screen of 800 x 600, in both languages")
{
    for (const char* const language : {"en", "zh_CN"}) {
        CAPTURE(language);
        const Speaking speaking(language);
        FullWindow     at;
        EachDialog(at, [&](QDialog& dialog) {
            CheckWhole(dialog);
            CHECK(dialog.minimumSizeHint().width() <= 800);
            CHECK(dialog.minimumSizeHint().height() <= 600);
            hand::Keep(dialog, ("dialog-" + std::string(language) + "-" +
                                dialog.windowTitle().simplified().replace(' ', '-').toStdString())
                                   .c_str());
        });
    }
}
