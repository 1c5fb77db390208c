#include "plots/Axis.h"

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

Axis::Axis(double low, double high, double from, double to)
    : First(low), Last(high > low ? high : low + 1.0), Start(from), End(to)
{
}

double Axis::At(double value) const
{
    return Start + (value - First) / (Last - First) * (End - Start);
}

double Axis::ValueAt(double place) const
{
    return Start == End ? First : First + (place - Start) / (End - Start) * (Last - First);
}

std::vector<double> Axis::Ticks(double room) const
{
    constexpr double    MostTicks = 100.0;
    std::vector<double> ticks;
    const double        count = std::clamp(std::abs(End - Start) / std::max(1.0, room), 1.0, MostTicks);
    const double        least = (Last - First) / count;
    const double        power = std::pow(10.0, std::floor(std::log10(least)));
    if (!std::isfinite(power) || power <= 0.0)
        return {First, Last};
    const double lead = least / power;
    const double step = power * (lead <= 1.0 ? 1.0 : lead <= 2.0 ? 2.0 : lead <= 5.0 ? 5.0 : 10.0);
    const double first = std::ceil(First / step - 1e-9);
    for (int i = 0; i <= static_cast<int>(MostTicks); ++i) {
        const double value = (first + i) * step;
        if (value > Last + step * 1e-9)
            break;
        ticks.push_back(value == 0.0 ? 0.0 : value);
    }
    return ticks;
}

QString TickText(double value, double step)
{
    const double largest = std::max(std::abs(value), step);
    if (largest >= 1e7 || (step < 1e-4 && step > 0.0))
        return QString::number(value, 'g', 4);
    const int digits = step > 0.0 && step < 1.0 ? static_cast<int>(std::ceil(-std::log10(step) - 1e-9)) : 0;
    return QString::number(value, 'f', digits);
}

}
