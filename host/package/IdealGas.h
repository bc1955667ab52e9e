// Ideal gas enthalpy, entropy and heat capacity of the compounds of a mixture.
// Not here: departures from the ideal gas (PengRobinson).
#pragma once

#include "package/Compound.h"
#include "package/MixtureParameters.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace orvane::package {

/// State in which the enthalpy and entropy of every pure compound, as an ideal gas, are zero.
inline constexpr double referenceTemperature = 298.15;  // K
inline constexpr double referencePressure = 101325;     // Pa

/// Ideal gas figures of one compound at a temperature, from the polynomial of its heat capacity, which is
/// used as it stands outside of its range too (see heatCapacityWarnings).
struct IdealGas {
    double heatCapacity = 0;  ///< Cp [J/mol/K]
    double enthalpy = 0;      ///< J/mol, from the reference temperature
    double entropy = 0;       ///< J/mol/K at the reference pressure, from the reference temperature

    IdealGas(const std::array<double, 5>& coefficients, double temperature);
};

/// One sentence for each compound whose heat capacity polynomial does not cover the temperature [K].
std::vector<std::string> heatCapacityWarnings(std::span<const Compound> compounds, double temperature);

}  // namespace orvane::package
