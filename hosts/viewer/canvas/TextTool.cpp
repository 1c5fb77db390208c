#include "canvas/TextTool.h"

#include "canvas/CanvasView.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <functional>

namespace vostel::viewer {

namespace {

// A field over the canvas: Enter and leaving it take the text, Esc does not.
class TextField : public QLineEdit {
public:
    TextField(CanvasView& view, QPointF at, const QString& text, std::function<void(const QString&)> take)
        : QLineEdit(text, &view), View(view), Take(std::move(take))
    {
        setObjectName(QStringLiteral("TextField"));
        setAccessibleName(CanvasView::tr("Text"));
        setAttribute(Qt::WA_DeleteOnClose);
        const int wide = std::min(std::max(160, fontMetrics().horizontalAdvance(text) + 40), view.width());
        const int left = std::min(qRound(at.x()), view.width() - wide);
        setGeometry(left, std::min(qRound(at.y()), view.height() - sizeHint().height()), wide,
                    sizeHint().height());
        connect(this, &QLineEdit::editingFinished, this, [this] { End(true); });
        show();
        setFocus();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Escape)
            End(false);
        else
            QLineEdit::keyPressEvent(event);
    }

private:
    void End(bool take)
    {
        const std::function<void(const QString&)> took = std::exchange(Take, nullptr);
        if (!took)
            return;
        if (take && !this->text().trimmed().isEmpty())
            took(this->text());
        close();
        View.setFocus();
    }

    CanvasView&                         View;
    std::function<void(const QString&)> Take;
};

}

void TextTool::Press(const Pointer& at)
{
    const Point where = at.Image;
    new TextField(View, View.PositionOf(where), QString(), [&view = View, where](const QString& text) {
        view.Model().Try([&](Canvas& canvas) {
            const Step one = canvas.step("");
            Object     added = canvas.add_text(where, text.toStdString());
            view.Dress(added);
        });
    });
}

QString TextTool::Hint() const
{
    return tr("Click where the text is to stand, type, Enter; Esc puts the tool away");
}

void EditText(CanvasView& view, const Object& text)
{
    const ObjectInfo info = text.info();
    if ((info.flags & VOSTEL_LOCKED) != 0)
        return;
    new TextField(view, view.PositionOf({info.left, info.top}), QString::fromStdString(text.text()),
                  [&view, text](const QString& typed) {
                      view.Model().Try([&](Canvas& canvas) {
                          const Step one = canvas.step("Change text");
                          canvas.object_set_text(text, typed.toStdString());
                      });
                  });
}

}
