#include "host/PropertyCalculator.h"

#include "host/PropertyDerivatives.h"
#include "package/PhaseProperties.h"
#include "package/SurfaceTension.h"
#include "package/Transport.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>
#include <vector>

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
    Property::jouleThomsonCoefficient,
    Property::viscosity,
    Property::thermalConductivity,
    Property::molecularWeight,
    Property::fugacity,
    Property::logFugacity,
    Property::fugacityCoefficient,
    Property::logFugacityCoefficient,
    Property::activity,
    Property::activityCoefficient,
};

constexpr std::array calculatedOfTwo = {Property::kvalue, Property::logKvalue, Property::surfaceTension};

double scalar(const PropertyPackage& package, package::PhaseKind kind, const package::PhaseProperties& of,
              Property property, std::span<const double> x) {
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
    case Property::jouleThomsonCoefficient: return of.jouleThomsonCoefficient();
    case Property::viscosity: return package::viscosity(package.compounds(), kind, of);
    case Property::thermalConductivity: return package::thermalConductivity(package.compounds(), kind, of);
    case Property::molecularWeight: return of.molecularWeight();
    default: throw std::logic_error("a property without its calculation");
    }
}

// Against the pure compound at the same temperature and pressure in the phase of the same name, so that a compound
// of fraction 1 has activity and activity coefficient 1.
std::vector<double> activityCoefficients(const PropertyPackage& package, package::PhaseKind kind,
                                         const package::PhaseProperties& of) {
    auto result = of.logFugacityCoefficient();
    std::vector<double> pure(result.size());
    for (std::size_t i = 0; i < result.size(); ++i) {
        pure[i] = 1;
        result[i] =
            std::exp(result[i] - package.model().lnPhi(kind, of.temperature(), of.pressure(), pure)[i]);
        pure[i] = 0;
    }
    return result;
}

std::vector<double> perCompound(const PropertyPackage& package, package::PhaseKind kind,
                                const package::PhaseProperties& of, Property property) {
    switch (property) {
    case Property::fugacity: return of.fugacity();
    case Property::logFugacity: return of.logFugacity();
    case Property::fugacityCoefficient: return of.fugacityCoefficient();
    case Property::logFugacityCoefficient: return of.logFugacityCoefficient();
    case Property::activityCoefficient: return activityCoefficients(package, kind, of);
    case Property::activity: {
        auto result = activityCoefficients(package, kind, of);
        for (std::size_t i = 0; i < result.size(); ++i) result[i] *= of.composition()[i];
        return result;
    }
    default: throw std::logic_error("a property without its calculation");
    }
}

bool contains(std::span<const Property> properties, Property property) {
    return std::ranges::find(properties, property) != properties.end();
}

}  // namespace

std::span<const Property> singlePhaseProperties() { return calculated; }
bool isCalculated(Property property) { return contains(calculated, property); }
std::span<const Property> twoPhaseProperties() { return calculatedOfTwo; }
bool isTwoPhase(Property property) { return contains(calculatedOfTwo, property); }

void calculate(const PropertyPackage& package, package::PhaseKind kind, std::span<const Property> properties,
               std::span<const Derivative> derivatives, StateValues& phase) {
    const auto of =
        package.model().properties(kind, phase.value(Property::temperature), phase.value(Property::pressure),
                                   phase.values(Property::fraction));
    std::array<double, scalarCount> scalars;
    std::vector<std::pair<Property, std::vector<double>>> vectors;
    for (const Property property : properties) {
        if (isPerCompound(property))
            vectors.emplace_back(property, perCompound(package, kind, of, property));
        else
            scalars[static_cast<std::size_t>(property)] =
                scalar(package, kind, of, property, of.composition());
    }
    std::vector<std::vector<double>> ofDerivatives;
    for (const Derivative& derivative : derivatives)
        ofDerivatives.push_back(calculateDerivative(package.model(), kind, of, derivative));

    for (const Property property : properties) {
        if (!isPerCompound(property)) phase.set(property, scalars[static_cast<std::size_t>(property)]);
    }
    for (const auto& [property, values] : vectors) phase.set(property, values);
    for (std::size_t i = 0; i < derivatives.size(); ++i)
        phase.set(derivatives[i], std::move(ofDerivatives[i]));
}

void calculateTwoPhase(const PropertyPackage& package, const TwoPhases& phases,
                       std::span<const Property> properties, StateValues& into) {
    const auto lnPhi = [&](package::PhaseKind kind, const StateValues& of) {
        return package.model().lnPhi(kind, of.value(Property::temperature), of.value(Property::pressure),
                                     of.values(Property::fraction));
    };
    std::vector<double> lnK;
    if (contains(properties, Property::kvalue) || contains(properties, Property::logKvalue)) {
        lnK = lnPhi(phases.second, phases.secondValues);
        const auto ofFirst = lnPhi(phases.first, phases.firstValues);
        for (std::size_t i = 0; i < lnK.size(); ++i) lnK[i] -= ofFirst[i];
    }
    for (const Property property : properties) {
        if (property == Property::surfaceTension) {
            const auto& liquid =
                phases.first == package::PhaseKind::liquid ? phases.firstValues : phases.secondValues;
            into.set(property, package::surfaceTension(package.compounds(), liquid.values(Property::fraction),
                                                       liquid.value(Property::temperature)));
            continue;
        }
        const auto values = into.fill(property);
        for (std::size_t i = 0; i < lnK.size(); ++i)
            values[i] = property == Property::kvalue ? std::exp(lnK[i]) : lnK[i];
    }
}

}  // namespace orvane::host
