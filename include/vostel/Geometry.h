#pragma once

/// @file
/// Small geometry value types of images: points, rectangles with inclusive edges, vectors. None allocates,
/// none has a virtual table. Sums and differences of integers wrap round at 32 bits.

#include "vostel/export.h"

#include <cstdint>

/// A point. Instances: int and double, in pixels of an image unless said otherwise.
template <typename T>
struct PointTemplateBase {
    T x = T();    ///< to the right
    T y = T();    ///< downwards

    /// The point 0, 0.
    PointTemplateBase() = default;
    /// A point by its coordinates.
    PointTemplateBase(T initX, T initY) : x(initX), y(initY) {}
};

/// A size, or a step.
struct VOSTEL_API ZEKSize {
    std::int32_t cx = 0;    ///< width
    std::int32_t cy = 0;    ///< height

    /// The size 0, 0.
    ZEKSize() = default;
    /// A size by its extents.
    ZEKSize(int initCx, int initCy) : cx(initCx), cy(initCy) {}
    /// Copies both extents.
    ZEKSize(const ZEKSize&) = default;

    /// Copies both extents.
    ZEKSize& operator=(ZEKSize other);
    /// Adds both extents.
    ZEKSize& operator+=(ZEKSize other);
    /// Subtracts both extents.
    ZEKSize& operator-=(ZEKSize other);
};

/// A rectangle of image pixels whose four edges all count in. W and H cache the extents: only the
/// constructors, SetValue, GetW, GetH and assignment refresh them; after any other change call GetW and GetH.
struct VOSTEL_API ZEKRECT {
    std::int32_t left = 0;      ///< first column
    std::int32_t top = 0;       ///< first row
    std::int32_t right = 0;     ///< last column
    std::int32_t bottom = 0;    ///< last row
    std::int32_t W = 1;         ///< right - left + 1, as last refreshed
    std::int32_t H = 1;         ///< bottom - top + 1, as last refreshed

    /// The pixel 0, 0.
    ZEKRECT() = default;
    /// A rectangle by its edges. Note the order: the two x limits first, then the two y limits.
    ZEKRECT(int l, int r, int t, int b);
    /// Copies all six fields.
    ZEKRECT(const ZEKRECT&) = default;
    /// Copies all six fields.
    ZEKRECT& operator=(const ZEKRECT& other) = default;

    /// Sets the edges, in the order of the constructor, and refreshes W and H.
    void SetValue(int l, int r, int t, int b);
    /// Refreshes W and returns it.
    int GetW();
    /// Refreshes H and returns it.
    int GetH();
    /// Returns whether the point is inside or on an edge.
    bool IsInRect(PointTemplateBase<int> p) const;
    /// Shifts the rectangle by the point's coordinates.
    void AddPoint(PointTemplateBase<int> p);
    /// Shifts the rectangle.
    void OffSetRect(int dx, int dy);
    /// Moves each edge inwards by its positive argument, outwards by a negative one; order as in the
    /// constructor.
    void Deflate(int l, int r, int t, int b);
    /// Moves each edge outwards by its positive argument, inwards by a negative one; order as in the
    /// constructor.
    void Inflate(int l, int r, int t, int b);
    /// Moves the point to left..right-1 and top..bottom-1. It stops one short of the inclusive right and
    /// bottom edge that IsInRect counts as inside, and applies the upper limit last; both are intended.
    void Clamp(PointTemplateBase<int>& p) const;
    /// Cuts the rectangle to 0..width-1 and 0..height-1. Nothing is reordered: a rectangle wholly outside can
    /// end with right below left.
    void ClampInIma(int width, int height);
};

/// A point in space, by integers.
struct VOSTEL_API ZEKPoint3D {
    std::int32_t x = 0;    ///< first coordinate
    std::int32_t y = 0;    ///< second coordinate
    std::int32_t z = 0;    ///< third coordinate

    /// The point 0, 0, 0.
    ZEKPoint3D() = default;
    /// A point by its coordinates.
    ZEKPoint3D(int initX, int initY, int initZ) : x(initX), y(initY), z(initZ) {}
};

/// A point in space, by doubles.
struct VOSTEL_API ZEKPoint3Dd {
    double x = 0.0;    ///< first coordinate
    double y = 0.0;    ///< second coordinate
    double z = 0.0;    ///< third coordinate

    /// The point 0, 0, 0.
    ZEKPoint3Dd() = default;
    /// A point by its coordinates.
    ZEKPoint3Dd(double initX, double initY, double initZ) : x(initX), y(initY), z(initZ) {}
};

