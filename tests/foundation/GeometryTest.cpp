#include <VostelObj.h>

#include <doctest/doctest.h>

#include <array>
#include <bit>
#include <climits>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <type_traits>

namespace {

bool RectIs(const ZEKRECT& r, int left, int right, int top, int bottom, int w, int h)
{
    return r.left == left && r.right == right && r.top == top && r.bottom == bottom && r.W == w && r.H == h;
}

PointTemplateBase<int> Clamped(const ZEKRECT& r, int x, int y)
{
    PointTemplateBase<int> p(x, y);
    r.Clamp(p);
    return p;
}

// Functions of the mathematics library may differ by one unit in the last place between platforms.
bool IsWithinOneUlp(float a, float b)
{
    const std::int64_t distance =
        static_cast<std::int64_t>(std::bit_cast<std::int32_t>(a)) - std::bit_cast<std::int32_t>(b);
    return a == b || (std::signbit(a) == std::signbit(b) && distance >= -1 && distance <= 1);
}

bool IsAbout(float a, double b)
{
    return std::fabs(static_cast<double>(a) - b) <= 1e-6 * std::fmax(1.0, std::fabs(b));
}

// The root as the bit trick gives it, one step.
float ReferenceInvSqrt(float v)
{
    const std::int32_t   i = std::bit_cast<std::int32_t>(v);
    const std::int64_t   shifted = i >= 0 ? i / 2 : -((-static_cast<std::int64_t>(i) + 1) / 2);
    const std::int32_t   i2 = static_cast<std::int32_t>(static_cast<std::uint32_t>(0x5F3759DF - shifted));
    volatile const float y = std::bit_cast<float>(i2);
    volatile float       t = 0.5f * v;
    t = t * y;
    t = t * y;
    t = 1.5f - t;
    return t * y;
}

}

TEST_CASE("points hold x and y in this order and start at the origin")
{
    const PointTemplateBase<int>    whole;
    const PointTemplateBase<double> real(1.5, -2.5);
    CHECK(whole.x == 0);
    CHECK(whole.y == 0);
    CHECK(real.x == 1.5);
    CHECK(real.y == -2.5);
    CHECK(sizeof(PointTemplateBase<int>) == 8);
    CHECK(sizeof(PointTemplateBase<double>) == 16);
}

TEST_CASE("no geometry type has a virtual table or padding")
{
    CHECK_FALSE(std::is_polymorphic_v<ZEKRECT>);
    CHECK(sizeof(ZEKSize) == 8);
    CHECK(sizeof(ZEKRECT) == 24);
    CHECK(sizeof(ZEKPoint3D) == 12);
    CHECK(sizeof(ZEKPoint3Dd) == 24);
    CHECK(sizeof(ZEKRect3D) == 24);
    CHECK(sizeof(StructVector2f) == 8);
    CHECK(sizeof(StructVector3f) == 12);
    CHECK(offsetof(ZEKRECT, top) == 4);
    CHECK(offsetof(ZEKRECT, right) == 8);
    CHECK(offsetof(ZEKRECT, W) == 16);
}

TEST_CASE("sizes are assigned, added and subtracted field by field")
{
    ZEKSize size(3, 5);
    ZEKSize copy;
    CHECK(copy.cx == 0);
    CHECK(copy.cy == 0);
    CHECK(&(copy = size) == &copy);
    CHECK(copy.cx == 3);
    CHECK(copy.cy == 5);
    CHECK(&(copy += ZEKSize(10, 20)) == &copy);
    CHECK(copy.cx == 13);
    CHECK(copy.cy == 25);
    CHECK(&(copy -= size) == &copy);
    CHECK(copy.cx == 10);
    CHECK(copy.cy == 20);
}

TEST_CASE("sums of sizes wrap")
{
    ZEKSize size(INT_MAX, INT_MIN);
    size += ZEKSize(1, -1);
    CHECK(size.cx == INT_MIN);
    CHECK(size.cy == INT_MAX);
    size -= ZEKSize(1, -1);
    CHECK(size.cx == INT_MAX);
    CHECK(size.cy == INT_MIN);
}

TEST_CASE("a fresh rectangle is the one pixel at the origin")
{
    CHECK(RectIs(ZEKRECT(), 0, 0, 0, 0, 1, 1));
}

TEST_CASE("a rectangle takes its two x limits first, then its two y limits")
{
    const ZEKRECT r(1, 4, 2, 8);
    CHECK(RectIs(r, 1, 4, 2, 8, 4, 7));
    ZEKRECT set;
    set.SetValue(1, 4, 2, 8);
    CHECK(RectIs(set, 1, 4, 2, 8, 4, 7));
}

