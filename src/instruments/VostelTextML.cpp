#include "instruments/VostelTextML.h"

#include "base/Truncate.h"
#include "instruments/TextExtent.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr int TextHeight = 20;

}

VostelTextML::VostelTextML()
{
    TypeCode = OverlayPanel;
}

void VostelTextML::OnDraw(HDC dc)
{
    BindKit(dc);
    Kit.TextBoxBack = Kit.BkMode == OPAQUE;
    Kit.SelectTextStyle(TextHeight, Kit.BkMode, Red);
    if (Lines.empty())
        return;
    int widest = 0;
    int lineHeight = 0;    // of the line measured last: the lines are taken to be of equal height
    int total = Margin;
    for (const CString& line : Lines) {
        const CRect extent = TextExtent(dc, line);
        widest = std::max(widest, extent.Width());
        lineHeight = extent.Height();
        total = WrapAdd(total, WrapAdd(Margin, lineHeight));
    }
    ClientBox.right = WrapAdd(ClientBox.left, WrapAdd(widest, 2 * Margin));
    ClientBox.bottom = WrapAdd(ClientBox.top, total);

    SetBkMode(dc, TRANSPARENT);
    int top = WrapAdd(ClientBox.top, Margin);
    for (const CString& line : Lines) {
        CRect place(WrapAdd(ClientBox.left, Margin), top, WrapSub(ClientBox.right, Margin),
                    WrapAdd(top, WrapAdd(Margin, lineHeight)));
        DrawTextW(dc, line, line.GetLength(), &place, DT_CENTER | DT_SINGLELINE);
        top = WrapAdd(top, WrapAdd(Margin, lineHeight));
    }
}

void VostelTextML::SetTextLines(std::vector<CString>& lines)
{
    Lines = lines;
}

void VostelTextML::AddTextLine(CString line)
{
    Lines.push_back(line);
}

void VostelTextML::ClearLines()
{
    Lines.clear();
}

}
