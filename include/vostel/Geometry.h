#pragma once

// Small geometry value types. None allocates, none has a virtual table.

#include "vostel/export.h"

#include <cstdint>

template <typename T>
struct PointTemplateBase {
    T x = T();
    T y = T();

    PointTemplateBase() = default;
    PointTemplateBase(T initX, T initY) : x(initX), y(initY) {}
};

struct VOSTEL_API ZEKSize {
    std::int32_t cx = 0;
    std::int32_t cy = 0;

    ZEKSize() = default;
    ZEKSize(int initCx, int initCy) : cx(initCx), cy(initCy) {}
    ZEKSize(const ZEKSize&) = default;

    ZEKSize& operator=(ZEKSize other);
    ZEKSize& operator+=(ZEKSize other);
    ZEKSize& operator-=(ZEKSize other);
};

// Both edges are inclusive. W and H cache the extents: only the constructors, SetValue, GetW, GetH and
// assignment refresh them; after any other change call GetW and GetH.
struct VOSTEL_API ZEKRECT {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    std::int32_t W = 1;
    std::int32_t H = 1;

    ZEKRECT() = default;
    // Note the order: the two x limits first, then the two y limits.
    ZEKRECT(int l, int r, int t, int b);
    ZEKRECT(const ZEKRECT&) = default;
    ZEKRECT& operator=(const ZEKRECT& other) = default;

    void SetValue(int l, int r, int t, int b);    // order as in the constructor
    int  GetW();
    int  GetH();
    bool IsInRect(PointTemplateBase<int> p) const;
    void AddPoint(PointTemplateBase<int> p);    // shifts the rectangle by the point
    void OffSetRect(int dx, int dy);
    void Deflate(int l, int r, int t, int b);    // a positive argument moves its edge inwards
    void Inflate(int l, int r, int t, int b);    // a positive argument moves its edge outwards
    // Moves the point to left..right-1 and top..bottom-1. It stops one short of the inclusive right and
    // bottom edge that IsInRect counts as inside, and applies the upper limit last; both are intended.
    void Clamp(PointTemplateBase<int>& p) const;
    // Cuts the rectangle to 0..width-1 and 0..height-1. Nothing is reordered: a rectangle wholly outside
    // can end with right below left.
    void ClampInIma(int width, int height);
};

struct VOSTEL_API ZEKPoint3D {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t z = 0;

    ZEKPoint3D() = default;
    ZEKPoint3D(int initX, int initY, int initZ) : x(initX), y(initY), z(initZ) {}
};

struct VOSTEL_API ZEKPoint3Dd {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    ZEKPoint3Dd() = default;
    ZEKPoint3Dd(double initX, double initY, double initZ) : x(initX), y(initY), z(initZ) {}
};

// A low and a high limit for each axis; the defaults are those of an empty box that is about to grow.
struct VOSTEL_API ZEKRect3D {
    std::int32_t xLow = 10000;
    std::int32_t xHigh = -10000;
    std::int32_t yLow = 10000;
    std::int32_t yHigh = -10000;
    std::int32_t zLow = 10000;
    std::int32_t zHigh = -10000;
};

struct VOSTEL_API StructVector2f {
    float x = 0.0f;
    float y = 0.0f;

    StructVector2f() = default;
    StructVector2f(float initX, float initY) : x(initX), y(initY) {}

    StructVector2f& operator+=(const StructVector2f& other);
    StructVector2f& operator-=(const StructVector2f& other);
    StructVector2f& operator*=(const StructVector2f& other);    // element-wise
    StructVector2f& operator*=(float factor);
    StructVector2f& operator/=(float divisor);

    float Mag() const;    // sqrtf(x*x + y*y)
    void  Normal();       // divides by Mag; a zero vector has no special case
    void  Mul(float factor);
    float GetAdd() const;    // x + y

    // The two names are crossed on purpose: Rotate takes degrees, RotateDeg takes radians.
    // x' = x cos a - y sin a, y' = x sin a + y cos a.
    void Rotate(float degrees);
    void RotateDeg(float angle);
    void RotateDeg(float angle, StructVector2f pivot);    // the same about a pivot

    // Azimuth in radians, 0 up to just below 2 pi: 0 along negative y, growing clockwise where y runs
    // downwards. |x| below 0.001 counts as vertical.
    float GetAngle() const;
};

struct VOSTEL_API StructVector3f {
    float x, y, z;

    StructVector3f() {}    // leaves the fields unset: arrays of these are made in bulk and filled after
    StructVector3f(float initX, float initY, float initZ) : x(initX), y(initY), z(initZ) {}

    StructVector3f& operator*=(float factor);
    StructVector3f& operator/=(float divisor);

    void Neg();
    void Cross(const StructVector3f& other);    // this becomes this x other
    // Scales by mInvSqrt of the squared length, so that the length is 1 only to about 0.2 %.
    void Normalize();
    // The dot product, in spite of the name: no division by lengths, no arc cosine.
    float GetAngle(const StructVector3f& other) const;
};

VOSTEL_API StructVector3f operator+(const StructVector3f& a, const StructVector3f& b);
VOSTEL_API StructVector3f operator-(const StructVector3f& a, const StructVector3f& b);
VOSTEL_API StructVector3f operator*(const StructVector3f& a, const StructVector3f& b);
VOSTEL_API StructVector3f operator/(const StructVector3f& a, const StructVector3f& b);
VOSTEL_API StructVector3f operator*(const StructVector3f& a, float factor);
VOSTEL_API StructVector3f operator*(float factor, const StructVector3f& a);
VOSTEL_API StructVector3f operator/(const StructVector3f& a, float divisor);
// The float is the divisor here too: 5 / v equals v / 5. There is no reciprocal form.
VOSTEL_API StructVector3f operator/(float divisor, const StructVector3f& a);

// 1 / sqrt(v) by the bit-level first guess 0x5F3759DF - (bits >> 1) and exactly one Newton step.
VOSTEL_API float mInvSqrt(float v);