TEST_CASE("inflating leaves the cached extents until they are asked for")
{
    ZEKRECT r(1, 4, 2, 8);
    r.Inflate(1, 1, 1, 1);
    CHECK(RectIs(r, 0, 5, 1, 9, 4, 7));
    CHECK(r.GetW() == 6);
    CHECK(RectIs(r, 0, 5, 1, 9, 6, 7));
    CHECK(r.GetH() == 9);
    CHECK(RectIs(r, 0, 5, 1, 9, 6, 9));
}

TEST_CASE("deflating and inflating take left, right, top, bottom")
{
    ZEKRECT r(0, 100, 0, 100);
    r.Deflate(1, 2, 3, 4);
    CHECK(RectIs(r, 1, 98, 3, 96, 101, 101));
    r.Inflate(1, 2, 3, 4);
    CHECK(RectIs(r, 0, 100, 0, 100, 101, 101));
    r.Inflate(-1, -2, -3, -4);
    CHECK(RectIs(r, 1, 98, 3, 96, 101, 101));
}

TEST_CASE("both shifts move all four edges and no cached extent")
{
    ZEKRECT r(1, 4, 2, 8);
    r.W = r.H = 77;
    r.AddPoint(PointTemplateBase<int>(10, -20));
    CHECK(RectIs(r, 11, 14, -18, -12, 77, 77));
    r.OffSetRect(-10, 20);
    CHECK(RectIs(r, 1, 4, 2, 8, 77, 77));
}

TEST_CASE("all four edges of a rectangle count as inside")
{
    const ZEKRECT r(1, 4, 2, 8);
    const auto    inside = [&](int x, int y) { return r.IsInRect(PointTemplateBase<int>(x, y)); };
    CHECK(inside(1, 2));
    CHECK(inside(4, 8));
    CHECK(inside(4, 2));
    CHECK_FALSE(inside(0, 5));
    CHECK_FALSE(inside(5, 5));
    CHECK_FALSE(inside(2, 1));
    CHECK_FALSE(inside(2, 9));
}

TEST_CASE("Clamp stops one short of the right and bottom edge, although they are inside")
{
    const ZEKRECT r(1, 4, 2, 8);
    CHECK(r.IsInRect(PointTemplateBase<int>(4, 8)));
    CHECK(Clamped(r, 4, 8).x == 3);
    CHECK(Clamped(r, 4, 8).y == 7);
    CHECK(Clamped(r, 3, 7).x == 3);
    CHECK(Clamped(r, 3, 7).y == 7);
    CHECK(Clamped(r, 0, 1).x == 1);
    CHECK(Clamped(r, 0, 1).y == 2);
    CHECK(Clamped(r, INT_MAX, INT_MIN).x == 3);
    CHECK(Clamped(r, INT_MAX, INT_MIN).y == 2);
}

TEST_CASE("Clamp on a degenerate rectangle applies the upper limit last")
{
    const ZEKRECT r(5, 5, 9, 9);
    CHECK(Clamped(r, 5, 9).x == 4);
    CHECK(Clamped(r, 5, 9).y == 8);
    CHECK(Clamped(r, -100, -100).x == 4);
    CHECK(Clamped(r, -100, -100).y == 8);
}

TEST_CASE("ClampInIma cuts to the last pixel and leaves the cached extents")
{
    ZEKRECT r(-3, 50, -4, 60);
    r.ClampInIma(20, 10);
    CHECK(RectIs(r, 0, 19, 0, 9, 54, 65));
    ZEKRECT inner(2, 3, 4, 5);
    inner.ClampInIma(20, 10);
    CHECK(RectIs(inner, 2, 3, 4, 5, 2, 2));
}

TEST_CASE("ClampInIma reorders nothing: a rectangle wholly outside ends with right below left")
{
    ZEKRECT r(30, 40, 30, 40);
    r.ClampInIma(20, 10);
    CHECK(RectIs(r, 30, 19, 30, 9, 11, 11));
    ZEKRECT before(-40, -30, -40, -30);
    before.ClampInIma(20, 10);
    CHECK(RectIs(before, 0, -30, 0, -30, 11, 11));
}

TEST_CASE("assigning a rectangle copies all six fields")
{
    ZEKRECT r(1, 4, 2, 8);
    r.W = 70;
    r.H = 80;
    ZEKRECT copy;
    copy = r;
    CHECK(RectIs(copy, 1, 4, 2, 8, 70, 80));
}

