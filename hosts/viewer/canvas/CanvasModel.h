#pragma once

#include <QObject>
#include <QString>
#include <vostel.hpp>

#include <cstdint>
#include <optional>
#include <vector>

namespace vostel::viewer {

// A canvas of its own, whose events are signals. Signals come when the outermost call on the canvas is about
// to return, in the order in which things happened; what shows many objects gathers them until the event loop
// turns. Calls that change the canvas belong to the thread of the user interface.
class CanvasModel : public QObject {
    Q_OBJECT

public:
    explicit CanvasModel(QObject* parent = nullptr);

    Canvas&       Open() { return Own; }    // for the calls of the open interface
    const Canvas& Open() const { return Own; }

    // Size and type of the image, without a look at its values; nothing without one.
    std::optional<VostelPlane> Image() const;
    bool                       HasImage() const { return Image().has_value(); }
    std::optional<Object>      SelectedObject() const;    // the only one; nothing for none or several

    // Goes on with a canvas that was made elsewhere, as by a thread that opened a picture on it.
    void Adopt(Canvas&& made);

    // Another canvas in the place of this one, which has no image and no objects, with its area and its
    // language.
    void Take(Canvas made);

    // Runs a change and returns true, or reports why it failed by failed() and returns false.
    template <typename Change>
    bool Try(Change&& change)
    {
        try {
            change(Own);
            return true;
        } catch (const Error& error) {
            Q_EMIT failed(QString::fromStdString(error.message()));
            return false;
        }
    }

Q_SIGNALS:
    void objectAdded(quint64 object);
    void objectChanging(quint64 object);    // by a gesture that goes on
    void objectChanged(quint64 object);     // points, name, label, order, style
    void objectRemoved(quint64 object);
    void selectionChanged();
    void viewChanged();
    void imageChanged();
    void contrastChanged();    // window, gamma, map, marks, also of a region
    void historyChanged();
    void frameStale();
    void failed(const QString& reason);    // of a change that somebody asked for

private:
    Subscription Listen();
    void         Hear(const Event& event);

    Canvas       Own{1, 1};
    Subscription Events = Listen();
};

}
