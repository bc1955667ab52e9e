#include "package/PhaseProperties.h"

#include "package/CubicPhase.h"
#include "package/IdealGas.h"
#include "package/PackageError.h"

#include <fmt/format.h>

#include <cmath>

namespace orvane::package {

PhaseProperties::PhaseProperties(const PengRobinson& equation, double temperature, double pressure,
                                 std::span<const double> x, Root root)
    : temperature_(temperature), pressure_(pressure), composition_(x.begin(), x.end()) {
    equation.checkTemperature(temperature);
    equation.checkPressure(pressure);
    equation.checkComposition(x);
    const auto& mixture = equation.parameters();
    const Isotherm isotherm(mixture, temperature);
    CubicPhase phase;
    phase.solve(isotherm, pressure, x.data(), root);

    entropy_ = -gasConstant * std::log(pressure / referencePressure);
    for (std::size_t i = 0; i < mixture.size; ++i) {
        const IdealGas gas(mixture.heatCapacity[i], temperature);
        molecularWeight_ += x[i] * equation.compounds()[i].molecularWeight;
        enthalpy_ += x[i] * gas.enthalpy;
        heatCapacityCp_ += x[i] * gas.heatCapacity;
        if (x[i] > 0) entropy_ += x[i] * (gas.entropy - gasConstant * std::log(x[i]));
    }
    heatCapacityCv_ = heatCapacityCp_ - gasConstant;

    const auto departure = phase.departure();
    double cp, cv;
    phase.heatCapacityDepartures(cp, cv);
    enthalpy_ += departure.enthalpy;
    entropy_ += departure.entropy;
    heatCapacityCp_ += cp;
    heatCapacityCv_ += cv;
    compressibilityFactor_ = phase.Z;
    volume_ = phase.volume;
    pressureByVolume_ = phase.pressureByVolume();
    lnPhi_.assign(phase.lnPhi.begin(), phase.lnPhi.begin() + static_cast<std::ptrdiff_t>(mixture.size));
}

double PhaseProperties::speedOfSound() const {
    const double molarMass = molecularWeight_ * 1e-3;  // kg/mol
    const double square =
        -volume_ * volume_ * pressureByVolume_ * heatCapacityCp_ / heatCapacityCv_ / molarMass;
    if (!(square > 0 && heatCapacityCv_ > 0) || !std::isfinite(square))
        throw PackageError(
            fmt::format("no speed of sound at T = {} K, P = {} Pa: its square would be {} m2/s2, with "
                        "Cp = {} and Cv = {} J/mol/K",
                        temperature_, pressure_, square, heatCapacityCp_, heatCapacityCv_));
    return std::sqrt(square);
}

std::vector<double> PhaseProperties::fugacityCoefficient() const {
    std::vector<double> result;
    for (const double value : lnPhi_) result.push_back(std::exp(value));
    return result;
}

std::vector<double> PhaseProperties::fugacity() const {
    auto result = fugacityCoefficient();
    for (std::size_t i = 0; i < result.size(); ++i) result[i] *= composition_[i] * pressure_;
    return result;
}

}  // namespace orvane::package
