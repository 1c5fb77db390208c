#include "interchange/SvgPicture.h"

#include "base/Utf8.h"
#include "canvas/view/VectorDrawing.h"
#include "interchange/Base64.h"
#include "interchange/NumberText.h"

#include <cstddef>

namespace vostel {

namespace {

// The caption's own face and what stands in for it where it is missing.
constexpr std::string_view Faces = "'Microsoft YaHei', '微软雅黑', 'Noto Sans CJK SC', 'Noto Sans SC', "
                                   "'Source Han Sans SC', 'WenQuanYi Micro Hei', sans-serif";

// XML has no place for most control characters, nor for U+FFFE and U+FFFF.
std::string Escaped(std::string_view utf8)
{
    std::string text;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const char character = utf8[i];
        const bool isControl = static_cast<unsigned char>(character) < 0x20 && character != '\t' &&
                               character != '\n' && character != '\r';
        if (utf8.substr(i, 3) == "\xEF\xBF\xBE" || utf8.substr(i, 3) == "\xEF\xBF\xBF")
            i += 2;
        else if (character == '&')
            text += "&amp;";
        else if (character == '<')
            text += "&lt;";
        else if (character == '>')
            text += "&gt;";
        else if (character == '"')
            text += "&quot;";
        else if (character == '\r')
            text += "&#13;";    // else it would be read as a line end
        else if (!isControl)
            text += character;
    }
    return text;
}

class SvgWriter {
public:
    explicit SvgWriter(std::string& svg) : Svg(svg) {}

    void Write(const VectorShape& shape)
    {
        switch (shape.Form) {
        case VectorForm::Lines:
            WriteLines(shape);
            break;
        case VectorForm::Rectangle:
            WriteRectangle(shape);
            break;
        case VectorForm::Ellipse:
            WriteEllipse(shape);
            break;
        case VectorForm::Curve:
            WriteCurve(shape);
            break;
        case VectorForm::Text:
            WriteText(shape);
            break;
        }
    }

private:
    std::string& Svg;
    int          Clips = 0;

    void Attribute(std::string_view name, double value, int decimals = 3)
    {
        Svg += ' ';
        Svg += name;
        Svg += "=\"";
        AppendNumber(Svg, value, decimals);
        Svg += '"';
    }

    void Color(std::string_view name, unsigned int color)
    {
        constexpr std::string_view Digits = "0123456789abcdef";
        Svg += ' ';
        Svg += name;
        Svg += "=\"#";
        for (int shift = 20; shift >= 0; shift -= 4)
            Svg += Digits[color >> shift & 0xF];
        Svg += '"';
        if (color >> 24 == 0xFF)
            return;
        Svg += ' ';
        Svg += name;
        Svg += "-opacity=\"";
        AppendNumber(Svg, (color >> 24) / 255.0);
        Svg += '"';
    }

    void Paint(const VectorShape& shape)
    {
        if (shape.Fill >> 24 != 0) {
            Color("fill", shape.Fill);
            if (shape.Form != VectorForm::Rectangle && shape.Form != VectorForm::Ellipse)
                Svg += " fill-rule=\"evenodd\"";
        }
        if (shape.Stroke >> 24 == 0)
            return;
        Color("stroke", shape.Stroke);
        if (shape.StrokeWidth != 1.0)
            Attribute("stroke-width", shape.StrokeWidth);
        if (shape.RoundEnds)
            Svg += " stroke-linecap=\"round\"";
        if (shape.Form == VectorForm::Rectangle && !shape.RoundEnds)
            Svg += " stroke-linejoin=\"miter\"";
        if (shape.Dash > 0.0)
            Attribute("stroke-dasharray", shape.Dash, DashDecimals);
    }

    void Point(const ImagePoint& point, char between = ',')
    {
        AppendNumber(Svg, point.x);
        Svg += between;
        AppendNumber(Svg, point.y);
    }

    void WriteLines(const VectorShape& shape)
    {
        Svg += shape.Closed ? "<polygon points=\"" : "<polyline points=\"";
        for (std::size_t i = 0; i < shape.Points.size(); ++i) {
            if (i > 0)
                Svg += ' ';
            Point(shape.Points[i]);
        }
        Svg += '"';
        Paint(shape);
        Svg += "/>\n";
    }

