#include "host/StateValues.h"

#include <algorithm>
#include <numeric>

namespace orvane::host {

StateValues::StateValues(std::size_t compounds)
    : compounds_(compounds), perCompound_(compounds * (propertyCount - scalarCount)) {}

std::span<double> StateValues::storage(Property property) {
    return {perCompound_.data() + (index(property) - scalarCount) * compounds_, compounds_};
}

std::span<const double> StateValues::values(Property property) const {
    return const_cast<StateValues*>(this)->storage(property);
}

void StateValues::set(Property property, double value) {
    scalars_[index(property)] = value;
    known_[index(property)] = true;
}

void StateValues::set(Property property, std::span<const double> values) {
    std::ranges::copy(values, fill(property).begin());
}

std::span<double> StateValues::fill(Property property) {
    known_[index(property)] = true;
    return storage(property);
}

const std::vector<double>* StateValues::find(Derivative derivative) const {
    const auto found =
        std::ranges::find(derivatives_, derivative, [](const auto& entry) { return entry.first; });
    return found == derivatives_.end() ? nullptr : &found->second;
}

void StateValues::set(Derivative derivative, std::vector<double> values) {
    std::erase_if(derivatives_, [derivative](const auto& entry) { return entry.first == derivative; });
    derivatives_.emplace_back(derivative, std::move(values));
}

void StateValues::forgetAll() {
    known_.reset();
    derivatives_.clear();
}

void StateValues::forgetCalculated() {
    derivatives_.clear();
    std::bitset<propertyCount> kept;
    for (const Property property : {Property::temperature, Property::pressure, Property::fraction,
                                    Property::phaseFraction, Property::totalFlow}) {
        kept[index(property)] = known_[index(property)];
    }
    known_ = kept;
}

double molarMass(std::span<const double> moleFractions, std::span<const double> molarMasses) {
    return std::inner_product(moleFractions.begin(), moleFractions.end(), molarMasses.begin(), 0.0);
}

}  // namespace orvane::host
