#include "imaging/FourierTables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace vostel {

namespace {

constexpr double FullTurn = 6.2831852;

double AngleOf(int i, int length)
{
    return static_cast<double>(static_cast<float>(i)) * FullTurn /
           static_cast<double>(static_cast<float>(length));
}

struct Direction {
    double Cos;
    double Sin;
};

Direction DirectionOf(int i, int length)
{
    const double angle = AngleOf(i, length);
    return {std::cos(angle), std::sin(angle)};
}

constexpr int Sectors = 64;

const std::array<Direction, Sectors>& SectorStarts()
{
    static const std::array<Direction, Sectors> starts = [] {
        std::array<Direction, Sectors> values;
        for (int j = 0; j < Sectors; ++j)
            values[static_cast<std::size_t>(j)] = DirectionOf(j, Sectors);
        return values;
    }();
    return starts;
}

// The sum of two angles differs from the angle by at most 9e-16, since each was rounded; products, sums and
// the library's own values add less than that. What rounds to one float over this distance is the library's.
constexpr double Doubt = 4e-15;

bool IsDoubtful(double value)
{
    return static_cast<float>(value - Doubt) != static_cast<float>(value + Doubt);
}

// Angles behind the start of their sector, as many as are taken to all sectors at once.
constexpr int MostSteps = 256;

struct Steps {
    int                           Count = 0;
    std::array<double, MostSteps> Cos, Sin;
};

double CosBehind(const Direction& start, const Steps& steps, std::size_t k)
{
    return start.Cos * steps.Cos[k] - start.Sin * steps.Sin[k];
}

double SinBehind(const Direction& start, const Steps& steps, std::size_t k)
{
    return start.Sin * steps.Cos[k] + start.Cos * steps.Sin[k];
}

// True if there are values that have to come from the library.
bool FillBehind(const Direction& start, const Steps& steps, float* cosines, float* sines)
{
    int doubtful = 0;
    for (std::size_t k = 0; k < static_cast<std::size_t>(steps.Count); ++k) {
        const double cosine = CosBehind(start, steps, k);
        const double sine = SinBehind(start, steps, k);
        cosines[k] = static_cast<float>(cosine);
        sines[k] = static_cast<float>(sine);
        doubtful += IsDoubtful(cosine) + IsDoubtful(sine);
    }
    return doubtful > 0;
}

}

void FillFourierTables(int length, float* cosines, float* sines) noexcept
{
    const auto fill = [&](int i) {
        const Direction direction = DirectionOf(i, length);
        cosines[i] = static_cast<float>(direction.Cos);
        sines[i] = static_cast<float>(direction.Sin);
    };
    // Elsewhere the angles are sums of two others: dividing by the length is exact, and so is i as a float.
    if (length < 2 * Sectors || length > 1 << 24 || (length & (length - 1)) != 0) {
        for (int i = 0; i < length; ++i)
            fill(i);
        return;
    }
    const int perSector = length / Sectors;
    Steps     steps;
    for (int from = 0; from < perSector; from += MostSteps) {
        steps.Count = std::min(MostSteps, perSector - from);
        for (int k = 0; k < steps.Count; ++k) {
            const Direction direction = DirectionOf(from + k, length);
            steps.Cos[static_cast<std::size_t>(k)] = direction.Cos;
            steps.Sin[static_cast<std::size_t>(k)] = direction.Sin;
        }
        for (int j = 0; j < Sectors; ++j) {
            const int        first = j * perSector + from;
            const Direction& start = SectorStarts()[static_cast<std::size_t>(j)];
            if (!FillBehind(start, steps, cosines + first, sines + first))
                continue;
            for (int k = 0; k < steps.Count; ++k) {
                const std::size_t at = static_cast<std::size_t>(k);
                if (IsDoubtful(CosBehind(start, steps, at)) || IsDoubtful(SinBehind(start, steps, at)))
                    fill(first + k);
            }
        }
    }
}

}
