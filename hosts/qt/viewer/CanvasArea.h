#pragma once

#include "CanvasTile.h"

#include <QWidget>

#include <array>

// The five canvases: the current one alone, or all side by side, on a dark desk.
class CanvasArea : public QWidget {
    Q_OBJECT

public:
    static constexpr int Count = 5;

    explicit CanvasArea(QWidget* parent = nullptr);

    int           CurrentNumber() const { return Number; }
    CanvasTile&   Current() const { return *Tiles[static_cast<std::size_t>(Number)]; }
    CanvasTile&   Tile(int number) const { return *Tiles[static_cast<std::size_t>(number)]; }
    VostelWidget& Canvas() const { return *Current().Canvas(); }

    void SetCurrent(int number);
    void SetTiled(bool tiled);
    bool IsTiled() const { return Tiled; }
    int  NumberAt(QPoint position) const;    // the current one where there is no tile

    QSize sizeHint() const override { return QSize(960, 640); }
    QSize minimumSizeHint() const override { return QSize(360, 240); }

Q_SIGNALS:
    void currentChanged(int number);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Arrange();

    std::array<CanvasTile*, Count> Tiles = {};
    int                            Number = 0;
    bool                           Tiled = false;
};
