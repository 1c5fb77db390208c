#pragma once

#include <vector>

// A body of ellipses with constant densities, which add where they overlap. Coordinates are those of the
// field of view: -1 to 1 both ways, y upwards.
struct PhantomEllipse {
    double Density;
    double CentreX, CentreY;
    double SemiAxisA, SemiAxisB;    // A lies along the rotated x axis
    double Rotation;                // radians, anticlockwise
};

// The head phantom of Shepp and Logan (1974) with the raised contrast of Toft (1996).
const std::vector<PhantomEllipse>& HeadPhantom();

double DensityAt(const std::vector<PhantomEllipse>& phantom, double x, double y);

// The line integral of the density along the ray x cos(angle) + y sin(angle) = offset, exactly: an ellipse
// with s^2 = a^2 cos^2 + b^2 sin^2 (of angle - rotation) gives 2 a b density sqrt(s^2 - t^2) / s^2 at a
// distance of t < s from its centre.
double RayIntegral(const std::vector<PhantomEllipse>& phantom, double angle, double offset);
