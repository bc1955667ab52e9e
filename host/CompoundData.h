// Constants and properties of the pure compounds of a package over temperature or pressure, by their CAPE-OPEN
// identifiers.
// Not here: properties of phases (PropertyCalculator).
#pragma once

#include "cobia/Data.h"
#include "host/PropertyPackage.h"

#include <cstddef>

#include <optional>
#include <string>
#include <vector>

namespace orvane::host {

/// The identifiers of the constants, such as "criticalTemperature".
std::vector<std::string> compoundConstantNames();

/// A constant of a compound, in SI units (molecular weight: g/mol); empty when the table has no figure for
/// it. Throws StringException for an unknown identifier.
COBIA::ValueObject::Content compoundConstant(const package::Compound& compound,
                                             COBIA::CapeTextView identifier);

/// The identifiers of the temperature-dependent properties, such as "idealGasHeatCapacity".
std::vector<std::string> temperaturePropertyNames();

/// A property of a compound, by its place in the package, at a temperature [K]: J/mol, J/mol/K; enthalpy and entropy
/// from 298.15 K; those of the saturated compound by the model of the package, Pa, J/mol, m3/mol. Empty at and above
/// the critical temperature where the property ends there. Throws StringException for an unknown identifier and for a
/// temperature that is not positive and finite, package::PackageError when the saturation is not found.
std::optional<double> temperatureProperty(const PropertyPackage& package, std::size_t compound,
                                          COBIA::CapeTextView identifier, double temperature);

/// The identifiers of the pressure-dependent properties: "boilingPointTemperature".
std::vector<std::string> pressurePropertyNames();

/// Likewise at a pressure [Pa]: K. Empty at and above the critical pressure.
std::optional<double> pressureProperty(const PropertyPackage& package, std::size_t compound,
                                       COBIA::CapeTextView identifier, double pressure);

}  // namespace orvane::host
