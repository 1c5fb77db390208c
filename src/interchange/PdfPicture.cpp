#include "interchange/PdfPicture.h"

#include "canvas/view/VectorDrawing.h"
#include "interchange/DeflatedPixels.h"
#include "interchange/NumberText.h"
#include "interchange/PdfText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <set>
#include <utility>
#include <vector>

namespace vostel {

namespace {

// Numbers of the objects, in the order in which the file has them. Those from FontObject on are there if the
// page has text.
enum PdfObject : int {
    CatalogObject = 1,
    PagesObject,
    PageObject,
    ContentObject,
    ImageObject,
    FontObject,
    DescendantObject,
    DescriptorObject,
    FontFileObject,
    GlyphsObject,
    ToUnicodeObject
};

std::string Reference(PdfObject object)
{
    return std::to_string(object) + " 0 R";
}

// Objects one after the other, and the table that tells where each begins.
class PdfFile {
public:
    // The second line says to whoever asks that the file is not text.
    PdfFile() : Bytes("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n") {}

    void Add(const std::string& content)
    {
        Places.push_back(Bytes.size());
        Bytes += std::to_string(Places.size()) + " 0 obj\n" + content + "\nendobj\n";
    }

    // Entries are those of its dictionary, beside the length.
    void AddStream(const std::string& entries, const std::string& stream)
    {
        Add("<< " + entries + " /Length " + std::to_string(stream.size()) + " >>\nstream\n" + stream +
            "\nendstream");
    }

    void AddDeflated(const std::string& entries, std::string_view stream)
    {
        AddStream(entries + " /Filter /FlateDecode", Deflated(stream));
    }

    std::string Finish()
    {
        const std::size_t table = Bytes.size();
        const std::string size = std::to_string(Places.size() + 1);
        Bytes += "xref\n0 " + size + "\n0000000000 65535 f \n";
        for (const std::size_t place : Places) {
            const std::string digits = std::to_string(place);
            Bytes.append(10 - digits.size(), '0').append(digits).append(" 00000 n \n");
        }
        Bytes += "trailer\n<< /Size " + size + " /Root " + Reference(CatalogObject) + " >>\nstartxref\n" +
                 std::to_string(table) + "\n%%EOF\n";
        return std::move(Bytes);
    }

private:
    std::string              Bytes;
    std::vector<std::size_t> Places;
};

// What the page shows, in a space of points that runs down from its upper left corner.
class PageContent {
public:
    std::string            Operators;
    PdfTextFont            Font;
    std::set<unsigned int> Alphas;    // that it sets, 1..254

    void Add(const VectorShape& shape)
    {
        if (shape.Form == VectorForm::Text)
            AddText(shape);
        else if (shape.Fill >> 24 != 0)
            AddFilled(shape);
        else
            AddStroked(shape);
    }

private:
    template <typename... Values>
    void Operate(const char* name, Values... values)
    {
        ((AppendNumber(Operators, values), Operators += ' '), ...);
        Operators += name;
        Operators += '\n';
    }

    void SetColor(const char* name, unsigned int color)
    {
        const auto part = [&](int shift) { return (color >> shift & 0xFF) / 255.0; };
        Operate(name, part(16), part(8), part(0));
    }

    void AddFilled(const VectorShape& shape)
    {
        const unsigned int alpha = shape.Fill >> 24;
        Operate("q");
        if (alpha < 0xFF) {
            Alphas.insert(alpha);
            Operators += "/Alpha" + std::to_string(alpha) + " gs\n";
        }
        SetColor("rg", shape.Fill);
        AddPath(shape);
        Operate("f*");
        Operate("Q");
    }

    void AddStroked(const VectorShape& shape)
    {
        SetColor("RG", shape.Stroke);
        Operate("w", shape.StrokeWidth);
        Operate("J", shape.RoundEnds ? 1.0 : 0.0);
        Operate("j", shape.Form == VectorForm::Rectangle && !shape.RoundEnds ? 0.0 : 1.0);
        Operators += '[';
        if (shape.Dash > 0.0)
            AppendNumber(Operators, shape.Dash, DashDecimals);
        Operators += "] 0 d\n";
        AddPath(shape);
        Operate("S");
    }

