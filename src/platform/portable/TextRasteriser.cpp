#include "platform/portable/TextRasteriser.h"

#include "base/Truncate.h"
#include "base/Utf8.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <tuple>
#include <unordered_map>

namespace vostel::gdi {
namespace {

constexpr int         DefaultHeight = 16;    // of CreateFontW's height 0: twelve points on a desktop
constexpr int         MaxHeight = 2000;      // taller cells are drawn this tall: they leave every screen
constexpr double      ProbeSize = 1024.0;    // em at which the proportions of a face are read
constexpr std::size_t FontBudget = 64;
constexpr std::size_t PieceBudget = 4u << 20;    // bytes kept over all pieces

struct Release {
    void operator()(PangoFontDescription* p) const { pango_font_description_free(p); }
    void operator()(PangoFontMetrics* p) const { pango_font_metrics_unref(p); }
    void operator()(PangoAttrList* p) const { pango_attr_list_unref(p); }
    void operator()(cairo_font_options_t* p) const { cairo_font_options_destroy(p); }
    void operator()(cairo_surface_t* p) const { cairo_surface_destroy(p); }
    void operator()(cairo_t* p) const { cairo_destroy(p); }
    void operator()(cairo_path_t* p) const { cairo_path_destroy(p); }
    template <typename Object>
    void operator()(Object* p) const
    {
        g_object_unref(p);
    }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Release>;

// Of one line: nothing in it may end that.
std::string LineOf(std::wstring_view text)
{
    std::string utf8;
    utf8.reserve(text.size() * 3);
    for (const wchar_t character : text) {
        const std::uint32_t code = static_cast<std::uint32_t>(character);
        const bool breaks = code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029;
        AppendUtf8(utf8, breaks ? U' ' : code);
    }
    return utf8;
}

// The wanted face first. The desktop's own faces are seldom here; what stands in has to bring Chinese
// glyphs for the first of them and looks plain for the others.
std::string FamilyList(const std::wstring& face)
{
    std::string list;
    if (!face.empty() && face.find(L',') == std::wstring::npos)
        list = LineOf(face) + ",";
    const bool plain = face.empty() || face == L"System" || face == L"Tahoma" || face == L"MS Shell Dlg";
    if (plain)
        list += "DejaVu Sans,";
    return list + "Noto Sans CJK SC,Noto Sans SC,Source Han Sans SC,WenQuanYi Micro Hei,sans-serif";
}

// A face as CreateFontW asked for it; its number is part of the keys of pieces.
struct Face {
    unsigned                    Number = 0;
    Owned<PangoFontDescription> Description;
    TextMetrics                 Metrics;
};

struct PieceKeyView {
    unsigned          FaceNumber;
    std::wstring_view Text;
};
struct PieceKey {
    unsigned     FaceNumber;
    std::wstring Text;
                 operator PieceKeyView() const { return {FaceNumber, Text}; }
};
struct PieceHash {
    using is_transparent = void;
    std::size_t operator()(PieceKeyView key) const
    {
        return std::hash<std::wstring_view>()(key.Text) ^ key.FaceNumber * 0x9E3779B97F4A7C15u;
    }
};
struct PieceEqual {
    using is_transparent = void;
    bool operator()(PieceKeyView a, PieceKeyView b) const
    {
        return a.FaceNumber == b.FaceNumber && a.Text == b.Text;
    }
};

struct Piece;
using PieceMap = std::unordered_map<PieceKey, Piece, PieceHash, PieceEqual>;
struct Piece {
    int                                        Advance = 0;
    std::size_t                                Bytes = 0;
    std::shared_ptr<const TextImage>           Image;    // null until it is first drawn
    std::list<PieceMap::value_type*>::iterator Age;
};

void Append(const cairo_path_t& from, double x, std::vector<PathStep>& to)
{
    for (int i = 0; i < from.num_data; i += from.data[i].header.length) {
        const cairo_path_data_t* const data = &from.data[i];
        PathStep                       step;
        for (int place = 1; place < data->header.length; ++place)
            step.Places[static_cast<std::size_t>(place - 1)] = {data[place].point.x + x, data[place].point.y};
        switch (data->header.type) {
        case CAIRO_PATH_MOVE_TO:
            step.Does = PathStep::Kind::Move;
            break;
        case CAIRO_PATH_LINE_TO:
            step.Does = PathStep::Kind::Line;
            break;
        case CAIRO_PATH_CURVE_TO:
            step.Does = PathStep::Kind::Curve;
            break;
        case CAIRO_PATH_CLOSE_PATH:
            break;
        }
        to.push_back(step);
    }
}

}

struct TextRasteriser::State {
    std::mutex           Guard;
    Owned<PangoFontMap>  Map;
    Owned<PangoContext>  Context;
    Owned<PangoLayout>   Layout;
    Owned<PangoAttrList> Attributes;