    void WriteRectangle(const VectorShape& shape)
    {
        Svg += "<rect";
        Attribute("x", shape.Points[0].x);
        Attribute("y", shape.Points[0].y);
        Attribute("width", shape.Points[1].x - shape.Points[0].x);
        Attribute("height", shape.Points[1].y - shape.Points[0].y);
        Paint(shape);
        Svg += "/>\n";
    }

    void WriteEllipse(const VectorShape& shape)
    {
        Svg += "<ellipse";
        Attribute("cx", (shape.Points[0].x + shape.Points[1].x) / 2);
        Attribute("cy", (shape.Points[0].y + shape.Points[1].y) / 2);
        Attribute("rx", (shape.Points[1].x - shape.Points[0].x) / 2);
        Attribute("ry", (shape.Points[1].y - shape.Points[0].y) / 2);
        Paint(shape);
        Svg += "/>\n";
    }

    void WriteCurve(const VectorShape& shape)
    {
        const std::vector<ImagePoint>& points = shape.Points;
        Svg += "<path d=\"M";
        Point(points[0], ' ');
        for (std::size_t i = 0; i + 2 < points.size(); i += 3) {
            Svg += " C";
            Point(points[i + 1]);
            Svg += ' ';
            Point(points[i + 2]);
            Svg += ' ';
            Point(points[(i + 3) % points.size()]);
        }
        Svg += " Z\"";
        Paint(shape);
        Svg += "/>\n";
    }

    void WriteText(const VectorShape& shape)
    {
        std::string clip;
        if (shape.Clip) {
            clip = "clip" + std::to_string(++Clips);
            Svg += "<clipPath id=\"" + clip + "\"><rect";
            Attribute("x", shape.Clip->left);
            Attribute("y", shape.Clip->top);
            Attribute("width", static_cast<double>(shape.Clip->right) - shape.Clip->left);
            Attribute("height", static_cast<double>(shape.Clip->bottom) - shape.Clip->top);
            Svg += "/></clipPath>\n";
        }
        Svg += "<text";
        Attribute("x", shape.Points[0].x);
        Attribute("y", shape.Points[0].y);
        Attribute("font-size", shape.Sizes.Em);
        Color("fill", shape.Fill);
        // Another face than ours fills the same place.
        if (shape.TextWidth > 0.0) {
            Attribute("textLength", shape.TextWidth);
            Svg += " lengthAdjust=\"spacingAndGlyphs\"";
        }
        if (!clip.empty())
            Svg += " clip-path=\"url(#" + clip + ")\"";
        if (shape.IsShadow)
            Svg += " aria-hidden=\"true\"";
        Svg += " xml:space=\"preserve\">";
        Svg += Escaped(Utf8Of(shape.Line));
        Svg += "</text>\n";
    }
};

}

std::string SvgOf(const VectorDrawing& drawing, std::string_view png, bool smooth)
{
    const std::string width = std::to_string(drawing.Width);
    const std::string height = std::to_string(drawing.Height);
    std::string       svg =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
        "version=\"1.1\" width=\"" +
        width + "\" height=\"" + height + "\" viewBox=\"0 0 " + width + " " + height + "\">\n";
    svg += "<image width=\"" + width + "\" height=\"" + height + "\" preserveAspectRatio=\"none\" ";
    // Viewers of SVG 1.1 know the attribute, browsers the style.
    svg += smooth ? "image-rendering=\"auto\""
                  : "image-rendering=\"optimizeSpeed\" style=\"image-rendering:pixelated\"";
    svg += " xlink:href=\"data:image/png;base64," +
           Base64Of({reinterpret_cast<const unsigned char*>(png.data()), png.size()}) + "\"/>\n";
    svg += "<g fill=\"none\" stroke-linejoin=\"round\" font-family=\"";
    svg += Faces;
    svg += "\">\n";
    SvgWriter writer(svg);
    for (const VectorGroup& group : drawing.Groups) {
        svg += "<g>\n";
        if (!group.Name.empty())
            svg += "<title>" + Escaped(group.Name) + "</title>\n";
        for (const VectorShape& shape : group.Shapes)
            writer.Write(shape);
        svg += "</g>\n";
    }
    svg += "</g>\n</svg>\n";
    return svg;
}

}