TEST_CASE("rectangles at the limits of 32 bits wrap")
{
    ZEKRECT r(INT_MIN, INT_MAX, INT_MAX, INT_MIN);
    CHECK(r.W == 0);
    CHECK(r.H == 2);
    r.OffSetRect(-1, 1);
    CHECK(r.left == INT_MAX);
    CHECK(r.top == INT_MIN);
    r.Inflate(INT_MIN, INT_MAX, INT_MAX, INT_MIN);
    r.Deflate(INT_MIN, INT_MAX, INT_MAX, INT_MIN);
    CHECK(r.left == INT_MAX);
    CHECK(r.top == INT_MIN);
    CHECK(Clamped(ZEKRECT(0, INT_MIN, 0, INT_MIN), 5, 5).x == 5);    // INT_MIN - 1 is INT_MAX
    r.ClampInIma(INT_MIN, INT_MIN);
    CHECK(r.GetW() == r.W);
}

TEST_CASE("points in space start at the origin and hold x, y, z")
{
    const ZEKPoint3D  none;
    const ZEKPoint3D  some(1, -2, 3);
    const ZEKPoint3Dd noneReal;
    ZEKPoint3Dd       real(0.5, -1.5, 2.5);
    CHECK(none.x == 0);
    CHECK(none.y == 0);
    CHECK(none.z == 0);
    CHECK(some.x == 1);
    CHECK(some.y == -2);
    CHECK(some.z == 3);
    CHECK(noneReal.x + noneReal.y + noneReal.z == 0.0);
    real = ZEKPoint3Dd(4.0, 5.0, 6.0);
    CHECK(real.x == 4.0);
    CHECK(real.y == 5.0);
    CHECK(real.z == 6.0);
}

TEST_CASE("a fresh box in space is ready to grow: low limits 10000, high limits -10000, axis by axis")
{
    const ZEKRect3D box;
    const auto      limits = std::bit_cast<std::array<std::int32_t, 6>>(box);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        CHECK(limits[2 * axis] == 10000);
        CHECK(limits[2 * axis + 1] == -10000);
    }
    ZEKRect3D other;
    other.zHigh = 4;
    ZEKRect3D copy;
    copy = other;
    CHECK(copy.zHigh == 4);
}

TEST_CASE("plane vectors add, subtract and multiply element by element")
{
    StructVector2f v;
    CHECK(v.x == 0.0f);
    CHECK(v.y == 0.0f);
    v = StructVector2f(3.0f, 5.0f);
    CHECK(&(v += StructVector2f(1.0f, 2.0f)) == &v);
    CHECK(v.x == 4.0f);
    CHECK(v.y == 7.0f);
    CHECK(&(v -= StructVector2f(2.0f, 3.0f)) == &v);
    CHECK(v.x == 2.0f);
    CHECK(v.y == 4.0f);
    CHECK(&(v *= StructVector2f(3.0f, -1.0f)) == &v);
    CHECK(v.x == 6.0f);
    CHECK(v.y == -4.0f);
    CHECK(&(v *= 0.5f) == &v);
    CHECK(v.x == 3.0f);
    CHECK(v.y == -2.0f);
    CHECK(&(v /= 2.0f) == &v);
    CHECK(v.x == 1.5f);
    CHECK(v.y == -1.0f);
    v.Mul(4.0f);
    CHECK(v.x == 6.0f);
    CHECK(v.y == -4.0f);
    CHECK(v.GetAdd() == 2.0f);
    v += v;
    v *= v;
    CHECK(v.x == 144.0f);
    CHECK(v.y == 64.0f);
    StructVector2f& itself = v;
    v -= itself;
    CHECK(v.x == 0.0f);
}

TEST_CASE("a plane vector has its length and is brought to length 1 by it")
{
    StructVector2f v(3.0f, -4.0f);
    CHECK(v.Mag() == 5.0f);
    v.Normal();
    CHECK(v.x == 3.0f / 5.0f);
    CHECK(v.y == -4.0f / 5.0f);
    StructVector2f none;
    none.Normal();
    CHECK(std::isnan(none.x));
    CHECK(std::isnan(none.y));
}

TEST_CASE("Rotate takes degrees and RotateDeg radians")
{
    StructVector2f quarter(1.0f, 0.0f);
    quarter.Rotate(90.0f);
    CHECK(IsAbout(quarter.x, 0.0));
    CHECK(IsAbout(quarter.y, 1.0));
    StructVector2f radians(1.0f, 0.0f);
    radians.RotateDeg(1.5707963f);
    CHECK(IsAbout(radians.x, 0.0));
    CHECK(IsAbout(radians.y, 1.0));
    StructVector2f both(2.0f, 3.0f);
    both.RotateDeg(90.0f);    // 90 radians, not a quarter
    CHECK(IsAbout(both.x, 2.0 * std::cos(90.0) - 3.0 * std::sin(90.0)));
    CHECK(IsAbout(both.y, 2.0 * std::sin(90.0) + 3.0 * std::cos(90.0)));
}

