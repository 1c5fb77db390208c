#include "vostel/ImageConcatenation.h"

#include "foundation/ArrayLength.h"
#include "imaging/PlaneRows.h"
#include "platform/HostServices.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

using namespace vostel;

namespace {

using Plane = ClassData2DIO<float>;

// A row as the formula reads it: zero where the image has nothing.
struct Samples {
    const float* Row = nullptr;
    std::int64_t Width = 0;

    float operator[](std::int64_t x) const { return x >= 0 && x < Width ? Row[x] : 0.0f; }

    // target[k] = this[first + k] * factor; factor 1 keeps every bit.
    void CopyScaled(std::int64_t first, std::int64_t count, float factor, float* target) const
    {
        const std::int64_t start = std::clamp<std::int64_t>(-first, 0, std::max<std::int64_t>(count, 0));
        const std::int64_t end = std::clamp<std::int64_t>(Width - first, start, std::max(count, start));
        std::fill(target, target + start, factor * 0.0f);
        for (std::int64_t k = start; k < end; ++k)
            target[k] = factor * Row[first + k];
        if (end < count)
            std::fill(target + end, target + count, factor * 0.0f);
    }
    void Copy(std::int64_t first, std::int64_t count, float* target) const
    {
        const std::int64_t start = std::clamp<std::int64_t>(-first, 0, std::max<std::int64_t>(count, 0));
        const std::int64_t end = std::clamp<std::int64_t>(Width - first, start, std::max(count, start));
        std::fill(target, target + start, 0.0f);
        if (start < end)
            std::copy(Row + first + start, Row + first + end, target + start);
        if (end < count)
            std::fill(target + end, target + count, 0.0f);
    }
};

Samples SamplesOf(const Plane& image, int y)
{
    return y < image.Height && CountOf(image) > 0 ? Samples{RowOf(image, y), image.Width} : Samples{};
}

constexpr int RowsAtOnce = 8;

// Sums of count samples from first on, of several rows. Each starts at 0.0f and goes left to right; the
// chains of the rows run side by side. Adding what is zero for want of samples changes no sum.
void SumRows(const Samples* rows, int rowCount, std::int64_t first, std::int64_t count, float* sums)
{
    std::int64_t start = std::max<std::int64_t>(first, 0);
    std::int64_t end = first + count;
    bool         sameWidth = true;
    for (int r = 0; r < rowCount; ++r)
        sameWidth = sameWidth && rows[r].Width == rows[0].Width;
    if (sameWidth && rowCount == RowsAtOnce) {
        end = std::min(end, rows[0].Width);
        float running[RowsAtOnce] = {};
        for (std::int64_t x = start; x < end; ++x)
            for (int r = 0; r < RowsAtOnce; ++r)
                running[r] += rows[r].Row[x];
        std::copy_n(running, RowsAtOnce, sums);
        return;
    }
    for (int r = 0; r < rowCount; ++r) {
        sums[r] = 0.0f;
        for (std::int64_t x = start; x < std::min(end, rows[r].Width); ++x)
            sums[r] += rows[r].Row[x];
    }
}

// The container's sizes are 32-bit; a wider result fails as an allocation that no allocator can serve.
void AllocateResult(Plane& result, std::int64_t width, int height)
{
    if (width > INT_MAX || width < INT_MIN)
        FailArrayLength();
    result.Allocate(static_cast<int>(width), height);
}

void Butt(const Plane& a, const Plane& b, std::int64_t widthB, Plane& result)
{
    AllocateResult(result, a.Width + widthB, a.Height);
    for (int y = 0; y < result.Height; ++y) {
        SamplesOf(a, y).Copy(0, a.Width, result.Ptr2D[y]);
        SamplesOf(b, y).Copy(0, widthB, result.Ptr2D[y] + a.Width);
    }
}

// Weights of the columns that the result has of the cross-fade.
struct CrossFade {
    std::int64_t       Left;    // image columns of the result; the cross-fade without its missing parts
    std::int64_t       Right;
    std::vector<float> OfA;
    std::vector<float> OfB;

