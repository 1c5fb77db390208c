#include "vostel/Geometry.h"

#include "base/Truncate.h"

#include <bit>
#include <cmath>

using namespace vostel;

ZEKSize& ZEKSize::operator=(ZEKSize other)
{
    cx = other.cx;
    cy = other.cy;
    return *this;
}

ZEKSize& ZEKSize::operator+=(ZEKSize other)
{
    cx = WrapAdd(cx, other.cx);
    cy = WrapAdd(cy, other.cy);
    return *this;
}

ZEKSize& ZEKSize::operator-=(ZEKSize other)
{
    cx = WrapSub(cx, other.cx);
    cy = WrapSub(cy, other.cy);
    return *this;
}

ZEKRECT::ZEKRECT(int l, int r, int t, int b)
{
    SetValue(l, r, t, b);
}

void ZEKRECT::SetValue(int l, int r, int t, int b)
{
    left = l;
    right = r;
    top = t;
    bottom = b;
    GetW();
    GetH();
}

int ZEKRECT::GetW()
{
    return W = WrapAdd(WrapSub(right, left), 1);
}

int ZEKRECT::GetH()
{
    return H = WrapAdd(WrapSub(bottom, top), 1);
}

bool ZEKRECT::IsInRect(PointTemplateBase<int> p) const
{
    return left <= p.x && p.x <= right && top <= p.y && p.y <= bottom;
}

void ZEKRECT::AddPoint(PointTemplateBase<int> p)
{
    OffSetRect(p.x, p.y);
}

void ZEKRECT::OffSetRect(int dx, int dy)
{
    left = WrapAdd(left, dx);
    right = WrapAdd(right, dx);
    top = WrapAdd(top, dy);
    bottom = WrapAdd(bottom, dy);
}

void ZEKRECT::Deflate(int l, int r, int t, int b)
{
    left = WrapAdd(left, l);
    right = WrapSub(right, r);
    top = WrapAdd(top, t);
    bottom = WrapSub(bottom, b);
}

void ZEKRECT::Inflate(int l, int r, int t, int b)
{
    left = WrapSub(left, l);
    right = WrapAdd(right, r);
    top = WrapSub(top, t);
    bottom = WrapAdd(bottom, b);
}

void ZEKRECT::Clamp(PointTemplateBase<int>& p) const
{
    if (p.x < left)
        p.x = left;
    if (p.x > WrapSub(right, 1))
        p.x = WrapSub(right, 1);
    if (p.y < top)
        p.y = top;
    if (p.y > WrapSub(bottom, 1))
        p.y = WrapSub(bottom, 1);
}

void ZEKRECT::ClampInIma(int width, int height)
{
    if (left < 0)
        left = 0;
    if (top < 0)
        top = 0;
    if (right > WrapSub(width, 1))
        right = WrapSub(width, 1);
    if (bottom > WrapSub(height, 1))
        bottom = WrapSub(height, 1);
}

StructVector2f& StructVector2f::operator+=(const StructVector2f& other)
{
    x += other.x;
    y += other.y;
    return *this;
}

StructVector2f& StructVector2f::operator-=(const StructVector2f& other)
{
    x -= other.x;
    y -= other.y;
    return *this;
}

StructVector2f& StructVector2f::operator*=(const StructVector2f& other)
{
    x *= other.x;
    y *= other.y;
    return *this;
}

StructVector2f& StructVector2f::operator*=(float factor)
{
    x *= factor;
    y *= factor;
    return *this;
}

StructVector2f& StructVector2f::operator/=(float divisor)
{
    x /= divisor;
    y /= divisor;
    return *this;
}

float StructVector2f::Mag() const
{
    return std::sqrt(x * x + y * y);
}

void StructVector2f::Normal()
{
    *this /= Mag();
}

void StructVector2f::Mul(float factor)
{
    *this *= factor;
}

float StructVector2f::GetAdd() const
{
    return x + y;
}

void StructVector2f::Rotate(float degrees)
{
    RotateDeg(static_cast<float>(static_cast<double>(degrees) / 180.0 * 3.1415926));
}

void StructVector2f::RotateDeg(float angle)
{
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    const float turnedX = x * c - y * s;
    y = x * s + y * c;
    x = turnedX;
}

void StructVector2f::RotateDeg(float angle, StructVector2f pivot)
{
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    const float dx = x - pivot.x;
    const float dy = y - pivot.y;
    x = c * dx - s * dy + pivot.x;
    y = s * dx + c * dy + pivot.y;
}

float StructVector2f::GetAngle() const
{
    const float half = std::bit_cast<float>(0x40490FDAu);    // 3.1415925
    if (static_cast<double>(std::fabs(x)) < 0.001)
        return y > 0.0f ? half : 0.0f;
    const float t = y / x;
    if (x > 0.0f)
        return static_cast<float>(static_cast<double>(std::atan(t)) + 1.5707963);
    if (x < 0.0f)
        return static_cast<float>(static_cast<double>(std::atan(t)) + 4.7123889000000005);
    return 0.0f;
}

StructVector3f& StructVector3f::operator*=(float factor)
{
    x *= factor;
    y *= factor;
    z *= factor;
    return *this;
}

StructVector3f& StructVector3f::operator/=(float divisor)
{
    x /= divisor;
    y /= divisor;
    z /= divisor;
    return *this;
}

void StructVector3f::Neg()
{
    x = -x;
    y = -y;
    z = -z;
}

void StructVector3f::Cross(const StructVector3f& other)
{
    const StructVector3f a = *this;
    const StructVector3f b = other;    // may be this vector
    x = a.y * b.z - a.z * b.y;
    y = a.z * b.x - a.x * b.z;
    z = a.x * b.y - a.y * b.x;
}

void StructVector3f::Normalize()
{
    *this *= mInvSqrt(x * x + y * y + z * z);
}

float StructVector3f::GetAngle(const StructVector3f& other) const
{
    return x * other.x + y * other.y + z * other.z;
}

StructVector3f operator+(const StructVector3f& a, const StructVector3f& b)
{
    return StructVector3f(a.x + b.x, a.y + b.y, a.z + b.z);
}

StructVector3f operator-(const StructVector3f& a, const StructVector3f& b)
{
    return StructVector3f(a.x - b.x, a.y - b.y, a.z - b.z);
}

StructVector3f operator*(const StructVector3f& a, const StructVector3f& b)
{
    return StructVector3f(a.x * b.x, a.y * b.y, a.z * b.z);
}

StructVector3f operator/(const StructVector3f& a, const StructVector3f& b)
{
    return StructVector3f(a.x / b.x, a.y / b.y, a.z / b.z);
}

StructVector3f operator*(const StructVector3f& a, float factor)
{
    return StructVector3f(a.x * factor, a.y * factor, a.z * factor);
}

StructVector3f operator*(float factor, const StructVector3f& a)
{
    return a * factor;
}

StructVector3f operator/(const StructVector3f& a, float divisor)
{
    return StructVector3f(a.x / divisor, a.y / divisor, a.z / divisor);
}

StructVector3f operator/(float divisor, const StructVector3f& a)
{
    return a / divisor;
}

float mInvSqrt(float v)
{
    const int   bits = std::bit_cast<int>(v);
    const float guess = std::bit_cast<float>(WrapSub(0x5F3759DF, bits >> 1));
    return (1.5f - 0.5f * v * guess * guess) * guess;
}