    void AddPath(const VectorShape& shape)
    {
        const std::vector<ImagePoint>& points = shape.Points;
        switch (shape.Form) {
        case VectorForm::Rectangle:
            Operate("re", points[0].x, points[0].y, points[1].x - points[0].x, points[1].y - points[0].y);
            return;
        case VectorForm::Ellipse:
            AddEllipse(points[0], points[1]);
            return;
        case VectorForm::Curve:
            Operate("m", points[0].x, points[0].y);
            for (std::size_t i = 0; i + 2 < points.size(); i += 3) {
                const ImagePoint& end = points[(i + 3) % points.size()];
                Operate("c", points[i + 1].x, points[i + 1].y, points[i + 2].x, points[i + 2].y, end.x,
                        end.y);
            }
            Operate("h");
            return;
        default:
            for (std::size_t i = 0; i < points.size(); ++i)
                Operate(i == 0 ? "m" : "l", points[i].x, points[i].y);
            if (shape.Closed)
                Operate("h");
        }
    }

    // As eight curves, which stray from it by less than a hundred-thousandth of its size.
    void AddEllipse(const ImagePoint& low, const ImagePoint& high)
    {
        constexpr int    Curves = 8;
        constexpr double Turn = 2.0 * std::numbers::pi / Curves;
        const double     reach = 4.0 / 3.0 * std::tan(Turn / 4.0);
        const ImagePoint middle((low.x + high.x) / 2, (low.y + high.y) / 2);
        const auto       place = [&](double across, double down) {
            return ImagePoint(middle.x + across * (high.x - low.x) / 2,
                                    middle.y + down * (high.y - low.y) / 2);
        };
        Operate("m", place(1.0, 0.0).x, place(1.0, 0.0).y);
        for (int i = 0; i < Curves; ++i) {
            const double     from = Turn * i, to = Turn * (i + 1);
            const ImagePoint first =
                place(std::cos(from) - reach * std::sin(from), std::sin(from) + reach * std::cos(from));
            const ImagePoint second =
                place(std::cos(to) + reach * std::sin(to), std::sin(to) - reach * std::cos(to));
            const ImagePoint end = place(std::cos(to), std::sin(to));
            Operate("c", first.x, first.y, second.x, second.y, end.x, end.y);
        }
        Operate("h");
    }

    void AddText(const VectorShape& shape)
    {
        Operate("q");
        if (shape.Clip) {
            Operate("re", shape.Clip->left, shape.Clip->top,
                    static_cast<double>(shape.Clip->right) - shape.Clip->left,
                    static_cast<double>(shape.Clip->bottom) - shape.Clip->top);
            Operate("W");
            Operate("n");
        }
        Operate("cm", 1.0, 0.0, 0.0, 1.0, shape.Points[0].x, shape.Points[0].y);
        SetColor("rg", shape.Fill);
        AddGlyphs(shape.Glyphs);
        if (!shape.IsShadow && shape.Sizes.Em > 0.0)
            AddUnseenText(shape);
        Operate("Q");
    }

    void AddGlyphs(const std::vector<PathStep>& glyphs)
    {
        for (const PathStep& step : glyphs) {
            const auto& [a, b, c] = step.Places;
            switch (step.Does) {
            case PathStep::Kind::Move:
                Operate("m", a.X, a.Y);
                break;
            case PathStep::Kind::Line:
                Operate("l", a.X, a.Y);
                break;
            case PathStep::Kind::Curve:
                Operate("c", a.X, a.Y, b.X, b.Y, c.X, c.Y);
                break;
            case PathStep::Kind::Close:
                Operate("h");
                break;
            }
        }
        if (!glyphs.empty())
            Operate("f");
    }

