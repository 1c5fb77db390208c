#include "reconstruction/Tomography.h"

#include <cmath>
#include <doctest/doctest.h>
#include <vector>

namespace {

constexpr DetectorLayout Detector = {181, 2.0 / 128};

}

TEST_CASE("a disc of density 1 comes back from its projections as 1 inside and 0 outside")
{
    const std::vector<PhantomEllipse> disc = {{1.0, 0.1, -0.05, 0.5, 0.5, 0.0}};
    ClassData2DIO<float>              rows, image;
    Project(disc, Detector, 400, rows);
    FilterRows(Detector, rows);
    BackProject(rows, Detector, 128, image);
    double inside = 0.0, outside = 0.0;
    int    insidePixels = 0, outsidePixels = 0;
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) {
            const double fieldX = (2.0 * x + 1.0) / 128 - 1.0;
            const double fieldY = 1.0 - (2.0 * y + 1.0) / 128;
            const double distance = std::hypot(fieldX - 0.1, fieldY + 0.05);
            // The sharp edge rings a little; further away a pixel is right by itself.
            if (distance < 0.4) {
                CHECK(std::fabs(image.Ptr2D[y][x] - 1.0f) < 0.05f);
                inside += image.Ptr2D[y][x];
                ++insidePixels;
            } else if (distance > 0.6 && distance < 0.8) {
                CHECK(std::fabs(image.Ptr2D[y][x]) < 0.05f);
                outside += image.Ptr2D[y][x];
                ++outsidePixels;
            }
        }
    }
    CHECK(std::fabs(inside / insidePixels - 1.0) < 0.002);
    CHECK(std::fabs(outside / outsidePixels) < 0.002);
}

TEST_CASE("a ray through the head phantom has the sum of the densities along it")
{
    const double angle = 0.7;
    const double offset = 0.12;
    double       sum = 0.0;
    const int    steps = 200000;
    for (int i = 0; i < steps; ++i) {
        const double along = (i + 0.5) * 3.0 / steps - 1.5;
        sum += DensityAt(HeadPhantom(), offset * std::cos(angle) - along * std::sin(angle),
                         offset * std::sin(angle) + along * std::cos(angle));
    }
    CHECK(std::fabs(sum * 3.0 / steps - RayIntegral(HeadPhantom(), angle, offset)) < 1e-4);
}
