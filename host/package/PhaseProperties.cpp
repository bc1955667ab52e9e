#include "package/PhaseProperties.h"

#include "package/Checks.h"
#include "package/CubicPhase.h"
#include "package/IdealGas.h"
#include "package/PackageError.h"

#include <fmt/format.h>

#include <cmath>

namespace orvane::package {

PhaseProperties::PhaseProperties(const PengRobinson& equation, double temperature, double pressure,
                                 std::span<const double> x, Root root) {
    checkTemperature(temperature);
    checkPressure(pressure);
    checkComposition(equation.compounds(), x);
    const auto& mixture = equation.parameters();
    const Isotherm isotherm(mixture, temperature);
    CubicPhase phase;
    phase.solve(isotherm, pressure, x.data(), root);

    of_.temperature = temperature;
    of_.pressure = pressure;
    of_.composition.assign(x.begin(), x.end());
    of_.entropy = -gasConstant * std::log(pressure / referencePressure);
    for (std::size_t i = 0; i < mixture.size; ++i) {
        const IdealGas gas(mixture.heatCapacity[i], temperature);
        of_.molecularWeight += x[i] * equation.compounds()[i].molecularWeight;
        of_.enthalpy += x[i] * gas.enthalpy;
        of_.idealHeatCapacityCp += x[i] * gas.heatCapacity;
        if (x[i] > 0) of_.entropy += x[i] * (gas.entropy - gasConstant * std::log(x[i]));
    }

    const auto departure = phase.departure();
    double cp, cv;
    phase.heatCapacityDepartures(cp, cv);
    of_.enthalpy += departure.enthalpy;
    of_.entropy += departure.entropy;
    of_.heatCapacityCp = of_.idealHeatCapacityCp + cp;
    of_.heatCapacityCv = of_.idealHeatCapacityCp - gasConstant + cv;
    of_.volume = phase.volume;
    of_.volumeByPressure = 1 / phase.pressureByVolume();
    of_.volumeByTemperature = -phase.pressureByTemperature() * of_.volumeByPressure;
    of_.lnPhi.assign(phase.lnPhi.begin(), phase.lnPhi.begin() + static_cast<std::ptrdiff_t>(mixture.size));
}

double PhaseProperties::compressibilityFactor() const {
    return of_.pressure * of_.volume / (gasConstant * of_.temperature);
}

double PhaseProperties::speedOfSound() const {
    if (of_.volumeByPressure == 0)
        throw PackageError(fmt::format(
            "no speed of sound at T = {} K, P = {} Pa: the model takes the phase to be incompressible",
            of_.temperature, of_.pressure));
    const double molarMass = of_.molecularWeight * 1e-3;  // kg/mol
    const double square =
        -of_.volume * of_.volume / of_.volumeByPressure * of_.heatCapacityCp / of_.heatCapacityCv / molarMass;
    if (!(square > 0 && of_.heatCapacityCv > 0) || !std::isfinite(square))
        throw PackageError(
            fmt::format("no speed of sound at T = {} K, P = {} Pa: its square would be {} m2/s2, with "
                        "Cp = {} and Cv = {} J/mol/K",
                        of_.temperature, of_.pressure, square, of_.heatCapacityCp, of_.heatCapacityCv));
    return std::sqrt(square);
}

double PhaseProperties::jouleThomsonCoefficient() const {
    return (of_.temperature * of_.volumeByTemperature - of_.volume) / of_.heatCapacityCp;
}

std::vector<double> PhaseProperties::fugacityCoefficient() const {
    std::vector<double> result;
    for (const double value : of_.lnPhi) result.push_back(std::exp(value));
    return result;
}

std::vector<double> PhaseProperties::fugacity() const {
    auto result = fugacityCoefficient();
    for (std::size_t i = 0; i < result.size(); ++i) result[i] *= of_.composition[i] * of_.pressure;
    return result;
}

std::vector<double> PhaseProperties::logFugacity() const {
    auto result = of_.lnPhi;
    for (std::size_t i = 0; i < result.size(); ++i) result[i] += std::log(of_.composition[i] * of_.pressure);
    return result;
}

}  // namespace orvane::package