    // As wide as the glyphs, in rendering mode 3, which paints nothing.
    void AddUnseenText(const VectorShape& shape)
    {
        const std::string numbers = Font.NumbersOf(shape.Line);
        const double      width = Font.WidthOf(shape.Line) * shape.Sizes.Em;
        Operate("BT");
        Operators += "/Text ";
        Operate("Tf", shape.Sizes.Em);
        Operate("Tr", 3.0);
        Operate("Tz", width > 0.0 && shape.TextWidth > 0.0 ? 100.0 * shape.TextWidth / width : 100.0);
        Operate("Tm", 1.0, 0.0, 0.0, -1.0, 0.0, 0.0);
        Operators += '<' + numbers + "> Tj\n";
        Operate("ET");
    }
};

std::string SizeText(double width, double height)
{
    std::string text;
    AppendNumbers(text, width, height);
    return text;
}

std::string ResourcesOf(const PageContent& content)
{
    std::string resources = "<< /XObject << /Image " + Reference(ImageObject) + " >>";
    if (!content.Alphas.empty()) {
        resources += " /ExtGState <<";
        for (const unsigned int alpha : content.Alphas) {
            resources += " /Alpha" + std::to_string(alpha) + " << /ca ";
            AppendNumber(resources, alpha / 255.0);
            resources += " >>";
        }
        resources += " >>";
    }
    if (!content.Font.IsEmpty())
        resources += " /Font << /Text " + Reference(FontObject) + " >>";
    return resources + " >>";
}

void AddImage(PdfFile& file, const DeflatedPixels& image, bool smooth)
{
    const std::string width = std::to_string(image.Width);
    file.AddStream("/Type /XObject /Subtype /Image /Width " + width + " /Height " +
                       std::to_string(image.Height) + " /ColorSpace " +
                       (image.Channels == 1 ? "/DeviceGray" : "/DeviceRGB") +
                       " /BitsPerComponent 8 /Interpolate " + (smooth ? "true" : "false") +
                       " /Filter /FlateDecode /DecodeParms << /Predictor 15 /Colors " +
                       std::to_string(image.Channels) + " /BitsPerComponent 8 /Columns " + width + " >>",
                   image.Bytes);
}

void AddFont(PdfFile& file, const PdfTextFont& font)
{
    const std::string trueType = PdfTextFont::TrueTypeFile();
    file.Add("<< /Type /Font /Subtype /Type0 /BaseFont /UnseenText /Encoding /Identity-H /DescendantFonts [" +
             Reference(DescendantObject) + "] /ToUnicode " + Reference(ToUnicodeObject) + " >>");
    file.Add("<< /Type /Font /Subtype /CIDFontType2 /BaseFont /UnseenText "
             "/CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >> /FontDescriptor " +
             Reference(DescriptorObject) + " /DW 1000 /W " + font.Widths() + " /CIDToGIDMap " +
             Reference(GlyphsObject) + " >>");
    file.Add("<< /Type /FontDescriptor /FontName /UnseenText /Flags 4 /FontBBox [0 -200 1000 800] "
             "/ItalicAngle 0 /Ascent 800 /Descent -200 /CapHeight 800 /StemV 80 /FontFile2 " +
             Reference(FontFileObject) + " >>");
    file.AddDeflated("/Length1 " + std::to_string(trueType.size()), trueType);
    file.AddDeflated("", font.GlyphsOfNumbers());
    file.AddDeflated("", font.ToUnicode());
}

}

std::string PdfOf(const VectorDrawing& drawing, const DeflatedPixels& image, double width, double height,
                  bool smooth)
{
    width = std::max(width, 1.0);
    height = std::max(height, 1.0);
    PageContent content;
    content.Operators =
        "q\n" + SizeText(width, 0.0) + " " + SizeText(0.0, height) + " 0 0 cm\n/Image Do\nQ\n1 0 0 -1 0 ";
    AppendNumber(content.Operators, height);
    content.Operators += " cm\n";
    for (const VectorGroup& group : drawing.Groups) {
        for (const VectorShape& shape : group.Shapes)
            content.Add(shape);
    }

    PdfFile file;
    file.Add("<< /Type /Catalog /Pages " + Reference(PagesObject) + " >>");
    file.Add("<< /Type /Pages /Kids [" + Reference(PageObject) + "] /Count 1 >>");
    file.Add("<< /Type /Page /Parent " + Reference(PagesObject) + " /MediaBox [0 0 " +
             SizeText(width, height) + "] /Resources " + ResourcesOf(content) + " /Contents " +
             Reference(ContentObject) + " >>");
    file.AddDeflated("", content.Operators);
    AddImage(file, image, smooth);
    if (!content.Font.IsEmpty())
        AddFont(file, content.Font);
    return file.Finish();
}

}
