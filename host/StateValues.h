// The values that a material object holds of the whole mixture or of one phase: which are known, and what
// they are. All on a mole basis and in SI units, so that nothing else needs to know what basis a value came
// in.
// Not here: rules about what may be set when (MaterialObject).
#pragma once

#include "host/Property.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace orvane::host {

class StateValues {
public:
    explicit StateValues(std::size_t compounds);

    bool has(Property property) const { return known_[index(property)]; }
    /// A known value of a property with one value.
    double value(Property property) const { return scalars_[index(property)]; }
    /// Known values of a property with one value a compound.
    std::span<const double> values(Property property) const;

    void set(Property property, double value);
    void set(Property property, std::span<const double> values);
    /// Where the values of a property with one value a compound are to be written; known from here on.
    std::span<double> fill(Property property);

    /// Null when not known.
    const std::vector<double>* find(Derivative derivative) const;
    void set(Derivative derivative, std::vector<double> values);

    void forget(Property property) { known_[index(property)] = false; }
    void forgetAll();
    /// Forgets all but temperature, pressure, composition and amount.
    void forgetCalculated();

private:
    static std::size_t index(Property property) { return static_cast<std::size_t>(property); }
    std::span<double> storage(Property property);

    std::size_t compounds_;
    std::bitset<propertyCount> known_;
    std::array<double, scalarCount> scalars_{};
    std::vector<std::pair<Derivative, std::vector<double>>> derivatives_;
    std::vector<double> perCompound_;  // one block a property, so that no call allocates
};

/// The molar mass [kg/mol] of a mixture. Both in the order of compounds.
double molarMass(std::span<const double> moleFractions, std::span<const double> molarMasses);

}  // namespace orvane::host
