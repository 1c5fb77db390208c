#include "vostel/CanvasElements.h"

#include "canvas/exports/CanvasTable.h"
#include "instruments/VostelImaInfo.h"
#include "instruments/VostelLineProfile.h"
#include "instruments/VostelMeasureAngle3Pts.h"
#include "instruments/VostelMeasureAngle4Pts.h"
#include "instruments/VostelMeasureLine.h"
#include "instruments/VostelNeighborV.h"
#include "instruments/VostelTextRect.h"
#include "overlay/VostelCrayonMStroke.h"
#include "overlay/VostelCrayonOneStroke.h"
#include "overlay/VostelCustomRect.h"
#include "overlay/VostelSpline.h"
#include "vostel/Tessik.h"

#include <cwchar>
#include <memory>
#include <utility>

using namespace vostel;

namespace {

// Region shapes take their number from RegionSerial; ElementSerial is bumped all the same.
void NumberRegion(VostelImage& canvas, VostelObj& object, int& kindCount)
{
    object.SerialNo = canvas.RegionSerial++;
    ++canvas.ElementSerial;
    object.TypeSerial = kindCount++;
}

void NumberElement(VostelImage& canvas, VostelObj& object)
{
    object.SerialNo = canvas.ElementSerial++;
}

void NumberElement(VostelImage& canvas, VostelObj& object, int& kindCount)
{
    NumberElement(canvas, object);
    object.TypeSerial = kindCount++;
}

// Puts the object on top of the list, which owns it from then on, as the selected one.
VostelObj& Append(VostelImage& canvas, std::unique_ptr<VostelObj> object)
{
    canvas.Elements.push_back(object.get());
    canvas.SelIndex = static_cast<int>(canvas.Elements.size()) - 1;
    object->Selected = true;
    return *object.release();
}

template <typename Shape>
void AddRegion(int number, int VostelDC::*kindCount)
{
    VostelImage* const canvas = FindCanvas(number);
    if (!canvas)
        return;
    auto shape = std::make_unique<Shape>();
    NumberRegion(*canvas, *shape, canvas->*kindCount);
    Append(*canvas, std::move(shape));
}

template <typename Shape>
void AddElement(int number, int VostelDC::*kindCount)
{
    VostelImage* const canvas = FindCanvas(number);
    if (!canvas)
        return;
    auto shape = std::make_unique<Shape>();
    NumberElement(*canvas, *shape, canvas->*kindCount);
    Append(*canvas, std::move(shape));
}

// Objects that read pixel values and follow the mouse.
template <typename ReadOut>
void AddReadOut(int number)
{
    VostelImage* const canvas = FindCanvas(number);
    if (!canvas)
        return;
    auto readOut = std::make_unique<ReadOut>();
    NumberElement(*canvas, *readOut);
    readOut->SetCanvasView(&canvas->View);
    readOut->SetPlacement(30.0f, 30.0f, 512.0f, 150.0f);
    readOut->SetOwnerImage(canvas);
    Append(*canvas, std::move(readOut));
}

void SetStyle(VostelTextRect& text, FontType font, int bkMode, unsigned long color, int height)
{
    text.StyleBkMode = bkMode;
    text.StyleColor = static_cast<COLORREF>(color);
    text.StyleHeight = height;
    text.StyleFontType = font;
}

// A text box with view and context, so that it can be measured at once.
VostelTextRect& AppendTextRect(VostelImage& canvas)
{
    auto            owned = std::make_unique<VostelTextRect>();
    VostelTextRect& text = *owned;
    NumberElement(canvas, text, canvas.TextCount);
    Append(canvas, std::move(owned));
    text.SetCanvasView(&canvas.View);
    text.Kit.Dc = canvas.ClientMemDC;
    return text;
}

void AddText(VostelImage& canvas, CString& text, CPoint at, FontType font, int bkMode, unsigned long color,
             int height)
{
    VostelTextRect& box = AppendTextRect(canvas);
    SetStyle(box, font, bkMode, color, height);
    box.SetTextAt(text, at);
}

}

void gCVSDelAllElement(int canvas)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->DeleteAll();
}

void gCVSDelSelElement(int canvas)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->DeleteSelected();
}

void gCVSAddMRectangle(int canvas)
{
    AddRegion<VostelRect>(canvas, &VostelDC::RectCount);
}

void gCVSAddCustomRectangle(int canvas)
{
    VostelImage* const image = FindCanvas(canvas);
    if (!image)
        return;
    tagZEKImaROIRectPara para;
    if (!gDlgGetImaROIRectPara(para))
        return;
    auto rect = std::make_unique<VostelCustomRect>();
    NumberRegion(*image, *rect, image->CustomRectCount);
    rect->SetPlacement(static_cast<float>(para.RoiLeft), static_cast<float>(para.RoiTop),
                       static_cast<float>(static_cast<long long>(para.RoiRight) - para.RoiLeft),
                       static_cast<float>(static_cast<long long>(para.RoiBottom) - para.RoiTop));
    Append(*image, std::move(rect));
}

