// Constants and temperature-dependent properties of the compounds of a package, by their CAPE-OPEN
// identifiers.
// Not here: properties of phases (PropertyCalculator).
#pragma once

#include "cobia/Data.h"
#include "package/Compound.h"

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

/// A property of a compound at a temperature [K]: J/mol, J/mol/K; enthalpy and entropy from 298.15 K.
/// Throws StringException for an unknown identifier and for a temperature that is not positive and finite.
double temperatureProperty(const package::Compound& compound, COBIA::CapeTextView identifier,
                           double temperature);

}  // namespace orvane::host
