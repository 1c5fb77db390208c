#include "reconstruction/Phantom.h"

#include <cmath>

namespace {

constexpr double Degree = 3.14159265358979323846 / 180.0;

}

const std::vector<PhantomEllipse>& HeadPhantom()
{
    static const std::vector<PhantomEllipse> ellipses = {
        {1.0, 0.0, 0.0, 0.69, 0.92, 0.0},
        {-0.8, 0.0, -0.0184, 0.6624, 0.874, 0.0},
        {-0.2, 0.22, 0.0, 0.11, 0.31, -18.0 * Degree},
        {-0.2, -0.22, 0.0, 0.16, 0.41, 18.0 * Degree},
        {0.1, 0.0, 0.35, 0.21, 0.25, 0.0},
        {0.1, 0.0, 0.1, 0.046, 0.046, 0.0},
        {0.1, 0.0, -0.1, 0.046, 0.046, 0.0},
        {0.1, -0.08, -0.605, 0.046, 0.023, 0.0},
        {0.1, 0.0, -0.605, 0.023, 0.023, 0.0},
        {0.1, 0.06, -0.605, 0.023, 0.046, 0.0},
    };
    return ellipses;
}

double DensityAt(const std::vector<PhantomEllipse>& phantom, double x, double y)
{
    double density = 0.0;
    for (const PhantomEllipse& ellipse : phantom) {
        const double c = std::cos(ellipse.Rotation);
        const double s = std::sin(ellipse.Rotation);
        const double u = ((x - ellipse.CentreX) * c + (y - ellipse.CentreY) * s) / ellipse.SemiAxisA;
        const double v = ((y - ellipse.CentreY) * c - (x - ellipse.CentreX) * s) / ellipse.SemiAxisB;
        if (u * u + v * v <= 1.0)
            density += ellipse.Density;
    }
    return density;
}

double RayIntegral(const std::vector<PhantomEllipse>& phantom, double angle, double offset)
{
    double integral = 0.0;
    for (const PhantomEllipse& ellipse : phantom) {
        const double a = ellipse.SemiAxisA * std::cos(angle - ellipse.Rotation);
        const double b = ellipse.SemiAxisB * std::sin(angle - ellipse.Rotation);
        const double square = a * a + b * b;
        const double t = offset - ellipse.CentreX * std::cos(angle) - ellipse.CentreY * std::sin(angle);
        if (t * t < square)
            integral += 2.0 * ellipse.SemiAxisA * ellipse.SemiAxisB * ellipse.Density *
                        std::sqrt(square - t * t) / square;
    }
    return integral;
}