TEST_CASE("Rotate uses the constant 3.1415926, so that its angle equals that many radians")
{
    for (const float degrees : {0.0f, 30.0f, -45.0f, 180.0f, 359.5f, 1e6f}) {
        CAPTURE(degrees);
        StructVector2f byDegrees(1.25f, -7.5f);
        StructVector2f byRadians(1.25f, -7.5f);
        byDegrees.Rotate(degrees);
        byRadians.RotateDeg(static_cast<float>(static_cast<double>(degrees) / 180.0 * 3.1415926));
        CHECK(byDegrees.x == byRadians.x);
        CHECK(byDegrees.y == byRadians.y);
    }
    StructVector2f half(0.0f, 1e6f);
    half.Rotate(180.0f);
    // The sine of the short constant, not of pi: 5e-8, and 0.15 lower still since the float is rounded.
    CHECK(half.x == -1e6f * std::sin(static_cast<float>(3.1415926)));
}

TEST_CASE("a pivot stays where it is and turns the rest about itself")
{
    StructVector2f v(3.0f, 1.0f);
    v.RotateDeg(1.5707963f, StructVector2f(2.0f, 1.0f));
    CHECK(IsAbout(v.x, 2.0));
    CHECK(IsAbout(v.y, 2.0));
    StructVector2f pivot(7.0f, -3.0f);
    pivot.RotateDeg(0.7f, pivot);
    CHECK(pivot.x == 7.0f);
    CHECK(pivot.y == -3.0f);
    StructVector2f aboutOrigin(1.0f, 2.0f);
    StructVector2f plain(1.0f, 2.0f);
    aboutOrigin.RotateDeg(0.7f, StructVector2f());
    plain.RotateDeg(0.7f);
    CHECK(IsWithinOneUlp(aboutOrigin.x, plain.x));
    CHECK(IsWithinOneUlp(aboutOrigin.y, plain.y));
}

TEST_CASE("the azimuth is 0 along negative y and grows clockwise where y runs downwards")
{
    CHECK(StructVector2f(0.0f, -1.0f).GetAngle() == 0.0f);
    CHECK(StructVector2f(1.0f, 0.0f).GetAngle() == 1.5707963f);
    CHECK(std::bit_cast<std::uint32_t>(StructVector2f(0.0f, 1.0f).GetAngle()) == 0x40490FDAu);
    CHECK(StructVector2f(-1.0f, 0.0f).GetAngle() == static_cast<float>(4.7123889));
    CHECK(StructVector2f(0.0f, 0.0f).GetAngle() == 0.0f);
    CHECK(IsAbout(StructVector2f(1.0f, -1.0f).GetAngle(), 0.78539815));
    CHECK(IsAbout(StructVector2f(1.0f, 1.0f).GetAngle(), 2.3561945));
    CHECK(IsAbout(StructVector2f(-1.0f, 1.0f).GetAngle(), 3.9269908));
    CHECK(IsAbout(StructVector2f(-1.0f, -1.0f).GetAngle(), 5.4977871));
}

TEST_CASE("an x below 0.001 in magnitude counts as vertical")
{
    CHECK(StructVector2f(0.0005f, 2.0f).GetAngle() == std::bit_cast<float>(0x40490FDAu));
    CHECK(StructVector2f(-0.0005f, 2.0f).GetAngle() == std::bit_cast<float>(0x40490FDAu));
    CHECK(StructVector2f(0.0005f, -2.0f).GetAngle() == 0.0f);
    CHECK(StructVector2f(0.0005f, 0.0f).GetAngle() == 0.0f);
    CHECK(StructVector2f(0.002f, 0.0f).GetAngle() == 1.5707963f);
}

TEST_CASE("the azimuth adds in double and rounds once")
{
    const unsigned seed = 99;
    CAPTURE(seed);
    std::mt19937                          random(seed);
    std::uniform_real_distribution<float> values(-50.0f, 50.0f);
    for (int i = 0; i < 2000; ++i) {
        const float x = values(random);
        const float y = values(random);
        if (std::fabs(x) < 0.001f)
            continue;
        CAPTURE(x);
        CAPTURE(y);
        volatile const float t = y / x;
        const double         base = x > 0.0f ? 1.5707963 : 4.7123889000000005;
        const float          angle = StructVector2f(x, y).GetAngle();
        REQUIRE(IsWithinOneUlp(angle, static_cast<float>(static_cast<double>(std::atan(t)) + base)));
        REQUIRE(angle >= 0.0f);
        REQUIRE(angle < 6.2831854f);
    }
}

