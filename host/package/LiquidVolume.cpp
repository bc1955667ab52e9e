#include "package/LiquidVolume.h"

#include <algorithm>
#include <cmath>

namespace orvane::package {

double saturatedLiquidVolume(const Compound& compound, double temperature) {
    const double t = temperature / compound.criticalTemperature;
    if (t >= 1) return compound.criticalVolume;
    const double Z = 0.29056 - 0.08775 * compound.acentricFactor;
    return compound.criticalVolume * std::pow(Z, std::pow(1 - t, 2.0 / 7));
}

double liquidMixtureVolume(std::span<const Compound> compounds, std::span<const double> x,
                           double temperature) {
    double sum = 0;
    for (std::size_t i = 0; i < x.size(); ++i)
        sum += x[i] * saturatedLiquidVolume(compounds[i],
                                            std::min(temperature, 0.9 * compounds[i].criticalTemperature));
    return sum;
}

}  // namespace orvane::package
