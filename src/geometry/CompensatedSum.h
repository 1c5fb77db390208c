#pragma once

#include <cmath>

namespace vostel {

// A sum in double that carries what the additions lost (Neumaier): its error does not grow with the number of
// terms.
class CompensatedSum {
public:
    void Add(double term)
    {
        const double next = Sum + term;
        Lost += std::fabs(Sum) >= std::fabs(term) ? (Sum - next) + term : (term - next) + Sum;
        Sum = next;
    }
    // Infinite terms have no remainder.
    double Value() const { return std::isfinite(Lost) ? Sum + Lost : Sum; }

private:
    double Sum = 0.0;
    double Lost = 0.0;
};

}