void gCVSAddPoly(int canvas)
{
    AddRegion<VostelPolygon>(canvas, &VostelDC::PolygonCount);
}

void gCVSAddSpline(int canvas)
{
    AddRegion<VostelSpline>(canvas, &VostelDC::SplineCount);
}

void gCVSAddFreeRegion(int canvas)
{
    AddRegion<VostelCrayonOneStroke>(canvas, &VostelDC::OneStrokeCount);
}

void gCVSAddFreeStroke(int canvas)
{
    AddElement<VostelCrayonMStroke>(canvas, &VostelDC::MStrokeCount);
}

void gCVSAddTextOL(int canvas)
{
    VostelImage* const image = FindCanvas(canvas);
    if (!image)
        return;
    tagZEKImaGeneralPara record;
    CString              section = L"TextInfo";
    CString              file = L"TextInfo.ini";
    if (!gDlgGetImaGeneralParaV2(record, section, file))
        return;
    VostelTextRect& box = AppendTextRect(*image);
    box.StyleFontType = FontRed22Framed;
    box.SetTextAt(record.Value, CPoint(200, 200));
}

void gCVSAddTextOL(int canvas, CString text, int x, int y, FontType font, int bkMode, unsigned long color,
                   int height)
{
    if (VostelImage* const image = FindCanvas(canvas))
        AddText(*image, text, CPoint(x, y), font, bkMode, color, height);
}

void gCVSAddTextOLV2(int canvas, CString text, int x, int y, FontType font, int bkMode, unsigned long color,
                     int height)
{
    if (VostelImage* const image = FindCanvas(canvas))
        AddText(*image, text, image->View.ImageToClient(PointTemplateBase<double>(x, y)), font, bkMode, color,
                height);
}

CRect gCVSGetTextRectOL(int canvas, CString text, int, int, FontType font, int bkMode, unsigned long color,
                        int height)
{
    VostelImage* const image = FindCanvas(canvas);
    if (!image)
        return CRect();
    VostelTextRect probe;
    // The selection moves to the last object when a text's size is asked for; hosts count on it.
    image->SelIndex = static_cast<int>(image->Elements.size()) - 1;
    probe.SetCanvasView(&image->View);
    probe.Kit.Dc = image->ClientMemDC;
    SetStyle(probe, font, bkMode, color, height);
    return probe.MeasureText(text);
}

void gCVSAddTextML(int canvas, std::vector<CString>& lines, int x, int y)
{
    VostelImage* const image = FindCanvas(canvas);
    if (!image)
        return;
    auto panel = std::make_unique<VostelTextML>();
    NumberElement(*image, *panel);
    panel->SetCanvasView(&image->View);
    panel->SetPlacement(static_cast<float>(x), static_cast<float>(y), 0.0f, 0.0f);
    panel->SetTextLines(lines);
    Append(*image, std::move(panel));
}

void gCVSAddMeasureLine(int canvas, double)
{
    VostelImage* const image = FindCanvas(canvas);
    if (!image)
        return;
    auto line = std::make_unique<VostelMeasureLine>();
    NumberElement(*image, *line, image->MeasureLineCount);
    line->MeasureScale = image->MeasureScale;
    Append(*image, std::move(line)).Selected = false;    // the one object that starts unselected
}

void gCVSAddMeasureAngle3Pts(int canvas)
{
    AddElement<VostelMeasureAngle3Pts>(canvas, &VostelDC::Angle3Count);
}

void gCVSAddMeasureAngle4Pts(int canvas)
{
    AddElement<VostelMeasureAngle4Pts>(canvas, &VostelDC::Angle4Count);
}

void gCVSSetMeasureScale(int canvas, double scale)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->MeasureScale = scale;
}

void gCVSSetMeasureScale(int canvas)
{
    VostelImage* const image = FindCanvas(canvas);
    if (!image)
        return;
    tagZEKImaGeneralPara record;
    CString              section = L"MeasureScaleInfo";
    CString              file = L"MeasureScale.ini";
    if (gDlgGetImaGeneralParaV2(record, section, file))
        image->MeasureScale = std::wcstod(record.Value, nullptr);    // 0 for what is no number
}

void gCVSAddInfoWin(int canvas)
{
    AddReadOut<VostelImaInfo>(canvas);
}

void gCVSAddLineProfile(int canvas)
{
    AddReadOut<VostelLineProfile>(canvas);
}

void gCVSAddNeighborPV(int canvas)
{
    AddReadOut<VostelNeighborV>(canvas);
}

void gCVSAddDoubleLine(int) {}
