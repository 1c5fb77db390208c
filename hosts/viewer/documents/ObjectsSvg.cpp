#include "documents/ObjectsSvg.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QTextStream>

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

constexpr double Margin = 8.0;         // px around the bounds, for wide lines and the heads of arrows
constexpr double MarkRadius = 3.0;     // px
constexpr double HeadLength = 12.0;    // px
constexpr double HeadAngle = 0.45;     // from the line to a side of the head

bool IsPanel(const Object& object)
{
    const VostelKind kind = object.kind();
    return kind == VOSTEL_PANEL || kind == VOSTEL_NEIGHBOURS;
}

QString NumberText(double value)
{
    return QString::number(value, 'g', 10);
}

QString PointsText(const Point* first, std::size_t count)
{
    QStringList texts;
    for (std::size_t i = 0; i < count; ++i)
        texts << QStringLiteral("%1,%2").arg(NumberText(first[i].x), NumberText(first[i].y));
    return texts.join(QLatin1Char(' '));
}

QString ColorText(std::uint32_t rgb)
{
    return QStringLiteral("#%1").arg(rgb & 0xFFFFFFU, 6, 16, QLatin1Char('0'));
}

// Where in the points of free strokes each stroke begins.
std::vector<std::size_t> StrokeStarts(const Object& strokes)
{
    const std::string        text = Canvas::number(strokes.canvas()).regions_text({strokes});
    const QJsonObject        file = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    const QJsonValue         object = file.value(QLatin1String("objects")).toArray().at(0);
    std::vector<std::size_t> starts;
    for (const QJsonValue& start : object[QLatin1String("strokes")].toArray())
        starts.push_back(static_cast<std::size_t>(start.toInt()));
    return starts.empty() ? std::vector<std::size_t>{0} : starts;
}

class ObjectDrawing {
public:
    explicit ObjectDrawing(const Object& object)
        : Drawn(object), Look(object.style()), Nodes(object.points()), Text(&Written)
    {
    }

    QString Svg()
    {
        const VostelKind kind = Drawn.kind();
        Text << "<g fill=\"none\" stroke=\"" << ColorText(Look.line_color) << "\" stroke-width=\""
             << NumberText(Look.line_width) << "\">";
        const QString name = QString::fromStdString(Drawn.name());
        if (!name.isEmpty())
            Text << "<title>" << name.toHtmlEscaped() << "</title>";
        if (kind <= VOSTEL_FREE_REGION)
            DrawRegion();
        else if (kind == VOSTEL_POINTS)
            DrawMarks();
        else if (kind == VOSTEL_ANGLE_LINES && Nodes.size() == 4)
            DrawLine(0, 2), DrawLine(2, 2);
        else if (kind == VOSTEL_FREE_STROKES)
            DrawStrokes();
        else if (kind != VOSTEL_TEXT)
            DrawLine(0, Nodes.size());
        if (kind == VOSTEL_ARROW && Nodes.size() == 2)
            DrawHead();
        DrawText();
        Text << "</g>\n";
        return Written;
    }

private:
    const Object&      Drawn;
    Style              Look;
    std::vector<Point> Nodes;
    QString            Written;
    QTextStream        Text;

    void DrawRegion()
    {
        const std::vector<Point> outline = Drawn.outline();
        Text << "<polygon points=\"" << PointsText(outline.data(), outline.size()) << '"';
        if (const std::uint32_t alpha = Look.fill_color >> 24; alpha > 0)
            Text << " fill=\"" << ColorText(Look.fill_color) << "\" fill-opacity=\""
                 << NumberText(alpha / 255.0) << "\" fill-rule=\"evenodd\"";
        Text << "/>";
    }

    void DrawLine(std::size_t first, std::size_t count)
    {
        Text << "<polyline points=\"" << PointsText(Nodes.data() + first, count) << "\"/>";
    }

    void DrawStrokes()
    {
        std::vector<std::size_t> starts = StrokeStarts(Drawn);
        starts.push_back(Nodes.size());
        for (std::size_t i = 0; i + 1 < starts.size(); ++i)
            if (starts[i] < starts[i + 1] && starts[i + 1] <= Nodes.size())
                DrawLine(starts[i], starts[i + 1] - starts[i]);
    }

    void DrawMarks()
    {
        for (const Point& mark : Nodes)
            Text << "<circle cx=\"" << NumberText(mark.x) << "\" cy=\"" << NumberText(mark.y) << "\" r=\""
                 << NumberText(MarkRadius) << "\"/>";
    }

    void DrawHead()
    {
        const double angle = std::atan2(Nodes[1].y - Nodes[0].y, Nodes[1].x - Nodes[0].x);
        Point        head[3];
        for (int side = -1; side <= 1; ++side)
            head[side + 1] = side == 0 ? Nodes[1]
                                       : Point{Nodes[1].x - HeadLength * std::cos(angle + side * HeadAngle),
                                               Nodes[1].y - HeadLength * std::sin(angle + side * HeadAngle)};
        Text << "<polyline points=\"" << PointsText(head, 3) << "\"/>";
    }

    // A text object's text, a measure's caption.
    void DrawText()
    {
        const QString text = QString::fromStdString(Drawn.text());
        if (text.isEmpty() || Nodes.empty())
            return;
        const Point at =
            Drawn.kind() == VOSTEL_TEXT ? Point{Nodes[0].x, Nodes[0].y + Look.text_height} : Nodes.back();
        Text << "<text stroke=\"none\" font-family=\"sans-serif\" fill=\"" << ColorText(Look.line_color)
             << "\" font-size=\"" << NumberText(Look.text_height) << "\" x=\"" << NumberText(at.x)
             << "\" y=\"" << NumberText(at.y) << "\">" << text.toHtmlEscaped() << "</text>";
    }
};

}

QByteArray SvgOf(const std::vector<Object>& objects)
{
    double  left = 0, top = 0, right = 0, bottom = 0;
    QString shapes;
    for (const Object& object : objects) {
        if (IsPanel(object))
            continue;
        const ObjectInfo info = object.info();
        const bool       first = shapes.isEmpty();
        left = first ? info.left : std::min(left, info.left);
        top = first ? info.top : std::min(top, info.top);
        right = first ? info.right : std::max(right, info.right);
        bottom = first ? info.bottom : std::max(bottom, info.bottom);
        shapes += ObjectDrawing(object).Svg();
    }
    const QString box =
        QStringLiteral("%1 %2 %3 %4")
            .arg(NumberText(left - Margin), NumberText(top - Margin), NumberText(right - left + 2 * Margin),
                 NumberText(bottom - top + 2 * Margin));
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"%1\" height=\"%2\" "
               "viewBox=\"%3\">\n%4</svg>\n")
        .arg(NumberText(right - left + 2 * Margin), NumberText(bottom - top + 2 * Margin), box, shapes)
        .toUtf8();
}

}
