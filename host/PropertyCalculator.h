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

/// Calculates the properties and derivatives at the temperature, pressure and fraction of `phase`, which are known,
/// and puts them in. Throws package::PackageError; then nothing was put in.
void calculate(const PropertyPackage& package, package::PhaseKind kind, std::span<const Property> properties,
               std::span<const Derivative> derivatives, StateValues& phase);

/// The properties of two phases that calculateTwoPhase() takes.
std::span<const Property> twoPhaseProperties();
bool isTwoPhase(Property property);

/// Two phases at their own states, with temperature, pressure and fraction known.
struct TwoPhases {
    package::PhaseKind first;
    const StateValues& firstValues;
    package::PhaseKind second;
    const StateValues& secondValues;
};

/// Calculates properties of two phases and puts them in. K-values are phi of the second over phi of the first,
/// which at equilibrium is x of the first over x of the second; the surface tension is that of the liquid of
/// the two. Throws package::PackageError; then nothing was put in.
void calculateTwoPhase(const PropertyPackage& package, const TwoPhases& phases,
                       std::span<const Property> properties, StateValues& into);

}  // namespace orvane::host