    CrossFade(std::int64_t left, std::int64_t blend, std::int64_t width)
        : Left(std::clamp<std::int64_t>(left, 0, width)),
          Right(std::clamp<std::int64_t>(left + blend, Left, width)),
          OfA(static_cast<std::size_t>(Right - Left)), OfB(OfA.size())
    {
        const float step = static_cast<float>(1.0 / static_cast<double>(static_cast<float>(blend - 1)));
        for (std::int64_t x = Left; x < Right; ++x) {
            const std::size_t at = static_cast<std::size_t>(x - Left);
            OfB[at] = static_cast<float>(x - left) * step;
            OfA[at] = static_cast<float>(1.0 - static_cast<double>(OfB[at]));
        }
    }

    void Mix(const Samples& a, const Samples& b, std::int64_t shift, float gain, float* target) const
    {
        const std::int64_t count = Right - Left;
        if (count == 0)
            return;    // then there may be no row to point into
        if (Right <= a.Width && Left + shift >= 0 && Right + shift <= b.Width) {
            const float* const rowA = a.Row + Left;
            const float* const rowB = b.Row + Left + shift;
            for (std::int64_t i = 0; i < count; ++i)
                target[Left + i] = rowB[i] * OfB[static_cast<std::size_t>(i)] * gain +
                                   rowA[i] * OfA[static_cast<std::size_t>(i)];
            return;
        }
        for (std::int64_t i = 0; i < count; ++i)
            target[Left + i] = b[Left + i + shift] * OfB[static_cast<std::size_t>(i)] * gain +
                               a[Left + i] * OfA[static_cast<std::size_t>(i)];
    }
};

void Stitch(const Plane& a, const Plane& b, std::int64_t widthB, std::int64_t overlap, std::int64_t trim,
            bool equalise, Plane& result)
{
    const std::int64_t blend = overlap - 2 * trim;
    const std::int64_t left = a.Width - trim - blend;
    const std::int64_t shift = trim - left;    // from a result column to imageB's
    AllocateResult(result, a.Width + widthB - overlap, a.Height);
    const CrossFade fade(left, blend, result.Width);
    const float     zone = static_cast<float>(blend);
    for (int y = 0; y < result.Height; y += RowsAtOnce) {
        const int rows = std::min(RowsAtOnce, result.Height - y);
        Samples   rowsA[RowsAtOnce], rowsB[RowsAtOnce];
        for (int r = 0; r < rows; ++r) {
            rowsA[r] = SamplesOf(a, y + r);
            rowsB[r] = SamplesOf(b, y + r);
        }
        float sumsA[RowsAtOnce] = {}, sumsB[RowsAtOnce] = {};
        if (equalise) {
            SumRows(rowsA, rows, left, blend, sumsA);
            SumRows(rowsB, rows, trim, blend, sumsB);
        }
        for (int r = 0; r < rows; ++r) {
            float gain = 1.0f;
            if (equalise) {
                const float meanA = sumsA[r] / zone;
                const float meanB = sumsB[r] / zone;
                if (!(std::fabs(meanB) < 10.0f))
                    gain = meanA / meanB;
            }
            float* const target = result.Ptr2D[y + r];
            rowsA[r].Copy(0, fade.Left, target);
            fade.Mix(rowsA[r], rowsB[r], shift, gain, target);
            rowsB[r].CopyScaled(fade.Right + shift, result.Width - fade.Right, gain, target + fade.Right);
        }
    }
}

}

void gImaConcate(ClassData2DIO<float>* imageA, ClassData2DIO<float>* imageB, int overlap, int trim,
                 bool equalise)
{
    if (!imageA || !imageB)
        return;
    if (overlap != 0 && overlap - 2 * static_cast<std::int64_t>(trim) < 2) {
        ShowMessage(L"水平重合参数需要大于二倍的中间切边参数加一");
        return;
    }
    if (imageA->Height < 0 || imageA->Width < 0 || (imageA->Height > 0 && !imageA->Ptr1D))
        return;
    const std::int64_t widthB = std::max(imageB->Width, 0);
    Plane              result;
    if (overlap == 0)
        Butt(*imageA, *imageB, widthB, result);
    else
        Stitch(*imageA, *imageB, widthB, overlap, trim, equalise, result);
    TakeBuffers(*imageA, result);
}
