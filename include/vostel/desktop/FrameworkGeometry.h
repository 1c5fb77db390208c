#pragma once

// CPoint, CSize and CRect with the application framework's meaning, for compilers that do not bring it.
// (std::min) in brackets: a host may have the macro of that name.

#include "vostel/platform.h"

#include <algorithm>

class CSize : public tagSIZE {
public:
    CSize() : tagSIZE{0, 0} {}
    CSize(int width, int height) : tagSIZE{width, height} {}
    CSize(SIZE size) : tagSIZE(size) {}
    explicit CSize(POINT point) : tagSIZE{point.x, point.y} {}

    bool operator==(SIZE other) const { return cx == other.cx && cy == other.cy; }
    bool operator!=(SIZE other) const { return !(*this == other); }
};

class CPoint : public tagPOINT {
public:
    CPoint() : tagPOINT{0, 0} {}
    CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
    CPoint(POINT point) : tagPOINT(point) {}

    void Offset(int dx, int dy)
    {
        x += dx;
        y += dy;
    }
    void Offset(POINT by) { Offset(by.x, by.y); }
    void SetPoint(int newX, int newY)
    {
        x = newX;
        y = newY;
    }
    bool   operator==(POINT other) const { return x == other.x && y == other.y; }
    bool   operator!=(POINT other) const { return !(*this == other); }
    CPoint operator+(POINT other) const { return CPoint(x + other.x, y + other.y); }
    CPoint operator-(POINT other) const { return CPoint(x - other.x, y - other.y); }
    CPoint operator-() const { return CPoint(-x, -y); }
    void   operator+=(POINT other) { Offset(other); }
    void   operator-=(POINT other) { Offset(-other.x, -other.y); }
};

// Left and top count in, right and bottom out.
class CRect : public tagRECT {
public:
    CRect() : tagRECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
    CRect(const RECT& rect) : tagRECT(rect) {}
    CRect(POINT topLeft, POINT bottomRight) : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}
    CRect(POINT topLeft, SIZE size) : tagRECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy}
    {
    }

    int    Width() const { return right - left; }
    int    Height() const { return bottom - top; }
    CSize  Size() const { return CSize(Width(), Height()); }
    CPoint TopLeft() const { return CPoint(left, top); }
    CPoint BottomRight() const { return CPoint(right, bottom); }
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }

    bool IsRectEmpty() const { return right <= left || bottom <= top; }
    bool IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    bool PtInRect(POINT p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }

    void SetRect(int l, int t, int r, int b)
    {
        left = l;
        top = t;
        right = r;
        bottom = b;
    }
    void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    void InflateRect(int dx, int dy) { SetRect(left - dx, top - dy, right + dx, bottom + dy); }
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void OffsetRect(int dx, int dy) { SetRect(left + dx, top + dy, right + dx, bottom + dy); }
    void OffsetRect(POINT by) { OffsetRect(by.x, by.y); }
    void MoveToXY(int x, int y) { OffsetRect(x - left, y - top); }
    void NormalizeRect()
    {
        if (left > right)
            std::swap(left, right);
        if (top > bottom)
            std::swap(top, bottom);
    }
    // Becomes what a and b share, answers whether that is anything; the empty rectangle if not.
    bool IntersectRect(const RECT* a, const RECT* b)
    {
        SetRect((std::max)(a->left, b->left), (std::max)(a->top, b->top), (std::min)(a->right, b->right),
                (std::min)(a->bottom, b->bottom));
        if (IsRectEmpty())
            SetRectEmpty();
        return !IsRectEmpty();
    }
    // Becomes the smallest rectangle around a and b, an empty one left out; answers whether it is not empty.
    bool UnionRect(const RECT* a, const RECT* b)
    {
        const CRect first(*a), second(*b);
        if (first.IsRectEmpty())
            *this = second.IsRectEmpty() ? CRect() : second;
        else if (second.IsRectEmpty())
            *this = first;
        else
            SetRect((std::min)(first.left, second.left), (std::min)(first.top, second.top),
                    (std::max)(first.right, second.right), (std::max)(first.bottom, second.bottom));
        return !IsRectEmpty();
    }
    bool EqualRect(const RECT* r) const { return *this == *r; }

    CRect operator&(const RECT& r) const
    {
        CRect shared;
        shared.IntersectRect(this, &r);
        return shared;
    }
    CRect operator|(const RECT& r) const
    {
        CRect around;
        around.UnionRect(this, &r);
        return around;
    }
    void  operator+=(POINT by) { OffsetRect(by); }
    void  operator-=(POINT by) { OffsetRect(-by.x, -by.y); }
    CRect operator+(POINT by) const { return CRect(left + by.x, top + by.y, right + by.x, bottom + by.y); }
    CRect operator-(POINT by) const { return CRect(left - by.x, top - by.y, right - by.x, bottom - by.y); }
    bool  operator==(const RECT& r) const
    {
        return left == r.left && top == r.top && right == r.right && bottom == r.bottom;
    }
    bool operator!=(const RECT& r) const { return !(*this == r); }

    operator RECT*() { return this; }
    operator const RECT*() const { return this; }
};