/// A box in space: a low and a high limit for each axis. The defaults are those of an empty box that is about
/// to grow.
struct VOSTEL_API ZEKRect3D {
    std::int32_t xLow = 10000;      ///< low limit of x
    std::int32_t xHigh = -10000;    ///< high limit of x
    std::int32_t yLow = 10000;      ///< low limit of y
    std::int32_t yHigh = -10000;    ///< high limit of y
    std::int32_t zLow = 10000;      ///< low limit of z
    std::int32_t zHigh = -10000;    ///< high limit of z
};

/// A vector in the plane.
struct VOSTEL_API StructVector2f {
    float x = 0.0f;    ///< to the right
    float y = 0.0f;    ///< downwards

    /// The zero vector.
    StructVector2f() = default;
    /// A vector by its components.
    StructVector2f(float initX, float initY) : x(initX), y(initY) {}

    /// Adds component by component.
    StructVector2f& operator+=(const StructVector2f& other);
    /// Subtracts component by component.
    StructVector2f& operator-=(const StructVector2f& other);
    /// Multiplies component by component.
    StructVector2f& operator*=(const StructVector2f& other);
    /// Scales both components.
    StructVector2f& operator*=(float factor);
    /// Divides both components.
    StructVector2f& operator/=(float divisor);

    /// Returns the length, sqrtf(x*x + y*y).
    float Mag() const;
    /// Divides by the length. A zero vector becomes not-a-number.
    void Normal();
    /// Scales both components.
    void Mul(float factor);
    /// Returns x + y.
    float GetAdd() const;

    /// Rotates by an angle in degrees: x' = x cos a - y sin a, y' = x sin a + y cos a, with 3.1415926 for pi.
    /// The names of the two rotations are crossed on purpose: this one takes degrees.
    void Rotate(float degrees);
    /// Rotates by an angle in radians, in spite of the name; the formula of Rotate.
    void RotateDeg(float angle);
    /// Rotates about a pivot by an angle in radians.
    void RotateDeg(float angle, StructVector2f pivot);

    /// Returns the azimuth in radians, 0 up to just below 2 pi: 0 along negative y, growing clockwise where y
    /// runs downwards. |x| below 0.001 counts as vertical.
    float GetAngle() const;
};

/// A vector in space.
struct VOSTEL_API StructVector3f {
    float x;    ///< first component
    float y;    ///< second component
    float z;    ///< third component

    /// Leaves the components unset: arrays of these are made in bulk and filled after.
    StructVector3f() {}
    /// A vector by its components.
    StructVector3f(float initX, float initY, float initZ) : x(initX), y(initY), z(initZ) {}

    /// Scales all components.
    StructVector3f& operator*=(float factor);
    /// Divides all components.
    StructVector3f& operator/=(float divisor);

    /// Negates all components.
    void Neg();
    /// Becomes the cross product this x other.
    void Cross(const StructVector3f& other);
    /// Scales by mInvSqrt of the squared length, so that the length is 1 only to about 0.2 %.
    void Normalize();
    /// Returns the dot product, in spite of the name: no division by lengths, no arc cosine.
    float GetAngle(const StructVector3f& other) const;
};

/// Adds component by component.
VOSTEL_API StructVector3f operator+(const StructVector3f& a, const StructVector3f& b);
/// Subtracts component by component.
VOSTEL_API StructVector3f operator-(const StructVector3f& a, const StructVector3f& b);
/// Multiplies component by component.
VOSTEL_API StructVector3f operator*(const StructVector3f& a, const StructVector3f& b);
/// Divides component by component.
VOSTEL_API StructVector3f operator/(const StructVector3f& a, const StructVector3f& b);
/// Scales all components.
VOSTEL_API StructVector3f operator*(const StructVector3f& a, float factor);
/// Scales all components.
VOSTEL_API StructVector3f operator*(float factor, const StructVector3f& a);
/// Divides all components.
VOSTEL_API StructVector3f operator/(const StructVector3f& a, float divisor);
/// Divides all components by the float, which is the divisor here too: 5 / v equals v / 5.
VOSTEL_API StructVector3f operator/(float divisor, const StructVector3f& a);

/// Returns 1 / sqrt(v) to about 0.2 %: the bit-level first guess 0x5F3759DF - (bits >> 1) and exactly one
/// Newton step.
VOSTEL_API float mInvSqrt(float v);
