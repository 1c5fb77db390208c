#pragma once

#include <QString>

#include <vector>

namespace vostel::viewer {

// One direction of a plot: values to px of layout, with round numbers at its ticks.
class Axis {
public:
    Axis() = default;
    Axis(double low, double high, double from, double to);    // low lies at px from, high at px to

    double Low() const { return First; }
    double High() const { return Last; }
    double At(double value) const;    // px
    double ValueAt(double place) const;

    // Round values 1, 2 or 5 times a power of ten apart, as many as fit with so much room for each.
    std::vector<double> Ticks(double room) const;

private:
    double First = 0.0, Last = 1.0;    // values
    double Start = 0.0, End = 1.0;     // px
};

// The text of a tick, with as many digits as its neighbours need.
QString TickText(double value, double step);

}