    std::map<std::tuple<int, int, bool, std::wstring>, Face> Faces;
    unsigned                                                 NextFace = 1;

    PieceMap                         Pieces;
    std::list<PieceMap::value_type*> Ages;    // last used first
    std::size_t                      Bytes = 0;

    Face&                            FaceOf(const Font& font);
    Piece&                           PieceOf(const Face& face, std::wstring_view text);
    void                             Fill(const Face& face, std::wstring_view text);
    void                             Trim(const Piece* kept);
    std::shared_ptr<const TextImage> Draw();
};

TextRasteriser& TextRasteriser::Shared()
{
    static TextRasteriser shared;
    return shared;
}

TextRasteriser::TextRasteriser() : Held(std::make_unique<State>())
{
    // A map of our own: the libraries' default one belongs to the host.
    Held->Map.reset(pango_cairo_font_map_new());
    Held->Context.reset(pango_font_map_create_context(Held->Map.get()));
    // Whole pixel advances and gray edges whatever the desktop prefers, so that output does not depend on it.
    const Owned<cairo_font_options_t> options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_ON);
    pango_cairo_context_set_font_options(Held->Context.get(), options.get());
    pango_context_set_language(Held->Context.get(), pango_language_from_string("zh-cn"));
    pango_context_set_base_dir(Held->Context.get(), PANGO_DIRECTION_LTR);

