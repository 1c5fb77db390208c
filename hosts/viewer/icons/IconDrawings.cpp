#include "icons/IconDrawings.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <cmath>
#include <iterator>

namespace vostel::viewer {

namespace {

void UseFill(QPainter& p, const QColor& color)
{
    QColor light = color;
    light.setAlpha(70);
    p.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(light);
}

void UseLine(QPainter& p, const QColor& color, double width = 1.6)
{
    p.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
}

void Handles(QPainter& p, const IconInks& inks, const QPolygonF& points)
{
    p.setPen(Qt::NoPen);
    p.setBrush(inks.Fill);
    for (const QPointF& point : points)
        p.drawEllipse(point, 1.9, 1.9);
}

// The curve of a bell over the columns from left to right, standing on the base line.
QPainterPath Bell(double left, double right, double base, double top)
{
    QPainterPath path(QPointF(left, base));
    const double middle = (left + right) / 2, width = right - left;
    path.cubicTo(middle - width * 0.15, base, middle - width * 0.2, top, middle, top);
    path.cubicTo(middle + width * 0.2, top, middle + width * 0.15, base, right, base);
    return path;
}

void Letter(QPainter& p, QRectF box, int px, const char* text, bool bold = true)
{
    QFont font = p.font();
    font.setPixelSize(px);
    font.setBold(bold);
    p.setFont(font);
    p.drawText(box, Qt::AlignCenter, QLatin1String(text));
}

void Open(QPainter& p, const IconInks& inks)
{
    p.drawPolyline(QPolygonF({{3.5, 18.5}, {3.5, 5.5}, {9, 5.5}, {11, 8}, {18.5, 8}, {18.5, 10.5}}));
    UseFill(p, inks.Fill);
    p.drawPolygon(QPolygonF({{3.5, 19}, {7, 11}, {21.5, 11}, {18, 19}}));
}

void Save(QPainter& p, const IconInks& inks)
{
    p.drawPolygon(QPolygonF({{4, 4}, {17, 4}, {20, 7}, {20, 20}, {4, 20}}));
    p.drawRect(QRectF(8, 4, 7, 5));
    UseFill(p, inks.Fill);
    p.drawRect(QRectF(7.5, 13, 9, 7));
}

void MouseFixed(QPainter& p, const IconInks& inks)
{
    p.drawRoundedRect(QRectF(5, 10.5, 14, 9.5), 2, 2);
    UseLine(p, inks.Line);
    p.drawArc(QRectF(8, 4, 8, 11), 0, 180 * 16);
    p.setPen(Qt::NoPen);
    p.setBrush(inks.Fill);
    p.drawEllipse(QPointF(12, 15.2), 2, 2);
}

void Magnifier(QPainter& p)
{
    p.drawEllipse(QPointF(10.5, 10.5), 6.8, 6.8);
    p.setPen(QPen(p.pen().color(), 2.4, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(15.8, 15.8), QPointF(20.5, 20.5));
}

void MouseCentre(QPainter& p, const IconInks& inks)
{
    Magnifier(p);
    p.setPen(Qt::NoPen);
    p.setBrush(inks.Fill);
    p.drawEllipse(QPointF(10.5, 10.5), 2.6, 2.6);
}

void MouseCursor(QPainter& p, const IconInks& inks)
{
    Magnifier(p);
    p.setPen(Qt::NoPen);
    p.setBrush(inks.Fill);
    p.drawPolygon(
        QPolygonF({{8, 6}, {14.5, 11.4}, {11.5, 11.9}, {12.8, 14.8}, {11.2, 15.5}, {9.9, 12.6}, {8, 14.5}}));
}

void Fast(QPainter& p, const IconInks& inks)
{
    p.setPen(Qt::NoPen);
    p.setBrush(inks.Fill);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            if ((row + column) % 2 == 0)
                p.drawRect(QRectF(4 + column * 5.4, 4 + row * 5.4, 5.4, 5.4));
    UseLine(p, inks.Line);
    p.drawRect(QRectF(4, 4, 16.2, 16.2));
}

void Contrast(QPainter& p, const IconInks& inks)
{
    p.drawLine(QPointF(3, 12), QPointF(21, 12));
    UseFill(p, inks.Fill);
    p.setBrush(inks.Line);
    p.drawRoundedRect(QRectF(6, 7, 4, 10), 1, 1);
    p.setBrush(Qt::white);
    p.drawRoundedRect(QRectF(15, 7, 4, 10), 1, 1);
}

void Fit(QPainter& p, const IconInks& inks)
{
    for (const QPointF& sign : {QPointF(-1, -1), QPointF(1, -1), QPointF(-1, 1), QPointF(1, 1)}) {
        const QPointF corner(12 + sign.x() * 8.5, 12 + sign.y() * 8.5);
        p.drawLine(corner, corner - QPointF(sign.x() * 4.5, 0));
        p.drawLine(corner, corner - QPointF(0, sign.y() * 4.5));
    }
    UseFill(p, inks.Fill);
    p.drawRect(QRectF(7.5, 8.5, 9, 7));
}

void One(QPainter& p, const IconInks& inks)
{
    UseFill(p, inks.Fill);
    p.drawRect(QRectF(4, 5, 16, 14));
}

void Tile(QPainter& p, const IconInks& inks)
{
    for (int column = 0; column < 3; ++column)
        p.drawRect(QRectF(3.5 + column * 6, 5, 5, 6.2));
    UseFill(p, inks.Fill);
    p.drawRect(QRectF(3.5, 12.8, 8, 6.2));
    UseLine(p, inks.Line);
    p.drawRect(QRectF(12.7, 12.8, 7.8, 6.2));
}

void RectangleShape(QPainter& p, const IconInks& inks)
{
    p.drawRect(QRectF(4.5, 6.5, 15, 11));
    Handles(p, inks, QPolygonF(QList<QPointF>{{4.5, 6.5}, {19.5, 17.5}}));
}

void RectangleNumbers(QPainter& p, const IconInks& inks)
{
    p.drawRect(QRectF(3.5, 4.5, 17, 15));
    p.setPen(inks.Fill);
    Letter(p, QRectF(3.5, 4.5, 17, 15), 10, "12");
}

void Polygon(QPainter& p, const IconInks& inks)
{
    const QPolygonF points({{4.5, 10}, {12, 4}, {20, 9.5}, {16.5, 19.5}, {7, 18.5}});
    p.drawPolygon(points);
    Handles(p, inks, points);
}

void Spline(QPainter& p, const IconInks& inks)
{
    QPainterPath path(QPointF(4, 12));
    path.cubicTo(4, 2, 14, 3, 19, 7);
    path.cubicTo(23, 11, 19, 21, 12, 19);
    path.cubicTo(7, 17, 4, 18, 4, 12);
    p.drawPath(path);
    Handles(p, inks, QPolygonF({{4, 12}, {19, 7}, {12, 19}}));
}

void FreeRegion(QPainter& p, const IconInks& inks)
{
    QPainterPath path(QPointF(5, 9));
    path.cubicTo(6, 2, 13, 7, 16, 5);
    path.cubicTo(21, 2, 22, 10, 18, 12);
    path.cubicTo(15, 14, 21, 20, 13, 20);
    path.cubicTo(5, 20, 3.5, 15, 5, 9);
    UseFill(p, inks.Fill);
    p.drawPath(path);
}

void FreeStroke(QPainter& p, const IconInks& inks)
{
    QPainterPath path(QPointF(3.5, 19));
    path.cubicTo(8, 12, 9, 22, 14, 18.5);
    UseLine(p, inks.Fill, 2.2);
    p.drawPath(path);
    UseLine(p, inks.Line);
    p.drawPolygon(QPolygonF({{14, 18.5}, {14.8, 14.8}, {19.5, 4.2}, {22, 5.4}, {17.4, 16}}));
}

void Text(QPainter& p, const IconInks& inks)
{
    p.drawLine(QPointF(5, 6), QPointF(19, 6));
    p.drawLine(QPointF(5, 6), QPointF(5, 8.5));
    p.drawLine(QPointF(19, 6), QPointF(19, 8.5));
    UseLine(p, inks.Fill, 2.2);
    p.drawLine(QPointF(12, 6.5), QPointF(12, 19));
    UseLine(p, inks.Line);
    p.drawLine(QPointF(9.5, 19.5), QPointF(14.5, 19.5));
}

void TextLines(QPainter& p, const IconInks& inks)
{
    p.drawRect(QRectF(3.5, 4.5, 17, 15));
    UseLine(p, inks.Fill, 1.8);
    p.drawLine(QPointF(7, 8.5), QPointF(17, 8.5));
    p.drawLine(QPointF(7, 12), QPointF(15, 12));
    p.drawLine(QPointF(7, 15.5), QPointF(17, 15.5));
}

void Delete(QPainter& p, const IconInks& inks)
{
    UseLine(p, inks.Warning, 2.4);
    p.drawLine(QPointF(6.5, 6.5), QPointF(17.5, 17.5));
    p.drawLine(QPointF(17.5, 6.5), QPointF(6.5, 17.5));
}

void DeleteAll(QPainter& p, const IconInks& inks)
{
    UseLine(p, inks.Warning, 1.7);
    p.drawLine(QPointF(4.5, 6.5), QPointF(19.5, 6.5));
    p.drawPolyline(QPolygonF({{9.5, 6.5}, {9.5, 4}, {14.5, 4}, {14.5, 6.5}}));
    p.drawPolyline(QPolygonF({{6, 6.5}, {7, 20}, {17, 20}, {18, 6.5}}));
    p.drawLine(QPointF(10.3, 10), QPointF(10.5, 16.5));
    p.drawLine(QPointF(13.7, 10), QPointF(13.5, 16.5));
}

void Convolution(QPainter& p, const IconInks& inks)
{
    p.setBrush(inks.Fill);
    p.drawRect(QRectF(9.3, 9.3, 5.4, 5.4));
    UseLine(p, inks.Line, 1.3);
    for (int line = 0; line < 4; ++line) {
        p.drawLine(QPointF(4 + line * 5.33, 4), QPointF(4 + line * 5.33, 20));
        p.drawLine(QPointF(4, 4 + line * 5.33), QPointF(20, 4 + line * 5.33));
    }
}

void Gauss(QPainter& p, const IconInks& inks)
{
    p.setPen(Qt::NoPen);
    QColor ring = inks.Fill;
    for (const double radius : {8.5, 6.2, 4.0, 2.0}) {
        ring.setAlpha(85);
        p.setBrush(ring);
        p.drawEllipse(QPointF(12, 12), radius, radius);
    }
}

void Threshold(QPainter& p, const IconInks& inks)
{
    p.drawPolyline(QPolygonF({{3.5, 18.5}, {11, 18.5}, {11, 5.5}, {20.5, 5.5}}));
    p.setPen(QPen(inks.Fill, 1.4, Qt::DashLine, Qt::RoundCap));
    p.drawLine(QPointF(3.5, 12), QPointF(20.5, 12));
}

void Resize(QPainter& p, const IconInks& inks)
{
    UseFill(p, inks.Fill);
    p.drawRect(QRectF(4, 12, 8, 8));
    UseLine(p, inks.Line);
    p.drawPolyline(QPolygonF({{4, 8.5}, {4, 4}, {20, 4}, {20, 20}, {15.5, 20}}));
    p.drawLine(QPointF(12.5, 11.5), QPointF(17, 7));
    p.drawPolyline(QPolygonF({{13.2, 7}, {17, 7}, {17, 10.8}}));
}

void Fourier(QPainter& p, const IconInks& inks)
{
    p.drawLine(QPointF(3.5, 20), QPointF(20.5, 20));
    UseLine(p, inks.Fill, 2.2);
    const double heights[] = {4, 7, 15, 7, 4};
    for (int i = 0; i < 5; ++i)
        p.drawLine(QPointF(5 + i * 3.5, 18), QPointF(5 + i * 3.5, 19.5 - heights[i]));
}

void Ramp(QPainter& p, const IconInks& inks)
{
    UseLine(p, inks.Fill, 2.0);
    p.drawPolyline(QPolygonF({{4.5, 6}, {12, 18}, {19.5, 6}}));
    UseLine(p, inks.Line);
    p.drawLine(QPointF(3.5, 20), QPointF(20.5, 20));
}

void Join(QPainter& p, const IconInks& inks)
{
    p.drawRect(QRectF(3, 7, 11, 10));
    UseFill(p, inks.Fill);
    p.drawRect(QRectF(10, 7, 11, 10));
}

void Matrix(QPainter& p, const IconInks& inks)
{
    p.drawPolyline(QPolygonF({{7, 4}, {4, 4}, {4, 20}, {7, 20}}));
    p.drawPolyline(QPolygonF({{17, 4}, {20, 4}, {20, 20}, {17, 20}}));
    p.setPen(Qt::NoPen);
    p.setBrush(inks.Fill);
    for (const double y : {7.5, 12.0, 16.5})
        for (const double x : {9.0, 15.0})
            p.drawEllipse(QPointF(x, y), 1.5, 1.5);
}

void Labels(QPainter& p, const IconInks& inks)
{
    UseFill(p, inks.Fill);
    p.drawEllipse(QPointF(8.5, 9), 5.2, 5.2);
    UseFill(p, inks.Warning);
    p.drawRect(QRectF(12.5, 11.5, 8, 8));
}

void Fill(QPainter& p, const IconInks& inks)
{
    p.setBrush(inks.Fill);
    p.drawPolygon(QPolygonF({{12, 3.5}, {20.5, 10}, {17, 20}, {7, 20}, {3.5, 10}}));
}

void GaussCurve(QPainter& p, const IconInks& inks)
{
    UseLine(p, inks.Fill, 2.0);
    p.drawPath(Bell(3.5, 20.5, 18, 5));
    UseLine(p, inks.Line);
    p.drawLine(QPointF(3.5, 20.5), QPointF(20.5, 20.5));
}

void GaussKernel(QPainter& p, const IconInks& inks)
{
    p.drawRect(QRectF(3.5, 3.5, 17, 17));
    p.translate(12, 12);
    p.rotate(-30);
    p.setPen(Qt::NoPen);
    QColor ring = inks.Fill;
    ring.setAlpha(110);
    p.setBrush(ring);
    for (const double size : {1.0, 0.6, 0.3})
        p.drawEllipse(QPointF(0, 0), 7.5 * size, 4.2 * size);
}

void RampKernel(QPainter& p, const IconInks& inks)
{
    p.drawLine(QPointF(3.5, 15), QPointF(20.5, 15));
    UseLine(p, inks.Fill, 2.0);
    p.drawLine(QPointF(12, 15), QPointF(12, 4));
    for (const double away : {3.0, 7.0}) {
        p.drawLine(QPointF(12 - away, 15), QPointF(12 - away, away < 4 ? 20 : 17));
        p.drawLine(QPointF(12 + away, 15), QPointF(12 + away, away < 4 ? 20 : 17));
    }
}

void Cancel(QPainter& p, const IconInks& inks)
{
    UseFill(p, inks.Warning);
    p.drawPolygon(QPolygonF({{8.5, 3.5},
                             {15.5, 3.5},
                             {20.5, 8.5},
                             {20.5, 15.5},
                             {15.5, 20.5},
                             {8.5, 20.5},
                             {3.5, 15.5},
                             {3.5, 8.5}}));
    p.drawLine(QPointF(9, 9), QPointF(15, 15));
    p.drawLine(QPointF(15, 9), QPointF(9, 15));
}

void Undo(QPainter& p, const IconInks& inks)
{
    UseLine(p, inks.Fill, 2.0);
    QPainterPath path(QPointF(5, 9));
    path.lineTo(14, 9);
    path.cubicTo(21, 9, 21, 19, 14, 19);
    path.lineTo(8, 19);
    p.drawPath(path);
    p.drawPolyline(QPolygonF({{9, 4.5}, {4.5, 9}, {9, 13.5}}));
}

void Profile(QPainter& p, const IconInks& inks)
{
    p.drawPolyline(QPolygonF({{4, 4}, {4, 20}, {20.5, 20}}));
    UseLine(p, inks.Fill, 1.8);
    p.drawPolyline(QPolygonF({{6, 16}, {9, 13}, {11, 15}, {14, 6}, {16.5, 11}, {20, 9}}));
}

void Info(QPainter& p, const IconInks& inks)
{
    p.drawRoundedRect(QRectF(3.5, 4.5, 17, 15), 2, 2);
    p.setPen(QPen(inks.Fill, 2.2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(12, 11.5), QPointF(12, 16));
    p.drawPoint(QPointF(12, 8));
}

void Neighbours(QPainter& p, const IconInks& inks)
{
    p.setPen(Qt::NoPen);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) {
            QColor shade = inks.Fill;
            shade.setAlpha(60 + (row * 53 + column * 91) % 190);
            p.setBrush(shade);
            p.drawRect(QRectF(4 + column * 4.1, 4 + row * 4.1, 3.4, 3.4));
        }
}

void Length(QPainter& p, const IconInks& inks)
{
    p.drawLine(QPointF(3.8, 5), QPointF(3.8, 12));
    p.drawLine(QPointF(20.2, 5), QPointF(20.2, 12));
    UseLine(p, inks.Fill, 1.8);
    p.drawLine(QPointF(4.5, 8.5), QPointF(19.5, 8.5));
    UseLine(p, inks.Line, 1.3);
    p.drawRect(QRectF(3.8, 14.5, 16.4, 5.5));
    for (const double x : {7.0, 10.3, 13.6, 16.9})
        p.drawLine(QPointF(x, 14.5), QPointF(x, 17));
}

void Angle3(QPainter& p, const IconInks& inks)
{
    p.drawPolyline(QPolygonF({{17, 4.5}, {5, 18.5}, {20, 18.5}}));
    UseLine(p, inks.Fill, 1.8);
    p.drawArc(QRectF(-3.5, 10, 17, 17), 0, 49 * 16);
    Handles(p, inks, QPolygonF({{17, 4.5}, {5, 18.5}, {20, 18.5}}));
}

void Angle4(QPainter& p, const IconInks& inks)
{
    p.drawLine(QPointF(4, 19), QPointF(13, 6));
    p.drawLine(QPointF(11, 19), QPointF(20.5, 10));
    Handles(p, inks, QPolygonF({{4, 19}, {13, 6}, {11, 19}, {20.5, 10}}));
}

void Scale(QPainter& p, const IconInks& inks)
{
    p.drawPolyline(QPolygonF({{4, 14}, {4, 18}, {20, 18}, {20, 14}}));
    p.setPen(inks.Fill);
    Letter(p, QRectF(0, 3, 24, 12), 9, "1 : n");
}

void Help(QPainter& p, const IconInks& inks)
{
    p.drawEllipse(QPointF(12, 12), 8.5, 8.5);
    p.setPen(inks.Fill);
    Letter(p, QRectF(0, 0, 24, 24), 13, "?");
}

void Select(QPainter& p, const IconInks& inks)
{
    UseFill(p, inks.Fill);
    p.drawPolygon(QPolygonF({{6, 3}, {6, 19}, {10, 15}, {13, 21}, {15.5, 19.8}, {12.6, 14}, {18, 13.6}}));
}

void Ellipse(QPainter& p, const IconInks& inks)
{
    p.drawEllipse(QPointF(12, 12), 8.5, 6.0);
    Handles(p, inks, {{3.5, 6}, {20.5, 18}});
}

void Polyline(QPainter& p, const IconInks& inks)
{
    const QPolygonF line = {{3.5, 18}, {9, 7}, {14, 15}, {20.5, 5}};
    p.drawPolyline(line);
    Handles(p, inks, line);
}

void ArrowShape(QPainter& p, const IconInks& inks)
{
    p.drawLine(QPointF(4, 20), QPointF(18, 6));
    UseFill(p, inks.Fill);
    p.drawPolygon(QPolygonF({{20.5, 3.5}, {18.6, 11}, {13, 5.4}}));
}

void Count(QPainter& p, const IconInks& inks)
{
    for (const QPointF at : {QPointF(6, 8), QPointF(16, 6), QPointF(10, 16)}) {
        p.drawLine(at - QPointF(3, 0), at + QPointF(3, 0));
        p.drawLine(at - QPointF(0, 3), at + QPointF(0, 3));
    }
    p.setPen(inks.Fill);
    Letter(p, QRectF(14, 12, 10, 12), 10, "3");
}

void Redo(QPainter& p, const IconInks& inks)
{
    p.translate(IconSide, 0);
    p.scale(-1, 1);
    Undo(p, inks);
}

void ZoomIn(QPainter& p, const IconInks& inks)
{
    Magnifier(p);
    UseLine(p, inks.Fill, 2.0);
    p.drawLine(QPointF(7, 10), QPointF(13, 10));
    p.drawLine(QPointF(10, 7), QPointF(10, 13));
}

void ZoomOut(QPainter& p, const IconInks& inks)
{
    Magnifier(p);
    UseLine(p, inks.Fill, 2.0);
    p.drawLine(QPointF(7, 10), QPointF(13, 10));
}

void ZoomBox(QPainter& p, const IconInks& inks)
{
    p.save();
    UseLine(p, inks.Fill, 1.4);
    p.drawRect(QRectF(2.5, 2.5, 13, 10));
    p.restore();
    p.drawEllipse(QPointF(13.5, 13.5), 5.0, 5.0);
    p.drawLine(QPointF(17.2, 17.2), QPointF(21.5, 21.5));
}

struct NamedDrawing {
    const char* Name;
    IconDrawing Drawing;
};

constexpr NamedDrawing Drawings[] = {{"open", Open},
                                     {"save", Save},
                                     {"mouse-fixed", MouseFixed},
                                     {"mouse-centre", MouseCentre},
                                     {"mouse-cursor", MouseCursor},
                                     {"fast", Fast},
                                     {"contrast", Contrast},
                                     {"fit", Fit},
                                     {"one", One},
                                     {"tile", Tile},
                                     {"rectangle", RectangleShape},
                                     {"rectangle-numbers", RectangleNumbers},
                                     {"polygon", Polygon},
                                     {"spline", Spline},
                                     {"free-region", FreeRegion},
                                     {"free-stroke", FreeStroke},
                                     {"text", Text},
                                     {"text-lines", TextLines},
                                     {"delete", Delete},
                                     {"delete-all", DeleteAll},
                                     {"convolution", Convolution},
                                     {"gauss", Gauss},
                                     {"threshold", Threshold},
                                     {"resize", Resize},
                                     {"fourier", Fourier},
                                     {"ramp", Ramp},
                                     {"join", Join},
                                     {"matrix", Matrix},
                                     {"labels", Labels},
                                     {"fill", Fill},
                                     {"gauss-curve", GaussCurve},
                                     {"gauss-kernel", GaussKernel},
                                     {"ramp-kernel", RampKernel},
                                     {"cancel", Cancel},
                                     {"undo", Undo},
                                     {"profile", Profile},
                                     {"info", Info},
                                     {"neighbours", Neighbours},
                                     {"length", Length},
                                     {"angle3", Angle3},
                                     {"angle4", Angle4},
                                     {"scale", Scale},
                                     {"help", Help},
                                     {"file.open", Open},
                                     {"file.save", Save},
                                     {"edit.undo", Undo},
                                     {"edit.redo", Redo},
                                     {"edit.delete", Delete},
                                     {"view.fit", Fit},
                                     {"view.actual", One},
                                     {"view.zoomIn", ZoomIn},
                                     {"view.zoomOut", ZoomOut},
                                     {"view.zoomBox", ZoomBox},
                                     {"draw.select", Select},
                                     {"draw.rectangle", RectangleShape},
                                     {"draw.ellipse", Ellipse},
                                     {"draw.polygon", Polygon},
                                     {"draw.spline", Spline},
                                     {"draw.freeRegion", FreeRegion},
                                     {"draw.strokes", FreeStroke},
                                     {"draw.polyline", Polyline},
                                     {"draw.arrow", ArrowShape},
                                     {"draw.text", Text},
                                     {"measure.length", Length},
                                     {"measure.angle", Angle3},
                                     {"measure.angleOfLines", Angle4},
                                     {"measure.profile", Profile},
                                     {"measure.points", Count},
                                     {"measure.panel", Info},
                                     {"measure.neighbours", Neighbours},
                                     {"measure.calibrate", Scale},
                                     {"window.tiles", Tile},
                                     {"help.keys", Help}};

}

IconDrawing FindIconDrawing(QLatin1String name)
{
    for (const NamedDrawing& drawing : Drawings)
        if (name == QLatin1String(drawing.Name))
            return drawing.Drawing;
    return nullptr;
}

}
