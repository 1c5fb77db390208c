#include "geometry/Predicates.h"

#include "geometry/ExactNumber.h"

#include <algorithm>
#include <cmath>

namespace vostel {

namespace {

// Larger than the rounding errors of a two by two determinant of differences, by a factor of three.
constexpr double DeterminantError = 1e-15;
// And of the normal form of an ellipse.
constexpr double EllipseError = 1e-14;
// Products in this range have their rounding error in double, too.
constexpr double LeastProduct = 1e-250;
constexpr double GreatestFactor = 1e140;
constexpr double Least = 1e-280;

int SignOf(double v)
{
    return static_cast<int>(v > 0.0) - static_cast<int>(v < 0.0);
}

// Whether a - b, rounded to difference, lost nothing.
bool IsExactDifference(double a, double b, double difference)
{
    const double impliedB = a - difference;
    const double impliedA = difference + impliedB;
    return a - impliedA == 0.0 && impliedB - b == 0.0;
}

// What a * b lost when it was rounded to product.
double ProductError(double a, double b, double product)
{
    constexpr double Splitter = 134217729.0;    // 2^27 + 1
    const double     stretchedA = Splitter * a;
    const double     stretchedB = Splitter * b;
    const double     highA = stretchedA - (stretchedA - a);
    const double     highB = stretchedB - (stretchedB - b);
    const double     lowA = a - highA;
    const double     lowB = b - highB;
    return lowA * lowB - (((product - highA * highB) - lowA * highB) - highA * lowB);
}

bool IsSplittable(double a, double b, double product)
{
    return std::fabs(a) < GreatestFactor && std::fabs(b) < GreatestFactor &&
           (a == 0.0 || b == 0.0 || std::fabs(product) > LeastProduct);
}

int ExactOrientation(ImagePoint a, ImagePoint b, ImagePoint c)
{
    const ExactNumber ax(a.x);
    const ExactNumber ay(a.y);
    return ((ExactNumber(b.x) - ax) * (ExactNumber(c.y) - ay) -
            (ExactNumber(b.y) - ay) * (ExactNumber(c.x) - ax))
        .Sign();
}

ExactNumber Square(const ExactNumber& v)
{
    return v * v;
}

int ExactSideOfEllipse(const Bounds& box, ImagePoint point)
{
    const ExactNumber left(box.Left);
    const ExactNumber right(box.Right);
    const ExactNumber top(box.Top);
    const ExactNumber bottom(box.Bottom);
    const ExactNumber x(point.x);
    const ExactNumber y(point.y);
    const ExactNumber width = Square(right - left);
    const ExactNumber height = Square(bottom - top);
    const ExactNumber across = Square((x - left) - (right - x));
    const ExactNumber down = Square((y - top) - (bottom - y));
    return (across * height + down * width - width * height).Sign();
}

}

int Orientation(ImagePoint a, ImagePoint b, ImagePoint c)
{
    const double abx = b.x - a.x;
    const double aby = b.y - a.y;
    const double acx = c.x - a.x;
    const double acy = c.y - a.y;
    const double falling = abx * acy;
    const double rising = aby * acx;
    const double size = std::fabs(falling) + std::fabs(rising);
    const double determinant = falling - rising;
    if (std::isfinite(size) && size > LeastProduct && std::fabs(determinant) > DeterminantError * size)
        return SignOf(determinant);

    // Points on a grid come here often, and their differences are exact. Rounding keeps the order, so
    // products that round to different numbers differ the same way.
    if (IsExactDifference(b.x, a.x, abx) && IsExactDifference(b.y, a.y, aby) &&
        IsExactDifference(c.x, a.x, acx) && IsExactDifference(c.y, a.y, acy) &&
        IsSplittable(abx, acy, falling) && IsSplittable(aby, acx, rising)) {
        return determinant != 0.0 ? SignOf(determinant)
                                  : SignOf(ProductError(abx, acy, falling) - ProductError(aby, acx, rising));
    }
    return ExactOrientation(a, b, c);
}

int SideOfMiddle(double low, double high, double x)
{
    const double before = x - low;
    const double after = high - x;
    const double size = std::fabs(before) + std::fabs(after);
    const double difference = before - after;
    if (std::isfinite(size) && std::fabs(difference) > DeterminantError * size)
        return SignOf(difference);
    const ExactNumber exact(x);
    return ((exact - ExactNumber(low)) - (ExactNumber(high) - exact)).Sign();
}

int SideOfEllipse(const Bounds& box, ImagePoint point)
{
    const double width = box.Right - box.Left;
    const double height = box.Bottom - box.Top;
    const double across = ((point.x - box.Left) - (box.Right - point.x)) / width;
    const double down = ((point.y - box.Top) - (box.Bottom - point.y)) / height;
    const double size = across * across + down * down + 1.0;
    if (std::isfinite(width) && std::isfinite(height) && width > Least && height > Least &&
        std::fabs(size - 2.0) > EllipseError * size)
        return SignOf(size - 2.0);
    return ExactSideOfEllipse(box, point);
}

int FirstColumnRightOf(ImagePoint top, ImagePoint bottom, double y, int width)
{
    const ExactNumber left(top.x);
    const ExactNumber upper(top.y);
    const ExactNumber height = ExactNumber(bottom.y) - upper;
    const ExactNumber crossing = left * height + (ExactNumber(y) - upper) * (ExactNumber(bottom.x) - left);
    // Within the image the quotient is right to less than a pixel.
    int        column = FirstCentre(Quotient(crossing, height), width);
    const auto isLeft = [&](int i) { return (ExactNumber(i + 0.5) * height - crossing).Sign() < 0; };
    while (column > 0 && !isLeft(column - 1))
        --column;
    while (column < width && isLeft(column))
        ++column;
    return column;
}

}
