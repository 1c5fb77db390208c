#include "documents/FirstContrast.h"

#include <numeric>

namespace vostel::viewer {

namespace {

constexpr int    Bins = 1024;
constexpr double FewPercent = 0.1;
constexpr double CrowdedShare = 0.25;    // of the range: what holds nearly all values leaves the rest unused

// Whether all but the few lowest and highest values crowd in a small part of the range.
bool IsCrowded(const Canvas& canvas, const ImageInfo& info)
{
    if (!(info.max > info.min))
        return false;
    const std::vector<std::uint64_t> counts = canvas.histogram(info.min, info.max, Bins);
    const auto   all = static_cast<double>(std::accumulate(counts.begin(), counts.end(), std::uint64_t{0}));
    const double few = all * FewPercent / 100.0;
    int          low = 0, high = Bins - 1;
    for (double seen = 0.0; low < Bins - 1; ++low)
        if ((seen += static_cast<double>(counts[static_cast<std::size_t>(low)])) > few)
            break;
    for (double seen = 0.0; high > low; --high)
        if ((seen += static_cast<double>(counts[static_cast<std::size_t>(high)])) > few)
            break;
    return high - low + 1 < CrowdedShare * Bins;
}

}

void SetFirstContrast(Canvas& canvas, bool forgets)
{
    const auto info = canvas.image_info();
    if (!info || (info->type != VOSTEL_U16 && info->type != VOSTEL_I16 && info->type != VOSTEL_F32) ||
        !IsCrowded(canvas, *info))
        return;
    try {
        canvas.contrast_percentiles(FewPercent, 100.0 - FewPercent);
    } catch (const Error&) {
        return;    // nearly all values are one: the range stays
    }
    if (forgets)
        ForgetHistory(canvas);
}

void ForgetHistory(Canvas& canvas)
{
    const auto limit = static_cast<std::size_t>(canvas.history_info().limit);
    canvas.history_limit(0);
    canvas.history_limit(limit);
}

}
