#include "interchange/SessionParts.h"

#include "base/Failure.h"
#include "base/Utf8.h"
#include "canvas/view/ViewPlacing.h"
#include "interchange/ObjectJson.h"
#include "output/ColorMaps.h"

#include <array>
#include <cmath>

namespace vostel {

namespace {

struct CountWord {
    const char* Name;
    int ElementCounts::*Count;
};

constexpr std::array<CountWord, 13> Counts = {{
    {"rectangle", &ElementCounts::RectCount},
    {"custom_rectangle", &ElementCounts::CustomRectCount},
    {"polygon", &ElementCounts::PolygonCount},
    {"spline", &ElementCounts::SplineCount},
    {"free_region", &ElementCounts::OneStrokeCount},
    {"regions", &ElementCounts::RegionSerial},
    {"free_strokes", &ElementCounts::MStrokeCount},
    {"text", &ElementCounts::TextCount},
    {"length", &ElementCounts::MeasureLineCount},
    {"angle", &ElementCounts::Angle3Count},
    {"angle_lines", &ElementCounts::Angle4Count},
    {"spare", &ElementCounts::SpareCount},
    {"elements", &ElementCounts::ElementSerial},
}};

void TakeValue(const Json& value, const std::string& name, double& taken)
{
    taken = FiniteNumber(value, name);
}

void TakeValue(const Json& value, const std::string& name, int& taken)
{
    taken = static_cast<int>(WholeNumber(value, INT32_MIN, INT32_MAX, name));
}

// Members that stand take the place of what is there.
template <typename Number>
void Take(const Json& object, const char* name, const std::string& place, Number& taken)
{
    if (const Json* const value = Member(object, name))
        TakeValue(*value, place + "." + name, taken);
}

template <typename Number>
void TakePair(const Json& object, const char* name, const std::string& place, Number& first, Number& second)
{
    const Json* const pair = Member(object, name);
    if (!pair)
        return;
    const std::string both = place + "." + name;
    if (!pair->is_array() || pair->size() != 2)
        Fail(VOSTEL_BAD_FORMAT, both + " is not a pair");
    TakeValue((*pair)[0], both, first);
    TakeValue((*pair)[1], both, second);
}

void NeedAbove0(double value, const char* name)
{
    if (!(value > 0.0))
        Fail(VOSTEL_BAD_FORMAT, std::string(name) + " is not above 0");
}

}

Json JsonOfView(const CanvasView& view)
{
    const MiddleView middle = MiddleOf(view);
    Json             json;
    json["scale"] = view.Scale;
    json["area"] = {view.ClientRect.Width(), view.ClientRect.Height()};
    json["centre"] = {view.CentreX, view.CentreY};
    json["middle"] = {middle.X, middle.Y};
    if (!view.AnyScale)
        json["any_scale"] = false;
    CanvasView placed = view;
    placed.PlaceCentre(view.Scale, view.CentreX, view.CentreY);
    if (placed.AnchorX != view.AnchorX || placed.AnchorY != view.AnchorY)
        json["anchor"] = {view.AnchorX, view.AnchorY};
    return json;
}

SavedView ViewOfJson(const Json& view)
{
    const std::string place = "view";
    SavedView         saved;
    Take(view, "scale", place, saved.Scale);
    NeedAbove0(saved.Scale, "view.scale");
    TakePair(view, "area", place, saved.Width, saved.Height);
    TakePair(view, "centre", place, saved.CentreX, saved.CentreY);
    TakePair(view, "middle", place, saved.MiddleX, saved.MiddleY);
    PointTemplateBase<double> anchor;
    TakePair(view, "anchor", place, anchor.x, anchor.y);
    if (Member(view, "anchor"))
        saved.Anchor = anchor;
    saved.AnyScale = !Member(view, "any_scale") || TruthOf(view, "any_scale", place);
    return saved;
}

void TakeView(CanvasView& view, const SavedView& saved, bool sameImageSize)
{
    const bool exact =
        sameImageSize && view.ClientRect.Width() == saved.Width && view.ClientRect.Height() == saved.Height;
    CanvasView placed = view;
    const bool fits =
        exact ? PlaceImage(placed, {saved.Scale, saved.CentreX - placed.ImageWidth * saved.Scale * 0.5,
                                    saved.CentreY - placed.ImageHeight * saved.Scale * 0.5})
              : PlaceMiddle(placed, {saved.Scale, saved.MiddleX, saved.MiddleY});
    if (!fits)
        return;
    if (exact)
        placed.PlaceCentre(saved.Scale, saved.CentreX, saved.CentreY);
    if (exact && saved.Anchor) {
        placed.AnchorX = saved.Anchor->x;
        placed.AnchorY = saved.Anchor->y;
    }
    placed.AnyScale = saved.AnyScale;
    view = std::move(placed);
}

Json JsonOfContrast(const ContrastState& state)
{
    Json json;
    if (std::isfinite(state.Low) && std::isfinite(state.High)) {
        json["low"] = state.Low;
        json["high"] = state.High;
    }
    json["gamma"] = state.Gamma;
    json["map"] = state.Map;
    json["below"] = ColorWord(state.Below, 8);
    json["above"] = ColorWord(state.Above, 8);
    json["not_finite"] = ColorWord(state.NotFinite, 8);
    return json;
}

std::optional<SavedContrast> ContrastOfJson(const Json& contrast, Remarks& told)
{
    const std::string place = "contrast";
    SavedContrast     saved;
    ContrastState&    state = saved.State;
    const auto        color = [&](const char* name, unsigned& taken) {
        if (const Json* const value = Member(contrast, name))
            taken = ColorOfWord(*value, 8, place + "." + name);
    };
    Take(contrast, "low", place, state.Low);
    Take(contrast, "high", place, state.High);
    if (state.Low > state.High)
        Fail(VOSTEL_BAD_FORMAT, "contrast.low is above contrast.high");
    Take(contrast, "gamma", place, state.Gamma);
    NeedAbove0(state.Gamma, "contrast.gamma");
    if (const Json* const map = Member(contrast, "map")) {
        const std::string name = TextValue(*map, "contrast.map");
        if (IsColorMap(name)) {
            state.Map = name;
        } else {
            saved.LaterMap = name;
            told.Add("the color map \"" + name + "\" is unknown: gray stands in its place");
        }
    }
    color("below", state.Below);
    color("above", state.Above);
    color("not_finite", state.NotFinite);
    return Member(contrast, "low") && Member(contrast, "high") ? std::optional(saved) : std::nullopt;
}

Json JsonOfScale(const CanvasSettings& settings, double drawnScale)
{
    Json json;
    json["units_per_pixel"] = settings.UnitsPerPixel;
    json["unit"] =
        Utf8Of(std::wstring_view(settings.Unit, static_cast<std::size_t>(settings.Unit.GetLength())));
    if (drawnScale != settings.UnitsPerPixel && std::isfinite(drawnScale))
        json["drawn"] = drawnScale;
    return json;
}

SavedScale ScaleOfJson(const Json& scale)
{
    const std::string place = "scale";
    SavedScale        saved;
    Take(scale, "units_per_pixel", place, saved.UnitsPerPixel);
    NeedAbove0(saved.UnitsPerPixel, "scale.units_per_pixel");
    saved.DrawnScale = saved.UnitsPerPixel;
    Take(scale, "drawn", place, saved.DrawnScale);
    if (const Json* const unit = Member(scale, "unit"))
        saved.Unit = WideOf(TextValue(*unit, "scale.unit")).value_or(std::wstring()).c_str();
    return saved;
}

Json JsonOfCounts(const ElementCounts& counts)
{
    Json json;
    for (const CountWord& word : Counts)
        json[word.Name] = counts.*word.Count;
    return json;
}

void TakeCounts(const Json& counts, ElementCounts& taken)
{
    for (const CountWord& word : Counts)
        Take(counts, word.Name, "counts", taken.*word.Count);
}

Json UnknownOfParts(const Json& session)
{
    Json       unknown = Json::object();
    const auto keep = [&](const char* part, Json rest) {
        if (!rest.empty())
            unknown[part] = std::move(rest);
    };
    const auto note = [&](const char* part, std::initializer_list<const char*> known) {
        if (const Json* const value = Member(session, part))
            keep(part, UnknownMembers(*value, known));
    };
    note("view", {"scale", "area", "centre", "middle", "any_scale", "anchor"});
    note("contrast", {"low", "high", "gamma", "map", "below", "above", "not_finite"});
    note("scale", {"units_per_pixel", "unit", "drawn"});
    if (const Json* const counts = Member(session, "counts")) {
        Json rest = UnknownMembers(*counts, {});
        for (const CountWord& word : Counts)
            rest.erase(std::string(word.Name));
        keep("counts", std::move(rest));
    }
    return unknown;
}

}
