#include "package/Transport.h"

#include "package/DenseFluid.h"
#include "package/IdealGas.h"
#include "package/LiquidVolume.h"

#include <algorithm>
#include <cmath>

namespace orvane::package {
namespace {

DenseFluid denseFluid(std::span<const Compound> compounds, PhaseKind kind, const PhaseProperties& phase) {
    const auto& x = phase.composition();
    const double T = phase.temperature();
    const double density =
        kind == PhaseKind::vapor ? phase.density() : 1 / liquidMixtureVolume(compounds, x, T);
    return DenseFluid(compounds, x, T, density, phase.idealHeatCapacityCp() - gasConstant);
}

double bondedLiquidConductivity(const Compound& compound, double temperature) {
    const auto factor = [&](double T) {
        return 3 + 20 * std::pow(std::max(0.0, 1 - T / compound.criticalTemperature), 2.0 / 3);
    };
    return 1.11 / std::sqrt(compound.molecularWeight) * factor(temperature) /
           factor(compound.normalBoilingPoint);
}

double liquidConductivity(const Compound& compound, double temperature) {
    if (compound.association > 0) return bondedLiquidConductivity(compound, temperature);
    Compound plain = compound;
    plain.dipoleMoment = 0;
    constexpr double one[] = {1};
    const double cv = IdealGas(compound.heatCapacity, temperature).heatCapacity - gasConstant;
    const std::span<const Compound> alone(&plain, 1);
    return DenseFluid(alone, one, temperature, 1 / liquidMixtureVolume(alone, one, temperature), cv)
        .thermalConductivity();
}

}  // namespace

double viscosity(std::span<const Compound> compounds, PhaseKind kind, const PhaseProperties& phase) {
    return denseFluid(compounds, kind, phase).viscosity();
}

double thermalConductivity(std::span<const Compound> compounds, PhaseKind kind,
                           const PhaseProperties& phase) {
    if (kind == PhaseKind::vapor) return denseFluid(compounds, kind, phase).thermalConductivity();
    double sum = 0;
    for (std::size_t i = 0; i < compounds.size(); ++i) {
        if (phase.composition()[i] == 0) continue;
        const double massFraction =
            phase.composition()[i] * compounds[i].molecularWeight / phase.molecularWeight();
        sum += massFraction / std::pow(liquidConductivity(compounds[i], phase.temperature()), 2);
    }
    return 1 / std::sqrt(sum);
}

}  // namespace orvane::package
