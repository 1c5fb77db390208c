#pragma once

// All that a session brings back of a canvas, to the bit, for tests that see the private headers.

#include "canvas/exports/CanvasTable.h"
#include "fileio/FilePaths.h"
#include "interchange/SessionFile.h"
#include "vostel.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <string>
#include <vector>

template <typename... Values>
std::string Formatted(const char* format, Values... values)
{
    char text[400];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

inline std::string ObjectText(vostel::VostelObj& object, const vostel::ObjectNotes& notes)
{
    std::string text = Formatted("object %d of kind %d, label %d%s%s, \"",
                                 static_cast<int>(vostel::ClassOf(object)), object.TypeCode, notes.Label,
                                 notes.NoLabel ? ", no label" : "", object.Selected ? ", selected" : "") +
                       notes.Name + "\"";
    for (const unsigned char byte : object.SaveState())
        text += {"0123456789abcdef"[byte >> 4], "0123456789abcdef"[byte & 0xF]};
    return text + notes.Unread + "\n";
}

// One line for each object, and some for the canvas.
inline std::string ContentOf(int32_t number)
{
    const vostel::CanvasCall canvas(number);
    REQUIRE(bool(canvas));
    const vostel::Document& notes = canvas.Notes();
    std::string             text;
    for (vostel::VostelObj* const object : canvas->Elements)
        text += ObjectText(*object, notes.NotesOf(*object));
    const vostel::ElementCounts& counts = *canvas;
    text += Formatted("counts %d %d %d %d %d %d %d %d %d %d %d %d %d, current %d\n", counts.RectCount,
                      counts.CustomRectCount, counts.PolygonCount, counts.SplineCount, counts.OneStrokeCount,
                      counts.RegionSerial, counts.MStrokeCount, counts.TextCount, counts.MeasureLineCount,
                      counts.Angle3Count, counts.Angle4Count, counts.SpareCount, counts.ElementSerial,
                      canvas->SelIndex);
    const vostel::CanvasView& view = canvas->View;
    text += Formatted("view %a, %d %d, %ld %ld %ld %ld, %a %a %d\n", view.Scale, view.CentreX, view.CentreY,
                      static_cast<long>(view.DisplayRect.left), static_cast<long>(view.DisplayRect.top),
                      static_cast<long>(view.DisplayRect.right), static_cast<long>(view.DisplayRect.bottom),
                      view.AnchorX, view.AnchorY, view.AnyScale);
    const vostel::ContrastState contrast = canvas->Contrast();
    text += Formatted("contrast %a %a %a %s %x %x %x\n", contrast.Low, contrast.High, contrast.Gamma,
                      contrast.Map.c_str(), contrast.Below, contrast.Above, contrast.NotFinite);
    text += Formatted("scale %a %a, english %d, smooth %d, unit", view.Settings.UnitsPerPixel,
                      canvas->MeasureScale, view.Settings.English, canvas->CanvasSurface.StretchMode);
    const CString& unit = view.Settings.Unit;
    for (int i = 0; i < unit.GetLength(); ++i)
        text += Formatted(" %x", static_cast<unsigned>(unit[i]));
    return text + "\n";
}

// What saving under the path would write, without a wait for the disk.
inline std::string SessionOf(int32_t number, const std::string& path)
{
    const vostel::CanvasCall canvas(number);
    REQUIRE(bool(canvas));
    return vostel::SessionTextOf(*canvas, canvas.Notes(), vostel::AbsolutePath(path));
}
