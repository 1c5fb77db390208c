#pragma once

/// @file
/// CPoint, CSize and CRect with the application framework's meaning, for compilers that do not bring it.
/// Coordinates are pixels, y downwards.

#include "vostel/platform.h"

#include <algorithm>

// (std::min) in brackets: a host may have the macro of that name. Comparisons are no members, as C++20 could
// take those the other way round as well.

/// A size.
class CSize : public tagSIZE {
public:
    /// The size 0, 0.
    CSize() : tagSIZE{0, 0} {}
    /// A size by its extents.
    CSize(int width, int height) : tagSIZE{width, height} {}
    /// Copies a size.
    CSize(SIZE size) : tagSIZE(size) {}
    /// Takes the coordinates of a point.
    explicit CSize(POINT point) : tagSIZE{point.x, point.y} {}

    /// Returns whether both extents are equal.
    friend bool operator==(const SIZE& a, const SIZE& b) { return a.cx == b.cx && a.cy == b.cy; }
    /// Returns whether an extent differs.
    friend bool operator!=(const SIZE& a, const SIZE& b) { return a.cx != b.cx || a.cy != b.cy; }
};

/// A point.
class CPoint : public tagPOINT {
public:
    /// The point 0, 0.
    CPoint() : tagPOINT{0, 0} {}
    /// A point by its coordinates.
    CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
    /// Copies a point.
    CPoint(POINT point) : tagPOINT(point) {}

    /// Shifts the point.
    void Offset(int dx, int dy)
    {
        x += dx;
        y += dy;
    }
    /// Shifts the point by the coordinates of another.
    void Offset(POINT by) { Offset(by.x, by.y); }
    /// Sets both coordinates.
    void SetPoint(int newX, int newY)
    {
        x = newX;
        y = newY;
    }
    /// Returns whether both coordinates are equal.
    friend bool operator==(const POINT& a, const POINT& b) { return a.x == b.x && a.y == b.y; }
    /// Returns whether a coordinate differs.
    friend bool operator!=(const POINT& a, const POINT& b) { return a.x != b.x || a.y != b.y; }
    /// Returns the sum of the coordinates.
    CPoint operator+(POINT other) const { return CPoint(x + other.x, y + other.y); }
    /// Returns the difference of the coordinates.
    CPoint operator-(POINT other) const { return CPoint(x - other.x, y - other.y); }
    /// Returns the point mirrored at 0, 0.
    CPoint operator-() const { return CPoint(-x, -y); }
    /// Adds the coordinates of another point.
    void operator+=(POINT other) { Offset(other); }
    /// Subtracts the coordinates of another point.
    void operator-=(POINT other) { Offset(-other.x, -other.y); }
};

/// A rectangle. Left and top count in, right and bottom out.
class CRect : public tagRECT {
public:
    /// The rectangle at 0, 0 without an area.
    CRect() : tagRECT{0, 0, 0, 0} {}
    /// A rectangle by its edges: left, top, right, bottom.
    CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
    /// Copies a rectangle.
    CRect(const RECT& rect) : tagRECT(rect) {}
    /// A rectangle by two corners.
    CRect(POINT topLeft, POINT bottomRight) : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}
    /// A rectangle by its corner and its size.
    CRect(POINT topLeft, SIZE size) : tagRECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy}
    {
    }

    /// Returns right - left.
    int Width() const { return right - left; }
    /// Returns bottom - top.
    int Height() const { return bottom - top; }
    /// Returns width and height.
    CSize Size() const { return CSize(Width(), Height()); }
    /// Returns the corner that counts in.
    CPoint TopLeft() const { return CPoint(left, top); }
    /// Returns the corner that counts out.
    CPoint BottomRight() const { return CPoint(right, bottom); }
    /// Returns the middle, truncated towards zero.
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }

    /// Returns whether there is no area.
    bool IsRectEmpty() const { return right <= left || bottom <= top; }
    /// Returns whether all edges are 0.
    bool IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    /// Returns whether a point is inside.
    bool PtInRect(POINT p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }

    /// Sets the edges: left, top, right, bottom.
    void SetRect(int l, int t, int r, int b)
    {
        left = l;
        top = t;
        right = r;
        bottom = b;
    }
    /// Sets all edges to 0.
    void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    /// Moves left and right outwards by dx, top and bottom by dy.
    void InflateRect(int dx, int dy) { SetRect(left - dx, top - dy, right + dx, bottom + dy); }
    /// Moves left and right inwards by dx, top and bottom by dy.
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    /// Shifts the rectangle.
    void OffsetRect(int dx, int dy) { SetRect(left + dx, top + dy, right + dx, bottom + dy); }
    /// Shifts the rectangle by the coordinates of a point.
    void OffsetRect(POINT by) { OffsetRect(by.x, by.y); }
    /// Shifts the rectangle so that its top left comes to a point.
    void MoveToXY(int x, int y) { OffsetRect(x - left, y - top); }
    /// Exchanges edges that stand the wrong way round.
    void NormalizeRect()
    {
        if (left > right)
            std::swap(left, right);
        if (top > bottom)
            std::swap(top, bottom);
    }
    /// Becomes what a and b share, the empty rectangle if that is nothing; returns whether it has an area.
    bool IntersectRect(const RECT* a, const RECT* b)
    {
        SetRect((std::max)(a->left, b->left), (std::max)(a->top, b->top), (std::min)(a->right, b->right),
                (std::min)(a->bottom, b->bottom));
        if (IsRectEmpty())
            SetRectEmpty();
        return !IsRectEmpty();
    }
    /// Becomes the smallest rectangle around a and b, an empty one left out; returns whether it has an area.
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
    /// Returns whether all edges are equal.
    bool EqualRect(const RECT* r) const { return *this == *r; }

    /// Returns what both share, as IntersectRect.
    CRect operator&(const RECT& r) const
    {
        CRect shared;
        shared.IntersectRect(this, &r);
        return shared;
    }
    /// Returns the smallest rectangle around both, as UnionRect.
    CRect operator|(const RECT& r) const
    {
        CRect around;
        around.UnionRect(this, &r);
        return around;
    }
    /// Shifts the rectangle.
    void operator+=(POINT by) { OffsetRect(by); }
    /// Shifts the rectangle the other way.
    void operator-=(POINT by) { OffsetRect(-by.x, -by.y); }
    /// Returns the rectangle shifted.
    CRect operator+(POINT by) const { return CRect(left + by.x, top + by.y, right + by.x, bottom + by.y); }
    /// Returns the rectangle shifted the other way.
    CRect operator-(POINT by) const { return CRect(left - by.x, top - by.y, right - by.x, bottom - by.y); }
    /// Returns whether all edges are equal.
    friend bool operator==(const RECT& a, const RECT& b)
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
    /// Returns whether an edge differs.
    friend bool operator!=(const RECT& a, const RECT& b)
    {
        return a.left != b.left || a.top != b.top || a.right != b.right || a.bottom != b.bottom;
    }

    /// The rectangle as the calls of the desktop take it.
    operator RECT*() { return this; }
    /// The rectangle as the calls of the desktop take it.
    operator const RECT*() const { return this; }
};
