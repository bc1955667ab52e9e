#include "package/Cubic.h"

#include "package/PackageError.h"

#include <fmt/format.h>

#include <cmath>

#include <limits>

namespace orvane::package {
namespace {

struct Polynomial {
    double c2, c1, c0;  // u^3 + c2 u^2 + c1 u + c0

    double operator()(double u) const { return ((u + c2) * u + c1) * u + c0; }

    // The one root between low and high, where the polynomial is negative and positive.
    double root(double low, double high, double start) const {
        constexpr double epsilon = std::numeric_limits<double>::epsilon();
        double u = start;
        for (int step = 0; step < 200; ++step) {
            const double value = (*this)(u);
            if (value == 0) return u;
            (value < 0 ? low : high) = u;
            if (high - low <= epsilon * high) return u;
            const double slope = (3 * u + 2 * c2) * u + c1;
            const double bend = 3 * u + c2;  // half of the second derivative
            double next = u - value * slope / (slope * slope - value * bend);
            if (!(next > low && next < high)) {
                if (slope != 0 && std::abs(next - u) <= 0.5 * epsilon * u) return u;
                u = 0.5 * (low + high);
                continue;
            }
            // The error left is that of the step before, cubed, times less than (bend / slope)^2 + 1 / |slope|.
            const double change = std::abs(next - u);
            u = next;
            if (change * change * change * (bend * bend + std::abs(slope)) <=
                0.25 * epsilon * u * slope * slope)
                return u;
        }
        throw PackageError(
            fmt::format("no root of the equation of state's cubic after 200 steps: between {:.17g} and "
                        "{:.17g}, coefficients {:.17g}, {:.17g}, {:.17g}",
                        low, high, c2, c1, c0));
    }
};

}  // namespace

CubicRoots::CubicRoots(double A, double B) {
    // 1 = 1 / u - A / (Z^2 + 2 B Z - B^2) with Z = u + B, cleared of its denominators.
    const Polynomial f{4 * B - 1, 2 * B * B - 4 * B + A, -2 * B * B};
    if (!std::isfinite(f.c1))
        throw PackageError(fmt::format("the equation of state overflows: A = {}, B = {}", A, B));

    // Attraction can only lower u below that of hard spheres, 1, where f(1) = A >= 0.
    const double inflection = -f.c2 / 3;
    const double discriminant = f.c2 * f.c2 - 3 * f.c1;
    if (f.c2 < 0 && f.c1 > 0 && discriminant > 0) {
        const double s = std::sqrt(discriminant) - f.c2;
        const double maximum = f.c1 / s, minimum = s / 3;
        if (f(maximum) > 0 && f(minimum) < 0) {
            three = true;
            smallest = f.root(0, maximum, 0);
            largest = f.root(minimum, 1, 1);
            return;
        }
    }
    // One root: Newton's way to it is monotone from the side on which the curvature has the sign of f.
    const bool fromAbove = inflection <= 0 || f(inflection) <= 0;
    smallest = largest = f.root(0, 1, fromAbove ? 1 : 0);
}

}  // namespace orvane::package
