#include "package/SurfaceTension.h"

#include <cmath>

namespace orvane::package {
namespace {

// sigma [mN/m] = K Pc^x Tb^y Tc^z ((1 - Tr) / (1 - Tbr))^m, Pc in bar, temperatures in K.
struct Coefficients {
    double K, x, y, z, m;
};

constexpr Coefficients general = {0.158, 0.50, -1.5, 1.85, 11.0 / 9};
constexpr Coefficients alcohol = {2.28, 0.25, 0.175, 0, 0.8};
constexpr Coefficients acid = {0.125, 0.50, -1.5, 1.85, 11.0 / 9};

const Coefficients& coefficients(SurfaceFamily family) {
    switch (family) {
    case SurfaceFamily::alcohol: return alcohol;
    case SurfaceFamily::acid: return acid;
    case SurfaceFamily::general: break;
    }
    return general;
}

}  // namespace

double surfaceTension(const Compound& compound, double temperature) {
    const double Tc = compound.criticalTemperature, Tb = compound.normalBoilingPoint;
    if (temperature >= Tc) return 0;
    const auto& [K, x, y, z, m] = coefficients(compound.surfaceFamily);
    return 1e-3 * K * std::pow(compound.criticalPressure * 1e-5, x) * std::pow(Tb, y) * std::pow(Tc, z) *
           std::pow((1 - temperature / Tc) / (1 - Tb / Tc), m);
}

double surfaceTension(std::span<const Compound> compounds, std::span<const double> x, double temperature) {
    double sum = 0;
    for (std::size_t i = 0; i < x.size(); ++i) sum += x[i] * surfaceTension(compounds[i], temperature);
    return sum;
}

}  // namespace orvane::package
