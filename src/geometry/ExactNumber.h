#pragma once

#include <cstdint>
#include <vector>

namespace vostel {

// A sum or product of doubles without any rounding: an integer of any length times a power of 2^32. The whole
// range of double fits, so nothing overflows and nothing underflows. It is slow and meant for the few
// decisions that double cannot make.
class ExactNumber {
public:
    ExactNumber() = default;               // 0
    explicit ExactNumber(double value);    // 0 for what is not finite

    int Sign() const;    // -1, 0 or 1

    friend ExactNumber operator+(const ExactNumber& a, const ExactNumber& b);
    friend ExactNumber operator-(const ExactNumber& a, const ExactNumber& b);
    friend ExactNumber operator*(const ExactNumber& a, const ExactNumber& b);

    // A / b to 50 bits, infinite where that overflows. B is not 0.
    friend double Quotient(const ExactNumber& a, const ExactNumber& b);

private:
    std::vector<std::uint32_t> Limbs;      // the magnitude, lowest first; neither end is 0, and 0 has none
    int                        Low = 0;    // Limbs[0] counts 2^(32 Low)
    bool                       Negative = false;

    int           High() const { return Low + static_cast<int>(Limbs.size()); }
    std::uint32_t LimbAt(int place) const;
    double        Leading() const;    // the magnitude over 2^(32 High())
    void          Trim();

    static int         CompareMagnitudes(const ExactNumber& a, const ExactNumber& b);
    static ExactNumber SumOfMagnitudes(const ExactNumber& a, const ExactNumber& b);
    static ExactNumber DifferenceOfMagnitudes(const ExactNumber& larger, const ExactNumber& smaller);
    static ExactNumber Add(const ExactNumber& a, const ExactNumber& b, bool negativeB);
};

}
