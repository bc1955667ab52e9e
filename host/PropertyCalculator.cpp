#include "host/PropertyCalculator.h"

#include "package/PhaseProperties.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace orvane::host {
namespace {

constexpr std::array calculated = {
    Property::enthalpy,
    Property::enthalpyF,
    Property::entropy,
    Property::entropyF,
    Property::gibbsEnergy,
    Property::internalEnergy,
    Property::helmholtzEnergy,
    Property::heatCapacityCp,
    Property::heatCapacityCv,
    Property::volume,
    Property::density,
    Property::compressibilityFactor,
    Property::speedOfSound,
    Property::molecularWeight,
    Property::fugacity,
    Property::fugacityCoefficient,
    Property::logFugacityCoefficient,
};

double scalar(const PropertyPackage& package, const package::PhaseProperties& of, Property property,
              std::span<const double> x) {
    switch (property) {
    case Property::enthalpy: return of.enthalpy();
    case Property::enthalpyF: return of.enthalpy() + package.formationEnthalpy(x);
    case Property::entropy: return of.entropy();
    case Property::entropyF: return of.entropy() + package.referenceEntropy(x);
    case Property::gibbsEnergy: return of.gibbsEnergy();
    case Property::internalEnergy: return of.internalEnergy();
    case Property::helmholtzEnergy: return of.helmholtzEnergy();
    case Property::heatCapacityCp: return of.heatCapacityCp();
    case Property::heatCapacityCv: return of.heatCapacityCv();
    case Property::volume: return of.volume();
    case Property::density: return of.density();
    case Property::compressibilityFactor: return of.compressibilityFactor();
    case Property::speedOfSound: return of.speedOfSound();
    case Property::molecularWeight: return of.molecularWeight();
    default: throw std::logic_error("a property without its calculation");
    }
}

void putPerCompound(const package::PhaseProperties& of, Property property, StateValues& phase) {
    switch (property) {
    case Property::fugacity: phase.set(property, of.fugacity()); break;
    case Property::fugacityCoefficient: phase.set(property, of.fugacityCoefficient()); break;
    case Property::logFugacityCoefficient: phase.set(property, of.logFugacityCoefficient()); break;
    default: throw std::logic_error("a property without its calculation");
    }
}

}  // namespace

std::span<const Property> singlePhaseProperties() { return calculated; }

bool isCalculated(Property property) { return std::ranges::find(calculated, property) != calculated.end(); }

void calculate(const PropertyPackage& package, package::PhaseKind kind, std::span<const Property> properties,
               StateValues& phase) {
    const auto x = phase.values(Property::fraction);
    const package::PhaseProperties of(package.equation(), phase.value(Property::temperature),
                                      phase.value(Property::pressure), x, package::root(kind));
    std::array<double, scalarCount> scalars;
    for (const Property property : properties) {
        if (!isPerCompound(property)) {
            scalars[static_cast<std::size_t>(property)] = scalar(package, of, property, x);
        }
    }
    for (const Property property : properties) {
        if (isPerCompound(property))
            putPerCompound(of, property, phase);
        else
            phase.set(property, scalars[static_cast<std::size_t>(property)]);
    }
}

void calculateKvalues(const PropertyPackage& package, package::PhaseKind first,
                      const StateValues& firstValues, package::PhaseKind second,
                      const StateValues& secondValues, std::span<double> kvalues) {
    const auto lnPhi = [&](package::PhaseKind kind, const StateValues& of) {
        return package.equation().lnPhi(of.value(Property::temperature), of.value(Property::pressure),
                                        of.values(Property::fraction), package::root(kind));
    };
    const auto ofFirst = lnPhi(first, firstValues);
    const auto ofSecond = lnPhi(second, secondValues);
    for (std::size_t i = 0; i < kvalues.size(); ++i) kvalues[i] = std::exp(ofSecond[i] - ofFirst[i]);
}

}  // namespace orvane::host
