#include "host/PropertyDerivatives.h"

#include "package/IdealGas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace orvane::host {
namespace {

using package::gasConstant;

constexpr std::array byAnything = {Property::enthalpy,
                                   Property::entropy,
                                   Property::gibbsEnergy,
                                   Property::volume,
                                   Property::fugacity,
                                   Property::logFugacity,
                                   Property::fugacityCoefficient,
                                   Property::logFugacityCoefficient};
constexpr std::array byTemperatureAndPressure = {Property::density, Property::compressibilityFactor};
constexpr std::size_t variableCount = 4;

constexpr auto calculated = [] {
    std::array<Derivative, variableCount * byAnything.size() + 2 * byTemperatureAndPressure.size()> all{};
    std::size_t count = 0;
    for (const Property of : byAnything)
        for (const By by : {By::temperature, By::pressure, By::moles, By::molFraction})
            all[count++] = {of, by};
    for (const Property of : byTemperatureAndPressure)
        for (const By by : {By::temperature, By::pressure}) all[count++] = {of, by};
    return all;
}();

double byTemperature(const package::PhaseProperties& of, Property property) {
    const double T = of.temperature(), V = of.volume(), VT = of.volumeByTemperature();
    switch (property) {
    case Property::enthalpy: return of.heatCapacityCp();
    case Property::entropy: return of.heatCapacityCp() / T;
    case Property::gibbsEnergy: return -of.entropy();
    case Property::volume: return VT;
    case Property::density: return -VT / (V * V);
    case Property::compressibilityFactor: return of.compressibilityFactor() * (VT / V - 1 / T);
    default: throw std::logic_error("a derivative without its calculation");
    }
}

double byPressure(const package::PhaseProperties& of, Property property) {
    const double T = of.temperature(), V = of.volume(), VP = of.volumeByPressure();
    switch (property) {
    case Property::enthalpy: return V - T * of.volumeByTemperature();
    case Property::entropy: return -of.volumeByTemperature();
    case Property::gibbsEnergy: return V;
    case Property::volume: return VP;
    case Property::density: return -VP / (V * V);
    case Property::compressibilityFactor: return of.compressibilityFactor() * (VP / V + 1 / of.pressure());
    default: throw std::logic_error("a derivative without its calculation");
    }
}

// Partial molar properties, all from the fugacity coefficients.
std::vector<double> byMoles(const package::Model& model, package::PhaseKind kind,
                            const package::PhaseProperties& of, Property property) {
    const double T = of.temperature(), P = of.pressure(), RT = gasConstant * T;
    const auto& x = of.composition();
    std::vector<double> result(x.size());
    if (property == Property::volume) {
        result = model.lnPhiByPressure(kind, T, P, x);
        for (double& value : result) value = RT * (value + 1 / P);
        return result;
    }
    std::vector<double> enthalpy, lnFugacity;
    if (property != Property::gibbsEnergy) enthalpy = model.lnPhiByTemperature(kind, T, P, x);
    if (property != Property::enthalpy) lnFugacity = of.logFugacity();
    for (std::size_t i = 0; i < x.size(); ++i) {
        const package::IdealGas gas(model.compounds()[i].heatCapacity, T);
        const double partialEnthalpy = enthalpy.empty() ? 0 : gas.enthalpy - RT * T * enthalpy[i];
        const double potential = lnFugacity.empty()
                                     ? 0
                                     : gas.enthalpy - T * gas.entropy +
                                           RT * (lnFugacity[i] - std::log(package::referencePressure));
        switch (property) {
        case Property::enthalpy: result[i] = partialEnthalpy; break;
        case Property::gibbsEnergy: result[i] = potential; break;
        case Property::entropy: result[i] = (partialEnthalpy - potential) / T; break;
        default: throw std::logic_error("a derivative without its calculation");
        }
    }
    return result;
}

// Of x_i phi_i P and what is made of it, from the derivatives of ln phi_i, x_i and ln P by the same variable.
double ofFugacity(const package::PhaseProperties& of, Property property, std::size_t i, double lnPhi,
                  double x, double lnP) {
    const double phi = std::exp(of.logFugacityCoefficient()[i]);
    const double fraction = of.composition()[i];
    switch (property) {
    case Property::logFugacityCoefficient: return lnPhi;
    case Property::fugacityCoefficient: return phi * lnPhi;
    case Property::logFugacity: return lnPhi + lnP + (x == 0 ? 0 : x / fraction);
    case Property::fugacity: return phi * of.pressure() * (x + fraction * (lnPhi + lnP));
    default: throw std::logic_error("a derivative without its calculation");
    }
}

std::vector<double> ofEachCompound(const package::Model& model, package::PhaseKind kind,
                                   const package::PhaseProperties& of, Derivative derivative) {
    const double T = of.temperature(), P = of.pressure();
    const auto& x = of.composition();
    const std::size_t n = x.size();
    std::vector<double> result;
    switch (derivative.by) {
    case By::temperature:
        result = model.lnPhiByTemperature(kind, T, P, x);
        for (std::size_t i = 0; i < n; ++i) result[i] = ofFugacity(of, derivative.of, i, result[i], 0, 0);
        break;
    case By::pressure:
        result = model.lnPhiByPressure(kind, T, P, x);
        for (std::size_t i = 0; i < n; ++i) result[i] = ofFugacity(of, derivative.of, i, result[i], 0, 1 / P);
        break;
    case By::moles:
    case By::molFraction:
        result = model.lnPhiByAmount(kind, T, P, x);
        for (std::size_t j = 0; j < n; ++j) {
            for (std::size_t i = 0; i < n; ++i) {
                double& value = result[j * n + i];
                const double byTotal = derivative.by == By::moles ? x[i] : 0;
                value = ofFugacity(of, derivative.of, i, value, (i == j ? 1 : 0) - byTotal, 0);
            }
        }
    }
    return result;
}

}  // namespace

std::span<const Derivative> singlePhaseDerivatives() { return calculated; }

bool isCalculated(Derivative derivative) {
    return std::ranges::find(calculated, derivative) != calculated.end();
}

std::vector<double> calculateDerivative(const package::Model& model, package::PhaseKind kind,
                                        const package::PhaseProperties& of, Derivative derivative) {
    if (isPerCompound(derivative.of)) return ofEachCompound(model, kind, of, derivative);
    if (isByCompound(derivative.by)) return byMoles(model, kind, of, derivative.of);
    return {derivative.by == By::temperature ? byTemperature(of, derivative.of)
                                             : byPressure(of, derivative.of)};
}

}  // namespace orvane::host
