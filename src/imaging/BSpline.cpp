#include "vostel/RasterFills.h"

#include "base/Truncate.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace vostel;

namespace {

using Point = PointTemplateBase<int>;

constexpr int MostPoints = 199;
constexpr int RowLength = 205;    // of the working array; holds the largest system
constexpr int Band = 3;           // columns right of the diagonal that elimination can fill
constexpr int SamplesPerSegment = 11;

// A linear system with two right-hand sides, x and y together. Column-major: elimination runs down columns.
// The matrix is a band, and what elimination would add elsewhere is a multiple of an exact zero, so only
// columns up to Band right of the diagonal are touched; every operation that is left keeps its order.
class ControlSystem {
public:
    explicit ControlSystem(const std::vector<Point>& points) : Size(static_cast<int>(points.size()) + 3)
    {
        // Rows further below the diagonal are zeros that nothing reads.
        for (int c = 0; c < Size; ++c)
            std::fill_n(Columns[c], std::min(c + Band + 2, Size), 0.0);
        const int    last = Size - 1;
        const int    count = static_cast<int>(points.size());
        const Point& first = points.front();
        const Point& end = points.back();
        // The first point stands twice: knot i passes through point i - 1.
        const auto knot = [&](int i) -> const Point& {
            return points[static_cast<std::size_t>(i == 0 ? 0 : i - 1)];
        };

        Set(0, 0, -0.5);
        Set(0, 2, 1.5);
        SetRight(0, first.x, first.y);
        Set(1, 1, 2.0 / 3.0);
        Set(1, 2, 2.0 / 3.0);
        SetRight(1, first.x / 3.0 + knot(0).x, first.y / 3.0 + knot(0).y);
        for (int r = 2; r <= count; ++r) {
            Set(r, r - 1, 1.0 / 6.0);
            Set(r, r, 2.0 / 3.0);
            Set(r, r + 1, 1.0 / 6.0);
            SetRight(r, knot(r - 1).x, knot(r - 1).y);
        }
        Set(last - 1, last - 2, 2.0 / 9.0);
        Set(last - 1, last - 1, 2.0 / 3.0);
        SetRight(last - 1, knot(count).x - end.x / 9.0, knot(count).y - end.y / 9.0);
        Set(last, last - 2, -0.5);
        Set(last, last, 1.5);
        SetRight(last, end.x, end.y);
    }

    // Gauss-Jordan. The pivot is not the largest of its column: the row that beats the diagonal last wins.
    void Solve()
    {
        for (int k = 0; k < Size; ++k) {
            const double diagonal = std::fabs(Columns[k][k]);
            int          pivot = k;
            for (int i = k; i < std::min(k + Band, Size); ++i) {    // below these all are zeros
                if (std::fabs(Columns[k][i]) > diagonal)
                    pivot = i;
            }
            if (pivot != k)
                SwapRows(k, pivot);
            const double divisor = Columns[k][k];
            const int    end = std::min(k + Band, Size - 1);
            for (int c = k; c <= end; ++c)
                Columns[c][k] /= divisor;
            RightX[k] /= divisor;
            RightY[k] /= divisor;
            Eliminate(k, end);
        }
    }

    // The control points, after Solve.
    const double* AllX() const { return RightX; }
    const double* AllY() const { return RightY; }
    int           Count() const { return Size; }

private:
    int    Size;
    double Columns[RowLength][RowLength];
    double RightX[RowLength];
    double RightY[RowLength];

    void Set(int row, int column, double value) { Columns[column][row] = value; }
    void SetRight(int row, double x, double y)
    {
        RightX[row] = x;
        RightY[row] = y;
    }
    // Columns to the left are zeros in both rows, those beyond the band have not been reached by either.
    void SwapRows(int upper, int lower)
    {
        const int end = std::min(upper + Band, Size - 1);
        for (int c = upper; c <= end; ++c)
            std::swap(Columns[c][upper], Columns[c][lower]);
        std::swap(RightX[upper], RightX[lower]);
        std::swap(RightY[upper], RightY[lower]);
    }

    // Adds -M[r][k] times row k to every other row. The factors are the column itself, which is cleared last.
    void Eliminate(int k, int end)
    {
        double* const factors = Columns[k];
        // Rows more than the band below the diagonal have an exact zero there.
        const int    rows = std::min(k + Band + 1, Size);
        const double kept = factors[k];
        factors[k] = 0.0;
        for (int c = k + 1; c <= end; ++c)
            AddMultiples(Columns[c], factors, Columns[c][k], rows);
        AddMultiples(RightX, factors, RightX[k], rows);
        AddMultiples(RightY, factors, RightY[k], rows);
        std::fill_n(factors, rows, 0.0);
        factors[k] = kept;
    }

    static void AddMultiples(double* target, const double* factors, double value, int rows)
    {
        if (value == 0.0)
            return;
        for (int r = 0; r < rows; ++r)
            target[r] += -factors[r] * value;
    }
};

// The cubic basis at the samples of a segment, which are the same on all of them.
struct Basis {
    double At[SamplesPerSegment][4];

    Basis()
    {
        for (int t = 0; t < SamplesPerSegment; ++t) {
            const double u = t / 10.0;
            At[t][0] = (1.0 - 3.0 * u + 3.0 * u * u - u * u * u) / 6.0;
            At[t][1] = (4.0 - 6.0 * u * u + 3.0 * u * u * u) / 6.0;
            At[t][2] = (1.0 + 3.0 * u + 3.0 * u * u - 3.0 * u * u * u) / 6.0;
            At[t][3] = u * u * u / 6.0;
        }
    }
};

int Blend(const double (&basis)[4], const double* controls)
{
    return TruncToInt(basis[0] * controls[0] + basis[1] * controls[1] + basis[2] * controls[2] +
                      basis[3] * controls[3]);
}

}

void mB3Line(const std::vector<Point>& input, std::vector<Point>& curve, std::vector<Point>& controls)
{
    const std::size_t count = input.size();
    if (count < 2 || count > MostPoints)
        return;
    ControlSystem system(input);
    system.Solve();

    std::vector<Point> points;    // input may be one of the results
    points.reserve(static_cast<std::size_t>(system.Count()));
    for (int i = 0; i < system.Count(); ++i)
        points.emplace_back(TruncToInt(system.AllX()[i]), TruncToInt(system.AllY()[i]));
    static const Basis basis;
    std::vector<Point> samples(SamplesPerSegment * (count - 1));
    Point*             sample = samples.data();
    for (int j = 0; j + 1 < static_cast<int>(count); ++j) {
        for (int t = 0; t < SamplesPerSegment; ++t, ++sample) {
            sample->x = Blend(basis.At[t], system.AllX() + j + 1);
            sample->y = Blend(basis.At[t], system.AllY() + j + 1);
        }
    }
    controls = std::move(points);
    curve = std::move(samples);
}
