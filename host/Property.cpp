#include "host/Property.h"

#include "cobia/Error.h"

#include <algorithm>
#include <array>

namespace orvane::host {
namespace {

struct Row {
    Property property;
    std::string_view identifier;
    BasisRule rule;
};

constexpr std::array<Row, propertyCount> rows = {{
    {Property::temperature, "temperature", BasisRule::none},
    {Property::pressure, "pressure", BasisRule::none},
    {Property::phaseFraction, "phaseFraction", BasisRule::phaseFraction},
    {Property::totalFlow, "totalFlow", BasisRule::totalFlow},
    {Property::enthalpy, "enthalpy", BasisRule::perAmount},
    {Property::enthalpyF, "enthalpyF", BasisRule::perAmount},
    {Property::entropy, "entropy", BasisRule::perAmount},
    {Property::entropyF, "entropyF", BasisRule::perAmount},
    {Property::gibbsEnergy, "gibbsEnergy", BasisRule::perAmount},
    {Property::internalEnergy, "internalEnergy", BasisRule::perAmount},
    {Property::helmholtzEnergy, "helmholtzEnergy", BasisRule::perAmount},
    {Property::heatCapacityCp, "heatCapacityCp", BasisRule::perAmount},
    {Property::heatCapacityCv, "heatCapacityCv", BasisRule::perAmount},
    {Property::volume, "volume", BasisRule::perAmount},
    {Property::density, "density", BasisRule::density},
    {Property::compressibilityFactor, "compressibilityFactor", BasisRule::none},
    {Property::speedOfSound, "speedOfSound", BasisRule::none},
    {Property::jouleThomsonCoefficient, "jouleThomsonCoefficient", BasisRule::none},
    {Property::viscosity, "viscosity", BasisRule::none},
    {Property::thermalConductivity, "thermalConductivity", BasisRule::none},
    {Property::molecularWeight, "molecularWeight", BasisRule::none},
    {Property::surfaceTension, "surfaceTension", BasisRule::none},
    {Property::fraction, "fraction", BasisRule::fraction},
    {Property::flow, "flow", BasisRule::flow},
    {Property::fugacity, "fugacity", BasisRule::none},
    {Property::logFugacity, "logFugacity", BasisRule::none},
    {Property::fugacityCoefficient, "fugacityCoefficient", BasisRule::none},
    {Property::logFugacityCoefficient, "logFugacityCoefficient", BasisRule::none},
    {Property::activity, "activity", BasisRule::none},
    {Property::activityCoefficient, "activityCoefficient", BasisRule::none},
    {Property::kvalue, "kvalue", BasisRule::none},
    {Property::logKvalue, "logKvalue", BasisRule::none},
}};

constexpr std::array<std::string_view, 4> variables = {"Dtemperature", "Dpressure", "Dmoles", "DmolFraction"};

constexpr bool rowsStandInOrder() {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (static_cast<std::size_t>(rows[i].property) != i) return false;
    }
    return true;
}
static_assert(rowsStandInOrder());

constexpr const Row& row(Property property) { return rows[static_cast<std::size_t>(property)]; }

template <class Character> constexpr Character lowered(Character c) {
    return c >= Character('A') && c <= Character('Z') ? Character(c - 'A' + 'a') : c;
}

}  // namespace

std::string_view identifier(Property property) { return row(property).identifier; }

std::string identifier(Derivative derivative) {
    std::string text(identifier(derivative.of));
    text += '.';
    return text += variables[static_cast<std::size_t>(derivative.by)];
}

BasisRule basisRule(Property property) { return row(property).rule; }

bool matches(COBIA::CapeTextView text, std::string_view word) noexcept {
    return text.size() == word.size() &&
           std::equal(text.begin(), text.end(), word.begin(), [](COBIA::CapeCharacter a, char b) {
               return lowered(a) == static_cast<COBIA::CapeCharacter>(lowered(b));
           });
}

std::optional<Property> findProperty(COBIA::CapeTextView text) noexcept {
    for (const Row& candidate : rows) {
        if (matches(text, candidate.identifier)) return candidate.property;
    }
    return std::nullopt;
}

std::optional<Derivative> findDerivative(COBIA::CapeTextView text) noexcept {
    const auto dot = text.find(COBIA::CapeCharacter('.'));
    if (dot == text.npos) return std::nullopt;
    const auto of = findProperty(text.substr(0, dot));
    if (!of) return std::nullopt;
    for (std::size_t i = 0; i < variables.size(); ++i) {
        if (matches(text.substr(dot + 1), variables[i])) return Derivative{*of, static_cast<By>(i)};
    }
    return std::nullopt;
}

Property property(COBIA::CapeTextView text) {
    if (const auto found = findProperty(text)) return *found;
    throw COBIA::StringException() << "unknown property '" << COBIA::toUtf8(text) << "'";
}

Basis basis(COBIA::CapeTextView text, Property property) {
    const BasisRule rule = basisRule(property);
    if (text.empty() && rule == BasisRule::none) return Basis::none;
    if (rule != BasisRule::none && matches(text, "mole")) return Basis::mole;
    if (rule != BasisRule::none && matches(text, "mass")) return Basis::mass;
    throw COBIA::StringException() << "property '" << identifier(property) << "' has no basis '"
                                   << COBIA::toUtf8(text) << "'; it takes "
                                   << (rule == BasisRule::none ? "an empty one" : "'mole' or 'mass'");
}

Basis basis(COBIA::CapeTextView text, Derivative derivative) {
    const Basis found = basis(text, derivative.of);
    if (found == Basis::mass && isByCompound(derivative.by)) {
        throw COBIA::StringException() << "property '" << identifier(derivative)
                                       << "' has no mass basis, since it is by moles; it takes 'mole'";
    }
    return found;
}

}  // namespace orvane::host
