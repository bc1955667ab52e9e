// Properties of one phase and of a pair of phases, from the property package into the values of a material
// object.
// Not here: whether a phase is there and its state known (MaterialObject).
#pragma once

#include "host/PropertyPackage.h"
#include "host/StateValues.h"

#include <span>

namespace orvane::host {

/// The properties of one phase that calculate() takes, all with a mole basis or none.
std::span<const Property> singlePhaseProperties();
bool isCalculated(Property property);

/// Calculates the properties at the temperature, pressure and fraction of `phase`, which are known, and puts
/// them in. Throws package::PackageError; then nothing was put in.
void calculate(const PropertyPackage& package, package::PhaseKind kind, std::span<const Property> properties,
               StateValues& phase);

/// K-values of two phases at their own states: phi of the second over phi of the first, which at equilibrium
/// is x of the first over x of the second. Throws package::PackageError.
void calculateKvalues(const PropertyPackage& package, package::PhaseKind first,
                      const StateValues& firstValues, package::PhaseKind second,
                      const StateValues& secondValues, std::span<double> kvalues);

}  // namespace orvane::host