TEST_CASE("an azimuth of what is not a number is 0")
{
    CHECK(StructVector2f(std::nanf(""), 1.0f).GetAngle() == 0.0f);
}

TEST_CASE("vectors in space have element-wise operators, and a float always divides")
{
    const StructVector3f a(1.0f, 2.0f, 3.0f);
    const StructVector3f b(4.0f, -8.0f, 0.5f);
    const auto           is = [](const StructVector3f& v, float x, float y, float z) {
        return v.x == x && v.y == y && v.z == z;
    };
    CHECK(is(a + b, 5.0f, -6.0f, 3.5f));
    CHECK(is(a - b, -3.0f, 10.0f, 2.5f));
    CHECK(is(a * b, 4.0f, -16.0f, 1.5f));
    CHECK(is(a / b, 0.25f, -0.25f, 6.0f));
    CHECK(is(a * 2.0f, 2.0f, 4.0f, 6.0f));
    CHECK(is(2.0f * a, 2.0f, 4.0f, 6.0f));
    CHECK(is(b / 2.0f, 2.0f, -4.0f, 0.25f));
    CHECK(is(2.0f / b, 2.0f, -4.0f, 0.25f));
    CHECK(is(5.0f / a, (a / 5.0f).x, (a / 5.0f).y, (a / 5.0f).z));

    StructVector3f v;
    v = a;
    CHECK(&(v *= 4.0f) == &v);
    CHECK(is(v, 4.0f, 8.0f, 12.0f));
    CHECK(&(v /= 2.0f) == &v);
    CHECK(is(v, 2.0f, 4.0f, 6.0f));
    v.Neg();
    CHECK(is(v, -2.0f, -4.0f, -6.0f));
}

TEST_CASE("Cross replaces the vector by its product with another, also with itself")
{
    StructVector3f x(1.0f, 0.0f, 0.0f);
    x.Cross(StructVector3f(0.0f, 1.0f, 0.0f));
    CHECK(x.x == 0.0f);
    CHECK(x.y == 0.0f);
    CHECK(x.z == 1.0f);
    StructVector3f v(2.0f, 3.0f, 5.0f);
    v.Cross(StructVector3f(7.0f, 11.0f, 13.0f));
    CHECK(v.x == -16.0f);
    CHECK(v.y == 9.0f);
    CHECK(v.z == 1.0f);
    v.Cross(v);
    CHECK(v.x == 0.0f);
    CHECK(v.y == 0.0f);
    CHECK(v.z == 0.0f);
}

TEST_CASE("GetAngle of vectors in space is the dot product")
{
    CHECK(StructVector3f(2.0f, 0.0f, 0.0f).GetAngle(StructVector3f(3.0f, 0.0f, 0.0f)) == 6.0f);
    CHECK(StructVector3f(1.0f, 2.0f, 3.0f).GetAngle(StructVector3f(-1.0f, 4.0f, 2.0f)) == 13.0f);
}

TEST_CASE("the inverse root takes exactly one refinement step")
{
    CHECK(mInvSqrt(4.0f) == ReferenceInvSqrt(4.0f));
    CHECK(mInvSqrt(1.0f) != 1.0f);
    CHECK(std::fabs(mInvSqrt(1.0f) - 1.0f) < 0.002f);
    const unsigned seed = 1234;
    CAPTURE(seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 20000; ++i) {
        const std::uint32_t bits = static_cast<std::uint32_t>(random());
        CAPTURE(bits);
        const float v = std::bit_cast<float>(bits);
        const float expected = ReferenceInvSqrt(v);
        if (std::isnan(expected))
            REQUIRE(std::isnan(mInvSqrt(v)));
        else
            REQUIRE(std::bit_cast<std::uint32_t>(mInvSqrt(v)) == std::bit_cast<std::uint32_t>(expected));
    }
}

TEST_CASE("Normalize scales by that root, so that the length is 1 only to a fifth of a percent")
{
    StructVector3f v(3.0f, -4.0f, 12.0f);
    const float    r = mInvSqrt(169.0f);
    v.Normalize();
    CHECK(v.x == 3.0f * r);
    CHECK(v.y == -4.0f * r);
    CHECK(v.z == 12.0f * r);
    CHECK(v.x * v.x + v.y * v.y + v.z * v.z != 1.0f);
    StructVector3f none(0.0f, 0.0f, 0.0f);
    none.Normalize();
    CHECK(none.x == 0.0f);
    CHECK(none.z == 0.0f);
}