    // Without kerning and ligatures a text is as wide as its parts, as it is in GDI, and may be cut anywhere.
    Held->Attributes.reset(pango_attr_list_new());
    pango_attr_list_insert(Held->Attributes.get(),
                           pango_attr_font_features_new("kern=0,liga=0,clig=0,calt=0"));
    Held->Layout.reset(pango_layout_new(Held->Context.get()));
    pango_layout_set_attributes(Held->Layout.get(), Held->Attributes.get());
    pango_layout_set_auto_dir(Held->Layout.get(), FALSE);
    pango_layout_set_single_paragraph_mode(Held->Layout.get(), TRUE);
}

TextRasteriser::~TextRasteriser() = default;

// A positive height is that of the cell, a negative one that of the em square inside it.
Face& TextRasteriser::State::FaceOf(const Font& font)
{
    const int  height = std::clamp(font.Height == 0 ? DefaultHeight : font.Height, -MaxHeight, MaxHeight);
    auto       key = std::make_tuple(height, font.Weight, font.Italic, font.Face);
    const auto known = Faces.find(key);
    if (known != Faces.end())
        return known->second;
    if (Faces.size() >= FontBudget)
        Faces.clear();    // numbers are never used twice, so old pieces are found no more and age out

    Face face;
    face.Number = NextFace++;
    face.Description.reset(pango_font_description_new());
    PangoFontDescription* description = face.Description.get();
    pango_font_description_set_family(description, FamilyList(font.Face).c_str());
    pango_font_description_set_weight(description,
                                      static_cast<PangoWeight>(std::clamp(font.Weight, 1, 1000)));
    pango_font_description_set_style(description, font.Italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_font_description_set_absolute_size(description, ProbeSize * PANGO_SCALE);

    double ascent = 0.8 * ProbeSize, descent = 0.2 * ProbeSize;
    if (const Owned<PangoFont> loaded{pango_context_load_font(Context.get(), description)}) {
        const Owned<PangoFontMetrics> metrics(pango_font_get_metrics(loaded.get(), nullptr));
        const double                  up = pango_font_metrics_get_ascent(metrics.get());
        const double                  down = pango_font_metrics_get_descent(metrics.get());
        if (up > 0.0 && down >= 0.0) {
            ascent = up / PANGO_SCALE;
            descent = down / PANGO_SCALE;
        }
    }
    const double cellPerEm = (ascent + descent) / ProbeSize;
    const double em = height > 0 ? height / cellPerEm : -height;
    face.Metrics.Height = height > 0 ? height : std::max(1, TruncToInt(em * cellPerEm + 0.5));
    face.Metrics.Em = em;
    face.Metrics.Ascent = TruncToInt(face.Metrics.Height * (ascent / (ascent + descent)) + 0.5);
    face.Metrics.PieceLength = static_cast<std::size_t>(std::clamp(4096 / face.Metrics.Height, 1, 128));
    pango_font_description_set_absolute_size(description, em * PANGO_SCALE);
    return Faces.emplace(std::move(key), std::move(face)).first->second;
}

void TextRasteriser::State::Fill(const Face& face, std::wstring_view text)
{
    const std::string utf8 = LineOf(text);
    pango_layout_set_font_description(Layout.get(), face.Description.get());
    pango_layout_set_text(Layout.get(), utf8.data(), static_cast<int>(utf8.size()));
}

void TextRasteriser::State::Trim(const Piece* kept)
{
    while (Bytes > PieceBudget && !Ages.empty() && &Ages.back()->second != kept) {
        PieceMap::value_type* oldest = Ages.back();
        Bytes -= oldest->second.Bytes;
        Ages.pop_back();
        Pieces.erase(Pieces.find(oldest->first));
    }
}

Piece& TextRasteriser::State::PieceOf(const Face& face, std::wstring_view text)
{
    const auto known = Pieces.find(PieceKeyView{face.Number, text});
    if (known != Pieces.end()) {
        Ages.splice(Ages.begin(), Ages, known->second.Age);
        return known->second;
    }
    Fill(face, text);
    int width = 0;
    pango_layout_get_pixel_size(Layout.get(), &width, nullptr);

    Ages.push_front(nullptr);
    PieceMap::iterator added;
    try {
        added = Pieces.emplace(PieceKey{face.Number, std::wstring(text)}, Piece()).first;
    } catch (...) {
        Ages.pop_front();
        throw;
    }
    Ages.front() = &*added;
    Piece& piece = added->second;
    piece.Advance = std::max(0, width);
    piece.Age = Ages.begin();
    piece.Bytes = 256 + text.size() * sizeof(wchar_t);    // nodes and records, roughly
    Bytes += piece.Bytes;
    Trim(&piece);
    return piece;
}

// Draws what the layout holds.
std::shared_ptr<const TextImage> TextRasteriser::State::Draw()
{
    auto             image = std::make_shared<TextImage>();
    PangoLayoutLine* line = pango_layout_get_line_readonly(Layout.get(), 0);
    if (!line)
        return image;
    PangoRectangle ink;
    pango_layout_line_get_pixel_extents(line, &ink, nullptr);
    if (ink.width <= 0 || ink.height <= 0 || ink.width > 32000 || ink.height > 32000)
        return image;
    const Owned<cairo_surface_t> surface(cairo_image_surface_create(CAIRO_FORMAT_A8, ink.width, ink.height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
        return image;
    {
        const Owned<cairo_t> context(cairo_create(surface.get()));
        cairo_move_to(context.get(), -ink.x, -ink.y);
        pango_cairo_show_layout_line(context.get(), line);
    }
    cairo_surface_flush(surface.get());
    const unsigned char* row = cairo_image_surface_get_data(surface.get());
    const int            stride = cairo_image_surface_get_stride(surface.get());
    if (!row)
        return image;
    image->Coverage.resize(static_cast<std::size_t>(ink.width) * static_cast<std::size_t>(ink.height));
    for (int y = 0; y < ink.height; ++y, row += stride)
        std::copy(row, row + ink.width,
                  image->Coverage.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(ink.width));
    image->Left = ink.x;
    image->Top = ink.y;
    image->Width = ink.width;
    image->Height = ink.height;
    return image;
}

TextMetrics TextRasteriser::Metrics(const Font& font)
{
    const std::lock_guard lock(Held->Guard);
    return Held->FaceOf(font).Metrics;
}

int TextRasteriser::Advance(const Font& font, std::wstring_view piece)
{
    const std::lock_guard lock(Held->Guard);
    return Held->PieceOf(Held->FaceOf(font), piece).Advance;
}

std::shared_ptr<const TextImage> TextRasteriser::Image(const Font& font, std::wstring_view text)
{
    const std::lock_guard lock(Held->Guard);
    const Face&           face = Held->FaceOf(font);
    Piece&                piece = Held->PieceOf(face, text);
    if (piece.Image)
        return piece.Image;
    Held->Fill(face, text);
    std::shared_ptr<const TextImage> image = Held->Draw();
    // A piece as large as the whole budget would only push everything else out.
    if (image->Coverage.size() <= PieceBudget / 4) {
        piece.Image = image;
        piece.Bytes += image->Coverage.size();
        Held->Bytes += image->Coverage.size();
        Held->Trim(&piece);
    }
    return image;
}

void TextRasteriser::AppendPath(const Font& font, std::wstring_view piece, double x,
                                std::vector<PathStep>& path)
{
    const std::lock_guard lock(Held->Guard);
    Held->Fill(Held->FaceOf(font), piece);
    PangoLayoutLine* const line = pango_layout_get_line_readonly(Held->Layout.get(), 0);
    if (!line)
        return;
    const Owned<cairo_surface_t> surface(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1));
    const Owned<cairo_t>         context(cairo_create(surface.get()));
    pango_cairo_layout_line_path(context.get(), line);
    const Owned<cairo_path_t> made(cairo_copy_path(context.get()));
    if (made->status == CAIRO_STATUS_SUCCESS)
        Append(*made, x, path);
}

}
