#pragma once

#include <VostelObj.h>

#include <QBasicTimer>
#include <QPointF>
#include <QSize>
#include <QWidget>

// One canvas of the library as a widget. It gives the canvas its area, paints it, and forwards mouse, wheel,
// key, timer and resize events; the rest of the library's calls stay the program's:
//
//     QApplication application(argc, argv);
//     QMainWindow  window;
//     auto*        canvas = new VostelWidget(0);
//     window.setCentralWidget(canvas);
//     QObject::connect(canvas, &VostelWidget::cursorMoved, &window, [&](QPointF at, float value) {
//         window.statusBar()->showMessage(QString("%1, %2: %3").arg(at.x()).arg(at.y()).arg(value));
//     });
//     window.resize(1000, 700);
//     window.show();
//     canvas->open(argv[1]);
//     gCVSAddPoly(canvas->canvas());    // Shift and clicks draw it
//     canvas->refresh();
//     return application.exec();
//
// The first widget made installs the services that the library asks a host for (messages, file dialogs,
// keys, window) and its three parameter dialogs; a program that installs its own does so afterwards.
//
// Lengths: the canvas counts device pixels, Qt logical ones, so that the image is crisp on every screen.
// Each canvas number belongs to one widget. All calls on the thread of the user interface.
class VostelWidget : public QWidget {
    Q_OBJECT

public:
    // The keys that a canvas acts on; docs/keys.md has each. All others go to the parent widget.
    enum KeyGroup : unsigned int {
        NoKeys = 0,
        DeleteKey = 1 << 0,        // R: the selected object
        DeleteAllKey = 1 << 1,     // C
        PenKeys = 1 << 2,          // A, D: a wider, a narrower pen for the selected free stroke
        EllipseKey = 1 << 3,       // E: all rectangles of the canvas as ellipses, and back
        SliderKeys = 1 << 4,       // Tab switches the contrast slider off and on, X brings it back into sight
        OverwriteKeys = 1 << 5,    // I, T: all text boxes, plots and boxes set by numbers go to one place; T
                                   // also replaces all texts by one
        UsualKeys = DeleteKey | PenKeys | EllipseKey | SliderKeys
    };
    Q_DECLARE_FLAGS(KeyGroups, KeyGroup)

    explicit VostelWidget(int canvas, QWidget* parent = nullptr);
    ~VostelWidget() override;

    int  canvas() const { return Number; }
    HWND handle() const;    // what MSG records and window services know this widget by

    // Shows a picture or, after asking for its layout, a raw file. False if the file cannot be read or the
    // person cancelled, and what was shown stays.
    bool open(const QString& path);

    // After calls that change what the canvas shows: gives new objects their view, paints, and reports a new
    // image or zoom. Without it a new object knows no coordinates until the mouse moves.
    void refresh();

    // Which keys the canvas gets. At first UsualKeys; what the others delete and overwrite all over the
    // canvas cannot be brought back.
    void      setKeys(KeyGroups keys) { Keys = keys; }
    KeyGroups keys() const { return Keys; }

    // Timer events for the canvas; 0 ms stops them.
    void setTickInterval(int milliseconds);

    double  zoom() const;    // device px per image px
    bool    hasImage() const;
    QSize   imageSize() const;                        // image px
    QPointF imagePosition(QPointF position) const;    // widget position to image px
    QPointF widgetPosition(QPointF image) const;      // image px to widget position
    float   valueAt(QPointF position) const;          // as gCVSGetImaPixelValue returns it

    // The widget whose canvas has the focus or had it last; null when there is none.
    static VostelWidget* current();

    QSize sizeHint() const override { return QSize(640, 480); }
    QSize minimumSizeHint() const override { return QSize(120, 90); }

Q_SIGNALS:
    void cursorMoved(QPointF image, float value);    // image px; only over the image
    void cursorLeft();                               // the image or the widget
    void viewChanged(double zoom);
    void viewDragged();               // by the person: zoomed or moved
    void imageChanged(QSize size);    // empty: nothing is shown
    void activated();                 // got the focus
    void painted();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    CPoint CanvasPoint(QPointF position) const;
    void   GiveArea();
    void   ComposeFrame();
    void   ComposeBeforeInput();
    void   ShowChanges();
    void   ReportCursor(QPointF position);
    void   ReportChanges();
    void   ShowCursorFor(Qt::KeyboardModifiers modifiers);

    int         Number;
    QSize       Area;    // device px, as the canvas knows it
    KeyGroups   Keys = UsualKeys;
    QBasicTimer Tick;
    int         WheelRest = 0;        // eighths of a degree that make no full step yet
    bool        FrameIsOld = true;    // something changed since the last frame
    bool        CursorInside = false;
    double      KnownZoom = 0.0;
    QSize       KnownImage;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(VostelWidget::KeyGroups)
