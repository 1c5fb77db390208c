#pragma once

// Gauss-Legendre quadrature on -1..1; five nodes are exact for polynomials up to the degree 9.

#include <array>

namespace vostel {

struct QuadratureNode {
    double Place = 0.0;
    double Weight = 0.0;
};

inline constexpr std::array<QuadratureNode, 5> FiveNodes = {{
    {-0.9061798459386639928, 0.2369268850561890875},
    {-0.5384693101056830910, 0.4786286704993664680},
    {0.0, 0.5688888888888888889},
    {0.5384693101056830910, 0.4786286704993664680},
    {0.9061798459386639928, 0.2369268850561890875},
}};

}
