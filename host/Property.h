// The vocabulary of material objects: properties, bases, and how the texts of the binary interface become
// enumerators.
// Not here: the values (StateValues), their calculation (PropertyCalculator).
#pragma once

#include "cobia/Text.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvane::host {

/// What a material object can hold of the whole mixture or of one phase. One value each up to `fraction`,
/// from there on one value a compound.
enum class Property : std::uint8_t {
    temperature,
    pressure,
    phaseFraction,
    totalFlow,
    enthalpy,
    enthalpyF,
    entropy,
    entropyF,
    gibbsEnergy,
    internalEnergy,
    helmholtzEnergy,
    heatCapacityCp,
    heatCapacityCv,
    volume,
    density,
    compressibilityFactor,
    speedOfSound,
    jouleThomsonCoefficient,
    viscosity,
    thermalConductivity,
    molecularWeight,
    surfaceTension,
    fraction,
    flow,
    fugacity,
    logFugacity,
    fugacityCoefficient,
    logFugacityCoefficient,
    activity,
    activityCoefficient,
    kvalue,
    logKvalue,
};
inline constexpr std::size_t propertyCount = 32;
inline constexpr std::size_t scalarCount = static_cast<std::size_t>(Property::fraction);

/// What a derivative of a property of a phase is by; PropertyDerivatives.h has the definitions.
enum class By : std::uint8_t { temperature, pressure, moles, molFraction };

struct Derivative {
    Property of;
    By by;

    bool operator==(const Derivative&) const = default;
};

constexpr bool isByCompound(By by) { return by >= By::moles; }
constexpr bool isPerCompound(Property property) { return property >= Property::fraction; }

enum class Basis : std::uint8_t { none, mole, mass };

/// What a basis does to the values of a property.
enum class BasisRule : std::uint8_t {
    none,       ///< there is none: the basis is to be empty
    perAmount,  ///< X/mol or X/kg
    density,    ///< mol/m3 or kg/m3
    totalFlow,  ///< mol/s or kg/s of the mixture
    flow,       ///< mol/s or kg/s of each compound
    fraction,   ///< mole or mass fractions
    phaseFraction,
};

/// The identifier as CAPE-OPEN writes it, such as "heatCapacityCp".
std::string_view identifier(Property property);
/// Such as "enthalpy.Dtemperature".
std::string identifier(Derivative derivative);
BasisRule basisRule(Property property);

/// Whether the text is this ASCII word, letter case aside. Allocates nothing.
bool matches(COBIA::CapeTextView text, std::string_view word) noexcept;

/// Empty when the text names no property that a material object knows.
std::optional<Property> findProperty(COBIA::CapeTextView text) noexcept;
/// Empty when the text is no derivative of such a property.
std::optional<Derivative> findDerivative(COBIA::CapeTextView text) noexcept;
/// As findProperty, but throws StringException instead, with the text.
Property property(COBIA::CapeTextView text);

/// Throws StringException, naming the property, when the text is no basis or the property has no such basis.
Basis basis(COBIA::CapeTextView text, Property property);
/// Likewise. By amounts of compounds there is no mass basis.
Basis basis(COBIA::CapeTextView text, Derivative derivative);

}  // namespace orvane::host
