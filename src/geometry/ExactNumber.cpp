#include "geometry/ExactNumber.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vostel {

namespace {

constexpr int LimbBits = 32;
constexpr int MantissaBits = 53;

}

ExactNumber::ExactNumber(double value)
{
    if (value == 0.0 || !std::isfinite(value))
        return;
    int          exponent = 0;
    const double fraction = std::frexp(std::fabs(value), &exponent);
    exponent -= MantissaBits;
    const std::uint64_t mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, MantissaBits));
    Low = exponent >= 0 ? exponent / LimbBits : -((LimbBits - 1 - exponent) / LimbBits);
    const int           shift = exponent - Low * LimbBits;
    const std::uint64_t lower = mantissa << shift;
    const std::uint64_t upper = shift == 0 ? 0 : mantissa >> (64 - shift);
    Limbs = {static_cast<std::uint32_t>(lower), static_cast<std::uint32_t>(lower >> LimbBits),
             static_cast<std::uint32_t>(upper)};
    Negative = value < 0.0;
    Trim();
}

int ExactNumber::Sign() const
{
    if (Limbs.empty())
        return 0;
    return Negative ? -1 : 1;
}

std::uint32_t ExactNumber::LimbAt(int place) const
{
    return place >= Low && place < High() ? Limbs[static_cast<std::size_t>(place - Low)] : 0;
}

double ExactNumber::Leading() const
{
    double value = 0.0;
    for (int place = High() - 3; place < High(); ++place)
        value = (value + LimbAt(place)) / 4294967296.0;
    return value;
}

void ExactNumber::Trim()
{
    while (!Limbs.empty() && Limbs.back() == 0)
        Limbs.pop_back();
    const auto first = std::find_if(Limbs.begin(), Limbs.end(), [](std::uint32_t limb) { return limb != 0; });
    Low += static_cast<int>(first - Limbs.begin());
    Limbs.erase(Limbs.begin(), first);
}

int ExactNumber::CompareMagnitudes(const ExactNumber& a, const ExactNumber& b)
{
    if (a.Limbs.empty() || b.Limbs.empty())
        return static_cast<int>(!a.Limbs.empty()) - static_cast<int>(!b.Limbs.empty());
    if (a.High() != b.High())
        return a.High() < b.High() ? -1 : 1;
    for (int place = a.High() - 1; place >= std::min(a.Low, b.Low); --place) {
        if (a.LimbAt(place) != b.LimbAt(place))
            return a.LimbAt(place) < b.LimbAt(place) ? -1 : 1;
    }
    return 0;
}

ExactNumber ExactNumber::SumOfMagnitudes(const ExactNumber& a, const ExactNumber& b)
{
    ExactNumber sum;
    sum.Low = std::min(a.Low, b.Low);
    const int     high = std::max(a.High(), b.High());
    std::uint64_t carry = 0;
    sum.Limbs.reserve(static_cast<std::size_t>(high - sum.Low + 1));
    for (int place = sum.Low; place <= high; ++place) {
        carry += static_cast<std::uint64_t>(a.LimbAt(place)) + b.LimbAt(place);
        sum.Limbs.push_back(static_cast<std::uint32_t>(carry));
        carry >>= LimbBits;
    }
    sum.Trim();
    return sum;
}

ExactNumber ExactNumber::DifferenceOfMagnitudes(const ExactNumber& larger, const ExactNumber& smaller)
{
    ExactNumber difference;
    difference.Low = std::min(larger.Low, smaller.Low);
    std::uint64_t borrow = 0;
    difference.Limbs.reserve(static_cast<std::size_t>(larger.High() - difference.Low));
    for (int place = difference.Low; place < larger.High(); ++place) {
        const std::uint64_t limb =
            static_cast<std::uint64_t>(larger.LimbAt(place)) - smaller.LimbAt(place) - borrow;
        difference.Limbs.push_back(static_cast<std::uint32_t>(limb));
        borrow = limb >> 63;
    }
    difference.Trim();
    return difference;
}

ExactNumber ExactNumber::Add(const ExactNumber& a, const ExactNumber& b, bool negativeB)
{
    if (b.Limbs.empty())
        return a;
    ExactNumber result;
    if (a.Limbs.empty()) {
        result = b;
        result.Negative = negativeB;
    } else if (a.Negative == negativeB) {
        result = SumOfMagnitudes(a, b);
        result.Negative = negativeB;
    } else if (CompareMagnitudes(a, b) >= 0) {
        result = DifferenceOfMagnitudes(a, b);
        result.Negative = a.Negative;
    } else {
        result = DifferenceOfMagnitudes(b, a);
        result.Negative = negativeB;
    }
    return result;
}

ExactNumber operator+(const ExactNumber& a, const ExactNumber& b)
{
    return ExactNumber::Add(a, b, b.Negative);
}

ExactNumber operator-(const ExactNumber& a, const ExactNumber& b)
{
    return ExactNumber::Add(a, b, !b.Negative);
}

ExactNumber operator*(const ExactNumber& a, const ExactNumber& b)
{
    ExactNumber product;
    product.Low = a.Low + b.Low;
    product.Limbs.assign(a.Limbs.size() + b.Limbs.size(), 0);
    for (std::size_t i = 0; i < a.Limbs.size(); ++i) {
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < b.Limbs.size(); ++j) {
            carry += static_cast<std::uint64_t>(a.Limbs[i]) * b.Limbs[j] + product.Limbs[i + j];
            product.Limbs[i + j] = static_cast<std::uint32_t>(carry);
            carry >>= LimbBits;
        }
        product.Limbs[i + b.Limbs.size()] = static_cast<std::uint32_t>(carry);
    }
    product.Negative = a.Negative != b.Negative;
    product.Trim();
    return product;
}

double Quotient(const ExactNumber& a, const ExactNumber& b)
{
    const double magnitude = std::ldexp(a.Leading() / b.Leading(), LimbBits * (a.High() - b.High()));
    return a.Negative == b.Negative ? magnitude : -magnitude;
}

}
